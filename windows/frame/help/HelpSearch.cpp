#include "windows/frame/help/HelpSearch.h"

#include <algorithm>

namespace {

/// Endings of Czech words without accents, the longest first.
constexpr const char* Endings[] = {"atech", "etem", "ami", "emi", "imi", "ymi", "ovi", "ech", "ich",
                                   "ach",   "ych",  "eho", "emu", "em",  "um",  "im",  "ym",  "am",
                                   "ou",    "ek",   "a",   "e",   "i",   "o",   "u",   "y"};
constexpr qsizetype ShortestStem = 3;
/// From this length on a stem may end in a "k" that other forms of the word put after a vowel ("výrobky", "výrobek").
constexpr qsizetype StemWithSuffix = 6;

QString Stem(const QString& word) {
    QString stem = word;
    for (const char* ending : Endings)
        if (word.endsWith(QLatin1String(ending)) && word.size() - qstrlen(ending) >= ShortestStem) {
            stem.chop(static_cast<qsizetype>(qstrlen(ending)));
            break;
        }
    if (stem.size() < word.size() && stem.size() >= StemWithSuffix && stem.endsWith(QLatin1Char('k')))
        stem.chop(1);
    return stem;
}

} // namespace

QString FoldedForSearch(const QString& text) {
    QString folded = text;
    for (QChar& letter : folded) {
        const QString parts = letter.decomposition();
        letter = (parts.isEmpty() ? letter : parts.front()).toLower();
    }
    return folded;
}

CHelpSearch::CHelpSearch(const QString& text) {
    for (const QString& word : FoldedForSearch(text).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        m_words.emplace_back(QStringLiteral("\\b%1\\w*|%2")
                                 .arg(QRegularExpression::escape(Stem(word)), QRegularExpression::escape(word)),
                             QRegularExpression::UseUnicodePropertiesOption);
}

bool CHelpSearch::IsIn(const QString& folded) const {
    return std::all_of(m_words.begin(), m_words.end(),
                       [&](const QRegularExpression& word) { return word.match(folded).hasMatch(); });
}

std::vector<CHelpSearch::Place> CHelpSearch::PlacesIn(const QString& folded) const {
    std::vector<Place> places;
    for (const QRegularExpression& word : m_words)
        for (auto each = word.globalMatch(folded); each.hasNext();) {
            const QRegularExpressionMatch match = each.next();
            places.push_back({match.capturedStart(), match.capturedLength()});
        }
    return places;
}
