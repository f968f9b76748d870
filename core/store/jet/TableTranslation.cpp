#include "core/store/jet/Translator.h"

namespace jet {

Translation TranslateTable(const Table& table) {
    Translation result;
    result.kind = Translation::Kind::Keyset;
    result.table = table.name;
    std::string items;
    for (const Column& column : table.columns) {
        items += (items.empty() ? "" : ", ") + column.name;
        result.columns.push_back({column.name, column.type, true});
    }
    result.rowSql = "SELECT " + items + " FROM " + table.name + " WHERE rowid = ?1";
    result.sql = "SELECT rowid FROM " + table.name + " ORDER BY rowid";
    result.aheadSql = "SELECT rowid, " + items + " FROM " + table.name + " ORDER BY rowid";
    return result;
}

} // namespace jet
