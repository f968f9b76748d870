#pragma once

#include "core/base/DateTime.h"

#include <QDialog>

#include <memory>

namespace Ui {
class ProdDateDlg;
}

/// "Definice časové platnosti": the date from which a definition is valid. Choosing another day keeps the time of day.
class CProdDateDlg : public QDialog {
    Q_OBJECT

public:
    CProdDateDlg(const DateTime& date, QWidget* parent);
    ~CProdDateDlg() override;

    DateTime Date() const;
    void accept() override;
    /// Offers to begin with the packaging of the definition before.
    void OfferPackaging();
    bool TakesPackaging() const;

private:
    std::unique_ptr<Ui::ProdDateDlg> m_ui;
};
