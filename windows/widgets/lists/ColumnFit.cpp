#include "windows/widgets/lists/ColumnFit.h"

void CColumnFit::Begin(int columns, const QFont& font) {
    m_widest.assign(static_cast<std::size_t>(columns), {});
    m_ruler = CTextRuler(font);
}

bool CColumnFit::Show(int column, const QString& text) {
    Width& widest = m_widest[static_cast<std::size_t>(column)];
    const int width = m_ruler.Width(text);
    if (width <= widest.width)
        return false;
    widest = {text, width};
    return true;
}
