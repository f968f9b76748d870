#include "core/rules/Recomputation.h"

#include "core/base/Messages.h"
#include "core/base/Pacing.h"
#include "core/base/SqlText.h"
#include "core/rules/IssueLines.h"
#include "core/store/CommitGroup.h"
#include "core/store/Edit.h"

RecordsetPtr AllLines(CDataStore& store) {
    return store.Query("SELECT * FROM Move_Prod WHERE (move_id IN (SELECT move_id FROM Move))");
}

RecordsetPtr LinesOfProduct(CDataStore& store, std::int32_t prodId) {
    return store.Query(
        SqlText("SELECT * FROM Move_Prod WHERE (prod_id=%li) AND (move_id IN (SELECT move_id FROM Move))", prodId));
}

bool RecomputeLines(CDataStore& store, CRecordset& issueLines, const std::function<bool(std::int64_t)>& goOn,
                    std::int64_t& lines) {
    lines = 0;
    CIssueLines road(store);
    std::int64_t written = 0;
    bool ended = false;
    const auto loop = [&](CCommitGroup& group) {
        for (std::int64_t i = 0; !ended && !issueLines.get_EOF(); issueLines.MoveNext(), ++i) {
            ended = !goOn(i);
            if (ended || !road.Recompute(issueLines))
                continue;
            // Counted first: a commit, of this line too, may come with the record's end.
            ++written;
            group.RecordDone();
        }
    };
    InCommitGroup(
        store, [&] { lines = written; }, loop);
    return !ended;
}

void RecomputeProduct(CDataStore& store, std::int32_t prodId, IProgress& progress) {
    InOneEdit(store, [&] {
        const RecordsetPtr issueLines = LinesOfProduct(store, prodId);
        progress.SetPhaseText(QStringLiteral("Aktualizuji kuvel u vydaných produktů"));
        progress.SetRange(0, CPacing::BarRange);
        CPacing pacing(progress, issueLines->get_RecordCount());
        const auto show = [&](std::int64_t line) {
            pacing.GoOn(line);
            return true;
        };
        std::int64_t lines = 0;
        RecomputeLines(store, *issueLines, show, lines);
    });
}

int RecomputeProductCovers(CDataStore& store, std::int32_t prodId) {
    std::int64_t lines = 0;
    try {
        RecomputeLines(
            store, *LinesOfProduct(store, prodId), [](std::int64_t) { return true; }, lines);
        return static_cast<int>(lines);
    } catch (const ComError& error) {
        ShowComError(error);
        return -1;
    }
}
