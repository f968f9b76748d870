#pragma once

#include "core/rules/MoveFilter.h"

#include <QDialog>

#include <memory>

namespace Ui {
class MoveFilterDlg;
}

/// "Filtr výdejů".
class CMoveFilterDlg : public QDialog {
    Q_OBJECT

public:
    CMoveFilterDlg(const MoveFilter& filter, QWidget* parent);
    ~CMoveFilterDlg() override;

    /// After OK.
    const MoveFilter& Filter() const { return m_filter; }
    void accept() override;

private:
    void EnableCriteria();

    std::unique_ptr<Ui::MoveFilterDlg> m_ui;
    MoveFilter m_filter;
};
