#include "windows/registers/packaging/PageCoverMove.h"

#include "core/base/SqlText.h"
#include "core/store/DataStore.h"
#include "ui_PageCoverMove.h"
#include "windows/registers/packaging/PageCover.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/Refuse.h"
#include "windows/widgets/edits/CodeCombo.h"
#include "windows/widgets/edits/CurrencyEdit.h"

namespace {

/// What is shown but cannot be changed has the colour of other texts.
void MakeReadable(QWidget& disabled) {
    QPalette palette = disabled.palette();
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Active, role));
    disabled.setPalette(palette);
}

} // namespace

CPageCoverMove::CPageCoverMove(CDataStore& store) : m_store(store), m_ui(std::make_unique<Ui::PageCoverMove>()) {
    m_ui->setupUi(this);
    FillCodes(*m_ui->type, store.Codes(CodeList::CoverType));
    FillCodes(*m_ui->origin, store.Codes(CodeList::CoverOrigin));
    FillCodes(*m_ui->payment, store.Codes(CodeList::CoverPayment));
    FillCodes(*m_ui->stat, store.Codes(CodeList::CoverStat));
    FillCodes(*m_ui->material, store.Codes(CodeList::CoverMaterial));
    for (QWidget* shown : std::initializer_list<QWidget*>{m_ui->type, m_ui->origin, m_ui->payment, m_ui->stat,
                                                          m_ui->material, m_ui->reusable})
        MakeReadable(*shown);
    m_link = new WeightLink(*m_ui->covers, *m_ui->weight, this);
    m_ui->covers->SetValue(Currency::FromWhole(1));
}

CPageCoverMove::~CPageCoverMove() = default;

void CPageCoverMove::SetCover(const CoverChoice& cover) {
    m_coverId = cover.id;
    m_type = cover.type;
    m_origin = cover.origin;
    m_payment = cover.payment;
}

void CPageCoverMove::Read(const CRecordset& issued) {
    m_coverId = issued.Long("cover_id");
    m_type = issued.Code("cover_type");
    m_origin = issued.Code("cover_org");
    m_payment = issued.Code("cover_pay");
    const Currency quantity = ToCurrency(issued.get_Collect("mvcover_qty"));
    m_ui->covers->SetValue(quantity.IsValid() ? quantity : Currency::FromWhole(1));
}

Currency CPageCoverMove::Quantity() const {
    return m_ui->covers->Value();
}

void CPageCoverMove::Write(CRecordset& issued) const {
    issued.put_Collect("cover_id", m_coverId);
    issued.put_Collect("mvcover_qty", Quantity());
    issued.put_Collect("cover_type", m_type);
    issued.put_Collect("cover_org", m_origin);
    issued.put_Collect("cover_pay", m_payment);
}

void CPageCoverMove::OnSetActive() {
    CWizardPage::OnSetActive();
    SelectCode(*m_ui->type, m_type);
    SelectCode(*m_ui->origin, m_origin);
    SelectCode(*m_ui->payment, m_payment);
    ShowCover();
    m_ui->covers->FocusAll();
}

void CPageCoverMove::ShowCover() {
    Currency pieceWeight;
    bool reusable = false;
    std::int32_t material = -1;
    std::int32_t stat = -1;
    Guarded([&] {
        const RecordsetPtr cover = m_store.Query(SqlText("SELECT * FROM Cover WHERE cover_id = %li", m_coverId));
        if (cover->get_EOF())
            return;
        pieceWeight = Currency::FromCount(ToCurrency(cover->get_Collect("cover_weight")).count);
        reusable = ToBool(cover->get_Collect("cover_reusable"));
        material = cover->Code("cover_mat");
        stat = cover->Code("cover_stat");
    });
    m_ui->reusable->setChecked(reusable);
    SelectCode(*m_ui->material, material);
    SelectCode(*m_ui->stat, stat);
    m_link->SetPieceWeight(pieceWeight);
}

bool CPageCoverMove::OnWizardFinish() {
    if (!m_link->Check())
        return false;
    return Quantity().count > 0 || Refuse(*m_ui->covers, "Množství obalu musí být větší než 0");
}
