#include "core/report/Figures.h"

#include "core/base/ComError.h"
#include "core/base/Pacing.h"
#include "core/report/Spreadsheet.h"
#include "core/store/DataStore.h"

#include <map>

Currency TemplateVersion;

Layout CurrentLayout() {
    return TemplateVersion.count >= 2 * Currency::One ? Layout::New : Layout::Old;
}

namespace {

constexpr WideCount KilogramsInTonne = 1000;

[[noreturn]] void RaiseRange(const QString& place) {
    throw ComError("figures", {}, ResultCode::ErrorsInCommand, QStringLiteral("Hodnota je mimo rozsah měny.") + place);
}

/// Names the record as the user finds it: the document or day, and the cover.
[[noreturn]] void RaiseRecord(CQuarterTotals& totals, PackagingSource source, std::int64_t key) {
    CPackagingRows rows(totals.Store(), source, totals.Period(), CPackagingRows::Extent::Named);
    while (rows.Next()) {
        if (rows.Key() != key)
            continue;
        const QString record =
            source == PackagingSource::Issued
                ? QStringLiteral("výdej \"%1\" ze dne %2").arg(rows.Document(), FormatDate(rows.Date()))
                : QStringLiteral("vyřazení ze dne %1").arg(FormatDate(rows.Date()));
        RaiseRange(QStringLiteral("\n\n%1, obal \"%2\"").arg(record, rows.Cover()));
    }
    RaiseRange({});
}

/// What one group of a sheet weighs, and where it stands.
struct Figure {
    std::optional<CellPlace> place;
    std::optional<WideCount> kilograms;
};

std::map<FigureSheet::Group, Figure> FiguresOf(const FigureSheet& figures, CQuarterTotals& totals) {
    const Layout layout = CurrentLayout();
    std::map<FigureSheet::Group, Figure> groups;
    for (const PackagingTotal& total : totals.Of(figures.Source())) {
        if (!figures.Takes(total.codes))
            continue;
        if (total.outOfRangeKey)
            RaiseRecord(totals, figures.Source(), *total.outOfRangeKey);
        Figure& figure = groups[figures.GroupOf(total.codes)];
        figure.place = figures.Place(layout, total.codes);
        if (total.kilograms)
            figure.kilograms = figure.kilograms.value_or(0) + *total.kilograms;
    }
    for (const auto& [group, figure] : groups)
        if (figure.kilograms && !IsInRange(*figure.kilograms))
            RaiseRange({});
    return groups;
}

void Fill(const FigureSheet& figures, CQuarterTotals& totals, IProgress& progress, IFigureSheet& sheet) {
    const std::map<FigureSheet::Group, Figure> groups = FiguresOf(figures, totals);
    if (groups.empty())
        return;
    CPacing pacing(progress, static_cast<std::int64_t>(groups.size()));
    progress.SetPosition(0);
    // Groups meet in a cell only where a null counts as no.
    std::map<CellPlace, WideCount> cells;
    std::int64_t i = 0;
    for (const auto& [group, figure] : groups) {
        pacing.Show(i++);
        if (!figure.place || !figure.kilograms)
            continue;
        const WideCount total = cells[*figure.place] += *figure.kilograms;
        sheet.SetCurrency(RangeText(*figure.place),
                          Currency::FromCount(static_cast<std::int64_t>(total / KilogramsInTonne)));
    }
}

} // namespace

void FillMoveFigures(CQuarterTotals& totals, IProgress& progress, IFigureSheet& sheet, ReportFilter filter) {
    Fill({"", FigureSheet::Fill::Moves, filter}, totals, progress, sheet);
}

void FillDiscardFigures(CQuarterTotals& totals, IProgress& progress, IFigureSheet& sheet) {
    Fill({"", FigureSheet::Fill::Discards}, totals, progress, sheet);
}

void FillStatFigures(CQuarterTotals& totals, IProgress& progress, IFigureSheet& sheet) {
    Fill({"", FigureSheet::Fill::Stats}, totals, progress, sheet);
}
