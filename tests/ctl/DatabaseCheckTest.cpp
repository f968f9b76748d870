#include "ctl/DatabaseCheck.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace {

/// A small company without a fault.
constexpr const char* Sound =
    "INSERT INTO Cover VALUES (1, 'Krabice', 27, 2500, 1, 1, 1, 0, 0, '', 0), (2, 'Paleta', 0, 250000, 0, 1, 0, 1, 1, "
    "NULL, 1);"
    "INSERT INTO CompCover VALUES (1, 'Sada', '');"
    "INSERT INTO CompCover_Item VALUES (1, 1, 10000, 10000, 1, 0, 0, 1, 1, 1);"
    "INSERT INTO Product VALUES (1, 'Mýdlo', 'M-1', 'ks', NULL, NULL, 0), (2, 'Prášek', 'P-2', 'ks', 1, 77, 1);"
    "INSERT INTO Prod_CoverDT VALUES (1, 1, '2012-01-01 00:00:00'), (2, 1, '2012-07-01');"
    "INSERT INTO Prod_Cover VALUES (1, 1, 1, 10000, 120000, 1, 0, 0, 1, 1, 1);"
    "INSERT INTO Move VALUES (1, 'DL1', '2012-05-05 00:00:00', 0, 0, NULL), (2, 'DL2', '2012-05-06 14:30:00', 3, 1, 2);"
    "INSERT INTO Move_Prod VALUES (1, 1, 1, 240000), (2, 2, 2, 10000);"
    "INSERT INTO Move_Cover VALUES (1, 1, 1, 1, 20000, 1, 1, 1);"
    "INSERT INTO CoverDiscard VALUES (1, 2, '2012-06-30 00:00:00', 10000, 2);";

std::string Findings(StoreFolder& company, std::int64_t* count = nullptr) {
    QStringList lines;
    const std::int64_t found = CheckDatabase(company.store, [&](const QString& line) { lines << line; });
    if (count != nullptr)
        *count = found;
    return lines.join(u'\n').toStdString();
}

TEST(DatabaseCheck, NamesEachFault) {
    const std::pair<const char*, const char*> cases[] = {
        {"SELECT 1", ""},
        {"DELETE FROM Product WHERE prod_id = 2", "Move_Prod 2: prod_id 2 is not in Product"},
        {"UPDATE Prod_CoverDT SET prod_id = 9 WHERE dt_id = 2", "Prod_CoverDT 2: prod_id 9 is not in Product"},
        {"UPDATE Prod_Cover SET dt_id = NULL", "Prod_Cover 1: dt_id (empty) is not in Prod_CoverDT"},
        {"UPDATE Prod_Cover SET cover_id = 9", "Prod_Cover 1: cover_id 9 is not in Cover"},
        {"UPDATE CompCover_Item SET ccover_id = 9", "CompCover_Item 1: ccover_id 9 is not in CompCover"},
        {"UPDATE CompCover_Item SET cover_id = 9", "CompCover_Item 1 of 'Sada': cover_id 9 is not in Cover"},
        {"INSERT INTO TmpCover_Item (ti_id, cover_id, cover_type, cover_org, cover_pay) VALUES (4, 9, 0, 0, 0)",
         "TmpCover_Item 4: cover_id 9 is not in Cover"},
        {"UPDATE Move_Prod SET move_id = 9 WHERE mvprod_id = 2", "Move_Prod 2: move_id 9 is not in Move"},
        {"UPDATE Move_Cover SET mvprod_id = 9", "Move_Cover 1: mvprod_id 9 is not in Move_Prod"},
        {"UPDATE Move_Cover SET cover_id = 9", "Move_Cover 1: cover_id 9 is not in Cover"},
        {"UPDATE Move_Cover SET move_id = 2", "Move_Cover 1: move_id 2 is not the issue of its line"},
        {"UPDATE Move_Cover SET move_id = 9",
         "Move_Cover 1: move_id 9 is not in Move\nMove_Cover 1: move_id 9 is not the issue of its line"},
        {"UPDATE CoverDiscard SET cover_id = 9", "CoverDiscard 1: cover_id 9 is not in Cover"},
        {"UPDATE Move SET move_date = '2012-02-30 00:00:00' WHERE move_id = 1",
         "Move 1: move_date '2012-02-30 00:00:00' is not a date"},
        {"UPDATE Move SET move_date = NULL WHERE move_id = 1", "Move 1: move_date (empty) is not a date"},
        {"UPDATE Prod_CoverDT SET dt_from = '1.7.2012' WHERE dt_id = 2",
         "Prod_CoverDT 2: dt_from '1.7.2012' is not a date"},
        {"UPDATE CoverDiscard SET disc_date = x'00'", "CoverDiscard 1: disc_date (bytes) is not a date"},
        {"UPDATE Cover SET cover_mat = 30 WHERE cover_id = 1",
         "Cover 1: cover_mat 30 is not in the list CoverMaterial"},
        {"UPDATE Cover SET cover_stat = 4 WHERE cover_id = 1", "Cover 1: cover_stat 4 is not in the list CoverStat"},
        {"UPDATE Move_Cover SET cover_org = -1", "Move_Cover 1: cover_org -1 is not in the list CoverOrigin"},
        {"UPDATE Prod_Cover SET cover_pay = 3", "Prod_Cover 1: cover_pay 3 is not in the list CoverPayment"},
        {"UPDATE CompCover_Item SET cover_type = NULL",
         "CompCover_Item 1 of 'Sada': cover_type (empty) is not in the list CoverType"},
        {"UPDATE CoverDiscard SET disc_type = 3", "CoverDiscard 1: disc_type 3 is not in the list DiscardType"},
        {"UPDATE Move SET move_type = 4 WHERE move_id = 1", "Move 1: move_type 4 is not in the list MoveType"},
        {"UPDATE Cover SET cover_mat = 'sklo' WHERE cover_id = 1",
         "Cover 1: cover_mat 'sklo' must be a whole number of 32 bits"},
        {"UPDATE Product SET prod_scrid = 3000000000 WHERE prod_id = 2",
         "Product 2: prod_scrid 3000000000 must be a whole number of 32 bits"},
        {"UPDATE Move_Cover SET mvcover_qty = 0.5",
         "Move_Cover 1: mvcover_qty 0.5 must be an amount of ten-thousandths"},
        {"UPDATE Cover SET cover_name = x'4B' WHERE cover_id = 1", "Cover 1: cover_name (bytes) must be a text"},
        {"UPDATE Move SET move_export = -1 WHERE move_id = 2", "Move 2: move_export -1 must be 0 or 1"},
        {"UPDATE Move SET move_export = NULL WHERE move_id = 2", "Move 2: move_export (empty) must be 0 or 1"},
        {"UPDATE Cover SET cover_reusable = NULL WHERE cover_id = 1", "Cover 1: cover_reusable (empty) must be 0 or 1"},
        {"UPDATE Cover SET cover_weight = NULL WHERE cover_id = 1",
         "Cover 1: cover_weight (empty) must be greater than 0"},
        {"UPDATE Cover SET cover_weight = 0 WHERE cover_id = 1", "Cover 1: cover_weight 0.0000 must be greater than 0"},
        {"UPDATE Cover SET cover_weight = -15000 WHERE cover_id = 1",
         "Cover 1: cover_weight -1.5000 must be greater than 0"},
        {"UPDATE Prod_Cover SET cp_qtyprod = 0", "Prod_Cover 1: cp_qtyprod 0.0000 must be greater than 0"},
        {"UPDATE CompCover_Item SET cp_qtycover = NULL, cp_qtyprod = -1",
         "CompCover_Item 1 of 'Sada': cp_qtyprod -0.0001 must be greater than 0\nCompCover_Item 1 of 'Sada': "
         "cp_qtycover (empty) must be a number"},
        {"UPDATE Move_Prod SET mvprod_qty = NULL WHERE mvprod_id = 2",
         "Move_Prod 2: mvprod_qty (empty) must be a number"},
        {"UPDATE Prod_Cover SET cp_usealways = 0, cp_usefrom = 20000, cp_useto = 10000",
         "Prod_Cover 1: cp_usefrom 2.0000 is greater than cp_useto"},
        {"UPDATE Prod_Cover SET cp_usefrom = 20000, cp_useto = 10000", ""}, // not looked at
        {"UPDATE CompCover_Item SET cp_usealways = 0, cp_usefrom = 1",
         "CompCover_Item 1 of 'Sada': cp_usefrom 0.0001 is greater than cp_useto"},
        {"INSERT INTO Product (prod_name, prod_source, prod_scrid) VALUES ('Prach', 1, 77), ('Sůl', 2, 77)",
         "Product 3: prod_scrid 77 is another product's number in the same source"},
        {"INSERT INTO Product (prod_name) VALUES ('Sůl'), ('Sůl')", ""},
        {"INSERT INTO Move (move_num, move_date, move_type, move_source) VALUES ('dl2', '2012-05-06', 0, 2), ('DL2', "
         "'2012-05-06', 0, 1)",
         "Move 3: move_num 'dl2' is another issue's number in the same source"},
        {"UPDATE Cover SET cover_name = 'Kra' || char(0) || 'bice' WHERE cover_id = 1",
         "Cover 1: cover_name 'Kra\uFFFDbice' holds a NUL"},
        {"UPDATE Product SET prod_source = 3 WHERE prod_id = 2", "Product 2: prod_source 3 is no known source"},
    };
    for (const auto& [fault, expected] : cases) {
        StoreFolder company;
        company.Sql(Sound);
        company.Sql(fault);
        EXPECT_EQ(expected, Findings(company)) << fault;
    }
}

TEST(DatabaseCheck, NotesDoubleDefinitionsWithoutCountingThem) {
    StoreFolder company;
    company.Sql(Sound);
    company.Sql("INSERT INTO Prod_CoverDT VALUES (3, 1, '2012-07-01 10:00:00')");
    std::int64_t count = -1;
    EXPECT_EQ("note: product 1 has 2 packaging definitions from 2012-07-01", Findings(company, &count));
    EXPECT_EQ(0, count);
    // The one made last would not hold.
    company.Sql("INSERT INTO Prod_CoverDT VALUES (4, 1, '2012-07-01 09:00:00')");
    EXPECT_EQ("Prod_CoverDT 4: dt_from '2012-07-01 09:00:00' is overruled by an older definition of the same day\n"
              "note: product 1 has 3 packaging definitions from 2012-07-01",
              Findings(company, &count));
    EXPECT_EQ(1, count);
}

TEST(DatabaseCheck, FindsADamagedFile) {
    StoreFolder company;
    company.Sql(Sound);
    // An index whose entries are those of another column.
    company.Sql("PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = 'CREATE INDEX Move_Cover_move_id ON "
                "Move_Cover (mvcover_qty)' WHERE name = 'Move_Cover_move_id'");
    company.store.CloseDatabase();
    ASSERT_TRUE(company.store.OpenDatabase());
    std::int64_t count = 0;
    const std::string findings = Findings(company, &count);
    EXPECT_LT(0, count);
    EXPECT_TRUE(findings.starts_with("file: ")) << findings;
}

} // namespace
