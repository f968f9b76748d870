#pragma once

#include <QRegularExpression>
#include <QString>

#include <vector>

/// Without case and accents, character by character.
QString FoldedForSearch(const QString& text);

/// What is looked for in the guide: every word of a text, whatever its ending ("zaloha" is in "zálohy" and in
/// "zálohování"), case and accents, or as a part of a longer word.
class CHelpSearch {
public:
    explicit CHelpSearch(const QString& text);

    /// All words are in the folded text; none is sought in an empty search, which is in every text.
    bool IsIn(const QString& folded) const;

    struct Place {
        qsizetype at;
        qsizetype size;
    };
    /// Where its words stand in the folded text, in no particular order.
    std::vector<Place> PlacesIn(const QString& folded) const;

private:
    std::vector<QRegularExpression> m_words;
};
