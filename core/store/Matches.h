#pragma once

#include "core/store/Engine.h"

/// The keys of the rows that met the criterion last searched for, so that a search that goes on from a match need not
/// read the table again. They serve for as long as nobody can have changed which rows meet it: another program has not
/// written, and this one only to records that the search has passed.
class CMatches {
public:
    /// Sorted. Evaluates the criterion unless the keys that it has serve a search from this position on. Raises
    /// ComError.
    const std::vector<std::int64_t>& Of(std::string_view criterion, CEngine& engine, const std::string& table,
                                        std::int64_t position);
    /// A row of the recordset, the one at this position, was written by a statement that began after `changesBefore`
    /// changes of the connection.
    void RecordWritten(const CEngine& engine, std::int64_t changesBefore, std::int64_t position);
    void Forget() { m_criterion.clear(); }

private:
    std::string m_criterion;
    std::vector<std::int64_t> m_keys;
    std::int64_t m_fileVersion = 0;
    std::int64_t m_changes = 0;
    /// The records before this position may have changed since.
    std::int64_t m_serveFrom = 0;
};
