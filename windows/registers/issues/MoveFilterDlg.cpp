#include "windows/registers/issues/MoveFilterDlg.h"

#include "ui_MoveFilterDlg.h"
#include "windows/widgets/HelpButton.h"
#include "windows/widgets/Refuse.h"

CMoveFilterDlg::CMoveFilterDlg(const MoveFilter& filter, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::MoveFilterDlg>()), m_filter(filter) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->cancel, HelpContext::IssueFilter);
    m_ui->byNum->setChecked(m_filter.byNum);
    m_ui->num->setText(m_filter.num);
    m_ui->numPart->setChecked(m_filter.numPart);
    m_ui->byDate->setChecked(m_filter.byDate);
    m_ui->dateFrom->SetValue(m_filter.dateFrom);
    m_ui->dateTo->SetValue(m_filter.dateTo);
    m_ui->byExport->setChecked(m_filter.byExport);
    m_ui->exported->setChecked(m_filter.exported);
    EnableCriteria();
    for (QCheckBox* check : {m_ui->byNum, m_ui->byDate, m_ui->byExport})
        connect(check, &QCheckBox::clicked, this, &CMoveFilterDlg::EnableCriteria);
    connect(m_ui->ok, &QPushButton::clicked, this, &CMoveFilterDlg::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
}

CMoveFilterDlg::~CMoveFilterDlg() = default;

void CMoveFilterDlg::EnableCriteria() {
    m_ui->num->setEnabled(m_ui->byNum->isChecked());
    m_ui->numPart->setEnabled(m_ui->byNum->isChecked());
    m_ui->dateFrom->setEnabled(m_ui->byDate->isChecked());
    m_ui->dateTo->setEnabled(m_ui->byDate->isChecked());
    m_ui->exported->setEnabled(m_ui->byExport->isChecked());
}

void CMoveFilterDlg::accept() {
    if (!CheckTyped(*this))
        return;
    MoveFilter filter;
    filter.byNum = m_ui->byNum->isChecked();
    filter.num = m_ui->num->text();
    filter.numPart = m_ui->numPart->isChecked();
    filter.byDate = m_ui->byDate->isChecked();
    filter.dateFrom = m_ui->dateFrom->Value();
    filter.dateTo = m_ui->dateTo->Value();
    filter.byExport = m_ui->byExport->isChecked();
    filter.exported = m_ui->exported->isChecked();
    if (filter.byDate && filter.dateTo.StartOfDay() < filter.dateFrom.StartOfDay()) {
        Refuse(*m_ui->dateFrom, "Datum \"Od\" nesmí být větší než datum \"do\"");
        return;
    }
    m_filter = filter;
    QDialog::accept();
}
