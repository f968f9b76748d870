#include "windows/registers/packaging/PageCoverProd.h"

#include "ui_PageCoverProd.h"
#include "windows/registers/packaging/PageCover.h"
#include "windows/registers/packaging/TermsLists.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/Refuse.h"
#include "windows/widgets/edits/CurrencyEdit.h"

namespace {
Currency ValidOr(Currency value, Currency other) {
    return value.IsValid() ? value : other;
}
} // namespace

CPageCoverProd::CPageCoverProd(CDataStore& store) : m_store(store), m_ui(std::make_unique<Ui::PageCoverProd>()) {
    m_ui->setupUi(this);
    FillTerms(*m_ui, store);
    m_link = new WeightLink(*m_ui->covers, *m_ui->weight, this);
    connect(m_ui->useAlways, &QRadioButton::clicked, this, &CPageCoverProd::EnableRange);
    connect(m_ui->useRange, &QRadioButton::clicked, this, &CPageCoverProd::EnableRange);
    SetRule({});
}

CPageCoverProd::~CPageCoverProd() = default;

void CPageCoverProd::SetRule(const PackagingRule& rule) {
    const PackagingRule defaults;
    m_rule = rule;
    m_ui->covers->SetValue(ValidOr(rule.covers, defaults.covers));
    m_ui->products->Edit().SetValue(ValidOr(rule.products, defaults.products));
    m_ui->useFrom->SetValue(ValidOr(rule.useFrom, defaults.useFrom));
    m_ui->useTo->SetValue(ValidOr(rule.useTo, defaults.useTo));
    (rule.useAlways ? m_ui->useAlways : m_ui->useRange)->setChecked(true);
    EnableRange();
}

void CPageCoverProd::SetCover(const CoverChoice& cover) {
    m_rule.coverId = cover.id;
    m_rule.terms = cover.terms;
}

void CPageCoverProd::EnableRange() {
    m_ui->useFrom->setEnabled(m_ui->useRange->isChecked());
    m_ui->useTo->setEnabled(m_ui->useRange->isChecked());
}

void CPageCoverProd::OnSetActive() {
    CWizardPage::OnSetActive();
    ShowTerms(*m_ui, m_rule.terms);
    Currency pieceWeight;
    Guarded([&] { pieceWeight = PieceWeight(m_store, m_rule.coverId); });
    m_link->SetPieceWeight(pieceWeight);
    m_ui->covers->FocusAll();
}

bool CPageCoverProd::OnWizardFinish() {
    if (!m_link->Check())
        return false;
    if (m_ui->covers->Value().count <= 0)
        return Refuse(*m_ui->covers, "Množství obalu musí být větší než 0");
    if (m_ui->products->Edit().Value().count <= 0)
        return Refuse(*m_ui->products, "Počet balených produktů musí být větší než 0");
    if (ChosenCode(*m_ui->type) < 0)
        return Refuse(*m_ui->type, "Není vybrán typ");
    if (ChosenCode(*m_ui->origin) < 0)
        return Refuse(*m_ui->origin, "Není vybrán původ");
    if (ChosenCode(*m_ui->payment) < 0)
        return Refuse(*m_ui->payment, "Není vybrána platba");
    m_rule.covers = m_ui->covers->Value();
    m_rule.products = m_ui->products->Edit().Value();
    m_rule.useAlways = m_ui->useAlways->isChecked();
    m_rule.useFrom = m_ui->useFrom->Value();
    m_rule.useTo = m_ui->useTo->Value();
    m_rule.terms = ChosenTerms(*m_ui);
    return true;
}
