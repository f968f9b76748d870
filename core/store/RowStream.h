#pragma once

#include "core/base/Currency.h"
#include "core/base/DateTime.h"
#include "core/store/DataStore.h"
#include "core/store/Engine.h"

#include <cstdint>
#include <string_view>

/// The rows of a join, read once from first to last and kept nowhere: for work that goes through more rows than should
/// be held. Columns are counted from 0, in the order of the text. Nothing may be written, and the same text not be
/// opened again, while a stream is under way. Every member raises ComError.
class CRowStream {
public:
    /// Raises for a text of one table, whose rows a recordset reads as well.
    CRowStream(CDataStore& store, std::string_view sql);
    ~CRowStream();
    CRowStream(const CRowStream&) = delete;
    CRowStream& operator=(const CRowStream&) = delete;

    /// Goes to the next row, the first one at first; false behind the last.
    bool Next();

    bool IsNull(int column) const { return Statement().IsNull(column); }
    /// A whole number or code, a Boolean as 0 or another number, the count of a currency.
    std::int64_t Integer(int column) const { return Statement().Integer(column); }
    /// Whether the file holds a whole number there; another tool may have put anything into it.
    bool IsInteger(int column) const { return sqlite3_column_type(Statement().Get(), column) == SQLITE_INTEGER; }
    /// UTF-8; "" for a null. Until the next row.
    std::string_view Text(int column) const { return Statement().Text(column); }
    DateTime Date(int column) const;

private:
    sqlite::Statement& Statement() const { return m_prepared->statement; }

    std::string m_sql;
    CEngine::PreparedPtr m_prepared;
};
