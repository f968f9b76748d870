#include "windows/registers/covers/CoverFilterDlg.h"

#include "ui_CoverFilterDlg.h"
#include "windows/registers/packaging/TermsLists.h"
#include "windows/widgets/HelpButton.h"
#include "windows/widgets/Refuse.h"

CCoverFilterDlg::CCoverFilterDlg(const CDataStore& store, const CoverFilter& filter, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CoverFilterDlg>()), m_filter(filter) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->cancel, HelpContext::CoverFilter);
    FillCodes(*m_ui->material, store.Codes(CodeList::CoverMaterial));
    FillTerms(*m_ui, store);
    ShowFilter();
    EnableCriteria();
    for (QCheckBox* check :
         {m_ui->byName, m_ui->byWeight, m_ui->byMaterial, m_ui->byType, m_ui->byOrigin, m_ui->byPayment, m_ui->byUsage})
        connect(check, &QCheckBox::clicked, this, &CCoverFilterDlg::EnableCriteria);
    connect(m_ui->ok, &QPushButton::clicked, this, &CCoverFilterDlg::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
}

CCoverFilterDlg::~CCoverFilterDlg() = default;

void CCoverFilterDlg::ShowFilter() {
    m_ui->byName->setChecked(m_filter.byName);
    m_ui->byWeight->setChecked(m_filter.byWeight);
    m_ui->byMaterial->setChecked(m_filter.byMaterial);
    m_ui->byType->setChecked(m_filter.byType);
    m_ui->byOrigin->setChecked(m_filter.byOrigin);
    m_ui->byPayment->setChecked(m_filter.byPayment);
    m_ui->byUsage->setChecked(m_filter.byUsage);
    m_ui->name->setText(m_filter.name);
    m_ui->namePart->setChecked(m_filter.namePart);
    m_ui->weightFrom->SetValue(m_filter.weightFrom);
    m_ui->weightTo->SetValue(m_filter.weightTo);
    SelectCode(*m_ui->material, m_filter.material);
    ShowTerms(*m_ui, m_filter.terms);
    m_ui->reusable->setChecked(m_filter.reusable);
}

void CCoverFilterDlg::TakeFilter() {
    m_filter.byName = m_ui->byName->isChecked();
    m_filter.byWeight = m_ui->byWeight->isChecked();
    m_filter.byMaterial = m_ui->byMaterial->isChecked();
    m_filter.byType = m_ui->byType->isChecked();
    m_filter.byOrigin = m_ui->byOrigin->isChecked();
    m_filter.byPayment = m_ui->byPayment->isChecked();
    m_filter.byUsage = m_ui->byUsage->isChecked();
    m_filter.name = m_ui->name->text();
    m_filter.namePart = m_ui->namePart->isChecked();
    m_filter.weightFrom = m_ui->weightFrom->Value();
    m_filter.weightTo = m_ui->weightTo->Value();
    m_filter.material = ChosenCode(*m_ui->material);
    m_filter.terms = ChosenTerms(*m_ui);
    m_filter.reusable = m_ui->reusable->isChecked();
}

void CCoverFilterDlg::EnableCriteria() {
    m_ui->name->setEnabled(m_ui->byName->isChecked());
    m_ui->namePart->setEnabled(m_ui->byName->isChecked());
    m_ui->weightFrom->setEnabled(m_ui->byWeight->isChecked());
    m_ui->weightTo->setEnabled(m_ui->byWeight->isChecked());
    m_ui->material->setEnabled(m_ui->byMaterial->isChecked());
    m_ui->type->setEnabled(m_ui->byType->isChecked());
    m_ui->origin->setEnabled(m_ui->byOrigin->isChecked());
    m_ui->payment->setEnabled(m_ui->byPayment->isChecked());
    m_ui->reusable->setEnabled(m_ui->byUsage->isChecked());
}

void CCoverFilterDlg::accept() {
    if (!CheckTyped(*this))
        return;
    TakeFilter();
    if (m_filter.byWeight && m_filter.weightFrom.count > m_filter.weightTo.count) {
        ShowWarning(QStringLiteral("Hmotnost \"Od\" nesmí být větší než hodnota \"do\""));
        m_ui->weightFrom->FocusAll();
        return;
    }
    const struct {
        bool isOn;
        QComboBox* combo;
        const char* missing;
    } choices[] = {
        {m_filter.byMaterial, m_ui->material, "Není vybrán materiál"},
        {m_filter.byType, m_ui->type, "Není vybrán typ"},
        {m_filter.byOrigin, m_ui->origin, "Není vybrán původ"},
        {m_filter.byPayment, m_ui->payment, "Není vybrána platba"},
    };
    for (const auto& choice : choices) {
        if (choice.isOn && ChosenCode(*choice.combo) < 0) {
            Refuse(*choice.combo, choice.missing);
            return;
        }
    }
    QDialog::accept();
}
