#include "core/report/FigureList.h"
#include "core/store/DataStore.h"
#include "ctl/Commands.h"
#include "ctl/FormOptions.h"
#include "ctl/TableOutput.h"
#include "ctl/Terminal.h"

#include <memory>

namespace {

struct FiguresOptions {
    FormOptions form;
    std::string format;
};

void Print(const std::vector<FigureCell>& figures, const std::string& format) {
    CTableOutput output(format, {QStringLiteral("sheet"), QStringLiteral("cell"), QStringLiteral("tonnes")});
    for (const FigureCell& figure : figures)
        output.Row({figure.sheet, figure.cell, Decimal(figure.tonnes)});
    output.End();
}

bool Figures(const FiguresOptions& options, CTerminal& terminal) {
    if (!OpenStore())
        return false;
    const QString version = options.form.Version();
    std::vector<FigureCell> figures;
    {
        const std::unique_ptr<IProgress> progress = terminal.Open(QStringLiteral("figures"), false);
        progress->SetRange(0, 200);
        figures = ListFigures(g_dataStore, *progress, options.form.year, options.form.quarter, version);
    }
    Print(figures, options.format);
    return true;
}

} // namespace

void AddFigures(CLI::App& app, Action& action) {
    CLI::App* command = app.add_subcommand("figures", "Prints the cells of a quarter's report, in tonnes");
    const auto options = std::make_shared<FiguresOptions>();
    options->form.Add(*command);
    CTableOutput::AddFormat(*command, options->format);
    command->callback(
        [options, &action] { action = [options](CTerminal& terminal) { return Figures(*options, terminal); }; });
}
