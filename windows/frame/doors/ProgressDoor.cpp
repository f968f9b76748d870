#include "windows/frame/doors/ProgressDoor.h"

#include "windows/frame/doors/ProgressDlg.h"

#include <QApplication>

std::unique_ptr<IProgress> CProgressDoor::Open(const QString& title, bool showCancel) {
    auto window = std::make_unique<CProgressDlg>(title, showCancel);
    QWidget* const dialog = QApplication::activeModalWidget();
    window->Create(dialog != nullptr ? dialog : &m_frame);
    m_window = window.get();
    return window;
}

void CProgressDoor::ShowNow() {
    if (m_window != nullptr)
        m_window->ShowNow();
}
