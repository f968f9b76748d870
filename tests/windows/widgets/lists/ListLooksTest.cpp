#include "tests/windows/support/Driver.h"
#include "windows/widgets/lists/RecordList.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QBoxLayout>
#include <QHelpEvent>
#include <QToolTip>

namespace {

/// Covers by name, their weights beside them; the sorted column is the second one.
ListSpec Weighed() {
    ListSpec spec;
    spec.columns = Columns({"cover_weight", "cover_name", "cover_mat"});
    spec.keyField = "cover_id";
    spec.defaultSort = "cover_name";
    spec.sortColumn = 1;
    spec.multiSelection = true;
    return spec;
}

class ListLooks : public testing::Test {
protected:
    /// Rows "Obal 000001" and so on.
    void AddMany(int count) {
        folder.Sql(("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                    std::to_string(count) +
                    ") INSERT INTO Cover (cover_name, cover_weight, cover_mat) SELECT printf('Obal %06d', i), 11, 0 "
                    "FROM n")
                       .c_str());
    }
    void Add(const char* name, int material = 0) {
        folder.Sql((std::string("INSERT INTO Cover (cover_name, cover_weight, cover_mat) VALUES ('") + name +
                    "', 11, " + std::to_string(material) + ")")
                       .c_str());
    }
    RecordList& Shown() {
        list = std::make_unique<RecordList>(folder.store, Weighed(), nullptr);
        QObject::connect(list.get(), &RecordList::sortChanged, [this] { Fill(RecordList::KeepSelection); });
        Fill(RecordList::NoId);
        list->resize(420, 300);
        list->show();
        list->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(list.get()));
        list->setFocus();
        return *list;
    }
    void Fill(std::int32_t id) { list->FillKeeping("SELECT * FROM Cover WHERE (deleted = FALSE)", id); }
    std::string Typed(const char* letters) {
        QTest::qWait(QApplication::keyboardInputInterval() + 20);
        for (const QChar letter : Czech(letters))
            QTest::sendKeyEvent(QTest::Click, list.get(), Qt::Key_unknown, QString(letter), Qt::NoModifier);
        return list->CellText(list->SelectedRow(), 1).toStdString();
    }
    QImage CellPicture(int row, int column) const {
        return list->viewport()->grab(list->visualRect(list->model()->index(row, column))).toImage();
    }

    StoreFolder folder;
    ScriptedMessages messages;
    std::unique_ptr<RecordList> list;
};

TEST_F(ListLooks, TypedLettersGoByTheSortedColumnInAListOfAnySize) {
    for (const int count : {20, 30000}) {
        SCOPED_TRACE(count);
        folder.Sql("DELETE FROM Cover");
        AddMany(count);
        for (const char* name : {"Voda", "Vosk", "Vůz", "Čepice", "Žlab", "chléb"})
            Add(name, 29);
        RecordList& shown = Shown();
        for (const bool descending : {false, true}) {
            EXPECT_EQ("Voda", Typed("vod"));
            EXPECT_EQ("Vosk", Typed("Vos"));
            EXPECT_EQ("Vůz", Typed("vuz"));
            EXPECT_EQ("Obal 000017", Typed("obal 000017"));
            EXPECT_EQ("Čepice", Typed("č"));
            EXPECT_EQ("chléb", Typed("ch"));
            EXPECT_EQ("Žlab", Typed("ž"));
            EXPECT_EQ("Žlab", Typed("qq")) << "there is none: the selection stays";
            if (!descending)
                ClickHeader(shown, 1);
        }
        // The same letter again goes on.
        ClickHeader(shown, 1);
        EXPECT_EQ("Vosk", Typed("v") == "Voda" ? Typed("v") : "no first");
        // A code's text, though the codes are in an order of their own.
        ClickHeader(shown, 2);
        Typed("textil");
        EXPECT_EQ("textil", shown.CellText(shown.SelectedRow(), 2).toStdString());
        Typed("dřevo");
        EXPECT_EQ("dřevo", shown.CellText(shown.SelectedRow(), 2).toStdString());
    }
}

TEST_F(ListLooks, TheFocusedRowIsDrawnNotACell) {
    AddMany(5);
    RecordList& shown = Shown();
    QTest::keyClick(&shown, Qt::Key_Down, Qt::ControlModifier);
    ASSERT_EQ(1, shown.FocusedRow());
    ASSERT_EQ(0, shown.SelectedRow());
    const QImage focused = CellPicture(1, 2);
    QTest::keyClick(&shown, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_NE(focused, CellPicture(1, 2));
    EXPECT_EQ(focused, CellPicture(2, 2));
}

TEST_F(ListLooks, ASelectionWithoutTheFocusIsPale) {
    AddMany(2);
    QWidget window;
    auto* const both = new QVBoxLayout(&window);
    const auto add = [&] {
        auto* const each = new RecordList(folder.store, Weighed(), &window);
        each->FillKeeping("SELECT * FROM Cover", RecordList::NoId);
        both->addWidget(each);
        return each;
    };
    RecordList* const lists[] = {add(), add()};
    window.resize(400, 400);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto back = [](const RecordList* each) {
        const QRect cell = each->visualRect(each->model()->index(0, 2));
        return each->viewport()->grab().toImage().pixelColor(cell.right() - 3, cell.center().y());
    };
    const QPalette& palette = window.palette();
    for (const int focused : {0, 1}) {
        lists[focused]->setFocus();
        const QColor strong = back(lists[focused]);
        const QColor pale = back(lists[1 - focused]);
        EXPECT_NE(strong, pale);
        EXPECT_NE(palette.color(QPalette::Base), pale);
        EXPECT_GT(std::abs(pale.lightness() - strong.lightness()), 20);
    }
}

TEST_F(ListLooks, ColumnsFitTheLongestTextOfTheWholeList) {
    AddMany(3000);
    const char* const name = "Z plechovka se šroubovacím uzávěrem a uchem, 25 litrů";
    Add(name);
    RecordList& shown = Shown();
    const int needed = shown.fontMetrics().horizontalAdvance(Czech(name));
    EXPECT_LT(shown.columnWidth(1), needed);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.columnWidth(1) >= needed; }, 5000));
    // A column that the user sized stays until the next fill.
    Fill(RecordList::NoId);
    shown.setColumnWidth(1, 60);
    QTest::qWait(300);
    EXPECT_EQ(60, shown.columnWidth(1));
}

TEST_F(ListLooks, ATipTellsWhatIsCutOrRounded) {
    Add("Plechovka");
    RecordList& shown = Shown();
    const auto tip = [&](int column) {
        const QPoint place = shown.visualRect(shown.model()->index(0, column)).center();
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        QHelpEvent help(QEvent::ToolTip, place, shown.viewport()->mapToGlobal(place));
        QApplication::sendEvent(shown.viewport(), &help);
        return QToolTip::isVisible() ? QToolTip::text().toStdString() : std::string();
    };
    EXPECT_EQ("0,00", shown.CellText(0, 0).toStdString());
    EXPECT_EQ("0,0011", tip(0));
    EXPECT_EQ("", tip(1));
    shown.setColumnWidth(1, 40);
    EXPECT_EQ("Plechovka", tip(1));
}

TEST_F(ListLooks, NumbersStandRight) {
    Add("b");
    RecordList& shown = Shown();
    shown.setColumnWidth(0, 200);
    shown.DeselectAll();
    const auto ink = [&](int column) {
        const QImage cell = CellPicture(0, column);
        const QRgb back = cell.pixel(2, cell.height() / 2);
        int left = cell.width();
        for (int y = 2; y < cell.height() - 2; ++y)
            for (int x = 2; x < cell.width() - 2; ++x)
                if (cell.pixel(x, y) != back)
                    left = std::min(left, x);
        return left;
    };
    EXPECT_GT(ink(0), 100);
    EXPECT_LT(ink(1), 20);
}

TEST_F(ListLooks, AnEmptyListSaysTheFirstStepInGrey) {
    RecordList& shown = Shown();
    const QImage plain = shown.viewport()->grab().toImage();
    shown.SetEmptyText(QStringLiteral("První záznam přidáte klávesou Ins."));
    EXPECT_NE(plain, shown.viewport()->grab().toImage());
    Add("a");
    Fill(RecordList::NoId);
    shown.DeselectAll();
    const QImage filled = shown.viewport()->grab().toImage();
    shown.SetEmptyText({});
    EXPECT_EQ(filled, shown.viewport()->grab().toImage());
}

TEST_F(ListLooks, ARowThatGoesLeavesItsNeighbourSelected) {
    AddMany(4);
    RecordList& shown = Shown();
    struct Case {
        int row;
        int neighbour;
    };
    for (const Case& each : {Case{1, 1}, Case{2, 1}, Case{0, 0}, Case{0, -1}}) {
        shown.SelectRow(each.row);
        shown.RemoveRow(each.row);
        EXPECT_EQ(each.neighbour, shown.SelectedRow());
        EXPECT_EQ(each.neighbour, shown.FocusedRow());
    }
}

} // namespace
