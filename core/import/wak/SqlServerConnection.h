#pragma once

#include "core/import/wak/SqlServerRows.h"

#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The connection to a SQL Server, empty until `Connect` succeeds. Everything is read with forward-only, read-only
/// cursors, one answer at a time and each to its end; a command may take any time. No message and no error holds the
/// password.
class CSqlServerConnection {
public:
    struct Options {
        /// After so many seconds without an answer the server counts as one that cannot be reached.
        int loginSeconds = 15;
        /// As odbcinst.ini names it, or a path.
        QString driver = QStringLiteral("FreeTDS");
    };
    enum class SourceType { Text = 1, StoredProcedure = 4 };

    CSqlServerConnection();
    explicit CSqlServerConnection(Options options);
    /// Closes.
    virtual ~CSqlServerConnection();
    CSqlServerConnection(const CSqlServerConnection&) = delete;
    CSqlServerConnection& operator=(const CSqlServerConnection&) = delete;

    /// Closes what is open and opens anew. The server is given as "host", "host,port", "host\instance", "." or
    /// "(local)"; with Windows authentication user and password are not used. False after "Nemohu otevřít databázi '%s'
    /// na serveru '%s'" was shown. Raises ComError when there is no driver, and for a session statement that failed.
    /// `alive` is called every 50 ms while the server is waited for; what it throws ends the waiting, with the
    /// connection closed.
    bool Connect(const QString& server, const QString& database, const QString& user, const QString& password,
                 bool windows, const std::function<void()>& alive = {});
    bool IsOpen() const;
    /// Runs a statement that returns no rows. Raises ComError.
    void Execute(std::string_view sql);
    /// Reads the answer to an SQL text, or to a routine called as "Name('a', 'b')", into the handle's rows, reusing the
    /// object it holds; of its columns those in the list. `alive` is called every 50 ms until all rows are there, and
    /// what it throws ends the reading; a server that does not let go at once then costs the connection. False, after
    /// the error was shown, when no recordset can be made; every other failure raises ComError.
    virtual bool OpenRecordset(SqlServerRowsPtr& rows, std::string_view source, SourceType type,
                               const std::vector<std::string>& columns, const std::function<void()>& alive = {});
    void Close();

private:
    struct Handles;

    bool OpenLine(const QString& odbcString, const std::function<void()>& alive);
    bool ShowFailure(const QString& database, const QString& server, std::uint32_t code, const QString& text) const;

    Options m_options;
    /// Shared with the call that waits for the server, which may outlast the connection.
    std::shared_ptr<Handles> m_handles;
};
