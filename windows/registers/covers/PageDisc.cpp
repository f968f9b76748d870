#include "windows/registers/covers/PageDisc.h"

#include "core/rules/PackagingRule.h"
#include "core/store/DataStore.h"
#include "ui_PageDisc.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/RegisterTexts.h"
#include "windows/widgets/edits/CurrencyEdit.h"

namespace {
constexpr int Recycled = 2;
}

CPageDisc::CPageDisc(CDataStore& store, std::int32_t coverId)
    : m_store(store), m_ui(std::make_unique<Ui::PageDisc>()), m_coverId(coverId) {
    m_ui->setupUi(this);
    m_link = new WeightLink(*m_ui->quantity, *m_ui->weight, this);
    m_ui->date->SetValue(DateTime::Today());
    m_ui->quantity->SetValue(Currency());
    m_ui->way2->setChecked(true);
}

CPageDisc::~CPageDisc() = default;

void CPageDisc::Read(const CRecordset& discard) {
    m_coverId = discard.Long("cover_id");
    m_ui->date->SetValue(ToDate(discard.get_Collect("disc_date")));
    m_ui->quantity->SetValue(Currency::FromCount(ToCurrency(discard.get_Collect("disc_qty")).count));
    QRadioButton* const ways[] = {m_ui->way0, m_ui->way1, m_ui->way2};
    const std::int32_t way = discard.Code("disc_type");
    ways[way >= 0 && way <= Recycled ? way : Recycled]->setChecked(true);
}

void CPageDisc::Write(CRecordset& discard) const {
    discard.put_Collect("disc_date", m_ui->date->Value().StartOfDay());
    discard.put_Collect("disc_type", m_ui->way0->isChecked() ? 0 : m_ui->way1->isChecked() ? 1 : Recycled);
    discard.put_Collect("disc_qty", m_ui->quantity->Value());
}

void CPageDisc::OnSetActive() {
    CWizardPage::OnSetActive();
    Currency pieceWeight;
    Guarded([&] { pieceWeight = PieceWeight(m_store, m_coverId); });
    m_link->SetPieceWeight(pieceWeight);
    m_ui->quantity->FocusAll();
}

bool CPageDisc::OnWizardFinish() {
    if (!m_link->Check())
        return false;
    if (m_ui->quantity->Value().count > 0)
        return true;
    ShowWarning(QString::fromUtf8(Text::QuantityNotPositive));
    m_ui->quantity->setFocus();
    return false;
}
