// Issue lines on a disk that fails: each has its old or its new packaging, and what is told is true.

#include "core/base/Progress.h"
#include "core/rules/BulkRecompute.h"
#include "core/rules/PackagingChange.h"
#include "core/rules/Propagation.h"
#include "core/store/Engine.h"
#include "tests/support/Faults.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

namespace {

/// Lines of one product, whose definition has two rows, with one wrong old row each.
std::string Lines(int count) {
    return "BEGIN; INSERT INTO Product (prod_id, prod_name) VALUES (1, 'x'), (2, 'y');"
           "INSERT INTO Prod_CoverDT VALUES (1, 1, '2010-01-01');"
           "INSERT INTO Prod_Cover (dt_id, cover_id, cp_usealways, cp_qtyprod, cp_qtycover) VALUES "
           "(1, 1, 1, 10000, 10000), (1, 2, 1, 20000, 10000);"
           "WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < " +
           std::to_string(count) +
           ") INSERT INTO Move_Prod SELECT i, i, 1, 20000 FROM n;"
           "INSERT INTO Move (move_id, move_date) SELECT mvprod_id, '2012-05-05 00:00:00' FROM Move_Prod;"
           "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty) SELECT mvprod_id, move_id, 9, 1 FROM "
           "Move_Prod; COMMIT";
}

constexpr const char* EachLine =
    "SELECT mvprod_id, cover_id || '*' || mvcover_qty FROM Move_Cover ORDER BY mvprod_id, cover_id";

class Subject : public IFaultSubject {
public:
    using Act = std::function<std::int64_t(CDataStore&)>;

    Subject(const std::string& sql, Act act) : m_act(std::move(act)) {
        m_folder.Sql(sql);
        m_messages.AcceptAny();
        m_messages.Meanwhile([this] { EXPECT_FALSE(m_folder.store.Engine().InGroup()) << "a box over a lock"; });
    }
    const ProgramFolder& Folder() const override { return m_folder.folder; }
    std::int64_t Run(const std::function<void()>& arm) override {
        arm();
        const std::int64_t told = m_act(m_folder.store);
        EXPECT_FALSE(m_folder.store.Engine().InGroup());
        return told;
    }
    std::size_t Messages() const override { return m_messages.Shown().size(); }

private:
    StoreFolder m_folder;
    ScriptedMessages m_messages;
    Act m_act;
};

FaultyOperation Operation(const char* name, int lines, const Subject::Act& act) {
    return {name, [=] { return std::make_unique<Subject>(Lines(lines), act); }, EachLine};
}

std::int64_t RecomputeAll(CDataStore& store) {
    std::int64_t lines = 0;
    RecomputeAllIssues(store, SilentProgress(), lines);
    return lines;
}

std::int64_t RecomputeOne(CDataStore& store) {
    std::int64_t lines = 0;
    RecomputeIssuesOfProduct(store, 1, SilentProgress(), lines);
    return lines;
}

TEST(LineFaults, LeaveEachLineOldOrNew) {
    ExpectWholeAfterAnyFault(Operation("recompute all", 300, RecomputeAll));
    ExpectWholeAfterAnyFault(Operation("recompute a product", 300, RecomputeOne));
}

TEST(LineFaults, OfALongRunKeepWhatWasCommittedBefore) {
    ExpectWholeOnAFullDisk(Operation("several commits", 4000, RecomputeAll), {300'000, 700'000, 1'000'000});
}

TEST(LineFaults, OfAnAssignmentLeaveEachProductOldOrNew) {
    const auto assign = [](CDataStore& store) -> std::int64_t {
        ChosenPackaging chosen;
        chosen.rule.coverId = 3;
        const std::unique_ptr<IProgress> progress = SilentProgress().Open({}, false);
        try {
            AssignPackaging(store, {}, {1, 2}, DateTime::FromDay(2012, 1, 1), chosen, *progress);
        } catch (const ComError& error) {
            ShowComError(error);
        }
        return -1;
    };
    FaultyOperation operation = Operation("assignment", 40, assign);
    operation.units = {};
    ExpectWholeAfterAnyFault(operation);
}

} // namespace
