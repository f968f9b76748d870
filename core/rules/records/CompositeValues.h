#pragma once

#include <QString>

class CRecordset;

/// A composite cover as its dialog edits it; its items are kept apart.
struct CompositeValues {
    QString name;
    QString note;

    /// Raises ComError.
    static CompositeValues Read(const CRecordset& record);
    /// Raises ComError.
    void Write(CRecordset& record) const;
};
