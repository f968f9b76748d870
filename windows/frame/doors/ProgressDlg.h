#pragma once

#include "core/base/Progress.h"
#include "windows/widgets/DisabledWindow.h"

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <memory>
#include <optional>

namespace Ui {
class ProgressDlg;
}

/// The progress window of a long operation. While it exists, the window that it stands over takes no input; work that
/// is over soon shows nothing, so that nothing flickers.
class CProgressDlg : public QDialog, public IProgress {
    Q_OBJECT

public:
    /// Milliseconds of work before the window shows.
    static constexpr int ShowDelay = 200;

    CProgressDlg(const QString& title, bool showCancel);
    ~CProgressDlg() override;

    /// Disables the owner's top-level window, unless it is disabled already.
    void Create(QWidget* owner);
    /// Shows and paints the window without waiting, for an operation that is about to be silent for long.
    void ShowNow();

    void SetRange(int low, int high) override;
    void SetPhaseText(const QString& text) override;
    void SetDetailText(const QString& text) override;
    void SetPosition(int position) override;
    bool CancelRequested() override;

    /// The window stays open: the operation ends when it next asks.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void EnableOwner();
    void ShowUnlessAsking();

    std::unique_ptr<Ui::ProgressDlg> m_ui;
    QTimer m_showTimer;
    QPointer<QWidget> m_owner;
    bool m_showCancel;
    bool m_cancelRequested = false;
    std::optional<CDisabledWindow> m_disabledOwner;
};
