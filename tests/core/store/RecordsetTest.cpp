// Recordsets, by their ADO names, in use and in misuse.

#include "core/store/CommitGroup.h"
#include "tests/support/OtherProgram.h"
#include "tests/support/SampleRows.h"

#include <gtest/gtest.h>
#include <malloc.h>

namespace {

constexpr const char* AllCovers = "SELECT * FROM Cover ORDER BY cover_id";
constexpr const char* Joined = "SELECT Move_Prod.*, Product.* FROM Move_Prod INNER JOIN Product ON Move_Prod.prod_id = "
                               "Product.prod_id WHERE (move_id=1) ORDER BY prod_name";

} // namespace

TEST(Recordset, IsWalkedByPosition) {
    SampleFolder folder;
    for (const char* sql : {AllCovers, Joined}) {
        const RecordsetPtr rows = folder.store.Query(sql);
        const int count = rows->get_RecordCount();
        ASSERT_EQ(sql == AllCovers ? 7 : 4, count);
        EXPECT_EQ(1, rows->get_AbsolutePosition());
        const auto at = [&] { return rows->get_AbsolutePosition(); };
        const struct {
            std::function<void()> act;
            std::uint32_t code;
            int position;
        } steps[] = {
            {[&] { rows->MoveNext(); }, 0, 2},
            {[&] { rows->Move(2); }, 0, 4},
            {[&] { rows->Move(-3); }, 0, 1},
            {[&] { rows->Move(-1); }, ResultCode::AtEnd, 1},
            {[&] { rows->Move(INT32_MAX); }, ResultCode::AtEnd, 1},
            {[&] { rows->Move(count); }, 0, count + 1},
            {[&] { rows->MoveNext(); }, ResultCode::AtEnd, count + 1},
            {[&] { rows->Move(0); }, 0, count + 1},
            {[&] { rows->get_Collect(sql == AllCovers ? "cover_id" : "prod_id"); }, ResultCode::AtEnd, count + 1},
            {[&] { rows->MoveFirst(); }, 0, 1},
        };
        for (const auto& step : steps) {
            EXPECT_EQ(step.code, CodeOf(step.act)) << (&step - steps);
            EXPECT_EQ(step.position, at()) << (&step - steps);
            EXPECT_EQ(step.position > count, rows->get_EOF()) << (&step - steps);
        }
    }
}

TEST(Recordset, MoveToRecordTakesOnlyAnIndexOfTheList) {
    SampleFolder folder;
    const RecordsetPtr rows = folder.store.Query(AllCovers);
    const RecordsetPtr none = folder.store.Query("SELECT * FROM Cover WHERE FALSE");
    rows->Move(3);
    for (const int index : {-1, 7, 8, INT32_MIN, INT32_MAX}) {
        EXPECT_FALSE(CDataStore::MoveToRecord(rows, index)) << index;
        EXPECT_EQ(4, rows->Long("cover_id")) << index;
    }
    for (const int index : {6, 0, 2}) {
        EXPECT_TRUE(CDataStore::MoveToRecord(rows, index)) << index;
        EXPECT_EQ(index + 1, rows->Long("cover_id"));
    }
    EXPECT_FALSE(CDataStore::MoveToRecord(none, 0));
    none->MoveFirst();
    EXPECT_TRUE(none->get_EOF());
}

TEST(Recordset, FindSearchesForwardFromTheCurrentRecord) {
    SampleFolder folder;
    const RecordsetPtr rows = folder.store.Query(AllCovers); // cover_mat 7 in 1, 3 and 7
    // found: 0 for the end
    const std::tuple<int, const char*, int> cases[] = {
        {1, "cover_mat = 7", 1}, {2, "cover_mat = 7", 3},  {3, "cover_mat = 7", 3}, {4, "cover_mat = 7", 7},
        {8, "cover_mat = 7", 0}, {3, "cover_id = 2", 0},   {2, "cover_id = 2", 2},  {1, "cover_id = 99", 0},
        {7, "cover_id = 7", 7},  {1, "cover_mat = 99", 0},
    };
    for (const auto& [from, criterion, found] : cases) {
        rows->MoveFirst();
        rows->Move(from - 1);
        rows->Find(criterion);
        EXPECT_EQ(found, rows->get_EOF() ? 0 : rows->Long("cover_id")) << from << " " << criterion;
    }
    // FindFirst begins anew, and looks at the values that are in the database now.
    folder.Sql("UPDATE Cover SET cover_mat = 99 WHERE cover_id = 2; INSERT INTO Cover (cover_id, cover_mat) VALUES "
               "(8, 99)");
    EXPECT_TRUE(CDataStore::FindFirst(rows, "cover_mat = 99"));
    EXPECT_EQ(2, rows->Long("cover_id"));
    rows->MoveNext();
    rows->Find("cover_mat = 99"); // 8 is no record of this list
    EXPECT_TRUE(rows->get_EOF());
    EXPECT_EQ(ResultCode::ErrorsInCommand, CodeOf([&] { folder.store.Query(Joined)->Find("prod_id = 1"); }));
}

TEST(Recordset, ASearchThatGoesOnSeesWhatWasWrittenMeanwhile) {
    const auto set = [](CRecordset& rows, int record, int material) {
        rows.MoveFirst();
        rows.Move(record - 1);
        rows.put_Collect("cover_mat", material);
        rows.Update();
    };
    // found: 0 for the end
    const std::tuple<const char*, std::function<void(SampleFolder&, CRecordset&)>, int, int> cases[] = {
        {"nothing", [](SampleFolder&, CRecordset&) {}, 2, 3},
        {"another program",
         [](SampleFolder& f, CRecordset&) { f.Sql("UPDATE Cover SET cover_mat = 7 WHERE cover_id = 5"); }, 4, 5},
        {"a deletion", [](SampleFolder& f, CRecordset&) { f.Sql("DELETE FROM Cover WHERE cover_id = 3"); }, 2, 7},
        {"a statement",
         [](SampleFolder& f, CRecordset&) { f.store.ExecuteSQL("UPDATE Cover SET cover_mat = 7 WHERE cover_id = 5"); },
         4, 5},
        {"another recordset", [&](SampleFolder& f, CRecordset&) { set(*f.store.Query(AllCovers), 5, 7); }, 4, 5},
        {"a record passed", [&](SampleFolder&, CRecordset& rows) { set(rows, 1, 1); }, 2, 3},
        {"the record itself", [&](SampleFolder&, CRecordset& rows) { set(rows, 3, 1); }, 3, 7},
        {"a record before the start", [&](SampleFolder&, CRecordset& rows) { set(rows, 3, 1); }, 2, 7},
        {"a record ahead", [&](SampleFolder&, CRecordset& rows) { set(rows, 5, 7); }, 4, 5},
        {"a statement and a record",
         [&](SampleFolder& f, CRecordset& rows) {
             f.store.ExecuteSQL("UPDATE Cover SET cover_mat = 7 WHERE cover_id = 5");
             set(rows, 1, 1);
         },
         4, 5},
        {"opened anew", [](SampleFolder&, CRecordset& rows) { rows.Requery(); }, 2, 3},
        {"another value", [](SampleFolder&, CRecordset& rows) { rows.Find("cover_mat = 99"); }, 2, 3},
        {"a refused one", [](SampleFolder&, CRecordset& rows) { CodeOf([&] { rows.Find("cover_mat = 'x'"); }); }, 2, 3},
    };
    for (const auto& [meanwhile, act, from, found] : cases) {
        SampleFolder folder;
        const RecordsetPtr rows = folder.store.Query(AllCovers); // cover_mat 7 in 1, 3 and 7
        rows->Find("cover_mat = 7");
        EXPECT_EQ(1, rows->Long("cover_id"));
        act(folder, *rows);
        CDataStore::MoveToRecord(rows, from - 1);
        rows->Find("cover_mat = 7");
        EXPECT_EQ(found, rows->get_EOF() ? 0 : rows->Long("cover_id")) << meanwhile;
    }
}

TEST(Recordset, MisuseRaisesItsCodeAndWritesNothing) {
    const char* const issues = "SELECT * FROM Move";
    const char* const none = "SELECT * FROM Cover WHERE FALSE";
    // value: put into it
    const std::tuple<const char*, const char*, Variant, std::uint32_t> puts[] = {
        {AllCovers, "prod_id", 1, ResultCode::NoSuchField},
        {AllCovers, "cover_name", 5, ResultCode::TypeMismatch},
        {AllCovers, "cover_mat", QStringLiteral("papír"), ResultCode::TypeMismatch},
        {AllCovers, "cover_mat", 3e9, ResultCode::TypeMismatch},
        {AllCovers, "cover_weight", QStringLiteral("těžký"), ResultCode::TypeMismatch},
        {AllCovers, "cover_weight", 1e300, ResultCode::TypeMismatch},
        {AllCovers, "cover_weight", DateTime::FromDay(2012, 4, 1), ResultCode::TypeMismatch},
        {AllCovers, "deleted", QStringLiteral("ano"), ResultCode::TypeMismatch},
        {issues, "move_date", QStringLiteral("2012-04-01"), ResultCode::TypeMismatch},
        {Joined, "prod_name", QStringLiteral("x"), ResultCode::ErrorsInCommand},
        {"SELECT Count(*) AS n FROM Cover", "n", 1, ResultCode::ErrorsInCommand},
        {"SELECT cover_id, cover_mat AS cover_type FROM Cover", "cover_type", 9, ResultCode::ErrorsInCommand},
        {none, "cover_mat", 9, ResultCode::AtEnd},
        {AllCovers, "cover_id", 2, ResultCode::Fail}, // taken
    };
    using Act = void (*)(CRecordset&);
    const std::tuple<const char*, Act, std::uint32_t> acts[] = {
        {AllCovers, [](CRecordset& r) { r.get_Collect("Cover.cover_id"); }, ResultCode::NoSuchField},
        {Joined, [](CRecordset& r) { r.AddNew(); }, ResultCode::ErrorsInCommand},
        {none, [](CRecordset& r) { r.get_Collect("cover_mat"); }, ResultCode::AtEnd},
    };
    SampleFolder folder;
    const std::string before = folder.AskAll("SELECT * FROM Cover") + folder.AskAll("SELECT * FROM Product");
    for (const auto& [sql, column, value, code] : puts) {
        const RecordsetPtr rows = folder.store.Query(sql);
        const auto put = [&] {
            rows->put_Collect(column, value);
            rows->Update();
        };
        EXPECT_EQ(code, CodeOf(put)) << sql << " " << column << " " << FormatVariant(value).toStdString();
    }
    for (const auto& [sql, act, code] : acts)
        EXPECT_EQ(code, CodeOf([&] { act(*folder.store.Query(sql)); })) << sql;
    EXPECT_EQ(before, folder.AskAll("SELECT * FROM Cover") + folder.AskAll("SELECT * FROM Product"));
}

TEST(Recordset, IsDeafOnceClosed) {
    using Act = void (*)(CRecordset&);
    const Act acts[] = {
        [](CRecordset& r) { (void)r.get_EOF(); },
        [](CRecordset& r) { r.MoveNext(); },
        [](CRecordset& r) { r.Move(1); },
        [](CRecordset& r) { r.Find("cover_id = 1"); },
        [](CRecordset& r) { (void)r.get_Collect("cover_id"); },
        [](CRecordset& r) { r.put_Collect("cover_mat", 1); },
        [](CRecordset& r) { r.AddNew(); },
        [](CRecordset& r) { r.Update(); },
        [](CRecordset& r) { r.Requery(); },
    };
    SampleFolder folder;
    const RecordsetPtr closed = folder.store.Query(AllCovers);
    const RecordsetPtr orphan = folder.store.Query(AllCovers);
    const RecordsetPtr table = folder.store.Table("Cover");
    closed->put_Collect("cover_mat", 5); // never updated
    closed->Close();
    closed->Close();
    orphan->put_Collect("cover_mat", 5);
    EXPECT_FALSE(closed->get_State());
    EXPECT_TRUE(orphan->get_State());
    EXPECT_TRUE(folder.store.CloseDatabase());
    for (const RecordsetPtr& rows : {closed, orphan, table}) {
        for (const Act act : acts)
            EXPECT_EQ(ResultCode::ObjectClosed, CodeOf([&] { act(*rows); })) << (&act - acts);
        rows->Close();
    }
    RecordsetPtr handle = orphan;
    EXPECT_EQ(ResultCode::ObjectClosed, CodeOf([&] { folder.store.Query(AllCovers); }));
    EXPECT_EQ(ResultCode::ObjectClosed, CodeOf([&] { folder.store.ExecuteSQL("DELETE FROM Cover"); }));
    // The same handle serves the database opened anew.
    ASSERT_TRUE(folder.store.OpenDatabase());
    EXPECT_TRUE(
        folder.store.OpenRecordset(handle, AllCovers, CursorType::Keyset, LockType::Optimistic, CommandType::Text));
    EXPECT_EQ(orphan, handle);
    EXPECT_EQ(7, handle->Long("cover_mat"));
}

TEST(Recordset, AHandleIsReusedAndEmptyAfterAFailure) {
    SampleFolder folder;
    RecordsetPtr handle = folder.store.Query(AllCovers);
    const CRecordset* const object = handle.get();
    handle->AddNew();
    handle->put_Collect("cover_name", QStringLiteral("left behind"));
    EXPECT_TRUE(
        folder.store.OpenRecordset(handle, Joined, CursorType::Keyset, LockType::Optimistic, CommandType::Text));
    EXPECT_EQ(object, handle.get());
    EXPECT_EQ(4, handle->get_RecordCount());
    EXPECT_NE(0U, CodeOf([&] {
                  folder.store.OpenRecordset(handle, "SELECT * FROM Covers", CursorType::Keyset, LockType::Optimistic,
                                             CommandType::Text);
              }));
    EXPECT_FALSE(handle->get_State());
    EXPECT_EQ(ResultCode::ObjectClosed, CodeOf([&] { (void)handle->get_EOF(); }));
    EXPECT_TRUE(
        folder.store.OpenRecordset(handle, "TmpID", CursorType::Dynamic, LockType::Optimistic, CommandType::Table));
    EXPECT_EQ(object, handle.get());
    handle->AddNew();
    handle->put_Collect("id", 77);
    handle->Update();
    EXPECT_EQ("1 3 77", folder.AskAll("SELECT id FROM TmpID"));
    EXPECT_EQ("7", folder.Ask("SELECT count(*) FROM Cover"));
}

TEST(Recordset, ANewRecordIsCurrentAndItsCounterReadBack) {
    SampleFolder folder;
    const RecordsetPtr list = folder.store.Query("SELECT * FROM Cover WHERE (deleted = FALSE) ORDER BY cover_name");
    const RecordsetPtr table = folder.store.Table("Cover");
    int key = 8; // 7 is the highest so far
    for (const RecordsetPtr& rows : {list, table, list, table}) {
        const bool isList = rows == list;
        const int before = isList ? rows->get_RecordCount() : 0;
        rows->AddNew();
        EXPECT_TRUE(IsNull(rows->get_Collect("cover_id")));
        rows->put_Collect("cover_name", QStringLiteral("new"));
        rows->put_Collect("cover_name", QStringLiteral("\"kůň\" 'x'; --"));
        rows->put_Collect("cover_weight", Currency::FromCount(-1));
        EXPECT_EQ("'\"kůň\" 'x'; --'", Shown(rows->get_Collect("cover_name")));
        rows->Update();
        EXPECT_EQ(key, rows->Long("cover_id"));
        EXPECT_EQ("'\"kůň\" 'x'; --'", Shown(rows->get_Collect("cover_name")));
        EXPECT_EQ("-0,0001", Shown(rows->get_Collect("cover_weight")));
        EXPECT_EQ("ne", Shown(rows->get_Collect("deleted"))); // the column's default
        EXPECT_EQ("null", Shown(rows->get_Collect("cover_mat")));
        if (isList) {
            EXPECT_EQ(before + 1, rows->get_RecordCount());
            EXPECT_EQ(before + 1, rows->get_AbsolutePosition());
        }
        // The record can be changed at once.
        rows->put_Collect("cover_mat", key);
        rows->Update();
        EXPECT_EQ(key, rows->Long("cover_mat"));
        ++key;
    }
    EXPECT_EQ("8|8 9|9 10|10 11|11", folder.AskAll("SELECT cover_id, cover_mat FROM Cover WHERE cover_id > 7"));
    EXPECT_EQ(11, table->get_RecordCount()); // read only now
    EXPECT_EQ(11, table->Long("cover_id"));
    table->AddNew();
    table->Update(); // nothing but defaults
    EXPECT_EQ(12, table->Long("cover_id"));
    table->AddNew();
    table->put_Collect("cover_name", QStringLiteral("given up"));
    table->MoveFirst();
    table->Update();
    EXPECT_EQ("12", folder.Ask("SELECT count(*) FROM Cover"));
}

TEST(Recordset, ValuesOfEveryTypeComeBackAsTheyWent) {
    StoreFolder folder;
    const std::tuple<const char*, const char*, Variant, const char*> cases[] = {
        {"Cover", "cover_name", QStringLiteral(""), "''"},
        {"Cover", "cover_name", QString::fromUtf8("a\0c", 3), nullptr},
        {"Cover", "cover_name", QStringLiteral("😀 řeřicha"), "'😀 řeřicha'"},
        {"Cover", "cover_mat", std::int32_t{INT32_MIN}, "-2147483648"},
        {"Cover", "cover_mat", QStringLiteral(" 17 "), "17"},
        {"Cover", "cover_weight", Currency::FromCount(INT64_MAX), "922337203685477,5807"},
        {"Cover", "cover_weight", Currency::Null(), "null"},
        {"Cover", "cover_weight", Currency::Invalid(), "null"},
        {"Cover", "cover_weight", 0.1, "0,1000"},
        {"Cover", "cover_weight", QStringLiteral("1,23456"), "1,2346"},
        {"Cover", "deleted", std::int32_t{-1}, "ano"},
        {"Move", "move_date", DateTime::FromDay(2012, 2, 29, 23, 59, 59), "#2012-02-29 23:59:59#"},
        {"Move", "move_date", DateTime::FromDay(9999, 12, 31), "#9999-12-31 00:00:00#"},
        {"Move", "move_date", DateTime::FromDay(1969, 12, 31, 23, 0, 1), "#1969-12-31 23:00:01#"},
        {"Move", "move_date", DateTime::Invalid(), "null"},
    };
    for (const auto& [table, column, value, expected] : cases) {
        const RecordsetPtr rows = folder.store.Table(table);
        rows->AddNew();
        rows->put_Collect(column, value);
        rows->Update();
        const std::string shown = expected != nullptr ? expected : Shown(value);
        EXPECT_TRUE(shown == Shown(rows->get_Collect(column))) << column << " " << shown.substr(0, 100);
    }
}

TEST(Recordset, NoticesARecordThatVanished) {
    SampleFolder folder;
    const RecordsetPtr rows = folder.store.Query(AllCovers);
    folder.Sql("DELETE FROM Cover WHERE cover_id IN (2, 4); UPDATE Cover SET cover_name = 'jinde' WHERE cover_id = 3");
    EXPECT_EQ(7, rows->get_RecordCount());
    std::string walk;
    for (; !rows->get_EOF(); rows->MoveNext()) {
        const std::uint32_t code = CodeOf([&] { walk += " " + Shown(rows->get_Collect("cover_name")); });
        if (code != 0)
            walk += code == ResultCode::NoCurrentRecord ? " gone" : " ?";
    }
    EXPECT_EQ(" 'cena' gone 'jinde' gone 'chata' 'ibis' 'Čaj'", walk);
    // A change of it is refused, and does not come back as a new record.
    rows->MoveFirst();
    rows->Move(1);
    rows->put_Collect("cover_mat", 5);
    EXPECT_EQ(ResultCode::NoCurrentRecord, CodeOf([&] { rows->Update(); }));
    rows->CancelUpdate();
    EXPECT_TRUE(CDataStore::FindFirst(rows, "cover_id = 2"));
    EXPECT_TRUE(rows->get_EOF());
    rows->Requery();
    EXPECT_EQ(5, rows->get_RecordCount());
    EXPECT_EQ(1, rows->Long("cover_id"));
    EXPECT_EQ("1 3 5 6 7", folder.AskAll("SELECT cover_id FROM Cover"));
}

TEST(Recordset, RequerySeesWhatCameSince) {
    SampleFolder folder;
    for (const char* sql : {"SELECT * FROM Move_Prod WHERE (move_id = 3)",
                            "SELECT Move.move_date, Move_Prod.* FROM Move INNER JOIN Move_Prod ON Move.move_id = "
                            "Move_Prod.move_id WHERE (Move_Prod.move_id=3)"}) {
        folder.Sql("DELETE FROM Move_Prod WHERE move_id = 3; INSERT INTO Move_Prod (move_id, prod_id) VALUES (3, 5)");
        const RecordsetPtr rows = folder.store.Query(sql);
        // The same words with another key share a prepared statement, and must not share the key.
        const RecordsetPtr other = folder.store.Query("SELECT * FROM Move_Prod WHERE (move_id = 1)");
        folder.Sql("INSERT INTO Move_Prod (move_id, prod_id) VALUES (3, 1)");
        EXPECT_EQ(1, rows->get_RecordCount());
        rows->MoveNext();
        rows->Requery();
        EXPECT_EQ(2, rows->get_RecordCount());
        EXPECT_EQ(5, rows->Long("prod_id"));
        EXPECT_EQ(4, other->get_RecordCount());
    }
    const RecordsetPtr table = folder.store.Table("TmpID");
    EXPECT_EQ(2, table->get_RecordCount());
    folder.Sql("DELETE FROM TmpID");
    table->Requery();
    EXPECT_TRUE(table->get_EOF());
}

TEST(Recordset, InsideAGroupRowsThatWereReadAheadAreNeverOld) {
    using Act = std::function<void(CDataStore&)>;
    const auto rename = [](const RecordsetPtr& rows) {
        rows->put_Collect("cover_name", QStringLiteral("changed"));
        rows->Update();
    };
    // expected: of cover 3 afterwards
    const std::tuple<const char*, Act, const char*> cases[] = {
        {"nobody", [](CDataStore&) {}, "'čaj'"},
        {"a command", [](CDataStore& s) { s.ExecuteSQL("UPDATE Cover SET cover_name = 'changed'"); }, "'changed'"},
        {"a deletion", [](CDataStore& s) { s.ExecuteSQL("DELETE FROM Cover WHERE cover_id = 3"); }, "gone"},
        {"another query", [&](CDataStore& s) { rename(s.Query("SELECT cover_name FROM Cover WHERE cover_id = 3")); },
         "'changed'"},
        {"the table",
         [&](CDataStore& s) {
             const RecordsetPtr table = s.Table("cover");
             table->Move(2);
             rename(table);
         },
         "'changed'"},
        {"another table", [](CDataStore& s) { s.ExecuteSQL("DELETE FROM TmpID"); }, "'čaj'"},
    };
    for (const auto& [by, act, expected] : cases) {
        SampleFolder folder;
        CCommitGroup group(folder.store);
        const RecordsetPtr rows = folder.store.Query(AllCovers);
        EXPECT_EQ("'cena'", Shown(rows->get_Collect("cover_name"))) << by;
        rows->Move(6);
        EXPECT_EQ("'Čaj'", Shown(rows->get_Collect("cover_name"))) << by;
        act(folder.store);
        rows->MoveFirst();
        rows->Move(2);
        std::string name = "gone";
        EXPECT_NO_THROW(CodeOf([&] { name = Shown(rows->get_Collect("cover_name")); }));
        EXPECT_EQ(expected, name) << by;
        // Its own change too, and a record of its own.
        if (name == "gone")
            continue;
        rename(rows);
        EXPECT_EQ("'changed'", Shown(rows->get_Collect("cover_name"))) << by;
        rows->AddNew();
        rename(rows);
        EXPECT_EQ(8, rows->Long("cover_id")) << by;
        rows->MoveFirst();
        rows->Move(2);
        EXPECT_EQ("'changed'", Shown(rows->get_Collect("cover_name"))) << by;
    }
    // Once the group is over, another program's changes are seen again.
    SampleFolder folder;
    RecordsetPtr rows;
    {
        CCommitGroup group(folder.store);
        rows = folder.store.Query(AllCovers);
    }
    folder.Sql("UPDATE Cover SET cover_name = 'elsewhere' WHERE cover_id = 1");
    EXPECT_EQ("'elsewhere'", Shown(rows->get_Collect("cover_name")));
}

TEST(Recordset, TheSameTextMayBeOpenSeveralTimes) {
    SampleFolder folder;
    std::string pairs;
    for (const RecordsetPtr outer = folder.store.Query(Joined); !outer->get_EOF(); outer->MoveNext())
        for (const RecordsetPtr inner = folder.store.Query(Joined); !inner->get_EOF(); inner->MoveNext())
            if (inner->Long("mvprod_id") == outer->Long("mvprod_id"))
                pairs += " " + std::to_string(outer->Long("mvprod_id"));
    EXPECT_EQ(" 5 6 2 1", pairs);
    // More texts than stay prepared, each of them still in use.
    std::vector<RecordsetPtr> many;
    for (std::string sql = "SELECT * FROM Cover WHERE cover_id = 1"; many.size() < 600; sql += " OR FALSE") {
        many.push_back(folder.store.Query(sql));
        many.push_back(folder.store.Query(sql + " ORDER BY cover_name"));
    }
    for (const RecordsetPtr& rows : many)
        EXPECT_EQ("'cena'", Shown(rows->get_Collect("cover_name")));
    EXPECT_TRUE(folder.store.CloseDatabase());
}

TEST(Recordset, KeepsKeysOnlyAndATableReadsNothing) {
    StoreFolder folder;
    constexpr int Count = 200000;
    folder.Sql(
        ("BEGIN; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(Count) +
         ") INSERT INTO Cover (cover_name, cover_note) SELECT 'obal ' || i, printf('%.100c', 'x') FROM n; COMMIT")
            .c_str());
    const auto allocated = [] {
        const struct mallinfo2 info = mallinfo2();
        return static_cast<std::int64_t>(info.uordblks + info.hblkhd);
    };
    folder.store.Query("SELECT * FROM Cover WHERE cover_id = 1"); // what the engine keeps for any query
    const std::int64_t before = allocated();
    const RecordsetPtr table = folder.store.Table("Cover");
    table->AddNew();
    table->put_Collect("cover_name", QStringLiteral("x"));
    table->Update();
    EXPECT_EQ(Count + 1, table->Long("cover_id"));
    EXPECT_LT(allocated() - before, 200'000) << "a table opened for appending";
    const RecordsetPtr rows = folder.store.Query("SELECT * FROM Cover");
    EXPECT_EQ(Count + 1, rows->get_RecordCount());
    rows->Move(Count - 1);
    EXPECT_EQ("'obal 200000'", Shown(rows->get_Collect("cover_name")));
    // Eight bytes a row, at most doubled by growing, and the engine's cache of two megabytes.
    EXPECT_LT(allocated() - before, 16LL * Count + 3'000'000);
}
