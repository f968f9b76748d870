#pragma once

#include "core/base/Currency.h"
#include "core/rules/records/CoverTerms.h"

#include <QString>

#include <cstdint>
#include <string>

/// The criteria of the covers register, each counting only while its `by` is on.
struct CoverFilter {
    bool byName = false;
    bool byWeight = false;
    bool byMaterial = false;
    bool byType = false;
    bool byOrigin = false;
    bool byPayment = false;
    bool byUsage = false;
    QString name;
    bool namePart = false;
    Currency weightFrom;
    Currency weightTo;
    std::int32_t material = -1;
    CoverTerms terms;
    bool reusable = false;

    bool IsActive() const { return byName || byWeight || byMaterial || byType || byOrigin || byPayment || byUsage; }
    /// " AND (…)" for each criterion that is on. Texts go in as typed.
    std::string Clauses() const;
};
