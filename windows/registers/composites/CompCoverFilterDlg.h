#pragma once

#include "core/rules/CompCoverFilter.h"

#include <QDialog>

#include <memory>

namespace Ui {
class CompCoverFilterDlg;
}

/// The filter of the composite covers, under the title of the issues' filter.
class CCompCoverFilterDlg : public QDialog {
    Q_OBJECT

public:
    CCompCoverFilterDlg(const CompCoverFilter& filter, QWidget* parent);
    ~CCompCoverFilterDlg() override;

    /// After OK.
    const CompCoverFilter& Filter() const { return m_filter; }
    void accept() override;

private:
    void EnableCriteria();

    std::unique_ptr<Ui::CompCoverFilterDlg> m_ui;
    CompCoverFilter m_filter;
};
