#pragma once

#include "core/report/PackagingRows.h"

#include <optional>
#include <vector>

/// What left in one period with the same codes.
struct PackagingTotal {
    PackagingCodes codes;
    /// Ten-thousandths of a kilogram, each row's product rounded; nothing when every row's is null.
    std::optional<WideCount> kilograms;
    /// The first row whose product no currency holds, and which therefore is not in the sum.
    std::optional<std::int64_t> outOfRangeKey;
};

/// The totals of one period by everything that a form can tell packaging apart by: one pass over the issued packaging
/// and one over the discards, each made when it is asked for first. They stay as they were read.
class CQuarterTotals {
public:
    /// Reads nothing yet. The store must outlive this.
    CQuarterTotals(CDataStore& store, const DateRange& period) : m_store(store), m_period(period) {}

    /// Raises ComError.
    const std::vector<PackagingTotal>& Of(PackagingSource source);
    CDataStore& Store() const { return m_store; }
    const DateRange& Period() const { return m_period; }

private:
    CDataStore& m_store;
    DateRange m_period;
    std::optional<std::vector<PackagingTotal>> m_issued;
    std::optional<std::vector<PackagingTotal>> m_discarded;
};
