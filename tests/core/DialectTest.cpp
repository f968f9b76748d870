// Every statement that the program sends, filled as it fills it, against a small database.

#include "store/SqlText.h"
#include "tests/core/SampleRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

namespace {

struct QueryCase {
    const char* sql;
    const char* columns;
    const char* rows;
};

const QueryCase Queries[] = {
    // The lists of what is not deleted.
    {"SELECT * FROM Cover WHERE deleted = FALSE ORDER BY cover_name", "cover_id", "1 2 3 4 5 6"},
    {"SELECT * FROM CompCover ORDER BY ccover_name", "ccover_id ccover_name", "2|'rada' 1|'Řada' 3|'Sada' 4|'set'"},
    {"SELECT * FROM Product WHERE Product.deleted = FALSE ORDER BY prod_name", "prod_id", "5 3 2 1"},
    // One record by its key, one value of it.
    {"SELECT * FROM Move_Prod WHERE mvprod_id = 2", "mvprod_id move_id prod_id mvprod_qty", "2|1|2|2,5000"},
    {"SELECT * FROM Move_Prod WHERE (mvprod_id = 99)", "mvprod_id", ""},
    {"SELECT move_date FROM Move WHERE move_id = 2", "move_date", "#2012-06-30 23:59:59#"},
    {"SELECT move_date FROM Move WHERE move_id = 5", "move_date", "#2012-06-30 00:00:00#"},
    {"SELECT move_date FROM Move WHERE move_id = 6", "move_date", "null"},
    {"SELECT move_date FROM Move WHERE move_id = 7", "move_date", "#-#"},
    {"SELECT cover_weight FROM Cover WHERE cover_id = 2", "cover_weight", "1,2345"},
    {"SELECT cover_weight FROM Cover WHERE cover_id = 6", "cover_weight", "null"},
    {"SELECT * FROM Cover WHERE cover_id = 4",
     "cover_name cover_mat cover_weight cover_type cover_org cover_pay cover_reusable cover_stat cover_note deleted",
     "'hůl'|26|0,0015|2|1|1|ano|2|'5\" 50%'|ne"},
    {"SELECT * FROM CoverDiscard WHERE (disc_id = 3)", "cover_id disc_date disc_qty disc_type",
     "2|#2012-06-30 23:59:59#|0,5000|1"},
    {"SELECT * FROM Prod_CoverDT WHERE (dt_id = 4)", "prod_id dt_from", "5|#2012-07-01 23:59:59#"},
    {"SELECT * FROM Prod_Cover WHERE (cp_id = 2)",
     "dt_id cover_id cp_qtycover cp_qtyprod cp_usealways cp_usefrom cp_useto", "1|5|2,0000|1,0000|ne|1,0000|2,0000"},
    {"SELECT * FROM Move_Cover WHERE (mvcover_id = 6)", "move_id mvcover_qty", "3|-3,0000"},
    {"SELECT * FROM TmpCover_Item WHERE (ti_id = 2)", "cover_id cp_qtycover", "3|2,5000"},
    {"SELECT * FROM TmpCover_Item", "ti_id", "1 2"},
    {"SELECT * FROM CompCover_Item WHERE ccover_id = 1", "cover_id cp_usefrom cp_usealways",
     "1|0,0000|ano 3|1,0000|ne"},
    {"SELECT * FROM CompCover_Item WHERE ccover_id = -1", "cover_id", ""},
    // The packaging of an issued product.
    {"SELECT * FROM Prod_CoverDT WHERE prod_id = 1 ORDER BY dt_from", "dt_id", "2 1"},
    {"SELECT * FROM Prod_CoverDT WHERE prod_id=1 ORDER BY dt_from", "dt_id", "2 1"},
    {"SELECT * FROM  Prod_Cover WHERE dt_id = 1", "cp_id", "1 2 3"},
    {"SELECT Move.move_date, Move_Prod.* FROM Move INNER JOIN Move_Prod ON Move.move_id = Move_Prod.move_id "
     "WHERE (Move_Prod.prod_id=1) ",
     "mvprod_id move_id move_date mvprod_qty", "1|1|#2012-04-01 00:00:00#|10,0000 3|2|#2012-06-30 23:59:59#|1,0000"},
    {"SELECT Move.move_date, Move_Prod.* FROM Move INNER JOIN Move_Prod ON Move.move_id = Move_Prod.move_id ",
     "mvprod_id", "1 2 3 4 5 6 7"},
    {"SELECT * FROM Prod_CoverDT WHERE (prod_id = 5) AND DATEDIFF(\"d\", #7/1/2012#, dt_from)=0", "dt_id", "4"},
    {"SELECT * FROM Prod_CoverDT WHERE (prod_id = 2) AND DATEDIFF(\"d\", #1/1/2012#, dt_from)=0", "dt_id", "3"},
    {"SELECT * FROM Prod_CoverDT WHERE (prod_id = 1) AND DATEDIFF(\"d\", #6/16/2010#, dt_from)=0", "dt_id", ""},
    // What an import recognises again.
    {"SELECT * FROM Product WHERE prod_source = 1 AND prod_scrid = 17", "prod_id", "1"},
    {"SELECT * FROM Product WHERE prod_source = 2 AND prod_scrid = 17", "prod_id", "2"},
    {"SELECT * FROM Move WHERE move_source = 2 AND move_num = 'DL-1'", "move_id", "3"},
    {"SELECT * FROM Move WHERE move_source = 2 AND move_num = 'dl-1'", "move_id", "3"},
    {"SELECT * FROM Move WHERE move_source = 2 AND move_num = 'Č. 5'", "move_id", "4"},
    {"SELECT * FROM Move WHERE move_source = 2 AND move_num = 'C. 5'", "move_id", ""},
};

/// A list with a column to sort by: `prefix` + field + (" DESC").
struct SortCase {
    const char* prefix;
    const char* field;
    const char* key;
    const char* ascending;
    const char* descending;
};

constexpr const char* Covers = "SELECT * FROM Cover WHERE (deleted = FALSE) ORDER BY ";
constexpr const char* Discards =
    "SELECT CoverDiscard.*, disc_qty*cover_weight AS totWeight FROM CoverDiscard INNER JOIN Cover ON "
    "CoverDiscard.cover_id = Cover.cover_id WHERE (CoverDiscard.cover_id=2) ORDER BY ";
constexpr const char* Products = "SELECT * FROM Product WHERE (deleted = FALSE) ORDER BY ";
constexpr const char* Packaging =
    "SELECT Prod_Cover.*, Cover.cover_name, cp_qtycover*cover_weight AS totWeight FROM Prod_Cover INNER JOIN Cover ON "
    "Prod_Cover.cover_id = Cover.cover_id WHERE (dt_id=1) ORDER BY ";
constexpr const char* Issues = "SELECT * FROM Move ORDER BY ";
constexpr const char* Items =
    "SELECT Move_Prod.*, Product.* FROM Move_Prod INNER JOIN Product ON Move_Prod.prod_id = Product.prod_id WHERE "
    "(move_id=1) ORDER BY ";
constexpr const char* ItemCovers =
    "SELECT Move_Cover.*, Cover.*, mvcover_qty*cover_weight AS totWeight FROM Move_Cover INNER JOIN Cover ON "
    "Move_Cover.cover_id = Cover.cover_id WHERE (mvprod_id=1) ORDER BY ";
constexpr const char* IssueCovers =
    "SELECT Move_Cover.*, Cover.*, mvcover_qty*cover_weight AS totWeight FROM Move_Cover INNER JOIN Cover ON "
    "Move_Cover.cover_id = Cover.cover_id WHERE move_id=1 ORDER BY ";
constexpr const char* Composites = "SELECT * FROM CompCover ORDER BY ";

const SortCase Sorts[] = {
    {Covers, "cover_name", "cover_id", "1 2 3 4 5 6", "6 5 4 3 2 1"},
    {Covers, "cover_mat", "cover_id", "6 1 3 2 4 5", "5 2 4 1 3 6"},
    {Covers, "cover_weight", "cover_id", "6 4 1 2 3 5", "5 3 2 1 4 6"},
    {Covers, "cover_type", "cover_id", "6 2 3 1 4 5", "5 1 4 3 2 6"},
    {Covers, "cover_org", "cover_id", "6 2 5 1 4 3", "3 1 4 2 5 6"},
    {Covers, "cover_pay", "cover_id", "6 2 1 4 5 3", "3 1 4 5 2 6"},
    {Covers, "cover_reusable", "cover_id", "2 4 1 3 5 6", "1 3 5 6 2 4"}, // true is -1
    {Discards, "disc_date", "disc_id", "2 7 1 3 6", "6 3 1 7 2"},
    {Discards, "disc_type", "disc_id", "1 6 7 3 2", "2 3 1 6 7"},
    {Discards, "disc_qty*cover_weight", "disc_id", "3 2 6 7 1", "1 2 6 7 3"},
    {Products, "prod_scrid", "prod_id", "3 5 1 2", "1 2 5 3"},
    {Products, "prod_name", "prod_id", "5 3 2 1", "1 2 3 5"},
    {Products, "prod_katalog", "prod_id", "3 1 5 2", "2 1 5 3"},
    {Products, "prod_unit", "prod_id", "3 1 2 5", "1 2 5 3"},
    {Packaging, "cover_name", "cp_id", "1 3 2", "2 3 1"},
    {Packaging, "cp_qtycover*cover_weight", "cp_id", "3 1 2", "2 1 3"},
    {Packaging, "cp_qtyprod", "cp_id", "2 3 1", "1 3 2"},
    {Packaging, "cp_usefrom", "cp_id", "3 2 1", "1 2 3"},
    {Packaging, "cp_useto", "cp_id", "2 3 1", "1 3 2"},
    {Packaging, "Prod_Cover.cover_type", "cp_id", "3 2 1", "1 2 3"},
    {Packaging, "Prod_Cover.cover_org", "cp_id", "3 1 2", "2 1 3"},
    {Packaging, "Prod_Cover.cover_pay", "cp_id", "2 1 3", "3 1 2"},
    {Issues, "move_num", "move_id", "6 7 4 1 3 2 5", "5 2 1 3 4 7 6"},
    {Issues, "move_date", "move_id", "6 4 1 5 2 3 7", "7 3 2 5 1 4 6"},
    {Issues, "move_type", "move_id", "6 1 5 2 7 4 3", "3 4 2 7 1 5 6"},
    {Items, "prod_name", "mvprod_id", "5 6 2 1", "1 2 6 5"},
    {Items, "prod_katalog", "mvprod_id", "5 1 6 2", "2 1 6 5"},
    {Items, "Move_prod.mvprod_qty", "mvprod_id", "5 2 6 1", "1 2 6 5"},
    {ItemCovers, "cover_name", "mvcover_id", "1 2 8", "8 2 1"},
    {ItemCovers, "mvcover_qty*cover_weight", "mvcover_id", "8 2 1", "1 2 8"},
    {ItemCovers, "cover_mat", "mvcover_id", "1 8 2", "2 1 8"},
    {ItemCovers, "Move_Cover.cover_type", "mvcover_id", "2 8 1", "1 8 2"},
    {ItemCovers, "Move_Cover.cover_org", "mvcover_id", "2 1 8", "1 8 2"},
    {ItemCovers, "Move_Cover.cover_pay", "mvcover_id", "2 1 8", "1 8 2"},
    {IssueCovers, "cover_name", "mvcover_id", "1 7 2 8 3 9", "9 3 8 2 1 7"},
    {IssueCovers, "mvcover_qty*cover_weight", "mvcover_id", "9 7 8 2 1 3", "3 1 2 8 7 9"},
    {IssueCovers, "cover_mat", "mvcover_id", "9 1 7 8 2 3", "3 2 1 7 8 9"},
    {IssueCovers, "Move_Cover.cover_type", "mvcover_id", "2 9 8 1 7 3", "3 1 7 8 2 9"},
    {IssueCovers, "Move_Cover.cover_org", "mvcover_id", "2 9 1 7 8 3", "3 1 7 8 2 9"},
    {IssueCovers, "Move_Cover.cover_pay", "mvcover_id", "2 9 1 3 7 8", "1 3 7 8 2 9"},
    {Composites, "ccover_name", "ccover_id", "2 1 3 4", "4 3 1 2"},
    {Composites, "ccover_note", "ccover_id", "3 2 4 1", "1 4 2 3"},
};

/// The clauses that a register's filter joins, each with the keys that it lets through.
struct FilterCase {
    const char* list;  // up to the first clause
    const char* first; // between the list and the first clause, where there is one
    const char* order;
    const char* key;
    const char* all;
    std::vector<std::pair<const char*, const char*>> clauses;
};

const FilterCase Filters[] = {
    {"SELECT * FROM Cover WHERE (deleted = FALSE)",
     " AND",
     " ORDER BY cover_name",
     "cover_id",
     "1 2 3 4 5 6",
     {{" (cover_name LIKE '%a%')", "1 2 3 5"},
      {" (cover_weight>=0.0015) AND (cover_weight<=2)", "1 2 3 4"},
      {" (cover_mat = 7)", "1 3"},
      {" (cover_type = 2)", "1 4"},
      {" (cover_org = 1)", "1 4"},
      {" (cover_pay = 1)", "1 4 5"},
      {" (cover_reusable = FALSE)", "1 3 5 6"}}},
    {"SELECT * FROM Cover WHERE (deleted = FALSE)",
     " AND",
     " ORDER BY cover_weight DESC",
     "cover_id",
     "1 2 3 4 5 6",
     {{" (cover_name = 'HŮL')", "4"},
      {" (cover_weight>=0.0015) AND (cover_weight<=0.0015)", "4"},
      {" (cover_mat = -1)", ""},
      {" (cover_reusable = TRUE)", "2 4"}}},
    {"SELECT * FROM Product WHERE (deleted = FALSE)",
     " AND",
     " ORDER BY prod_name",
     "prod_id",
     "1 2 3 5",
     {{" (prod_name LIKE '%Á%')", "2 5"},
      {" (prod_katalog LIKE '%k-1%')", "1 5"},
      {" prod_unit = 'KS'", "1 2 5"},
      {" prod_id NOT IN (SELECT Prod_CoverDT.prod_id FROM Prod_CoverDT INNER JOIN Prod_Cover ON Prod_CoverDT.dt_id = "
       "Prod_Cover.dt_id)",
       "3 5"}}},
    {"SELECT * FROM Product WHERE (deleted = FALSE)",
     " AND",
     " ORDER BY prod_unit DESC",
     "prod_id",
     "1 2 3 5",
     {{" (prod_name = 'židle')", "1"},
      {" (prod_katalog = 'k-10')", "1 5"},
      {" prod_unit = ''", ""},
      {" prod_id IN (SELECT Prod_CoverDT.prod_id FROM Prod_CoverDT INNER JOIN Prod_Cover ON Prod_CoverDT.dt_id = "
       "Prod_Cover.dt_id)",
       "1 2"}}},
    {"SELECT * FROM Move",
     " WHERE",
     " ORDER BY move_date",
     "move_id",
     "1 2 3 4 5 6 7",
     {{" (move_num LIKE '%dl%')", "1 2 3"},
      {" DATEDIFF(\"d\", #4/1/2012#, move_date)>=0 AND DATEDIFF(\"d\", move_date, #6/30/2012#)>=0", "1 2 5"},
      {" (move_export = TRUE)", "2"}}},
    {"SELECT * FROM Move",
     " WHERE",
     " ORDER BY move_type DESC",
     "move_id",
     "1 2 3 4 5 6 7",
     {{" (move_num = 'DL-1')", "1 3"},
      {" DATEDIFF(\"d\", #7/1/2012#, move_date)>=0 AND DATEDIFF(\"d\", move_date, #12/31/9999#)>=0", "3"},
      {" (move_export = FALSE)", "1 3 4 5 6 7"}}},
    {"SELECT * FROM CompCover",
     " WHERE",
     " ORDER BY ccover_name",
     "ccover_id",
     "1 2 3 4",
     {{" (ccover_name LIKE '%ada%')", "1 2 3"}, {" (ccover_note LIKE '%10%%')", "2"}}},
    {"SELECT * FROM CompCover",
     " WHERE",
     " ORDER BY ccover_note DESC",
     "ccover_id",
     "1 2 3 4",
     {{" (ccover_name = 'RADA')", "2"}, {" (ccover_note = 'the note')", "4"}}},
};

std::set<std::string> Keys(const std::string& text) {
    std::istringstream words(text);
    std::set<std::string> keys;
    for (std::string word; words >> word;)
        keys.insert(word);
    return keys;
}

/// The queries of the quarterly figures, with their computed columns.
constexpr const char* Quarter =
    "DATEDIFF(\"d\", #4/1/2012#, move_date)>=0 AND DATEDIFF(\"d\", move_date, #6/30/2012#)>=0";

struct FigureCase {
    const char* condition;
    const char* rows;
};

const FigureCase MoveFigures[] = {
    {" AND (Cover.cover_reusable=False) AND (Move.move_export=False) AND (Move_Cover.cover_pay=0)", "null|0|0|null"},
    {" AND (Cover.cover_reusable=False) AND (Move.move_export=False) AND (Move_Cover.cover_pay=1)",
     "29|3|2|37,5000 7|2|1|5,2500"},
    {" AND (Cover.cover_reusable=False) AND (Move.move_export=False) AND (Move_Cover.cover_pay=2)", ""},
    {" AND (Cover.cover_reusable=False) AND (Move.move_export=True)", "7|1|1|1,0000"},
    {" AND (Cover.cover_reusable=True) AND (Move.move_export=False) AND (Move_Cover.cover_pay=0)",
     "26|0|0|3,7035 26|2|1|0,0015"},
    {" AND (Cover.cover_reusable=True) AND (Move.move_export=False) AND (Move_Cover.cover_pay=1)", "7|1|1|1,0000"},
    {" AND (Cover.cover_reusable=True) AND (Move.move_export=False) AND (Move_Cover.cover_pay=2)", ""},
    {" AND (Cover.cover_reusable=True) AND (Move.move_export=True)", "26|2|0|0,0015"},
};

/// Groups come in no promised order.
std::string Sorted(const std::string& rows) {
    std::string sorted;
    for (const std::string& row : Keys(rows))
        sorted += (sorted.empty() ? "" : " ") + row;
    return sorted;
}

struct CommandCase {
    const char* sql;
    const char* probe;
    const char* rows;
};

const CommandCase Commands[] = {
    {"DELETE FROM TmpID", "SELECT count(*) FROM TmpID", "0"},
    {"DELETE FROM TmpCover_Item", "SELECT count(*) FROM TmpCover_Item", "0"},
    {"DELETE FROM TmpCover_Item WHERE (ti_id = 1)", "SELECT ti_id FROM TmpCover_Item", "2"},
    // The multi-selection is 1 and 3.
    {"DELETE FROM CoverDiscard WHERE cover_id IN (SELECT id FROM TmpID)", "SELECT disc_id FROM CoverDiscard",
     "1 2 3 4 6 7"},
    {"DELETE FROM CompCover_Item WHERE cover_id IN (SELECT id FROM TmpID)", "SELECT count(*) FROM CompCover_Item", "0"},
    {"UPDATE Cover SET deleted = true WHERE (cover_id IN (SELECT id FROM TmpID))",
     "SELECT cover_id FROM Cover WHERE deleted", "1 3 7"},
    {"DELETE FROM Prod_Cover WHERE (dt_id IN (SELECT dt_id FROM Prod_CoverDT WHERE (prod_id IN (SELECT id FROM "
     "TmpID))))",
     "SELECT cp_id FROM Prod_Cover", "4 5"},
    {"DELETE FROM Prod_CoverDT WHERE (prod_id IN (SELECT id FROM TmpID))", "SELECT dt_id FROM Prod_CoverDT", "3 4 5"},
    {"UPDATE Product SET deleted = true WHERE (prod_id IN (SELECT id FROM TmpID))",
     "SELECT prod_id FROM Product WHERE deleted", "1 3 4"},
    {"DELETE FROM CompCover_Item WHERE ccover_id IN (SELECT id FROM TmpID)", "SELECT ccover_id FROM CompCover_Item",
     "2"},
    {"DELETE FROM CompCover WHERE ccover_id IN (SELECT id FROM TmpID)", "SELECT ccover_id FROM CompCover", "2 4"},
    {"DELETE FROM Move_Cover WHERE (mvprod_id IN (SELECT mvprod_id FROM Move_Prod WHERE (move_id IN (SELECT id FROM "
     "TmpID))))",
     "SELECT mvcover_id FROM Move_Cover", "4 5 10 11"},
    {"DELETE FROM Move_Prod WHERE (move_id IN (SELECT id FROM TmpID))", "SELECT mvprod_id FROM Move_Prod", "3 7"},
    {"DELETE FROM Move WHERE (move_id IN (SELECT id FROM TmpID))", "SELECT move_id FROM Move", "2 4 5 6 7"},
    // One record and its children.
    {"DELETE FROM CoverDiscard WHERE (disc_id = 4)", "SELECT disc_id FROM CoverDiscard", "1 2 3 5 6 7"},
    {"DELETE FROM Prod_Cover WHERE (dt_id = 1)", "SELECT cp_id FROM Prod_Cover", "4 5"},
    {"DELETE FROM Prod_CoverDT WHERE (dt_id = 1)", "SELECT dt_id FROM Prod_CoverDT", "2 3 4 5"},
    {"DELETE FROM Prod_Cover WHERE (cp_id = 3)", "SELECT cp_id FROM Prod_Cover", "1 2 4 5"},
    {"DELETE FROM Move_Cover WHERE mvprod_id = 1", "SELECT mvcover_id FROM Move_Cover", "3 4 5 6 7 9 10 11"},
    {"DELETE FROM Move_Cover WHERE (mvprod_id = 1)", "SELECT mvcover_id FROM Move_Cover", "3 4 5 6 7 9 10 11"},
    {"DELETE FROM Move_Cover WHERE (mvcover_id = 11)", "SELECT count(*) FROM Move_Cover", "10"},
    {"DELETE FROM Move_Cover WHERE move_id = 1", "SELECT mvcover_id FROM Move_Cover", "4 5 6 10 11"},
    {"DELETE FROM Move_Prod WHERE move_id = 1", "SELECT mvprod_id FROM Move_Prod", "3 4 7"},
    {"DELETE FROM Move_Prod WHERE (mvprod_id = 4)", "SELECT mvprod_id FROM Move_Prod", "1 2 3 5 6 7"},
    {"DELETE FROM CompCover_Item WHERE ccover_id = 1", "SELECT ccover_id FROM CompCover_Item", "2"},
    // A changed cover carried into what uses it.
    {"UPDATE CompCover_Item SET cover_type=3, cover_org=2, cover_pay=0 WHERE cover_id=3",
     "SELECT ccover_id, cover_type, cover_org, cover_pay FROM CompCover_Item", "1|2|1|1 1|3|2|0 2|3|2|0"},
    {"UPDATE Prod_Cover SET cover_type=3, cover_org=-1, cover_pay=0 WHERE cover_id=1",
     "SELECT cp_id FROM Prod_Cover WHERE cover_type = 3 AND cover_org = -1 AND cover_pay = 0", "1 5"},
    {"UPDATE Move_Cover SET cover_type=3, cover_org=2, cover_pay=0 WHERE cover_id=1",
     "SELECT mvcover_id FROM Move_Cover WHERE cover_type = 3 AND cover_org = 2 AND cover_pay = 0", "1 4 7 11"},
};

/// The criteria of find and replace and of locating a row, on a register's master list.
struct FindCase {
    const char* list;
    const char* key;
    const char* criterion;
    const char* found;
};

constexpr const char* CoverList = "SELECT * FROM Cover WHERE (deleted = FALSE) ORDER BY cover_name DESC";
constexpr const char* CompositeList = "SELECT * FROM CompCover ORDER BY ccover_name";
constexpr const char* ProductList = "SELECT * FROM Product WHERE (deleted = FALSE) ORDER BY prod_name";
constexpr const char* IssueList = "SELECT * FROM Move ORDER BY move_num";

const FindCase Finds[] = {
    {CoverList, "cover_id", "cover_id = 2", "2"},
    {CoverList, "cover_id", "cover_id = 7", ""}, // deleted, not in the list
    {CoverList, "cover_id", "cover_mat = 7", "3 1"},
    {CoverList, "cover_id", "cover_type = 2", "4 1"},
    {CoverList, "cover_id", "cover_org = 0", "5 2"},
    {CoverList, "cover_id", "cover_pay = 1", "5 4 1"},
    {CoverList, "cover_id", "cover_reusable = TRUE", "4 2"},
    {CoverList, "cover_id", "cover_reusable = FALSE", "6 5 3 1"},
    {CoverList, "cover_id", "cover_name = 'ČAJ'", "3"},
    {CoverList, "cover_id", "cover_name LIKE '%I%'", "6 2"},
    {CompositeList, "ccover_id", "ccover_id = 3", "3"},
    {CompositeList, "ccover_id", "ccover_name = 'řada'", "1"},
    {CompositeList, "ccover_id", "ccover_name LIKE '%rada%'", "2"},
    {CompositeList, "ccover_id", "ccover_note = 'X'", "1"},
    {CompositeList, "ccover_id", "ccover_note LIKE '%NO%'", "4"},
    {ProductList, "prod_id", "prod_id = 2", "2"},
    {ProductList, "prod_id", "prod_name = 'stůl'", "3"},
    {ProductList, "prod_id", "prod_name LIKE '%e%'", "2 1"},
    {ProductList, "prod_id", "prod_katalog = 'K-10'", "5 1"},
    {ProductList, "prod_id", "prod_katalog LIKE '%9%'", "2"},
    {ProductList, "prod_id", "prod_unit = 'ks'", "5 2 1"},
    {ProductList, "prod_id", "prod_unit LIKE '%g%'", "3"},
    {IssueList, "move_id", "move_id = 4", "4"},
    {IssueList, "move_id", "move_num = 'dl-1'", "1 3"},
    {IssueList, "move_id", "move_num LIKE '%''%'", "5"},
    {IssueList, "move_id", "move_type = 1", "7 2"},
    {IssueList, "move_id", "move_export = TRUE", "2"},
    {IssueList, "move_id", "move_export = FALSE", "6 7 4 1 3 5"},
};

} // namespace

TEST(Dialect, EachQueryGivesItsRows) {
    SampleFolder folder;
    for (const QueryCase& c : Queries)
        EXPECT_EQ(c.rows, Rows(folder.store, c.sql, c.columns)) << c.sql;
}

TEST(Dialect, EachListIsSortedByEachColumnBothWays) {
    SampleFolder folder;
    for (const SortCase& c : Sorts) {
        const std::string sql = std::string(c.prefix) + c.field;
        EXPECT_EQ(c.ascending, Rows(folder.store, sql, c.key)) << sql;
        EXPECT_EQ(c.descending, Rows(folder.store, sql + " DESC", c.key)) << sql << " DESC";
    }
}

TEST(Dialect, FilterClausesNarrowTheListInEveryCombination) {
    SampleFolder folder;
    for (const FilterCase& c : Filters) {
        for (unsigned on = 0; on < 1U << c.clauses.size(); ++on) {
            std::string sql = c.list;
            std::set<std::string> expected = Keys(c.all);
            const char* joint = c.first;
            for (std::size_t i = 0; i < c.clauses.size(); ++i) {
                if ((on >> i & 1) == 0)
                    continue;
                sql += std::string(joint) + c.clauses[i].first;
                joint = " AND";
                const std::set<std::string> through = Keys(c.clauses[i].second);
                std::erase_if(expected, [&](const std::string& key) { return through.count(key) == 0; });
            }
            sql += c.order;
            EXPECT_EQ(expected, Keys(Rows(folder.store, sql, c.key))) << sql;
        }
    }
}

TEST(Dialect, FiguresOfAQuarterAreExact) {
    SampleFolder folder;
    for (const FigureCase& c : MoveFigures) {
        const std::string sql =
            std::string("SELECT Cover.cover_mat, Move_Cover.cover_type, Move_Cover.cover_org, "
                        "Sum(Move_Cover.mvcover_qty*Cover.cover_weight) AS SumWeight FROM (Move INNER JOIN Move_Cover "
                        "ON Move.move_id = Move_Cover.move_id) INNER JOIN Cover ON Move_Cover.cover_id = "
                        "Cover.cover_id WHERE ") +
            Quarter + c.condition + " GROUP BY Cover.cover_mat, Move_Cover.cover_type, Move_Cover.cover_org";
        EXPECT_EQ(c.rows, Sorted(Rows(folder.store, sql, "cover_mat cover_type cover_org SumWeight"))) << c.condition;
    }
    EXPECT_EQ("26|0|0|3,7035 26|0|1|0,6172 26|0|2|1,2345 26|2|0|0,0015",
              Sorted(Rows(folder.store,
                          "SELECT Cover.cover_mat, Cover.cover_type, CoverDiscard.disc_type, "
                          "Sum(CoverDiscard.disc_qty*Cover.cover_weight) AS SumWeight FROM CoverDiscard INNER JOIN "
                          "Cover ON CoverDiscard.cover_id = Cover.cover_id WHERE (Cover.cover_reusable=TRUE) AND "
                          "DATEDIFF(\"d\", #4/1/2012#, disc_date)>=0 AND DATEDIFF(\"d\", disc_date, #6/30/2012#)>=0 "
                          "GROUP BY Cover.cover_mat, Cover.cover_type, CoverDiscard.disc_type",
                          "cover_mat cover_type disc_type SumWeight")));
    EXPECT_EQ("1|ano|3,7035 2|ano|0,0030 3|ne|37,5000",
              Sorted(Rows(folder.store,
                          std::string("SELECT Cover.cover_stat, Cover.cover_reusable, "
                                      "Sum(Move_Cover.mvcover_qty*Cover.cover_weight) AS SumWeight FROM (Move INNER "
                                      "JOIN Move_Cover ON Move.move_id = Move_Cover.move_id) INNER JOIN Cover ON "
                                      "Move_Cover.cover_id = Cover.cover_id WHERE (cover_stat<>0) AND ") +
                              Quarter + " GROUP BY Cover.cover_stat, Cover.cover_reusable",
                          "cover_stat cover_reusable SumWeight")));
}

TEST(Dialect, WeightsOfAListAreCurrenciesRoundedOnce) {
    SampleFolder folder;
    EXPECT_EQ("2|'čaj'|5,0000 1|'chata'|25,0000",
              Rows(folder.store,
                   "SELECT TmpCover_Item.*, Cover.cover_name, cp_qtycover*cover_weight AS totWeight FROM "
                   "TmpCover_Item INNER JOIN Cover ON TmpCover_Item.cover_id = Cover.cover_id ORDER BY "
                   "Cover.cover_name",
                   "ti_id cover_name totWeight"));
    EXPECT_EQ("0,6172 1,2345 1,2345 1,2345 2,4690",
              Rows(folder.store, std::string(Discards) + "disc_qty*cover_weight", "totWeight"));
    EXPECT_EQ("30,0000 1,8518 50,0000", Rows(folder.store, std::string(Packaging) + "cover_name", "totWeight"));
    // The codes are those of the issued packaging, not of the cover, where both tables have them.
    EXPECT_EQ("1|2|1|1|5,0000 2|0|0|0|3,7035 8|1|1|1|1,0000",
              Rows(folder.store, std::string(ItemCovers) + "cover_name",
                   "mvcover_id cover_type cover_org cover_pay totWeight"));
    EXPECT_EQ("null", Rows(folder.store,
                           "SELECT Move_Cover.*, Cover.*, mvcover_qty*cover_weight AS totWeight FROM Move_Cover INNER "
                           "JOIN Cover ON Move_Cover.cover_id = Cover.cover_id WHERE (mvprod_id=6) ORDER BY "
                           "cover_name",
                           "totWeight"));
}

TEST(Dialect, EachCommandChangesItsRowsAlone) {
    for (const CommandCase& c : Commands) {
        SampleFolder folder;
        folder.store.ExecuteSQL(c.sql);
        folder.store.CloseDatabase();
        EXPECT_EQ(c.rows, folder.AskAll((std::string(c.probe) + " ORDER BY 1").c_str())) << c.sql;
    }
}

TEST(Dialect, EachCriterionFindsItsRowsInListOrder) {
    SampleFolder folder;
    for (const FindCase& c : Finds) {
        const RecordsetPtr list = folder.store.Query(c.list);
        std::string found;
        for (CDataStore::FindFirst(list, c.criterion); !list->get_EOF(); list->Find(c.criterion)) {
            found += (found.empty() ? "" : " ") + Shown(list->get_Collect(c.key));
            list->MoveNext();
        }
        EXPECT_EQ(c.found, found) << c.criterion;
    }
}

TEST(Dialect, ATypedTextGoesInAsItStands) {
    SampleFolder folder;
    const struct {
        const char* typed;
        const char* keys; // "!" for a text that breaks the statement
    } cases[] = {
        {"d''Or", "5"}, // the user doubles it, nothing else does
        {"d'Or", "!"},
        {"' OR 'a'='a", "1 2 3 4 5 6 7"},
        {"x'; DELETE FROM Cover; --", "!"},
        {"50%", ""},
        {"5\" 50%", "4"},
        {"%li", ""},
        {"", "3"},
    };
    for (const auto& c : cases) {
        const std::string sql =
            SqlText("SELECT * FROM Cover WHERE (cover_note = '%s') ORDER BY cover_id", std::string(c.typed));
        std::string keys;
        try {
            keys = Rows(folder.store, sql, "cover_id");
        } catch (const ComError& error) {
            keys = "!";
            EXPECT_EQ(sql, error.Text());
        }
        EXPECT_EQ(c.keys, keys) << sql;
    }
    EXPECT_EQ("7", folder.Ask("SELECT count(*) FROM Cover"));
}
