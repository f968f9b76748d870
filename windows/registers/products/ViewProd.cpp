#include "windows/registers/products/ViewProd.h"

#include "core/base/CzechCount.h"
#include "core/base/LateProgress.h"
#include "core/base/SqlText.h"
#include "core/rules/ChangeReach.h"
#include "core/rules/PackagingChange.h"
#include "core/rules/Propagation.h"
#include "core/rules/ToBeDeleted.h"
#include "core/store/Edit.h"
#include "core/store/Engine.h"
#include "windows/registers/packaging/PackagingRows.h"
#include "windows/registers/packaging/PageCover.h"
#include "windows/registers/packaging/PageCoverProd.h"
#include "windows/registers/packaging/PageDateRange.h"
#include "windows/registers/products/ProdDateDlg.h"
#include "windows/registers/products/ProdDlg.h"
#include "windows/registers/products/ProdFilterDlg.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/RegisterTexts.h"
#include "windows/widgets/WaitCursor.h"

#include <optional>

namespace {

/// The product's number in the system that it was imported from.
QString SourceId(const CDataStore&, const CRecordset& record) {
    return record.Long("prod_source") > 0 ? FormatVariant(record.get_Collect("prod_scrid")) : QString();
}

ListSpec Products() {
    ListSpec spec;
    spec.objectName = QStringLiteral("products");
    spec.columns = {{QStringLiteral("ID"), SourceId, "prod_scrid"},
                    Column("prod_name"),
                    Column("prod_katalog"),
                    Column("prod_unit")};
    spec.keyField = "prod_id";
    spec.defaultSort = "prod_name";
    spec.sortColumn = 1;
    spec.multiSelection = true;
    return spec;
}

ListSpec Dates() {
    ListSpec spec;
    spec.objectName = QStringLiteral("dates");
    spec.columns = Columns({"dt_from"});
    spec.keyField = "dt_id";
    spec.clickableHeader = false;
    spec.grid = false;
    spec.fallback = ListSpec::Fallback::Last;
    spec.keepsSelection = false;
    return spec;
}

ListSpec Packaging() {
    ListSpec spec = PackagingRows("packaging", "cp_id");
    spec.keepsSelection = false;
    return spec;
}

RegisterSpec ProductRegister() {
    RegisterSpec spec;
    spec.master = Products();
    spec.masterTable = "Product";
    spec.masterTitle = "Produkty";
    spec.masterMenu = ContextMenu::RecProd;
    spec.detail = Dates();
    spec.detailTitle = "Balení";
    spec.subdetail = Packaging();
    spec.findFields = {"prod_name", "prod_katalog", "prod_unit"};
    // By the order of the packaging rows, though the fields are the products'.
    spec.findFirst = {nullptr, "prod_name", "prod_katalog", "prod_unit"};
    spec.findFirstLevel = 2;
    spec.nothingSelected = Text::NoProduct;
    spec.deleteQuestion = Text::DeleteProducts;
    spec.deleteStatements = {"DELETE FROM Prod_Cover WHERE (dt_id IN (SELECT dt_id FROM Prod_CoverDT WHERE (prod_id "
                             "IN (SELECT id FROM TmpID))))",
                             "DELETE FROM Prod_CoverDT WHERE (prod_id IN (SELECT id FROM TmpID))",
                             "UPDATE Product SET deleted = true WHERE (prod_id IN (SELECT id FROM TmpID))"};
    spec.toBeDeleted = ProductsToBeDeleted;
    return spec;
}

constexpr int NameColumn = 1;

/// The sheet that asks for the packaging, after the page `first` when there is one.
class CPackagingSheet {
public:
    CPackagingSheet(CDataStore& store, QWidget* parent, const QString& subject, CWizardPage* first = nullptr)
        : m_coverPage(store, CPageCover::Offer::SimpleAndComposite), m_rulePage(store), m_sheet(parent) {
        m_coverPage.SetFollower([this](const CoverChoice& cover) { m_rulePage.SetCover(cover); });
        if (first != nullptr)
            m_sheet.AddPage(*first);
        m_sheet.AddPage(m_coverPage);
        m_sheet.AddPage(m_rulePage);
        m_sheet.SetSubject(subject);
    }

    bool Run() { return m_sheet.Run(); }
    /// After it was finished.
    ChosenPackaging Chosen() const {
        ChosenPackaging chosen;
        if (m_coverPage.IsComposite())
            chosen.compositeId = m_coverPage.ChosenId();
        else
            chosen.rule = m_rulePage.Rule();
        return chosen;
    }

private:
    CPageCover m_coverPage;
    CPageCoverProd m_rulePage;
    CWizardSheet m_sheet;
};

QString RecomputationTitle() {
    return QStringLiteral("Úprava vydaných obalů");
}

} // namespace

CViewProd::CViewProd(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent)
    : ListRegisterView(store, broadcaster, ProductRegister(), parent) {
    On(Command::ID_RECORD_ADD, [this] { OnAddProduct(); });
    On(Command::ID_RECORD_EDIT, [this] { OnEditProduct(); });
    On(Command::ID_RECORD_FILTER, [this] { OnFilterProducts(); });
    On(Command::ID_DETAIL_ADD, [this] { OnAddDate(); });
    On(Command::ID_DETAIL_EDIT, [this] { OnEditDate(); });
    On(Command::ID_DETAIL_DELETE, [this] { OnDeleteDate(); });
    On(Command::ID_SUBDETAIL_ADD, [this] { OnAddPackaging(); });
    On(Command::ID_SUBDETAIL_EDIT, [this] { OnEditPackaging(); });
    On(Command::ID_SUBDETAIL_DELETE, [this] { OnDeletePackaging(); });
    On(Command::ID_PROD_ASSIGN_COVERS, [this] { OnAssignCovers(); });
}

void CViewProd::Receive(ViewMessage message) {
    if (message == ViewMessage::WM_PRODUCTS_CHANGED)
        FillMaster();
    else if (message == ViewMessage::WM_COVERS_CHANGED)
        FillSubdetail();
    else
        ListRegisterView::Receive(message);
}

std::string CViewProd::AllSql() const {
    return "SELECT * FROM Product WHERE (deleted = FALSE)";
}

std::string CViewProd::DetailSql(std::int32_t prodId) const {
    return SqlText("SELECT * FROM Prod_CoverDT WHERE prod_id=%li ORDER BY dt_from", prodId);
}

std::string CViewProd::SubdetailSql() const {
    if (Detail().SelectedRow() < 0)
        return {};
    return SqlText("SELECT Prod_Cover.*, Cover.cover_name, cp_qtycover*cover_weight AS totWeight FROM Prod_Cover "
                   "INNER JOIN Cover ON Prod_Cover.cover_id = Cover.cover_id WHERE (dt_id=%li)",
                   Detail().SelectedId());
}

void CViewProd::OnAddProduct() {
    CProdDlg dialog(this);
    AddToMaster(Shown(dialog), [&](CRecordset& record) { dialog.Values().Write(record); });
}

void CViewProd::OnEditProduct() {
    CProdDlg dialog(this);
    EditMaster([&](const CRecordset& record) { dialog.SetValues(ProductValues::Read(record)); }, Shown(dialog),
               [&](CRecordset& record) { dialog.Values().Write(record); });
}

void CViewProd::OnFilterProducts() {
    EditFilter(m_filter, CProdFilterDlg(m_filter, this));
}

/// A definition of the same day is refused only here: a date may be edited to a day that the product has already.
void CViewProd::OnAddDate() {
    if (!Detail().isEnabled())
        return;
    const std::int32_t prodId = Master().SelectedId();
    if (prodId == RecordList::NoId) {
        ShowWarning(QString::fromUtf8(Text::NoProduct));
        return;
    }
    CProdDateDlg dialog(DateTime::Now(), this);
    if (Detail().RowCount() > 0)
        dialog.OfferPackaging();
    bool taken = false;
    const bool saved = AskAndSave(Shown(dialog), [&] {
        const RecordsetPtr dates = DefinitionsOfDay(Store(), prodId, dialog.Date());
        taken = dates->get_RecordCount() > 0;
        if (taken)
            return;
        AddDefinition(*dates, prodId, dialog.Date());
        if (dialog.TakesPackaging())
            TakePackagingBefore(Store(), prodId, dates->Long("dt_id"), dialog.Date());
        CarryOn(prodId);
    });
    if (taken)
        ShowMessage(MessageText("Databáze již obsahuje datum \"%s\"!", FormatDate(dialog.Date())));
    if (!saved || taken)
        return;
    FillDetail();
    TellOfPackaging();
}

void CViewProd::OnEditDate() {
    std::optional<CProdDateDlg> dialog;
    DateTime before;
    if (!EditDetailRow({.list = Detail(),
                        .nothingSelected = Text::NoDate,
                        .select = "SELECT * FROM Prod_CoverDT WHERE (dt_id = %li)",
                        .read =
                            [&](const CRecordset& record) {
                                before = ToDate(record.get_Collect("dt_from"));
                                dialog.emplace(before, this);
                            },
                        .ask = [&] { return dialog->exec() == QDialog::Accepted && dialog->Date() != before; },
                        .write = [&](CRecordset& record) { record.put_Collect("dt_from", dialog->Date()); },
                        .after = [this](std::int32_t) { CarryOn(Master().SelectedId()); }}))
        return;
    FillDetail();
    TellOfPackaging();
}

void CViewProd::OnDeleteDate() {
    if (DeleteDetailRow({.list = Detail(),
                         .nothingSelected = Text::NoDate,
                         .question = Text::DeleteDate,
                         .toBeDeleted = DefinitionToBeDeleted,
                         .statements = {"DELETE FROM Prod_Cover WHERE (dt_id = %li)",
                                        "DELETE FROM Prod_CoverDT WHERE (dt_id = %li)"},
                         .after = [this](std::int32_t) { CarryOn(Master().SelectedId()); }}))
        TellOfPackaging();
}

void CViewProd::OnAddPackaging() {
    if (!Subdetail().isEnabled())
        return;
    const std::int32_t dtId = Detail().SelectedId();
    if (dtId == RecordList::NoId) {
        ShowWarning(QString::fromUtf8(Text::NoDate));
        return;
    }
    CPackagingSheet sheet(Store(), this, Master().CellText(Master().SelectedRow(), NameColumn));
    const bool added =
        AskAndSave([&] { return sheet.Run(); },
                   [&] {
                       const WaitCursor wait;
                       Say(ReachOfPackaging(Store(), *Options(), Master().SelectedId()));
                       CLateProgress progress(Progress(), RecomputationTitle(), false);
                       AddPackaging(Store(), *Options(), Master().SelectedId(), dtId, sheet.Chosen(), progress);
                   });
    if (!added)
        return;
    FillSubdetail();
    TellOfPackaging();
}

void CViewProd::OnEditPackaging() {
    PackagingRule before;
    CPageCoverProd page(Store());
    const auto ask = [&] {
        CWizardSheet sheet(this);
        sheet.AddPage(page);
        sheet.SetSubject(Subdetail().CellText(Subdetail().SelectedRow(), 0));
        return sheet.Run();
    };
    if (!EditDetailRow({.list = Subdetail(),
                        .nothingSelected = Text::NoCover,
                        .select = "SELECT * FROM Prod_Cover WHERE (cp_id = %li)",
                        .read =
                            [&](const CRecordset& record) {
                                before = PackagingRule::Read(record);
                                page.SetRule(before);
                            },
                        .ask = ask,
                        .write = [&](CRecordset& record) { page.Rule().Write(record); },
                        .after =
                            [&](std::int32_t) {
                                if (page.Rule() != before)
                                    CarryOn(Master().SelectedId());
                            }}))
        return;
    FillSubdetail();
    if (page.Rule() != before)
        TellOfPackaging();
}

void CViewProd::OnDeletePackaging() {
    if (DeleteDetailRow({.list = Subdetail(),
                         .nothingSelected = Text::NoCover,
                         .question = Text::DeleteCoverRow,
                         .toBeDeleted = PackagingToBeDeleted,
                         .statements = {"DELETE FROM Prod_Cover WHERE (cp_id = %li)"},
                         .after = [this](std::int32_t) { CarryOn(Master().SelectedId()); }}))
        TellOfPackaging();
}

/// The register's own dates and packaging rows keep what they show until the selection changes or the user refreshes.
void CViewProd::OnAssignCovers() {
    std::vector<std::int32_t> products;
    for (const int row : Master().SelectedRows())
        products.push_back(Master().Id(row));
    if (products.empty()) {
        ShowWarning(QString::fromUtf8(Text::NoProduct));
        return;
    }
    CPageDateRange datePage;
    const QString names =
        products.size() == 1 ? Master().CellText(Master().SelectedRow(), NameColumn)
                             : Counted(static_cast<std::int64_t>(products.size()), {"produkt", "produkty", "produktů"});
    CPackagingSheet sheet(Store(), this, names, &datePage);
    if (!sheet.Run())
        return;
    const WaitCursor wait;
    Guarded([&] {
        CLateProgress progress(Progress(), QStringLiteral("Hromadné přiřazení obalů"), true);
        AssignPackaging(Store(), *Options(), products, datePage.Date(), sheet.Chosen(), progress);
    });
    TellOthers(ViewMessage::WM_COVERS_CHANGED);
}

void CViewProd::CarryOn(std::int32_t prodId) {
    if (prodId == RecordList::NoId)
        return;
    const WaitCursor wait;
    Say(ReachOfPackaging(Store(), *Options(), prodId));
    CLateProgress progress(Progress(), RecomputationTitle(), false);
    PackagingChanged(Store(), *Options(), prodId, progress);
}

void CViewProd::TellOfPackaging() {
    if (Options()->packagingToIssues != 0 && Master().SelectedId() != RecordList::NoId)
        TellOthers(ViewMessage::WM_COVERS_CHANGED);
}
