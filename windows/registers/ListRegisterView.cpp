#include "windows/registers/ListRegisterView.h"

#include "core/base/SqlText.h"
#include "core/store/Edit.h"
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

std::vector<std::string> ListRegisterView::FindFields() const {
    return {m_spec.findFields.begin(), m_spec.findFields.end()};
}

void ListRegisterView::FindReplace(const FindRequest& request) {
    Guarded([&] { CarryOut(request, Store(), Master()); });
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
    const bool filled = Master().FillKeeping(MasterSql(), id);
    EnableDetails();
    FillDetail();
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

void ListRegisterView::AddToMaster(const Write& write, const After& after) {
    std::int32_t id = KeepSelection;
    Guarded([&] {
        InOneEdit(Store(), [&] {
            CRecordset& records = *Master().Records();
            records.AddNew();
            write(records);
            records.Update();
            id = records.Long(m_spec.master.keyField);
            if (after)
                after(id);
        });
    });
    FillMaster(id);
}

void ListRegisterView::EditMaster(const Ask& ask, const Write& write, const After& after) {
    const int row = Master().FocusedRow();
    if (row < 0) {
        ShowWarning(QString::fromUtf8(m_spec.nothingSelected));
        return;
    }
    bool writing = false;
    Guarded([&] {
        const std::int32_t id = Master().Id(row);
        bool found = FindMaster(id);
        if (found && !ask(*Master().Records()))
            return;
        if (found) {
            InOneEdit(Store(), [&] {
                found = FindMaster(id);
                if (!found)
                    return;
                writing = true;
                CRecordset& record = *Master().Records();
                write(record);
                record.Update();
                if (after)
                    after(id);
            });
        }
        if (!found)
            RemoveVanishedRow(Master(), row);
    });
    if (writing)
        FillMaster();
}

void ListRegisterView::DeleteMaster() {
    const std::vector<int> rows = Master().SelectedRows();
    if (rows.empty()) {
        ShowWarning(QString::fromUtf8(m_spec.nothingSelected));
        return;
    }
    if (!AskYesNo(QString::fromUtf8(m_spec.deleteQuestion)))
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

void ListRegisterView::EditFilter(const std::function<bool()>& ask) {
    if (ask())
        FillMaster();
    Button(Command::ID_RECORD_FILTER).SetLatched(FilterActive());
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
    bool written = false;
    Guarded([&] {
        const std::int32_t id = edit.list.Id(row);
        const RecordsetPtr record = Store().Query(SqlText(edit.select, id));
        bool found = record->get_RecordCount() > 0;
        if (found && !edit.ask(*record))
            return;
        if (found) {
            InOneEdit(Store(), [&] {
                record->Requery();
                found = record->get_RecordCount() > 0;
                if (!found)
                    return;
                edit.write(*record);
                record->Update();
                written = true;
                if (edit.after)
                    edit.after(id);
            });
        }
        if (!found)
            RemoveVanishedRow(edit.list, row);
    });
    return written;
}

bool ListRegisterView::DeleteDetailRow(const DetailDeletion& deletion) {
    RecordList& list = deletion.list;
    const int row = RowToChange(list, deletion.nothingSelected);
    if (row < 0 || !AskYesNo(MessageText(deletion.question, list.CellText(row, 0))))
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
