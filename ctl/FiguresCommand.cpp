#include "core/report/FigureList.h"
#include "core/store/DataStore.h"
#include "ctl/Commands.h"
#include "ctl/Terminal.h"

#include <CLI/Validators.hpp>

#include <memory>

namespace {

struct FiguresOptions {
    int year = 0;
    int quarter = 0;
    std::string templateVersion;
    std::string format = "csv";
};

/// The form with industrial packaging came with the second quarter of 2004.
QString UsualVersion(int year, int quarter) {
    return year < 2004 || (year == 2004 && quarter == 1) ? QStringLiteral("1.4") : QStringLiteral("2.0");
}

/// "1.2345", whatever the user's language.
QString Decimal(Currency value) {
    return FormatCurrency(value, 1, 'D').replace(u',', u'.');
}

void PrintCsv(const std::vector<FigureCell>& figures) {
    PrintLine(QStringLiteral("sheet,cell,tonnes"));
    for (const FigureCell& figure : figures)
        PrintLine(QStringLiteral("%1,%2,%3").arg(figure.sheet, figure.cell, Decimal(figure.tonnes)));
}

void PrintJson(const std::vector<FigureCell>& figures) {
    QString text = QStringLiteral("[");
    for (const FigureCell& figure : figures)
        text += QStringLiteral("%1\n{\"sheet\": \"%2\", \"cell\": \"%3\", \"tonnes\": \"%4\"}")
                    .arg(text.size() > 1 ? QStringLiteral(",") : QString(), figure.sheet, figure.cell,
                         Decimal(figure.tonnes));
    PrintLine(text + (figures.empty() ? QStringLiteral("]") : QStringLiteral("\n]")));
}

bool Figures(const FiguresOptions& options, CTerminal& terminal) {
    if (!OpenStore())
        return false;
    const QString version = options.templateVersion.empty() ? UsualVersion(options.year, options.quarter)
                                                            : QString::fromStdString(options.templateVersion);
    std::vector<FigureCell> figures;
    {
        const std::unique_ptr<IProgress> progress = terminal.Open(QStringLiteral("figures"), false);
        progress->SetRange(0, 200);
        figures = ListFigures(g_dataStore, *progress, options.year, options.quarter, version);
    }
    options.format == "json" ? PrintJson(figures) : PrintCsv(figures);
    return true;
}

} // namespace

void AddFigures(CLI::App& app, Action& action) {
    CLI::App* command = app.add_subcommand("figures", "Prints the cells of a quarter's report, in tonnes");
    const auto options = std::make_shared<FiguresOptions>();
    AddPeriod(*command, options->year, options->quarter);
    command
        ->add_option("--template-version", options->templateVersion,
                     "The form's version as cell A1 of the template has it (the usual one of the quarter)")
        ->option_text("V");
    command->add_option("--format", options->format, "csv (the usual one) or json")
        ->option_text("csv|json")
        ->check(CLI::IsMember({"csv", "json"}));
    command->callback(
        [options, &action] { action = [options](CTerminal& terminal) { return Figures(*options, terminal); }; });
}
