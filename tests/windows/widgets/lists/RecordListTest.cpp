#include "windows/widgets/lists/RecordList.h"
#include "core/base/Currency.h"
#include "tests/windows/support/Driver.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QHeaderView>
#include <QSignalSpy>

namespace {

ListSpec CoverNames() {
    ListSpec spec;
    spec.columns = Columns({"cover_name", "cover_weight"});
    spec.keyField = "cover_id";
    spec.defaultSort = "cover_name";
    spec.multiSelection = true;
    return spec;
}

constexpr const char* AllCovers = "SELECT * FROM Cover WHERE (deleted = FALSE)";

/// A list of the covers "a", "b" and "c".
class RecordListTest : public testing::Test {
protected:
    RecordListTest() {
        for (const char* name : {"a", "b", "c"})
            Add(name);
    }
    RecordList& Filled(const ListSpec& spec = CoverNames()) {
        list = std::make_unique<RecordList>(folder.store, spec, nullptr);
        list->FillKeeping(AllCovers, RecordList::NoId);
        return *list;
    }
    void Add(const char* name, int tenThousandths = 10000) {
        folder.Sql((std::string("INSERT INTO Cover (cover_name, cover_weight) VALUES ('") + name + "', " +
                    std::to_string(tenThousandths) + ")")
                       .c_str());
    }

    StoreFolder folder;
    ScriptedMessages messages;
    std::unique_ptr<RecordList> list;
};

TEST_F(RecordListTest, KeepsTheModelContractWhileRowsComeAndGo) {
    RecordListModel model(folder.store, CoverNames().columns, "cover_id", nullptr);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.Show(folder.store.Query("SELECT * FROM Cover ORDER BY cover_name"));
    model.RefreshRow(1);
    model.RemoveRow(1);
    EXPECT_EQ(2, model.rowCount());
    model.Take(*folder.store.Query("SELECT * FROM Cover ORDER BY cover_name DESC"));
    EXPECT_EQ(3, model.Id(0));
    model.RemoveRow(0);
    EXPECT_EQ(2, model.Id(0));
    EXPECT_EQ(QStringLiteral("b"), model.data(model.index(0, 0), Qt::DisplayRole).toString());
    model.Clear();
    EXPECT_EQ(0, model.rowCount());
}

TEST_F(RecordListTest, SortsAsCzechDoes) {
    for (const char* name : {"Chata", "Čaj", "Hůl", "Cibule", "Ibis", "cena"})
        Add(name);
    EXPECT_EQ("a, b, c, cena, Cibule, Čaj, Hůl, Chata, Ibis", Names(Filled()));
}

TEST_F(RecordListTest, SelectsWhatAFillAskedFor) {
    struct Case {
        ListSpec::Fallback fallback;
        std::int32_t id;
        int row;
    };
    for (const Case& each : std::vector<Case>{{ListSpec::Fallback::First, RecordList::NoId, 0},
                                              {ListSpec::Fallback::First, 3, 2},
                                              {ListSpec::Fallback::First, 99, 0},
                                              {ListSpec::Fallback::Last, RecordList::NoId, 2},
                                              {ListSpec::Fallback::Last, 1, 0},
                                              {ListSpec::Fallback::None, RecordList::NoId, -1},
                                              {ListSpec::Fallback::None, 2, 1}}) {
        ListSpec spec = CoverNames();
        spec.fallback = each.fallback;
        RecordList list(folder.store, spec, nullptr);
        ASSERT_TRUE(list.FillKeeping(AllCovers, each.id));
        EXPECT_EQ(each.row, list.SelectedRow()) << each.id;
        EXPECT_EQ(each.row, list.FocusedRow()) << each.id;
        ASSERT_TRUE(list.Fill("SELECT * FROM Cover", each.id));
        EXPECT_EQ(each.row, list.SelectedRow()) << each.id;
    }
}

TEST_F(RecordListTest, KeepsTheSelectionByIdOverARefill) {
    RecordList& list = Filled();
    list.SelectRow(1);
    Add("0");
    list.FillKeeping(AllCovers, RecordList::KeepSelection);
    EXPECT_EQ(2, list.SelectedRow());
    EXPECT_EQ(2, list.SelectedId());
    folder.Sql("DELETE FROM Cover WHERE cover_id = 2");
    list.FillKeeping(AllCovers, RecordList::KeepSelection);
    EXPECT_EQ(0, list.SelectedRow());
    folder.Sql("DELETE FROM Cover");
    list.FillKeeping(AllCovers, RecordList::KeepSelection);
    EXPECT_EQ(-1, list.SelectedRow());
    EXPECT_EQ(-1, list.FocusedRow());
}

TEST_F(RecordListTest, ReadsRowsWhenTheyAreSeenAndShowsThemAsFirstSeen) {
    folder.Sql("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
               "INSERT INTO Cover (cover_name, cover_weight) SELECT printf('%05d', i), 1 FROM n");
    folder.Sql("DELETE FROM Cover WHERE cover_id < 4");
    RecordList& list = Filled();
    list.resize(300, 200);
    list.CellText(0, 0);
    folder.Sql("UPDATE Cover SET cover_name = 'changed'");
    EXPECT_EQ(QStringLiteral("00001"), list.CellText(0, 0));
    EXPECT_EQ(QStringLiteral("changed"), list.CellText(2500, 0)) << "was read at the fill";
    list.RefreshRow(0);
    EXPECT_EQ(QStringLiteral("changed"), list.CellText(0, 0));
}

TEST_F(RecordListTest, RefreshesOneRowWithoutAReset) {
    RecordList& list = Filled();
    const QSignalSpy resets(list.model(), &QAbstractItemModel::modelReset);
    const QSignalSpy changes(list.model(), &QAbstractItemModel::dataChanged);
    list.RefreshRow(1);
    list.RefreshRow(-1);
    list.RefreshRow(3);
    EXPECT_EQ(0, resets.count());
    ASSERT_EQ(1, changes.count());
    EXPECT_EQ(1, changes[0][0].toModelIndex().row());
    EXPECT_EQ(1, changes[0][1].toModelIndex().row());
    // Reading rows leaves the current record alone.
    CDataStore::FindFirst(list.Records(), "cover_name = 'b'");
    list.RefreshRow(2);
    list.CellText(2, 0);
    EXPECT_EQ(2, list.Records()->get_AbsolutePosition());
}

TEST_F(RecordListTest, KeepsRowAndRecordTogetherWhenARowIsRemoved) {
    Add("d");
    RecordList& list = Filled();
    folder.Sql("DELETE FROM Cover WHERE cover_name = 'b'");
    list.RemoveRow(1);
    EXPECT_EQ("a, c, d", Names(list));
    ASSERT_TRUE(CDataStore::MoveToRecord(list.Records(), 1));
    EXPECT_EQ(3, list.Records()->Long("cover_id"));
    CDataStore::FindFirst(list.Records(), "cover_name = 'd'");
    EXPECT_EQ(3, list.Records()->get_AbsolutePosition());
    EXPECT_EQ(3, list.Records()->get_RecordCount());
}

TEST_F(RecordListTest, HeaderClicksSort) {
    folder.Sql("UPDATE Cover SET cover_weight = CASE cover_name WHEN 'b' THEN 1 WHEN 'a' THEN 2 ELSE 3 END");
    RecordList& list = Filled();
    list.resize(400, 200);
    list.show();
    QObject::connect(&list, &RecordList::sortChanged, [&] { list.FillKeeping(AllCovers, RecordList::KeepSelection); });
    struct Case {
        int click;
        const char* order;
        Qt::SortOrder mark;
    };
    for (const Case& each : std::vector<Case>{{0, "c, b, a", Qt::DescendingOrder},
                                              {0, "a, b, c", Qt::AscendingOrder},
                                              {0, "c, b, a", Qt::DescendingOrder},
                                              {1, "b, a, c", Qt::AscendingOrder},
                                              {1, "c, a, b", Qt::DescendingOrder},
                                              {0, "a, b, c", Qt::AscendingOrder}}) {
        ClickHeader(list, each.click);
        EXPECT_EQ(each.order, Names(list));
        EXPECT_EQ(each.click, list.horizontalHeader()->sortIndicatorSection());
        EXPECT_EQ(each.mark, list.horizontalHeader()->sortIndicatorOrder());
        EXPECT_EQ(1, list.SelectedId());
    }
}

TEST_F(RecordListTest, AFailedFillIsShownAndKeepsWhatWasFilled) {
    messages.AcceptAny();
    RecordList& list = Filled();
    list.SelectRow(1);
    EXPECT_FALSE(list.FillKeeping("SELECT * FROM Cover WHERE cover_name = 'it's'", RecordList::NoId));
    EXPECT_EQ("a, b, c", Names(list));
    EXPECT_EQ(1, list.SelectedRow());
    EXPECT_EQ(3, list.Records()->get_RecordCount());
    ASSERT_EQ(1u, messages.Shown().size());
    EXPECT_TRUE(messages.Shown()[0].text.startsWith(QStringLiteral("Došlo k chybě COM č.0x")));

    ListSpec spec = CoverNames();
    spec.columns[1].text = [](const CDataStore&, const CRecordset& record) {
        if (record.Long("cover_id") == 3)
            throw ComError("test", {}, ResultCode::Fail, QStringLiteral("třetí"));
        return QString();
    };
    RecordList half(folder.store, spec, nullptr);
    EXPECT_FALSE(half.Fill("SELECT * FROM Cover", RecordList::NoId));
    EXPECT_EQ("a, b", Names(half));
    EXPECT_EQ(0, half.SelectedRow());
}

TEST_F(RecordListTest, AnErrorWhilePaintingIsShownOnceAndAfterwards) {
    ListSpec spec = CoverNames();
    spec.columns[1].text = [](const CDataStore&, const CRecordset&) -> QString {
        throw ComError("test", {}, ResultCode::Corrupt, QStringLiteral("vadný"));
    };
    RecordList& list = Filled(spec);
    list.CellText(0, 0);
    list.CellText(1, 0);
    messages.Expect(QStringLiteral("Došlo k chybě COM č.0x80070570\n\nvadný"), Message::Icon::Error);
    QApplication::processEvents();
}

TEST_F(RecordListTest, AVanishedOrClosedRecordPaintsAnEmptyRowInSilence) {
    RecordListModel model(folder.store, CoverNames().columns, "cover_id", nullptr);
    model.Show(folder.store.Query(AllCovers));
    folder.Sql("DELETE FROM Cover WHERE cover_name = 'a'");
    EXPECT_EQ(QString(), model.data(model.index(0, 0), Qt::DisplayRole).toString());
    folder.store.CloseDatabase();
    EXPECT_EQ(QString(), model.data(model.index(1, 0), Qt::DisplayRole).toString());
    EXPECT_EQ(2, model.Id(1)) << "the selection must survive a restore";
    QApplication::processEvents();
}

TEST_F(RecordListTest, KeysWalkTheRows) {
    RecordList& list = Filled();
    list.show();
    const QSignalSpy told(&list, &RecordList::rowsSelected);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(2, list.SelectedRow());
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(0, list.SelectedRow());
    QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ((std::vector<int>{0, 1}), list.SelectedRows());
    EXPECT_EQ(3, told.count());
}

TEST(CurrencyEdits, ShowEveryDecimal) {
    struct Case {
        std::int64_t count;
        const char* text;
    };
    for (const Case& each : {Case{0, "0"}, Case{10000, "1"}, Case{7500, "0,75"}, Case{125, "0,0125"},
                             Case{1000000, "100"}, Case{-5000, "-0,5"}, Case{1, "0,0001"}})
        EXPECT_EQ(each.text, CurrencyText(Currency::FromCount(each.count)).toStdString());
    EXPECT_EQ("", CurrencyText(Currency::Null()).toStdString());
}

} // namespace
