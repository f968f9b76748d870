#pragma once

#include "core/base/Currency.h"
#include "core/rules/records/CoverTerms.h"

/// A cover that went out with an issue line, as its page edits it.
struct IssuedCover {
    std::int32_t coverId = -1;
    /// In pieces.
    Currency quantity = Currency::FromWhole(1);
    CoverTerms terms;

    /// A quantity that is not valid becomes 1. Raises ComError.
    static IssuedCover Read(const CRecordset& record);
    /// Raises ComError.
    void Write(CRecordset& record) const;
    /// The one that a user may change. Raises ComError.
    void WriteQuantity(CRecordset& record) const;
};
