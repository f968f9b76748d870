#include "registers/PageQty.h"

#include "registers/CurrencyEdit.h"
#include "registers/Refuse.h"
#include "registers/RegisterTexts.h"
#include "ui_PageQty.h"

CPageQty::CPageQty() : m_ui(new Ui::PageQty) {
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
