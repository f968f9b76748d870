#include "core/base/Profile.h"

#include "core/base/ProfileText.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <optional>

// No profile comes near this; a larger file is something else under its name.
static constexpr qint64 MAX_FILE_SIZE = 16 << 20;

/// 0, or the errno that tells why the file could not be read.
static int ReadFile(const QString& path, QByteArray& bytes) {
    const QFileInfo entry(path);
    if (!entry.exists()) {
        return ENOENT;
    }
    if (!entry.isFile()) {
        return entry.isDir() ? EISDIR : EINVAL;
    }
    if (entry.size() > MAX_FILE_SIZE) {
        return EFBIG;
    }
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly)) {
        return errno != 0 ? errno : EIO;
    }
    errno = 0;
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? 0 : errno != 0 ? errno : EIO;
}

/// 0, or the errno that tells why the file could not be written.
static int WriteFile(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    errno = 0;
    // Flushed by hand, so that a full disk is met before commit() cleans up and its errno with it.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() || !file.commit()) {
        return errno != 0 ? errno : EIO;
    }
    return 0;
}

static bool Answer(int code) {
    errno = code;
    return code == 0;
}

static std::optional<QString> ReadValue(const QString& path, const QString& section, const QString& key) {
    QByteArray bytes;
    return ReadFile(path, bytes) == 0 ? ProfileText(bytes).Value(section, key) : std::nullopt;
}

/// Writes only what differs: at exit every option is stored, and most often none has changed.
static bool WriteChanged(const QString& path, const QByteArray& before, const QByteArray& after) {
    return Answer(before == after ? 0 : WriteFile(path, after));
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

bool CProfile::WriteString(const QString& section, const QString& key, const QString& value) {
    QByteArray before;
    // A file that is there but cannot be read must not be taken for an empty one: writing would wipe it.
    if (const int code = ReadFile(m_path, before); code != 0 && code != ENOENT) {
        return Answer(code);
    }
    ProfileText text(before);
    return text.SetValue(section, key, value) ? WriteChanged(m_path, before, text.Bytes()) : Answer(EINVAL);
}

bool CProfile::RemoveKey(const QString& section, const QString& key) {
    QByteArray before;
    if (const int code = ReadFile(m_path, before); code != 0) {
        return Answer(code == ENOENT ? 0 : code);
    }
    ProfileText text(before);
    text.Remove(section, key);
    return WriteChanged(m_path, before, text.Bytes());
}
