#include "core/rules/BulkRecompute.h"

#include "core/base/Messages.h"
#include "core/base/Pacing.h"
#include "core/rules/ChangeReach.h"
#include "core/rules/Recomputation.h"

bool AskRecomputeAllIssues(CDataStore& store) {
    QString reach;
    try {
        reach = ReachOfRecomputation(store);
    } catch (const ComError& error) {
        ShowComError(error);
        return false;
    }
    return AskToLose(QStringLiteral("Opravdu si přejete upravit výdeje obalů podle nadefinovaných balení produktů?\n"
                                    "Ztratíte tak ručně provedné změny ve výdejích obalů!"),
                     reach);
}

namespace {

template <class Lines>
BulkResult Run(CDataStore& store, const Lines& linesOf, IProgressDoor& door, std::int64_t& lines) {
    lines = 0;
    const std::unique_ptr<IProgress> progress = door.Open(QStringLiteral("Úprava vydaných obalů"), true);
    try {
        const RecordsetPtr issueLines = linesOf();
        progress->SetRange(0, CPacing::BarRange);
        CPacing pacing(*progress, issueLines->get_RecordCount());
        if (!issueLines->get_EOF())
            progress->SetPhaseText(QStringLiteral("Aktualizuji kuvel u vydaných produktů"));
        if (RecomputeLines(
                store, *issueLines, [&](std::int64_t i) { return pacing.GoOn(i); }, lines))
            return BulkResult::Done;
        ShowMessage(QStringLiteral("Aktualizace byla přerušena!"));
        return BulkResult::Cancelled;
    } catch (const ComError& error) {
        ShowComError(error);
        return BulkResult::Failed;
    }
}

} // namespace

BulkResult RecomputeAllIssues(CDataStore& store, IProgressDoor& door, std::int64_t& lines) {
    return Run(
        store, [&] { return AllLines(store); }, door, lines);
}

BulkResult RecomputeIssuesOfProduct(CDataStore& store, std::int32_t prodId, IProgressDoor& door, std::int64_t& lines) {
    return Run(
        store, [&] { return LinesOfProduct(store, prodId); }, door, lines);
}
