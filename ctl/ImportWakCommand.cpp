#include "core/import/wak/WakImport.h"
#include "ctl/ImportCommands.h"
#include "ctl/Terminal.h"

#include <CLI/Validators.hpp>

#include <iostream>

namespace {

struct WakArguments {
    explicit WakArguments(CLI::App& command) : common(command) {}

    CImportArguments common;
    std::optional<std::string> server;
    std::optional<std::string> database;
    std::optional<std::string> user;
    bool windows = false;
    bool passwordFromInput = false;
    std::optional<DateTime> from;
    std::optional<DateTime> to;
};

/// One line, whose end is no part of the password.
QString ReadPassword() {
    std::string line;
    std::getline(std::cin, line);
    if (line.ends_with('\r'))
        line.pop_back();
    return QString::fromStdString(line);
}

void Take(const std::optional<std::string>& argument, QString& setting) {
    if (argument)
        setting = QString::fromStdString(*argument);
}

bool ImportWak(const WakArguments& arguments, CTerminal& terminal) {
    WakOptions options;
    options.Read();
    Take(arguments.server, options.server);
    Take(arguments.database, options.database);
    Take(arguments.user, options.user);
    options.windows = arguments.windows || (options.windows && !arguments.user);
    if (arguments.passwordFromInput)
        options.password = ReadPassword();
    WakDateRange range = WakDateRange::PreviousQuarter(DateTime::Today());
    range = {arguments.from.value_or(range.from), arguments.to.value_or(range.to)};
    if (!arguments.common.Apply(options))
        return false;
    if (const auto complaint = CheckWakConnection(options)) {
        ShowWarning(complaint->text);
        return false;
    }
    if (const auto complaint = CheckWakParameters(options, range)) {
        ShowWarning(*complaint);
        return false;
    }
    if (!OpenStore())
        return false;
    return RunImportHere([&](ImportCounts& counts) {
        CWakSource source(options, range);
        return RunImport(g_dataStore, source, options, terminal, NobodyToAsk(), counts);
    });
}

void AddDay(CLI::App& command, const char* name, std::optional<DateTime>& day, const char* help) {
    const auto read = [&day, name](const std::string& text) {
        const DateTime date = text.size() == 10 ? DateTime::FromStored(text) : DateTime::Invalid();
        if (!date.IsValid())
            throw CLI::ValidationError(std::string(name) + " must be a day as YYYY-MM-DD");
        day = date;
    };
    command.add_option_function<std::string>(name, read, help)->option_text("DATE");
}

} // namespace

void AddImportWak(CLI::App& import, Action& action) {
    CLI::App* command = import.add_subcommand("wak", "Imports products and sales from WAK INTRA");
    const auto arguments = std::make_shared<WakArguments>(*command);
    command->add_option("--server", arguments->server, "HOST, HOST,PORT, HOST\\INSTANCE or (local)")->option_text("S");
    command->add_option("--database", arguments->database, "The database's name")->option_text("D");
    CLI::Option* user = command->add_option("--user", arguments->user, "Log in as this user")->option_text("U");
    CLI::Option* windows = command->add_flag("--windows", arguments->windows, "Log in with a Kerberos ticket");
    windows->excludes(user);
    command
        ->add_flag("--password-stdin", arguments->passwordFromInput,
                   "Read the password from standard input instead of the settings")
        ->excludes(windows);
    AddDay(*command, "--from", arguments->from, "The first day, YYYY-MM-DD (default: of the previous quarter)");
    AddDay(*command, "--to", arguments->to, "The last day, YYYY-MM-DD (default: of the previous quarter)");
    command->callback([arguments, &action] {
        action = [arguments](CTerminal& terminal) { return ImportWak(*arguments, terminal); };
    });
}
