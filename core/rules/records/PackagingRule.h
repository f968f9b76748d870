#pragma once

#include "core/base/Currency.h"
#include "core/rules/records/CoverTerms.h"

#include <cstdint>

class CDataStore;
class CRecordset;

/// How a cover goes out with a product: the columns that composite items and packaging rows share.
struct PackagingRule {
    std::int32_t coverId = -1;
    Currency covers = Currency::FromWhole(1);
    Currency products = Currency::FromWhole(1);
    /// The rule applies to any issued quantity; otherwise from–to.
    bool useAlways = true;
    Currency useFrom = Currency::FromWhole(0);
    Currency useTo = Currency::FromWhole(1000);
    CoverTerms terms;

    /// The range keeps its defaults when the rule applies always. Raises ComError.
    static PackagingRule Read(const CRecordset& record);
    /// Everything but the cover; the range only when it counts, so that what a record holds there stays otherwise.
    /// Raises ComError.
    void Write(CRecordset& record) const;

    friend bool operator==(const PackagingRule&, const PackagingRule&) = default;
};

/// Copies the nine columns, cover and range included, as they are stored. Raises ComError.
void CopyRule(const CRecordset& from, CRecordset& to);

/// The weight of one piece in kg; 0 for a cover that is not there or has none. Raises ComError.
Currency PieceWeight(CDataStore& store, std::int32_t coverId);
