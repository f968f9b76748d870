#include "core/store/Matches.h"

#include <algorithm>

const std::vector<std::int64_t>& CMatches::Of(std::string_view criterion, CEngine& engine, const std::string& table,
                                              std::int64_t position) {
    // Asked before the rows are read: what is written in between makes the next search read them again.
    const std::int64_t fileVersion = engine.FileVersion();
    if (!m_criterion.empty() && m_criterion == criterion && fileVersion == m_fileVersion &&
        engine.Changes() == m_changes && position >= m_serveFrom)
        return m_keys;
    Forget();
    m_keys.clear();
    const CEngine::PreparedPtr found = engine.PrepareCriterion(criterion, table);
    while (found->statement.Step())
        m_keys.push_back(found->statement.Integer(0));
    if (!std::is_sorted(m_keys.begin(), m_keys.end()))
        std::sort(m_keys.begin(), m_keys.end());
    m_criterion = criterion;
    m_fileVersion = fileVersion;
    m_changes = engine.Changes();
    m_serveFrom = 0;
    return m_keys;
}

void CMatches::RecordWritten(const CEngine& engine, std::int64_t changesBefore, std::int64_t position) {
    if (m_changes != changesBefore || engine.Changes() != changesBefore + 1)
        return;
    m_changes = engine.Changes();
    m_serveFrom = std::max(m_serveFrom, position + 1);
}
