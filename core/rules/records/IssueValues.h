#pragma once

#include "core/base/DateTime.h"

#include <cstdint>

class CRecordset;

/// An issue document as its dialog edits it: new ones without a number and type, at this moment.
struct IssueValues {
    QString number;
    /// An index of the code list MoveType; −1 for none.
    std::int32_t type = -1;
    DateTime date = DateTime::Now();
    bool isExport = false;

    /// A date that is not valid becomes 1 January 1900. Raises ComError.
    static IssueValues Read(const CRecordset& record);
    /// Everything but the export flag: a new issue takes the column's default. Raises ComError.
    void WriteNew(CRecordset& record) const;
    /// Raises ComError.
    void Write(CRecordset& record) const;
};
