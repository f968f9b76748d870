#pragma once

#include <QDialog>

#include <memory>

class CDataStore;
class CRecordset;
namespace Ui {
class MoveDlg;
}

/// "Výdej produktů a obalů": one issue document. New ones start without a number and type, at this moment.
class CMoveDlg : public QDialog {
    Q_OBJECT

public:
    CMoveDlg(const CDataStore& store, QWidget* parent);
    ~CMoveDlg() override;

    /// Shown with the number selected; a date that is not valid becomes 1 January 1900. Raises ComError.
    void Read(const CRecordset& issue);
    /// After OK: number, type and date. Raises ComError.
    void Write(CRecordset& issue) const;
    /// The export flag, which only an edit stores. Raises ComError.
    void WriteExport(CRecordset& issue) const;

    void accept() override;

private:
    std::unique_ptr<Ui::MoveDlg> m_ui;
};
