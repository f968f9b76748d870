#pragma once

#include "windows/widgets/lists/TextRuler.h"

#include <QString>

#include <vector>

/// The widest text of each column, among those shown to it so far.
class CColumnFit {
public:
    /// Forgets all texts.
    void Begin(int columns, const QFont& font);
    /// True when the text is wider than all before it.
    bool Show(int column, const QString& text);
    const QString& Widest(int column) const { return m_widest[static_cast<std::size_t>(column)].text; }

private:
    struct Width {
        QString text;
        int width = 0;
    };
    std::vector<Width> m_widest;
    CTextRuler m_ruler{QFont()};
};
