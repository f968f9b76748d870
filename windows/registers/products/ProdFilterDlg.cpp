#include "windows/registers/products/ProdFilterDlg.h"

#include "ui_ProdFilterDlg.h"
#include "windows/widgets/HelpButton.h"
#include "windows/widgets/Refuse.h"
#include "windows/widgets/edits/CodeCombo.h"

CProdFilterDlg::CProdFilterDlg(const ProdFilter& filter, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ProdFilterDlg>()), m_filter(filter) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->cancel, HelpContext::ProductFilter);
    m_ui->criterion->addItem(QStringLiteral("všechny produkty"), int{ProdFilter::All});
    m_ui->criterion->addItem(QStringLiteral("jen produkty s definovanými kuvel"), int{ProdFilter::With});
    m_ui->criterion->addItem(QStringLiteral("jen produkty bez obalů"), int{ProdFilter::Without});
    TypingSelects(*m_ui->criterion);
    SelectCode(*m_ui->criterion, m_filter.coverCriterion);
    m_ui->byName->setChecked(m_filter.byName);
    m_ui->name->setText(m_filter.name);
    m_ui->namePart->setChecked(m_filter.namePart);
    m_ui->byKatalog->setChecked(m_filter.byKatalog);
    m_ui->katalog->setText(m_filter.katalog);
    m_ui->katalogPart->setChecked(m_filter.katalogPart);
    m_ui->byUnit->setChecked(m_filter.byUnit);
    m_ui->unit->setText(m_filter.unit);
    EnableCriteria();
    for (QCheckBox* check : {m_ui->byName, m_ui->byKatalog, m_ui->byUnit})
        connect(check, &QCheckBox::clicked, this, &CProdFilterDlg::EnableCriteria);
    connect(m_ui->ok, &QPushButton::clicked, this, &CProdFilterDlg::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
}

CProdFilterDlg::~CProdFilterDlg() = default;

void CProdFilterDlg::EnableCriteria() {
    m_ui->name->setEnabled(m_ui->byName->isChecked());
    m_ui->namePart->setEnabled(m_ui->byName->isChecked());
    m_ui->katalog->setEnabled(m_ui->byKatalog->isChecked());
    m_ui->katalogPart->setEnabled(m_ui->byKatalog->isChecked());
    m_ui->unit->setEnabled(m_ui->byUnit->isChecked());
}

void CProdFilterDlg::accept() {
    const std::int32_t criterion = ChosenCode(*m_ui->criterion);
    if (criterion < 0) {
        Refuse(*m_ui->criterion, "Není vybráno kriterium balení!");
        return;
    }
    m_filter.byName = m_ui->byName->isChecked();
    m_filter.name = m_ui->name->text();
    m_filter.namePart = m_ui->namePart->isChecked();
    m_filter.byKatalog = m_ui->byKatalog->isChecked();
    m_filter.katalog = m_ui->katalog->text();
    m_filter.katalogPart = m_ui->katalogPart->isChecked();
    m_filter.byUnit = m_ui->byUnit->isChecked();
    m_filter.unit = m_ui->unit->text();
    m_filter.coverCriterion = criterion;
    QDialog::accept();
}
