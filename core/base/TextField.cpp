#include "core/base/TextField.h"

#include "core/base/SqlText.h"

#include <limits>

namespace {

constexpr struct {
    std::string_view column;
    qsizetype longest;
} Columns[] = {
    {"cover_name", 50}, {"cover_note", 255},  {"ccover_name", 50}, {"ccover_note", 255},
    {"prod_name", 50},  {"prod_katalog", 20}, {"prod_unit", 10},   {"move_num", 20},
};

bool IsBreak(QChar c) {
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

} // namespace

qsizetype LongestText(std::string_view column) {
    for (const auto& each : Columns)
        if (each.column == column)
            return each.longest;
    return std::numeric_limits<qsizetype>::max();
}

QString OneLine(const QString& text) {
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && IsBreak(text[first]))
        ++first;
    while (last > first && IsBreak(text[last - 1]))
        --last;
    QString line = text.mid(first, last - first);
    line.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    for (QChar& c : line)
        if (IsBreak(c))
            c = QLatin1Char(' ');
    return line;
}

FittedText FitText(std::string_view column, const QString& text) {
    const QString line = TrimmedLine(text);
    qsizetype longest = LongestText(column);
    if (line.size() <= longest)
        return {line, false};
    // The halves of one character stay together.
    if (line[longest - 1].isHighSurrogate())
        --longest;
    return {line.left(longest).trimmed(), true};
}

QString RefuseLength(std::string_view column, const QString& text) {
    const qsizetype longest = LongestText(column);
    return text.size() <= longest ? QString() : MessageText("Zadejte nejvýše %i znaků.", longest);
}
