#include "windows/registers/ListRegisterView.h"

#include "core/base/CzechCount.h"
#include "core/base/SqlText.h"
#include "core/store/Edit.h"
#include "core/store/Engine.h"
#include "windows/registers/find/FindInList.h"
#include "windows/registers/find/FindReplaceDlg.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/IconButton.h"
#include "windows/widgets/RegisterTexts.h"
#include "windows/widgets/SplitterBar.h"
#include "windows/widgets/TitleBand.h"
#include "windows/widgets/WaitCursor.h"
#include "windows/widgets/commands/CommandTable.h"

#include <QMenu>
#include <QShortcut>
#include <QShowEvent>

#include <array>

namespace {

constexpr int DetailSideWidth = 240;

/// The row of buttons above each list, by the list's level.
const std::array<std::vector<Command>, 3> Buttons = {{
    {Command::ID_RECORD_ADD, Command::ID_RECORD_EDIT, Command::ID_RECORD_DELETE, Command::ID_RECORD_FILTER},
    {Command::ID_DETAIL_ADD, Command::ID_DETAIL_EDIT, Command::ID_DETAIL_DELETE},
    {Command::ID_SUBDETAIL_ADD, Command::ID_SUBDETAIL_EDIT, Command::ID_SUBDETAIL_DELETE},
}};

constexpr Command EditCommands[] = {Command::ID_RECORD_EDIT, Command::ID_DETAIL_EDIT, Command::ID_SUBDETAIL_EDIT};

void EnableGroup(const ListGroup& group, bool enabled) {
    for (CIconButton* button : group.buttons)
        button->setEnabled(enabled);
    if (group.list != nullptr)
        group.list->setEnabled(enabled);
}

} // namespace

void RemoveVanishedRow(RecordList& list, int row) {
    ShowMessage(QString::fromUtf8(Text::RecordVanished), Message::Icon::Information);
    list.RemoveRow(row);
}

ListRegisterView::ListRegisterView(CDataStore& store, IBroadcaster& broadcaster, RegisterSpec spec, QWidget* parent)
    : CRegisterView(store, broadcaster, parent), m_spec(std::move(spec)) {
    MakeGroup(m_layout.master, m_spec.master, m_spec.masterTitle, 0);
    if (m_spec.detail) {
        m_layout.splitter = new CSplitterBar(this);
        connect(m_layout.splitter, &CSplitterBar::moved, this, [this] {
            m_layout.wantedLeft = m_layout.splitter->x();
            Arrange();
        });
        MakeGroup(m_layout.detail, *m_spec.detail, m_spec.detailTitle, 1);
    }
    if (m_spec.subdetail)
        MakeGroup(m_layout.subdetail, *m_spec.subdetail, m_spec.subdetailTitle, 2);
    connect(&Master(), &RecordList::rowsSelected, this, &ListRegisterView::OnMasterSelection);
    if (m_spec.detail)
        connect(&Detail(), &RecordList::rowsSelected, this, [this] { FillSubdetail(); });
    On(Command::ID_RECORD_REFRESH, [this] { FillMaster(); });
    On(Command::ID_RECORD_DELETE, [this] { DeleteMaster(); });
    On(Command::ID_RECORD_FIND, [this] { OpenFind(FindMode::FindNext); });
    On(Command::ID_RECORD_REPLACE, [this] { OpenFind(FindMode::Replace); });
    setFocusProxy(&Master());
    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, this, [this] {
        if (!CFindReplaceDlg::FindAgain(*this))
            OpenFind(FindMode::FindNext);
    });
    m_dropFilter = new CIconButton(NamedIcon("filter-drop"), m_layout.master.title);
    m_dropFilter->setObjectName(QStringLiteral("dropFilter"));
    m_dropFilter->setToolTip(QStringLiteral("Zrušit filtr"));
    m_dropFilter->setAccessibleName(m_dropFilter->toolTip());
    m_dropFilter->hide();
    connect(m_dropFilter, &QPushButton::clicked, this, [this] {
        ForgetFilter();
        FillMaster();
        Master().setFocus();
    });
}

void ListRegisterView::MakeGroup(ListGroup& group, const ListSpec& spec, const char* title, int level) {
    for (const Command command : Buttons[static_cast<std::size_t>(level)]) {
        CIconButton* const button = MakeCommandButton(command, this);
        connect(button, &QPushButton::clicked, this, [this, command] { Run(command); });
        group.buttons.append(button);
        m_buttons[command] = button;
    }
    group.title = new CTitleBand(QString::fromUtf8(title != nullptr ? title : ""), this);
    group.list = new RecordList(Store(), spec, this);
    group.list->setAccessibleName(QString::fromUtf8(title != nullptr ? title : m_spec.detailTitle));
    connect(group.list, &RecordList::sortChanged, this, [this, level] { RefillLevel(level); });
    connect(group.list, &RecordList::rowDoubleClicked, this, [this, level] { Run(EditCommands[level]); });
    if (group.title != nullptr)
        connect(group.list, &RecordList::focusChanged, group.title, &CTitleBand::SetMarked);
    connect(group.list, &RecordList::menuWanted, this,
            [this, level](const QPoint& screen, bool onRow) { ShowMenu(level, screen, onRow); });
}

void ListRegisterView::InitialUpdate() {
    FillMaster();
}

bool ListRegisterView::Handles(Command command) const {
    return m_handlers.contains(command);
}

void ListRegisterView::Run(Command command) {
    const auto handler = m_handlers.find(command);
    if (handler != m_handlers.end())
        handler->second();
}

void ListRegisterView::Receive(ViewMessage message) {
    if (message == ViewMessage::Refresh)
        FillMaster();
}

QString ListRegisterView::FindName() const {
    return QString::fromUtf8(m_spec.masterTitle);
}

std::vector<std::string> ListRegisterView::FindFields() const {
    return {m_spec.findFields.begin(), m_spec.findFields.end()};
}

void ListRegisterView::FindReplace(const FindRequest& request) {
    ReplacedAll all;
    const bool whole = Guarded([&] { CarryOut(request, Store(), Master(), all); });
    if (whole && request.mode == FindMode::ReplaceAll)
        Say(all.Text());
}

void ListRegisterView::OpenFind(FindMode mode) {
    const RecordList& sorted = m_spec.findFirstLevel == 0 ? Master() : Subdetail();
    const auto column = static_cast<std::size_t>(sorted.SortColumn());
    const char* first = column < m_spec.findFirst.size() ? m_spec.findFirst[column] : nullptr;
    CFindReplaceDlg::Open(*this, first != nullptr ? first : "", mode);
}

void ListRegisterView::EnableDetails() {
    EnableGroup(m_layout.detail, DetailsAllowed());
    EnableGroup(m_layout.subdetail, DetailsAllowed());
}

std::int32_t ListRegisterView::SingleMasterId() const {
    return Master().SelectedCount() == 1 ? Master().SelectedId() : RecordList::NoId;
}

void ListRegisterView::AddTitleButton(CIconButton* button) {
    m_layout.detail.titleButton = button;
}

bool ListRegisterView::FillMaster(std::int32_t id) {
    const WaitCursor wait;
    const bool filled = Master().FillKeeping(AllSql() + FilterClauses(), id);
    ShowFilter();
    EnableDetails();
    FillDetail();
    ShowFirstSteps();
    return filled;
}

void ListRegisterView::FillDetail(std::int32_t id) {
    if (!m_spec.detail)
        return;
    const std::int32_t parent = SingleMasterId();
    Detail().Fill(parent == RecordList::NoId ? std::string() : DetailSql(parent), id);
    FillSubdetail();
}

void ListRegisterView::FillSubdetail(std::int32_t id) {
    if (m_spec.subdetail)
        Subdetail().Fill(SubdetailSql(), id);
    ShowFirstSteps();
}

void ListRegisterView::ShowFirstSteps() {
    Master().SetEmptyText(FilterActive()
                              ? QStringLiteral("Filtru nevyhovuje žádný záznam. Filtr změníte klávesami Ctrl+T.")
                              : QStringLiteral("Seznam je prázdný. První záznam přidáte klávesou Ins."));
    const auto show = [this](RecordList& list, Command add, const char* text) {
        list.SetEmptyText(Button(add).isEnabled() ? QString::fromUtf8(text) : QString());
    };
    if (m_spec.detail)
        show(Detail(), Command::ID_DETAIL_ADD,
             Master().SelectedRow() < 0 ? "" : "Seznam je prázdný. První záznam přidáte klávesami Ctrl+Ins.");
    if (m_spec.subdetail)
        show(Subdetail(), Command::ID_SUBDETAIL_ADD,
             Detail().SelectedRow() < 0 ? "" : "Seznam je prázdný. První záznam přidáte klávesami Alt+Ins.");
}

void ListRegisterView::TellIfHidden(std::int32_t id) {
    if (FilterActive() && id > RecordList::NoId && Master().SelectedId() != id)
        Say(QStringLiteral("Záznam je uložen, ale filtr ho nezobrazuje."));
}

void ListRegisterView::RefillLevel(int level) {
    if (level == 0)
        FillMaster();
    else if (level == 1)
        FillDetail();
    else
        FillSubdetail();
}

void ListRegisterView::OnMasterSelection() {
    EnableDetails();
    if (m_spec.detail &&
        (Master().SelectedCount() == 1 || Detail().RowCount() > 0 || (m_spec.subdetail && Subdetail().RowCount() > 0)))
        FillDetail();
}

void ListRegisterView::ShowMenu(int level, const QPoint& screen, bool onRow) {
    constexpr ContextMenu DetailMenus[] = {ContextMenu::Rec2, ContextMenu::Rec3};
    const bool hasParent = level == 0 || (level == 1 ? Master() : Detail()).SelectedRow() >= 0;
    QMenu* menu = MakeContextMenu(
        level == 0 ? m_spec.masterMenu : DetailMenus[level - 1], {onRow, hasParent},
        [this](Command command) { return Handles(command); }, [this](Command command) { Run(command); }, this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(screen);
}

bool ListRegisterView::FindMaster(std::int32_t id) {
    const RecordsetPtr& records = Master().Records();
    CDataStore::FindFirst(records, SqlText("%s = %li", m_spec.master.keyField, id));
    return !records->get_EOF();
}

ListRegisterView::Ask ListRegisterView::Shown(QDialog& dialog) {
    return [&dialog] { return dialog.exec() == QDialog::Accepted; };
}

bool ListRegisterView::AskAndSave(const Ask& ask, const std::function<void()>& save) {
    while (ask()) {
        const std::int64_t before = Store().Engine().Changes();
        bool kept = false;
        const bool whole = Guarded([&] { InOneEdit(Store(), save, kept); });
        if (whole || (kept && Store().Engine().Changes() != before))
            return true;
    }
    return false;
}

void ListRegisterView::AddToMaster(const Ask& ask, const Write& write, const After& after) {
    std::int32_t id = KeepSelection;
    const bool added = AskAndSave(ask, [&] {
        // A recordset of its own: the list may have none.
        const RecordsetPtr records = Store().Query(
            SqlText("SELECT * FROM %s WHERE %s = %li", m_spec.masterTable, m_spec.master.keyField, RecordList::NoId));
        records->AddNew();
        write(*records);
        records->Update();
        id = records->Long(m_spec.master.keyField);
        if (after)
            after(id);
    });
    if (!added)
        return;
    FillMaster(id);
    TellIfHidden(id);
}

void ListRegisterView::EditMaster(const Read& read, const Ask& ask, const Write& write, const After& after) {
    const int row = Master().FocusedRow();
    if (row < 0) {
        ShowWarning(QString::fromUtf8(m_spec.nothingSelected));
        return;
    }
    const std::int32_t id = Master().Id(row);
    bool found = false;
    const bool known = Guarded([&] {
        found = FindMaster(id);
        if (found)
            read(*Master().Records());
    });
    if (!known)
        return;
    bool written = false;
    if (found)
        written = AskAndSave(ask, [&] {
            found = FindMaster(id);
            if (!found)
                return;
            CRecordset& record = *Master().Records();
            write(record);
            record.Update();
            if (after)
                after(id);
        });
    if (!found)
        RemoveVanishedRow(Master(), row);
    if (!found || !written)
        return;
    FillMaster();
    TellIfHidden(id);
}

void ListRegisterView::DeleteMaster() {
    const std::vector<int> rows = Master().SelectedRows();
    if (rows.empty()) {
        ShowWarning(QString::fromUtf8(m_spec.nothingSelected));
        return;
    }
    QString toBeDeleted;
    const bool known = Guarded([&] {
        std::vector<std::int32_t> ids;
        for (const int row : rows)
            ids.push_back(Master().Id(row));
        toBeDeleted = m_spec.toBeDeleted(Store(), ids);
    });
    if (!known || !AskToLose(QString::fromUtf8(m_spec.deleteQuestion), toBeDeleted))
        return;
    const WaitCursor wait;
    Guarded([&] {
        InOneEdit(Store(), [&] {
            Store().ExecuteSQL("DELETE FROM TmpID");
            const RecordsetPtr ids = Store().Table("TmpID");
            for (const int row : rows) {
                if (row >= Master().RowCount())
                    break;
                ids->AddNew();
                ids->put_Collect("id", Master().Id(row));
                ids->Update();
            }
            ids->Close();
            for (const char* statement : m_spec.deleteStatements)
                Store().ExecuteSQL(statement);
        });
    });
    FillMaster();
}

void ListRegisterView::ShowFilter() {
    Button(Command::ID_RECORD_FILTER).SetLatched(FilterActive());
    m_dropFilter->setVisible(FilterActive());
    if (!FilterActive())
        return;
    Guarded([this] {
        m_dropFilter->setText(QStringLiteral("%1 z %2").arg(GroupedNumber(Master().RowCount()),
                                                            GroupedNumber(Store().Query(AllSql())->get_RecordCount())));
    });
    m_layout.master.title->SetButton(m_dropFilter);
}

int ListRegisterView::RowToChange(const RecordList& list, const char* nothingSelected) {
    if (!list.isEnabled())
        return -1;
    const int row = list.SelectedRow();
    if (row < 0)
        ShowWarning(QString::fromUtf8(nothingSelected));
    return row;
}

bool ListRegisterView::EditDetailRow(const DetailEdit& edit) {
    const int row = RowToChange(edit.list, edit.nothingSelected);
    if (row < 0)
        return false;
    const std::int32_t id = edit.list.Id(row);
    RecordsetPtr record;
    bool found = false;
    const bool known = Guarded([&] {
        record = Store().Query(SqlText(edit.select, id));
        found = record->get_RecordCount() > 0;
        if (found)
            edit.read(*record);
    });
    if (!known)
        return false;
    bool written = false;
    if (found)
        written = AskAndSave(edit.ask, [&] {
            record->Requery();
            found = record->get_RecordCount() > 0;
            if (!found)
                return;
            edit.write(*record);
            record->Update();
            if (edit.after)
                edit.after(id);
        });
    if (!found)
        RemoveVanishedRow(edit.list, row);
    return found && written;
}

bool ListRegisterView::DeleteDetailRow(const DetailDeletion& deletion) {
    RecordList& list = deletion.list;
    const int row = RowToChange(list, deletion.nothingSelected);
    if (row < 0)
        return false;
    QString toBeDeleted;
    if (!Guarded([&] { toBeDeleted = deletion.toBeDeleted(Store(), list.Id(row)); }) ||
        !AskToLose(MessageText(deletion.question, list.CellText(row, 0)), toBeDeleted))
        return false;
    bool deleted = false;
    const bool whole = Guarded([&] {
        InOneEdit(Store(), [&] {
            for (const char* statement : deletion.statements)
                Store().ExecuteSQL(SqlText(statement, list.Id(row)));
            deleted = true;
            if (deletion.after)
                deletion.after(list.Id(row));
        });
    });
    if (whole)
        list.RemoveRow(row);
    else if (deleted)
        // What followed the deletion failed: the row is gone, or everything was taken back.
        RefillLevel(&list == &Detail() ? 1 : 2);
    return deleted;
}

void ListRegisterView::resizeEvent(QResizeEvent* event) {
    CRegisterView::resizeEvent(event);
    if (m_splitterPlaced || m_layout.splitter == nullptr)
        Arrange();
}

void ListRegisterView::showEvent(QShowEvent* event) {
    CRegisterView::showEvent(event);
    if (m_splitterPlaced || m_layout.splitter == nullptr)
        return;
    m_splitterPlaced = true;
    m_layout.wantedLeft = window()->width() - DetailSideWidth;
    Arrange();
}
