#include "windows/widgets/TypedEdit.h"

#include "windows/widgets/Refuse.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPushButton>
#include <QTimer>
#include <QToolTip>

namespace {

/// The desktop took the focus for a while; the user has not left the edit.
bool ComesBack(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
}

QColor FaultColor(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < 128 ? QColor(0xff, 0x8a, 0x80) : QColor(0xb0, 0x00, 0x20);
}

void ShowBubble(QWidget& edit) {
    // Whoever pressed a button is told by it, or does not want to know.
    if (edit.isVisible() && !edit.hasFocus() && qobject_cast<QPushButton*>(QApplication::focusWidget()) == nullptr)
        QToolTip::showText(edit.mapToGlobal(edit.rect().bottomLeft()), edit.toolTip(), &edit);
}

} // namespace

TypedEdit::TypedEdit(QWidget* parent) : QLineEdit(parent) {
    connect(this, &QLineEdit::textChanged, this, [this] { Mark({}); });
}

void TypedEdit::FocusAll() {
    setFocus();
    selectAll();
}

void TypedEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (ComesBack(event->reason()))
        return;
    // The click that brings the focus sets the caret only after this.
    m_clickSelects = event->reason() == Qt::MouseFocusReason;
    selectAll();
}

void TypedEdit::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (std::exchange(m_clickSelects, false) && !hasSelectedText())
        selectAll();
}

void TypedEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (ComesBack(event->reason()) || isReadOnly())
        return;
    const QString complaint = Complaint();
    if (complaint.isEmpty()) {
        if (text() != TidyText())
            setText(TidyText());
        return;
    }
    Mark(complaint);
    // Only now: the arrival of the focus elsewhere hides every bubble.
    QTimer::singleShot(0, this, [this] { ShowBubble(*this); });
}

void TypedEdit::Mark(const QString& complaint) {
    if (complaint == toolTip())
        return;
    setToolTip(complaint);
    setAccessibleDescription(complaint);
    QPalette colors;
    if (!complaint.isEmpty())
        colors.setColor(QPalette::Text, FaultColor(palette()));
    setPalette(colors);
}

bool CheckTyped(const QWidget& window) {
    for (QWidget* each = window.nextInFocusChain(); each != nullptr && each != &window;
         each = each->nextInFocusChain()) {
        auto* edit = qobject_cast<TypedEdit*>(each);
        if (edit == nullptr || !window.isAncestorOf(edit) || !edit->isEnabled())
            continue;
        const QString complaint = edit->Complaint();
        if (complaint.isEmpty())
            continue;
        Refuse(*edit, complaint);
        edit->selectAll();
        return false;
    }
    return true;
}
