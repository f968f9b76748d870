#pragma once

#include <QString>

#include <string>

/// The criteria of the composite covers register.
struct CompCoverFilter {
    bool byName = false;
    QString name;
    bool namePart = false;
    bool byNote = false;
    QString note;
    bool notePart = false;

    bool IsActive() const { return byName || byNote; }
    /// " WHERE …" when a criterion is on. Texts go in as typed.
    std::string Clauses() const;
};
