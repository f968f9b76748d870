#include "tests/core/import/MemoryImport.h"
#include "tests/support/Faults.h"
#include "tests/support/OtherProgram.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using End = ImportResult::End;

/// Forty documents of three lines, half of them imported before, on a disk that fails.
struct ImportOnFaultyDisk : IFaultSubject {
    struct World : ImportFrame {
        void TestBody() override {}
    } world;

    ImportOnFaultyDisk() {
        world.AddPackagedProduct(1);
        world.options.existing = ExistingRecords::Overwrite;
        Fill(20, 5);
        world.Run();
        Fill(40, 20);
        world.messages.AcceptAny();
    }
    void Fill(int documents, int quantity) {
        world.source.lines.clear();
        for (int i = 0; i < 3 * documents; ++i)
            world.source.lines.push_back({i / 3, QStringLiteral("D%1").arg(i / 3), 1, Currency::FromWhole(quantity)});
    }
    const ProgramFolder& Folder() const override { return world.folder; }
    std::int64_t Run(const std::function<void()>& arm) override {
        arm();
        return RunImportCommand(world.Command()).counts.documents;
    }
    std::size_t Messages() const override {
        return world.messages.Shown().size() - 1; // the summary
    }
};

TEST(ImportFaults, LeaveEachDocumentOldOrNew) {
    ExpectWholeAfterAnyFault({"import", [] { return std::make_unique<ImportOnFaultyDisk>(); },
                              "SELECT move_num, (SELECT group_concat(mvprod_qty) FROM Move_Prod AS p WHERE p.move_id = "
                              "m.move_id) || ' ' || (SELECT group_concat(mvcover_qty) FROM Move_Cover AS c WHERE "
                              "c.move_id = m.move_id) FROM Move AS m"});
}

TEST_F(ImportFrame, CountsOnlyWhatIsKept) {
    AddPackagedProduct(1);
    AddPackagedProduct(2);
    constexpr int Documents = 40;
    constexpr int LinesOfOne = 150;
    for (int i = 0; i < Documents * LinesOfOne; ++i)
        source.lines.push_back({i / LinesOfOne, QStringLiteral("D%1").arg(i / LinesOfOne), 1 + i % 3});
    ShortPatience patience;
    ASSERT_TRUE(store.OpenDatabase()); // with that patience
    messages.AcceptAny();
    const auto expectKept = [&](const ImportResult& result) {
        EXPECT_EQ(End::Failed, result.end);
        EXPECT_LT(result.counts.documents, Documents);
        EXPECT_EQ(std::to_string(result.counts.products) + "|" + std::to_string(result.counts.documents) + "|" +
                      std::to_string(LinesOfOne * result.counts.documents),
                  AskAll("SELECT (SELECT count(*) FROM Product) - 2, (SELECT count(*) FROM Move), count(*) FROM "
                         "Move_Prod"));
        EXPECT_EQ("0", Ask("SELECT count(*) FROM Move_Prod WHERE move_id NOT IN (SELECT move_id FROM Move)"));
        EXPECT_FALSE(store.Engine().InGroup());
    };
    const auto pages = [&] { return std::stoi(Ask("PRAGMA page_count")); };
    const auto empty = [&] {
        Sql("DELETE FROM Move; DELETE FROM Move_Prod; DELETE FROM Move_Cover; DELETE FROM Product WHERE prod_id > 2;"
            "VACUUM");
        return pages();
    };
    const auto limit = [&](int most) {
        sqlite::Execute(store.Engine().Handle(), ("PRAGMA max_page_count = " + std::to_string(most)).c_str());
    };
    const int before = empty();
    EXPECT_EQ(End::Done, Run(ExistingRecords::Keep).end);
    const int needed = pages() - before;
    int some = 0;
    // The disk is full at one of the rows of a line, its packaging or a header; the engine then rolls back by itself.
    for (const int lacking : {needed - 1, needed / 2, needed / 3, 4, 3, 2, 1}) {
        SCOPED_TRACE(lacking);
        limit(empty() + needed - lacking);
        const ImportResult result = Run(ExistingRecords::Keep);
        expectKept(result);
        some += result.counts.documents;
        limit(1'000'000);
    }
    EXPECT_GT(some, 0) << "no import came to its first commit";

    // A commit that another program does not let through.
    empty();
    OtherProgram other(folder);
    sqlite::Statement reading(other.Handle(), "SELECT * FROM Product");
    source.onLine = [&](std::size_t row) {
        if (row == 5900) {
            EXPECT_TRUE(reading.Step());
        }
    };
    const std::size_t shown = messages.Shown().size();
    const ImportResult result = Run(ExistingRecords::Keep);
    reading.Reset();
    expectKept(result);
    EXPECT_GT(result.counts.documents, 0);
    EXPECT_EQ(shown + 1, messages.Shown().size());
}

TEST_F(ImportFrame, KilledAnywhereItIsCompletedByTheNext) {
    AddPackagedProduct(1);
    constexpr int Documents = 40;
    constexpr int LinesOfOne = 150;
    for (int i = 0; i < Documents * LinesOfOne; ++i)
        source.lines.push_back({i / LinesOfOne, QStringLiteral("D%1").arg(i / LinesOfOne), 1, Currency::FromWhole(i)});
    options.products = false;
    store.CloseDatabase();
    int partly = 0;
    for (const std::size_t killAt : {std::size_t{100}, std::size_t{3777}, std::size_t{5900}}) {
        Sql("DELETE FROM Move; DELETE FROM Move_Prod; DELETE FROM Move_Cover");
        const pid_t child = fork();
        if (child == 0) {
            source.onLine = [killAt](std::size_t row) {
                if (row == killAt)
                    std::raise(SIGKILL);
            };
            CDataStore own;
            own.OpenDatabase();
            ImportCounts counts;
            RunImport(own, source, options, SilentProgress(), door, counts);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(child, waitpid(child, &status, 0));
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);

        ASSERT_TRUE(store.OpenDatabase(true));
        const int left = std::stoi(Ask("SELECT count(*) FROM Move"));
        partly += left > 0 && left < Documents;
        // Whole documents, each line with its packaging; so even an import that keeps what exists completes it.
        EXPECT_EQ(std::to_string(left * LinesOfOne), Ask("SELECT count(*) FROM Move_Prod")) << killAt;
        EXPECT_EQ(std::to_string(left * LinesOfOne), Ask("SELECT count(*) FROM Move_Cover")) << killAt;
        EXPECT_EQ(End::Done, Run(ExistingRecords::Keep).end);
        EXPECT_EQ("40|6000|6000", AskAll("SELECT (SELECT count(*) FROM Move), (SELECT count(*) FROM Move_Prod), "
                                         "(SELECT count(*) FROM Move_Cover)"))
            << killAt;
        EXPECT_EQ("40", Ask("SELECT count(DISTINCT move_num) FROM Move")) << killAt;
        store.CloseDatabase();
    }
    EXPECT_GT(partly, 0) << "no kill fell between two commits";
}

} // namespace
