#include "core/base/ProfileText.h"

#include "core/base/CodePage.h"

#include <algorithm>
#include <utility>

// Blanks are the control characters and the space. The no-break space is a character of the text: a name pasted from a
// web page keeps it.
static bool IsBlank(QChar c) {
    return c.unicode() <= 0x20;
}

static QStringView Trimmed(QStringView text) {
    while (!text.isEmpty() && IsBlank(text.front())) {
        text = text.sliced(1);
    }
    while (!text.isEmpty() && IsBlank(text.back())) {
        text.chop(1);
    }
    return text;
}

static bool SameName(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

static bool IsQuoted(QStringView value) {
    return value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'');
}

static bool EndsText(QChar c) {
    return c == u'\r' || c == u'\n' || c == u'\0';
}

/// The name in a "[name]" line, whatever follows it; nothing for any other line.
static std::optional<QStringView> SectionName(QStringView line) {
    if (!line.startsWith(u'[')) {
        return {};
    }
    const qsizetype close = line.indexOf(u']');
    return close < 0 ? std::nullopt : std::optional(Trimmed(line.sliced(1, close - 1)));
}

/// The value as it must stand in the file to be read back unchanged.
static QString Written(QStringView value) {
    value = value.first(std::find_if(value.begin(), value.end(), EndsText) - value.begin());
    const bool losesBlanks = !value.isEmpty() && (IsBlank(value.front()) || IsBlank(value.back()));
    return losesBlanks || IsQuoted(value) ? u'"' + value.toString() + u'"' : value.toString();
}

ProfileText::ProfileText(QByteArray bytes) : m_bytes(std::move(bytes)) {
    if (m_bytes.startsWith("\xEF\xBB\xBF")) {
        m_encoding = Encoding::Utf8;
        m_start = 3;
    } else if (m_bytes.startsWith("\xFF\xFE")) {
        m_encoding = Encoding::Utf16LE;
        m_start = 2;
    } else if (m_bytes.startsWith("\xFE\xFF")) {
        m_encoding = Encoding::Utf16BE;
        m_start = 2;
    }
    if (m_bytes.size() % UnitSize() != 0) {
        m_bytes.append('\0'); // half a character at the end would shift whatever is written after it
    }
}

char16_t ProfileText::UnitAt(qsizetype offset) const {
    const auto byte = [this](qsizetype i) { return char16_t(static_cast<unsigned char>(m_bytes[i])); };
    switch (m_encoding) {
    case Encoding::Utf16LE:
        return static_cast<char16_t>(byte(offset) | byte(offset + 1) << 8);
    case Encoding::Utf16BE:
        return static_cast<char16_t>(byte(offset) << 8 | byte(offset + 1));
    default:
        return byte(offset);
    }
}

bool ProfileText::IsBreakAt(qsizetype offset) const {
    const char16_t unit = UnitAt(offset);
    return unit == u'\r' || unit == u'\n';
}

ProfileText::Line ProfileText::LineAt(qsizetype offset) const {
    Line line{offset, offset, offset};
    while (line.end < m_bytes.size() && !IsBreakAt(line.end)) {
        line.end += UnitSize();
    }
    line.next = line.end;
    if (line.next < m_bytes.size()) {
        line.next += UnitSize();
        if (UnitAt(line.end) == u'\r' && line.next < m_bytes.size() && UnitAt(line.next) == u'\n') {
            line.next += UnitSize();
        }
    }
    return line;
}

QString ProfileText::Decode(const Line& line) const {
    const QByteArrayView bytes = QByteArrayView(m_bytes).sliced(line.begin, line.end - line.begin);
    switch (m_encoding) {
    case Encoding::Windows1250:
        return DecodeWindows1250(bytes);
    case Encoding::Utf8:
        return QString::fromUtf8(bytes);
    default:
        break;
    }
    QString text;
    text.reserve(bytes.size() / 2);
    for (qsizetype offset = line.begin; offset < line.end; offset += 2) {
        text.append(QChar(UnitAt(offset)));
    }
    return text;
}

QByteArray ProfileText::Encode(QStringView text) const {
    switch (m_encoding) {
    case Encoding::Windows1250:
        return EncodeWindows1250(text);
    case Encoding::Utf8:
        return text.toUtf8();
    default:
        break;
    }
    QByteArray bytes;
    bytes.reserve(text.size() * 2);
    for (QChar c : text) {
        const char low = static_cast<char>(c.cell());
        const char high = static_cast<char>(c.row());
        bytes.append(m_encoding == Encoding::Utf16LE ? low : high);
        bytes.append(m_encoding == Encoding::Utf16LE ? high : low);
    }
    return bytes;
}

QString ProfileText::LineBreak() const {
    const Line first = LineAt(m_start);
    return first.end == first.next ? QStringLiteral("\r\n") : Decode({first.end, first.next, first.next});
}

bool ProfileText::IsUsable(QStringView name, QStringView forbidden) const {
    const auto spoils = [forbidden](QChar c) { return EndsText(c) || forbidden.contains(c); };
    if (name.isEmpty() || std::any_of(name.begin(), name.end(), spoils)) {
        return false;
    }
    ProfileText encoded;
    encoded.m_encoding = m_encoding;
    encoded.m_bytes = Encode(name);
    return SameName(encoded.Decode({0, encoded.m_bytes.size(), encoded.m_bytes.size()}), name);
}

ProfileText::Place ProfileText::Locate(QStringView section, QStringView key) const {
    Place place;
    Line line;
    for (qsizetype offset = m_start; offset < m_bytes.size(); offset = line.next) {
        line = LineAt(offset);
        const QString text = Decode(line);
        const QStringView content = Trimmed(text);
        if (const auto name = SectionName(content)) {
            if (place.sectionFound) {
                break;
            }
            if (SameName(*name, section)) {
                place.sectionFound = true;
                place.insertAt = line.next;
            }
        } else if (place.sectionFound && !content.isEmpty()) {
            place.insertAt = line.next;
            const qsizetype equals = content.indexOf(u'=');
            if (equals >= 0 && content.front() != u';' && SameName(Trimmed(content.first(equals)), key)) {
                place.key = line;
                break;
            }
        }
    }
    return place;
}

std::optional<QString> ProfileText::Value(QStringView section, QStringView key) const {
    const Place place = Locate(Trimmed(section), Trimmed(key));
    if (!place.key) {
        return {};
    }
    const QString line = Decode(*place.key);
    QStringView value = Trimmed(QStringView(line).sliced(line.indexOf(u'=') + 1));
    if (IsQuoted(value)) {
        value = value.sliced(1, value.size() - 2);
    }
    return value.toString();
}

bool ProfileText::SetValue(QStringView section, QStringView key, QStringView value) {
    section = Trimmed(section);
    key = Trimmed(key);
    if (!IsUsable(section, u"]") || !IsUsable(key, u"=") || key.front() == u';' || key.front() == u'[') {
        return false;
    }
    const Place place = Locate(section, key);
    if (place.key) {
        // The key keeps its spelling and the blanks about its "=".
        const QString line = Decode(*place.key);
        qsizetype from = line.indexOf(u'=') + 1;
        while (from < line.size() && IsBlank(line[from])) {
            ++from;
        }
        const QString changed = line.first(from) + Written(value);
        if (changed != line) {
            m_bytes.replace(place.key->begin, place.key->end - place.key->begin, Encode(changed));
        }
        return true;
    }
    const QString newKey = key.toString() + u'=' + Written(value) + LineBreak();
    if (place.sectionFound) {
        InsertLines(place.insertAt, newKey);
    } else {
        InsertLines(m_bytes.size(), u'[' + section.toString() + u']' + LineBreak() + newKey);
    }
    return true;
}

void ProfileText::InsertLines(qsizetype offset, const QString& lines) {
    const bool afterOpenLine = offset > m_start && !IsBreakAt(offset - UnitSize());
    m_bytes.insert(offset, Encode(afterOpenLine ? LineBreak() + lines : lines));
}
