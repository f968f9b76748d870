#pragma once

#include "core/rules/CoverFilter.h"

#include <QDialog>

#include <memory>

class CDataStore;
namespace Ui {
class CoverFilterDlg;
}

/// "Filtr obalů".
class CCoverFilterDlg : public QDialog {
    Q_OBJECT

public:
    CCoverFilterDlg(const CDataStore& store, const CoverFilter& filter, QWidget* parent);
    ~CCoverFilterDlg() override;

    /// After OK.
    const CoverFilter& Filter() const { return m_filter; }
    void accept() override;

private:
    void ShowFilter();
    void TakeFilter();
    void EnableCriteria();

    std::unique_ptr<Ui::CoverFilterDlg> m_ui;
    CoverFilter m_filter;
};
