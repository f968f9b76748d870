#include "windows/registers/covers/ViewCover.h"

#include "core/base/SqlText.h"
#include "core/rules/ChangeReach.h"
#include "core/rules/Propagation.h"
#include "core/rules/ToBeDeleted.h"
#include "core/store/DataStore.h"
#include "windows/registers/covers/CoverDlg.h"
#include "windows/registers/covers/CoverFilterDlg.h"
#include "windows/registers/covers/PageDisc.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/RegisterTexts.h"

namespace {

ListSpec Covers() {
    ListSpec spec;
    spec.objectName = QStringLiteral("covers");
    spec.columns =
        Columns({"cover_name", "cover_mat", "cover_weight", "cover_type", "cover_org", "cover_pay", "cover_reusable"});
    spec.keyField = "cover_id";
    spec.defaultSort = "cover_name";
    spec.multiSelection = true;
    return spec;
}

ListSpec Discards() {
    ListSpec spec;
    spec.objectName = QStringLiteral("discards");
    spec.columns = {Column("disc_date"), Column("disc_type"), Column("totWeight", "disc_qty*cover_weight")};
    spec.keyField = "disc_id";
    spec.defaultSort = "disc_date";
    return spec;
}

RegisterSpec CoverRegister() {
    RegisterSpec spec;
    spec.master = Covers();
    spec.masterTable = "Cover";
    spec.masterTitle = "Kuvel";
    spec.detail = Discards();
    spec.detailTitle = "Vyřazené";
    spec.findFields = {"cover_name", "cover_mat", "cover_reusable", "cover_type", "cover_org", "cover_pay"};
    spec.findFirst = {"cover_name", "cover_mat", nullptr, "cover_type", "cover_org", "cover_pay", "cover_reusable"};
    spec.nothingSelected = Text::NoProduct;
    spec.deleteQuestion = Text::DeleteCovers;
    spec.deleteStatements = {"DELETE FROM CoverDiscard WHERE cover_id IN (SELECT id FROM TmpID)",
                             "DELETE FROM CompCover_Item WHERE cover_id IN (SELECT id FROM TmpID)",
                             "UPDATE Cover SET deleted = true WHERE (cover_id IN (SELECT id FROM TmpID))"};
    spec.toBeDeleted = CoversToBeDeleted;
    return spec;
}

} // namespace

CViewCover::CViewCover(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent)
    : ListRegisterView(store, broadcaster, CoverRegister(), parent) {
    On(Command::ID_RECORD_ADD, [this] { OnAddCover(); });
    On(Command::ID_RECORD_EDIT, [this] { OnEditCover(); });
    On(Command::ID_RECORD_FILTER, [this] { OnFilterCovers(); });
    On(Command::ID_DETAIL_ADD, [this] { OnAddDiscard(); });
    On(Command::ID_DETAIL_EDIT, [this] { OnEditDiscard(); });
    On(Command::ID_DETAIL_DELETE, [this] { OnDeleteDiscard(); });
}

std::string CViewCover::AllSql() const {
    return "SELECT * FROM Cover WHERE (deleted = FALSE)";
}

std::string CViewCover::DetailSql(std::int32_t coverId) const {
    return SqlText("SELECT CoverDiscard.*, disc_qty*cover_weight AS totWeight FROM CoverDiscard INNER JOIN Cover ON "
                   "CoverDiscard.cover_id = Cover.cover_id WHERE (CoverDiscard.cover_id=%li)",
                   coverId);
}

void CViewCover::OnAddCover() {
    CCoverDlg dialog(Store(), this);
    AddToMaster(Shown(dialog), [&](CRecordset& record) { dialog.Values().Write(record); });
}

void CViewCover::OnEditCover() {
    CCoverDlg dialog(Store(), this);
    CoverTerms before;
    bool propagated = false;
    EditMaster(
        [&](const CRecordset& record) {
            const CoverValues values = CoverValues::Read(record);
            before = values.terms;
            dialog.SetValues(values);
        },
        Shown(dialog), [&](CRecordset& record) { dialog.Values().Write(record); },
        [&](std::int32_t id) {
            const CoverTerms& now = dialog.Values().terms;
            if (now == before)
                return;
            Say(ReachOfCover(Store(), *Options(), id));
            PropagateCover(Store(), *Options(), id, now);
            propagated = true;
        });
    if (propagated)
        TellOthers(ViewMessage::WM_COVERS_CHANGED);
}

void CViewCover::OnFilterCovers() {
    EditFilter(m_filter, CCoverFilterDlg(Store(), m_filter, this));
}

bool CViewCover::AskDiscard(CPageDisc& page) {
    CWizardSheet sheet(this);
    sheet.AddPage(page);
    sheet.SetSubject(Master().CellText(Master().SelectedRow(), 0));
    return sheet.Run();
}

void CViewCover::OnAddDiscard() {
    if (!Detail().isEnabled())
        return;
    const std::int32_t coverId = Master().SelectedId();
    if (coverId == RecordList::NoId) {
        ShowWarning(QString::fromUtf8(Text::NoCover));
        return;
    }
    DiscardValues discard;
    discard.coverId = coverId;
    CPageDisc page(Store());
    page.SetValues(discard);
    std::int32_t id = KeepSelection;
    const auto add = [&] {
        const RecordsetPtr discards = Store().Table("CoverDiscard");
        discards->AddNew();
        page.Values().Write(*discards);
        discards->Update();
        id = discards->Long("disc_id");
    };
    if (AskAndSave([&] { return AskDiscard(page); }, add))
        FillDetail(id);
}

void CViewCover::OnEditDiscard() {
    CPageDisc page(Store());
    if (EditDetailRow({.list = Detail(),
                       .nothingSelected = Text::NoDiscard,
                       .select = "SELECT * FROM CoverDiscard WHERE (disc_id = %li)",
                       .read = [&](const CRecordset& record) { page.SetValues(DiscardValues::Read(record)); },
                       .ask = [&] { return AskDiscard(page); },
                       .write = [&](CRecordset& record) { page.Values().Write(record); }}))
        FillDetail();
}

void CViewCover::OnDeleteDiscard() {
    DeleteDetailRow({.list = Detail(),
                     .nothingSelected = Text::NoDiscard,
                     .question = Text::DeleteDiscard,
                     .toBeDeleted = DiscardToBeDeleted,
                     .statements = {"DELETE FROM CoverDiscard WHERE (disc_id = %li)"}});
}
