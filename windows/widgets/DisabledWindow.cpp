#include "windows/widgets/DisabledWindow.h"

#include <QWidget>

CDisabledWindow::CDisabledWindow(QWidget& window) : m_window(&window) {
    QList<QWidget*> windows = window.findChildren<QWidget*>();
    windows.prepend(&window);
    for (const QWidget* each : windows)
        if (each->isWindow() && each->focusWidget() != nullptr)
            m_focus.emplace_back(each->focusWidget());
    window.setEnabled(false);
}

CDisabledWindow::~CDisabledWindow() {
    if (m_window == nullptr)
        return;
    m_window->setEnabled(true);
    for (const QPointer<QWidget>& widget : m_focus)
        if (widget != nullptr)
            widget->setFocus();
}
