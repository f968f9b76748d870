#pragma once

#include "core/base/Currency.h"

#include <QString>

#include <cstdint>

class CRecordset;

/// A cover as its dialog edits it; −1 for a code that is not chosen.
struct CoverValues {
    QString name;
    QString note;
    bool reusable = false;
    Currency weight;
    std::int32_t material = -1;
    std::int32_t type = -1;
    std::int32_t origin = -1;
    std::int32_t payment = -1;
    std::int32_t stat = -1;

    /// Raises ComError.
    static CoverValues Read(const CRecordset& record);
    /// Raises ComError.
    void Write(CRecordset& record) const;
    /// Whether composites, packaging and issues, which hold copies of these three, differ now.
    bool SamePackaging(const CoverValues& other) const {
        return type == other.type && origin == other.origin && payment == other.payment;
    }
};
