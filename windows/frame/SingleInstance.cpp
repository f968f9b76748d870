#include "windows/frame/SingleInstance.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>
#include <QStandardPaths>

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

namespace {

constexpr const char* Name = "Pelrond-Kuvel-4380-B39A-2F83B5CA4609";
constexpr const char* ActivationToken = "XDG_ACTIVATION_TOKEN";
constexpr int Pause = 50; // ms
constexpr char Heard = '!';

/// In the user's own run-time folder, so that two users do not meet.
QString BasePath(const QString& programFolder) {
    const QString canonical = QFileInfo(programFolder).canonicalFilePath();
    const QByteArray folder = QFile::encodeName(canonical.isEmpty() ? programFolder : canonical);
    const QByteArray hash = QCryptographicHash::hash(folder, QCryptographicHash::Sha256).toHex().first(16);
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
           QStringLiteral("/%1-%2").arg(QString::fromLatin1(Name), QString::fromLatin1(hash));
}

bool Address(const QString& path, sockaddr_un& address) {
    const QByteArray name = QFile::encodeName(path);
    address = {};
    address.sun_family = AF_UNIX;
    if (name.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        return false;
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    return true;
}

/// Waits this long for something to read, or for the other end to close.
bool IsReadable(int socket, int milliseconds) {
    pollfd wait{socket, POLLIN, 0};
    return poll(&wait, 1, milliseconds) > 0;
}

/// A request to the first process to come forward.
class Request {
public:
    explicit Request(const QString& path) : m_good(Address(path, m_address)) {}
    ~Request() { Drop(); }
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    /// Makes the request if it is not made, and waits a moment for the answer. What the first process has not read when
    /// it ends is no request any more.
    bool IsHeard() {
        if (m_socket < 0 && !Make()) {
            usleep(Pause * 1000);
            return false;
        }
        if (!IsReadable(m_socket, Pause))
            return false;
        char answer = 0;
        if (recv(m_socket, &answer, 1, MSG_DONTWAIT) == 1 && answer == Heard)
            return true;
        Drop();
        return false;
    }

private:
    bool Make() {
        if (!m_good)
            return false;
        m_socket = socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
        // On some desktops only the process that the user has just started may hand on the right to come forward. An
        // empty message would look like the end.
        const QByteArray token = qgetenv(ActivationToken).leftJustified(1);
        if (connect(m_socket, reinterpret_cast<const sockaddr*>(&m_address), sizeof m_address) == 0 &&
            send(m_socket, token.constData(), static_cast<std::size_t>(token.size()), MSG_NOSIGNAL) >= 0)
            return true;
        Drop();
        return false;
    }
    void Drop() {
        if (m_socket >= 0)
            close(m_socket);
        m_socket = -1;
    }

    sockaddr_un m_address;
    bool m_good;
    int m_socket = -1;
};

} // namespace

CSingleInstance::CSingleInstance() = default;

CSingleInstance::~CSingleInstance() {
    StopAnswering();
    if (m_lock >= 0)
        close(m_lock);
}

void CSingleInstance::StopAnswering() {
    m_notifier.reset();
    if (m_socket < 0)
        return;
    QFile::remove(m_socketPath);
    close(m_socket);
    m_socket = -1;
}

bool CSingleInstance::Acquire(const QString& programFolder, std::chrono::milliseconds patience) {
    const QString base = BasePath(programFolder);
    m_lock = open(QFile::encodeName(base + QStringLiteral(".lock")).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    // Where there is no place for a lock the program still has to run.
    if (m_lock < 0)
        return true;
    const QString socket = base + QStringLiteral(".sock");
    Request request(socket);
    const auto end = std::chrono::steady_clock::now() + patience;
    while (flock(m_lock, LOCK_EX | LOCK_NB) != 0) {
        if (!request.IsHeard() && std::chrono::steady_clock::now() < end)
            continue;
        close(m_lock);
        m_lock = -1;
        return false;
    }
    Listen(socket);
    return true;
}

void CSingleInstance::Listen(const QString& path) {
    sockaddr_un address;
    if (!Address(path, address))
        return;
    QFile::remove(path); // of a process that was killed
    m_socket = socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    m_socketPath = path;
    if (bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(m_socket, SOMAXCONN) != 0) {
        close(m_socket);
        m_socket = -1;
    }
}

void CSingleInstance::OnAnotherStart(std::function<void()> act) {
    m_act = std::move(act);
    if (m_socket < 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { Answer(); });
}

void CSingleInstance::Answer() {
    const int asker = accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC);
    if (asker < 0)
        return;
    char token[512];
    const ssize_t size = IsReadable(asker, Pause) ? recv(asker, token, sizeof token, MSG_DONTWAIT) : -1;
    if (size > 0 && send(asker, &Heard, 1, MSG_NOSIGNAL | MSG_DONTWAIT) == 1) {
        if (const QByteArray given = QByteArray(token, static_cast<qsizetype>(size)).trimmed(); !given.isEmpty())
            qputenv(ActivationToken, given);
        m_act();
        qunsetenv(ActivationToken);
    }
    close(asker);
}
