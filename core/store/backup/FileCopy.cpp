#include "core/store/backup/FileCopy.h"

#include "core/base/SystemError.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <string>
#include <utility>

namespace {

constexpr int BusyTimeoutMs = 5000;

class Descriptor {
public:
    explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
    ~Descriptor() {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    int Get() const { return m_descriptor; }
    explicit operator bool() const { return m_descriptor >= 0; }

private:
    int m_descriptor;
};

/// The error of a call that answers 0 when it went well.
std::error_code Check(int result) {
    return result == 0 ? std::error_code() : LastError();
}

/// Keeps other programs from changing a database, where the file is one. Whatever a crash left in its journal has been
/// taken back once the lock is held.
class DatabaseLock {
public:
    enum class Kind { Reading, Replacing };

    /// An error only when another program is in the middle of a change.
    std::error_code Take(const std::string& path, Kind kind) {
        int result = sqlite3_open_v2(path.c_str(), &m_database, SQLITE_OPEN_READWRITE, nullptr);
        if (result == SQLITE_OK) {
            sqlite3_busy_timeout(m_database, BusyTimeoutMs);
            const char* const begin =
                kind == Kind::Reading ? "BEGIN; SELECT count(*) FROM sqlite_schema" : "BEGIN EXCLUSIVE";
            result = sqlite3_exec(m_database, begin, nullptr, nullptr, nullptr);
        }
        const int primary = result & 0xFF;
        return SystemError(primary == SQLITE_BUSY || primary == SQLITE_LOCKED ? EBUSY : 0);
    }
    ~DatabaseLock() { sqlite3_close(m_database); }
    DatabaseLock() = default;
    DatabaseLock(const DatabaseLock&) = delete;
    DatabaseLock& operator=(const DatabaseLock&) = delete;

private:
    sqlite3* m_database = nullptr;
};

/// Opens the temporary file for one writer; the leftover of a killed process is used again.
std::error_code OpenTemporary(const std::string& path, Descriptor& file) {
    for (;;) {
        file = Descriptor(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666));
        if (!file)
            return LastError();
        if (flock(file.Get(), LOCK_EX | LOCK_NB) != 0)
            return SystemError(EBUSY);
        // Another process may have renamed the file to its target before the lock was there.
        struct stat opened {
        }, named{};
        if (fstat(file.Get(), &opened) == 0 && stat(path.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
            opened.st_dev == named.st_dev)
            return Check(ftruncate(file.Get(), 0));
    }
}

std::error_code WriteAll(int file, const char* bytes, ssize_t count) {
    while (count > 0) {
        const ssize_t written = write(file, bytes, static_cast<std::size_t>(count));
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return LastError();
        bytes += written;
        count -= written;
    }
    return {};
}

std::error_code CopyBytes(int source, int target) {
    std::array<char, 1 << 16> block;
    for (;;) {
        const ssize_t count = read(source, block.data(), block.size());
        if (count == 0)
            return Check(fsync(target));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return LastError();
        if (const std::error_code error = WriteAll(target, block.data(), count))
            return error;
    }
}

/// A renamed file is there for good only once its folder is synced.
void SyncFolder(const std::string& path) {
    const std::size_t separator = path.rfind('/');
    const std::string folder = separator == std::string::npos ? "." : path.substr(0, separator + 1);
    const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor)
        fsync(descriptor.Get());
}

/// What remains of a journal belongs to a file that is no database any more; beside the new file it would be taken for
/// the new file's own.
std::error_code MoveJournalAway(const std::string& database) {
    const std::string journal = database + "-journal";
    struct stat found {};
    if (stat(journal.c_str(), &found) != 0 || found.st_size == 0)
        return {};
    return Check(rename(journal.c_str(), (journal + ".old").c_str()));
}

std::error_code Replace(const std::string& temporary, const std::string& target) {
    DatabaseLock lock;
    if (const std::error_code error = lock.Take(target, DatabaseLock::Kind::Replacing))
        return error;
    if (const std::error_code error = MoveJournalAway(target))
        return error;
    if (rename(temporary.c_str(), target.c_str()) != 0)
        return LastError();
    SyncFolder(target);
    return {};
}

std::error_code CopyInto(Descriptor& temporary, const std::string& from, const std::string& to,
                         const struct stat* old) {
    DatabaseLock lock;
    if (const std::error_code error = lock.Take(from, DatabaseLock::Kind::Reading))
        return error;
    // Closing it drops this process's locks on the source; by then everything is read.
    const Descriptor source(open(from.c_str(), O_RDONLY | O_CLOEXEC));
    if (!source)
        return LastError();
    if (const std::error_code error = CopyBytes(source.Get(), temporary.Get()))
        return error;
    if (old != nullptr)
        fchmod(temporary.Get(), old->st_mode & 07777);
    return Replace(to + ".kuveltmp", to);
}

} // namespace

std::error_code CopyFileWhole(const QString& source, const QString& target) {
    // A link is followed, as it would be by writing into it.
    const QString resolved = QFileInfo(target).canonicalFilePath();
    const std::string from = QFile::encodeName(source).toStdString();
    const std::string to = QFile::encodeName(resolved.isEmpty() ? target : resolved).toStdString();
    struct stat sourceFile {
    }, targetFile{};
    if (stat(from.c_str(), &sourceFile) != 0)
        return LastError();
    const bool replaces = stat(to.c_str(), &targetFile) == 0;
    if (S_ISDIR(sourceFile.st_mode) || (replaces && S_ISDIR(targetFile.st_mode)))
        return SystemError(EISDIR);
    if (replaces && sourceFile.st_ino == targetFile.st_ino && sourceFile.st_dev == targetFile.st_dev)
        return SystemError(EBUSY);
    if (replaces && access(to.c_str(), W_OK) != 0)
        return LastError();

    const std::string temporaryPath = to + ".kuveltmp";
    Descriptor temporary(-1);
    if (const std::error_code error = OpenTemporary(temporaryPath, temporary))
        return error;
    const std::error_code error = CopyInto(temporary, from, to, replaces ? &targetFile : nullptr);
    if (error)
        unlink(temporaryPath.c_str());
    return error;
}
