#pragma once

#include "windows/widgets/HelpDoor.h"

#include <QMainWindow>

class CHelpBrowser;
class CHelpContents;
class QSplitter;

/// The user's guide, in a window of its own that stays open beside the program's.
class CHelpWindow : public QMainWindow {
    Q_OBJECT

public:
    CHelpWindow();
    /// Also usable while a modal dialog is open, whichever of the two was opened first, and stays when that closes.
    void Open(HelpContext context);

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void CreateBar();
    void ShowPage(const QUrl& page);
    void StandOverModalDialog();

    CHelpContents* m_contents;
    CHelpBrowser* m_browser;
    QSplitter* m_splitter;
    QMetaObject::Connection m_dialogFinished;
};
