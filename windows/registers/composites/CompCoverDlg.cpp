#include "windows/registers/composites/CompCoverDlg.h"

#include "core/base/SqlText.h"
#include "core/rules/ScratchItems.h"
#include "core/store/DataStore.h"
#include "ui_CompCoverDlg.h"
#include "windows/registers/ListRegisterView.h"
#include "windows/registers/packaging/PackagingRows.h"
#include "windows/registers/packaging/PageCover.h"
#include "windows/registers/packaging/PageCoverProd.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/HelpDoor.h"
#include "windows/widgets/IconButton.h"
#include "windows/widgets/Refuse.h"
#include "windows/widgets/RegisterTexts.h"
#include "windows/widgets/ScreenFit.h"
#include "windows/widgets/commands/CommandTable.h"
#include "windows/widgets/commands/ContextMenus.h"
#include "windows/widgets/lists/RecordList.h"

#include <QMenu>
#include <QShortcut>

namespace {

constexpr const char* ItemsSql =
    "SELECT TmpCover_Item.*, Cover.cover_name, cp_qtycover*cover_weight AS totWeight FROM TmpCover_Item INNER JOIN "
    "Cover ON TmpCover_Item.cover_id = Cover.cover_id ORDER BY Cover.cover_name";

ListSpec Items() {
    ListSpec spec = PackagingRows("items", "ti_id");
    spec.clickableHeader = false;
    return spec;
}

} // namespace

CCompCoverDlg::CCompCoverDlg(CDataStore& store, std::int32_t compositeId, CompositeValues values, QWidget* parent)
    : QDialog(parent), m_store(store), m_ui(std::make_unique<Ui::CompCoverDlg>()),
      m_items(new RecordList(store, Items(), this)), m_values(std::move(values)) {
    m_ui->setupUi(this);
    m_ui->itemPlace->addWidget(m_items);
    m_items->setMinimumSize(400, 120);
    resize(FittingSize(*this, {760, 420}));
    m_items->setAccessibleName(QStringLiteral("Složení"));
    m_ui->label_items->setBuddy(m_items);
    AddButtons();
    AddShortcuts();
    m_ui->name->setText(m_values.name);
    m_ui->note->setText(m_values.note);
    m_ui->name->setFocus();
    m_ui->name->selectAll();
    connect(m_items, &RecordList::rowDoubleClicked, this, &CCompCoverDlg::EditItem);
    connect(m_items, &RecordList::menuWanted, this, &CCompCoverDlg::ShowMenu);
    connect(m_ui->ok, &QPushButton::clicked, this, &CCompCoverDlg::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->help, &QPushButton::clicked, this, [] { OpenHelp(HelpContext::CompositeCover); });

    Guarded([&] { ScratchItems::Load(m_store, compositeId); });
    Fill(RecordList::NoId);
}

CCompCoverDlg::~CCompCoverDlg() = default;

void CCompCoverDlg::AddButtons() {
    QWidget* before = m_ui->note;
    int place = 0;
    for (const Command command : {Command::ID_RECORD_ADD, Command::ID_RECORD_EDIT, Command::ID_RECORD_DELETE}) {
        CIconButton* const button = MakeCommandButton(command, this);
        connect(button, &QPushButton::clicked, this, [this, command] { Run(command); });
        m_ui->itemButtons->insertWidget(place++, button);
        setTabOrder(before, button);
        before = button;
    }
    setTabOrder(before, m_items);
    setTabOrder(m_items, m_ui->ok);
}

/// The keys of the menu, while the list has the focus. Enter stays the default button's.
void CCompCoverDlg::AddShortcuts() {
    for (const Command command : {Command::ID_RECORD_ADD, Command::ID_RECORD_DELETE}) {
        auto* const shortcut = new QShortcut(m_items);
        shortcut->setKeys(RowOf(command).Keys());
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, command] { Run(command); });
    }
}

void CCompCoverDlg::Fill(std::int32_t id) {
    m_items->Fill(ItemsSql, id);
}

void CCompCoverDlg::Run(Command command) {
    if (command == Command::ID_RECORD_ADD)
        AddItem();
    else if (command == Command::ID_RECORD_EDIT)
        EditItem();
    else
        DeleteItem();
}

void CCompCoverDlg::AddItem() {
    // A composite inside a composite is refused: only simple covers are offered.
    CPageCover coverPage(m_store, CPageCover::Offer::SimpleOnly);
    CPageCoverProd rulePage(m_store);
    coverPage.SetFollower([&](const CoverChoice& cover) { rulePage.SetCover(cover); });
    CWizardSheet sheet(this);
    sheet.AddPage(coverPage);
    sheet.AddPage(rulePage);
    if (!sheet.Run())
        return;
    std::int32_t id = RecordList::KeepSelection;
    Guarded([&] {
        const RecordsetPtr items = m_store.Table("TmpCover_Item");
        items->AddNew();
        items->put_Collect("cover_id", rulePage.Rule().coverId);
        rulePage.Rule().Write(*items);
        items->Update();
        id = items->Long("ti_id");
    });
    Fill(id);
}

int CCompCoverDlg::SelectedItem() {
    const int row = m_items->SelectedRow();
    if (row < 0)
        ShowWarning(QString::fromUtf8(Text::NoCover));
    return row;
}

void CCompCoverDlg::EditItem() {
    const int row = SelectedItem();
    if (row < 0)
        return;
    Guarded([&] {
        const RecordsetPtr item =
            m_store.Query(SqlText("SELECT * FROM TmpCover_Item WHERE (ti_id = %li)", m_items->Id(row)));
        if (item->get_EOF()) {
            RemoveVanishedRow(*m_items, row);
            return;
        }
        CPageCoverProd page(m_store);
        page.SetRule(PackagingRule::Read(*item));
        CWizardSheet sheet(this);
        sheet.AddPage(page);
        sheet.SetSubject(m_items->CellText(row, 0));
        if (!sheet.Run())
            return;
        page.Rule().Write(*item);
        item->Update();
        Fill(RecordList::KeepSelection);
    });
}

void CCompCoverDlg::DeleteItem() {
    const int row = SelectedItem();
    if (row < 0)
        return;
    Guarded([&] { m_store.ExecuteSQL(SqlText("DELETE FROM TmpCover_Item WHERE (ti_id = %li)", m_items->Id(row))); });
    Fill(RecordList::KeepSelection);
}

void CCompCoverDlg::ShowMenu(const QPoint& screen, bool onRow) {
    QMenu* menu = MakeContextMenu(
        ContextMenu::Rec1, {onRow, true}, [](Command) { return true; }, [this](Command command) { Run(command); },
        this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(screen);
}

void CCompCoverDlg::accept() {
    if (!TakeLine(*m_ui->name, "ccover_name", false) || !TakeLine(*m_ui->note, "ccover_note"))
        return;
    m_values = {m_ui->name->text(), m_ui->note->text()};
    while (m_values.name.startsWith(QLatin1Char(' ')))
        m_values.name.remove(0, 1);
    if (m_values.name.isEmpty()) {
        Refuse(*m_ui->name, "Není zadáno jméno!");
        return;
    }
    if (m_items->RowCount() == 0) {
        Refuse(*m_items, "Není vybrán žádný obal!");
        return;
    }
    QDialog::accept();
}
