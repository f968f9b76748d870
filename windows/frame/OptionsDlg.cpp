#include "windows/frame/OptionsDlg.h"

#include "core/base/ListDecimals.h"
#include "core/base/Messages.h"
#include "core/rules/Propagation.h"
#include "ui_OptionsDlg.h"
#include "windows/widgets/HelpButton.h"

COptionsDlg::COptionsDlg(PropagationOptions& options, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::OptionsDlg>()), m_options(options) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->cancel, HelpContext::Options);
    setWindowTitle(QStringLiteral("Možnosti "));
    m_ui->coversToCompositesCheck->setChecked(options.coversToComposites != 0);
    m_ui->coversToPackagingCheck->setChecked(options.coversToPackaging != 0);
    m_ui->coversToIssuesCheck->setChecked(options.coversToIssues != 0);
    m_ui->packagingToIssuesCheck->setChecked(options.packagingToIssues != 0);
    m_ui->fourDecimalsCheck->setChecked(FourDecimalsInLists());
    connect(m_ui->ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
}

COptionsDlg::~COptionsDlg() = default;

void COptionsDlg::accept() {
    m_options.coversToComposites = m_ui->coversToCompositesCheck->isChecked();
    m_options.coversToPackaging = m_ui->coversToPackagingCheck->isChecked();
    m_options.coversToIssues = m_ui->coversToIssuesCheck->isChecked();
    m_options.packagingToIssues = m_ui->packagingToIssuesCheck->isChecked();
    ShowSettingsError(KeepListDecimals(m_ui->fourDecimalsCheck->isChecked()));
    QDialog::accept();
}
