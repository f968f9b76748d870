#include "ctl/CommandLine.h"

#include "core/base/AppDir.h"
#include "core/base/Messages.h"
#include "core/base/Shared.h"
#include "core/report/Quarter.h"
#include "core/store/DataStore.h"
#include "ctl/Commands.h"
#include "ctl/Failure.h"
#include "ctl/Terminal.h"

#include <QFile>

#include <clocale>
#include <iostream>

namespace {

enum ExitCode { Done = 0, NotDone = 1, WrongUsage = 2 };

using AddCommand = void (*)(CLI::App&, Action&);
constexpr AddCommand Commands[] = {AddInit,   AddDemo,   AddRecompute, AddFigures, AddExplain,
                                   AddReport, AddImport, AddBackup,    AddRestore, AddCheck};

std::string CommandNames(const CLI::App& app, const char* separator) {
    std::string names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        names += (names.empty() ? "" : separator) + command->get_name();
    return names;
}

/// "kuvelctl figures YEAR QUARTER [--format csv|json]".
std::string Usage(const CLI::App& command) {
    std::string usage = command.get_name();
    for (const CLI::App* above = command.get_parent(); above != nullptr; above = above->get_parent())
        usage.insert(0, (above->get_parent() == nullptr ? "kuvelctl" : above->get_name()) + " ");
    if (const std::string names = CommandNames(command, "|"); !names.empty())
        usage += " " + names;
    for (const CLI::Option* option : command.get_options()) {
        if (option == command.get_help_ptr())
            continue;
        std::string words = option->get_name();
        if (!option->get_positional() && option->get_expected_max() > 0)
            words += " " + option->get_option_text();
        usage += option->get_required() ? " " + words : " [" + words + "]";
    }
    return usage;
}

/// One line: what is wrong, and what is allowed.
std::string UsageError(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<std::string> unknown = app.remaining(true);
    const CLI::App* chosen = &app;
    while (!chosen->get_subcommands().empty())
        chosen = chosen->get_subcommands().front();
    const bool mustChoose = !CommandNames(*chosen, "").empty();
    std::string wrong = error.what();
    if (mustChoose && !unknown.empty())
        wrong = (unknown.front().starts_with('-') ? "unknown option '" : "unknown command '") + unknown.front() + "'";
    else if (mustChoose && error.get_name() == "RequiredError")
        wrong = "a command is missing";
    return "kuvelctl: " + wrong +
           (chosen != &app ? "; usage: " + Usage(*chosen) + " [--home DIR]"
                           : "; allowed: [--home DIR] and one of " + CommandNames(app, ", "));
}

void Define(CLI::App& app, std::string& home, Action& action) {
    app.description("The packaging records of a company and their quarterly report, without windows.");
    app.set_version_flag("--version", "kuvelctl " + FormatVersion().toStdString());
    app.add_option("--home", home, "The program folder (instead of KUVEL_HOME or the folder of this program)")
        ->option_text("DIR")
        ->check(CLI::Validator([](std::string& folder) { return folder.empty() ? "is empty" : std::string(); }, ""));
    app.require_subcommand(1);
    app.fallthrough();
    for (const AddCommand add : Commands)
        add(app, action);
}

bool Run(const Action& action, CTerminal& terminal) {
    try {
        const bool done = action(terminal);
        FlushOutput();
        if (done || !terminal.WasInterrupted())
            return done && terminal.ErrorCount() == 0;
    } catch (const ComError& error) {
        ShowComError(error);
    } catch (const Failure& failure) {
        ShowMessage(QStringLiteral("kuvelctl: ") + QString::fromUtf8(failure.what()));
    } catch (const Interrupted&) {
        // Said below.
    } catch (const std::bad_alloc&) {
        ShowMessage(QStringLiteral("kuvelctl: out of memory"));
    }
    if (terminal.WasInterrupted())
        ShowMessage(QStringLiteral("kuvelctl: interrupted"));
    return false;
}

} // namespace

int RunCommandLine(int argc, const char* const* argv) {
    // Messages of the system in the user's language; numbers stay as they are.
    std::setlocale(LC_MESSAGES, "");
    CLI::App app;
    std::string home;
    Action action;
    Define(app, home, action);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& wish) {
        return app.exit(wish);
    } catch (const CLI::ParseError& error) {
        std::cerr << UsageError(app, error) << '\n';
        return WrongUsage;
    }
    SetAppDir(home.empty() ? DefaultAppDir() : QFile::decodeName(home.c_str()));
    CTerminal terminal;
    const bool done = Run(action, terminal);
    g_dataStore.CloseDatabase();
    return done ? Done : NotDone;
}

CLI::Option* AddNumber(CLI::App& command, const char* name, int& value, int lowest, int highest, const char* help) {
    const auto read = [&value, name, lowest, highest](const std::string& text) {
        bool good = false;
        value = QString::fromStdString(text).toInt(&good);
        if (!good || value < lowest || value > highest)
            throw CLI::ValidationError(std::string(name) + " must be " + std::to_string(lowest) + " to " +
                                       std::to_string(highest));
    };
    return command.add_option_function<std::string>(name, read, help);
}

void AddPeriod(CLI::App& command, int& year, int& quarter) {
    const std::string years = std::to_string(FirstFormYear) + " to " + std::to_string(LastFormYear);
    AddNumber(command, "YEAR", year, FirstFormYear, LastFormYear, years.c_str())->required();
    AddNumber(command, "QUARTER", quarter, 1, 4, "1 to 4")->required();
}

bool OpenStore() {
    return g_dataStore.OpenDatabase();
}
