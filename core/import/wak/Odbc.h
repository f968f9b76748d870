#pragma once

#include "core/base/ComError.h"

#include <QString>

#include <sql.h>
#include <sqlext.h>

#include <string_view>

/// A thin layer over ODBC: handles that free themselves, and failures as ComError.
namespace odbc {

/// What the driver says of a failed call: the server's own words where there are any, without the names of the
/// programs that passed them on.
struct Diagnostic {
    QString state;
    int native = 0;
    QString text;

    /// The result code that the provider on Windows gives for it.
    std::uint32_t Code() const;
    /// The text and, where its meaning is known, a second line that says in Czech what it means and what to do.
    QString Explained() const;
};
Diagnostic DiagnosticOf(SQLSMALLINT type, SQLHANDLE handle);

/// `text` is the statement that the failed call was about.
[[noreturn]] void Raise(SQLSMALLINT type, SQLHANDLE handle, const char* operation, std::string_view text);

inline bool Succeeded(SQLRETURN result) {
    return result == SQL_SUCCESS || result == SQL_SUCCESS_WITH_INFO;
}

template <SQLSMALLINT Type>
class Handle {
public:
    Handle() = default;
    ~Handle() { Free(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    /// Frees what is held. False when there is no memory, or no connection, for it.
    bool Allocate(SQLHANDLE parent) {
        Free();
        return Succeeded(SQLAllocHandle(Type, parent, &m_handle));
    }
    void Free() {
        if (m_handle)
            SQLFreeHandle(Type, m_handle);
        m_handle = nullptr;
    }
    SQLHANDLE Get() const { return m_handle; }

private:
    SQLHANDLE m_handle = nullptr;
};

using Environment = Handle<SQL_HANDLE_ENV>;
using Connection = Handle<SQL_HANDLE_DBC>;
using Statement = Handle<SQL_HANDLE_STMT>;

inline SQLWCHAR* Wide(const QString& text) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(reinterpret_cast<const char16_t*>(text.utf16())));
}

} // namespace odbc
