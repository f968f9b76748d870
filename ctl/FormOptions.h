#pragma once

#include <CLI/App.hpp>

#include <QString>

#include <string>

/// The period and the form that a command computes for.
struct FormOptions {
    int year = 0;
    int quarter = 0;
    std::string templateVersion;

    /// Adds YEAR, QUARTER and --template-version to the command.
    void Add(CLI::App& command);
    /// As the template's cell A1 has it; the usual one of the quarter when none was given.
    QString Version() const;
};
