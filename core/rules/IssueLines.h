#pragma once

#include "core/store/DataStore.h"

#include <optional>

/// The one road by which issue lines, and the packaging that leaves with them, are written. Each operation writes the
/// line and its packaging together, in a transaction of its own unless one is open, and raises ComError.
class CIssueLines {
public:
    explicit CIssueLines(CDataStore& store) : m_store(store) {}

    /// The key of the new line. An issue date that is not valid gives no packaging.
    std::int32_t Add(const Variant& moveId, std::int32_t prodId, Currency quantity, const DateTime& issueDate);
    /// Issued on the day of the issue, or today when that has gone.
    std::int32_t Add(std::int32_t moveId, std::int32_t prodId, Currency quantity);
    /// Packaging entered by hand is lost. False when the line has gone.
    bool Change(std::int32_t mvprodId, Currency quantity);
    void Remove(std::int32_t mvprodId);
    /// Computes the packaging of the current record of `lines`, a keyset of "Move_Prod", anew from the line as it is
    /// now; what was entered by hand is lost. False when the line, or its issue, has gone.
    bool Recompute(CRecordset& lines);

private:
    /// None when the issue has gone.
    std::optional<DateTime> IssueDate(std::int32_t moveId);
    DateTime IssueDateOrToday(std::int32_t moveId) { return IssueDate(moveId).value_or(DateTime::Today()); }
    void RemoveCovers(std::int32_t mvprodId);
    void AddCovers(const Variant& mvprodId, const Variant& moveId, std::int32_t prodId, Currency quantity,
                   const DateTime& issueDate);

    CDataStore& m_store;
    /// Opened when they are needed first, and reused.
    RecordsetPtr m_lines;
    RecordsetPtr m_covers;
    RecordsetPtr m_issue;
    RecordsetPtr m_packaging;
};
