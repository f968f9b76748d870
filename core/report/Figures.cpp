#include "core/report/Figures.h"

#include "core/base/CodeLists.h"
#include "core/base/Progress.h"
#include "core/base/SqlText.h"
#include "core/report/Placement.h"
#include "core/report/RangeFault.h"
#include "core/report/Spreadsheet.h"
#include "core/store/DataStore.h"

#include <algorithm>
#include <map>

Currency TemplateVersion;

namespace {

constexpr int BarRange = 200;
constexpr std::int64_t KilogramsInTonne = 1000;

constexpr const char* MoveQuery =
    "SELECT Cover.cover_mat, Move_Cover.cover_type, Move_Cover.cover_org, "
    "Sum(Move_Cover.mvcover_qty*Cover.cover_weight) AS SumWeight FROM (Move INNER JOIN Move_Cover ON Move.move_id = "
    "Move_Cover.move_id) INNER JOIN Cover ON Move_Cover.cover_id = Cover.cover_id WHERE DATEDIFF(\"d\", #%i/%i/%i#, "
    "move_date)>=0 AND DATEDIFF(\"d\", move_date, #%i/%i/%i#)>=0";

constexpr const char* DiscardQuery =
    "SELECT Cover.cover_mat, Cover.cover_type, CoverDiscard.disc_type, "
    "Sum(CoverDiscard.disc_qty*Cover.cover_weight) AS SumWeight FROM CoverDiscard INNER JOIN Cover ON "
    "CoverDiscard.cover_id = Cover.cover_id WHERE (Cover.cover_reusable=TRUE) AND DATEDIFF(\"d\", #%i/%i/%i#, "
    "disc_date)>=0 AND DATEDIFF(\"d\", disc_date, #%i/%i/%i#)>=0 GROUP BY Cover.cover_mat, Cover.cover_type, "
    "CoverDiscard.disc_type";

constexpr const char* StatQuery =
    "SELECT Cover.cover_stat, Cover.cover_reusable, Sum(Move_Cover.mvcover_qty*Cover.cover_weight) AS SumWeight FROM "
    "(Move INNER JOIN Move_Cover ON Move.move_id = Move_Cover.move_id) INNER JOIN Cover ON Move_Cover.cover_id = "
    "Cover.cover_id WHERE (cover_stat<>%li) AND DATEDIFF(\"d\", #%i/%i/%i#, move_date)>=0 AND DATEDIFF(\"d\", "
    "move_date, #%i/%i/%i#)>=0 GROUP BY Cover.cover_stat, Cover.cover_reusable";

Layout CurrentLayout() {
    return TemplateVersion.count >= 2 * Currency::One ? Layout::New : Layout::Old;
}

RecordsetPtr QueryOf(CDataStore& store, const std::string& sql, DateRange days) {
    try {
        return store.Query(sql);
    } catch (const ComError& error) {
        throw NameFaultyRow(store, error, days.from, days.to);
    }
}

/// Writes every row of the query that `place` has a cell for.
template <class Place>
void WriteTotals(CDataStore& store, const std::string& sql, DateRange days, IProgress& progress, IFigureSheet& sheet,
                 Place place) {
    const RecordsetPtr rows = QueryOf(store, sql, days);
    const std::int64_t count = rows->get_RecordCount();
    if (count < 1)
        return;
    const std::int64_t step = std::max<std::int64_t>(count / BarRange, 1);
    progress.SetPosition(0);
    // Rows meet in a cell only where a null counts as no.
    std::map<CellPlace, std::int64_t> kilograms;
    std::int64_t i = 0;
    for (rows->MoveFirst(); !rows->get_EOF(); rows->MoveNext(), ++i) {
        if (i % step == 0) {
            progress.SetDetailText(MessageText("%li z %li", i + 1, count));
            progress.SetPosition(static_cast<int>((i + 1) * BarRange / count));
        }
        const std::optional<CellPlace> cell = place(*rows);
        if (!cell)
            continue;
        const Currency weight = ToCurrency(rows->get_Collect("SumWeight"));
        if (!weight.IsValid())
            continue;
        const std::int64_t total = kilograms[*cell] += weight.count;
        sheet.SetCurrency(RangeText(*cell), Currency::FromCount(total / KilogramsInTonne));
    }
}

} // namespace

void FillMoveFigures(CDataStore& store, IProgress& progress, IFigureSheet& sheet, ReportFilter filter) {
    std::string sql = SqlText(MoveQuery, filter.from.Month(), filter.from.Day(), filter.from.Year(), filter.to.Month(),
                              filter.to.Day(), filter.to.Year());
    sql += filter.reusable ? " AND (Cover.cover_reusable=True)" : " AND (Cover.cover_reusable=False)";
    sql += filter.exported ? " AND (Move.move_export=True)"
                           : SqlText(" AND (Move.move_export=False) AND (Move_Cover.cover_pay=%li)", filter.payment);
    sql += " GROUP BY Cover.cover_mat, Move_Cover.cover_type, Move_Cover.cover_org";
    const Layout layout = CurrentLayout();
    WriteTotals(store, sql, {filter.from, filter.to}, progress, sheet, [&](const CRecordset& row) {
        return PlaceMaterial(layout, filter.reusable, row.Code("cover_mat"), row.Code("cover_type"),
                             row.Code("cover_org"));
    });
}

void FillDiscardFigures(CDataStore& store, IProgress& progress, IFigureSheet& sheet, DateTime from, DateTime to) {
    const std::string sql =
        SqlText(DiscardQuery, from.Month(), from.Day(), from.Year(), to.Month(), to.Day(), to.Year());
    const Layout layout = CurrentLayout();
    WriteTotals(store, sql, {from, to}, progress, sheet, [&](const CRecordset& row) {
        return PlaceMaterial(layout, true, row.Code("cover_mat"), row.Code("cover_type"), row.Code("disc_type"));
    });
}

void FillStatFigures(CDataStore& store, IProgress& progress, IFigureSheet& sheet, DateTime from, DateTime to) {
    const std::string sql =
        SqlText(StatQuery, Stat::NoPallet, from.Month(), from.Day(), from.Year(), to.Month(), to.Day(), to.Year());
    const Layout layout = CurrentLayout();
    WriteTotals(store, sql, {from, to}, progress, sheet, [&](const CRecordset& row) {
        const Variant reusable = row.get_Collect("cover_reusable");
        return PlaceStat(layout, row.Code("cover_stat"),
                         IsNull(reusable) ? std::nullopt : std::optional(ToBool(reusable)));
    });
}
