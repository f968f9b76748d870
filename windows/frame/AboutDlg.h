#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class AboutDlg;
}

/// What the program is and whom to write to; its links open in the desktop's own mail program and browser.
class CAboutDlg : public QDialog {
    Q_OBJECT

public:
    explicit CAboutDlg(QWidget* parent);
    ~CAboutDlg() override;

private:
    void SendMail();

    std::unique_ptr<Ui::AboutDlg> m_ui;
};
