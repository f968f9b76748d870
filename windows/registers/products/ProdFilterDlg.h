#pragma once

#include "core/rules/ProdFilter.h"

#include <QDialog>

#include <memory>

namespace Ui {
class ProdFilterDlg;
}

/// "Filtr produktů".
class CProdFilterDlg : public QDialog {
    Q_OBJECT

public:
    CProdFilterDlg(const ProdFilter& filter, QWidget* parent);
    ~CProdFilterDlg() override;

    /// After OK.
    const ProdFilter& Filter() const { return m_filter; }
    void accept() override;

private:
    void EnableCriteria();

    std::unique_ptr<Ui::ProdFilterDlg> m_ui;
    ProdFilter m_filter;
};
