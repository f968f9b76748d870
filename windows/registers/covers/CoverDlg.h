#pragma once

#include "core/rules/records/CoverValues.h"

#include <QDialog>

#include <memory>

class CDataStore;
namespace Ui {
class CoverDlg;
}

/// "Detail obalu".
class CCoverDlg : public QDialog {
    Q_OBJECT

public:
    CCoverDlg(const CDataStore& store, QWidget* parent);
    ~CCoverDlg() override;

    /// Shown with the name selected.
    void SetValues(const CoverValues& values);
    /// After OK.
    const CoverValues& Values() const { return m_values; }

    void accept() override;

private:
    void FillLists(const CDataStore& store);
    void OnMaterialChosen();
    void OnStatChosen();
    bool TakeValues();

    std::unique_ptr<Ui::CoverDlg> m_ui;
    CoverValues m_values;
};
