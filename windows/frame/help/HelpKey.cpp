#include "windows/frame/help/HelpKey.h"

#include "windows/frame/help/HelpPages.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

CHelpKey::CHelpKey(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool CHelpKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1)
        return false;
    const auto* const widget = qobject_cast<QWidget*>(watched);
    const auto context = widget == nullptr ? std::nullopt : HelpContextOf(*widget);
    if (!context)
        return false;
    OpenHelp(*context);
    return true;
}
