#pragma once

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <functional>

class CTerminal;

/// What the chosen command does when the arguments have been read; true when it was done, false when it was not and the
/// reason has been shown. May raise Failure and ComError.
using Action = std::function<bool(CTerminal&)>;

/// Each adds one command, which sets the action when it is chosen.
void AddInit(CLI::App& app, Action& action);
void AddDemo(CLI::App& app, Action& action);
void AddRecompute(CLI::App& app, Action& action);
void AddFigures(CLI::App& app, Action& action);
void AddExplain(CLI::App& app, Action& action);
void AddReport(CLI::App& app, Action& action);
void AddImport(CLI::App& app, Action& action);
void AddBackup(CLI::App& app, Action& action);
void AddRestore(CLI::App& app, Action& action);
void AddCheck(CLI::App& app, Action& action);

/// An argument that must be a whole decimal number within the bounds.
CLI::Option* AddNumber(CLI::App& command, const char* name, int& value, int lowest, int highest, const char* help);
/// YEAR and QUARTER of a report.
void AddPeriod(CLI::App& command, int& year, int& quarter);

/// Opens the database of the program folder as `g_dataStore`; false after the message that says it cannot be opened.
bool OpenStore();
