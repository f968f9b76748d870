#include "windows/registers/composites/CompCoverFilterDlg.h"

#include "ui_CompCoverFilterDlg.h"
#include "windows/widgets/HelpButton.h"

CCompCoverFilterDlg::CCompCoverFilterDlg(const CompCoverFilter& filter, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CompCoverFilterDlg>()), m_filter(filter) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->cancel, HelpContext::CompositeFilter);
    m_ui->byName->setChecked(filter.byName);
    m_ui->name->setText(filter.name);
    m_ui->namePart->setChecked(filter.namePart);
    m_ui->byNote->setChecked(filter.byNote);
    m_ui->note->setText(filter.note);
    m_ui->notePart->setChecked(filter.notePart);
    EnableCriteria();
    connect(m_ui->byName, &QCheckBox::clicked, this, &CCompCoverFilterDlg::EnableCriteria);
    connect(m_ui->byNote, &QCheckBox::clicked, this, &CCompCoverFilterDlg::EnableCriteria);
    connect(m_ui->ok, &QPushButton::clicked, this, &CCompCoverFilterDlg::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
}

CCompCoverFilterDlg::~CCompCoverFilterDlg() = default;

void CCompCoverFilterDlg::EnableCriteria() {
    m_ui->name->setEnabled(m_ui->byName->isChecked());
    m_ui->namePart->setEnabled(m_ui->byName->isChecked());
    m_ui->note->setEnabled(m_ui->byNote->isChecked());
    m_ui->notePart->setEnabled(m_ui->byNote->isChecked());
}

void CCompCoverFilterDlg::accept() {
    m_filter.byName = m_ui->byName->isChecked();
    m_filter.name = m_ui->name->text();
    m_filter.namePart = m_ui->namePart->isChecked();
    m_filter.byNote = m_ui->byNote->isChecked();
    m_filter.note = m_ui->note->text();
    m_filter.notePart = m_ui->notePart->isChecked();
    QDialog::accept();
}
