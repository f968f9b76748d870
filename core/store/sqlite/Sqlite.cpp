#include "core/store/sqlite/Sqlite.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace sqlite {

std::uint32_t CodeOf(int result) {
    switch (result & 0xFF) {
    case SQLITE_NOMEM:
        return ResultCode::OutOfMemory;
    case SQLITE_FULL:
        return ResultCode::DiskFull;
    case SQLITE_READONLY:
        return ResultCode::WriteProtected;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return ResultCode::Locked;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return ResultCode::Corrupt;
    case SQLITE_ERROR:
        return ResultCode::ErrorsInCommand;
    default:
        return ResultCode::Fail;
    }
}

QString DescriptionOf(sqlite3* database, int result) {
    switch (result & 0xFF) {
    case SQLITE_FULL:
        return QStringLiteral("Na disku není dost místa.");
    case SQLITE_READONLY:
        return QStringLiteral("Databáze je chráněna proti zápisu.");
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral("Databázi právě používá jiná aplikace.");
    case SQLITE_CORRUPT:
        return QStringLiteral("Soubor databáze je poškozen.");
    case SQLITE_NOTADB:
        return QStringLiteral("Soubor není databází programu.");
    case SQLITE_IOERR:
        return QStringLiteral("Soubor databáze nelze číst nebo zapsat.");
    default:
        return QString::fromUtf8(database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(result));
    }
}

void Raise(sqlite3* database, int result, const char* operation, std::string_view text) {
    throw ComError(operation, std::string(text), CodeOf(result), DescriptionOf(database, result));
}

/// The engine answers whatever keeps it from opening a file with one word of its own.
static QString WhyNotOpened(const std::string& path) {
    struct stat entry;
    if (stat(path.c_str(), &entry) != 0)
        return errno == ENOENT || errno == ENOTDIR ? QStringLiteral("Soubor neexistuje.")
                                                   : QStringLiteral("K souboru databáze nemáte přístup.");
    if (!S_ISREG(entry.st_mode))
        return QStringLiteral("Soubor není databází programu.");
    return QStringLiteral("K souboru databáze nemáte přístup.");
}

Database Open(const std::string& path) {
    sqlite3* raw = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    Database database(raw);
    if ((result & 0xFF) == SQLITE_CANTOPEN)
        throw ComError("open", path, CodeOf(result), WhyNotOpened(path));
    if (result != SQLITE_OK)
        Raise(raw, result, "open", path);
    sqlite3_extended_result_codes(raw, 1);
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    if (sqlite3_db_readonly(raw, "main") != 0)
        Raise(raw, SQLITE_READONLY, "open", path);
    // The journal of each change lies beside the file.
    if (access(folder.empty() ? "." : folder.c_str(), W_OK) != 0)
        throw ComError("open", path, ResultCode::WriteProtected,
                       QStringLiteral("Do složky s databází nelze zapisovat."));
    return database;
}

Statement::Statement(sqlite3* database, std::string_view sql, bool persistent) {
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    const int result = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                                          persistent ? SQLITE_PREPARE_PERSISTENT : 0, &statement, &tail);
    m_statement.reset(statement);
    if (result != SQLITE_OK)
        Raise(database, result, "prepare", sql);
    if (statement == nullptr || tail != sql.data() + sql.size())
        throw ComError("prepare", std::string(sql), ResultCode::ErrorsInCommand,
                       QStringLiteral("Text musí obsahovat právě jeden příkaz SQL."));
}

void Statement::Bind(int index, std::string_view text) {
    Check(sqlite3_bind_text64(Get(), index, text.data() != nullptr ? text.data() : "", text.size(), SQLITE_TRANSIENT,
                              SQLITE_UTF8));
}

bool Statement::Step() {
    const int result = sqlite3_step(Get());
    if (result == SQLITE_ROW)
        return true;
    if (result == SQLITE_DONE) {
        sqlite3_reset(Get());
        return false;
    }
    sqlite3* const database = sqlite3_db_handle(Get());
    const ComError error("step", sqlite3_sql(Get()), CodeOf(result), DescriptionOf(database, result));
    sqlite3_reset(Get());
    throw error;
}

void Statement::Run() {
    while (Step()) {
    }
}

std::string_view Statement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(Get(), column));
    return text == nullptr ? std::string_view()
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(Get(), column)));
}

void Statement::Check(int result) {
    if (result != SQLITE_OK)
        Raise(sqlite3_db_handle(Get()), result, "bind", sqlite3_sql(Get()));
}

void Execute(sqlite3* database, const char* sql) {
    const int result = sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
    if (result != SQLITE_OK)
        Raise(database, result, "execute", sql);
}

} // namespace sqlite
