#include "windows/report/ReportDlg.h"

#include "core/base/DateTime.h"
#include "core/base/Messages.h"
#include "core/base/SqlText.h"
#include "ui_ReportDlg.h"
#include "windows/widgets/HelpButton.h"

namespace {

struct CompanyField {
    QLineEdit* Ui::ReportDlg::*edit;
    QString CompanyData::*text;
    /// The characters that it has room for; 0 is as many as the dialog has.
    int length = 0;
};

constexpr int NumberLength = 20;
constexpr int TelephoneLength = 28;

constexpr CompanyField Fields[] = {
    {&Ui::ReportDlg::contactPersonEdit, &CompanyData::contactPerson},
    {&Ui::ReportDlg::taxNumberEdit, &CompanyData::taxNumber, NumberLength},
    {&Ui::ReportDlg::companyNumberEdit, &CompanyData::companyNumber, NumberLength},
    {&Ui::ReportDlg::faxEdit, &CompanyData::fax, TelephoneLength},
    {&Ui::ReportDlg::telephoneEdit, &CompanyData::telephone, TelephoneLength},
    {&Ui::ReportDlg::companyNameEdit, &CompanyData::name},
    {&Ui::ReportDlg::mailEdit, &CompanyData::mail},
    {&Ui::ReportDlg::officeEdit, &CompanyData::office},
    {&Ui::ReportDlg::schemeIdEdit, &CompanyData::schemeId, NumberLength},
    {&Ui::ReportDlg::invoiceMailEdit, &CompanyData::invoiceMail},
};

} // namespace

CReportDlg::CReportDlg(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::ReportDlg>()) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->cancelButton, HelpContext::Report);
    m_request.period = DefaultPeriod(DateTime::Today());
    m_request.company = ReadCompanyData();
    m_ui->quarterSpin->SetLimits(1, 4);
    m_ui->yearSpin->SetLimits(2000, 2012);
    m_ui->quarterSpin->setValue(m_request.period.quarter);
    m_ui->yearSpin->setValue(m_request.period.year);
    m_ui->regularRadio->setChecked(true);
    for (const CompanyField& field : Fields) {
        QLineEdit& edit = *(m_ui.get()->*field.edit);
        edit.setText(m_request.company.*field.text);
        if (field.length > 0)
            edit.setMaximumWidth(field.length * edit.fontMetrics().averageCharWidth());
    }
    connect(m_ui->okButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    m_ui->quarterSpin->setFocus();
    m_ui->quarterSpin->selectAll();
}

CReportDlg::~CReportDlg() = default;

bool CReportDlg::CheckRange(CNumberSpin& field) {
    field.interpretText();
    if (field.HoldsNumber() && field.value() >= field.Low() && field.value() <= field.High())
        return true;
    ShowWarning(field.HoldsNumber() ? MessageText("Zadejte celé číslo mezi %i a %i.", field.Low(), field.High())
                                    : QStringLiteral("Zadejte celé číslo."));
    field.setFocus();
    field.selectAll();
    return false;
}

void CReportDlg::accept() {
    if (!CheckRange(*m_ui->quarterSpin) || !CheckRange(*m_ui->yearSpin))
        return;
    m_request.period = {m_ui->yearSpin->value(), m_ui->quarterSpin->value()};
    m_request.regular = m_ui->regularRadio->isChecked();
    for (const CompanyField& field : Fields)
        m_request.company.*field.text = (m_ui.get()->*field.edit)->text();
    ShowSettingsError(WriteCompanyData(m_request.company));
    QDialog::accept();
}
