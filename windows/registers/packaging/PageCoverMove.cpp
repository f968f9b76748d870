#include "windows/registers/packaging/PageCoverMove.h"

#include "core/base/SqlText.h"
#include "ui_PageCoverMove.h"
#include "windows/registers/packaging/PageCover.h"
#include "windows/registers/packaging/TermsLists.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/Refuse.h"
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
    FillTerms(*m_ui, store);
    FillCodes(*m_ui->stat, store.Codes(CodeList::CoverStat));
    FillCodes(*m_ui->material, store.Codes(CodeList::CoverMaterial));
    for (QWidget* shown : std::initializer_list<QWidget*>{m_ui->type, m_ui->origin, m_ui->payment, m_ui->stat,
                                                          m_ui->material, m_ui->reusable})
        MakeReadable(*shown);
    m_link = new WeightLink(*m_ui->covers, *m_ui->weight, this);
    SetValues({});
}

CPageCoverMove::~CPageCoverMove() = default;

void CPageCoverMove::SetCover(const CoverChoice& cover) {
    m_values.coverId = cover.id;
    m_values.terms = cover.terms;
}

void CPageCoverMove::SetValues(const IssuedCover& values) {
    m_values = values;
    m_ui->covers->SetValue(values.quantity);
}

void CPageCoverMove::OnSetActive() {
    CWizardPage::OnSetActive();
    ShowTerms(*m_ui, m_values.terms);
    ShowCover();
    m_ui->covers->FocusAll();
}

void CPageCoverMove::ShowCover() {
    Currency pieceWeight;
    bool reusable = false;
    std::int32_t material = -1;
    std::int32_t stat = -1;
    Guarded([&] {
        const RecordsetPtr cover = m_store.Query(SqlText("SELECT * FROM Cover WHERE cover_id = %li", m_values.coverId));
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
    m_values.quantity = m_ui->covers->Value();
    return m_values.quantity.count > 0 || Refuse(*m_ui->covers, "Množství obalu musí být větší než 0");
}
