#include "core/rules/PackagingChange.h"

#include "core/base/Pacing.h"
#include "core/rules/Propagation.h"
#include "core/rules/Recomputation.h"
#include "core/store/CommitGroup.h"
#include "core/store/Edit.h"
#include "core/store/Engine.h"

namespace {

/// Runs `add`; whatever it wrote, also before an error that the store survives, `follow` comes after it.
template <class Add, class Follow>
void FollowedBy(CDataStore& store, const Add& add, const Follow& follow) {
    const std::int64_t before = store.Engine().Changes();
    try {
        add();
    } catch (const ComError&) {
        if (store.Engine().StillStands() && store.Engine().Changes() != before)
            follow();
        throw;
    }
    follow();
}

/// The window of a run of products while one of them is recomputed: it is kept painting, and a press of Cancel waits.
class CWithinProduct : public IProgress {
public:
    CWithinProduct(IProgress& run, int position) : m_run(run), m_position(position) {}
    void SetRange(int, int) override {}
    void SetPhaseText(const QString&) override {}
    void SetDetailText(const QString&) override {}
    void SetPosition(int) override { m_run.SetPosition(m_position); }
    bool CancelRequested() override {
        m_run.SetPosition(m_position);
        return false;
    }

private:
    IProgress& m_run;
    const int m_position;
};

/// One product of an assignment. What was written before an error stays.
void Assign(CDataStore& store, const PropagationOptions& options, std::int32_t prodId, const DateTime& from,
            const ChosenPackaging& chosen, IProgress& progress) {
    const RecordsetPtr dates = DefinitionsOfDay(store, prodId, from);
    if (dates->get_RecordCount() == 0)
        AddDefinition(*dates, prodId, from);
    AddPackaging(store, options, prodId, dates->Long("dt_id"), chosen, progress);
}

} // namespace

void PackagingChanged(CDataStore& store, const PropagationOptions& options, std::int32_t prodId, IProgress& progress) {
    if (options.packagingToIssues != 0)
        RecomputeProduct(store, prodId, progress);
}

void AddPackaging(CDataStore& store, const PropagationOptions& options, std::int32_t prodId, std::int32_t dtId,
                  const ChosenPackaging& chosen, IProgress& progress) {
    InOneEdit(store, [&] {
        FollowedBy(
            store, [&] { AddPackagingRows(store, store.Table("Prod_Cover"), dtId, chosen); },
            [&] { PackagingChanged(store, options, prodId, progress); });
    });
}

void AssignPackaging(CDataStore& store, const PropagationOptions& options, const std::vector<std::int32_t>& products,
                     const DateTime& from, const ChosenPackaging& chosen, IProgress& progress) {
    const auto count = static_cast<std::int64_t>(products.size());
    progress.SetRange(0, CPacing::BarRange);
    CPacing pacing(progress, count);
    progress.SetPhaseText(QStringLiteral("Přiřazuji kuvel produktům"));
    InCommitGroup(store, {}, [&](CCommitGroup& group) {
        for (std::int64_t i = 0; i < count && pacing.GoOn(i); ++i) {
            CWithinProduct within(progress, pacing.Position(i));
            Assign(store, options, products[static_cast<std::size_t>(i)], from, chosen, within);
            group.RecordDone();
        }
    });
}
