#pragma once

#include "core/base/ComError.h"
#include "core/store/Engine.h"
#include "tests/support/ProgramFolder.h"

#include <QFile>

#include <functional>

/// Another program's connection to the same file.
class OtherProgram {
public:
    explicit OtherProgram(const ProgramFolder& folder)
        : m_database(sqlite::Open(QFile::encodeName(folder.File("Kuvel.mdb")).toStdString())) {}
    void Run(const char* sql) { sqlite::Execute(m_database.get(), sql); }
    std::int64_t Count(const std::string& table) {
        sqlite::Statement statement(m_database.get(), "SELECT count(*) FROM " + table);
        return statement.Step() ? statement.Integer(0) : -1;
    }
    sqlite3* Handle() const { return m_database.get(); }

private:
    sqlite::Database m_database;
};

/// Shortens how long locks are waited for.
struct ShortPatience {
    DoorUse<std::chrono::milliseconds> patience{LockPatience(), std::chrono::milliseconds(200)};
};

/// The code of the error that it raises, 0 for none.
inline std::uint32_t CodeOf(const std::function<void()>& act) {
    try {
        act();
        return 0;
    } catch (const ComError& error) {
        return error.Code();
    }
}
