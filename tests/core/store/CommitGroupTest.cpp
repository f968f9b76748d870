// Commit groups and edits: whatever ends them, whole records stay.

#include "core/store/CommitGroup.h"
#include "core/store/Edit.h"
#include "tests/support/OtherProgram.h"
#include "tests/support/SampleRows.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <atomic>
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

TEST(CommitGroup, KeepsOnlyWhatItIsToldTo) {
    const struct {
        const char* end;
        std::function<void(CDataStore&, CCommitGroup&)> act;
        int records;
    } cases[] = {
        {"leaving", [](CDataStore&, CCommitGroup&) {}, 0},
        {"Finish", [](CDataStore&, CCommitGroup& group) { group.Finish(); }, 1},
        {"Keep", [](CDataStore&, CCommitGroup& group) { group.Keep(); }, 1},
        {"an exception", [](CDataStore&, CCommitGroup&) { throw std::runtime_error("cancel"); }, 0},
        {"an error of the store",
         [](CDataStore& store, CCommitGroup& group) {
             EXPECT_THROW(store.ExecuteSQL("nonsense"), ComError);
             group.Keep();
         },
         1},
        {"closing", [](CDataStore& store, CCommitGroup&) { EXPECT_FALSE(store.CloseDatabase()); }, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.end);
        StoreFolder folder;
        OtherProgram other(folder.folder);
        const RecordsetPtr lines = folder.store.Table("Move_Prod");
        const RecordsetPtr covers = folder.store.Table("Move_Cover");
        try {
            CCommitGroup group(folder.store);
            AppendRecord(lines, covers);
            group.RecordDone();
            {
                CCommitGroup inner(folder.store);
                inner.RecordDone();
                inner.Finish();
            }
            EXPECT_EQ(0, other.Count("Move_Prod"));
            c.act(folder.store, group);
        } catch (const std::exception&) {
        }
        EXPECT_EQ(c.records, other.Count("Move_Prod"));
        EXPECT_EQ(3 * c.records, other.Count("Move_Cover"));
        EXPECT_FALSE(folder.store.IsOpen() && folder.store.Engine().InGroup());
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

TEST(CommitGroup, RefusesEverythingOnceTheEngineRolledBack) {
    StoreFolder folder;
    const RecordsetPtr lines = folder.store.Table("Move_Prod");
    const RecordsetPtr covers = folder.store.Table("Move_Cover");
    int kept = 0;
    {
        CCommitGroup group(folder.store, [&] { ++kept; });
        AppendRecord(lines, covers);
        group.RecordDone();
        sqlite::Execute(folder.store.Engine().Handle(), "ROLLBACK"); // as a full disk makes it
        const std::function<void()> refused[] = {
            [&] { AppendRecord(lines, covers); }, [&] { folder.store.ExecuteSQL("DELETE FROM Cover"); },
            [&] { folder.store.Query("SELECT * FROM Cover"); }, [&] { group.Finish(); }};
        for (const auto& act : refused)
            EXPECT_EQ(ResultCode::Fail, CodeOf(act));
        group.Keep();
    }
    EXPECT_EQ(0, kept);
    AppendRecord(lines, covers);
    EXPECT_EQ("1|3", folder.AskAll("SELECT (SELECT count(*) FROM Move_Prod), count(*) FROM Move_Cover"));
}

TEST(CommitGroup, ACommitThatCannotBeIsRaised) {
    ShortPatience patience;
    SampleFolder folder;
    ASSERT_TRUE(folder.store.OpenDatabase());
    OtherProgram other(folder.folder);
    sqlite::Statement reading(other.Handle(), "SELECT * FROM Cover");
    const ScriptedMessages none;
    for (const bool edit : {false, true}) {
        ASSERT_TRUE(reading.Step());
        EXPECT_EQ(ResultCode::Locked, CodeOf([&] {
                      const auto act = [&] { folder.store.ExecuteSQL("DELETE FROM Cover"); };
                      if (edit)
                          InOneEdit(folder.store, act);
                      else
                          InCommitGroup(folder.store, {}, [&](CCommitGroup& group) {
                              act();
                              group.RecordDone();
                          });
                  }));
        reading.Reset();
        EXPECT_FALSE(folder.store.Engine().InGroup());
        EXPECT_EQ("7", folder.Ask("SELECT count(*) FROM Cover"));
        folder.store.ExecuteSQL("DELETE FROM CoverDiscard");
        EXPECT_EQ("0", folder.Ask("SELECT count(*) FROM CoverDiscard"));
    }
}

TEST(CommitGroup, LeavesTheFileFreeForAnotherWriter) {
    StoreFolder folder;
    OtherProgram other(folder.folder);
    sqlite3_busy_timeout(other.Handle(), 5000);
    std::atomic<bool> written = false;
    std::thread writer;
    int records = 0;
    const auto start = std::chrono::steady_clock::now();
    InCommitGroup(folder.store, {}, [&](CCommitGroup& group) {
        for (; std::chrono::steady_clock::now() - start < 4s && !written; ++records) {
            folder.store.ExecuteSQL("DELETE FROM Cover");
            if (records == 0)
                writer = std::thread([&] {
                    other.Run("INSERT INTO TmpID VALUES (9)");
                    written = true;
                });
            std::this_thread::sleep_for(5ms);
            group.RecordDone();
        }
    });
    EXPECT_TRUE(written) << "not within four seconds";
    writer.join();
    EXPECT_EQ("9", folder.Ask("SELECT id FROM TmpID"));
}

TEST(Edit, KeepsWhatWasWrittenBeforeAnErrorThatTheStoreSurvives) {
    const struct {
        const char* what;
        std::function<void(CDataStore&)> fail;
        const char* left;
    } cases[] = {
        {"nothing", [](CDataStore&) {}, "5|0"},
        {"an error of a statement", [](CDataStore& store) { store.ExecuteSQL("nonsense"); }, "5|6"},
        {"a loss",
         [](CDataStore& store) {
             sqlite::Execute(store.Engine().Handle(), "ROLLBACK");
             store.ExecuteSQL("DELETE FROM Cover");
         },
         "6|6"},
        {"something else", [](CDataStore&) { throw std::runtime_error("interrupted"); }, "6|6"},
        {"closing", [](CDataStore& store) { store.CloseDatabase(); }, "6|6"},
    };
    for (const auto& c : cases) {
        SampleFolder folder;
        folder.Sql("DELETE FROM Cover WHERE deleted; DELETE FROM CoverDiscard WHERE disc_id = 7");
        const auto act = [&] {
            folder.store.ExecuteSQL("DELETE FROM Cover WHERE cover_id = 6");
            // Inside another, an edit is not committed by itself.
            InOneEdit(folder.store, [&] { c.fail(folder.store); });
            folder.store.ExecuteSQL("DELETE FROM CoverDiscard");
        };
        try {
            InOneEdit(folder.store, act);
        } catch (const std::exception&) {
        }
        EXPECT_EQ(c.left, folder.AskAll("SELECT (SELECT count(*) FROM Cover), count(*) FROM CoverDiscard")) << c.what;
        EXPECT_FALSE(folder.store.IsOpen() && folder.store.Engine().InGroup()) << c.what;
    }
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
