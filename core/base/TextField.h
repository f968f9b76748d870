#pragma once

#include <QString>

#include <string_view>

/// The most characters that a text column holds. A name that is no such column has no limit.
qsizetype LongestText(std::string_view column);

/// The text with a blank for each line break, tab or other control character, and without those at its ends.
QString OneLine(const QString& text);
/// The same without the blanks at its ends: what a field, or an import, gives a column to hold.
inline QString TrimmedLine(const QString& text) {
    return OneLine(text).trimmed();
}

/// What a column can hold of a text that came from elsewhere.
struct FittedText {
    QString text;
    /// Something of it was lost at its end.
    bool wasCut = false;
};
FittedText FitText(std::string_view column, const QString& text);

/// "Zadejte nejvýše 50 znaků." for a text that is too long for the column; empty for one that it holds.
QString RefuseLength(std::string_view column, const QString& text);
