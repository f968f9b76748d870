#pragma once

#include "core/base/Currency.h"
#include "core/base/DateTime.h"

#include <cstdint>

class CRecordset;

/// A discard of a cover as its page edits it.
struct DiscardValues {
    static constexpr std::int32_t Ways = 3;
    static constexpr std::int32_t Recycled = 2;

    std::int32_t coverId = -1;
    DateTime date = DateTime::Today();
    /// An index of the code list of ways of discarding.
    std::int32_t way = Recycled;
    /// In pieces.
    Currency quantity;

    /// A way that does not exist becomes the last one, a quantity that is not valid its number. Raises ComError.
    static DiscardValues Read(const CRecordset& record);
    /// Everything, with the day without its time. Raises ComError.
    void Write(CRecordset& record) const;
};
