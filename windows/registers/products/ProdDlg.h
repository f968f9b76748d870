#pragma once

#include "core/rules/records/ProductValues.h"

#include <QDialog>

#include <memory>

namespace Ui {
class ProdDlg;
}

/// "Detail produktu".
class CProdDlg : public QDialog {
    Q_OBJECT

public:
    explicit CProdDlg(QWidget* parent);
    ~CProdDlg() override;

    /// Shown with the name selected.
    void SetValues(const ProductValues& values);
    /// After OK.
    ProductValues Values() const;

    void accept() override;

private:
    std::unique_ptr<Ui::ProdDlg> m_ui;
};
