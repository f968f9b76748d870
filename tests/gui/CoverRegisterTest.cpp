#include "registers/HelpDoor.h"
#include "registers/RegisterTexts.h"
#include "registers/SplitterBar.h"
#include "tests/gui/CoverFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

namespace {

class CoverRegisterTest : public CoverFixture {
protected:
    void FillValid(QWidget& dialog) {
        TypeText(dialog, "name", "Pytel");
        TypeText(dialog, "weight", "0,125");
        for (const char* combo : {"stat", "material", "type", "origin", "payment"})
            Pick(dialog, combo, 0);
    }
};

TEST_F(CoverRegisterTest, ShowsCoversAndTheDiscardsOfTheSelectedOne) {
    EXPECT_EQ("Bedna|dřevo|2,00|skupinový|nakoupený v ČR|zpoplatněný|ano\n"
              "Fólie|kovy - železo FE|0,25|prodejní|dovezený do ČR|zpoplatněný|ne\n"
              "PE folie 20 µm|kovy - železo FE|0,03|prodejní|dovezený do ČR|předplacený|ne",
              Rows(Covers()));
    EXPECT_EQ("01.03.2012|recyklováno|2,00\n02.05.2012|energeticky využito|6,00", Rows(Discards()));
    ClickRow(Covers(), 1);
    EXPECT_EQ("", Rows(Discards()));
}

TEST_F(CoverRegisterTest, AddsWithTheKeysAloneAndSelectsTheNewCover) {
    steps.Then([&](QWidget& dialog) {
        EXPECT_EQ(Czech("Detail obalu"), dialog.windowTitle());
        EXPECT_EQ("name", Focus(dialog));
        FillValid(dialog);
        QTest::keyClick(&Find<QCheckBox>(dialog, "reusable"), Qt::Key_Space);
        TypeText(dialog, "note", "it's");
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    view.Run(Command::ID_RECORD_ADD);
    EXPECT_EQ("4|Pytel|0|1250|0|0|0|1|0|it's|0", folder.AskAll("SELECT cover_id, cover_name, cover_mat, cover_weight, "
                                                               "cover_type, cover_org, cover_pay, cover_reusable, "
                                                               "cover_stat, cover_note, deleted FROM Cover WHERE "
                                                               "cover_id = 4"));
    EXPECT_EQ(4, Covers().SelectedId());
    EXPECT_TRUE(frame.told.empty());
}

TEST_F(CoverRegisterTest, ChecksInOrderAndPutsTheFocusOnTheFault) {
    struct Case {
        const char* what;
        std::function<void(QWidget&)> spoil;
        const char* message;
        const char* focus;
    };
    const auto none = [](const char* combo) {
        return [combo](QWidget& dialog) { Find<QComboBox>(dialog, combo).setCurrentIndex(-1); };
    };
    const std::string longName(51, 'x');
    const std::string longNote(256, 'x');
    const std::vector<Case> cases = {
        {"name", [&](QWidget& d) { TypeText(d, "name", longName.c_str()); }, "Zadejte nejvýše 50 znaků.", "name"},
        {"note", [&](QWidget& d) { TypeText(d, "note", longNote.c_str()); }, "Zadejte nejvýše 255 znaků.", "note"},
        {"no weight", [](QWidget& d) { TypeText(d, "weight", ""); }, "Hmotnost musí být větší než 0!", "weight"},
        {"zero", [](QWidget& d) { TypeText(d, "weight", "0,0000"); }, "Hmotnost musí být větší než 0!", "weight"},
        {"negative", [](QWidget& d) { TypeText(d, "weight", "-1"); }, "Hmotnost musí být větší než 0!", "weight"},
        {"material", none("material"), "Není vybrán materiál!", "material"},
        {"type", none("type"), "Není vybrán typ!", "type"},
        {"origin", none("origin"), "Není vybrán původ!", "origin"},
        {"payment", none("payment"), "Není vybrána platba!", "payment"},
        {"stat", none("stat"), "Není vybrán údaj pro statistickou evidenci!", "stat"},
        {"all",
         [&](QWidget& d) {
             for (const char* combo : {"material", "type", "origin", "payment", "stat"})
                 none(combo)(d);
         },
         "Není vybrán materiál!", "material"},
    };
    const std::string before = folder.AskAll(AllCovers);
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        steps.Then([&](QWidget& dialog) {
            FillValid(dialog);
            each.spoil(dialog);
            messages.Expect(Czech(each.message), Message::Icon::Warning);
            Find<QWidget>(dialog, "ok").setFocus();
            Click(dialog, "ok");
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(each.focus, Focus(dialog));
            Click(dialog, "cancel");
        });
        view.Run(Command::ID_RECORD_ADD);
    }
    EXPECT_EQ(before, folder.AskAll(AllCovers));
}

TEST_F(CoverRegisterTest, LinksMaterialAndStatisticalKind) {
    struct Case {
        const char* combo;
        int row;
        int material;
        int stat;
    };
    // The rows of the material list: wood 0, textile 1, then the others, one below their code.
    const std::vector<Case> cases = {{"material", 7, 6, 3}, {"stat", 1, 0, 1}, {"stat", 2, 0, 2},
                                     {"stat", 3, 6, 3},     {"stat", 0, 5, 0}, {"material", 1, 29, 0}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.row);
        steps.Then([&](QWidget& dialog) {
            auto& material = Find<QComboBox>(dialog, "material");
            auto& stat = Find<QComboBox>(dialog, "stat");
            EXPECT_EQ(Czech("textil"), material.itemText(1));
            EXPECT_EQ(30, material.count());
            material.setCurrentIndex(6);
            stat.setCurrentIndex(0);
            auto& combo = Find<QComboBox>(dialog, each.combo);
            combo.setCurrentIndex(each.row);
            emit combo.activated(each.row);
            EXPECT_EQ(each.material, material.currentData().toInt());
            EXPECT_EQ(each.stat, stat.currentData().toInt());
            dialog.close();
        });
        view.Run(Command::ID_RECORD_ADD);
    }
}

TEST_F(CoverRegisterTest, OpensTheGuideAtItsPage) {
    std::vector<HelpContext> opened;
    const HelpDoor before = SetHelpDoor([&](HelpContext context) { opened.push_back(context); });
    steps.Then([&](QWidget& dialog) {
        Click(dialog, "help");
        Click(dialog, "cancel");
    });
    view.Run(Command::ID_RECORD_ADD);
    SetHelpDoor(before);
    EXPECT_EQ(std::vector<HelpContext>{HelpContext::Cover}, opened);
}

TEST_F(CoverRegisterTest, AChangedTripleGoesWhereTheOptionsSay) {
    struct Case {
        const char* what;
        PropagationOptions options;
        std::function<void(QWidget&)> change;
        const char* rows; // composites, packaging, issues
        bool told;
    };
    const auto payment = [](QWidget& dialog) { Pick(dialog, "payment", 0); };
    const std::vector<Case> cases = {
        {"note only", {}, [](QWidget& d) { TypeText(d, "note", "jiná"); }, "3|3|3 3|3|3 3|3|3", false},
        {"weight and name", {}, [](QWidget& d) { TypeText(d, "weight", "3"); }, "3|3|3 3|3|3 3|3|3", false},
        {"all", {}, payment, "1|1|0 1|1|0 1|1|0", true},
        {"type", {}, [](QWidget& d) { Pick(d, "type", 3); }, "3|1|1 3|1|1 3|1|1", true},
        {"origin", {}, [](QWidget& d) { Pick(d, "origin", 2); }, "1|2|1 1|2|1 1|2|1", true},
        {"composites", {1, 0, 0, 0}, payment, "1|1|0 3|3|3 3|3|3", true},
        {"packaging", {0, 1, 0, 0}, payment, "3|3|3 1|1|0 3|3|3", true},
        {"issues", {0, 0, 1, 0}, payment, "3|3|3 3|3|3 1|1|0", true},
        {"none", {0, 0, 0, 1}, payment, "3|3|3 3|3|3 3|3|3", true},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        folder.Sql("UPDATE Cover SET cover_type = 1, cover_org = 1, cover_pay = 1 WHERE cover_id = 1;"
                   "DELETE FROM CompCover_Item; DELETE FROM Prod_Cover; DELETE FROM Move_Cover;"
                   "INSERT INTO CompCover_Item (cover_id, cover_type, cover_org, cover_pay) VALUES (1, 3, 3, 3), "
                   "(2, 9, 9, 9);"
                   "INSERT INTO Prod_Cover (cover_id, cover_type, cover_org, cover_pay) VALUES (1, 3, 3, 3);"
                   "INSERT INTO Move_Cover (cover_id, cover_type, cover_org, cover_pay) VALUES (1, 3, 3, 3)");
        view.Run(Command::ID_RECORD_REFRESH);
        frame.told.clear();
        g_options = each.options;
        Covers().SelectRow(0);
        steps.Then([&](QWidget& dialog) {
            each.change(dialog);
            Click(dialog, "ok");
        });
        view.Run(Command::ID_RECORD_EDIT);
        EXPECT_EQ(each.rows, folder.AskAll("SELECT cover_type, cover_org, cover_pay FROM CompCover_Item WHERE "
                                           "cover_id = 1 UNION ALL SELECT cover_type, cover_org, cover_pay FROM "
                                           "Prod_Cover UNION ALL SELECT cover_type, cover_org, cover_pay FROM "
                                           "Move_Cover"));
        EXPECT_EQ("9", folder.Ask("SELECT cover_type FROM CompCover_Item WHERE cover_id = 2"));
        EXPECT_EQ(each.told ? 1u : 0u, frame.told.size());
        if (each.told) {
            EXPECT_EQ(ViewMessage::WM_COVERS_CHANGED, frame.told[0]);
            EXPECT_EQ(&view, frame.lastExcept);
        }
    }
    EXPECT_EQ(1, Covers().SelectedId());
}

TEST_F(CoverRegisterTest, AFailedPropagationKeepsTheCoverAndStops) {
    folder.Sql("INSERT INTO CompCover_Item (cover_id, cover_pay) VALUES (1, 1);"
               "INSERT INTO Prod_Cover (cover_id, cover_pay) VALUES (1, 1);"
               "INSERT INTO Move_Cover (cover_id, cover_pay) VALUES (1, 1);"
               "CREATE TRIGGER fault BEFORE UPDATE ON Prod_Cover BEGIN SELECT RAISE(ABORT, 'zkouška'); END");
    messages.AcceptAny();
    steps.Then([](QWidget& dialog) {
        Pick(dialog, "payment", 2);
        Click(dialog, "ok");
    });
    view.Run(Command::ID_RECORD_EDIT);
    ASSERT_EQ(1u, messages.Shown().size());
    EXPECT_EQ(Message::Icon::Error, messages.Shown()[0].icon);
    EXPECT_EQ("2 2 1 1", folder.AskAll("SELECT cover_pay FROM Cover WHERE cover_id = 1 UNION ALL SELECT cover_pay FROM "
                                       "CompCover_Item UNION ALL SELECT cover_pay FROM Prod_Cover UNION ALL SELECT "
                                       "cover_pay FROM Move_Cover"));
    EXPECT_EQ(Czech("předplacený"), Covers().CellText(0, 5)) << "the list is filled again";
    EXPECT_EQ(1, Covers().SelectedId());
}

TEST_F(CoverRegisterTest, EveryWriteThatFailsShowsTheErrorAndLeavesTheRecords) {
    struct Case {
        const char* what;
        const char* trigger;
        Command command;
        bool wizard;
    };
    const std::vector<Case> cases = {
        {"add", "BEFORE INSERT ON Cover", Command::ID_RECORD_ADD, false},
        {"edit", "BEFORE UPDATE ON Cover", Command::ID_RECORD_EDIT, false},
        {"add discard", "BEFORE INSERT ON CoverDiscard", Command::ID_DETAIL_ADD, true},
        {"edit discard", "BEFORE UPDATE ON CoverDiscard", Command::ID_DETAIL_EDIT, true},
    };
    messages.AcceptAny();
    const std::string covers = folder.AskAll(AllCovers);
    const std::string discards = folder.AskAll(AllDiscards);
    const std::string shown = Rows(Covers()) + Rows(Discards());
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        folder.Sql((std::string("CREATE TRIGGER fault ") + each.trigger + " BEGIN SELECT RAISE(ABORT, 'zkouška'); END")
                       .c_str());
        steps.Then([&](QWidget& dialog) {
            if (each.wizard)
                TypeText(dialog, "quantity", "7");
            else
                FillValid(dialog);
            Click(dialog, each.wizard ? "finish" : "ok");
        });
        const std::size_t before = messages.Shown().size();
        view.Run(each.command);
        ASSERT_EQ(before + 1, messages.Shown().size());
        EXPECT_TRUE(messages.Shown().back().text.startsWith(Czech("Došlo k chybě COM č.0x")));
        EXPECT_EQ(covers, folder.AskAll(AllCovers));
        EXPECT_EQ(discards, folder.AskAll(AllDiscards));
        EXPECT_EQ(shown, Rows(Covers()) + Rows(Discards()));
        folder.Sql("DROP TRIGGER fault");
    }
}

TEST_F(CoverRegisterTest, ADeletionThatFailsHalfWayKeepsTheRest) {
    folder.Sql("INSERT INTO CompCover_Item (cover_id) VALUES (1);"
               "CREATE TRIGGER fault BEFORE DELETE ON CompCover_Item BEGIN SELECT RAISE(ABORT, 'zkouška'); END");
    messages.ExpectQuestion(Czech(Text::DeleteCovers), Message::Answer::Yes);
    messages.AcceptAny();
    view.Run(Command::ID_RECORD_DELETE);
    EXPECT_EQ(2u, messages.Shown().size());
    EXPECT_EQ("0", folder.Ask("SELECT count(*) FROM CoverDiscard"));
    EXPECT_EQ("1", folder.Ask("SELECT count(*) FROM CompCover_Item"));
    EXPECT_EQ("0", folder.Ask("SELECT deleted FROM Cover WHERE cover_id = 1"));
    EXPECT_EQ("", Rows(Discards()));
}

TEST_F(CoverRegisterTest, AVanishedCoverIsToldAndLeavesTheList) {
    const auto inform = [&] {
        messages.Expect(Czech("Záznam byl odstraněn jinou aplikací!"), Message::Icon::Information);
    };
    folder.Sql("DELETE FROM Cover WHERE cover_id = 2");
    ClickRow(Covers(), 1);
    inform();
    view.Run(Command::ID_RECORD_EDIT);
    EXPECT_EQ("Bedna, PE folie 20 µm", Names(Covers()));

    // While the dialog is open.
    Covers().SelectRow(0);
    steps.Then([&](QWidget& dialog) {
        TypeText(dialog, "name", "Jinak");
        folder.Sql("DELETE FROM Cover WHERE cover_id = 1");
        inform();
        Click(dialog, "ok");
    });
    view.Run(Command::ID_RECORD_EDIT);
    EXPECT_EQ("PE folie 20 µm", Names(Covers()));
    EXPECT_EQ("0", folder.Ask("SELECT count(*) FROM Cover WHERE cover_name = 'Jinak'"));

    // The row that is left is still its record's.
    Covers().SelectRow(0);
    steps.Then([](QWidget& dialog) {
        EXPECT_EQ(Czech("PE folie 20 µm"), Find<QLineEdit>(dialog, "name").text());
        Click(dialog, "cancel");
    });
    view.Run(Command::ID_RECORD_EDIT);
}

TEST_F(CoverRegisterTest, WithoutASelectionWarnsAndRunsNothing) {
    folder.Sql("INSERT INTO TmpID VALUES (77); DELETE FROM Cover");
    view.Run(Command::ID_RECORD_REFRESH);
    const struct {
        Command command;
        const char* text;
    } cases[] = {{Command::ID_RECORD_EDIT, "Není vybrán produkt !"},
                 {Command::ID_RECORD_DELETE, "Není vybrán produkt !"},
                 {Command::ID_DETAIL_ADD, "Není vybrán obal !"},
                 {Command::ID_DETAIL_EDIT, "Není vybrán vyřazený obal !"},
                 {Command::ID_DETAIL_DELETE, "Není vybrán vyřazený obal !"}};
    for (const auto& each : cases) {
        messages.Expect(Czech(each.text), Message::Icon::Warning);
        view.Run(each.command);
    }
    EXPECT_EQ("77", folder.AskAll("SELECT id FROM TmpID"));
}

TEST_F(CoverRegisterTest, DeletesTheSelectedCoversAndWhatHangsOnThem) {
    folder.Sql("INSERT INTO CompCover_Item (ccover_id, cover_id) VALUES (1, 1), (1, 3);"
               "INSERT INTO Prod_Cover (cover_id) VALUES (1); INSERT INTO Move_Cover (cover_id) VALUES (1)");
    ClickRow(Covers(), 0);
    ClickRow(Covers(), 1, Qt::ControlModifier);
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit vybrané kuvel"), Message::Answer::No);
    view.Run(Command::ID_RECORD_DELETE);
    EXPECT_EQ("3", folder.Ask("SELECT count(*) FROM Cover WHERE deleted = 0"));

    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit vybrané kuvel"), Message::Answer::Yes);
    view.Run(Command::ID_RECORD_DELETE);
    EXPECT_EQ("1 2", folder.AskAll("SELECT cover_id FROM Cover WHERE deleted = 1 ORDER BY cover_id"));
    EXPECT_EQ("1 2", folder.AskAll("SELECT id FROM TmpID"));
    EXPECT_EQ("", folder.AskAll(AllDiscards));
    EXPECT_EQ("3", folder.AskAll("SELECT cover_id FROM CompCover_Item"));
    EXPECT_EQ("1 1", folder.AskAll("SELECT count(*) FROM Prod_Cover UNION ALL SELECT count(*) FROM Move_Cover"));
    EXPECT_EQ("PE folie 20 µm", Names(Covers()));
    EXPECT_EQ(3, Covers().SelectedId());
}

TEST_F(CoverRegisterTest, SortsCoversByEveryColumn) {
    // Yes comes before no.
    const struct {
        int column;
        bool descending;
        const char* order;
    } cases[] = {{1, false, "Bedna"}, {2, false, "PE folie 20 µm"}, {3, false, "Bedna"},
                 {6, false, "Bedna"}, {6, true, "Fólie"},           {0, false, "Bedna"}};
    for (const auto& each : cases) {
        Covers().scrollTo(Covers().model()->index(0, each.column));
        ClickHeader(Covers(), each.column);
        EXPECT_EQ(each.descending, Covers().SortDescending());
        EXPECT_EQ(each.order, Covers().CellText(0, 0).toStdString()) << each.column;
    }
}

TEST_F(CoverRegisterTest, DoubleClickEditsARowAndOnlyARow) {
    RecordList& list = Covers();
    const QPoint empty(20, list.viewport()->height() - 5);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, empty);
    steps.Then([](QWidget& dialog) {
        EXPECT_EQ(Czech("Fólie"), Find<QLineEdit>(dialog, "name").text());
        Click(dialog, "cancel");
    });
    DoubleClickRow(list, 1);
}

TEST_F(CoverRegisterTest, ContextMenusGreyWhatHasNoRow) {
    struct Case {
        const char* what;
        const char* list;
        bool onRow;
        bool covers;
        const char* menu;
    };
    const std::vector<Case> cases = {
        {"master row", "covers", true, true, "Přidat+ Upravit+ Odstranit+ | Najít...+ Nahradit...+ | Filtr...+"},
        {"master", "covers", false, true, "Přidat+ Upravit- Odstranit- | Najít...+ Nahradit...+ | Filtr...+"},
        {"second row", "discards", true, true, "Přidat+ Upravit+ Odstranit+"},
        {"second", "discards", false, true, "Přidat+ Upravit- Odstranit-"},
        {"second, no cover", "discards", false, false, "Přidat- Upravit- Odstranit-"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        if (!each.covers) {
            folder.Sql("DELETE FROM Cover");
            view.Run(Command::ID_RECORD_REFRESH);
        }
        emit Find<RecordList>(view, each.list).menuWanted(view.mapToGlobal(QPoint(50, 50)), each.onRow);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(nullptr, menu);
        QStringList texts;
        for (const QAction* action : menu->actions())
            texts.append(action->isSeparator()
                             ? QStringLiteral("|")
                             : action->text().section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&')) +
                                   (action->isEnabled() ? QStringLiteral("+") : QStringLiteral("-")));
        EXPECT_EQ(each.menu, texts.join(QLatin1Char(' ')).toStdString());
        menu->close();
    }
}

TEST_F(CoverRegisterTest, TheSplitterCollapsesEitherSide) {
    view.resize(1000, 400);
    auto& bar = Find<CSplitterBar>(view, "splitter");
    struct Case {
        const char* what;
        int to;
        int left;
        bool covers;
        bool discards;
    };
    const std::vector<Case> cases = {
        {"middle", 500, 500, true, true},       {"just left of the limit", 879, 879, true, true},
        {"right limit", 880, 993, true, false}, {"back", 600, 600, true, true},
        {"left limit", 120, 120, true, true},   {"left", 119, 2, false, true},
        {"past the edge", -50, 2, false, true}, {"back again", 300, 300, true, true}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        const QPoint grip(2, 50);
        QTest::mousePress(&bar, Qt::LeftButton, {}, grip);
        QTest::mouseMove(&bar, grip + QPoint(each.to - bar.x(), 0));
        QTest::mouseRelease(&bar, Qt::LeftButton, {}, grip + QPoint(each.to - bar.x(), 0));
        EXPECT_EQ(each.left, bar.x());
        EXPECT_EQ(5, bar.width());
        EXPECT_EQ(each.covers, Covers().isVisible());
        EXPECT_EQ(each.discards, Discards().isVisible());
    }
    EXPECT_EQ(298, Covers().geometry().right() + 1);
    EXPECT_EQ(307, Discards().x());
    EXPECT_EQ(996, Discards().geometry().right() + 1);
}

TEST_F(CoverRegisterTest, RefreshKeepsTheSelection) {
    ClickRow(Covers(), 1);
    folder.Sql("INSERT INTO Cover (cover_name) VALUES ('Aaa')");
    view.Receive(ViewMessage::WM_PRODUCTS_CHANGED);
    EXPECT_EQ(3, Covers().RowCount());
    view.Receive(ViewMessage::Refresh);
    EXPECT_EQ(4, Covers().RowCount());
    EXPECT_EQ(2, Covers().SelectedId());
}

} // namespace
