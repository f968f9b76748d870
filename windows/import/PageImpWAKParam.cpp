#include "windows/import/PageImpWAKParam.h"

#include "ui_PageImpWAKParam.h"
#include "windows/import/PageImport.h"
#include "windows/widgets/Refuse.h"

CPageImpWAKParam::CPageImpWAKParam(WakOptions& options)
    : m_ui(std::make_unique<Ui::PageImpWAKParam>()), m_options(options),
      m_range(WakDateRange::PreviousQuarter(DateTime::Today())) {
    m_ui->setupUi(this);
    BindImportOptions(
        {*m_ui->productsCheck, *m_ui->issuesCheck, {m_ui->overwriteRadio, m_ui->keepRadio, m_ui->askRadio}}, m_options);
    m_ui->fromDate->SetValue(m_range.from);
    m_ui->toDate->SetValue(m_range.to);
    connect(m_ui->issuesCheck, &QCheckBox::clicked, this, &CPageImpWAKParam::EnableDates);
}

CPageImpWAKParam::~CPageImpWAKParam() = default;

void CPageImpWAKParam::EnableDates() {
    m_ui->fromDate->setEnabled(m_options.documents);
    m_ui->toDate->setEnabled(m_options.documents);
}

void CPageImpWAKParam::OnSetActive() {
    CWizardPage::OnSetActive();
    EnableDates();
    m_ui->productsCheck->setFocus();
}

bool CPageImpWAKParam::OnWizardFinish() {
    m_range = {m_ui->fromDate->Value(), m_ui->toDate->Value()};
    const std::optional<QString> complaint = CheckWakParameters(m_options, m_range);
    if (!complaint)
        return true;
    QWidget* const fault = m_options.documents ? static_cast<QWidget*>(m_ui->fromDate) : m_ui->productsCheck;
    return Refuse(*fault, *complaint);
}
