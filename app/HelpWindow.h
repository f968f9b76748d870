#pragma once

#include "registers/HelpDoor.h"

#include <QMainWindow>

class QTextBrowser;

/// The user's guide, in a window of its own that stays open beside the program's.
class CHelpWindow : public QMainWindow {
    Q_OBJECT

public:
    CHelpWindow();
    /// Also usable while a modal dialog is open, and stays when that closes.
    void Open(HelpContext context);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void StandOver(QWidget* dialog);

    QTextBrowser* m_browser;
};
