#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

/// A table of the stand-in. Types: int, smallint, bigint, bit, float, datetime, date, money, decimal(p,s), varchar (in
/// Windows-1250), nvarchar, nvarchar(max). Cells are UTF-8 texts, "2023-10-05 12:30:00" for dates; nothing is a null.
struct TdsTable {
    struct Column {
        std::string name;
        std::string type;
    };
    using Row = std::vector<std::optional<std::string>>;
    std::vector<Column> columns;
    std::vector<Row> rows;

    enum class Fault { None, Error, Drop };
    Fault fault = Fault::None;
    /// The fault comes after so many rows.
    std::size_t faultAfter = 0;
    int errorNumber = 0;
    std::string errorText;
};

/// A SQL Server of the test's own on a loopback address, which speaks TDS 7.4, unencrypted, to the real driver: one
/// line at a time, served by a thread. Knows "SELECT * FROM pol_mj", "EXEC DoklSkl_Pre …" and SET statements; refuses
/// everything else as the server does. Set it up before `Start`, or while no client waits for an answer.
class TdsServer {
public:
    /// Binds a free port.
    TdsServer();
    ~TdsServer();
    TdsServer(const TdsServer&) = delete;
    TdsServer& operator=(const TdsServer&) = delete;

    void Start();
    /// As a user enters it: "127.0.0.1,PORT".
    QString Name() const;
    int Port() const { return m_port; }
    /// The statements received since the last call.
    std::vector<std::string> TakeStatements();

    QString user = QStringLiteral("sa");
    QString password = QStringLiteral("heslo");
    QString database = QStringLiteral("wak");
    TdsTable products;
    TdsTable documents;
    /// Accepts lines and says nothing.
    bool silent = false;
    /// Before each answer to a statement, or to this one alone.
    int delayMilliseconds = 0;
    std::string delayed;
    /// A statement that is refused.
    std::string refused;

private:
    void Serve();
    void ServeLine(int line);
    bool Wait(int line) const;
    bool ReadMessage(int line, std::uint8_t& type, QByteArray& message) const;
    QByteArray Login(const QByteArray& message) const;
    /// Nothing for a line to be dropped after `answer`.
    bool Answer(const std::string& statement, QByteArray& answer) const;

    int m_listener = -1;
    int m_port = 0;
    std::atomic<bool> m_stop{false};
    std::thread m_thread;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_statements;
};
