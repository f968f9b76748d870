#pragma once

#include <QString>

#include <system_error>
#include <vector>

/// A profile (ini) file: `kuvel.ini`, and the ini files of other programs. `ProfileText` has the rules. Nothing is kept
/// between calls: each reads the file anew, so that a change made by another program is seen.
class CProfile {
public:
    static constexpr int DefaultMaxCharacters = 1000;

    explicit CProfile(const QString& path) : m_path(path) {}

    /// The default when the file, the section or the key is missing or the file cannot be read. What is returned is
    /// cut to `maxCharacters`, the default too.
    QString GetString(const QString& section, const QString& key, const QString& defaultValue,
                      int maxCharacters = DefaultMaxCharacters) const;
    /// The decimal number that the value starts with, its sign included, modulo 2^32; 0 when it starts with none. The
    /// default only when there is no such key.
    int GetInt(const QString& section, const QString& key, int defaultValue) const;

    struct Entry {
        QString key;
        QString value;
    };
    using Entries = std::vector<Entry>;

    /// Writes the keys of a section in one go. The file is written whole or stays as it was; it is created when
    /// missing, its folder is not. An empty value (null or not) is written as an empty value. Answers why it could not
    /// be done: EINVAL for a name that cannot stand in the file, otherwise why it could not be read or written.
    [[nodiscard]] std::error_code Write(const QString& section, const Entries& entries);

private:
    QString m_path;
};
