#include "core/report/Explanation.h"
#include "core/report/Figures.h"
#include "core/report/IntroSheet.h"
#include "core/store/DataStore.h"
#include "ctl/Commands.h"
#include "ctl/Failure.h"
#include "ctl/FormOptions.h"
#include "ctl/TableOutput.h"

#include <memory>

namespace {

struct ExplainOptions {
    FormOptions form;
    std::string sheet;
    std::string cell;
    std::string format;
};

const FigureSheet& SheetOf(const ExplainOptions& options) {
    const QString name = QString::fromStdString(options.sheet);
    if (const FigureSheet* sheet = FindFigureSheet(name))
        return *sheet;
    throw Failure(QStringLiteral("the form has no figure sheet \"%1\"").arg(name));
}

/// A cell that the form fills on the sheet, whatever the records hold.
CellPlace CellOf(const ExplainOptions& options, const FigureSheet& sheet, Layout layout) {
    const QString text = QString::fromStdString(options.cell);
    const std::optional<CellPlace> place = ParseCell(text);
    if (!place)
        throw Failure(QStringLiteral("\"%1\" is no cell").arg(text));
    if (!sheet.CanReach(layout, *place))
        throw Failure(QStringLiteral("no packaging can reach cell %1 of sheet %2 in form version %3")
                          .arg(CellText(*place), sheet.Name(), options.form.Version()));
    return *place;
}

bool Explain(const ExplainOptions& options) {
    const FigureSheet& sheet = SheetOf(options);
    TemplateVersion = VersionValue(NormalVersionText(options.form.Version()));
    const CellPlace place = CellOf(options, sheet, CurrentLayout());
    if (!OpenStore())
        return false;
    const std::vector<ExplanationRow> rows = ExplainFigure(
        g_dataStore, QuarterRange(options.form.year, options.form.quarter), CurrentLayout(), sheet, place);
    CTableOutput output(options.format, {QStringLiteral("document"), QStringLiteral("date"), QStringLiteral("product"),
                                         QStringLiteral("catalogue"), QStringLiteral("cover"), QStringLiteral("pieces"),
                                         QStringLiteral("kilograms_each"), QStringLiteral("kilograms")});
    for (const ExplanationRow& row : rows)
        output.Row({row.document, IsoDay(row.date), row.product, row.catalogue, row.cover, Decimal(row.pieces),
                    Decimal(row.kilogramsEach), Decimal(row.kilograms)});
    output.End();
    return true;
}

} // namespace

void AddExplain(CLI::App& app, Action& action) {
    CLI::App* command = app.add_subcommand("explain", "Lists the packaging rows or discards behind a figure");
    const auto options = std::make_shared<ExplainOptions>();
    options->form.Add(*command);
    command->add_option("SHEET", options->sheet, "The figure sheet, 1-1 to 4-1")->required();
    command->add_option("CELL", options->cell, "The cell, such as C33")->required();
    CTableOutput::AddFormat(*command, options->format);
    command->callback([options, &action] { action = [options](CTerminal&) { return Explain(*options); }; });
}
