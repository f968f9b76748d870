// What is outside of the dialect is an error that names the whole text, and nothing of it is run.

#include "tests/support/SampleRows.h"

#include <gtest/gtest.h>

#include <QFile>

#include <functional>

namespace {

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

const std::string Refused[] = {
    "",
    ";",
    "SELECT * FROM Cover WHERE cover_name = 'cena",
    "DELETE FROM Move_Cover WHERE mvprod_id = 1 OR 'a'b'",
    "SELECT * FROM Move WHERE DATEDIFF(\"d\", #4/1/2012, move_date)>=0",
    "DELETE FROM TmpID; DELETE FROM Cover",
    "DELETE FROM Cover --WHERE cover_id = 1",
    "DELETE FROM TmpID /* all */",
    std::string("SELECT * FROM Cover\0 WHERE deleted = TRUE", 41),
    std::string("DELETE FROM Cover WHERE cover_name = 'a\0b'", 42),
    "SELECT * FROM Cover WHERE cover_id = ?1",
    "SELECT * FROM Cover WHERE název = 'a'",
    "SELECT * FROM Cover WHERE cover_name = \"cena\"",
    // Statements of the engine, and of other dialects.
    "PRAGMA journal_mode = OFF",
    "SELECT DISTINCT cover_mat FROM Cover",
    "SELECT * FROM Move LEFT JOIN Move_Prod ON Move.move_id = Move_Prod.move_id",
    "SELECT * FROM Cover, Product",
    "DELETE FROM Cover WHERE cover_id IN (1, 2)",
    // Names.
    "SELECT * FROM Covers",
    "DELETE FROM sqlite_sequence",
    "SELECT Move.* FROM Cover",
    "SELECT * FROM Cover WHERE Cover.prod_id = 1",
    "SELECT * FROM Cover ORDER BY prod_name",
    "UPDATE Cover SET prod_id = 1",
    "SELECT rowid FROM Cover",
    "DELETE FROM Cover WHERE cover_id IN (SELECT cover_mat FROM TmpID)",
    "SELECT * FROM Move_Cover INNER JOIN Cover ON Move_Cover.cover_id = Cover.cover_id ORDER BY cover_type",
    "SELECT * FROM Cover INNER JOIN Cover ON TRUE",
    "SELECT * FROM (Move INNER JOIN Move_Cover ON Cover.cover_id = Move_Cover.cover_id) INNER JOIN Cover ON "
    "Move.move_id = Move_Cover.move_id",
    "SELECT kuvel_mul(cover_weight, cover_weight) FROM Cover",
    "SELECT * FROM Move WHERE DATEDIFF(\"m\", #4/1/2012#, move_date)>=0",
    // Types.
    "SELECT * FROM Cover WHERE cover_id = '1'",
    "SELECT * FROM Move WHERE move_date = 5",
    "SELECT * FROM Cover WHERE cover_weight = #4/1/2012#",
    "SELECT * FROM Cover WHERE deleted = -1", // would find nothing: true is stored as 1
    "SELECT * FROM Cover WHERE cover_weight = cover_mat",
    "SELECT * FROM Cover WHERE cover_id LIKE '%1%'",
    "SELECT * FROM Cover WHERE cover_name LIKE cover_note",
    "DELETE FROM Cover WHERE cover_weight IN (SELECT id FROM TmpID)",
    "DELETE FROM Cover WHERE cover_id IN (SELECT prod_id, dt_id FROM Prod_CoverDT)",
    "DELETE FROM Cover WHERE cover_id IN (SELECT * FROM TmpID)",
    "SELECT cover_name*2 FROM Cover",
    "SELECT -cover_name FROM Cover",
    "SELECT cover_mat*0.5 FROM Cover",
    "SELECT Sum(cover_name) AS s FROM Cover",
    "SELECT * FROM Cover WHERE DATEDIFF(\"d\", #4/1/2012#, cover_name)>=0",
    "SELECT * FROM Cover WHERE cover_id",
    "SELECT * FROM Cover WHERE 'a'",
    "SELECT (cover_id = 1) FROM Cover",
    "UPDATE Cover SET cover_mat = 'a'",
    "UPDATE Cover SET cover_name = 1",
    "UPDATE Cover SET cover_mat = 1.5",
    "UPDATE Cover SET cover_mat = cover_weight",
    // Totals.
    "DELETE FROM Cover WHERE Sum(cover_weight) > 1",
    "SELECT Sum(Sum(cover_weight)) AS s FROM Cover",
    "SELECT * FROM Cover ORDER BY Count(*)",
    "SELECT cover_id, Sum(cover_weight) AS s FROM Cover",
    "SELECT * FROM Cover GROUP BY cover_mat",
    "SELECT cover_mat, Count(*) AS n FROM Cover GROUP BY cover_mat ORDER BY cover_name",
    "SELECT * FROM Cover ORDER BY 2",
    // Dates and numbers.
    "SELECT * FROM Move WHERE move_date > #1/2012#",
    "SELECT * FROM Move WHERE move_date > #today#",
    "SELECT * FROM Cover WHERE cover_id = 0x10",
    "SELECT * FROM Cover WHERE (cover_weight>=0,5)",
    "SELECT * FROM Cover WHERE cover_weight >= 1.",
    "SELECT * FROM Cover WHERE cover_weight >= .5",
    // Endless texts.
    "DELETE FROM Cover WHERE " + Repeated("(", 100000) + "TRUE" + Repeated(")", 100000),
    "DELETE FROM Cover WHERE " + Repeated("NOT ", 100000) + "TRUE",
    "DELETE FROM Cover WHERE cover_mat = " + Repeated("- ", 100000) + "1",
    "DELETE FROM TmpID WHERE id IN " + Repeated("(SELECT id FROM TmpID WHERE id IN ", 10000) +
        "(SELECT id FROM TmpID)" + Repeated(")", 10000),
    "DELETE FROM Cover WHERE TRUE" + Repeated(" OR TRUE", 100000),
    "DELETE FROM Cover WHERE cover_mat = 1" + Repeated("+1", 100000),
    "SELECT * FROM " + Repeated("(", 100000) + "Move",
};

} // namespace

TEST(DialectRefusal, NamesTheTextAndRunsNothing) {
    SampleFolder folder;
    folder.store.CloseDatabase();
    const QByteArray before = FileBytes(folder.folder.File("Kuvel.mdb"));
    ASSERT_TRUE(folder.store.OpenDatabase());
    const std::function<void(const std::string&)> doors[] = {
        [&](const std::string& sql) { folder.store.ExecuteSQL(sql); },
        [&](const std::string& sql) { folder.store.Query(sql); },
    };
    for (const std::string& sql : Refused) {
        SCOPED_TRACE(sql.substr(0, 200));
        for (const auto& send : doors) {
            try {
                send(sql);
                ADD_FAILURE() << "not refused";
            } catch (const ComError& error) {
                EXPECT_TRUE(sql == error.Text()) << error.Text().substr(0, 200);
                EXPECT_EQ(ResultCode::ErrorsInCommand, error.Code());
                EXPECT_TRUE(error.Description().startsWith("Chyba syntaxe v příkazu SQL: ")) << error.what();
            }
        }
    }
    folder.store.CloseDatabase();
    EXPECT_TRUE(before == FileBytes(folder.folder.File("Kuvel.mdb")));
}

TEST(DialectRefusal, ACommandIsNoQueryAndAQueryNoCommand) {
    SampleFolder folder;
    EXPECT_THROW(folder.store.Query("DELETE FROM Cover"), ComError);
    EXPECT_THROW(folder.store.ExecuteSQL("SELECT * FROM Cover"), ComError);
    EXPECT_THROW(folder.store.Table("DELETE FROM Cover"), ComError);
    EXPECT_THROW(folder.store.Table("Covers"), ComError);
    EXPECT_THROW(folder.store.Table("sqlite_sequence"), ComError);
    EXPECT_THROW(folder.store.Query("Cover"), ComError);
    EXPECT_EQ("7", folder.Ask("SELECT count(*) FROM Cover"));
}

TEST(DialectRefusal, OfACriterionLeavesTheRecordsetWhereItWas) {
    SampleFolder folder;
    const RecordsetPtr list = folder.store.Query("SELECT * FROM Cover ORDER BY cover_id");
    for (const char* criterion :
         {"", "cover_name = 'd'Or'", "cover_id = 1;", "prod_id = 1", "cover_id", "TRUE ORDER BY cover_id",
          "Count(*) = 7", "TRUE", "1 = 1", "NOT cover_id = 4", "cover_name LIKE 'x' OR cover_name LIKE '%'",
          "cover_id = 4 AND cover_id = 4", "cover_id IN (SELECT id FROM TmpID)"}) {
        list->MoveFirst();
        list->Move(2);
        try {
            list->Find(criterion);
            ADD_FAILURE() << "not refused: " << criterion;
        } catch (const ComError& error) {
            EXPECT_EQ(criterion, error.Text());
        }
        EXPECT_EQ(3, list->Long("cover_id")) << criterion;
    }
}

TEST(DialectRefusal, WhatIsKeptPreparedAnswersToNoOtherText) {
    SampleFolder folder;
    folder.store.Query("SELECT * FROM Cover")->Find("cover_id = 1");
    (void)folder.store.Table("Cover")->get_EOF();
    for (const char* sql : {"? Cover", "? Cover cover_id = 0", "Cover cover_id = 1", "cover_id = 1"}) {
        EXPECT_THROW(folder.store.Query(sql), ComError) << sql;
        EXPECT_THROW(folder.store.ExecuteSQL(sql), ComError) << sql;
    }
}

TEST(DialectRefusal, ATextIsNeverTakenForAnotherWithFewerLiterals) {
    SampleFolder folder;
    const char* const good = "SELECT * FROM Move WHERE DATEDIFF(\"d\", move_date, #1/1/2012#)>=3000";
    // Inside the quotes stand the very tokens that follow the other text's quotes.
    const char* const twin = "SELECT * FROM Move WHERE DATEDIFF(\"d , move_date , #\")>=3000";
    EXPECT_TRUE(folder.store.Query(good)->get_EOF());
    EXPECT_THROW(folder.store.Query(twin), ComError);
    EXPECT_TRUE(folder.store.Query(good)->get_EOF());
}

TEST(DialectRefusal, WhatOnlyLooksForeignIsAllowed) {
    SampleFolder folder;
    const std::pair<const char*, const char*> cases[] = {
        {"SELECT * FROM Cover WHERE cover_note = 'a; DELETE FROM Cover; --'", ""},
        {"\tselect\r\n*\tFROM cover WHERE COVER.Cover_ID=1 ; ", "1"},
        {"SELECT * FROM Cover WHERE cover_id = 3 --1", "4"}, // 3 less -1, never a comment
        {"SELECT * FROM Cover WHERE cover_id = 3- -1", "4"},
        {"SELECT * FROM Cover WHERE - -cover_id = 1", "1"},
        {"SELECT * FROM Cover WHERE cover_id - -cover_id = 2", "1"},
        {"SELECT * FROM Cover WHERE NOT deleted AND NOT cover_reusable = FALSE", "2 4"},
        {"SELECT * FROM Cover WHERE cover_mat IS NULL", "6"},
        {"SELECT * FROM Cover WHERE cover_mat IS NOT NULL AND cover_id < 3", "1 2"},
        {"SELECT * FROM Cover WHERE cover_note NOT LIKE '%%'", ""},
        {"SELECT * FROM Cover WHERE cover_name IN (SELECT cover_name FROM Cover WHERE deleted = TRUE)", "3 7"},
    };
    for (const auto& [sql, keys] : cases)
        EXPECT_EQ(keys, Rows(folder.store, sql, "cover_id")) << sql;
}
