#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The bytes of a profile (ini) file, read and changed by section and key. A change touches only its own line; every
/// other byte stays, broken ones too.
///
/// Rules: names ignore case (Czech letters too) and the blanks around them; the first section of a name and the first
/// key in it count; a line whose first character is ';' is a comment, one without "=" is no key; a value is everything
/// after the first "=", so a ';' in it belongs to it. Lines end with CR LF, LF or CR. A file is Windows-1250 unless it
/// starts with the mark of UTF-8 or UTF-16.
class ProfileText {
public:
    explicit ProfileText(QByteArray bytes = {});

    /// Without the blanks around it and without one matching pair of quotes (" or ').
    std::optional<QString> Value(QStringView section, QStringView key) const;

    /// Writes the value so that `Value` gives the same text: in quotes where blanks or quotes would be lost. The value
    /// ends before its first line break or NUL. A missing key goes to the end of its section, before the blank lines
    /// there; a missing section to the end of the file. False, with nothing changed, for a name that cannot stand in
    /// the file: empty, with a line break, a section with ']', a key with '=' or starting like a comment or a section,
    /// or with a letter that the file's encoding lacks.
    bool SetValue(QStringView section, QStringView key, QStringView value);

    const QByteArray& Bytes() const { return m_bytes; }

private:
    enum class Encoding { Windows1250, Utf8, Utf16LE, Utf16BE };

    /// Byte offsets: the line's text is [begin, end), its line break [end, next).
    struct Line {
        qsizetype begin = 0;
        qsizetype end = 0;
        qsizetype next = 0;
    };

    struct Place {
        bool sectionFound = false;
        std::optional<Line> key;
        /// Where a new key of the section belongs.
        qsizetype insertAt = 0;
    };

    qsizetype UnitSize() const { return m_encoding == Encoding::Utf16LE || m_encoding == Encoding::Utf16BE ? 2 : 1; }
    char16_t UnitAt(qsizetype offset) const;
    bool IsBreakAt(qsizetype offset) const;
    Line LineAt(qsizetype offset) const;
    QString Decode(const Line& line) const;
    QByteArray Encode(QStringView text) const;
    QString LineBreak() const;
    bool IsUsable(QStringView name, QStringView forbidden) const;
    Place Locate(QStringView section, QStringView key) const;
    void InsertLines(qsizetype offset, const QString& lines);

    QByteArray m_bytes;
    Encoding m_encoding = Encoding::Windows1250;
    /// The first byte after the encoding's mark.
    qsizetype m_start = 0;
};
