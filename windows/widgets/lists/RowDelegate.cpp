#include "windows/widgets/lists/RowDelegate.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>

#include <cmath>

namespace {

QPalette::ColorGroup Group(const QStyleOptionViewItem& option) {
    if (!(option.state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}

} // namespace

const QStaticText& RowDelegate::Shaped(const QString& text, const QFont& font) const {
    if (font != m_font) {
        m_shaped.clear();
        m_font = font;
    }
    if (const QStaticText* known = m_shaped.object(text))
        return *known;
    auto* shaped = new QStaticText(text);
    shaped->setTextFormat(Qt::PlainText);
    QTextOption single;
    single.setWrapMode(QTextOption::NoWrap);
    shaped->setTextOption(single);
    shaped->prepare({}, font);
    m_shaped.insert(text, shaped);
    return *shaped;
}

int RowDelegate::TextWidth(const QString& text, const QFont& font) const {
    return text.isEmpty() ? 0 : static_cast<int>(std::ceil(Shaped(text, font).size().width()));
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QStyle& style = *cell.widget->style();
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
    const QRect room = cell.rect.adjusted(margin, 0, -margin, 0);
    // A text that has to be shortened, or has lines, is left to the toolkit.
    if (cell.text.contains(QChar::LineSeparator) || TextWidth(cell.text, cell.font) > room.width()) {
        style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
        return;
    }
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, cell.widget);
    if (!cell.text.isEmpty()) {
        const QStaticText& text = Shaped(cell.text, cell.font);
        const bool selected = cell.state & QStyle::State_Selected;
        painter->setPen(cell.palette.color(Group(cell), selected ? QPalette::HighlightedText : QPalette::Text));
        painter->setFont(cell.font);
        painter->drawStaticText(room.left(), room.top() + (room.height() - qRound(text.size().height())) / 2, text);
    }
    if (cell.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(cell);
        focus.rect = style.subElementRect(QStyle::SE_ItemViewItemFocusRect, &cell, cell.widget);
        focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
        focus.backgroundColor = cell.palette.color(
            Group(cell), cell.state & QStyle::State_Selected ? QPalette::Highlight : QPalette::Window);
        style.drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, cell.widget);
    }
}
