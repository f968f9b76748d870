#pragma once

#include "core/report/ReportRequest.h"

#include <QDialog>

#include <memory>

class CNumberSpin;
namespace Ui {
class ReportDlg;
}

/// Asks for the report's period and for what it says about the company. It proposes the last quarter and the company's
/// data of the last time.
class CReportDlg : public QDialog {
    Q_OBJECT

public:
    explicit CReportDlg(QWidget* parent);
    ~CReportDlg() override;

    /// What was accepted.
    const ReportRequest& Request() const { return m_request; }
    /// Checks the period and keeps the company's data in the settings file.
    void accept() override;

private:
    bool CheckRange(CNumberSpin& field);

    std::unique_ptr<Ui::ReportDlg> m_ui;
    ReportRequest m_request;
};
