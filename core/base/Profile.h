#pragma once

#include <QString>

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

    /// The file is written whole or stays as it was; it is created when missing, its folder is not. An empty value
    /// (null or not) is written as an empty value. False, with the reason in errno: EINVAL for a name that cannot stand
    /// in the file, otherwise why it could not be read or written.
    bool WriteString(const QString& section, const QString& key, const QString& value);
    /// False with errno as for `WriteString`; a key that is not there is a success.
    bool RemoveKey(const QString& section, const QString& key);

private:
    QString m_path;
};
