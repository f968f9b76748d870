#include "windows/registers/products/ProdDateDlg.h"

#include "ui_ProdDateDlg.h"
#include "windows/widgets/HelpButton.h"

CProdDateDlg::CProdDateDlg(const DateTime& date, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ProdDateDlg>()) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->cancel, HelpContext::ValidityDate);
    m_ui->date->SetValue(date);
    m_ui->takePackaging->hide();
    m_ui->date->setFocus();
    connect(m_ui->ok, &QPushButton::clicked, this, &CProdDateDlg::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
}

CProdDateDlg::~CProdDateDlg() = default;

void CProdDateDlg::accept() {
    if (CheckTyped(*this))
        QDialog::accept();
}

DateTime CProdDateDlg::Date() const {
    return m_ui->date->Value();
}

void CProdDateDlg::OfferPackaging() {
    m_ui->takePackaging->show();
}

bool CProdDateDlg::TakesPackaging() const {
    return m_ui->takePackaging->isChecked();
}
