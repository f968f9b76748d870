#pragma once

#include "core/base/PackedTexts.h"
#include "core/base/Variant.h"
#include "core/store/Engine.h"

#include <optional>

/// What a recordset has read: the keys of a keyset, the packed cells of the row last visited, or all rows of a join.
class CRows {
public:
    /// Runs the statement (whose literals are bound).
    void Read(const CEngine& engine, CEngine::PreparedPtr prepared);
    /// A table whose keys are read when they are needed first.
    void Defer(CEngine::PreparedPtr prepared);
    void ReadDeferred(const CEngine& engine);

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
    /// Reads the current row of a keyset again unless that was done, or nobody can have changed it since; false when it
    /// has vanished.
    bool ReadRow(const CEngine& engine);
    Variant Cell(int column) const;

private:
    enum class Tag : std::uint8_t { Null, Value, Invalid };

    void Take(const sqlite::Statement& statement, int firstColumn);
    void ReadKeys(const CEngine& engine);
    bool IsAheadFresh(const CEngine& engine) const;
    void Clear();

    CEngine::PreparedPtr m_prepared;
    std::vector<std::int64_t> m_keys;
    std::int64_t m_count = 0;
    std::int64_t m_position = 0;
    std::optional<std::int64_t> m_newKey;
    bool m_deferred = false;
    bool m_rowRead = false;
    /// The first rows of a keyset that was opened in a commit group: while its transaction lasts and the program itself
    /// does not change the table, they are what the database holds.
    std::int64_t m_ahead = 0;
    std::uint64_t m_aheadTransaction = 0;
    std::uint64_t m_aheadChanges = 0;
    /// The row of the cells that is the current one.
    std::int64_t m_cellRow = 0;
    /// Cells in row order. A text cell is its place in m_texts.
    std::vector<std::int64_t> m_values;
    std::vector<Tag> m_tags;
    CPackedTexts m_texts;
};
