#include "core/report/Explanation.h"
#include "core/base/Progress.h"
#include "core/report/FigureList.h"
#include "core/report/Figures.h"
#include "tests/support/SampleRows.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

namespace {

constexpr int LastRow = 40;
constexpr int LastColumn = 15;

/// Codes of every kind, some in no list, some null; weights and quantities with all their decimals; days inside and
/// around the quarter.
std::string RandomRecords(unsigned seed) {
    std::mt19937 random(seed);
    const auto number = [&](int low, int high) {
        return std::to_string(low + static_cast<int>(random() % (high - low + 1)));
    };
    const auto code = [&](int count) { return random() % 20 == 0 ? std::string("NULL") : number(0, count); };
    const auto flag = [&] { return random() % 20 == 0 ? std::string("NULL") : number(0, 1); };
    const auto day = [&] {
        return "'2012-" +
               std::string(random() % 4 == 0   ? "03-31"
                           : random() % 2 == 0 ? "04-01"
                                               : "06-30 23:59:59") +
               "'";
    };
    std::string sql = "BEGIN;INSERT INTO Product (prod_id, prod_name, prod_katalog) VALUES (1, 'Židle', 'K,1');";
    for (int i = 1; i <= 60; ++i)
        sql += "INSERT INTO Cover VALUES (" + std::to_string(i) + ", 'obal', " + code(30) + ", " + code(50000) + ", " +
               code(4) + ", 0, 0, " + flag() + ", " + code(4) + ", '', 0);";
    for (int i = 1; i <= 20; ++i)
        sql += "INSERT INTO Move VALUES (" + std::to_string(i) + ", 'D" + number(1, 9) + "', " + day() + ", 0, " +
               flag() + ", NULL);INSERT INTO Move_Prod VALUES (" + std::to_string(i) + ", " + std::to_string(i) +
               ", 1, 10000);";
    for (int i = 1; i <= 400; ++i) {
        const std::string issue = number(1, 20);
        sql += "INSERT INTO Move_Cover VALUES (" + std::to_string(i) + ", " + issue + ", " + issue + ", " +
               number(1, 60) + ", " + code(900000) + ", " + code(4) + ", " + code(3) + ", " + code(3) + ");";
    }
    for (int i = 1; i <= 100; ++i)
        sql += "INSERT INTO CoverDiscard VALUES (" + std::to_string(i) + ", " + number(1, 60) + ", " + day() + ", " +
               code(900000) + ", " + code(3) + ");";
    return sql + "COMMIT";
}

TEST(Explanation, OfEveryCellSumsToItsFigureAndNoRowStandsTwice) {
    const DateRange period = QuarterRange(2012, 2);
    for (const unsigned seed : {1U, 2U}) {
        StoreFolder folder;
        folder.Sql(RandomRecords(seed));
        for (const char* version : {"1.99", "2"}) {
            std::map<QString, Currency> figures;
            for (const FigureCell& figure :
                 ListFigures(folder.store, *SilentProgress().Open({}, false), 2012, 2, QString::fromUtf8(version)))
                figures[figure.sheet + figure.cell] = figure.tonnes;
            EXPECT_LT(30u, figures.size());
            for (const FigureSheet& sheet : FigureSheets) {
                std::set<std::int64_t> seen;
                for (CellPlace place{1, 0}; place.row <= LastRow;
                     place = place.column == LastColumn ? CellPlace{place.row + 1, 0}
                                                        : CellPlace{place.row, place.column + 1}) {
                    if (!sheet.CanReach(CurrentLayout(), place))
                        continue;
                    std::int64_t sum = 0;
                    const auto rows = ExplainFigure(folder.store, period, CurrentLayout(), sheet, place);
                    for (const ExplanationRow& row : rows) {
                        sum += row.kilograms.count;
                        EXPECT_TRUE(seen.insert(row.key).second) << row.key;
                    }
                    const auto figure = figures.find(sheet.Name() + CellText(place));
                    ASSERT_EQ(figure == figures.end(), rows.empty()) << sheet.name << CellText(place).toStdString();
                    if (figure != figures.end()) {
                        EXPECT_EQ(figure->second.count, sum / 1000);
                        figures.erase(figure);
                    }
                }
            }
            EXPECT_TRUE(figures.empty()) << "a figure that nothing explains";
        }
    }
}

TEST(Explanation, NamesRecordsByDayDocumentAndKey) {
    SampleFolder folder;
    folder.Sql("UPDATE Cover SET cover_mat = 7, cover_reusable = 0, cover_weight = 15000 WHERE cover_id = 1;"
               "UPDATE Move_Cover SET cover_id = 1, cover_type = 2, cover_org = 2, cover_pay = 1 WHERE mvcover_id IN "
               "(1, 2, 5, 7, 10);"
               "UPDATE Move_Cover SET mvprod_id = 99 WHERE mvcover_id = 7;"
               "UPDATE Move_Cover SET mvcover_qty = NULL WHERE mvcover_id = 2;"
               "UPDATE Move SET move_export = 0");
    std::string text;
    for (const ExplanationRow& row :
         ExplainFigure(folder.store, QuarterRange(2012, 2), Layout::New, FigureSheets[0], {25, 2}))
        text += row.document.toStdString() + '|' + row.date.Stored().substr(0, 10) + '|' + row.product.toStdString() +
                '|' + row.catalogue.toStdString() + '|' + CurrencyText(row.pieces).toStdString() + '|' +
                CurrencyText(row.kilograms).toStdString() + '\n';
    EXPECT_EQ("DL-1|2012-04-01|Židle|K-10|10|15\n"
              "DL-1|2012-04-01|Židle|K-10||\n"
              "DL-1|2012-04-01|||0,5|0,75\n"
              "dl-2|2012-06-30|Židle|K-10|1|1,5\n"
              "x'y|2012-06-30|zámek|K-9|1,0001|1,5002\n",
              text);
}

} // namespace
