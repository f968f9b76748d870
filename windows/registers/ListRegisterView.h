#pragma once

#include "windows/registers/RegisterLayout.h"
#include "windows/registers/RegisterView.h"
#include "windows/widgets/commands/ContextMenus.h"
#include "windows/widgets/lists/RecordList.h"

#include <QDialog>

#include <map>
#include <optional>
#include <utility>

/// What a register is made of. Texts are UTF-8; the delete statements take their rows "IN (SELECT id FROM TmpID)".
struct RegisterSpec {
    ListSpec master;
    /// The table that new records go to.
    const char* masterTable = "";
    const char* masterTitle = "";
    ContextMenu masterMenu = ContextMenu::RecMain;
    std::optional<ListSpec> detail;
    const char* detailTitle = "";
    std::optional<ListSpec> subdetail;
    /// Null for a third list without a title.
    const char* subdetailTitle = nullptr;

    /// The fields that can be searched in the master list.
    std::vector<const char*> findFields;
    /// The field that a search begins with, by the column that a list is sorted by; null, or none, for no field.
    std::vector<const char*> findFirst;
    /// Which list that is: 0 the master list, 2 the third.
    int findFirstLevel = 0;

    /// Edit or delete without a master row.
    const char* nothingSelected = "";
    const char* deleteQuestion = "";
    std::vector<const char*> deleteStatements;
    /// What stands below the question.
    QString (*toBeDeleted)(CDataStore& store, const std::vector<std::int32_t>& ids) = nullptr;
};

/// What all registers share: a master list and up to two detail lists, each showing the children of the row that is
/// selected in the list before it; the commands on them; and the order of questions, checks and statements of each
/// command. A register gives its lists, its SQL and its dialogs.
///
/// Every operation shows the errors of the store itself and leaves written what was written before; after an error in
/// the middle of writing the list is filled again.
class ListRegisterView : public CRegisterView {
    Q_OBJECT

public:
    void InitialUpdate() override;
    bool Handles(Command command) const override;
    void Run(Command command) override;
    /// Refresh. Registers that know more messages extend it.
    void Receive(ViewMessage message) override;
    QString FindName() const override;
    std::vector<std::string> FindFields() const override;
    void FindReplace(const FindRequest& request) override;

protected:
    static constexpr std::int32_t KeepSelection = RecordList::KeepSelection;

    ListRegisterView(CDataStore& store, IBroadcaster& broadcaster, RegisterSpec spec, QWidget* parent);

    /// Makes the command one that this register handles.
    void On(Command command, std::function<void()> handler) { m_handlers[command] = std::move(handler); }

    // The queries of the lists, without their order where the header is clickable. An empty text leaves a detail list
    // empty; the second list is filled for exactly one selected master row.
    virtual std::string AllSql() const = 0;
    virtual std::string FilterClauses() const = 0;
    virtual std::string DetailSql(std::int32_t) const { return {}; }
    virtual std::string SubdetailSql() const { return {}; }
    virtual bool FilterActive() const = 0;
    /// All criteria are off.
    virtual void ForgetFilter() = 0;
    /// On every change of the master selection: the detail side works while fewer than two master rows are selected.
    virtual void EnableDetails();
    bool DetailsAllowed() const { return Master().SelectedCount() < 2; }

    RecordList& Master() const { return *m_layout.master.list; }
    RecordList& Detail() const { return *m_layout.detail.list; }
    RecordList& Subdetail() const { return *m_layout.subdetail.list; }
    CIconButton& Button(Command command) const { return *m_buttons.at(command); }
    /// The selected master row when there is exactly one; `RecordList::NoId` otherwise.
    std::int32_t SingleMasterId() const;
    /// Puts a button at the right end of the second list's title.
    void AddTitleButton(CIconButton* button);
    void Arrange() { m_layout.Arrange(size()); }

    /// Fills the list and those below it.
    bool FillMaster(std::int32_t id = KeepSelection);
    void FillDetail(std::int32_t id = KeepSelection);
    void FillSubdetail(std::int32_t id = KeepSelection);

    /// Shows one dialog; true for OK.
    using Ask = std::function<bool()>;
    static Ask Shown(QDialog& dialog);
    /// Fills the dialog from a record, before it is shown.
    using Read = std::function<void(const CRecordset& record)>;
    using Write = std::function<void(CRecordset& record)>;
    /// What follows a record that was written or deleted, in the same edit; no message may be shown in it.
    using After = std::function<void(std::int32_t id)>;

    /// Shows the dialog and runs `save` as one edit. A save that fails with nothing written brings the dialog back as
    /// it was. False when it was cancelled.
    bool AskAndSave(const Ask& ask, const std::function<void()>& save);
    /// Adds a record of the master list, then `after` and the fill of the list, which selects the record.
    void AddToMaster(const Ask& ask, const Write& write, const After& after = {});
    /// The focused row: located, shown, located again, written, then `after` and the fill.
    void EditMaster(const Read& read, const Ask& ask, const Write& write, const After& after = {});
    void DeleteMaster();
    /// The dialog has a copy of the criteria. Criteria that the store refuses are taken back, and the rows stay.
    template <class Filter, class Dialog>
    void EditFilter(Filter& filter, Dialog&& dialog) {
        if (dialog.exec() == QDialog::Accepted) {
            const Filter before = std::exchange(filter, dialog.Filter());
            if (!FillMaster())
                filter = before;
        }
        ShowFilter();
    }

    /// The selected row of a detail list, edited.
    struct DetailEdit {
        RecordList& list;
        const char* nothingSelected;
        const char* select; // "SELECT * FROM … WHERE (… = %li)"
        Read read;
        Ask ask;
        Write write;
        After after = {};
    };
    /// The selected row of a detail list, deleted.
    struct DetailDeletion {
        RecordList& list;
        const char* nothingSelected;
        const char* question; // with the place of the first column's text
        /// What stands below the question.
        QString (*toBeDeleted)(CDataStore& store, std::int32_t id);
        std::vector<const char*> statements = {}; // "DELETE FROM … WHERE (… = %li)"
        After after = {};
    };
    /// True when the row was written. Nothing happens while the list is disabled.
    bool EditDetailRow(const DetailEdit& edit);
    /// True when the row was deleted. Nothing happens while the list is disabled.
    bool DeleteDetailRow(const DetailDeletion& deletion);

    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void MakeGroup(ListGroup& group, const ListSpec& spec, const char* title, int level);
    void OnMasterSelection();
    void ShowMenu(int level, const QPoint& screen, bool onRow);
    void RefillLevel(int level);
    /// −1 while the list is disabled, and after the warning that no row is selected.
    static int RowToChange(const RecordList& list, const char* nothingSelected);
    void ShowFilter();
    void ShowFirstSteps();
    /// A record that was saved, but that the filter does not show.
    void TellIfHidden(std::int32_t id);
    void OpenFind(FindMode mode);
    /// The record of this key as the current one of the master's recordset; false when it has gone.
    bool FindMaster(std::int32_t id);

    RegisterSpec m_spec;
    RegisterLayout m_layout;
    std::map<Command, CIconButton*> m_buttons;
    std::map<Command, std::function<void()>> m_handlers;
    CIconButton* m_dropFilter;
    bool m_splitterPlaced = false;
};

/// Tells that the record is gone and takes its row out of the list.
void RemoveVanishedRow(RecordList& list, int row);
