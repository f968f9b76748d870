#pragma once

#include "core/rules/records/IssueValues.h"

#include <QDialog>

#include <memory>

class CDataStore;
namespace Ui {
class MoveDlg;
}

/// "Výdej produktů a obalů": one issue document.
class CMoveDlg : public QDialog {
    Q_OBJECT

public:
    CMoveDlg(const CDataStore& store, QWidget* parent);
    ~CMoveDlg() override;

    /// Shown with the number selected.
    void SetValues(const IssueValues& values);
    /// After OK.
    IssueValues Values() const;

    void accept() override;

private:
    std::unique_ptr<Ui::MoveDlg> m_ui;
};
