#include "windows/registers/covers/PageDisc.h"

#include "core/rules/records/PackagingRule.h"
#include "core/store/DataStore.h"
#include "ui_PageDisc.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/RegisterTexts.h"
#include "windows/widgets/edits/CurrencyEdit.h"

CPageDisc::CPageDisc(CDataStore& store) : m_store(store), m_ui(std::make_unique<Ui::PageDisc>()) {
    m_ui->setupUi(this);
    m_link = new WeightLink(*m_ui->quantity, *m_ui->weight, this);
}

CPageDisc::~CPageDisc() = default;

void CPageDisc::SetValues(const DiscardValues& values) {
    m_values = values;
    m_ui->date->SetValue(values.date);
    m_ui->quantity->SetValue(values.quantity);
    QRadioButton* const ways[DiscardValues::Ways] = {m_ui->way0, m_ui->way1, m_ui->way2};
    ways[values.way]->setChecked(true);
}

void CPageDisc::OnSetActive() {
    CWizardPage::OnSetActive();
    Currency pieceWeight;
    Guarded([&] { pieceWeight = PieceWeight(m_store, m_values.coverId); });
    m_link->SetPieceWeight(pieceWeight);
    m_ui->quantity->FocusAll();
}

bool CPageDisc::OnWizardFinish() {
    if (!m_link->Check())
        return false;
    m_values.date = m_ui->date->Value();
    m_values.way = m_ui->way0->isChecked() ? 0 : m_ui->way1->isChecked() ? 1 : DiscardValues::Recycled;
    m_values.quantity = m_ui->quantity->Value();
    if (m_values.quantity.count > 0)
        return true;
    ShowWarning(QString::fromUtf8(Text::QuantityNotPositive));
    m_ui->quantity->setFocus();
    return false;
}
