#include "core/import/money/MoneyImport.h"
#include "ctl/ImportCommands.h"
#include "ctl/Terminal.h"

#include <QFile>

namespace {

struct MoneyArguments {
    std::string yearFolder;
    std::optional<CImportArguments> common;
    std::optional<bool> exportFlag;
    std::optional<std::string> domestic;
};

bool ImportMoney(const MoneyArguments& arguments, CTerminal& terminal) {
    MoneyOptions options;
    options.Read();
    if (arguments.exportFlag)
        options.setExport = *arguments.exportFlag;
    if (arguments.domestic)
        options.domestic = QString::fromStdString(*arguments.domestic);
    if (!arguments.common->Apply(options) || !OpenStore())
        return false;
    return RunImportHere([&](ImportCounts& counts) {
        if (!MoneyComponentReady())
            return false;
        const std::optional<MoneyYear> year = MoneyYearOfFolder(QFile::decodeName(arguments.yearFolder.c_str()));
        if (!year)
            return false;
        CMoneySource source(*year, options);
        return RunImport(g_dataStore, source, options, terminal, NobodyToAsk(), counts);
    });
}

} // namespace

void AddImportMoney(CLI::App& import, Action& action) {
    CLI::App* command = import.add_subcommand("money", "Imports one year of an agenda of Money S3");
    const auto arguments = std::make_shared<MoneyArguments>();
    command->add_option("YEARFOLDER", arguments->yearFolder, "The year's folder, in the folder of its agenda")
        ->required();
    arguments->common.emplace(*command);
    command->add_flag_callback(
        "--export-flag", [arguments] { arguments->exportFlag = true; }, "Tell exports by the country of the address");
    command
        ->add_flag_callback(
            "--no-export-flag", [arguments] { arguments->exportFlag = false; }, "Mark no issue as an export")
        ->excludes("--export-flag");
    command
        ->add_option("--domestic", arguments->domestic,
                     "Names of domestic countries, separated by semicolons; a lone semicolon is an empty country")
        ->option_text("LIST");
    command->callback([arguments, &action] {
        action = [arguments](CTerminal& terminal) { return ImportMoney(*arguments, terminal); };
    });
}
