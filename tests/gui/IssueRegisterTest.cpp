#include "app/KuvelDoc.h"
#include "app/MainFrame.h"
#include "registers/ViewMove.h"
#include "report/FigureList.h"
#include "rules/Propagation.h"
#include "tests/gui/Driver.h"
#include "tests/gui/FrameFolder.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

namespace {

constexpr Message::Icon Warning = Message::Icon::Warning;

/// The issues register on two issues; the first carries computed covers of one item and one by hand of the other.
class IssueRegisterTest : public testing::Test {
protected:
    IssueRegisterTest() {
        folder.Sql(
            "INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay, cover_reusable, "
            "cover_stat) VALUES ('Fólie', 8, 2500, 2, 0, 1, 0, 0), ('Krabice', 7, 20000, 1, 1, 2, 1, 2);"
            "INSERT INTO Product (prod_name, prod_katalog, prod_unit) VALUES ('Čaj', 'C-10', 'ks'), ('Káva', 'K-2', "
            "'kg');"
            "INSERT INTO Prod_CoverDT (prod_id, dt_from) VALUES (1, '2012-01-01 00:00:00'), (1, '2012-07-01 00:00:00');"
            "INSERT INTO Prod_Cover (dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cover_type, cover_org, "
            "cover_pay) VALUES (1, 1, 20000, 10000, 1, 2, 0, 1), (1, 2, 10000, 100000, 1, 1, 1, 2), "
            "(2, 2, 30000, 10000, 1, 1, 1, 2);"
            "INSERT INTO Move (move_num, move_date, move_type, move_export) VALUES "
            "('D-1', '2012-06-15 10:00:00', 0, 1), ('D-2', '2012-07-02 00:00:00', 3, 0);"
            "INSERT INTO Move_Prod (move_id, prod_id, mvprod_qty) VALUES (1, 1, 250000), (1, 2, 50000), (2, 1, 120000);"
            "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay) "
            "VALUES "
            "(1, 1, 1, 500000, 2, 0, 1), (1, 1, 2, 20000, 1, 1, 2), (2, 1, 2, 10000, 3, 2, 0)");
        view.resize(1200, 500);
        view.InitialUpdate();
        view.show();
    }

    RecordList& Issues() { return Find<RecordList>(view, "issues"); }
    RecordList& Items() { return Find<RecordList>(view, "items"); }
    RecordList& Covers() { return Find<RecordList>(view, "issuedCovers"); }
    bool Enabled(Command command) {
        const std::string name = "button" + std::to_string(static_cast<int>(command));
        return Find<QPushButton>(view, name.c_str()).isEnabled();
    }
    std::string Stored() const {
        return folder.AskAll("SELECT mvprod_id, move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay FROM "
                             "Move_Cover ORDER BY mvcover_id");
    }
    std::string StoredIssues() const {
        return folder.AskAll("SELECT move_id, move_num, replace(move_date, ' ', '_'), move_type, move_export, "
                             "move_source FROM Move ORDER BY move_id");
    }
    void ExpectVanished() {
        messages.Expect(Czech("Záznam byl odstraněn jinou aplikací!"), Message::Icon::Information);
    }
    /// Chooses the cover of this row and goes on to its quantity.
    static void ChooseCover(QWidget& sheet, int row) {
        ClickRow(Find<RecordList>(sheet, "simple"), row);
        Click(sheet, "next");
    }

    static constexpr const char* Before = "1|1|1|500000|2|0|1 1|1|2|20000|1|1|2 2|1|2|10000|3|2|0";

    StoreFolder folder;
    ScriptedMessages messages;
    RecordedFrame frame;
    CViewMove view{folder.store, frame};
    Steps steps;
};

TEST_F(IssueRegisterTest, ShowsTheSelectedIssueItsItemsAndTheCoversOfTheItem) {
    EXPECT_EQ("D-1|15.06.2012|ano|dodací list\nD-2|02.07.2012|ne|výdejka", Rows(Issues()));
    EXPECT_EQ("Čaj|C-10|25,00\nKáva|K-2|5,00", Rows(Items()));
    EXPECT_EQ("Fólie|12,50|PE - měkké|prodejní|dovezený do ČR|zpoplatněný\n"
              "Krabice|4,00|papír|skupinový|nakoupený v ČR|předplacený",
              Rows(Covers()));
    ClickRow(Items(), 1);
    EXPECT_EQ("Krabice|2,00|papír|průmyslový|vyrobený v ČR|neplacený", Rows(Covers()));
    ClickRow(Issues(), 1);
    EXPECT_EQ("Čaj|C-10|12,00", Rows(Items()));
    EXPECT_EQ("", Rows(Covers()));
}

TEST_F(IssueRegisterTest, SortsEachListByItsHeader) {
    ClickHeader(Issues(), 1);
    ClickHeader(Issues(), 1);
    EXPECT_EQ("D-2, D-1", Names(Issues()));
    ClickHeader(Issues(), 3);
    EXPECT_EQ("D-1, D-2", Names(Issues()));
    ClickRow(Issues(), 0);
    ClickHeader(Items(), 2);
    EXPECT_EQ("Káva, Čaj", Names(Items()));
    ClickRow(Items(), 1);
    ClickHeader(Covers(), 1);
    EXPECT_EQ("Krabice, Fólie", Names(Covers()));
}

TEST_F(IssueRegisterTest, TheToggleShowsTheWholeIssueAndLocksItsItems) {
    struct State {
        bool itemsAdd, coversAdd, coversEdit;
        int covers;
    };
    const State states[] = {{true, true, true, 2}, {false, false, true, 3}, {true, true, true, 2}};
    for (const State& state : states) {
        for (const Command command : {Command::ID_DETAIL_ADD, Command::ID_DETAIL_EDIT, Command::ID_DETAIL_DELETE})
            EXPECT_EQ(state.itemsAdd, Enabled(command));
        EXPECT_EQ(state.coversAdd, Enabled(Command::ID_SUBDETAIL_ADD));
        EXPECT_EQ(state.coversEdit, Enabled(Command::ID_SUBDETAIL_EDIT));
        EXPECT_EQ(state.coversEdit, Enabled(Command::ID_SUBDETAIL_DELETE));
        EXPECT_TRUE(Items().isEnabled());
        EXPECT_EQ(state.covers, Covers().RowCount());
        if (!state.itemsAdd) {
            // Neither asks nor warns.
            for (const Command command : {Command::ID_DETAIL_ADD, Command::ID_DETAIL_EDIT, Command::ID_DETAIL_DELETE,
                                          Command::ID_SUBDETAIL_ADD})
                view.Run(command);
        }
        Click(view, "toggleCovers");
    }
}

TEST_F(IssueRegisterTest, TwoSelectedIssuesShowAndAllowNothingBelow) {
    ClickRow(Issues(), 1, Qt::ControlModifier);
    EXPECT_FALSE(Items().isEnabled());
    EXPECT_FALSE(Covers().isEnabled());
    EXPECT_EQ(0, Items().RowCount());
    EXPECT_EQ(0, Covers().RowCount());
    for (const Command command : {Command::ID_DETAIL_ADD, Command::ID_DETAIL_EDIT, Command::ID_DETAIL_DELETE,
                                  Command::ID_SUBDETAIL_ADD, Command::ID_SUBDETAIL_EDIT, Command::ID_SUBDETAIL_DELETE})
        view.Run(command);
    EXPECT_EQ(Before, Stored());
}

TEST_F(IssueRegisterTest, ANewIssueNeedsATypeAndDoesNotStoreItsExportBox) {
    messages.Expect(Czech("Není vybrán typ výdeje!"), Warning);
    steps.Then([](QWidget& dialog) {
        EXPECT_EQ(Czech("Výdej produktů a obalů"), dialog.windowTitle());
        EXPECT_EQ("num", Focus(dialog));
        EXPECT_EQ(QStringLiteral("02.07.2012"), Find<QDateEdit>(dialog, "date").text());
        Find<QCheckBox>(dialog, "exported").setChecked(true);
        TypeText(dialog, "num", "D-0");
        Click(dialog, "ok");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ("type", Focus(dialog));
        Pick(dialog, "type", 2);
        Find<QDateEdit>(dialog, "date").setDate(QDate(2012, 7, 20));
        Click(dialog, "ok");
    });
    view.Run(Command::ID_RECORD_ADD);
    EXPECT_EQ(
        "1|D-1|2012-06-15_10:00:00|0|1|null 2|D-2|2012-07-02_00:00:00|3|0|null 3|D-0|2012-07-20_10:15:30|2|0|null",
        StoredIssues());
    EXPECT_EQ(3, Issues().SelectedId());
    EXPECT_EQ("D-0, D-1, D-2", Names(Issues()));
}

TEST_F(IssueRegisterTest, EditingAnIssueStoresAllFourAndKeepsItsCovers) {
    steps.Then([](QWidget& dialog) {
        EXPECT_EQ(QStringLiteral("D-1"), Find<QLineEdit>(dialog, "num").selectedText());
        EXPECT_TRUE(Find<QCheckBox>(dialog, "exported").isChecked());
        Find<QCheckBox>(dialog, "exported").setChecked(false);
        TypeText(dialog, "num", "E-1");
        Pick(dialog, "type", 1);
        Find<QDateEdit>(dialog, "date").setDate(QDate(2012, 7, 20));
        Click(dialog, "ok");
    });
    DoubleClickRow(Issues(), 0);
    EXPECT_EQ("1|E-1|2012-07-20_10:00:00|1|0|null 2|D-2|2012-07-02_00:00:00|3|0|null", StoredIssues());
    EXPECT_EQ(1, Issues().SelectedId());
    EXPECT_EQ(Before, Stored());
}

TEST_F(IssueRegisterTest, AnUnreadableDateOpensAsTheFirstOf1900AndALongNumberIsRefused) {
    folder.Sql("UPDATE Move SET move_date = 'kdysi', move_num = '123456789012345678901' WHERE move_id = 1");
    view.Run(Command::ID_RECORD_REFRESH);
    messages.Expect(Czech("Zadejte nejvýše 20 znaků."), Warning);
    steps.Then([](QWidget& dialog) {
        EXPECT_EQ(QStringLiteral("01.01.1900"), Find<QDateEdit>(dialog, "date").text());
        Click(dialog, "ok");
        EXPECT_EQ("num", Focus(dialog));
        Click(dialog, "cancel");
    });
    DoubleClickRow(Issues(), 0);
}

TEST(MoveFilter, JoinsTheCriteriaInOrder) {
    MoveFilter filter;
    filter.num = QStringLiteral("D-1");
    filter.exported = true;
    EXPECT_EQ("", filter.Clauses());
    EXPECT_FALSE(filter.IsActive());
    filter.byNum = true;
    filter.byExport = true;
    EXPECT_EQ(" WHERE (move_num = 'D-1') AND (move_export = TRUE)", filter.Clauses());
    filter.byExport = false;
    filter.numPart = true;
    EXPECT_EQ(" WHERE (move_num LIKE '%D-1%')", filter.Clauses());
    filter = {};
    filter.byDate = true;
    filter.dateFrom = DateTime::FromDay(2012, 3, 1);
    filter.dateTo = DateTime::FromDay(2012, 3, 31);
    EXPECT_TRUE(filter.IsActive());
    filter.byExport = true;
    EXPECT_EQ(" WHERE DATEDIFF(\"d\", #3/1/2012#, move_date)>=0 AND DATEDIFF(\"d\", move_date, #3/31/2012#)>=0 AND "
              "(move_export = FALSE)",
              filter.Clauses());
}

TEST_F(IssueRegisterTest, TheFilterRefusesARangeThatRunsBackwardsAndLatchesItsButton) {
    messages.Expect(Czech("Datum \"Od\" nesmí být větší než datum \"do\""), Warning);
    steps.Then([](QWidget& dialog) {
        EXPECT_EQ(Czech("Filtr výdejů"), dialog.windowTitle());
        EXPECT_FALSE(Find<QDateEdit>(dialog, "dateFrom").isEnabled());
        EXPECT_FALSE(Find<QLineEdit>(dialog, "num").isEnabled());
        EXPECT_FALSE(Find<QCheckBox>(dialog, "exported").isEnabled());
        QTest::mouseClick(&Find<QCheckBox>(dialog, "byDate"), Qt::LeftButton, {}, {5, 8});
        EXPECT_TRUE(Find<QDateEdit>(dialog, "dateTo").isEnabled());
        Find<QDateEdit>(dialog, "dateFrom").setDate(QDate(2012, 6, 16));
        Find<QDateEdit>(dialog, "dateTo").setDate(QDate(2012, 6, 15));
        Click(dialog, "ok");
        EXPECT_EQ("dateFrom", Focus(dialog));
        Find<QDateEdit>(dialog, "dateFrom").setDate(QDate(2012, 6, 15));
        Click(dialog, "ok");
    });
    view.Run(Command::ID_RECORD_FILTER);
    EXPECT_EQ("D-1", Names(Issues()));
}

TEST_F(IssueRegisterTest, ANewItemGetsTheCoversInForceOnTheDayOfIssue) {
    for (int issue = 0; issue < 2; ++issue) {
        ClickRow(Issues(), issue);
        steps.Then([](QWidget& sheet) {
            ClickRow(Find<RecordList>(sheet, "products"), 0);
            Click(sheet, "next");
            TypeText(sheet, "quantity", "11,5");
            Click(sheet, "finish");
        });
        view.Run(Command::ID_DETAIL_ADD);
    }
    EXPECT_EQ(std::string(Before) + " 4|1|1|220000|2|0|1 4|1|2|10000|1|1|2 5|2|2|330000|1|1|2", Stored());
    EXPECT_EQ("4|1|1|115000 5|2|1|115000",
              folder.AskAll("SELECT mvprod_id, move_id, prod_id, mvprod_qty FROM Move_Prod WHERE mvprod_id > 3"));
    EXPECT_EQ(2, Items().RowCount());
}

TEST_F(IssueRegisterTest, EditingAQuantityPutsBackTheComputedCovers) {
    folder.Sql("INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty) VALUES (1, 1, 2, 990000)");
    steps.Then([](QWidget& sheet) {
        EXPECT_EQ(QStringLiteral("25"), Find<QLineEdit>(sheet, "quantity").selectedText());
        TypeText(sheet, "quantity", "30");
        Click(sheet, "finish");
    });
    DoubleClickRow(Items(), 0);
    EXPECT_EQ("2|1|2|10000|3|2|0 1|1|1|600000|2|0|1 1|1|2|30000|1|1|2", Stored());
    EXPECT_EQ("Čaj|C-10|30,00\nKáva|K-2|5,00", Rows(Items()));
    EXPECT_EQ(1, Items().SelectedId());
}

TEST_F(IssueRegisterTest, DeletionsAskAndTakeTheChildrenWithThem) {
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit ze seznamu obal\n\"Fólie\" ?"), Message::Answer::No);
    view.Run(Command::ID_SUBDETAIL_DELETE);
    EXPECT_EQ(Before, Stored());
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit ze seznamu obal\n\"Fólie\" ?"), Message::Answer::Yes);
    view.Run(Command::ID_SUBDETAIL_DELETE);
    EXPECT_EQ("1|1|2|20000|1|1|2 2|1|2|10000|3|2|0", Stored());
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit ze seznamu produkt\n\"Čaj\" ?"), Message::Answer::Yes);
    view.Run(Command::ID_DETAIL_DELETE);
    EXPECT_EQ("2|1|2|10000|3|2|0", Stored());
    EXPECT_EQ("2 3", folder.AskAll("SELECT mvprod_id FROM Move_Prod ORDER BY 1"));
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit vybrané výdeje?"), Message::Answer::Yes);
    view.Run(Command::ID_RECORD_DELETE);
    EXPECT_EQ("", Stored());
    EXPECT_EQ("3|2", folder.AskAll("SELECT mvprod_id, move_id FROM Move_Prod"));
    EXPECT_EQ("D-2", Names(Issues()));
}

TEST_F(IssueRegisterTest, ACoverAddedByHandTakesTheCoversValues) {
    messages.Expect(Czech("Množství obalu musí být větší než 0"), Warning);
    steps.Then([](QWidget& sheet) {
        ChooseCover(sheet, 1);
        EXPECT_EQ(Czech("Zadejte množství"), sheet.windowTitle());
        EXPECT_EQ("covers", Focus(sheet));
        EXPECT_EQ(QStringLiteral("2"), Find<QLineEdit>(sheet, "weight").text());
        EXPECT_EQ(Czech("papír"), Find<QComboBox>(sheet, "material").currentText());
        EXPECT_EQ(Czech("paleta prostá (ČSN 269111)"), Find<QComboBox>(sheet, "stat").currentText());
        EXPECT_TRUE(Find<QCheckBox>(sheet, "reusable").isChecked());
        for (const char* control : {"type", "origin", "payment", "reusable", "stat", "material"})
            EXPECT_FALSE(Find<QWidget>(sheet, control).isEnabled()) << control;
        TypeText(sheet, "covers", "0");
        Click(sheet, "finish");
        EXPECT_EQ("covers", Focus(sheet));
        TypeText(sheet, "weight", "5");
        EXPECT_EQ(QStringLiteral("2,5"), Find<QLineEdit>(sheet, "covers").text());
        Click(sheet, "finish");
    });
    view.Run(Command::ID_SUBDETAIL_ADD);
    EXPECT_EQ(std::string(Before) + " 1|1|2|25000|1|1|2", Stored());
    EXPECT_EQ(3, Covers().RowCount());
}

TEST_F(IssueRegisterTest, EditingACoverStoresItsQuantityOnlyInEitherView) {
    ClickRow(Items(), 1);
    steps.Then([](QWidget& sheet) {
        EXPECT_EQ(Czech("průmyslový"), Find<QComboBox>(sheet, "type").currentText());
        EXPECT_EQ(QStringLiteral("OK"), Find<QPushButton>(sheet, "finish").text());
        TypeText(sheet, "covers", "4");
        Click(sheet, "finish");
    });
    DoubleClickRow(Covers(), 0);
    EXPECT_EQ("1|1|1|500000|2|0|1 1|1|2|20000|1|1|2 2|1|2|40000|3|2|0", Stored());
    Click(view, "toggleCovers");
    steps.Then([](QWidget& sheet) {
        TypeText(sheet, "covers", "1");
        Click(sheet, "finish");
    });
    DoubleClickRow(Covers(), 0);
    EXPECT_EQ("1|1|1|10000|2|0|1 1|1|2|20000|1|1|2 2|1|2|40000|3|2|0", Stored());
}

TEST_F(IssueRegisterTest, NothingSelectedIsSaidInEachListsWords) {
    const struct {
        const char* leave;
        Command command;
        const char* warning;
    } cases[] = {
        {"DELETE FROM Move_Cover", Command::ID_SUBDETAIL_EDIT, "Není vybrán obal !"},
        {"DELETE FROM Move_Cover", Command::ID_SUBDETAIL_DELETE, "Není vybrán obal !"},
        {"DELETE FROM Move_Prod", Command::ID_SUBDETAIL_ADD, "Není vybrán produkt !"},
        {"DELETE FROM Move_Prod", Command::ID_DETAIL_EDIT, "Není vybrán produkt !"},
        {"DELETE FROM Move_Prod", Command::ID_DETAIL_DELETE, "Není vybrán produkt !"},
        {"DELETE FROM Move", Command::ID_DETAIL_ADD, "Není vybrán doklad !"},
        {"DELETE FROM Move", Command::ID_RECORD_EDIT, "Není vybrán doklad !"},
        {"DELETE FROM Move", Command::ID_RECORD_DELETE, "Není vybrán doklad !"},
    };
    for (const auto& each : cases) {
        folder.Sql(each.leave);
        view.Run(Command::ID_RECORD_REFRESH);
        messages.Expect(Czech(each.warning), Warning);
        view.Run(each.command);
    }
}

TEST_F(IssueRegisterTest, VanishedRecordsLeaveTheirList) {
    const struct {
        const char* vanish;
        Command command;
        RecordList& list;
        int left;
    } cases[] = {
        {"DELETE FROM Move_Cover WHERE mvcover_id = 1", Command::ID_SUBDETAIL_EDIT, Covers(), 1},
        {"DELETE FROM Move_Prod WHERE mvprod_id = 1", Command::ID_DETAIL_EDIT, Items(), 1},
        {"DELETE FROM Move WHERE move_id = 1", Command::ID_RECORD_EDIT, Issues(), 1},
    };
    for (const auto& each : cases) {
        folder.Sql(each.vanish);
        ExpectVanished();
        view.Run(each.command);
        EXPECT_EQ(each.left, each.list.RowCount());
    }
}

TEST_F(IssueRegisterTest, AnItemThatVanishedWhileItsCoverWasChosenIsClearedAway) {
    messages.Expect(Czech("Údaje o produktu byly odstraněny jinou aplikací!"), Message::Icon::Information);
    steps.Then([&](QWidget& sheet) {
        ChooseCover(sheet, 0);
        folder.Sql("DELETE FROM Move_Prod WHERE mvprod_id = 1");
        Click(sheet, "finish");
    });
    view.Run(Command::ID_SUBDETAIL_ADD);
    EXPECT_EQ("2|1|2|10000|3|2|0", Stored());
    EXPECT_EQ("Káva", Names(Items()));
}

TEST_F(IssueRegisterTest, ADatabaseErrorIsShownAndLeavesWhatWasWritten) {
    folder.Sql("CREATE TRIGGER fault BEFORE INSERT ON Move_Prod BEGIN SELECT RAISE(ABORT, 'zkouška'); END");
    messages.Expect(Czech("Došlo k chybě COM č.0x80004005\n\nzkouška"), Message::Icon::Error);
    steps.Then([](QWidget& sheet) {
        ClickRow(Find<RecordList>(sheet, "products"), 0);
        Click(sheet, "next");
        Click(sheet, "finish");
    });
    view.Run(Command::ID_DETAIL_ADD);
    EXPECT_EQ(Before, Stored());
    EXPECT_EQ(2, Items().RowCount());
}

TEST_F(IssueRegisterTest, NotificationsRefillTheListConcerned) {
    folder.Sql("INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty) VALUES (1, 1, 2, 990000)");
    view.Receive(ViewMessage::WM_COVERS_CHANGED);
    EXPECT_EQ(3, Covers().RowCount());
    folder.Sql("UPDATE Product SET prod_name = 'Ledový čaj' WHERE prod_id = 1");
    view.Receive(ViewMessage::WM_PRODUCTS_CHANGED);
    EXPECT_EQ("Káva, Ledový čaj", Names(Items()));
    folder.Sql("INSERT INTO Move (move_num) VALUES ('A-9')");
    view.Receive(ViewMessage::WM_MOVES_CHANGED);
    EXPECT_EQ("A-9, D-1, D-2", Names(Issues()));
    EXPECT_EQ(1, Issues().SelectedId());
}

/// To whatever has the focus.
void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    // Shortcuts reach only the active window, which it becomes a little after a dialog closed.
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QWidget* control = window.focusWidget();
    QTest::keyClick(control != nullptr ? control : &window, key, modifiers);
}
void Type(QWidget& window, const char* text) {
    QTest::keyClicks(window.focusWidget(), QString::fromLatin1(text));
}

TEST(IssueByKeys, FromTheDocumentToTheCellOfTheReport) {
    g_options = {};
    FreshSettings settings;
    StoreFolder folder;
    folder.Sql("INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay, "
               "cover_reusable, cover_stat) VALUES ('Folie', 8, 2500, 2, 0, 1, 0, 0);"
               "INSERT INTO Product (prod_name) VALUES ('Caj');"
               "INSERT INTO Prod_CoverDT (prod_id, dt_from) VALUES (1, '2012-01-01 00:00:00');"
               "INSERT INTO Prod_Cover (dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cover_type, cover_org, "
               "cover_pay) VALUES (1, 1, 20000, 10000, 1, 2, 0, 1)");
    ScriptedMessages messages;
    CKuvelDoc document{folder.store};
    CMainFrame frame{document};
    Steps steps;
    frame.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
    frame.RunCommand(Command::ID_SHOW_ISSUES);
    steps.Then([](QWidget& dialog) {
        Type(dialog, "V-1");
        Press(dialog, Qt::Key_Tab);
        Press(dialog, Qt::Key_Down);
        Press(dialog, Qt::Key_Return);
    });
    Press(frame, Qt::Key_Insert);
    EXPECT_EQ("1|V-1|0", folder.AskAll("SELECT move_id, move_num, move_type FROM Move"));
    steps.Then([](QWidget& sheet) {
        Press(sheet, Qt::Key_Down);
        Press(sheet, Qt::Key_Return);
        Type(sheet, "6000");
        Press(sheet, Qt::Key_Return);
    });
    Press(frame, Qt::Key_Insert, Qt::ControlModifier);
    const std::unique_ptr<IProgress> progress = SilentProgress().Open({}, false);
    const std::vector<FigureCell> cells = ListFigures(folder.store, *progress, 2012, 3, QStringLiteral("2.21"));
    // 6,000 products carry 12,000 pieces of 0.25 kg.
    ASSERT_EQ(1u, cells.size());
    EXPECT_EQ("1-1 D7 3,0000",
              (cells[0].sheet + u' ' + cells[0].cell + u' ' + FormatCurrency(cells[0].tonnes, 1, 'M')).toStdString());
}

} // namespace
