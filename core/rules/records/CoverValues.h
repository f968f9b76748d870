#pragma once

#include "core/base/Currency.h"
#include "core/rules/records/CoverTerms.h"

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
    CoverTerms terms;
    std::int32_t stat = -1;

    /// Raises ComError.
    static CoverValues Read(const CRecordset& record);
    /// Raises ComError.
    void Write(CRecordset& record) const;
};
