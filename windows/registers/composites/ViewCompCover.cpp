#include "windows/registers/composites/ViewCompCover.h"

#include "core/base/SqlText.h"
#include "core/rules/ScratchItems.h"
#include "core/rules/ToBeDeleted.h"
#include "core/store/DataStore.h"
#include "windows/registers/composites/CompCoverDlg.h"
#include "windows/registers/composites/CompCoverFilterDlg.h"
#include "windows/widgets/RegisterTexts.h"

#include <optional>

namespace {

RegisterSpec CompositeRegister() {
    RegisterSpec spec;
    spec.master.objectName = QStringLiteral("composites");
    spec.master.columns = Columns({"ccover_name", "ccover_note"});
    spec.master.keyField = "ccover_id";
    spec.master.defaultSort = "ccover_name";
    spec.master.multiSelection = true;
    spec.masterTable = "CompCover";
    spec.masterTitle = "Složené kuvel";
    spec.findFields = {"ccover_name", "ccover_note"};
    spec.findFirst = {"ccover_name", "ccover_note"};
    spec.nothingSelected = Text::NoCover;
    spec.deleteQuestion = Text::DeleteCovers;
    spec.deleteStatements = {"DELETE FROM CompCover_Item WHERE ccover_id IN (SELECT id FROM TmpID)",
                             "DELETE FROM CompCover WHERE ccover_id IN (SELECT id FROM TmpID)"};
    spec.toBeDeleted = CompositesToBeDeleted;
    return spec;
}

} // namespace

CViewCompCover::CViewCompCover(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent)
    : ListRegisterView(store, broadcaster, CompositeRegister(), parent) {
    On(Command::ID_RECORD_ADD, [this] { OnAddCompCover(); });
    On(Command::ID_RECORD_EDIT, [this] { OnEditCompCover(); });
    On(Command::ID_RECORD_FILTER, [this] { OnFilterCompCovers(); });
}

std::string CViewCompCover::AllSql() const {
    return "SELECT * FROM CompCover";
}

void CViewCompCover::OnAddCompCover() {
    CCompCoverDlg dialog(Store(), CCompCoverDlg::NewComposite, {}, this);
    AddToMaster(
        Shown(dialog), [&](CRecordset& record) { dialog.Values().Write(record); },
        [this](std::int32_t id) { ScratchItems::Store(Store(), id); });
}

void CViewCompCover::OnEditCompCover() {
    std::optional<CCompCoverDlg> dialog;
    EditMaster(
        [&](const CRecordset& record) {
            dialog.emplace(Store(), record.Long("ccover_id"), CompositeValues::Read(record), this);
        },
        [&] { return dialog->exec() == QDialog::Accepted; },
        [&](CRecordset& record) { dialog->Values().Write(record); },
        [this](std::int32_t id) {
            Store().ExecuteSQL(SqlText("DELETE FROM CompCover_Item WHERE ccover_id = %li", id));
            ScratchItems::Store(Store(), id);
        });
}

void CViewCompCover::OnFilterCompCovers() {
    EditFilter(m_filter, CCompCoverFilterDlg(m_filter, this));
}
