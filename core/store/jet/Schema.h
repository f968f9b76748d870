#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace jet {

/// What a column, or a value computed from columns, holds.
enum class ValueType : std::uint8_t { Long, Currency, Date, Boolean, Text };

struct Column {
    std::string name;
    ValueType type;
};

struct Table {
    std::string name;
    std::vector<Column> columns;
    /// The counter column's index, -1 for a table without one.
    int key = -1;

    const Column* FindColumn(std::string_view name) const;
};

/// The tables of an open database and what their columns hold, read from the declared types.
class Schema {
public:
    Schema() = default;
    /// Raises ComError when the database cannot be read.
    explicit Schema(sqlite3* database);
    /// Names are found in any case.
    const Table* FindTable(std::string_view name) const;
    const std::vector<Table>& Tables() const { return m_tables; }

private:
    std::vector<Table> m_tables;
};

} // namespace jet
