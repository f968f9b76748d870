#pragma once

#include <QString>

#include <stdexcept>
#include <system_error>

/// Why a command could not be done, in the program's own words: one English line.
class Failure : public std::runtime_error {
public:
    explicit Failure(const QString& reason) : std::runtime_error(reason.toStdString()) {}
    /// "REASON: No such file or directory".
    Failure(const QString& reason, const std::error_code& error);
};
