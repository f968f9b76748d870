#include "windows/frame/doors/MessageBoxDoor.h"

#include "windows/frame/doors/ActiveWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>

namespace {

QMessageBox::Icon BoxIcon(Message::Icon icon) {
    switch (icon) {
    case Message::Icon::Error:
        return QMessageBox::Critical;
    case Message::Icon::Question:
        return QMessageBox::Question;
    case Message::Icon::Warning:
        return QMessageBox::Warning;
    case Message::Icon::Information:
        return QMessageBox::Information;
    case Message::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// The arrow while it lives, also where a wait cursor is shown.
class OwnCursor {
public:
    OwnCursor() {
        if (m_waiting)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~OwnCursor() {
        if (m_waiting)
            QGuiApplication::restoreOverrideCursor();
    }
    OwnCursor(const OwnCursor&) = delete;
    OwnCursor& operator=(const OwnCursor&) = delete;

private:
    const bool m_waiting = QGuiApplication::overrideCursor() != nullptr;
};

} // namespace

Message::Answer CMessageBoxDoor::Show(const Message& message) {
    const bool isQuestion = message.buttons == Message::Buttons::YesNo;
    QMessageBox box(ActiveWindow());
    box.setObjectName(QStringLiteral("messageBox"));
    box.setWindowTitle(QStringLiteral("Kuvel"));
    box.setIcon(BoxIcon(message.icon));
    // A path in the text must not be taken for markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(message.text);
    box.setInformativeText(message.detail);
    if (isQuestion) {
        box.addButton(QMessageBox::Yes)->setObjectName(QStringLiteral("yesButton"));
        box.addButton(QMessageBox::No)->setObjectName(QStringLiteral("noButton"));
        box.setDefaultButton(message.preset == Message::Answer::No ? QMessageBox::No : QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::No);
    } else {
        box.addButton(QMessageBox::Ok)->setObjectName(QStringLiteral("ok"));
    }
    // As the buttons of every other dialog.
    for (QAbstractButton* const button : box.buttons())
        button->setIcon(QIcon());
    const OwnCursor cursor;
    const QShortcut copy(QKeySequence::Copy, &box, [&] {
        QGuiApplication::clipboard()->setText(message.detail.isEmpty() ? message.text
                                                                       : message.text + u'\n' + message.detail);
    });
    const int answer = box.exec();
    if (!isQuestion)
        return Message::Answer::Ok;
    return answer == QMessageBox::Yes ? Message::Answer::Yes : Message::Answer::No;
}
