// Commit groups: whatever ends them, whole records stay.

#include "tests/support/OtherProgram.h"
#include "tests/support/SampleRows.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <thread>

#include <csignal>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/// One whole record: a line with three packaging rows.
void AppendRecord(const RecordsetPtr& lines, const RecordsetPtr& covers) {
    lines->AddNew();
    lines->put_Collect("move_id", 1);
    lines->Update();
    for (int i = 0; i < 3; ++i) {
        covers->AddNew();
        covers->put_Collect("mvprod_id", lines->Long("mvprod_id"));
        covers->Update();
    }
}

} // namespace

TEST(CommitGroup, CommitsAtItsEndHoweverItEnds) {
    const struct {
        const char* end;
        std::function<void(CDataStore&, CCommitGroup&)> act;
    } cases[] = {
        {"leaving", [](CDataStore&, CCommitGroup&) {}},
        {"Finish", [](CDataStore&, CCommitGroup& group) { group.Finish(); }},
        {"an exception", [](CDataStore&, CCommitGroup&) { throw std::runtime_error("cancel"); }},
        {"an error of the store", [](CDataStore& store, CCommitGroup&) { store.ExecuteSQL("nonsense"); }},
        {"closing", [](CDataStore& store, CCommitGroup&) { store.CloseDatabase(); }},
    };
    for (const auto& c : cases) {
        StoreFolder folder;
        OtherProgram other(folder.folder);
        const RecordsetPtr lines = folder.store.Table("Move_Prod");
        const RecordsetPtr covers = folder.store.Table("Move_Cover");
        try {
            CCommitGroup group(folder.store);
            AppendRecord(lines, covers);
            group.RecordDone();
            EXPECT_EQ(0, other.Count("Move_Prod")) << c.end;
            {
                CCommitGroup inner(folder.store);
                inner.RecordDone();
                inner.Finish();
            }
            EXPECT_EQ(0, other.Count("Move_Prod")) << c.end;
            c.act(folder.store, group);
        } catch (const std::exception&) {
        }
        EXPECT_EQ(1, other.Count("Move_Prod")) << c.end;
        EXPECT_EQ(3, other.Count("Move_Cover")) << c.end;
        EXPECT_FALSE(folder.store.IsOpen() && folder.store.Engine().InGroup()) << c.end;
    }
}

TEST(CommitGroup, CommitsWholeRecordsByRowsAndByTime) {
    StoreFolder folder;
    OtherProgram other(folder.folder);
    const RecordsetPtr lines = folder.store.Table("Move_Prod");
    const RecordsetPtr covers = folder.store.Table("Move_Cover");
    CCommitGroup group(folder.store);
    int record = 0;
    for (; other.Count("Move_Prod") == 0 && record < 3000; ++record) {
        AppendRecord(lines, covers);
        group.RecordDone();
    }
    EXPECT_LE(record, 1250); // of four rows each; a slow disk may come to the second first
    EXPECT_EQ(record, other.Count("Move_Prod"));
    EXPECT_EQ(3 * record, other.Count("Move_Cover"));
    AppendRecord(lines, covers);
    std::this_thread::sleep_for(1050ms);
    EXPECT_EQ(record, other.Count("Move_Prod")); // only between records
    group.RecordDone();
    EXPECT_EQ(record + 1, other.Count("Move_Prod"));
}

TEST(CommitGroup, GoesOnAfterTheEngineRolledBack) {
    StoreFolder folder;
    const RecordsetPtr lines = folder.store.Table("Move_Prod");
    const RecordsetPtr covers = folder.store.Table("Move_Cover");
    {
        CCommitGroup group(folder.store);
        AppendRecord(lines, covers);
        sqlite::Execute(folder.store.Engine().Handle(), "ROLLBACK"); // as a full disk makes it
        std::this_thread::sleep_for(1050ms);
        group.RecordDone();
        AppendRecord(lines, covers);
        group.RecordDone();
    }
    EXPECT_EQ("1", folder.Ask("SELECT count(*) FROM Move_Prod"));
    EXPECT_EQ("3", folder.Ask("SELECT count(*) FROM Move_Cover"));
}

TEST(CommitGroup, ACommitThatCannotBeIsShown) {
    ShortPatience patience;
    SampleFolder folder;
    ASSERT_TRUE(folder.store.OpenDatabase());
    OtherProgram other(folder.folder);
    sqlite::Statement reading(other.Handle(), "SELECT * FROM Cover");
    ScriptedMessages messages;
    {
        CCommitGroup group(folder.store);
        folder.store.ExecuteSQL("DELETE FROM TmpID");
        ASSERT_TRUE(reading.Step());
        messages.Expect("Došlo k chybě COM č.0x80070021\n\nDatabázi právě používá jiná aplikace.",
                        Message::Icon::Error);
    }
    reading.Reset();
    EXPECT_FALSE(folder.store.Engine().InGroup());
    folder.store.ExecuteSQL("DELETE FROM CoverDiscard");
    EXPECT_EQ("0", folder.Ask("SELECT count(*) FROM CoverDiscard"));
    // Closing cannot commit either: false, but the file is let go.
    const RecordsetPtr held = folder.store.Query("SELECT * FROM Cover");
    CCommitGroup group(folder.store);
    folder.store.ExecuteSQL("DELETE FROM Cover");
    ASSERT_TRUE(reading.Step());
    EXPECT_FALSE(folder.store.CloseDatabase());
    reading.Reset();
    EXPECT_NO_THROW(other.Run("BEGIN EXCLUSIVE; ROLLBACK"));
    EXPECT_EQ("7", folder.Ask("SELECT count(*) FROM Cover"));
}

TEST(CommitGroup, AKilledProgramLeavesWholeRecords) {
    int survived = 0;
    for (const auto lifetime : {20ms, 60ms, 90ms, 130ms, 170ms, 220ms}) {
        ProgramFolder folder;
        folder.AddDatabase();
        const pid_t child = fork();
        if (child == 0) {
            CDataStore store;
            if (!store.OpenDatabase())
                _exit(1);
            const RecordsetPtr lines = store.Table("Move_Prod");
            const RecordsetPtr covers = store.Table("Move_Cover");
            CCommitGroup group(store);
            while (true) {
                AppendRecord(lines, covers);
                group.RecordDone();
            }
        }
        std::this_thread::sleep_for(lifetime);
        ASSERT_EQ(0, kill(child, SIGKILL));
        ASSERT_EQ(child, waitpid(child, nullptr, 0));
        CDataStore store;
        ASSERT_TRUE(store.OpenDatabase(true)); // rolls back what was under way
        const int lines = std::stoi(folder.Ask("SELECT count(*) FROM Move_Prod"));
        EXPECT_EQ(std::to_string(3 * lines), folder.Ask("SELECT count(*) FROM Move_Cover"));
        EXPECT_EQ("0", folder.Ask("SELECT count(*) FROM Move_Prod AS l WHERE (SELECT count(*) FROM Move_Cover AS c "
                                  "WHERE c.mvprod_id = l.mvprod_id) <> 3"));
        survived += lines;
    }
    EXPECT_GT(survived, 0) << "no child lived to its first commit";
}
