#include "windows/frame/doors/ActiveWindow.h"

#include <QApplication>
#include <QMainWindow>

QWidget* ActiveWindow() {
    if (QWidget* const dialog = QApplication::activeModalWidget())
        return dialog;
    if (QWidget* const active = QApplication::activeWindow())
        return active;
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && qobject_cast<QMainWindow*>(widget) != nullptr)
            return widget;
    return nullptr;
}
