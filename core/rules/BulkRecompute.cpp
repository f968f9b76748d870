#include "core/rules/BulkRecompute.h"

#include "core/base/Messages.h"
#include "core/base/Progress.h"
#include "core/base/SqlText.h"
#include "core/rules/ItemCovers.h"

#include <QElapsedTimer>

#include <algorithm>

namespace {

constexpr int BarRange = 200;
/// A step of a very long run takes longer than a press of the button may wait.
constexpr int LongestDeafness = 100; // milliseconds

} // namespace

bool AskRecomputeAllIssues() {
    return AskYesNo(QStringLiteral("Opravdu si přejete upravit výdeje obalů podle nadefinovaných balení produktů?\n"
                                   "Ztratíte tak ručně provedné změny ve výdejích obalů!"));
}

BulkResult RecomputeAllIssues(CDataStore& store, IProgressDoor& door, std::int64_t& lines) {
    lines = 0;
    const std::unique_ptr<IProgress> progress = door.Open(QStringLiteral("Úprava vydaných obalů"), true);
    progress->SetRange(0, BarRange);
    try {
        const RecordsetPtr target = store.Table("Move_Cover");
        const RecordsetPtr rows = store.Query("SELECT Move.move_date, Move_Prod.* FROM Move INNER JOIN Move_Prod ON "
                                              "Move.move_id = Move_Prod.move_id ");
        const std::int64_t count = rows->get_RecordCount();
        if (count > 0)
            progress->SetPhaseText(QStringLiteral("Aktualizuji kuvel u vydaných produktů"));
        const std::int64_t step = std::max<std::int64_t>(count / BarRange, 1);
        QElapsedTimer sinceLook;
        sinceLook.start();
        CCommitGroup group(store);
        for (; !rows->get_EOF(); rows->MoveNext()) {
            const bool isStep = lines % step == 0;
            if (isStep || sinceLook.hasExpired(LongestDeafness)) {
                if (progress->CancelRequested()) {
                    group.Finish();
                    ShowMessage(QStringLiteral("Aktualizace byla přerušena!"));
                    return BulkResult::Cancelled;
                }
                sinceLook.start();
            }
            if (isStep) {
                progress->SetDetailText(MessageText("%li z %li", lines + 1, count));
                progress->SetPosition(static_cast<int>(BarRange * (lines + 1) / count));
            }
            const Variant mvprodId = rows->get_Collect("mvprod_id");
            store.ExecuteSQL(SqlText("DELETE FROM Move_Cover WHERE mvprod_id = %li", ToLong(mvprodId)));
            ComputeItemCovers(store, target, mvprodId, rows->get_Collect("move_id"), rows->Long("prod_id"),
                              ToCurrency(rows->get_Collect("mvprod_qty")), ToDate(rows->get_Collect("move_date")));
            group.RecordDone();
            ++lines;
        }
        group.Finish();
        return BulkResult::Done;
    } catch (const ComError& error) {
        ShowComError(error);
        return BulkResult::Failed;
    }
}
