#include "windows/import/PageImpS3Param.h"

#include "ui_PageImpS3Param.h"
#include "windows/import/PageImport.h"
#include "windows/widgets/Refuse.h"

CPageImpS3Param::CPageImpS3Param(MoneyOptions& options)
    : m_ui(std::make_unique<Ui::PageImpS3Param>()), m_options(options) {
    m_ui->setupUi(this);
    BindImportOptions(
        {*m_ui->productsCheck, *m_ui->issuesCheck, {m_ui->overwriteRadio, m_ui->keepRadio, m_ui->askRadio}}, m_options);
    m_ui->exportCheck->setChecked(m_options.setExport);
    m_ui->domesticEdit->setText(m_options.domestic);
    connect(m_ui->exportCheck, &QCheckBox::toggled, this, [this](bool on) { m_options.setExport = on; });
    connect(m_ui->domesticEdit, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_options.domestic = text; });
    connect(m_ui->issuesCheck, &QCheckBox::clicked, this, &CPageImpS3Param::EnableControls);
    connect(m_ui->exportCheck, &QCheckBox::clicked, this, &CPageImpS3Param::EnableControls);
}

CPageImpS3Param::~CPageImpS3Param() = default;

void CPageImpS3Param::EnableControls() {
    m_ui->exportCheck->setEnabled(m_options.documents);
    m_ui->domesticEdit->setEnabled(m_options.documents && m_options.setExport);
}

void CPageImpS3Param::OnSetActive() {
    CWizardPage::OnSetActive();
    EnableControls();
    m_ui->productsCheck->setFocus();
}

bool CPageImpS3Param::OnWizardFinish() {
    return m_options.products || m_options.documents ||
           Refuse(*m_ui->productsCheck, "Není vybrán import produktů ani dokladů!");
}
