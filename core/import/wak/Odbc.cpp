#include "core/import/wak/Odbc.h"

#include "core/import/wak/DriverTexts.h"

#include <array>

namespace odbc {

namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

/// Errors of the driver itself stand in this range; the server's are outside it.
constexpr int FirstDriverError = 20000;
constexpr int LastDriverError = 20999;

bool IsServers(const Diagnostic& diagnostic) {
    return diagnostic.native != 0 && (diagnostic.native < FirstDriverError || diagnostic.native > LastDriverError);
}

QString WithoutSenders(QString text) {
    static const QString senders[] = {QStringLiteral("[unixODBC]"), QStringLiteral("[Driver Manager]"),
                                      QStringLiteral("[FreeTDS]"), QStringLiteral("[SQL Server]"),
                                      QStringLiteral("[Microsoft]")};
    for (const QString& sender : senders) {
        if (text.startsWith(sender))
            text.remove(0, sender.size());
    }
    return text.trimmed();
}

bool Read(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT record, Diagnostic& diagnostic) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 4096> text{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    if (!Succeeded(SQLGetDiagRecW(type, handle, record, state.data(), &native, text.data(), text.size(), &length)))
        return false;
    diagnostic.state = QString::fromUtf16(reinterpret_cast<const char16_t*>(state.data()), 5);
    diagnostic.native = native;
    diagnostic.text = WithoutSenders(QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data())));
    return true;
}

} // namespace

std::uint32_t Diagnostic::Code() const {
    switch (native) {
    case 208:
        return 0x80040E37; // DB_E_NOTABLE
    case 229:
    case 230:
        return 0x80040E09; // DB_SEC_E_PERMISSIONDENIED
    case 1222:
        return 0x80040E31; // DB_E_ABORTLIMITREACHED
    case 18452:
    case 18456:
        return 0x80040E4D; // DB_SEC_E_AUTH_FAILED
    default:
        return IsServers(*this) && !state.startsWith(QStringLiteral("08")) ? ResultCode::ErrorsInCommand
                                                                           : ResultCode::Fail;
    }
}

QString Diagnostic::Explained() const {
    const QString meaning = MeaningOf(state, native);
    return meaning.isEmpty() ? text : text + u'\n' + meaning;
}

Diagnostic DiagnosticOf(SQLSMALLINT type, SQLHANDLE handle) {
    Diagnostic first;
    Diagnostic next;
    for (SQLSMALLINT record = 1; Read(type, handle, record, next); ++record) {
        if (record == 1 || (IsServers(next) && !IsServers(first)))
            first = next;
    }
    return first;
}

void Raise(SQLSMALLINT type, SQLHANDLE handle, const char* operation, std::string_view text) {
    const Diagnostic diagnostic = DiagnosticOf(type, handle);
    throw ComError(operation, std::string(text), diagnostic.Code(), diagnostic.Explained());
}

} // namespace odbc
