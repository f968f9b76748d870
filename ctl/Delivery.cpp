#include "ctl/Delivery.h"

#include "core/base/AppDir.h"
#include "core/base/SystemError.h"
#include "ctl/Failure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace {

/// A file under a temporary name, which goes with the object unless it was given its own.
class NewFile {
public:
    explicit NewFile(const QString& target)
        : m_target(QFile::encodeName(target)), m_name(m_target + ".XXXXXX"),
          m_file(mkostemp(m_name.data(), O_CLOEXEC)) {
        if (m_file < 0)
            Fail();
        const mode_t mask = umask(0);
        umask(mask);
        fchmod(m_file, 0666 & ~mask);
    }
    ~NewFile() {
        if (m_file >= 0) {
            close(m_file);
            unlink(m_name.constData());
        }
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void Write(const QByteArray& bytes) {
        for (qsizetype done = 0; done < bytes.size();) {
            const ssize_t written =
                write(m_file, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
            if (written < 0 && errno != EINTR)
                Fail();
            done += written < 0 ? 0 : written;
        }
    }

    /// Never replaces: another one who made the target meanwhile keeps his.
    void Place() {
        if (fsync(m_file) != 0)
            Fail();
        // Not every file system can rename without replacing; all those have links.
        if (renameat2(AT_FDCWD, m_name.constData(), AT_FDCWD, m_target.constData(), RENAME_NOREPLACE) != 0) {
            if (errno != EINVAL && errno != ENOSYS)
                Fail();
            if (link(m_name.constData(), m_target.constData()) != 0)
                Fail();
            unlink(m_name.constData());
        }
        close(m_file);
        m_file = -1;
        SyncFolder();
    }

private:
    [[noreturn]] void Fail() const {
        throw Failure(QStringLiteral("cannot create '%1'").arg(QFile::decodeName(m_target)), LastError());
    }

    void SyncFolder() const {
        const QByteArray folder = m_target.left(m_target.lastIndexOf('/') + 1);
        const int file = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (file < 0)
            return;
        fsync(file);
        close(file);
    }

    QByteArray m_target;
    QByteArray m_name;
    int m_file;
};

} // namespace

QString DeliveryFolder() {
    return QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget().section(u'/', 0, -2) + u'/';
}

void PlaceFile(const QString& source, const QString& target) {
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("cannot read '%1': %2").arg(source, file.errorString()));
    NewFile copy(target);
    constexpr qint64 Piece = 1 << 20;
    while (!file.atEnd()) {
        const QByteArray bytes = file.read(Piece);
        if (bytes.isEmpty())
            throw Failure(QStringLiteral("cannot read '%1': %2").arg(source, file.errorString()));
        copy.Write(bytes);
    }
    copy.Place();
}

void RequireNoDatabase() {
    const QFileInfo database(DatabasePath());
    if (database.exists() || database.isSymLink())
        throw Failure(QStringLiteral("'%1' is there already; nothing was changed").arg(database.filePath()));
    const QFileInfo journal(database.filePath() + QStringLiteral("-journal"));
    if (journal.exists() && journal.size() > 0)
        throw Failure(
            QStringLiteral("'%1' belongs to a database that is gone; move it away first").arg(journal.filePath()));
}

QString PlaceEmptyDatabase() {
    PlaceFile(DeliveryFolder() + QStringLiteral("database/") + DatabaseName, DatabasePath());
    return DatabasePath();
}

void PlaceTemplates() {
    const QDir delivered(DeliveryFolder() + QStringLiteral("templates"));
    const QStringList names = delivered.entryList({QStringLiteral("*.tpl")}, QDir::Files, QDir::Name);
    if (names.isEmpty())
        throw Failure(QStringLiteral("no report templates in '%1'").arg(delivered.path()));
    if (!QDir().mkpath(g_strAppDir))
        throw Failure(QStringLiteral("cannot create '%1'").arg(g_strAppDir), LastError());
    for (const QString& name : names)
        if (const QString target = g_strAppDir + name; !QFileInfo::exists(target))
            PlaceFile(delivered.filePath(name), target);
}
