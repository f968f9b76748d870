#include "core/import/wak/SqlServerConnection.h"

#include "core/base/Messages.h"
#include "core/base/SqlText.h"
#include "core/import/wak/Await.h"
#include "core/import/wak/Odbc.h"
#include "core/import/wak/OleDbString.h"

#include <QFileInfo>

#include <atomic>

namespace {

constexpr std::uint32_t BadInitString = 0x80040E73; // DB_E_BADINITSTRING
constexpr std::uint32_t NoPointer = 0x80004003;     // E_POINTER

/// Where the driver's library lies when odbcinst.ini does not name it.
const char* const DriverPaths[] = {
    "/usr/lib/x86_64-linux-gnu/odbc/libtdsodbc.so",
    "/usr/lib/aarch64-linux-gnu/odbc/libtdsodbc.so",
    "/usr/lib64/libtdsodbc.so",
    "/usr/lib/libtdsodbc.so",
};

/// "Name('a', 'b')" as the statement that the server knows.
std::string RoutineStatement(std::string_view source) {
    std::string statement = "EXEC " + std::string(source);
    const std::size_t open = statement.find('(');
    const std::size_t close = statement.rfind(')');
    if (open == std::string::npos || close == std::string::npos || close < open)
        return statement;
    statement.erase(close);
    statement[open] = ' ';
    return statement;
}

/// Ends the reading of rows that nobody waits for any more.
struct GivenUp {};

void Run(odbc::Statement& statement, std::string_view sql) {
    const QString text = QString::fromUtf8(sql.data(), static_cast<qsizetype>(sql.size()));
    const SQLRETURN result = SQLExecDirectW(statement.Get(), odbc::Wide(text), SQL_NTS);
    if (!odbc::Succeeded(result) && result != SQL_NO_DATA)
        odbc::Raise(SQL_HANDLE_STMT, statement.Get(), "execute", sql);
}

} // namespace

struct CSqlServerConnection::Handles {
    odbc::Environment environment;
    odbc::Connection connection;
    bool open = false;

    ~Handles() {
        if (open)
            SQLDisconnect(connection.Get());
    }

    void Execute(std::string_view sql) {
        odbc::Statement statement;
        if (!statement.Allocate(connection.Get()))
            odbc::Raise(SQL_HANDLE_DBC, connection.Get(), "execute", sql);
        Run(statement, sql);
        for (SQLRETURN result; (result = SQLMoreResults(statement.Get())) != SQL_NO_DATA;) {
            if (!odbc::Succeeded(result))
                odbc::Raise(SQL_HANDLE_STMT, statement.Get(), "execute", sql);
        }
    }
};

CSqlServerConnection::CSqlServerConnection() : CSqlServerConnection(Options()) {}

CSqlServerConnection::CSqlServerConnection(Options options) : m_options(std::move(options)) {}

CSqlServerConnection::~CSqlServerConnection() = default;

void CSqlServerConnection::Close() {
    m_handles.reset();
}

bool CSqlServerConnection::IsOpen() const {
    return m_handles && m_handles->open;
}

bool CSqlServerConnection::Connect(const QString& server, const QString& database, const QString& user,
                                   const QString& password, bool windows, const std::function<void()>& alive) {
    Close();
    const auto login = ParseOleDbString(OleDbConnectionString({server, database, user, password, windows}));
    if (!login)
        return ShowFailure(database, server, BadInitString,
                           QStringLiteral("Formát inicializačního řetězce neodpovídá specifikaci OLE DB.\n"
                                          "Uvozovky v uživateli a v hesle zapište dvakrát."));
    if (const QString refusal = RefuseServer(login->server); !refusal.isEmpty())
        return ShowFailure(database, server, ResultCode::Fail, refusal);
    const auto address = ParseServer(login->server);
    if (!address)
        return ShowFailure(database, server, ResultCode::Fail, QStringLiteral("Neplatný port serveru."));
    QStringList drivers{m_options.driver};
    if (m_options.driver == Options().driver) {
        for (const char* path : DriverPaths) {
            if (QFileInfo::exists(QString::fromLatin1(path)))
                drivers.append(QString::fromLatin1(path));
        }
    }
    odbc::Diagnostic diagnostic;
    for (const QString& driver : drivers) {
        const auto odbcString = OdbcConnectionString(*login, *address, driver);
        if (!odbcString)
            return ShowFailure(database, server, ResultCode::Fail,
                               QStringLiteral("Ovladač neumí předat přihlašovací údaje, ve kterých stojí „};“."));
        if (OpenLine(*odbcString, alive))
            return true;
        diagnostic = odbc::DiagnosticOf(SQL_HANDLE_DBC, m_handles->connection.Get());
        Close();
        const bool noDriver = diagnostic.state.startsWith(QStringLiteral("IM")) ||
                              diagnostic.text.startsWith(QStringLiteral("Can't open lib"));
        if (!noDriver) {
            QString text = diagnostic.Explained();
            if (windows)
                text += QStringLiteral("\nOvěření Windows potřebuje platný lístek Kerberos (příkaz kinit).");
            return ShowFailure(database, server, diagnostic.Code(), text);
        }
    }
    throw ComError("connect", m_options.driver.toStdString(), NoPointer,
                   QStringLiteral("Chybí ovladač ODBC pro SQL Server (FreeTDS): ") + diagnostic.text);
}

/// Leaves the handles for the diagnostics.
bool CSqlServerConnection::OpenLine(const QString& odbcString, const std::function<void()>& alive) {
    m_handles = std::make_shared<Handles>();
    if (!m_handles->environment.Allocate(nullptr) ||
        !odbc::Succeeded(SQLSetEnvAttr(m_handles->environment.Get(), SQL_ATTR_ODBC_VERSION,
                                       reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0)) ||
        !m_handles->connection.Allocate(m_handles->environment.Get()))
        throw ComError("connect", {}, NoPointer, QStringLiteral("Nelze vytvořit spojení ODBC."));
    // ODBC takes a number where it says a pointer.
    SQLSetConnectAttr(m_handles->connection.Get(), SQL_ATTR_LOGIN_TIMEOUT,
                      // NOLINTNEXTLINE(performance-no-int-to-ptr)
                      reinterpret_cast<SQLPOINTER>(static_cast<std::intptr_t>(m_options.loginSeconds)), 0);
    const auto open = [handles = m_handles, odbcString] {
        handles->open = odbc::Succeeded(SQLDriverConnectW(handles->connection.Get(), nullptr, odbc::Wide(odbcString),
                                                          SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
        if (!handles->open)
            return;
        handles->Execute("SET LOCK_TIMEOUT 1000");
        handles->Execute("SET TRANSACTION ISOLATION LEVEL READ UNCOMMITTED");
    };
    // A log-in cannot be interrupted; it ends by itself.
    const auto nothing = [] {};
    try {
        Await(open, {alive, nothing, nothing});
    } catch (const ComError&) {
        throw;
    } catch (...) {
        Close();
        throw;
    }
    return m_handles->open;
}

bool CSqlServerConnection::ShowFailure(const QString& database, const QString& server, std::uint32_t code,
                                       const QString& text) const {
    ShowHResultError(code, text, MessageText("Nemohu otevřít databázi '%s' na serveru '%s'", database, server));
    return false;
}

void CSqlServerConnection::Execute(std::string_view sql) {
    if (!IsOpen())
        throw ComError("execute", std::string(sql), ResultCode::ObjectClosed,
                       QStringLiteral("Spojení se serverem není otevřeno."));
    m_handles->Execute(sql);
}

bool CSqlServerConnection::OpenRecordset(SqlServerRowsPtr& rows, std::string_view source, SourceType type,
                                         const std::vector<std::string>& columns, const std::function<void()>& alive) {
    if (!IsOpen())
        throw ComError("open", std::string(source), ResultCode::ObjectClosed,
                       QStringLiteral("Spojení se serverem není otevřeno."));
    const auto statement = std::make_shared<odbc::Statement>();
    if (!statement->Allocate(m_handles->connection.Get())) {
        const odbc::Diagnostic diagnostic = odbc::DiagnosticOf(SQL_HANDLE_DBC, m_handles->connection.Get());
        ShowHResultError(diagnostic.Code(), diagnostic.Explained());
        rows.reset();
        return false;
    }
    if (!rows)
        rows = std::make_shared<CSqlServerRows>();
    rows->Close();
    const auto givenUp = std::make_shared<std::atomic<bool>>(false);
    // The statement goes before the connection that it belongs to.
    const auto read = [handles = m_handles, statement, rows, givenUp, columns,
                       sql = type == SourceType::StoredProcedure ? RoutineStatement(source) : std::string(source)] {
        Run(*statement, sql);
        rows->Read(statement->Get(), sql, columns, [&] {
            if (*givenUp)
                throw GivenUp();
        });
    };
    const auto cancel = [&] {
        *givenUp = true;
        SQLCancel(statement->Get());
    };
    const auto leave = [&] {
        rows.reset();
        Close();
    };
    Await(read, {alive, cancel, leave});
    return true;
}
