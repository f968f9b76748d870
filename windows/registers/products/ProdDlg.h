#pragma once

#include <QDialog>

#include <memory>

class CRecordset;
namespace Ui {
class ProdDlg;
}

/// "Detail produktu".
class CProdDlg : public QDialog {
    Q_OBJECT

public:
    explicit CProdDlg(QWidget* parent);
    ~CProdDlg() override;

    /// Shown with the name selected. Raises ComError.
    void Read(const CRecordset& product);
    /// After OK. Raises ComError.
    void Write(CRecordset& product) const;

    void accept() override;

private:
    std::unique_ptr<Ui::ProdDlg> m_ui;
};
