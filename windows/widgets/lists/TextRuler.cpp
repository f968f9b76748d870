#include "windows/widgets/lists/TextRuler.h"

namespace {
/// The letters of every European tongue; others are measured each time.
constexpr std::size_t KnownLetters = 0x250;
constexpr int NotMeasured = -1;
} // namespace

CTextRuler::CTextRuler(const QFont& font) : m_metrics(font), m_widths(KnownLetters, NotMeasured) {}

int CTextRuler::LetterWidth(QChar letter) const {
    if (letter.unicode() >= KnownLetters)
        return m_metrics.horizontalAdvance(letter);
    int& width = m_widths[letter.unicode()];
    if (width == NotMeasured)
        width = m_metrics.horizontalAdvance(letter);
    return width;
}

int CTextRuler::Width(const QString& text) const {
    int width = 0;
    for (const QChar letter : text)
        width += LetterWidth(letter);
    return width;
}
