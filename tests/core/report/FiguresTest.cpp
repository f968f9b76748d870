#include "core/report/Figures.h"
#include "core/base/ComError.h"
#include "core/report/CellMap.h"
#include "core/report/FigureList.h"
#include "tests/core/report/SecondWay.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <QFile>

namespace {

/// A whole report of the third quarter of 2012.
std::vector<FigureCell> ListOf(CDataStore& store, const char* version) {
    return ListFigures(store, *SilentProgress().Open({}, false), 2012, 3, QString::fromUtf8(version));
}

/// Its cells: "1-1 C33 1.2345, …".
std::string ListText(CDataStore& store, const char* version = "2.19") {
    std::string text;
    for (const FigureCell& cell : ListOf(store, version))
        text += (text.empty() ? "" : ", ") + cell.sheet.toStdString() + ' ' + cell.cell.toStdString() + ' ' +
                FormatCurrency(cell.tonnes, 1, 'D').replace(u',', u'.').toStdString();
    return text;
}

/// The sheet "1-1" of the third quarter of 2012.
void FillFirstSheet(CDataStore& store, IProgress& progress, IFigureSheet& sheet) {
    CQuarterTotals totals(store, QuarterRange(2012, 3));
    FillMoveFigures(totals, progress, sheet, {false, false, 1});
}

/// Codes from one below to two above the list; below it stands for null.
std::string Code(int code) {
    return code < 0 ? "NULL" : std::to_string(code);
}

/// Every combination of codes, also of such as are in no list, as issued packaging and as a discard.
std::string EveryCombination(bool reusable) {
    std::string covers = "INSERT INTO Cover (cover_id, cover_mat, cover_weight, cover_type, cover_org, cover_pay, "
                         "cover_reusable, cover_stat) VALUES ";
    std::string moves = "INSERT INTO Move VALUES (1, 'A', '2012-08-15 00:00:00', 0, 0, NULL);"
                        "INSERT INTO Move_Cover (move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay) "
                        "VALUES ";
    std::string discards = "INSERT INTO CoverDiscard (cover_id, disc_date, disc_qty, disc_type) VALUES ";
    const char* comma = "";
    for (int material = -1; material <= 31; ++material) {
        for (int type = -1; type <= 5; ++type) {
            const std::string cover = std::to_string((material + 2) * 10 + type + 2);
            covers += comma + ("(" + cover) + ", " + Code(material) + ", 10000000, " + Code(type) + ", 0, 0, " +
                      (reusable ? "1, " : "0, ") + Code(material % 5) + ")";
            for (int share = -1; share <= 4; ++share) {
                // Each combination has its own number of tonnes.
                const std::string quantity =
                    std::to_string((material + 2) * 100 + (type + 2) * 10 + share + 2) + "0000";
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

TEST(Figures, StandWhereTheFormHasThem) {
    for (const bool reusable : {false, true}) {
        StoreFolder folder;
        folder.Sql(EveryCombination(reusable));
        const CSecondWay second(QFile::encodeName(folder.folder.File("Kuvel.mdb")).toStdString());
        for (const char* version : {"1.99", "2"}) {
            std::map<std::string, long long> listed;
            for (const FigureCell& figure : ListOf(folder.store, version))
                listed[(figure.sheet + u',' + figure.cell).toStdString()] = figure.tonnes.count;
            EXPECT_EQ(second.Figures(20120701, 20120930, *version == '2'), listed) << version << reusable;
            EXPECT_LT(150u, listed.size());
        }
    }
}

TEST(Figures, OfOneIssueReachTheirCells) {
    // cover: cover_mat, cover_weight, cover_reusable, cover_stat, deleted; issue: mvcover_qty, cover_type, cover_org,
    // cover_pay, move_export
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"7, 10000000, 0, 0, 0", "10000, 2, 2, 2, 0", "1-2 C25 1.0000"}, // prepaid
        {"7, 10000000, 0, 0, 0", "10000, 2, 2, 0, 0", "1-3 C25 1.0000"}, // unpaid
        {"7, 10000000, 0, 0, 0", "10000, 2, 2, 0, 1", "1-4 C25 1.0000"}, // exported, whatever its payment
        {"7, 10000000, 0, 0, 0", "10000, 2, 2, 1, 1", "1-4 C25 1.0000"},
        {"7, 10000000, 0, 0, 0", "10000, 2, 2, NULL, 0", ""},
        {"7, 10000000, 1, 0, 0", "10000, 2, 2, 2, 0", "2-2 C25 1.0000"},
        {"7, 10000000, 1, 0, 0", "10000, 2, 2, 0, 0", "2-3 C25 1.0000"},
        {"7, 10000000, 1, 0, 0", "10000, 2, 2, 2, 1", "2-4 C25 1.0000"},
        {"7, 10000000, 0, 0, 1", "10000, 2, 2, 1, 0", "1-1 C25 1.0000"}, // deleted since
        {"7, 4900, 0, 0, 0", "10000, 2, 2, 1, 0", "1-1 C25 0.0004"},     // cut, not rounded
        {"7, 12345678, 0, 0, 0", "10000, 2, 2, 1, 0", "1-1 C25 1.2345"},
        {"7, 12345678, 0, 0, 0", "-10000, 2, 2, 1, 0", "1-1 C25 -1.2345"},
        {"7, 999, 0, 0, 0", "10000, 2, 2, 1, 0", "1-1 C25 0.0000"},
        {"7, 10000, 0, 0, 0", "9000000000000001000, 2, 2, 1, 0", "1-1 C25 900000000000.0001"},
        {"7, NULL, 0, 1, 0", "10000, 2, 2, 1, 0", ""},
        {"7, 10000, 0, 0, 0", "NULL, 2, 2, 1, 0", ""},
        // Pallets and cartons, by whether the cover is reusable where that is known.
        {"NULL, 10000000, NULL, 1, 0", "10000, 2, 2, 1, 0", ""},
        {"NULL, 10000000, NULL, 2, 0", "10000, 2, 2, 1, 0", "4-1 H6 1.0000"},
        {"NULL, 10000000, NULL, 3, 0", "10000, 2, 2, 1, 0", ""},
        {"NULL, 10000000, 0, NULL, 0", "10000, 2, 2, 1, 0", ""},
        {"NULL, 10000000, 1, 1, 0", "10000, 2, 2, 0, 1", "4-1 E5 1.0000"}, // exported too
        {"0, 10000000, 1, 1, 0", "10000, 0, 2, 0, 0", "2-3 I32 1.0000, 4-1 E5 1.0000"},
    };
    for (const auto& [cover, issue, cells] : cases) {
        StoreFolder folder;
        folder.Sql(std::string("INSERT INTO Cover (cover_id, cover_mat, cover_weight, cover_reusable, cover_stat, "
                               "deleted) VALUES (1, ") +
                   cover + ");CREATE TABLE I (q, t, o, p, e); INSERT INTO I VALUES (" + issue +
                   ");INSERT INTO Move SELECT 1, 'A', '2012-08-15', 0, e, NULL FROM I;"
                   "INSERT INTO Move_Cover SELECT 1, 1, 1, 1, q, t, o, p FROM I; DROP TABLE I");
        EXPECT_EQ(cells, ListText(folder.store)) << cover << " issued " << issue;
    }
}

TEST(Figures, CountInTheQuarterOfTheirDay) {
    const char* const all = "2-1 C25 1.0000, 3-1 C25 2.0000, 4-1 E5 1.0000";
    const std::pair<const char*, const char*> cases[] = {{"'2012-06-30 23:59:59'", ""},
                                                         {"'2012-07-01 00:00:00'", all},
                                                         {"'2012-07-01'", all},
                                                         {"'2012-09-30 23:59:59'", all},
                                                         {"'2012-10-01'", ""},
                                                         {"'2011-08-15'", ""},
                                                         {"NULL", ""},
                                                         {"'srpen'", ""}};
    for (const auto& [date, cells] : cases) {
        StoreFolder folder;
        folder.Sql(std::string("INSERT INTO Cover (cover_id, cover_mat, cover_type, cover_weight, cover_reusable, "
                               "cover_stat) VALUES (1, 7, 2, 10000000, 1, 1);INSERT INTO Move VALUES (1, 'A', ") +
                   date +
                   ", 0, 0, NULL);INSERT INTO Move_Cover VALUES (1, 1, 1, 1, 10000, 2, 2, 1);"
                   "INSERT INTO CoverDiscard VALUES (1, 1, " +
                   date + ", 20000, 2)");
        EXPECT_EQ(cells, ListText(folder.store)) << date;
    }
}

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

TEST(Figures, MoveTheBarEveryStep) {
    const std::tuple<int, const char*, const char*, std::size_t> cases[] = {
        {0, "", "", 0},
        {3, "position 0,detail 1 z 3,position 66", "detail 3 z 3,position 200", 7},
        {399, "position 0,detail 1 z 399,position 0", "detail 399 z 399,position 200", 799},
        {450, "position 0,detail 1 z 450,position 0", "detail 449 z 450,position 199", 451},
    };
    for (const auto& [rows, first, last, count] : cases) {
        StoreFolder folder;
        folder.Sql(Groups(rows));
        RecordedProgress progress;
        CCellMap cells;
        FillFirstSheet(folder.store, *progress.Open({}, false), cells);
        const QStringList lines(progress.lines.begin() + 1, progress.lines.end() - 1);
        EXPECT_EQ(count, static_cast<std::size_t>(lines.size()));
        EXPECT_EQ(first, lines.mid(0, 3).join(u',').toStdString());
        EXPECT_EQ(last, lines.mid(std::max<qsizetype>(0, lines.size() - 2)).join(u',').toStdString());
    }
}

class FailingSheet : public CCellMap {
public:
    void SetCurrency(const QString& range, Currency value) override {
        if (Cells().size() == 2)
            throw ComError("cell", {}, ResultCode::Fail, QStringLiteral("broken"));
        CCellMap::SetCurrency(range, value);
    }
};

TEST(Figures, AWeightOutOfRangeIsNamed) {
    const struct {
        std::string issued;
        std::string discarded;
        const char* row;
    } cases[] = {{"999999999999990000", "10000", "\n\nvýdej \"A\" ze dne 15.08.2012, obal \"Bedna\""},
                 {"10000", "999999999999990000", "\n\nvyřazení ze dne 16.08.2012, obal \"Bedna\""}};
    for (const auto& each : cases) {
        StoreFolder folder;
        folder.Sql(("INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_reusable, cover_stat) VALUES "
                    "('Bedna', 0, 250000, 1, 1);"
                    "INSERT INTO Move VALUES (1, 'A', '2012-08-15 00:00:00', 0, 0, NULL);"
                    "INSERT INTO Move_Cover (move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay) VALUES "
                    "(1, 1, " +
                    each.issued +
                    ", 0, 0, 1); INSERT INTO CoverDiscard (cover_id, disc_date, disc_qty, disc_type) VALUES "
                    "(1, '2012-08-16 00:00:00', " +
                    each.discarded + ", 0)")
                       .c_str());
        try {
            ListOf(folder.store, "2.19");
            ADD_FAILURE() << each.row;
        } catch (const ComError& error) {
            EXPECT_EQ(std::string("Hodnota je mimo rozsah měny.") + each.row, error.Description().toStdString());
        }
    }
}

TEST(Figures, AnErrorEndsTheFillAndLeavesTheCellsBefore) {
    StoreFolder folder;
    folder.Sql(Groups(30));
    FailingSheet cells;
    EXPECT_THROW(FillFirstSheet(folder.store, *SilentProgress().Open({}, false), cells), ComError);
    EXPECT_EQ(2u, cells.Cells().size());
}

} // namespace
