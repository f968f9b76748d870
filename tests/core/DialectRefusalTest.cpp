// What is outside of the dialect is an error that names the whole text, and nothing of it is run.

#include "tests/core/SampleRows.h"

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

const std::string NulOutside("SELECT * FROM Cover\0 WHERE deleted = TRUE", 41);
const std::string NulInText("DELETE FROM Cover WHERE cover_name = 'a\0b'", 42);

const struct {
    const char* fault;
    std::string sql;
} Refused[] = {
    {"nothing", ""},
    {"blanks", " \t\r\n"},
    {"semicolon alone", ";"},
    {"unclosed text", "SELECT * FROM Cover WHERE cover_name = 'cena"},
    {"quote in a text", "DELETE FROM Move_Cover WHERE mvprod_id = 1 OR 'a'b'"},
    {"unclosed date", "SELECT * FROM Move WHERE DATEDIFF(\"d\", #4/1/2012, move_date)>=0"},
    {"second statement", "DELETE FROM TmpID; DELETE FROM Cover"},
    {"second semicolon", "DELETE FROM TmpID;;"},
    {"dashes comment", "DELETE FROM TmpID -- all"},
    {"dashes hide a condition", "DELETE FROM Cover --WHERE cover_id = 1"},
    {"slash comment", "DELETE FROM TmpID /* all */"},
    {"NUL outside", NulOutside},
    {"NUL in a text", NulInText},
    {"foreign character", "SELECT * FROM Cover WHERE cover_id ! 1"},
    {"brackets of names", "SELECT * FROM [Cover]"},
    {"bound parameter", "SELECT * FROM Cover WHERE cover_id = ?1"},
    {"named parameter", "SELECT * FROM Cover WHERE cover_id = :id"},
    {"Czech name", "SELECT * FROM Cover WHERE název = 'a'"},
    {"double quotes", "SELECT * FROM Cover WHERE cover_name = \"cena\""},
    {"double-quoted name", "SELECT \"cover_id\" FROM Cover"},
    // Statements of the engine, and of other dialects.
    {"PRAGMA", "PRAGMA journal_mode = OFF"},
    {"ATTACH", "ATTACH 'x.mdb' AS x"},
    {"CREATE", "CREATE TABLE x (id LONG)"},
    {"DROP", "DROP TABLE Cover"},
    {"INSERT", "INSERT INTO TmpID (id) VALUES (5)"},
    {"REPLACE", "REPLACE INTO TmpID (id) VALUES (5)"},
    {"VACUUM", "VACUUM"},
    {"BEGIN", "BEGIN"},
    {"EXPLAIN", "EXPLAIN SELECT * FROM Cover"},
    {"WITH", "WITH x AS (SELECT * FROM Cover) SELECT * FROM x"},
    {"DISTINCT", "SELECT DISTINCT cover_mat FROM Cover"},
    {"UNION", "SELECT cover_id FROM Cover UNION SELECT id FROM TmpID"},
    {"LIMIT", "SELECT * FROM Cover LIMIT 1"},
    {"HAVING", "SELECT cover_mat FROM Cover GROUP BY cover_mat HAVING Count(*) > 1"},
    {"left join", "SELECT * FROM Move LEFT JOIN Move_Prod ON Move.move_id = Move_Prod.move_id"},
    {"comma join", "SELECT * FROM Cover, Product"},
    {"IN a list", "DELETE FROM Cover WHERE cover_id IN (1, 2)"},
    {"EXISTS", "DELETE FROM Cover WHERE EXISTS (SELECT id FROM TmpID)"},
    {"CASE", "SELECT CASE WHEN TRUE THEN 1 END FROM Cover"},
    // Names.
    {"unknown table", "SELECT * FROM Covers"},
    {"the engine's table", "SELECT * FROM sqlite_schema"},
    {"the engine's sequence", "DELETE FROM sqlite_sequence"},
    {"unknown table of a star", "SELECT Move.* FROM Cover"},
    {"unknown column", "SELECT * FROM Cover WHERE cover_height = 1"},
    {"unknown column of a table", "SELECT * FROM Cover WHERE Cover.prod_id = 1"},
    {"unknown column to sort by", "SELECT * FROM Cover ORDER BY prod_name"},
    {"unknown column to set", "UPDATE Cover SET prod_id = 1"},
    {"the engine's column", "SELECT rowid FROM Cover"},
    {"column of the outer query", "DELETE FROM Cover WHERE cover_id IN (SELECT cover_mat FROM TmpID)"},
    {"ambiguous column", "SELECT * FROM Move_Cover INNER JOIN Cover ON Move_Cover.cover_id = Cover.cover_id WHERE "
                         "cover_type = 1"},
    {"ambiguous column to sort by", "SELECT * FROM Move_Cover INNER JOIN Cover ON Move_Cover.cover_id = "
                                    "Cover.cover_id ORDER BY cover_type"},
    {"a table twice", "SELECT Cover.cover_id FROM Cover INNER JOIN Cover ON TRUE"},
    {"a table twice, all columns", "SELECT * FROM Cover INNER JOIN Cover ON TRUE"},
    {"a join that looks ahead", "SELECT * FROM (Move INNER JOIN Move_Cover ON Cover.cover_id = Move_Cover.cover_id) "
                                "INNER JOIN Cover ON Move.move_id = Move_Cover.move_id"},
    {"unknown function", "SELECT * FROM Cover WHERE LENGTH(cover_name) = 4"},
    {"the engine's function", "SELECT kuvel_mul(cover_weight, cover_weight) FROM Cover"},
    {"extension", "SELECT load_extension('x') FROM Cover"},
    {"DATEDIFF of months", "SELECT * FROM Move WHERE DATEDIFF(\"m\", #4/1/2012#, move_date)>=0"},
    {"DATEDIFF of two", "SELECT * FROM Move WHERE DATEDIFF(\"d\", move_date)>=0"},
    // Types.
    {"text beside a key", "SELECT * FROM Cover WHERE cover_id = '1'"},
    {"number beside a text", "SELECT * FROM Cover WHERE cover_name = 1"},
    {"number beside a date", "SELECT * FROM Move WHERE move_date = 5"},
    {"text beside a date", "SELECT * FROM Move WHERE move_date = '2012-04-01'"},
    {"date beside a currency", "SELECT * FROM Cover WHERE cover_weight = #4/1/2012#"},
    {"truth beside a number", "SELECT * FROM Cover WHERE cover_mat = TRUE"},
    {"number beside a truth", "SELECT * FROM Cover WHERE deleted = -1"}, // would find nothing: true is stored as 1
    {"code beside a currency", "SELECT * FROM Cover WHERE cover_weight = cover_mat"},
    {"LIKE on a number", "SELECT * FROM Cover WHERE cover_id LIKE '%1%'"},
    {"LIKE a column", "SELECT * FROM Cover WHERE cover_name LIKE cover_note"},
    {"text IN keys", "DELETE FROM Cover WHERE cover_name IN (SELECT id FROM TmpID)"},
    {"currency IN keys", "DELETE FROM Cover WHERE cover_weight IN (SELECT id FROM TmpID)"},
    {"IN two columns", "DELETE FROM Cover WHERE cover_id IN (SELECT prod_id, dt_id FROM Prod_CoverDT)"},
    {"IN all columns", "DELETE FROM Cover WHERE cover_id IN (SELECT * FROM TmpID)"},
    {"text times number", "SELECT cover_name*2 FROM Cover"},
    {"code times a decimal", "SELECT cover_mat*0.5 FROM Cover"},
    {"sum of texts", "SELECT Sum(cover_name) AS s FROM Cover"},
    {"days of a text", "SELECT * FROM Cover WHERE DATEDIFF(\"d\", #4/1/2012#, cover_name)>=0"},
    {"a value as a condition", "SELECT * FROM Cover WHERE cover_id"},
    {"a text as a condition", "SELECT * FROM Cover WHERE 'a'"},
    {"a condition as a value", "SELECT (cover_id = 1) FROM Cover"},
    {"set a key to a text", "UPDATE Cover SET cover_mat = 'a'"},
    {"set a text to a number", "UPDATE Cover SET cover_name = 1"},
    {"set a code to a decimal", "UPDATE Cover SET cover_mat = 1.5"},
    {"set a truth to a number", "UPDATE Cover SET deleted = 2"},
    {"set a date to a day count", "UPDATE Move SET move_date = 40000"},
    {"set a code to a currency", "UPDATE Cover SET cover_mat = cover_weight"},
    // Totals.
    {"total in a condition", "DELETE FROM Cover WHERE Sum(cover_weight) > 1"},
    {"total of a total", "SELECT Sum(Sum(cover_weight)) AS s FROM Cover"},
    {"total to sort by", "SELECT * FROM Cover ORDER BY Count(*)"},
    {"column beside a total", "SELECT cover_id, Sum(cover_weight) AS s FROM Cover"},
    {"column out of the group", "SELECT cover_type, Count(*) AS n FROM Cover GROUP BY cover_mat"},
    {"all columns of a group", "SELECT * FROM Cover GROUP BY cover_mat"},
    {"sort out of the group", "SELECT cover_mat, Count(*) AS n FROM Cover GROUP BY cover_mat ORDER BY cover_name"},
    {"sort by a number", "SELECT * FROM Cover ORDER BY 2"},
    // Dates and numbers.
    {"30 February", "SELECT * FROM Move WHERE DATEDIFF(\"d\", #2/30/2012#, move_date)>=0"},
    {"day first", "SELECT * FROM Move WHERE DATEDIFF(\"d\", #31/1/2012#, move_date)>=0"},
    {"two numbers of a date", "SELECT * FROM Move WHERE move_date > #1/2012#"},
    {"negative month", "SELECT * FROM Move WHERE move_date > #-1/1/2012#"},
    {"year 10000", "SELECT * FROM Move WHERE move_date > #1/1/10000#"},
    {"date out of sense", "SELECT * FROM Move WHERE move_date > #today#"},
    {"number with a letter", "SELECT * FROM Cover WHERE cover_id = 1e5"},
    {"hexadecimal", "SELECT * FROM Cover WHERE cover_id = 0x10"},
    {"decimal comma", "SELECT * FROM Cover WHERE (cover_weight>=0,5)"},
    {"point without decimals", "SELECT * FROM Cover WHERE cover_weight >= 1."},
    {"point without a number", "SELECT * FROM Cover WHERE cover_weight >= .5"},
    // Endless texts.
    {"deep brackets", "DELETE FROM Cover WHERE " + Repeated("(", 100000) + "TRUE" + Repeated(")", 100000)},
    {"deep NOT", "DELETE FROM Cover WHERE " + Repeated("NOT ", 100000) + "TRUE"},
    {"deep minus", "DELETE FROM Cover WHERE cover_mat = " + Repeated("- ", 100000) + "1"},
    {"deep sub-queries", "DELETE FROM TmpID WHERE id IN " + Repeated("(SELECT id FROM TmpID WHERE id IN ", 10000) +
                             "(SELECT id FROM TmpID)" + Repeated(")", 10000)},
    {"long OR", "DELETE FROM Cover WHERE TRUE" + Repeated(" OR TRUE", 100000)},
    {"long sum", "DELETE FROM Cover WHERE cover_mat = 1" + Repeated("+1", 100000)},
    {"deep joins", "SELECT * FROM " + Repeated("(", 100000) + "Move"},
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
    for (const auto& c : Refused) {
        for (const auto& send : doors) {
            try {
                send(c.sql);
                ADD_FAILURE() << "not refused: " << c.fault;
            } catch (const ComError& error) {
                EXPECT_TRUE(c.sql == error.Text()) << c.fault << ": " << error.Text().substr(0, 200);
                EXPECT_EQ(ResultCode::ErrorsInCommand, error.Code()) << c.fault;
                EXPECT_TRUE(error.Description().startsWith(QStringLiteral("Chyba syntaxe v příkazu SQL: ")))
                    << c.fault << ": " << error.what();
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
    for (const char* criterion : {"", "cover_name = 'd'Or'", "cover_id = 1;", "cover_id = 1 -- x", "prod_id = 1",
                                  "cover_id", "cover_name = 1", "TRUE ORDER BY cover_id", "Count(*) = 7"}) {
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
    for (const char* sql : {"FIND Cover cover_id = 1", "FIND Cover cover_id = 0 ", "TABLE Cover", "? Cover",
                            "? Cover cover_id = 0", "Cover cover_id = 1", "cover_id = 1"}) {
        EXPECT_THROW(folder.store.Query(sql), ComError) << sql;
        EXPECT_THROW(folder.store.ExecuteSQL(sql), ComError) << sql;
    }
}

TEST(DialectRefusal, WhatOnlyLooksForeignIsAllowed) {
    SampleFolder folder;
    const struct {
        const char* sql;
        const char* keys;
    } cases[] = {
        {"SELECT * FROM Cover WHERE cover_note = 'a; DELETE FROM Cover; --'", ""},
        {"SELECT * FROM Cover WHERE cover_note = '/* \"x\" */ #1/1/2012#'", ""},
        {"SELECT * FROM Cover WHERE cover_id = 1;", "1"},
        {"\tselect\r\n*\tFROM cover WHERE COVER.Cover_ID=1 ; ", "1"},
        {"SELECT * FROM Cover WHERE cover_id = 3 --1", "4"}, // 3 less -1, never a comment
        {"SELECT * FROM Cover WHERE cover_id = 3- -1", "4"},
        {"SELECT * FROM Cover WHERE cover_id = - -1", "1"},
        {"SELECT * FROM Cover WHERE -cover_id = -1", "1"},
        {"SELECT * FROM Cover WHERE - -cover_id = 1", "1"},
        {"SELECT * FROM Cover WHERE cover_id - -cover_id = 2", "1"},
        {"SELECT * FROM Cover WHERE ((((((((((cover_id = 1))))))))))", "1"},
        {"SELECT * FROM Cover WHERE deleted", "7"},
        {"SELECT * FROM Cover WHERE NOT deleted AND NOT cover_reusable = FALSE", "2 4"},
        {"SELECT * FROM Cover WHERE cover_mat IS NULL", "6"},
        {"SELECT * FROM Cover WHERE cover_mat IS NOT NULL AND cover_id < 3", "1 2"},
        {"SELECT * FROM Cover WHERE cover_note NOT LIKE '%%'", ""},
        {"SELECT * FROM Cover WHERE cover_name IN (SELECT cover_name FROM Cover WHERE deleted = TRUE)", "3 7"},
        {"SELECT * FROM Cover WHERE FALSE", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.keys, Rows(folder.store, c.sql, "cover_id")) << c.sql;
}
