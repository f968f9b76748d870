#include "core/store/Rows.h"

#include <algorithm>

namespace {

constexpr std::int64_t MostAhead = 64;

} // namespace

void CRows::Clear() {
    m_keys.clear();
    m_count = 0;
    m_position = 0;
    m_newKey.reset();
    m_deferred = false;
    m_rowRead = false;
    m_ahead = 0;
    m_cellRow = 0;
    m_values.clear();
    m_tags.clear();
    m_texts.Clear();
}

void CRows::Read(const CEngine& engine, CEngine::PreparedPtr prepared) {
    Clear();
    m_prepared = std::move(prepared);
    if (IsKeyset()) {
        ReadKeys(engine);
        return;
    }
    sqlite::Statement& statement = m_prepared->statement;
    while (statement.Step()) {
        Take(statement, 0);
        ++m_count;
    }
}

void CRows::ReadKeys(const CEngine& engine) {
    m_aheadTransaction = engine.Transaction();
    m_aheadChanges = *m_prepared->changes;
    const bool ahead = m_aheadTransaction != 0;
    sqlite::Statement& statement = ahead ? m_prepared->ahead : m_prepared->statement;
    while (statement.Step()) {
        m_keys.push_back(statement.Integer(0));
        if (ahead && m_ahead < MostAhead) {
            Take(statement, 1);
            ++m_ahead;
        }
    }
    m_count = static_cast<std::int64_t>(m_keys.size());
}

bool CRows::IsAheadFresh(const CEngine& engine) const {
    return m_position < m_ahead && !m_newKey && engine.Transaction() == m_aheadTransaction &&
           *m_prepared->changes == m_aheadChanges;
}

void CRows::Defer(CEngine::PreparedPtr prepared) {
    Clear();
    m_prepared = std::move(prepared);
    m_deferred = true;
}

void CRows::ReadDeferred(const CEngine& engine) {
    if (!m_deferred)
        return;
    const std::optional<std::int64_t> newKey = m_newKey;
    Read(engine, m_prepared);
    if (newKey) {
        const auto found = std::find(m_keys.begin(), m_keys.end(), *newKey);
        m_position = found - m_keys.begin();
    }
}

void CRows::MoveTo(std::int64_t position) {
    m_position = position;
    m_newKey.reset();
    m_rowRead = false;
}

void CRows::Find(const std::vector<std::int64_t>& keys) {
    std::int64_t position = m_position;
    if (keys.size() == 1) {
        const auto found = std::find(m_keys.begin() + position, m_keys.end(), keys[0]);
        position = found - m_keys.begin();
    } else {
        while (position < m_count &&
               !std::binary_search(keys.begin(), keys.end(), m_keys[static_cast<std::size_t>(position)]))
            ++position;
    }
    MoveTo(position);
}

void CRows::Append(std::int64_t key) {
    m_rowRead = false;
    if (m_deferred) {
        m_newKey = key;
        return;
    }
    m_keys.push_back(key);
    m_count = static_cast<std::int64_t>(m_keys.size());
    m_position = m_count - 1;
    m_newKey = key;
}

void CRows::Drop(std::int64_t position) {
    m_keys.erase(m_keys.begin() + position);
    --m_count;
    m_ahead = 0;
    MoveTo(m_position > position ? m_position - 1 : m_position);
}

bool CRows::ReadRow(const CEngine& engine) {
    if (m_rowRead || !IsKeyset())
        return true;
    if (IsAheadFresh(engine)) {
        m_cellRow = m_position;
        m_rowRead = true;
        return true;
    }
    m_ahead = 0;
    m_cellRow = 0;
    m_values.clear();
    m_tags.clear();
    m_texts.Clear();
    sqlite::Statement& row = m_prepared->row;
    row.Bind(1, Key());
    if (!row.Step())
        return false;
    Take(row, 0);
    row.Reset();
    m_rowRead = true;
    return true;
}

void CRows::Take(const sqlite::Statement& statement, int firstColumn) {
    const auto& columns = Translation().columns;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const int i = firstColumn + static_cast<int>(column);
        if (statement.IsNull(i)) {
            m_values.push_back(0);
            m_tags.push_back(Tag::Null);
            continue;
        }
        switch (columns[column].type) {
        case jet::ValueType::Text:
            m_values.push_back(m_texts.Add(statement.Text(i)));
            m_tags.push_back(Tag::Value);
            break;
        case jet::ValueType::Date: {
            const DateTime date = DateTime::FromStored(statement.Text(i));
            m_values.push_back(date.SecondsSince1970());
            m_tags.push_back(date.IsValid() ? Tag::Value : Tag::Invalid);
            break;
        }
        case jet::ValueType::Currency:
            m_values.push_back(statement.Integer(i));
            m_tags.push_back(statement.IsReal(i) ? Tag::Invalid : Tag::Value);
            break;
        default:
            m_values.push_back(statement.Integer(i));
            m_tags.push_back(Tag::Value);
            break;
        }
    }
}

Variant CRows::Cell(int column) const {
    const auto& columns = Translation().columns;
    const auto row = static_cast<std::size_t>(IsKeyset() ? m_cellRow : m_position) * columns.size();
    const std::size_t at = row + static_cast<std::size_t>(column);
    if (m_tags[at] == Tag::Null)
        return {};
    const std::int64_t value = m_values[at];
    switch (columns[static_cast<std::size_t>(column)].type) {
    case jet::ValueType::Currency:
        return m_tags[at] == Tag::Invalid ? Currency::Invalid() : Currency::FromCount(value);
    case jet::ValueType::Boolean:
        return value != 0;
    case jet::ValueType::Date:
        return m_tags[at] == Tag::Invalid ? DateTime::Invalid() : DateTime::FromSeconds(value);
    case jet::ValueType::Text:
        return m_texts.Text(value);
    default:
        return static_cast<std::int32_t>(value);
    }
}
