#pragma once

#include "core/base/Progress.h"

#include <QPointer>

class CProgressDlg;
class QWidget;

/// Opens progress windows over the dialog that is open, or else over the main window.
class CProgressDoor : public IProgressDoor {
public:
    explicit CProgressDoor(QWidget& frame) : m_frame(frame) {}
    std::unique_ptr<IProgress> Open(const QString& title, bool showCancel) override;
    /// Shows the window that is open without waiting.
    void ShowNow();

private:
    QWidget& m_frame;
    QPointer<CProgressDlg> m_window;
};
