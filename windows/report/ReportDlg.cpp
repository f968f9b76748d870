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
};

constexpr CompanyField Fields[] = {
    {&Ui::ReportDlg::contactPersonEdit, &CompanyData::contactPerson},
    {&Ui::ReportDlg::taxNumberEdit, &CompanyData::taxNumber},
    {&Ui::ReportDlg::companyNumberEdit, &CompanyData::companyNumber},
    {&Ui::ReportDlg::faxEdit, &CompanyData::fax},
    {&Ui::ReportDlg::telephoneEdit, &CompanyData::telephone},
    {&Ui::ReportDlg::companyNameEdit, &CompanyData::name},
    {&Ui::ReportDlg::mailEdit, &CompanyData::mail},
    {&Ui::ReportDlg::officeEdit, &CompanyData::office},
    {&Ui::ReportDlg::schemeIdEdit, &CompanyData::schemeId},
    {&Ui::ReportDlg::invoiceMailEdit, &CompanyData::invoiceMail},
};

} // namespace

CReportDlg::CReportDlg(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::ReportDlg>()) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->cancel, HelpContext::Report);
    m_request.period = DefaultPeriod(DateTime::Today());
    m_request.company = ReadCompanyData();
    m_ui->quarterSpin->SetLimits(1, 4);
    m_ui->yearSpin->SetLimits(FirstFormYear, LastFormYear);
    m_ui->quarterSpin->setValue(m_request.period.quarter);
    m_ui->yearSpin->setValue(m_request.period.year);
    m_ui->regularRadio->setChecked(true);
    for (const CompanyField& field : Fields)
        (m_ui.get()->*field.edit)->setText(m_request.company.*field.text);
    // The fields of both groups stand below each other.
    for (QGridLayout* const group : {m_ui->companyGroupGrid, m_ui->contactGroupGrid}) {
        group->setColumnMinimumWidth(0, m_ui->invoiceMailLabel->sizeHint().width());
        group->setColumnMinimumWidth(2, m_ui->faxLabel->sizeHint().width());
    }
    connect(m_ui->ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
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
