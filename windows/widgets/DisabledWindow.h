#pragma once

#include <QPointer>

#include <vector>

class QWidget;

/// A top-level window, with the windows over it, that takes no input while this lives; the focus comes back after it.
class CDisabledWindow {
public:
    explicit CDisabledWindow(QWidget& window);
    ~CDisabledWindow();
    CDisabledWindow(const CDisabledWindow&) = delete;
    CDisabledWindow& operator=(const CDisabledWindow&) = delete;

private:
    QPointer<QWidget> m_window;
    std::vector<QPointer<QWidget>> m_focus;
};
