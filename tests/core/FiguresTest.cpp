#include "report/Figures.h"
#include "report/CellMap.h"
#include "report/FigureList.h"
#include "store/ComError.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

/// "1.2345"
std::string Tonnes(Currency value) {
    return FormatCurrency(value, 1, 'D').replace(u',', u'.').toStdString();
}

/// A line a cell: "C33 1.2345", by rows, then columns.
std::string Text(const CCellMap& cells) {
    std::ostringstream text;
    for (const auto& [place, tonnes] : cells.Cells())
        text << CellText(place).toStdString() << ' ' << Tonnes(tonnes) << '\n';
    return text.str();
}

/// The cells of a whole report of the third quarter of 2012: "1-1 C33 1.2345, …".
std::string ListText(CDataStore& store, const char* version = "2.19") {
    const std::unique_ptr<IProgress> progress = SilentProgress().Open({}, false);
    std::string text;
    for (const FigureCell& cell : ListFigures(store, *progress, 2012, 3, QString::fromUtf8(version)))
        text += (text.empty() ? "" : ", ") + cell.sheet.toStdString() + ' ' + cell.cell.toStdString() + ' ' +
                Tonnes(cell.tonnes);
    return text;
}

ReportFilter ThirdQuarter(bool reusable) {
    const DateRange range = QuarterRange(2012, 3);
    return {range.from, range.to, reusable, false, 1};
}

/// The form's one-way sheet of the old layout, from row 5 down.
const char* const FormRows[] = {"PET - měkké",
                                "PE - měkké",
                                "PVC - měkké",
                                "PP - měkké",
                                "PS - měkké",
                                "plasty jiné - měkké",
                                "PET - pevné duté",
                                "PE - pevné duté",
                                "PVC - pevné duté",
                                "PP - pevné duté",
                                "PS - pevné duté",
                                "plasty jiné - pevné duté",
                                "PET - pevné duté nad 5l",
                                "PE - pevné duté nad 5l",
                                "PVC - pevné duté nad 5l",
                                "PP - pevné duté nad 5l",
                                "PS - pevné duté nad 5l",
                                "plasty jiné - pevné duté nad 5l",
                                "vlnitá lepenka",
                                "papír",
                                "sklo",
                                "kovy - železo FE",
                                "kovy - hliník AL",
                                "kovy nad 5l - železo FE",
                                "kovy nad 5l- hliník AL",
                                "nápojové kartony",
                                "kombinované materiály",
                                "dřevo",
                                "textil",
                                "jiný materiál"};

struct FormColumn {
    const char* type;
    const char* origin;
    const char* discard;
};

/// From column C on.
const FormColumn FormColumns[] = {{"prodejní", "vyrobený v ČR", "recyklováno"},
                                  {"prodejní", "dovezený do ČR", "energeticky využito"},
                                  {"prodejní", "nakoupený v ČR", "odstraněno"},
                                  {"skupinový", "vyrobený v ČR", "recyklováno"},
                                  {"skupinový", "dovezený do ČR", "energeticky využito"},
                                  {"skupinový", "nakoupený v ČR", "odstraněno"},
                                  {"přepravní", "vyrobený v ČR", "recyklováno"},
                                  {"přepravní", "dovezený do ČR", "energeticky využito"},
                                  {"přepravní", "nakoupený v ČR", "odstraněno"},
                                  {"průmyslový", "vyrobený v ČR", "recyklováno"},
                                  {"průmyslový", "dovezený do ČR", "energeticky využito"},
                                  {"průmyslový", "nakoupený v ČR", "odstraněno"}};

/// The figure of each combination of codes is its own number of tonnes.
int NumberOf(int material, int type, int share) {
    return (material + 2) * 100 + (type + 2) * 10 + share + 2;
}

/// What the form shows when every combination is there.
std::string FormText(const CDataStore& store, bool isNew, bool reusable, bool discards) {
    const auto index = [&](CodeList list, const char* text) {
        const qsizetype i = store.Codes(list).indexOf(QString::fromUtf8(text));
        EXPECT_GE(i, 0) << text;
        return static_cast<int>(i);
    };
    std::ostringstream text;
    int row = isNew ? 6 : 5;
    for (const std::string material : FormRows) {
        const bool salesOnly = material.find("nad 5l") != std::string::npos || material == "nápojové kartony";
        if (reusable && material == "nápojové kartony")
            continue;
        char letter = 'C';
        for (const FormColumn& column : FormColumns) {
            const std::string type = column.type;
            const bool isSales = type == "prodejní";
            const bool glassOk = isSales || type == "průmyslový";
            if ((isNew || type != "průmyslový") && (!salesOnly || isSales) && (material != "sklo" || glassOk))
                text << letter << row << ' '
                     << NumberOf(index(CodeList::CoverMaterial, material.c_str()),
                                 index(CodeList::CoverType, column.type),
                                 discards ? index(CodeList::DiscardType, column.discard)
                                          : index(CodeList::CoverOrigin, column.origin))
                     << ".0000\n";
            ++letter;
        }
        ++row;
    }
    return text.str();
}

/// Codes from one below to two above the list; below it stands for null.
std::string Code(int code) {
    return code < 0 ? "NULL" : std::to_string(code);
}

/// Every combination of codes, also of such as are in no list, as issued packaging and as a discard.
std::string EveryCombination(bool reusable) {
    std::string covers = "INSERT INTO Cover (cover_id, cover_mat, cover_weight, cover_type, cover_org, cover_pay, "
                         "cover_reusable) VALUES ";
    std::string moves = "INSERT INTO Move VALUES (1, 'A', '2012-08-15 00:00:00', 0, 0, NULL);"
                        "INSERT INTO Move_Cover (move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay) "
                        "VALUES ";
    std::string discards = "INSERT INTO CoverDiscard (cover_id, disc_date, disc_qty, disc_type) VALUES ";
    const char* comma = "";
    for (int material = -1; material <= 31; ++material) {
        for (int type = -1; type <= 5; ++type) {
            const std::string cover = std::to_string((material + 2) * 10 + type + 2);
            covers += comma + ("(" + cover) + ", " + Code(material) + ", 10000000, " + Code(type) + ", 0, 0, " +
                      (reusable ? "1)" : "0)");
            for (int share = -1; share <= 4; ++share) {
                const std::string quantity = std::to_string(NumberOf(material, type, share)) + "0000";
                // The cover's own type, here another one, does not count for issued packaging.
                const std::string other = std::to_string((material + 2) * 10 + (type + 3) % 7 + 1);
                moves += comma + ("(1, " + other) + ", " + quantity + ", " + Code(type) + ", " + Code(share) + ", 1)";
                discards += comma + ("(" + cover) + ", '2012-08-15 00:00:00', " + quantity + ", " + Code(share) + ")";
                comma = ", ";
            }
        }
    }
    return covers + ";" + moves + ";" + discards;
}

struct LayoutCase {
    bool isNew;
    bool reusable;
};

class Placing : public testing::TestWithParam<LayoutCase> {};

TEST_P(Placing, PutsEachIssuedTotalWhereTheFormHasIt) {
    StoreFolder folder;
    folder.Sql(EveryCombination(GetParam().reusable).c_str());
    TemplateVersion = Currency::FromCount(GetParam().isNew ? 20000 : 19999);
    CCellMap cells;
    FillMoveFigures(folder.store, *SilentProgress().Open({}, false), cells, ThirdQuarter(GetParam().reusable));
    EXPECT_EQ(FormText(folder.store, GetParam().isNew, GetParam().reusable, false), Text(cells));
}

TEST_P(Placing, PutsEachDiscardWhereTheFormHasIt) {
    StoreFolder folder;
    folder.Sql(EveryCombination(GetParam().reusable).c_str());
    TemplateVersion = Currency::FromCount(GetParam().isNew ? 20000 : 19999);
    const DateRange range = QuarterRange(2012, 3);
    CCellMap cells;
    FillDiscardFigures(folder.store, *SilentProgress().Open({}, false), cells, range.from, range.to);
    EXPECT_EQ(GetParam().reusable ? FormText(folder.store, GetParam().isNew, true, true) : "", Text(cells));
}

INSTANTIATE_TEST_SUITE_P(Report, Placing,
                         testing::Values(LayoutCase{false, false}, LayoutCase{false, true}, LayoutCase{true, false},
                                         LayoutCase{true, true}));

/// What one issue of one cover gives; the first quarter day of the issue and the payment "zpoplatněný" unless told.
struct IssueCase {
    const char* name;
    const char* cover; // cover_mat, cover_weight, cover_reusable, cover_stat, deleted
    const char* issue; // mvcover_qty, cover_type, cover_org, cover_pay, move_export
    const char* version;
    const char* cells;
};

class Issue : public testing::TestWithParam<IssueCase> {};

TEST_P(Issue, ReachesItsCells) {
    StoreFolder folder;
    folder.Sql((std::string("INSERT INTO Cover (cover_id, cover_mat, cover_weight, cover_reusable, cover_stat, "
                            "deleted) VALUES (1, ") +
                GetParam().cover +
                ");"
                "CREATE TABLE I (q, t, o, p, e); INSERT INTO I VALUES (" +
                GetParam().issue +
                ");"
                "INSERT INTO Move SELECT 1, 'A', '2012-08-15', 0, e, NULL FROM I;"
                "INSERT INTO Move_Cover SELECT 1, 1, 1, 1, q, t, o, p FROM I; DROP TABLE I")
                   .c_str());
    EXPECT_EQ(GetParam().cells, ListText(folder.store, GetParam().version));
}

INSTANTIATE_TEST_SUITE_P(
    Report, Issue,
    testing::Values(
        IssueCase{"WoodOld", "0, 10000000, 0, 0, 0", "10000, 2, 2, 1, 0", "1.5", "1-1 C32 1.0000"},
        IssueCase{"WoodNew", "0, 10000000, 0, 0, 0", "10000, 2, 2, 1, 0", "2.0", "1-1 C33 1.0000"},
        IssueCase{"WoodReusableOld", "0, 10000000, 1, 0, 0", "10000, 2, 2, 1, 0", "1.99", "2-1 C31 1.0000"},
        IssueCase{"WoodReusableNew", "0, 10000000, 1, 0, 0", "10000, 2, 2, 1, 0", "2", "2-1 C32 1.0000"},
        IssueCase{"LargeContainerOld", "10, 10000000, 0, 0, 0", "10000, 2, 0, 1, 0", "1,5", "1-1 D18 1.0000"},
        IssueCase{"LargeContainerNew", "10, 10000000, 0, 0, 0", "10000, 2, 0, 1, 0", "2,10", "1-1 D19 1.0000"},
        IssueCase{"LargeContainerInTransport", "10, 10000000, 0, 0, 0", "10000, 0, 0, 1, 0", "2.0", ""},
        IssueCase{"GlassInTransport", "26, 10000000, 0, 0, 0", "10000, 0, 2, 1, 0", "2.0", ""},
        IssueCase{"GlassInIndustrial", "26, 10000000, 0, 0, 0", "10000, 3, 2, 1, 0", "2.0", "1-1 L26 1.0000"},
        IssueCase{"IndustrialOld", "7, 10000000, 0, 0, 0", "10000, 3, 1, 1, 0", "1.5", ""},
        IssueCase{"IndustrialNew", "7, 10000000, 0, 0, 0", "10000, 3, 1, 1, 0", "2.0", "1-1 N25 1.0000"},
        IssueCase{"Prepaid", "7, 10000000, 0, 0, 0", "10000, 2, 2, 2, 0", "1.5", "1-2 C24 1.0000"},
        IssueCase{"Unpaid", "7, 10000000, 0, 0, 0", "10000, 2, 2, 0, 0", "1.5", "1-3 C24 1.0000"},
        IssueCase{"UnpaidExport", "7, 10000000, 0, 0, 0", "10000, 2, 2, 0, 1", "1.5", "1-4 C24 1.0000"},
        IssueCase{"ChargedExport", "7, 10000000, 0, 0, 0", "10000, 2, 2, 1, 1", "1.5", "1-4 C24 1.0000"},
        IssueCase{"NoPayment", "7, 10000000, 0, 0, 0", "10000, 2, 2, NULL, 0", "1.5", ""},
        IssueCase{"ReusablePrepaid", "7, 10000000, 1, 0, 0", "10000, 2, 2, 2, 0", "1.5", "2-2 C24 1.0000"},
        IssueCase{"ReusableUnpaid", "7, 10000000, 1, 0, 0", "10000, 2, 2, 0, 0", "1.5", "2-3 C24 1.0000"},
        IssueCase{"ReusableExport", "7, 10000000, 1, 0, 0", "10000, 2, 2, 2, 1", "1.5", "2-4 C24 1.0000"},
        IssueCase{"DeletedCoverCounts", "7, 10000000, 0, 0, 1", "10000, 2, 2, 1, 0", "1.5", "1-1 C24 1.0000"},
        IssueCase{"CutNotRounded", "7, 4900, 0, 0, 0", "10000, 2, 2, 1, 0", "1.5", "1-1 C24 0.0004"},
        IssueCase{"CutAtFourDecimals", "7, 12345678, 0, 0, 0", "10000, 2, 2, 1, 0", "1.5", "1-1 C24 1.2345"},
        IssueCase{"NegativeCutTowardZero", "7, 12345678, 0, 0, 0", "-10000, 2, 2, 1, 0", "1.5", "1-1 C24 -1.2345"},
        IssueCase{"TooSmallIsWrittenAsNought", "7, 999, 0, 0, 0", "10000, 2, 2, 1, 0", "1.5", "1-1 C24 0.0000"},
        IssueCase{"LargeIsExact", "7, 10000, 0, 0, 0", "9000000000000001000, 2, 2, 1, 0", "1.5",
                  "1-1 C24 900000000000.0001"},
        IssueCase{"NoWeight", "7, NULL, 0, 1, 0", "10000, 2, 2, 1, 0", "1.5", ""},
        IssueCase{"NoQuantity", "7, 10000, 0, 0, 0", "NULL, 2, 2, 1, 0", "1.5", ""},
        IssueCase{"EurPalletOld", "NULL, 10000000, 1, 1, 0", "10000, 2, 2, 1, 0", "1.5", "4-1 E6 1.0000"},
        IssueCase{"EurPalletNew", "NULL, 10000000, 1, 1, 0", "10000, 2, 2, 1, 0", "2.0", "4-1 E5 1.0000"},
        IssueCase{"EurPalletOneWay", "NULL, 10000000, 0, 1, 0", "10000, 2, 2, 1, 0", "2.0", ""},
        IssueCase{"EurPalletUnknown", "NULL, 10000000, NULL, 1, 0", "10000, 2, 2, 1, 0", "2.0", ""},
        IssueCase{"PlainPalletOld", "NULL, 10000000, 1, 2, 0", "10000, 2, 2, 1, 0", "1.5", "4-1 E7 1.0000"},
        IssueCase{"PlainPalletNew", "NULL, 10000000, 1, 2, 0", "10000, 2, 2, 1, 0", "2.0", "4-1 E6 1.0000"},
        IssueCase{"PlainPalletOneWayOld", "NULL, 10000000, 0, 2, 0", "10000, 2, 2, 1, 0", "1.5", "4-1 H7 1.0000"},
        IssueCase{"PlainPalletOneWayNew", "NULL, 10000000, 0, 2, 0", "10000, 2, 2, 1, 0", "2.0", "4-1 H6 1.0000"},
        IssueCase{"PlainPalletUnknown", "NULL, 10000000, NULL, 2, 0", "10000, 2, 2, 1, 0", "2.0", "4-1 H6 1.0000"},
        IssueCase{"CartonOld", "NULL, 10000000, 0, 3, 0", "10000, 2, 2, 1, 0", "1.5", "4-1 H8 1.0000"},
        IssueCase{"CartonNew", "NULL, 10000000, 0, 3, 0", "10000, 2, 2, 1, 0", "2.0", "4-1 H7 1.0000"},
        IssueCase{"CartonReusable", "NULL, 10000000, 1, 3, 0", "10000, 2, 2, 1, 0", "2.0", ""},
        IssueCase{"CartonUnknown", "NULL, 10000000, NULL, 3, 0", "10000, 2, 2, 1, 0", "2.0", ""},
        IssueCase{"StatOfNoList", "NULL, 10000000, 0, 4, 0", "10000, 2, 2, 1, 0", "2.0", ""},
        IssueCase{"NoStat", "NULL, 10000000, 0, NULL, 0", "10000, 2, 2, 1, 0", "2.0", ""},
        IssueCase{"ExportedPalletCounts", "NULL, 10000000, 1, 1, 0", "10000, 2, 2, 0, 1", "2.0", "4-1 E5 1.0000"},
        IssueCase{"PalletOfWood", "0, 10000000, 1, 1, 0", "10000, 0, 2, 0, 0", "2.0", "2-3 I32 1.0000, 4-1 E5 1.0000"}),
    [](const auto& info) { return info.param.name; });

struct DayCase {
    const char* date;
    const char* cells;
};

class Day : public testing::TestWithParam<DayCase> {};

TEST_P(Day, CountsInItsQuarter) {
    StoreFolder folder;
    const std::string date = GetParam().date;
    folder.Sql(("INSERT INTO Cover (cover_id, cover_mat, cover_type, cover_weight, cover_reusable, cover_stat) VALUES "
                "(1, 7, 2, 10000000, 1, 1);"
                "INSERT INTO Move VALUES (1, 'A', " +
                date +
                ", 0, 0, NULL);"
                "INSERT INTO Move_Cover VALUES (1, 1, 1, 1, 10000, 2, 2, 1);"
                "INSERT INTO CoverDiscard VALUES (1, 1, " +
                date + ", 20000, 2)")
                   .c_str());
    EXPECT_EQ(GetParam().cells, ListText(folder.store));
}

constexpr const char* AllThree = "2-1 C25 1.0000, 3-1 C25 2.0000, 4-1 E5 1.0000";

INSTANTIATE_TEST_SUITE_P(Report, Day,
                         testing::Values(DayCase{"'2012-06-30 23:59:59'", ""},
                                         DayCase{"'2012-07-01 00:00:00'", AllThree}, DayCase{"'2012-07-01'", AllThree},
                                         DayCase{"'2012-09-30'", AllThree}, DayCase{"'2012-09-30 23:59:59'", AllThree},
                                         DayCase{"'2012-10-01'", ""}, DayCase{"'2011-08-15'", ""}, DayCase{"NULL", ""},
                                         DayCase{"'srpen'", ""}));

TEST(Figures, AreSummedBeforeTheyAreCutAndListedInOrder) {
    StoreFolder folder;
    folder.Sql("INSERT INTO Cover (cover_id, cover_mat, cover_weight, cover_reusable, cover_stat) VALUES "
               "(1, 7, 60006, 0, 0), (2, 8, 10000000, 0, 0), (3, 7, 60006, 0, 2), (4, 7, 100000, NULL, 2);"
               "INSERT INTO Move (move_id, move_date, move_export) VALUES (1, '2012-07-07', 0), (2, '2012-08-08', 0);"
               "INSERT INTO Move_Cover (move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay) VALUES "
               "(1, 1, 10000, 2, 0, 1), (2, 3, 10000, 2, 0, 1), (2, 1, 10000, 2, 2, 1), (1, 2, 10000, 0, 0, 1), "
               "(1, 4, 10000, 0, 0, 1)");
    EXPECT_EQ("1-1 J7 1.0000, 1-1 C25 0.0060, 1-1 D25 0.0120, 4-1 H6 0.0160", ListText(folder.store));
}

/// One group of the answer for each material, most of which are in no list.
std::string Groups(int count) {
    return "INSERT INTO Move (move_id, move_date, move_export) VALUES (1, '2012-08-15', 0);"
           "WITH RECURSIVE n(i) AS (VALUES (0) UNION ALL SELECT i + 1 FROM n WHERE i < " +
           std::to_string(count - 1) +
           ") INSERT INTO Cover (cover_id, cover_mat, cover_weight, cover_reusable) SELECT i + 1, i, 10000, 0 FROM n "
           "WHERE i < " +
           std::to_string(count) +
           ";INSERT INTO Move_Cover (move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay) SELECT 1, "
           "cover_id, 10000, 2, 2, 1 FROM Cover";
}

struct PacingCase {
    int rows;
    std::size_t lines;
    const char* first;
    const char* last;
};

class FigurePacing : public testing::TestWithParam<PacingCase> {};

TEST_P(FigurePacing, MovesTheBarEveryStep) {
    StoreFolder folder;
    folder.Sql(Groups(GetParam().rows).c_str());
    RecordedProgress progress;
    CCellMap cells;
    FillMoveFigures(folder.store, *progress.Open({}, false), cells, ThirdQuarter(false));
    const std::vector<QString> lines(progress.lines.begin() + 1, progress.lines.end() - 1);
    ASSERT_EQ(GetParam().lines, lines.size());
    if (!lines.empty()) {
        EXPECT_EQ(GetParam().first, QStringList(lines.begin(), lines.begin() + 3).join(u',').toStdString());
        EXPECT_EQ(GetParam().last, QStringList(lines.end() - 2, lines.end()).join(u',').toStdString());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Report, FigurePacing,
    testing::Values(PacingCase{0, 0, "", ""},
                    PacingCase{1, 3, "position 0,detail 1 z 1,position 200", "detail 1 z 1,position 200"},
                    PacingCase{3, 7, "position 0,detail 1 z 3,position 66", "detail 3 z 3,position 200"},
                    PacingCase{399, 799, "position 0,detail 1 z 399,position 0", "detail 399 z 399,position 200"},
                    PacingCase{400, 401, "position 0,detail 1 z 400,position 0", "detail 399 z 400,position 199"},
                    PacingCase{450, 451, "position 0,detail 1 z 450,position 0", "detail 449 z 450,position 199"}));

class FailingSheet : public CCellMap {
public:
    void SetCurrency(const QString& range, Currency value) override {
        if (Cells().size() == 2)
            throw ComError("cell", {}, ResultCode::Fail, QStringLiteral("broken"));
        CCellMap::SetCurrency(range, value);
    }
};

TEST(Figures, AnErrorEndsTheFillAndLeavesTheCellsBefore) {
    StoreFolder folder;
    folder.Sql(Groups(30).c_str());
    FailingSheet cells;
    EXPECT_THROW(FillMoveFigures(folder.store, *SilentProgress().Open({}, false), cells, ThirdQuarter(false)),
                 ComError);
    EXPECT_EQ(2u, cells.Cells().size());
}

} // namespace
