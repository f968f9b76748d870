#include "core/base/Profile.h"

#include "core/base/ProfileText.h"
#include "core/base/SystemError.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <cstdint>
#include <optional>

// No profile comes near this; a larger file is something else under its name.
static constexpr qint64 MAX_FILE_SIZE = 16 << 20;

/// What errno says, or that something failed where it says nothing.
static std::error_code FileError() {
    return errno != 0 ? LastError() : SystemError(EIO);
}

static std::error_code ReadFile(const QString& path, QByteArray& bytes) {
    const QFileInfo entry(path);
    if (!entry.exists()) {
        return SystemError(ENOENT);
    }
    if (!entry.isFile()) {
        return SystemError(entry.isDir() ? EISDIR : EINVAL);
    }
    if (entry.size() > MAX_FILE_SIZE) {
        return SystemError(EFBIG);
    }
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly)) {
        return FileError();
    }
    errno = 0;
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::error_code() : FileError();
}

static std::error_code WriteFile(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    errno = 0;
    // Flushed by hand, so that a full disk is met before commit() cleans up and its errno with it.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() || !file.commit()) {
        return FileError();
    }
    return {};
}

static std::optional<QString> ReadValue(const QString& path, const QString& section, const QString& key) {
    QByteArray bytes;
    return ReadFile(path, bytes) ? std::nullopt : ProfileText(bytes).Value(section, key);
}

QString CProfile::GetString(const QString& section, const QString& key, const QString& defaultValue,
                            int maxCharacters) const {
    const QString value = ReadValue(m_path, section, key).value_or(defaultValue);
    QString cut = value.left(std::max(maxCharacters, 0));
    if (cut.size() < value.size() && !cut.isEmpty() && cut.back().isHighSurrogate()) {
        cut.chop(1);
    }
    return cut;
}

int CProfile::GetInt(const QString& section, const QString& key, int defaultValue) const {
    const std::optional<QString> value = ReadValue(m_path, section, key);
    if (!value) {
        return defaultValue;
    }
    const QString text = value->trimmed(); // blanks may stand inside the quotes
    const bool negative = text.startsWith(u'-');
    std::uint32_t number = 0;
    for (qsizetype i = negative || text.startsWith(u'+') ? 1 : 0; i < text.size(); ++i) {
        if (text[i] < u'0' || text[i] > u'9') {
            break;
        }
        number = number * 10 + (text[i].unicode() - u'0');
    }
    return static_cast<int>(negative ? 0U - number : number);
}

std::error_code CProfile::Write(const QString& section, const Entries& entries) {
    QByteArray before;
    // A file that is there but cannot be read must not be taken for an empty one: writing would wipe it.
    if (const std::error_code error = ReadFile(m_path, before);
        error && error != std::errc::no_such_file_or_directory) {
        return error;
    }
    ProfileText text(before);
    for (const Entry& entry : entries) {
        if (!text.SetValue(section, entry.key, entry.value)) {
            return SystemError(EINVAL);
        }
    }
    // At exit every option is stored, and most often none has changed.
    return text.Bytes() == before ? std::error_code() : WriteFile(m_path, text.Bytes());
}
