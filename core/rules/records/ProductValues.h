#pragma once

#include <QString>

class CRecordset;

/// A product as its dialog edits it.
struct ProductValues {
    QString name;
    QString catalogue;
    QString unit;

    /// Raises ComError.
    static ProductValues Read(const CRecordset& record);
    /// Raises ComError.
    void Write(CRecordset& record) const;
};
