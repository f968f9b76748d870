#pragma once

#include "core/base/DateTime.h"

#include <string>

/// The criteria of the issues register.
struct MoveFilter {
    bool byNum = false;
    QString num;
    bool numPart = false;
    bool byDate = false;
    /// Both days belong to the range.
    DateTime dateFrom = DateTime::Today();
    DateTime dateTo = DateTime::Today();
    bool byExport = false;
    bool exported = false;

    bool IsActive() const { return byNum || byDate || byExport; }
    /// " WHERE …", or nothing when no criterion is on. Texts go in as typed.
    std::string Clauses() const;
};
