#include "windows/frame/SingleInstance.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

namespace {

constexpr const char* Name = "Pelrond-Kuvel-4380-B39A-2F83B5CA4609";
constexpr const char* ActivationToken = "XDG_ACTIVATION_TOKEN";
constexpr int AskAttempts = 40;
constexpr useconds_t AskPause = 50000;

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

/// The first process may still be on its way from its lock to its socket.
void AskToComeForward(const QString& path) {
    sockaddr_un address;
    if (!Address(path, address))
        return;
    const int socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    // On some desktops only the process that the user has just started may hand on the right to come forward.
    const QByteArray token = qgetenv(ActivationToken);
    for (int attempt = 0; attempt < AskAttempts; ++attempt) {
        if (sendto(socket, token.constData(), static_cast<std::size_t>(token.size()), MSG_DONTWAIT,
                   reinterpret_cast<const sockaddr*>(&address), sizeof address) >= 0)
            break;
        usleep(AskPause);
    }
    close(socket);
}

} // namespace

CSingleInstance::CSingleInstance() = default;

CSingleInstance::~CSingleInstance() {
    m_notifier.reset();
    if (m_socket >= 0) {
        close(m_socket);
        QFile::remove(m_socketPath);
    }
    if (m_lock >= 0)
        close(m_lock);
}

bool CSingleInstance::Acquire(const QString& programFolder) {
    const QString base = BasePath(programFolder);
    m_lock = open(QFile::encodeName(base + QStringLiteral(".lock")).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    // Where there is no place for a lock the program still has to run.
    if (m_lock < 0)
        return true;
    const QString socket = base + QStringLiteral(".sock");
    if (flock(m_lock, LOCK_EX | LOCK_NB) == 0) {
        Listen(socket);
        return true;
    }
    close(m_lock);
    m_lock = -1;
    AskToComeForward(socket);
    return false;
}

void CSingleInstance::Listen(const QString& path) {
    sockaddr_un address;
    if (!Address(path, address))
        return;
    QFile::remove(path); // of a process that was killed
    m_socket = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    m_socketPath = path;
    if (bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
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
    char token[512];
    const ssize_t size = recv(m_socket, token, sizeof token, 0);
    if (size < 0)
        return;
    if (size > 0)
        qputenv(ActivationToken, QByteArray(token, static_cast<qsizetype>(size)));
    m_act();
    qunsetenv(ActivationToken);
}
