// Statements that the program sends, one of each shape, filled as it fills them, against a small database.

#include "core/base/SqlText.h"
#include "tests/support/SampleRows.h"

#include <gtest/gtest.h>

TEST(Dialect, EachQueryGivesItsRows) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        // The packaging of an issued product.
        {"SELECT Move.move_date, Move_Prod.* FROM Move INNER JOIN Move_Prod ON Move.move_id = Move_Prod.move_id "
         "WHERE (Move_Prod.prod_id=1) ",
         "mvprod_id move_id move_date mvprod_qty",
         "1|1|#2012-04-01 00:00:00#|10,0000 3|2|#2012-06-30 23:59:59#|1,0000"},
        {"SELECT * FROM Prod_CoverDT WHERE (prod_id = 5) AND DATEDIFF(\"d\", #7/1/2012#, dt_from)=0", "dt_id", "4"},
        // What an import recognises again.
        {"SELECT * FROM Product WHERE prod_source = 2 AND prod_scrid = 17", "prod_id", "2"},
        {"SELECT * FROM Move WHERE move_source = 2 AND move_num = 'dl-1'", "move_id", "3"},
        {"SELECT * FROM Move WHERE move_source = 2 AND move_num = 'Č. 5'", "move_id", "4"},
        {"SELECT * FROM Move WHERE move_source = 2 AND move_num = 'C. 5'", "move_id", ""},
        // What filters join.
        {"SELECT * FROM Cover WHERE (deleted = FALSE) AND (cover_name LIKE '%a%') AND (cover_weight>=0.5) ORDER BY "
         "cover_name DESC",
         "cover_id", "5 3 2 1"},
        {"SELECT * FROM Product WHERE (deleted = FALSE) AND prod_unit = 'KS' AND prod_id NOT IN (SELECT "
         "Prod_CoverDT.prod_id FROM Prod_CoverDT INNER JOIN Prod_Cover ON Prod_CoverDT.dt_id = Prod_Cover.dt_id)",
         "prod_id", "5"},
        // Weights are currencies rounded once. The codes are those of the issued packaging where both tables have them.
        {"SELECT Prod_Cover.*, Cover.cover_name, cp_qtycover*cover_weight AS totWeight FROM Prod_Cover INNER JOIN "
         "Cover ON Prod_Cover.cover_id = Cover.cover_id WHERE (dt_id=1) ORDER BY cover_name",
         "totWeight", "30,0000 1,8518 50,0000"},
        {"SELECT Move_Cover.*, Cover.*, mvcover_qty*cover_weight AS totWeight FROM Move_Cover INNER JOIN Cover ON "
         "Move_Cover.cover_id = Cover.cover_id WHERE (mvprod_id=1) ORDER BY cover_name",
         "mvcover_id cover_type cover_org cover_pay totWeight", "1|2|1|1|5,0000 2|0|0|0|3,7035 8|1|1|1|1,0000"},
        {"SELECT Move_Cover.*, Cover.*, mvcover_qty*cover_weight AS totWeight FROM Move_Cover INNER JOIN Cover ON "
         "Move_Cover.cover_id = Cover.cover_id WHERE mvprod_id=6",
         "totWeight", "null"},
    };
    SampleFolder folder;
    for (const auto& [sql, columns, rows] : cases)
        EXPECT_EQ(rows, Rows(folder.store, sql, columns)) << sql;
}

TEST(Dialect, ListsAreSortedBothWays) {
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"SELECT * FROM Cover WHERE (deleted = FALSE) ORDER BY cover_name", "cover_id", "1 2 3 4 5 6", "6 5 4 3 2 1"},
        {"SELECT * FROM Cover WHERE (deleted = FALSE) ORDER BY cover_weight", "cover_id", "6 4 1 2 3 5", "5 3 2 1 4 6"},
        {"SELECT * FROM Cover WHERE (deleted = FALSE) ORDER BY cover_reusable", "cover_id", "2 4 1 3 5 6",
         "1 3 5 6 2 4"}, // true is -1
        {"SELECT CoverDiscard.*, disc_qty*cover_weight AS totWeight FROM CoverDiscard INNER JOIN Cover ON "
         "CoverDiscard.cover_id = Cover.cover_id WHERE (CoverDiscard.cover_id=2) ORDER BY disc_qty*cover_weight",
         "disc_id", "3 2 6 7 1", "1 2 6 7 3"},
        {"SELECT * FROM Move ORDER BY move_num", "move_id", "6 7 4 1 3 2 5", "5 2 1 3 4 7 6"},
        {"SELECT Move_Prod.*, Product.* FROM Move_Prod INNER JOIN Product ON Move_Prod.prod_id = Product.prod_id WHERE "
         "(move_id=1) ORDER BY Move_prod.mvprod_qty",
         "mvprod_id", "5 2 6 1", "1 2 6 5"},
        {"SELECT Move_Cover.*, Cover.*, mvcover_qty*cover_weight AS totWeight FROM Move_Cover INNER JOIN Cover ON "
         "Move_Cover.cover_id = Cover.cover_id WHERE move_id=1 ORDER BY Move_Cover.cover_type",
         "mvcover_id", "2 9 8 1 7 3", "3 1 7 8 2 9"},
    };
    SampleFolder folder;
    for (const auto& [sql, key, ascending, descending] : cases) {
        EXPECT_EQ(ascending, Rows(folder.store, sql, key)) << sql;
        EXPECT_EQ(descending, Rows(folder.store, std::string(sql) + " DESC", key)) << sql << " DESC";
    }
}

TEST(Dialect, ACommandChangesItsRowsAlone) {
    SampleFolder folder; // the multi-selection is 1 and 3
    for (const char* sql : {"DELETE FROM CoverDiscard WHERE cover_id IN (SELECT id FROM TmpID)",
                            "DELETE FROM Prod_Cover WHERE (dt_id IN (SELECT dt_id FROM Prod_CoverDT WHERE (prod_id IN "
                            "(SELECT id FROM TmpID))))",
                            "UPDATE Product SET deleted = true WHERE (prod_id IN (SELECT id FROM TmpID))",
                            "UPDATE Prod_Cover SET cover_type=3, cover_org=-1, cover_pay=0 WHERE cover_id=1"})
        folder.store.ExecuteSQL(sql);
    EXPECT_EQ("1 2 3 4 6 7", folder.AskAll("SELECT disc_id FROM CoverDiscard ORDER BY 1"));
    EXPECT_EQ("4|2|1|1 5|3|-1|0", folder.AskAll("SELECT cp_id, cover_type, cover_org, cover_pay FROM Prod_Cover"));
    EXPECT_EQ("1 3 4", folder.AskAll("SELECT prod_id FROM Product WHERE deleted"));
    EXPECT_EQ("1 3", folder.AskAll("SELECT id FROM TmpID"));
}

TEST(Dialect, ATypedTextGoesInAsItStands) {
    SampleFolder folder;
    // expected: "!" for a text that breaks the statement
    const std::pair<const char*, const char*> cases[] = {
        {"d''Or", "5"}, // the user doubles it, nothing else does
        {"d'Or", "!"},
        {"' OR 'a'='a", "1 2 3 4 5 6 7"},
        {"x'; DELETE FROM Cover; --", "!"},
        {"5\" 50%", "4"},
        {"%li", ""},
        {"", "3"},
    };
    for (const auto& [typed, expected] : cases) {
        const std::string sql =
            SqlText("SELECT * FROM Cover WHERE (cover_note = '%s') ORDER BY cover_id", std::string(typed));
        std::string keys;
        try {
            keys = Rows(folder.store, sql, "cover_id");
        } catch (const ComError& error) {
            keys = "!";
            EXPECT_EQ(sql, error.Text());
        }
        EXPECT_EQ(expected, keys) << sql;
    }
    EXPECT_EQ("7", folder.Ask("SELECT count(*) FROM Cover"));
}
