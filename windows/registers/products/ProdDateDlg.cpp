#include "windows/registers/products/ProdDateDlg.h"

#include "ui_ProdDateDlg.h"
#include "windows/widgets/HelpButton.h"

CProdDateDlg::CProdDateDlg(const DateTime& date, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ProdDateDlg>()) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->cancel, HelpContext::ValidityDate);
    m_ui->date->SetValue(date);
    m_ui->date->setFocus();
    connect(m_ui->ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
}

CProdDateDlg::~CProdDateDlg() = default;

DateTime CProdDateDlg::Date() const {
    return m_ui->date->Value();
}
