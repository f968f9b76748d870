#pragma once

#include <QCache>
#include <QStaticText>
#include <QStyledItemDelegate>

/// Draws the cells of a list. Each text is shaped once, for measuring and for every painting after it; the toolkit's
/// own way shapes it four times a painting, and a list's columns hold the same few words again and again.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Pixels that the text takes in this font.
    int TextWidth(const QString& text, const QFont& font) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// The whole of a text that is cut, or the value without rounding.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    /// The selection of a list that has not its window's focus is pale, so that the list that the keys go to is told
    /// apart. The list draws the focus, of a whole row.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    const QStaticText& Shaped(const QString& text, const QFont& font) const;

    /// Many times what a screen shows.
    mutable QCache<QString, QStaticText> m_shaped{8192};
    mutable QFont m_font;
};
