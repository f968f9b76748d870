#include "windows/registers/issues/ViewMove.h"

#include "core/base/SqlText.h"
#include "core/rules/IssueLines.h"
#include "core/rules/ToBeDeleted.h"
#include "core/store/Edit.h"
#include "windows/registers/issues/MoveDlg.h"
#include "windows/registers/issues/MoveFilterDlg.h"
#include "windows/registers/issues/PageQty.h"
#include "windows/registers/packaging/PageCover.h"
#include "windows/registers/packaging/PageCoverMove.h"
#include "windows/registers/products/PageProd.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/IconButton.h"
#include "windows/widgets/RegisterTexts.h"

namespace {

ListSpec Issues() {
    ListSpec spec;
    spec.objectName = QStringLiteral("issues");
    spec.columns = {Column("move_num"), Column("move_date"), Column("move_export", "move_num"), Column("move_type")};
    spec.keyField = "move_id";
    spec.defaultSort = "move_num";
    spec.multiSelection = true;
    return spec;
}

ListSpec Items() {
    ListSpec spec;
    spec.objectName = QStringLiteral("items");
    spec.columns = {Column("prod_name"), Column("prod_katalog"), Column("mvprod_qty", "Move_prod.mvprod_qty")};
    spec.keyField = "mvprod_id";
    spec.defaultSort = "prod_name";
    return spec;
}

ListSpec IssuedCovers() {
    ListSpec spec;
    spec.objectName = QStringLiteral("issuedCovers");
    spec.columns = {Column("cover_name"),
                    Column("totWeight", "mvcover_qty*cover_weight"),
                    Column("cover_mat"),
                    Column("cover_type", "Move_Cover.cover_type"),
                    Column("cover_org", "Move_Cover.cover_org"),
                    Column("cover_pay", "Move_Cover.cover_pay")};
    spec.keyField = "mvcover_id";
    spec.defaultSort = "cover_name";
    return spec;
}

RegisterSpec IssueRegister() {
    RegisterSpec spec;
    spec.master = Issues();
    spec.masterTable = "Move";
    spec.masterTitle = "Výdeje";
    spec.detail = Items();
    spec.detailTitle = "Položky";
    spec.subdetail = IssuedCovers();
    spec.subdetailTitle = "Kuvel";
    spec.findFields = {"move_num", "move_export", "move_type"};
    // By the order of the covers, though the fields are the issues'.
    spec.findFirst = {"move_num", nullptr, "move_export", "move_type"};
    spec.findFirstLevel = 2;
    spec.nothingSelected = Text::NoIssue;
    spec.deleteQuestion = Text::DeleteIssues;
    spec.deleteStatements = {"DELETE FROM Move_Cover WHERE (mvprod_id IN (SELECT mvprod_id FROM Move_Prod WHERE "
                             "(move_id IN (SELECT id FROM TmpID))))",
                             "DELETE FROM Move_Prod WHERE (move_id IN (SELECT id FROM TmpID))",
                             "DELETE FROM Move WHERE (move_id IN (SELECT id FROM TmpID))"};
    spec.toBeDeleted = IssuesToBeDeleted;
    return spec;
}

} // namespace

CViewMove::CViewMove(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent)
    : ListRegisterView(store, broadcaster, IssueRegister(), parent),
      m_toggle(new CIconButton(NamedIcon("toggle"), this)) {
    m_toggle->setObjectName(QStringLiteral("toggleCovers"));
    m_toggle->setToolTip(QStringLiteral("Zobrazit jen kuvel vybrané položky"));
    m_toggle->setAccessibleName(m_toggle->toolTip());
    m_toggle->SetLatched(m_coversOfItem);
    AddTitleButton(m_toggle);
    connect(m_toggle, &QPushButton::clicked, this, &CViewMove::OnToggleCovers);
    On(Command::ID_RECORD_ADD, [this] { OnAddIssue(); });
    On(Command::ID_RECORD_EDIT, [this] { OnEditIssue(); });
    On(Command::ID_RECORD_FILTER, [this] { OnFilterIssues(); });
    On(Command::ID_DETAIL_ADD, [this] { OnAddItem(); });
    On(Command::ID_DETAIL_EDIT, [this] { OnEditItem(); });
    On(Command::ID_DETAIL_DELETE, [this] { OnDeleteItem(); });
    On(Command::ID_SUBDETAIL_ADD, [this] { OnAddCover(); });
    On(Command::ID_SUBDETAIL_EDIT, [this] { OnEditCover(); });
    On(Command::ID_SUBDETAIL_DELETE, [this] { OnDeleteCover(); });
}

void CViewMove::Receive(ViewMessage message) {
    switch (message) {
    case ViewMessage::WM_MOVES_CHANGED:
        FillMaster();
        break;
    case ViewMessage::WM_PRODUCTS_CHANGED:
        FillDetail();
        break;
    case ViewMessage::WM_COVERS_CHANGED:
        FillSubdetail();
        break;
    default:
        ListRegisterView::Receive(message);
        break;
    }
}

std::string CViewMove::AllSql() const {
    return "SELECT * FROM Move";
}

std::string CViewMove::DetailSql(std::int32_t moveId) const {
    return SqlText("SELECT Move_Prod.*, Product.* FROM Move_Prod INNER JOIN Product ON Move_Prod.prod_id = "
                   "Product.prod_id WHERE (move_id=%li)",
                   moveId);
}

std::string CViewMove::SubdetailSql() const {
    const std::int32_t moveId = SingleMasterId();
    if (moveId == RecordList::NoId || (m_coversOfItem && Detail().SelectedRow() < 0))
        return {};
    const std::string covers = "SELECT Move_Cover.*, Cover.*, mvcover_qty*cover_weight AS totWeight FROM Move_Cover "
                               "INNER JOIN Cover ON Move_Cover.cover_id = Cover.cover_id WHERE ";
    return covers +
           (m_coversOfItem ? SqlText("(mvprod_id=%li)", Detail().SelectedId()) : SqlText("move_id=%li", moveId));
}

void CViewMove::EnableDetails() {
    ListRegisterView::EnableDetails();
    for (const Command command :
         {Command::ID_DETAIL_ADD, Command::ID_DETAIL_EDIT, Command::ID_DETAIL_DELETE, Command::ID_SUBDETAIL_ADD})
        Button(command).setEnabled(ItemsAllowed());
}

void CViewMove::OnToggleCovers() {
    m_coversOfItem = !m_coversOfItem;
    m_toggle->SetLatched(m_coversOfItem);
    m_toggle->setIcon(NamedIcon(m_coversOfItem ? "toggle" : "toggle-all"));
    EnableDetails();
    Arrange();
    FillSubdetail();
}

void CViewMove::OnAddIssue() {
    CMoveDlg dialog(Store(), this);
    AddToMaster(Shown(dialog), [&](CRecordset& record) { dialog.Values().WriteNew(record); });
}

/// The covers of the issue stay as they are, whatever its new date and type.
void CViewMove::OnEditIssue() {
    CMoveDlg dialog(Store(), this);
    EditMaster([&](const CRecordset& record) { dialog.SetValues(IssueValues::Read(record)); }, Shown(dialog),
               [&](CRecordset& record) { dialog.Values().Write(record); });
}

void CViewMove::OnFilterIssues() {
    EditFilter(m_filter, CMoveFilterDlg(m_filter, this));
}

void CViewMove::OnAddItem() {
    if (!ItemsAllowed())
        return;
    const std::int32_t moveId = Master().SelectedId();
    if (moveId == RecordList::NoId) {
        ShowWarning(QString::fromUtf8(Text::NoIssue));
        return;
    }
    CPageProd productPage(Store());
    CPageQty quantityPage;
    CWizardSheet sheet(this);
    sheet.AddPage(productPage);
    sheet.AddPage(quantityPage);
    const auto add = [&] { CIssueLines(Store()).Add(moveId, productPage.ChosenId(), quantityPage.Quantity()); };
    if (AskAndSave([&] { return sheet.Run(); }, add))
        FillDetail();
}

void CViewMove::OnEditItem() {
    if (!ItemsAllowed())
        return;
    CPageQty page;
    std::int32_t mvprodId = RecordList::NoId;
    const auto read = [&](const CRecordset& record) {
        mvprodId = record.Long("mvprod_id");
        page.SetQuantity(ToCurrency(record.get_Collect("mvprod_qty")));
    };
    const auto ask = [&] {
        CWizardSheet sheet(this);
        sheet.AddPage(page);
        sheet.SetSubject(Detail().CellText(Detail().SelectedRow(), 0));
        return sheet.Run();
    };
    bool writing = false;
    const auto write = [&](const CRecordset&) {
        writing = true;
        CIssueLines(Store()).Change(mvprodId, page.Quantity());
    };
    EditDetailRow({.list = Detail(),
                   .nothingSelected = Text::NoProduct,
                   .select = "SELECT * FROM Move_Prod WHERE (mvprod_id = %li)",
                   .read = read,
                   .ask = ask,
                   .write = write});
    if (writing)
        FillDetail();
}

void CViewMove::OnDeleteItem() {
    if (!ItemsAllowed())
        return;
    if (DeleteDetailRow({.list = Detail(),
                         .nothingSelected = Text::NoProduct,
                         .question = Text::DeleteProductRow,
                         .toBeDeleted = ItemToBeDeleted,
                         .after = [this](std::int32_t mvprodId) { CIssueLines(Store()).Remove(mvprodId); }}))
        FillSubdetail();
}

void CViewMove::ClearVanishedItem(std::int32_t mvprodId) {
    ShowMessage(QStringLiteral("Údaje o produktu byly odstraněny jinou aplikací!"), Message::Icon::Information);
    CIssueLines(Store()).Remove(mvprodId);
}

bool CViewMove::AddCover(std::int32_t mvprodId, const IssuedCover& values) {
    const RecordsetPtr item = Store().Query(SqlText("SELECT * FROM Move_Prod WHERE mvprod_id = %li", mvprodId));
    if (item->get_EOF())
        return false;
    const RecordsetPtr covers = Store().Table("Move_Cover");
    covers->AddNew();
    values.Write(*covers);
    covers->put_Collect("mvprod_id", item->get_Collect("mvprod_id"));
    covers->put_Collect("move_id", item->get_Collect("move_id"));
    covers->Update();
    return true;
}

void CViewMove::OnAddCover() {
    if (!ItemsAllowed())
        return;
    const int row = Detail().SelectedRow();
    if (row < 0) {
        ShowWarning(QString::fromUtf8(Text::NoProduct));
        return;
    }
    const std::int32_t mvprodId = Detail().Id(row);
    CPageCover coverPage(Store(), CPageCover::Offer::SimpleOnly);
    CPageCoverMove movePage(Store());
    coverPage.SetFollower([&](const CoverChoice& cover) { movePage.SetCover(cover); });
    CWizardSheet sheet(this);
    sheet.AddPage(coverPage);
    sheet.AddPage(movePage);
    sheet.SetSubject(Detail().CellText(row, 0));
    bool vanished = false;
    const auto add = [&] { vanished = !AddCover(mvprodId, movePage.Values()); };
    if (!AskAndSave([&] { return sheet.Run(); }, add))
        return;
    if (vanished) {
        Guarded([&] { ClearVanishedItem(mvprodId); });
        Detail().RemoveRow(row);
    }
    FillSubdetail();
}

/// Only the quantity is written: the codes stand on the page to be read.
void CViewMove::OnEditCover() {
    CPageCoverMove page(Store());
    const auto ask = [&] {
        CWizardSheet sheet(this);
        sheet.AddPage(page);
        sheet.SetSubject(Subdetail().CellText(Subdetail().SelectedRow(), 0));
        return sheet.Run();
    };
    if (EditDetailRow({.list = Subdetail(),
                       .nothingSelected = Text::NoCover,
                       .select = "SELECT * FROM Move_Cover WHERE (mvcover_id = %li)",
                       .read = [&](const CRecordset& record) { page.SetValues(IssuedCover::Read(record)); },
                       .ask = ask,
                       .write = [&](CRecordset& record) { page.Values().WriteQuantity(record); }}))
        FillSubdetail();
}

void CViewMove::OnDeleteCover() {
    DeleteDetailRow({.list = Subdetail(),
                     .nothingSelected = Text::NoCover,
                     .question = Text::DeleteCoverRow,
                     .toBeDeleted = IssuedCoverToBeDeleted,
                     .statements = {"DELETE FROM Move_Cover WHERE (mvcover_id = %li)"}});
}
