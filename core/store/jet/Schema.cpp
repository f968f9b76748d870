#include "core/store/jet/Schema.h"

#include "core/base/SameName.h"
#include "core/store/sqlite/Sqlite.h"

#include <algorithm>

namespace jet {

namespace {

ValueType TypeOf(std::string_view declared) {
    const std::string_view first = declared.substr(0, declared.find(' '));
    if (SameName(first, "CURRENCY"))
        return ValueType::Currency;
    if (SameName(first, "DATE"))
        return ValueType::Date;
    if (SameName(first, "BOOLEAN"))
        return ValueType::Boolean;
    if (SameName(first, "TEXT"))
        return ValueType::Text;
    return ValueType::Long;
}

} // namespace

const Column* Table::FindColumn(std::string_view columnName) const {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column& column) { return SameName(column.name, columnName); });
    return found == columns.end() ? nullptr : &*found;
}

Schema::Schema(sqlite3* database) {
    sqlite::Statement columns(database, "SELECT m.name, c.name, c.type, c.pk FROM sqlite_schema AS m "
                                        "JOIN pragma_table_info(m.name) AS c "
                                        "WHERE m.type = 'table' AND m.name NOT LIKE 'sqlite\\_%' ESCAPE '\\' "
                                        "ORDER BY m.rowid, c.cid");
    while (columns.Step()) {
        const std::string table(columns.Text(0));
        if (m_tables.empty() || m_tables.back().name != table)
            m_tables.push_back({table, {}, -1});
        Table& last = m_tables.back();
        if (columns.Integer(3) != 0)
            last.key = static_cast<int>(last.columns.size());
        last.columns.push_back({std::string(columns.Text(1)), TypeOf(columns.Text(2))});
    }
}

const Table* Schema::FindTable(std::string_view name) const {
    const auto found =
        std::find_if(m_tables.begin(), m_tables.end(), [&](const Table& table) { return SameName(table.name, name); });
    return found == m_tables.end() ? nullptr : &*found;
}

} // namespace jet
