#include "tests/support/TdsServer.h"

#include "tests/support/TdsStream.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>

namespace {

constexpr std::uint8_t Batch = 0x01;
constexpr std::uint8_t Routine = 0x03;
constexpr std::uint8_t Login7 = 0x10;
constexpr std::uint8_t Prelogin = 0x12;
constexpr std::uint8_t Attention = 0x06;
constexpr int DoneError = 2;
constexpr int DoneCount = 0x10;
constexpr int DoneMore = 1;
constexpr int DoneAttention = 0x20;

/// Version, no encryption, instance found, one answer at a time.
const QByteArray PreloginAnswer("\x00\x00\x15\x00\x06\x01\x00\x1b\x00\x01\x02\x00\x1c\x00\x01\x04\x00\x1d\x00\x01\xff"
                                "\x0b\x00\x00\x00\x00\x00\x02\x00\x00",
                                30);

std::uint32_t Read(const QByteArray& bytes, qsizetype at, int size) {
    std::uint32_t value = 0;
    for (int i = 0; i < size && at + i < bytes.size(); ++i)
        value |= static_cast<std::uint32_t>(static_cast<std::uint8_t>(bytes[at + i])) << (8 * i);
    return value;
}

/// A text of the login message, whose place and length stand at `at`.
QByteArray LoginField(const QByteArray& message, qsizetype at) {
    return message.mid(Read(message, at, 2), 2 * static_cast<qsizetype>(Read(message, at + 2, 2)));
}

QString Utf16(const QByteArray& bytes) {
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()), bytes.size() / 2);
}

bool SendAll(int line, const QByteArray& bytes) {
    for (qsizetype sent = 0; sent < bytes.size();) {
        const ssize_t now =
            send(line, bytes.constData() + sent, static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL);
        if (now <= 0)
            return false;
        sent += now;
    }
    return true;
}

} // namespace

TdsServer::TdsServer() : m_listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(place);
    if (bind(m_listener, reinterpret_cast<sockaddr*>(&place), size) != 0)
        throw std::runtime_error("no free port");
    getsockname(m_listener, reinterpret_cast<sockaddr*>(&place), &size);
    m_port = ntohs(place.sin_port);
    listen(m_listener, 8);
}

TdsServer::~TdsServer() {
    m_stop = true;
    if (m_thread.joinable())
        m_thread.join();
    close(m_listener);
}

void TdsServer::Start() {
    m_thread = std::thread([this] { Serve(); });
}

QString TdsServer::Name() const {
    return QStringLiteral("127.0.0.1,%1").arg(m_port);
}

std::vector<std::string> TdsServer::TakeStatements() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_statements, {});
}

/// False when the server is to stop.
bool TdsServer::Wait(int line) const {
    while (!m_stop) {
        pollfd handle{line, POLLIN, 0};
        if (poll(&handle, 1, 20) > 0)
            return true;
    }
    return false;
}

void TdsServer::Serve() {
    while (Wait(m_listener)) {
        const int line = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        const int on = 1;
        setsockopt(line, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
        ServeLine(line);
        close(line);
    }
}

bool TdsServer::ReadMessage(int line, std::uint8_t& type, QByteArray& message) const {
    message.clear();
    for (bool last = false; !last;) {
        std::uint8_t header[8];
        if (!Wait(line) || recv(line, header, sizeof(header), MSG_WAITALL) != sizeof(header))
            return false;
        type = header[0];
        last = (header[1] & 1) != 0;
        QByteArray part((header[2] << 8 | header[3]) - 8, '\0');
        // Reading nothing would wait for something.
        if (!part.isEmpty() &&
            recv(line, part.data(), static_cast<std::size_t>(part.size()), MSG_WAITALL) != part.size())
            return false;
        message += part;
    }
    return true;
}

void TdsServer::ServeLine(int line) {
    std::uint8_t type = 0;
    QByteArray message;
    while (ReadMessage(line, type, message)) {
        QByteArray answer;
        bool whole = true;
        if (silent)
            continue;
        if (type == Prelogin) {
            answer = PreloginAnswer;
        } else if (type == Login7) {
            answer = Login(message);
        } else if (type == Attention) {
            TdsStream done;
            done.Done(0xFD, DoneAttention, 0);
            answer = done.bytes;
        } else if (type == Batch || type == Routine) {
            // A routine call by name would be an unknown statement too: the program sends batches only.
            const std::string statement =
                type == Batch ? Utf16(message.mid(Read(message, 0, 4))).toStdString() : "a call by name";
            {
                const std::lock_guard lock(m_mutex);
                m_statements.push_back(statement);
            }
            if (delayed.empty() || delayed == statement)
                std::this_thread::sleep_for(std::chrono::milliseconds(delayMilliseconds));
            whole = Answer(statement, answer);
        }
        if (!SendAll(line, TdsPackets(answer, whole)) || !whole)
            return;
    }
}

QByteArray TdsServer::Login(const QByteArray& message) const {
    QByteArray hidden = LoginField(message, 44);
    for (char& byte : hidden) {
        const auto clear = static_cast<std::uint8_t>(byte ^ 0xA5);
        byte = static_cast<char>(clear << 4 | clear >> 4);
    }
    TdsStream answer;
    const QString name = Utf16(LoginField(message, 40));
    const QString wanted = Utf16(LoginField(message, 68));
    if (name != user || Utf16(hidden) != password) {
        answer.Error(18456, QStringLiteral("Login failed for user '%1'.").arg(name));
        answer.Done(0xFD, DoneError, 0);
    } else if (wanted != database) {
        answer.Error(
            4060, QStringLiteral("Cannot open database \"%1\" requested by the login. The login failed.").arg(wanted));
        answer.Error(18456, QStringLiteral("Login failed for user '%1'.").arg(name));
        answer.Done(0xFD, DoneError, 0);
    } else {
        answer.LoginDone(wanted);
    }
    return answer.bytes;
}

bool TdsServer::Answer(const std::string& statement, QByteArray& bytes) const {
    TdsStream answer;
    const bool isRoutine = statement.starts_with("EXEC DoklSkl_Pre ");
    const bool isQuery = statement == "SELECT * FROM pol_mj";
    if (statement != refused && (isRoutine || isQuery)) {
        const TdsTable& table = isRoutine ? documents : products;
        if (isRoutine) // the routine first fills a table of its own
            answer.Done(0xFF, DoneMore | DoneCount, table.rows.size());
        // A fault before the first row comes before the columns, unless it drops the line.
        const bool refusedWhole = table.fault == TdsTable::Fault::Error && table.faultAfter == 0;
        if (!refusedWhole)
            answer.Columns(table.columns);
        for (std::size_t i = 0;; ++i) {
            if (table.fault != TdsTable::Fault::None && i == table.faultAfter) {
                if (table.fault == TdsTable::Fault::Error) {
                    answer.Error(table.errorNumber, QString::fromStdString(table.errorText));
                    answer.Done(isRoutine ? 0xFE : 0xFD, DoneError, 0);
                }
                bytes = answer.bytes;
                return table.fault == TdsTable::Fault::Error;
            }
            if (i == table.rows.size())
                break;
            answer.Row(table.columns, table.rows[i]);
        }
        answer.Done(isRoutine ? 0xFF : 0xFD, (isRoutine ? DoneMore : 0) | DoneCount, table.rows.size());
        if (isRoutine) {
            answer.Number(0x79, 1);
            answer.Number(0, 4);
            answer.Done(0xFE, 0, 0);
        }
    } else if (statement != refused && statement.starts_with("SET ")) {
        answer.Done(0xFD, 0, 0);
    } else {
        answer.Error(102, QStringLiteral("Incorrect syntax near '%1'.").arg(QString::fromStdString(statement)));
        answer.Done(0xFD, DoneError, 0);
    }
    bytes = answer.bytes;
    return true;
}
