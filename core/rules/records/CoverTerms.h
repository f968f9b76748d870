#pragma once

#include <cstdint>

class CRecordset;

/// On what terms a cover goes out. The cover's own are copied into composites, packaging and issues, which may have
/// others; −1 for a code that is not chosen.
struct CoverTerms {
    std::int32_t type = -1;
    std::int32_t origin = -1;
    std::int32_t payment = -1;

    /// From `cover_type`, `cover_org` and `cover_pay`. Raises ComError.
    static CoverTerms Read(const CRecordset& record);
    /// Raises ComError.
    void Write(CRecordset& record) const;

    friend bool operator==(const CoverTerms&, const CoverTerms&) = default;
};
