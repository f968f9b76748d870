#pragma once

#include "core/base/ComError.h"

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

/// A thin layer over the engine's C interface: owners that close, and failures as ComError.
namespace sqlite {

/// `text` is the SQL or the file that the failed call was about.
[[noreturn]] void Raise(sqlite3* database, int result, const char* operation, std::string_view text);
/// The result code and the words shown to the user for a result of the engine.
std::uint32_t CodeOf(int result);
QString DescriptionOf(sqlite3* database, int result);

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
using Database = std::unique_ptr<sqlite3, Close>;

/// Opens an existing file for reading and writing; never creates one. Raises ComError, also when the file, or the
/// folder that must take its journal, is write-protected. Nothing is read yet.
Database Open(const std::string& path);

class Statement {
public:
    Statement() = default;
    /// Raises when the text is not one whole statement.
    Statement(sqlite3* database, std::string_view sql, bool persistent = false);

    explicit operator bool() const { return m_statement != nullptr; }
    void Bind(int index, std::int64_t value) { Check(sqlite3_bind_int64(Get(), index, value)); }
    void Bind(int index, double value) { Check(sqlite3_bind_double(Get(), index, value)); }
    /// The text is copied.
    void Bind(int index, std::string_view text);
    void BindNull(int index) { Check(sqlite3_bind_null(Get(), index)); }
    /// True when there is a row; at the end, and on an error, the statement is reset.
    bool Step();
    void Reset() { sqlite3_reset(Get()); }
    /// Steps to the end.
    void Run();

    bool IsNull(int column) const { return sqlite3_column_type(Get(), column) == SQLITE_NULL; }
    bool IsReal(int column) const { return sqlite3_column_type(Get(), column) == SQLITE_FLOAT; }
    std::int64_t Integer(int column) const { return sqlite3_column_int64(Get(), column); }
    std::string_view Text(int column) const;
    sqlite3_stmt* Get() const { return m_statement.get(); }

private:
    void Check(int result);

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

void Execute(sqlite3* database, const char* sql);

} // namespace sqlite
