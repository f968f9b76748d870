#include "rules/BulkRecompute.h"
#include "rules/ItemCovers.h"
#include "rules/Propagation.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

namespace {

/// One packaging row of the definition, and what an issue of a quantity makes of it ("-" for no row).
struct RowCase {
    const char* name;
    const char* values; // cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, cp_useto
    std::int64_t quantity;
    const char* expected;
};

class PackagingRow : public testing::TestWithParam<RowCase> {};

TEST_P(PackagingRow, GivesTheWholePackages) {
    StoreFolder store;
    const RowCase& row = GetParam();
    store.Sql(
        (std::string("INSERT INTO Prod_CoverDT VALUES (5, 1, '2010-01-01 00:00:00');"
                     "INSERT INTO Prod_Cover (dt_id, cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, cp_useto, "
                     "cover_id, cover_type, cover_org, cover_pay) VALUES (5, ") +
         row.values + ", 7, 2, 1, 0)")
            .c_str());
    const RecordsetPtr target = store.store.Table("Move_Cover");
    const int count = ComputeItemCovers(store.store, target, std::int32_t{11}, std::int32_t{3}, 1,
                                        Currency::FromCount(row.quantity), DateTime::FromDay(2010, 5, 5));
    const bool applies = std::string(row.expected) != "-";
    EXPECT_EQ(applies ? 1 : 0, count);
    EXPECT_EQ(
        applies ? std::string("11|3|7|") + row.expected + "|2|1|0" : std::string(),
        store.AskAll(
            "SELECT mvprod_id, move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay FROM Move_Cover"));
}

INSTANTIATE_TEST_SUITE_P(
    Rules, PackagingRow,
    testing::Values(RowCase{"WholePackages", "10000, 100000, 1, 0, 0", 250000, "20000"},
                    RowCase{"NoWholePackage", "10000, 100000, 1, 0, 0", 90000, "0"},
                    RowCase{"FractionalPieces", "5000, 100000, 1, 0, 0", 250000, "10000"},
                    RowCase{"PiecesCutToFourDecimals", "3333, 5000, 1, 0, 0", 15000, "9999"},
                    RowCase{"NoProductsPerPackage", "10000, 0, 1, 0, 0", 250000, "0"},
                    RowCase{"NegativeProductsPerPackage", "12345, -10000, 1, 0, 0", 250000, "12345"},
                    RowCase{"NullProductsPerPackage", "12345, NULL, 1, 0, 0", 250000, "0"},
                    RowCase{"NegativeQuantityCutsTowardZero", "10000, 100000, 1, 0, 0", -250000, "-20000"},
                    RowCase{"UpperBoundIncluded", "10000, 10000, 0, 0, 1000000", 1000000, "1000000"},
                    RowCase{"AboveUpperBound", "10000, 10000, 0, 0, 1000000", 1000001, "-"},
                    RowCase{"LowerBoundIncluded", "10000, 10000, 0, 50000, 1000000", 50000, "50000"},
                    RowCase{"BelowLowerBound", "10000, 10000, 0, 50000, 1000000", 49999, "-"},
                    RowCase{"AlwaysIgnoresBounds", "10000, 10000, 1, 50000, 60000", 10000, "10000"},
                    RowCase{"NullAlwaysIsNo", "10000, 10000, NULL, 50000, 60000", 10000, "-"},
                    RowCase{"NullBoundsAreNought", "10000, 10000, 0, NULL, NULL", 0, "0"},
                    RowCase{"LargeQuantityIsExact", "10000000000, 10000, 1, 0, 0", 9000000000000,
                            "9000000000000000000"}),
    [](const auto& info) { return info.param.name; });

struct DateCase {
    const char* name;
    const char* definitions;
    DateTime issued;
    int expected; // the definition whose row was used, 0 for none
};

class DefinitionInForce : public testing::TestWithParam<DateCase> {};

TEST_P(DefinitionInForce, IsTheLastNotAfterTheIssue) {
    StoreFolder store;
    store.Sql(GetParam().definitions);
    for (int definition = 1; definition <= 3; ++definition)
        store.Sql(("INSERT INTO Prod_Cover (dt_id, cover_id, cp_usealways, cp_qtyprod, cp_qtycover) VALUES (" +
                   std::to_string(definition) + ", " + std::to_string(definition) + ", 1, 10000, 10000)")
                      .c_str());
    const RecordsetPtr target = store.store.Table("Move_Cover");
    ComputeItemCovers(store.store, target, std::int32_t{1}, std::int32_t{1}, 1, Currency::FromWhole(1),
                      GetParam().issued);
    EXPECT_EQ(GetParam().expected == 0 ? "none" : std::to_string(GetParam().expected),
              store.Ask("SELECT cover_id FROM Move_Cover"));
}

constexpr const char* TwoDates = "INSERT INTO Prod_CoverDT VALUES (1, 1, '2012-01-01'), (2, 1, '2012-07-01 00:00:00')";

INSTANTIATE_TEST_SUITE_P(
    Rules, DefinitionInForce,
    testing::Values(DateCase{"DayBeforeTheSecond", TwoDates, DateTime::FromDay(2012, 6, 30), 1},
                    DateCase{"DayOfTheSecond", TwoDates, DateTime::FromDay(2012, 7, 1), 2},
                    DateCase{"BeforeTheFirst", TwoDates, DateTime::FromDay(2011, 12, 31), 0},
                    DateCase{"TimeOfDayCounts",
                             "INSERT INTO Prod_CoverDT VALUES (1, 1, '2012-01-01'), (2, 1, '2012-07-01 14:30:00')",
                             DateTime::FromDay(2012, 7, 1, 10), 1},
                    DateCase{"UnreadableAndNullDatesAreSkipped",
                             "INSERT INTO Prod_CoverDT VALUES (1, 1, '2012-01-01'), (2, 1, NULL), (3, 1, '2012-02-30')",
                             DateTime::FromDay(2012, 7, 1), 1},
                    DateCase{
                        "LastReadOfEqualDates",
                        "INSERT INTO Prod_CoverDT VALUES (1, 1, '2012-01-01 00:00:00'), (2, 1, '2012-01-01 00:00:00')",
                        DateTime::FromDay(2012, 7, 1), 2},
                    DateCase{"OtherProductsDoNotCount",
                             "INSERT INTO Prod_CoverDT VALUES (1, 1, '2012-01-01'), (2, 2, '2012-02-01')",
                             DateTime::FromDay(2012, 7, 1), 1}),
    [](const auto& info) { return info.param.name; });

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
    EXPECT_TRUE(messages.Shown()[0].text.endsWith(QStringLiteral("\n\nbroken")));
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

struct PacingCase {
    int lines;
    int updates;
    const char* firstDetails;
};

class Pacing : public testing::TestWithParam<PacingCase> {};

TEST_P(Pacing, MovesTheBarEveryStep) {
    StoreFolder store;
    store.Sql(Lines(GetParam().lines).c_str());
    RecordedProgress progress;
    std::int64_t lines = 0;
    EXPECT_EQ(BulkResult::Done, RecomputeAllIssues(store.store, progress, lines));
    EXPECT_EQ(GetParam().lines, lines);
    QStringList details;
    for (const QString& line : progress.lines)
        if (line.startsWith(QStringLiteral("detail ")))
            details << line.mid(7);
    EXPECT_EQ(GetParam().updates, details.size());
    EXPECT_EQ(GetParam().firstDetails, details.mid(0, 3).join(QStringLiteral(", ")).toStdString());
    EXPECT_EQ("0", store.Ask("SELECT count(*) FROM Move_Cover WHERE cover_id = 9"));
    EXPECT_EQ(std::to_string(3 * GetParam().lines),
              store.Ask("SELECT count(*) * 3 / 2 FROM Move_Cover WHERE mvcover_qty IN (10000, 20000)"));
    EXPECT_EQ("closed", progress.lines.back().toStdString());
}

INSTANTIATE_TEST_SUITE_P(Rules, Pacing,
                         testing::Values(PacingCase{0, 0, ""}, PacingCase{3, 3, "1 z 3, 2 z 3, 3 z 3"},
                                         PacingCase{199, 199, "1 z 199, 2 z 199, 3 z 199"},
                                         PacingCase{400, 200, "1 z 400, 3 z 400, 5 z 400"},
                                         PacingCase{450, 225, "1 z 450, 3 z 450, 5 z 450"}),
                         [](const auto& info) { return "Lines" + std::to_string(info.param.lines); });

TEST(BulkRecompute, CancelKeepsWholeLines) {
    StoreFolder store;
    store.Sql(Lines(1000).c_str());
    ScriptedMessages messages;
    messages.Expect(QStringLiteral("Aktualizace byla přerušena!"), Message::Icon::None);
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
    store.Sql(Lines(10).c_str());
    store.Sql("CREATE TRIGGER Stop BEFORE DELETE ON Move_Cover WHEN old.mvprod_id = 4 BEGIN SELECT raise(ABORT, "
              "'broken'); END");
    ScriptedMessages messages;
    messages.AcceptAny();
    RecordedProgress progress;
    std::int64_t lines = 0;
    EXPECT_EQ(BulkResult::Failed, RecomputeAllIssues(store.store, progress, lines));
    ASSERT_EQ(1u, messages.Shown().size());
    EXPECT_TRUE(messages.Shown()[0].text.startsWith(QStringLiteral("Došlo k chybě COM č.0x")));
    EXPECT_EQ("3", store.Ask("SELECT count(DISTINCT mvprod_id) FROM Move_Cover WHERE cover_id < 9"));
    EXPECT_EQ("7", store.Ask("SELECT count(*) FROM Move_Cover WHERE cover_id = 9"));
}

TEST(RecomputeProduct, TouchesOnlyItsLinesAndCountsThem) {
    StoreFolder store;
    store.Sql(Lines(5).c_str());
    store.Sql(
        "UPDATE Move_Prod SET prod_id = 2 WHERE mvprod_id > 3; UPDATE Move SET move_date = NULL WHERE move_id = 2");
    EXPECT_EQ(3, RecomputeProductCovers(store.store, 1));
    EXPECT_EQ("1|2 3|2 4|1 5|1", store.AskAll("SELECT mvprod_id, count(*) FROM Move_Cover GROUP BY mvprod_id"));
}

struct OptionCase {
    const char* name;
    PropagationOptions options;
    const char* expected;
};

class CoverPropagation : public testing::TestWithParam<OptionCase> {};

TEST_P(CoverPropagation, FollowsTheOptions) {
    StoreFolder store;
    for (const char* table : {"CompCover_Item", "Prod_Cover", "Move_Cover"})
        store.Sql((std::string("INSERT INTO ") + table +
                   " (cover_id, cover_type, cover_org, cover_pay) VALUES (1, 0, 0, 0), (2, 0, 0, 0)")
                      .c_str());
    PropagateCover(store.store, GetParam().options, 1, 3, 2, 1);
    EXPECT_EQ(GetParam().expected,
              store.AskAll("SELECT (SELECT sum(cover_type*100+cover_org*10+cover_pay) FROM CompCover_Item), "
                           "(SELECT sum(cover_type*100+cover_org*10+cover_pay) FROM Prod_Cover), "
                           "(SELECT sum(cover_type*100+cover_org*10+cover_pay) FROM Move_Cover)"));
}

INSTANTIATE_TEST_SUITE_P(Rules, CoverPropagation,
                         testing::Values(OptionCase{"All", {1, 1, 1, 0}, "321|321|321"},
                                         OptionCase{"Composites", {1, 0, 0, 1}, "321|0|0"},
                                         OptionCase{"Packaging", {0, 1, 0, 1}, "0|321|0"},
                                         OptionCase{"Issues", {0, 0, 1, 1}, "0|0|321"},
                                         OptionCase{"None", {0, 0, 0, 1}, "0|0|0"}),
                         [](const auto& info) { return info.param.name; });

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
