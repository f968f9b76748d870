// What the words of the dialect mean: days, Czech texts, numbers, totals, and the indexes that serve them.

#include "core/base/SqlText.h"
#include "core/store/Engine.h"
#include "tests/support/SampleRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace {

/// Fills one text column of one table with these texts, in this order.
void FillNames(const StoreFolder& folder, const std::vector<std::string>& names) {
    std::string sql = "BEGIN; DELETE FROM Cover; DELETE FROM sqlite_sequence;";
    for (std::string name : names) {
        for (std::size_t at = 0; (at = name.find('\'', at)) != std::string::npos; at += 2)
            name.insert(at, 1, '\'');
        sql += "INSERT INTO Cover (cover_name) VALUES ('" + name + "');";
    }
    folder.Sql(sql + "COMMIT");
}

} // namespace

TEST(DialectDays, CountDaysAndNotHours) {
    StoreFolder folder;
    // Each with the conditions below that it meets.
    const std::pair<const char*, const char*> dates[] = {
        {"'2012-03-31 23:59:59'", ".xx.xx."},
        {"'2012-03-31'", ".xx.xx."},
        {"'2012-04-01'", "x.xx.x."},
        {"'2012-04-01 23:59:59'", "x.xx.x."},
        {"'2012-04-02'", "x..x..x"},
        {"'2012-06-30 23:59:59'", "x..x.xx"},
        {"'2012-07-01 00:00:00'", "...x.xx"},
        {"NULL", "none"},
        {"'2012-04-31'", "none"},
        {"'1.4.2012'", "none"},
        {"'2012-04-01T12:00:00'", "none"},
        {"'2012-05-01 garbage'", "none"},
        {"20120401", "none"},
    };
    const char* const conditions[] = {
        "DATEDIFF(\"d\", #4/1/2012#, move_date)>=0 AND DATEDIFF(\"d\", move_date, #6/30/2012#)>=0",
        "DATEDIFF(\"d\", #4/1/2012#, move_date)<0",
        "DATEDIFF(\"d\", move_date, #4/1/2012#)>-1",
        "0<=DATEDIFF(\"d\", #4/1/2012#, move_date)",
        "-1>=DATEDIFF(\"d\", #4/1/2012#, move_date)",
        "DATEDIFF(\"d\", #4/1/2012#, move_date)<>1",
        "DATEDIFF(\"d\", #4/1/2012#, move_date)>0",
    };
    for (const auto& [stored, expected] : dates) {
        folder.Sql(
            (std::string("BEGIN; DELETE FROM Move; INSERT INTO Move (move_date) VALUES (") + stored + "); COMMIT")
                .c_str());
        const auto meets = [&](const std::string& condition) {
            return !folder.store.Query("SELECT * FROM Move WHERE " + condition)->get_EOF();
        };
        std::string met;
        std::string opposite;
        for (const std::string condition : conditions) {
            met += meets(condition) ? 'x' : '.';
            opposite += meets("NOT (" + condition + ")") ? '.' : 'x';
        }
        // What cannot be read meets neither a condition nor its opposite.
        const bool readable = std::string(expected) != "none";
        EXPECT_EQ(readable ? expected : ".......", met) << stored;
        EXPECT_EQ(readable ? expected : "xxxxxxx", opposite) << stored;
    }
}

TEST(DialectDays, SortAndCompareAsMoments) {
    StoreFolder folder;
    folder.Sql("INSERT INTO Move (move_id, move_date) VALUES (1, '2010-06-28 00:00:00'), (2, '2010-06-28'), "
               "(3, '2010-06-27 23:59:59'), (4, '2010-06-28 00:00:01'), (5, '2010-06-28 00:00:00'), (6, '2010-06-29'), "
               "(7, NULL)");
    const std::pair<const char*, const char*> cases[] = {
        {"SELECT * FROM Move ORDER BY move_date", "7 3 1 2 5 4 6"},
        {"SELECT * FROM Move ORDER BY move_date DESC", "6 4 1 2 5 3 7"},
        {"SELECT * FROM Move WHERE move_date = #6/28/2010#", "1 2 5"},
        {"SELECT * FROM Move WHERE move_date < #6/28/2010#", "3"},
        {"SELECT * FROM Move WHERE move_date <= #6/28/2010#", "1 2 3 5"},
        {"SELECT * FROM Move WHERE move_date > #6/28/2010#", "4 6"},
        {"SELECT * FROM Move WHERE move_date <> #6/28/2010#", "3 4 6"},
    };
    for (const auto& [sql, keys] : cases)
        EXPECT_EQ(keys, Rows(folder.store, sql, "move_id")) << sql;
}

/// As another tool may have stored it.
TEST(DialectBooleans, AreTrueWhenTheyAreNotNought) {
    StoreFolder folder;
    folder.Sql("INSERT INTO Cover (cover_id, deleted, cover_reusable) VALUES (1, 0, 0), (2, 1, 0), (3, -1, 1), "
               "(4, 2, -1), (5, NULL, 1)");
    const std::pair<const char*, const char*> cases[] = {
        {"SELECT * FROM Cover WHERE deleted = TRUE", "2 3 4"},
        {"SELECT * FROM Cover WHERE deleted <> FALSE", "2 3 4"},
        {"SELECT * FROM Cover WHERE deleted = FALSE", "1"},
        {"SELECT * FROM Cover WHERE NOT deleted", "1"},
        {"SELECT * FROM Cover WHERE deleted AND cover_reusable", "3 4"},
        {"SELECT * FROM Cover WHERE deleted = cover_reusable", "1 3 4"},
        {"SELECT * FROM Cover ORDER BY deleted", "5 2 3 4 1"},
    };
    for (const auto& [sql, keys] : cases)
        EXPECT_EQ(keys, Rows(folder.store, sql, "cover_id")) << sql;
    EXPECT_EQ(3, folder.store.Query("SELECT deleted, Count(*) AS n FROM Cover GROUP BY deleted")->get_RecordCount());
}

TEST(DialectDays, ReachTheEndsOfTheCalendar) {
    StoreFolder folder;
    folder.Sql("INSERT INTO Move (move_date) VALUES ('0001-01-01 00:00:00'), ('2012-07-02 10:00:00'), "
               "('9999-12-31 23:59:59')");
    const std::pair<const char*, const char*> cases[] = {
        {"DATEDIFF(\"d\", move_date, #12/31/9999#)>=0", "1 2 3"},
        {"DATEDIFF(\"d\", #12/31/9999#, move_date)=0", "3"},
        {"DATEDIFF(\"d\", #1/1/1#, move_date)>=-5", "1 2 3"},
        {"DATEDIFF(\"d\", #7/2/2012#, move_date)>=99999999999999999999", ""},
        {"DATEDIFF(\"d\", #7/2/2012#, move_date)>=-2147483649", "1 2 3"},
        {"DATEDIFF(\"d\", move_date, #7/2/2012#)>=-99999999999999999999", "1 2 3"},
        {"DATEDIFF(\"d\", #2/28/2012#, move_date)=125", "2"}, // over 29 February
    };
    for (const auto& [condition, keys] : cases)
        EXPECT_EQ(keys, Rows(folder.store, std::string("SELECT * FROM Move WHERE ") + condition, "move_id"))
            << condition;
}

TEST(DialectText, IsSortedAsCzechIs) {
    const std::vector<std::string> sorted = {
        "",     " a",   "a-b", "ab",  "Abeceda", "auto",  "byt",   "být",  "cena",    "Cihla",
        "cukr", "čaj",  "Čáp", "dům", "hůl",     "chata", "Chléb", "ibis", "obal 10", "obal 9",
        "ráno", "řada", "sůl", "šál", "úcta",    "ucho",  "zub",   "žába",
    };
    StoreFolder folder;
    std::vector<std::string> shuffled(sorted.rbegin(), sorted.rend());
    std::rotate(shuffled.begin(), shuffled.begin() + 7, shuffled.end());
    FillNames(folder, shuffled);
    std::string expected;
    for (const std::string& name : sorted)
        expected += (expected.empty() ? "'" : " '") + name + "'";
    EXPECT_EQ(expected, Rows(folder.store, "SELECT * FROM Cover ORDER BY cover_name", "cover_name"));
    // Smaller and greater follow the same order.
    EXPECT_EQ("'chata' 'Chléb' 'ibis'",
              Rows(folder.store,
                   "SELECT * FROM Cover WHERE cover_name > 'HŮL' AND cover_name <= 'ibis' ORDER BY cover_name",
                   "cover_name"));
}

TEST(DialectText, IsComparedWithoutCaseButWithAccents) {
    // condition: of cover_name
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"Dřevo", "= 'DŘEVO'", true},
        {"Dřevo", "= 'drevo'", false},
        {"dřevo", "<> 'DŘEVO'", false},
        {"box", "= 'BOX'", true},
        {"box", "<> 'BOX'", false},
        {"box ", "= 'box'", false},
        {"", "= ''", true},
        {"d'Or", "= 'D''OR'", true},
        {"Straße", "= 'strasse'", false},
        {"Dřevo", "LIKE 'dř%'", true},
        {"Dřevo", "LIKE '%EVO'", true},
        {"Dřevo", "LIKE 'řev'", false},
        {"Dřevo", "LIKE 'd_evo'", true}, // one letter, not one byte
        {"Dřevo", "LIKE '_____'", true},
        {"", "LIKE '%%'", true},
        {"", "LIKE '_'", false},
        {"abab", "LIKE '%ab%b'", true},
        {"abac", "LIKE 'a%b'", false},
        {"a", "LIKE '[a]'", false},
        {"abc", "LIKE 'a*c'", false},
        {"d'Or", "LIKE '%''o%'", true},
        {"😀x", "LIKE '_x'", true},
    };
    StoreFolder folder;
    for (const auto& [expected, condition, met] : cases) {
        FillNames(folder, {expected});
        const std::string sql = std::string("SELECT * FROM Cover WHERE cover_name ") + condition;
        EXPECT_EQ(met, !folder.store.Query(sql)->get_EOF()) << expected << " " << condition;
    }
    folder.Sql("UPDATE Cover SET cover_name = NULL");
    for (const char* condition : {"= ''", "<> 'a'", "LIKE '%'", "NOT LIKE 'a'", "< 'a'"})
        EXPECT_TRUE(folder.store.Query(std::string("SELECT * FROM Cover WHERE cover_name ") + condition)->get_EOF())
            << "null " << condition;
}

TEST(DialectNumbers, BesideACurrencyAreWholeUnits) {
    SampleFolder folder;
    const std::pair<const char*, const char*> cases[] = {
        {"cover_weight = 0.5", "1"},
        {"0.5 = cover_weight", "1"},
        {"cover_weight = 0.50000000", "1"},
        {"cover_weight = 250000", ""},
        {"cover_weight > 0.00149999 AND cover_weight < 0.00150001", "4"},
        {"cover_weight > -0.5 AND cover_weight <= 0.5", "1 4"},
        {"cover_weight < 922337203685477.5807", "1 2 3 4 5 7"},
        {"cover_weight < 99999999999999999999999", "1 2 3 4 5 7"},
        {"cover_weight*2 = 50", "5"},
        {"cover_weight*0.5 = 0.25", "1"},
        {"cover_weight+0.0015 = 0.003", "4"},
        {"cover_weight-cover_weight = 0 AND cover_id < 3", "1 2"},
        {"cover_id+1 = 2", "1"},
        {"cover_id = 99999999999999999999", ""},
    };
    for (const auto& [condition, keys] : cases)
        EXPECT_EQ(keys, Rows(folder.store, std::string("SELECT * FROM Cover WHERE ") + condition + " ORDER BY cover_id",
                             "cover_id"))
            << condition;
}

TEST(DialectNumbers, AreSetExactlyOrNotAtAll) {
    // expected: "!" for a refusal
    const std::pair<const char*, const char*> cases[] = {
        {"-0.5", "-5000"},
        {"- -7", "70000"},
        {"0.00005", "!"},
        {"922337203685477.5807", "9223372036854775807"},
        {"922337203685477.5808", "!"},
        {"cover_weight*3", "37035"},
    };
    for (const auto& [value, expected] : cases) {
        SampleFolder folder;
        const std::string sql = std::string("UPDATE Cover SET cover_weight = ") + value + " WHERE cover_id = 2";
        std::string stored;
        try {
            folder.store.ExecuteSQL(sql);
        } catch (const ComError& error) {
            stored = "!";
            EXPECT_EQ(sql, error.Text());
        }
        folder.store.CloseDatabase();
        const std::string now = folder.Ask("SELECT cover_weight FROM Cover WHERE cover_id = 2");
        EXPECT_EQ(expected, stored.empty() ? now : stored) << sql;
        if (stored == "!") {
            EXPECT_EQ("12345", now) << sql;
        }
    }
}

namespace {

/// The product as the store works it out, as a count; "!" where it leaves the range: an error of the sum, a currency
/// that is not valid in a row, whose list goes on.
std::string Product(const StoreFolder& folder, std::int64_t a, std::int64_t b, const char* item) {
    folder.Sql(SqlText("UPDATE Prod_Cover SET cp_qtycover = %li, cp_qtyprod = %li WHERE cp_id = 1", a, b).c_str());
    try {
        const RecordsetPtr row = const_cast<CDataStore&>(folder.store)
                                     .Query(std::string("SELECT ") + item + " AS w FROM Prod_Cover WHERE cp_id = 1");
        const auto weight = std::get<Currency>(row->get_Collect("w"));
        return weight.IsValid() ? std::to_string(weight.count) : "!";
    } catch (const ComError&) {
        return "!";
    }
}

} // namespace

TEST(DialectProduct, IsExactAndTiesGoToEven) {
    constexpr std::int64_t Most = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t Least = std::numeric_limits<std::int64_t>::min();
    // product: "!" out of range
    const std::tuple<std::int64_t, std::int64_t, const char*> cases[] = {
        {10000, 10000, "10000"},
        {5000, 1, "0"},  // half of the last place: to even, down
        {15000, 1, "2"}, // to even, up
        {-5000, 1, "0"},
        {-15000, 1, "-2"},
        {25000, -1, "-2"},
        {5001, 1, "1"},
        {-5001, 1, "-1"},
        {15000, 12345, "18518"},                     // 18517.5
        {5000, 12345, "6172"},                       // 6172.5
        {3037000500, 3037000500, "922337203700025"}, // the product of the counts just passes 64 bits
        {Most, 10000, "9223372036854775807"},
        {Most, 10001, "!"},
        {Least, 10000, "-9223372036854775808"},
        {Least, -10000, "!"},
        {Most, 1, "922337203685478"},
        {0, Least, "0"},
    };
    StoreFolder folder;
    folder.Sql("INSERT INTO Prod_Cover (cp_id) VALUES (1)");
    for (const auto& [a, b, product] : cases) {
        for (const char* item : {"cp_qtycover*cp_qtyprod", "Sum(cp_qtycover*cp_qtyprod)"})
            EXPECT_EQ(product, Product(folder, a, b, item)) << a << " " << b << " " << item;
    }
}

TEST(DialectTotals, AreExactOrAnError) {
    // rows: cp_qtycover, cp_qtyprod
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"", "null", "null"},
        {"(NULL, 10000), (NULL, NULL)", "null", "null"},
        {"(NULL, 10000), (20000, 10000)", "2,0000", "2,0000"},
        // Each product is rounded, then summed: as the rows of the lists show them.
        {"(5000, 1), (5000, 1), (5000, 1)", "1,5000", "0,0000"},
        {"(15000, 1), (15000, 1)", "3,0000", "0,0004"},
        {"(9223372036854775807, 10000), (1, 10000)", "!", "!"},
        {"(9223372036854775807, 10000), (1, 10000), (-1, 10000)", "!", "922337203685477,5807"},
        {"(-9223372036854775808, 10000), (-1, 10000)", "!", "!"},
        {"(9223372036854775807, 20000), (-9223372036854775807, 20000)", "0,0000", "!"},
    };
    for (const auto& [rows, sum, sumOfProducts] : cases) {
        StoreFolder folder;
        if (*rows != 0)
            folder.Sql((std::string("INSERT INTO Prod_Cover (cp_qtycover, cp_qtyprod) VALUES ") + rows).c_str());
        const auto total = [&](const char* item) -> std::string {
            try {
                return Rows(folder.store, std::string("SELECT Sum(") + item + ") AS s FROM Prod_Cover", "s");
            } catch (const ComError& error) {
                return "!";
            }
        };
        EXPECT_EQ(sumOfProducts, total("cp_qtycover*cp_qtyprod")) << rows;
        // Whether the engine minds a sum that overflows on its way is its own affair.
        if (std::string(sum) != "!" || std::string(sumOfProducts) == "!") {
            EXPECT_EQ(sum, total("cp_qtycover")) << rows;
        }
    }
}

TEST(DialectTotals, StandInAnyExpression) {
    SampleFolder folder;
    EXPECT_EQ("28,7360|-28,7360|7",
              Rows(folder.store, "SELECT Sum(cover_weight)-1 AS s, -Sum(cover_weight)+1 AS m, Count(*) AS n FROM Cover",
                   "s m n"));
    EXPECT_EQ("null|1 7|3 26|2 29|1", Rows(folder.store,
                                           "SELECT cover_mat, Count(*) AS n FROM Cover GROUP BY cover_mat "
                                           "ORDER BY cover_mat",
                                           "cover_mat n"));
}

TEST(DialectPlan, AnIndexServesWhatGrowsLarge) {
    SampleFolder folder;
    // used: in the plan of the engine
    const std::pair<const char*, const char*> cases[] = {
        {"SELECT Cover.cover_mat, Sum(Move_Cover.mvcover_qty*Cover.cover_weight) AS SumWeight FROM (Move INNER JOIN "
         "Move_Cover ON Move.move_id = Move_Cover.move_id) INNER JOIN Cover ON Move_Cover.cover_id = Cover.cover_id "
         "WHERE DATEDIFF(\"d\", #4/1/2012#, move_date)>=0 AND DATEDIFF(\"d\", move_date, #6/30/2012#)>=0 AND "
         "(Move.move_export=False) GROUP BY Cover.cover_mat",
         "SEARCH Move USING INDEX Move_date (move_date>? AND move_date<?)"},
        {"SELECT * FROM CoverDiscard INNER JOIN Cover ON CoverDiscard.cover_id = Cover.cover_id WHERE DATEDIFF(\"d\", "
         "#4/1/2012#, disc_date)>=0 AND DATEDIFF(\"d\", disc_date, #6/30/2012#)>=0",
         "SEARCH CoverDiscard USING INDEX CoverDiscard_date (disc_date>? AND disc_date<?)"},
        {"SELECT * FROM Move WHERE move_source = 1 AND move_num = 'DL-1'",
         "Move_source (move_source=? AND move_num=?)"},
        {"SELECT * FROM Move WHERE move_source = 1 AND move_num = 'č. 1'", "Move_source (move_source=?)"},
        {"SELECT * FROM Product WHERE prod_source = 1 AND prod_scrid = 17",
         "Product_source (prod_source=? AND prod_scrid=?)"},
        {"SELECT * FROM Prod_CoverDT WHERE (prod_id = 1) AND DATEDIFF(\"d\", #7/1/2012#, dt_from)=0",
         "Prod_CoverDT_prod_id (prod_id=? AND dt_from>? AND dt_from<?)"},
        {"SELECT * FROM  Prod_Cover WHERE dt_id = 1", "Prod_Cover_dt_id (dt_id=?)"},
        {"DELETE FROM Move_Cover WHERE mvprod_id = 1", "Move_Cover_mvprod_id (mvprod_id=?)"},
        {"DELETE FROM Move_Cover WHERE move_id = 1", "Move_Cover_move_id (move_id=?)"},
        {"DELETE FROM Move_Prod WHERE (move_id IN (SELECT id FROM TmpID))", "Move_Prod_move_id (move_id=?)"},
        {"UPDATE Move_Cover SET cover_type=1, cover_org=1, cover_pay=1 WHERE cover_id=1",
         "Move_Cover_cover_id (cover_id=?)"},
        {"SELECT Move.move_date, Move_Prod.* FROM Move INNER JOIN Move_Prod ON Move.move_id = Move_Prod.move_id WHERE "
         "(Move_Prod.prod_id=1) ",
         "Move_Prod_prod_id (prod_id=?)"},
    };
    for (const auto& [sql, used] : cases) {
        const CEngine::PreparedPtr prepared = folder.store.Engine().Prepare(sql);
        sqlite::Statement plan(folder.store.Engine().Handle(), "EXPLAIN QUERY PLAN " + prepared->translation.sql);
        std::string text;
        while (plan.Step())
            text += std::string(plan.Text(3)) + "\n";
        EXPECT_NE(std::string::npos, text.find(used)) << sql << "\n" << prepared->translation.sql << "\n" << text;
    }
}
