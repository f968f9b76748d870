#pragma once

#include <QString>

#include <cstdint>
#include <string>

/// The criteria of the products register.
struct ProdFilter {
    enum Packaging : std::int32_t { All = 0, Without = 1, With = 2 };

    bool byName = false;
    QString name;
    bool namePart = false;
    bool byKatalog = false;
    QString katalog;
    bool katalogPart = false;
    bool byUnit = false;
    QString unit;
    /// A product has packaging when one of its validity dates has a row.
    std::int32_t coverCriterion = All;

    bool IsActive() const { return byName || byKatalog || byUnit || coverCriterion != All; }
    /// " AND …" for each criterion that is on. Texts go in as typed.
    std::string Clauses() const;
};
