#pragma once

#include "store/Engine.h"
#include "store/Variant.h"

#include <optional>

/// What a recordset has read: the keys of a keyset, the packed cells of the row last visited, or all rows of a join.
class CRows {
public:
    /// Runs the statement (whose literals are bound).
    void Read(CEngine::PreparedPtr prepared);
    /// A table whose keys are read when they are needed first.
    void Defer(CEngine::PreparedPtr prepared);
    void ReadDeferred();

    bool IsKeyset() const { return Translation().kind == jet::Translation::Kind::Keyset; }
    const jet::Translation& Translation() const { return m_prepared->translation; }
    const CEngine::PreparedPtr& Prepared() const { return m_prepared; }

    std::int64_t Count() const { return m_count; }
    std::int64_t Position() const { return m_position; }
    bool AtEnd() const { return m_position >= m_count; }
    void MoveTo(std::int64_t position);
    std::int64_t Key() const { return m_newKey ? *m_newKey : m_keys[static_cast<std::size_t>(m_position)]; }
    std::int64_t KeyAt(std::int64_t position) const { return m_keys[static_cast<std::size_t>(position)]; }
    /// Takes a key out of the keyset; the current record stays, unless it is this one.
    void Drop(std::int64_t position);
    bool OnNewRow() const { return m_newKey.has_value(); }
    /// From the current record on, the first whose key is among these (sorted); to the end when none is.
    void Find(const std::vector<std::int64_t>& keys);

    /// A row that was just inserted becomes the current one.
    void Append(std::int64_t key);
    /// The cells of the current row are out of date.
    void Forget() { m_rowRead = false; }
    /// Reads the current row of a keyset again unless that was done; false when it has vanished.
    bool ReadRow();
    Variant Cell(int column) const;

private:
    enum class Tag : std::uint8_t { Null, Value, Invalid };

    void Take(const sqlite::Statement& statement);
    void Clear();

    CEngine::PreparedPtr m_prepared;
    std::vector<std::int64_t> m_keys;
    std::int64_t m_count = 0;
    std::int64_t m_position = 0;
    std::optional<std::int64_t> m_newKey;
    bool m_deferred = false;
    bool m_rowRead = false;
    /// Cells in row order. A text cell is the place in m_texts of its length and characters.
    std::vector<std::int64_t> m_values;
    std::vector<Tag> m_tags;
    std::string m_texts;
};
