#include "windows/widgets/lists/RowDelegate.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <QWidget>

#include <cmath>

namespace {

QPalette::ColorGroup Group(const QStyleOptionViewItem& option) {
    if (!(option.state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}

/// Where the text of a cell stands.
QRect Room(const QStyleOptionViewItem& cell) {
    const int margin = cell.widget->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
    return cell.rect.adjusted(margin, 0, -margin, 0);
}

QColor Between(const QColor& a, const QColor& b, int percentOfA) {
    const auto mix = [=](int x, int y) { return (x * percentOfA + y * (100 - percentOfA)) / 100; };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

/// Of the highlight, in a selection without the focus.
constexpr int PalePercent = 30;

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
    const QRect room = Room(cell);
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
        const int left = cell.displayAlignment & Qt::AlignRight
                             ? room.right() + 1 - static_cast<int>(std::ceil(text.size().width()))
                             : room.left();
        painter->drawStaticText(left, room.top() + (room.height() - qRound(text.size().height())) / 2, text);
    }
}

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
    const QWidget* const list = option->widget;
    if (!(option->state & QStyle::State_Selected) || list == nullptr || list->window()->focusWidget() == list)
        return;
    const QPalette& usual = list->palette();
    const QColor pale = Between(usual.color(QPalette::Active, QPalette::Highlight),
                                usual.color(QPalette::Active, QPalette::Base), PalePercent);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        option->palette.setColor(group, QPalette::Highlight, pale);
        option->palette.setColor(group, QPalette::HighlightedText, usual.color(group, QPalette::Text));
    }
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView*, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return false;
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const bool cut = TextWidth(cell.text, cell.font) > Room(cell).width();
    const QString exact = index.data(Qt::ToolTipRole).toString();
    QToolTip::showText(event->globalPos(), cut && exact.isEmpty() ? cell.text : exact,
                       const_cast<QWidget*>(option.widget), option.rect);
    return true;
}
