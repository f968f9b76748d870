#include "core/base/LateProgress.h"
#include "core/rules/BulkRecompute.h"
#include "core/rules/ItemCovers.h"
#include "core/rules/PackagingChange.h"
#include "core/rules/Propagation.h"
#include "core/rules/Recomputation.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

TEST(ItemCovers, AreTheWholePackagesOfARow) {
    // cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, cp_useto, and the pieces ("-" for no row)
    const std::tuple<const char*, std::int64_t, const char*> cases[] = {
        {"10000, 100000, 1, 0, 0", 250000, "20000"},
        {"10000, 100000, 1, 0, 0", 90000, "0"},
        {"5000, 100000, 1, 0, 0", 250000, "10000"},
        {"3333, 5000, 1, 0, 0", 15000, "9999"},
        {"10000, 0, 1, 0, 0", 250000, "0"}, // no products in a package
        {"12345, -10000, 1, 0, 0", 250000, "12345"},
        {"12345, NULL, 1, 0, 0", 250000, "0"},
        {"10000, 100000, 1, 0, 0", -250000, "-20000"},       // cut toward zero
        {"10000, 10000, 0, 0, 1000000", 1000000, "1000000"}, // the bounds are included
        {"10000, 10000, 0, 0, 1000000", 1000001, "-"},
        {"10000, 10000, 0, 50000, 1000000", 50000, "50000"},
        {"10000, 10000, 0, 50000, 1000000", 49999, "-"},
        {"10000, 10000, 1, 50000, 60000", 10000, "10000"}, // but not asked for
        {"10000, 10000, NULL, 50000, 60000", 10000, "-"},
        {"10000, 10000, 0, NULL, NULL", 0, "0"},
        {"10000000000, 10000, 1, 0, 0", 9000000000000, "9000000000000000000"},
    };
    for (const auto& [values, quantity, pieces] : cases) {
        StoreFolder store;
        store.Sql(std::string("INSERT INTO Prod_CoverDT VALUES (5, 1, '2010-01-01 00:00:00');"
                              "INSERT INTO Prod_Cover (dt_id, cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, "
                              "cp_useto, cover_id, cover_type, cover_org, cover_pay) VALUES (5, ") +
                  values + ", 7, 2, 1, 0)");
        const bool applies = std::string(pieces) != "-";
        EXPECT_EQ(applies ? 1 : 0,
                  ComputeItemCovers(store.store, store.store.Table("Move_Cover"), std::int32_t{11}, std::int32_t{3}, 1,
                                    Currency::FromCount(quantity), DateTime::FromDay(2010, 5, 5)));
        EXPECT_EQ(applies ? std::string("11|3|7|") + pieces + "|2|1|0" : "",
                  store.AskAll("SELECT mvprod_id, move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay "
                               "FROM Move_Cover"))
            << values << " of " << quantity;
    }
}

TEST(ItemCovers, AreOfTheLastDefinitionNotAfterTheIssue) {
    // definitions: key, product, day
    const std::tuple<const char*, DateTime, const char*> cases[] = {
        {"(1, 1, '2012-01-01'), (2, 1, '2012-07-01 00:00:00')", DateTime::FromDay(2012, 6, 30), "1"},
        {"(1, 1, '2012-01-01'), (2, 1, '2012-07-01 00:00:00')", DateTime::FromDay(2012, 7, 1), "2"},
        {"(1, 1, '2012-01-01'), (2, 1, '2012-07-01 00:00:00')", DateTime::FromDay(2011, 12, 31), "none"},
        // The time of day counts; what is no date is passed over; of two equal ones the last.
        {"(1, 1, '2012-01-01'), (2, 1, '2012-07-01 14:30:00')", DateTime::FromDay(2012, 7, 1, 10), "1"},
        {"(1, 1, '2012-01-01'), (2, 1, NULL), (3, 1, '2012-02-30')", DateTime::FromDay(2012, 7, 1), "1"},
        {"(1, 1, '2012-01-01 00:00:00'), (2, 1, '2012-01-01 00:00:00')", DateTime::FromDay(2012, 7, 1), "2"},
        {"(1, 1, '2012-01-01'), (2, 2, '2012-02-01')", DateTime::FromDay(2012, 7, 1), "1"},
    };
    for (const auto& [definitions, issued, used] : cases) {
        StoreFolder store;
        store.Sql(std::string("INSERT INTO Prod_CoverDT VALUES ") + definitions +
                  ";INSERT INTO Prod_Cover (dt_id, cover_id, cp_usealways, cp_qtyprod, cp_qtycover) VALUES "
                  "(1, 1, 1, 10000, 10000), (2, 2, 1, 10000, 10000), (3, 3, 1, 10000, 10000)");
        ComputeItemCovers(store.store, store.store.Table("Move_Cover"), std::int32_t{1}, std::int32_t{1}, 1,
                          Currency::FromWhole(1), issued);
        EXPECT_EQ(used, store.Ask("SELECT cover_id FROM Move_Cover")) << definitions;
    }
}

TEST(ItemCovers, AnInvalidIssueDateDoesNothing) {
    StoreFolder store;
    const RecordsetPtr target = store.store.Table("Move_Cover");
    EXPECT_EQ(-1, ComputeItemCovers(store.store, target, std::int32_t{1}, std::int32_t{1}, 1, Currency::FromWhole(1),
                                    DateTime::Null()));
}

TEST(ItemCovers, ADatabaseErrorIsShownAndKeepsTheRowsBefore) {
    StoreFolder store;
    store.Sql("INSERT INTO Prod_CoverDT VALUES (1, 1, '2012-01-01');"
              "INSERT INTO Prod_Cover (dt_id, cover_id, cp_usealways, cp_qtyprod, cp_qtycover) VALUES "
              "(1, 1, 1, 10000, 10000), (1, 2, 1, 10000, 10000);"
              "CREATE TRIGGER Stop BEFORE INSERT ON Move_Cover WHEN new.cover_id = 2 BEGIN SELECT raise(ABORT, "
              "'broken'); END");
    ScriptedMessages messages;
    messages.AcceptAny();
    const RecordsetPtr target = store.store.Table("Move_Cover");
    EXPECT_EQ(-1, ComputeItemCovers(store.store, target, std::int32_t{1}, std::int32_t{1}, 1, Currency::FromWhole(1),
                                    DateTime::FromDay(2012, 5, 5)));
    ASSERT_EQ(1u, messages.Shown().size());
    EXPECT_TRUE(messages.Shown()[0].text.endsWith("\n\nbroken"));
    EXPECT_EQ("1", store.Ask("SELECT count(*) FROM Move_Cover"));
}

/// A company of `lines` issue lines of one product whose definition has two rows, with one wrong old row each.
std::string Lines(int lines) {
    return "INSERT INTO Prod_CoverDT VALUES (1, 1, '2010-01-01');"
           "INSERT INTO Prod_Cover (dt_id, cover_id, cp_usealways, cp_qtyprod, cp_qtycover) VALUES "
           "(1, 1, 1, 10000, 10000), (1, 2, 1, 20000, 10000);"
           "WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < " +
           std::to_string(lines) +
           ") INSERT INTO Move_Prod SELECT i, i, 1, 20000 FROM n WHERE i <= " + std::to_string(lines) +
           ";"
           "INSERT INTO Move (move_id, move_date) SELECT mvprod_id, '2012-05-05 00:00:00' FROM Move_Prod;"
           "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty) SELECT mvprod_id, move_id, 9, 1 FROM "
           "Move_Prod";
}

TEST(BulkRecompute, MovesTheBarEveryStep) {
    const std::tuple<int, int, const char*> cases[] = {{0, 0, ""},
                                                       {3, 3, "1 z 3, 2 z 3, 3 z 3"},
                                                       {399, 399, "1 z 399, 2 z 399, 3 z 399"},
                                                       {450, 225, "1 z 450, 3 z 450, 5 z 450"}};
    for (const auto& [shown, updates, firstDetails] : cases) {
        StoreFolder store;
        store.Sql(Lines(shown));
        RecordedProgress progress;
        std::int64_t lines = 0;
        EXPECT_EQ(BulkResult::Done, RecomputeAllIssues(store.store, progress, lines));
        EXPECT_EQ(shown, lines);
        QStringList details;
        for (const QString& line : progress.lines)
            if (line.startsWith("detail "))
                details << line.mid(7);
        EXPECT_EQ(updates, details.size());
        EXPECT_EQ(firstDetails, details.mid(0, 3).join(", ").toStdString());
        EXPECT_EQ("0", store.Ask("SELECT count(*) FROM Move_Cover WHERE cover_id = 9"));
        EXPECT_EQ(std::to_string(2 * shown),
                  store.Ask("SELECT count(*) FROM Move_Cover WHERE mvcover_qty IN (10000, 20000)"));
    }
}

TEST(BulkRecompute, CancelKeepsWholeLines) {
    StoreFolder store;
    store.Sql(Lines(1000));
    ScriptedMessages messages;
    messages.Expect("Aktualizace byla přerušena!", Message::Icon::None);
    RecordedProgress progress;
    progress.cancelAt = 11;
    std::int64_t lines = 0;
    EXPECT_EQ(BulkResult::Cancelled, RecomputeAllIssues(store.store, progress, lines));
    EXPECT_EQ(50, lines);
    EXPECT_EQ("50", store.Ask("SELECT count(DISTINCT mvprod_id) FROM Move_Cover WHERE cover_id < 9"));
    EXPECT_EQ("950", store.Ask("SELECT count(*) FROM Move_Cover WHERE cover_id = 9"));
}

TEST(BulkRecompute, AnErrorShowsOnlyItsOwnText) {
    StoreFolder store;
    store.Sql(Lines(10));
    store.Sql("CREATE TRIGGER Stop BEFORE DELETE ON Move_Cover WHEN old.mvprod_id = 4 BEGIN SELECT raise(ABORT, "
              "'broken'); END");
    ScriptedMessages messages;
    messages.AcceptAny();
    RecordedProgress progress;
    std::int64_t lines = 0;
    EXPECT_EQ(BulkResult::Failed, RecomputeAllIssues(store.store, progress, lines));
    ASSERT_EQ(1u, messages.Shown().size());
    EXPECT_TRUE(messages.Shown()[0].text.startsWith("Došlo k chybě COM č.0x"));
    EXPECT_EQ("3", store.Ask("SELECT count(DISTINCT mvprod_id) FROM Move_Cover WHERE cover_id < 9"));
    EXPECT_EQ("7", store.Ask("SELECT count(*) FROM Move_Cover WHERE cover_id = 9"));
}

TEST(BulkRecompute, SeesWhatAnotherProgramChangedMeanwhile) {
    StoreFolder store;
    store.Sql(Lines(6));
    RecordedProgress progress;
    progress.onPhase = [&] {
        store.Sql("UPDATE Move_Prod SET mvprod_qty = 70000 WHERE mvprod_id = 2;"
                  "UPDATE Move SET move_date = '2009-01-01' WHERE move_id = 3;"
                  "DELETE FROM Move_Cover WHERE mvprod_id IN (4, 5); DELETE FROM Move_Prod WHERE mvprod_id = 4;"
                  "DELETE FROM Move WHERE move_id = 5; INSERT INTO Move_Prod VALUES (7, 1, 1, 20000)");
    };
    std::int64_t lines = 0;
    EXPECT_EQ(BulkResult::Done, RecomputeAllIssues(store.store, progress, lines));
    EXPECT_EQ(4, lines);
    EXPECT_EQ("1|1|20000 1|2|10000 2|1|70000 2|2|30000 6|1|20000 6|2|10000",
              store.AskAll("SELECT mvprod_id, cover_id, mvcover_qty FROM Move_Cover ORDER BY 1, 2"));
}

TEST(AssignPackaging, EndsBetweenTwoProducts) {
    for (const int cancelAt : {1, 2, 3, 0}) {
        StoreFolder store;
        store.Sql(Lines(3));
        RecordedProgress door;
        door.cancelAt = cancelAt;
        ChosenPackaging chosen;
        chosen.rule.coverId = 5;
        AssignPackaging(store.store, {}, {1, 2, 3}, DateTime::FromDay(2011, 1, 1), chosen, *door.Open({}, true));
        const int products = cancelAt == 0 ? 3 : cancelAt - 1;
        EXPECT_EQ(std::to_string(products), store.Ask("SELECT count(*) FROM Prod_Cover WHERE cover_id = 5"));
        EXPECT_EQ(products > 0 ? "3" : "0", store.Ask("SELECT count(*) FROM Move_Cover WHERE cover_id = 5"));
    }
}

TEST(LateProgress, OpensAfterAWhileWithWhatItWasTold) {
    RecordedProgress door;
    {
        CLateProgress progress(door, QStringLiteral("x"), true);
        progress.SetRange(0, 7);
        progress.SetPhaseText(QStringLiteral("phase"));
        progress.SetDetailText(QStringLiteral("1"));
        progress.SetPosition(1);
        EXPECT_FALSE(progress.CancelRequested());
        EXPECT_EQ(0u, door.lines.size());
        std::this_thread::sleep_for(std::chrono::milliseconds(310));
        door.cancelAt = 1;
        EXPECT_TRUE(progress.CancelRequested());
        progress.SetPosition(2);
    }
    EXPECT_EQ("title x (cancel), range 0 7, phase phase, detail 1, position 2, closed",
              QStringList(door.lines.begin(), door.lines.end()).join(", ").toStdString());
}

TEST(RecomputeProduct, TouchesOnlyItsLinesAndCountsThem) {
    StoreFolder store;
    store.Sql(Lines(5));
    store.Sql(
        "UPDATE Move_Prod SET prod_id = 2 WHERE mvprod_id > 3; UPDATE Move SET move_date = NULL WHERE move_id = 2");
    EXPECT_EQ(3, RecomputeProductCovers(store.store, 1));
    EXPECT_EQ("1|2 3|2 4|1 5|1", store.AskAll("SELECT mvprod_id, count(*) FROM Move_Cover GROUP BY mvprod_id"));
    store.Sql("CREATE TRIGGER Stop BEFORE DELETE ON Move_Cover BEGIN SELECT raise(ABORT, 'broken'); END");
    ScriptedMessages messages;
    messages.Expect(QStringLiteral("Došlo k chybě COM č.0x80004005\n\nbroken"), Message::Icon::Error);
    EXPECT_EQ(-1, RecomputeProductCovers(store.store, 1));
}

TEST(Propagation, OfACoverFollowsTheOptions) {
    const std::pair<PropagationOptions, const char*> cases[] = {
        {{1, 1, 1, 0}, "321|321|321"}, {{1, 0, 0, 1}, "321|0|0"}, {{0, 1, 0, 1}, "0|321|0"}, {{0, 0, 1, 1}, "0|0|321"}};
    for (const auto& [options, expected] : cases) {
        StoreFolder store;
        std::string sums = "SELECT ";
        for (const char* table : {"CompCover_Item", "Prod_Cover", "Move_Cover"}) {
            store.Sql(std::string("INSERT INTO ") + table +
                      " (cover_id, cover_type, cover_org, cover_pay) VALUES (1, 0, 0, 0), (2, 0, 0, 0)");
            sums += std::string(sums.size() > 7 ? ", " : "") +
                    "(SELECT sum(cover_type*100+cover_org*10+cover_pay) FROM " + table + ")";
        }
        PropagateCover(store.store, options, 1, {3, 2, 1});
        EXPECT_EQ(expected, store.AskAll(sums));
    }
}

TEST(PropagationOptions, AreOnUntilTurnedOffAndSurvive) {
    ProgramFolder folder;
    EXPECT_EQ(1, ReadPropagationOptions().coversToIssues);
    WritePropagationOptions({1, 0, 1, 0});
    const PropagationOptions read = ReadPropagationOptions();
    EXPECT_EQ(1, read.coversToComposites);
    EXPECT_EQ(0, read.coversToPackaging);
    EXPECT_EQ(1, read.coversToIssues);
    EXPECT_EQ(0, read.packagingToIssues);
}

} // namespace
