#include "windows/registers/issues/PageQty.h"

#include "ui_PageQty.h"
#include "windows/widgets/Refuse.h"
#include "windows/widgets/RegisterTexts.h"
#include "windows/widgets/edits/CurrencyEdit.h"

CPageQty::CPageQty() : m_ui(std::make_unique<Ui::PageQty>()) {
    m_ui->setupUi(this);
    SetQuantity(Currency::FromWhole(1));
}

CPageQty::~CPageQty() = default;

void CPageQty::SetQuantity(Currency quantity) {
    m_ui->quantity->SetValue(quantity.IsValid() ? quantity : Currency::FromWhole(1));
}

Currency CPageQty::Quantity() const {
    return m_ui->quantity->Value();
}

void CPageQty::OnSetActive() {
    CWizardPage::OnSetActive();
    m_ui->quantity->FocusAll();
}

bool CPageQty::OnWizardFinish() {
    return Quantity().count > 0 || Refuse(*m_ui->quantity, Text::QuantityNotPositive);
}
