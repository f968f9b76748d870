#pragma once

#include "core/import/money/DbfFile.h"

#include <functional>
#include <string>

/// The rows of a table in the order of some of its fields, and the finding of a row by the values of the first of them.
/// Built once, in memory; equal keys keep the order of the file. Text is compared letter for letter, as it stands.
class CDbfIndex {
public:
    /// Field names joined by "+". `alive` is called every 10,000 records and may throw. Raises ComError for a field
    /// that is not there or cannot be ordered by.
    CDbfIndex(const CDbfFile& file, std::string_view expression, const std::function<void()>& alive = {});

    const std::string& Expression() const { return m_expression; }
    /// The row at a place of the order.
    std::size_t Row(std::size_t position) const { return m_order[position]; }
    /// The first place whose fields have these values. Raises ComError for more values than fields, and none.
    std::optional<std::size_t> Find(const std::vector<Variant>& values) const;

private:
    std::string_view Key(std::uint32_t row) const { return {m_keys.data() + row * m_keySize, m_keySize}; }

    std::string m_expression;
    std::vector<DbfField> m_fields;
    std::size_t m_keySize = 0;
    /// One key a row, of one size, whose bytes compare as the fields do.
    std::string m_keys;
    std::vector<std::uint32_t> m_order;
};
