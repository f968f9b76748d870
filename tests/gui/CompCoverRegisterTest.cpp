#include "registers/CompCoverFilter.h"
#include "registers/HelpDoor.h"
#include "registers/IconButton.h"
#include "registers/RecordList.h"
#include "registers/RegisterTexts.h"
#include "registers/ViewCompCover.h"
#include "tests/gui/Driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace {

constexpr const char* AllItems = "SELECT ccover_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, "
                                 "cp_useto, cover_type, cover_org, cover_pay FROM CompCover_Item ORDER BY rowid";
constexpr const char* Composites = "SELECT ccover_id, ccover_name, ccover_note FROM CompCover ORDER BY ccover_id";

class CompCoverRegisterTest : public testing::Test {
protected:
    CompCoverRegisterTest() {
        folder.Sql("INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay) VALUES "
                   "('Bedna', 0, 20000, 1, 1, 1), ('Čep', 3, 2500, 2, 0, 2), ('Cívka', 3, 300, 2, 0, 2);"
                   "INSERT INTO CompCover (ccover_name, ccover_note) VALUES ('Sada', 'dvě'), ('Balík', '');"
                   "INSERT INTO CompCover_Item VALUES (1, 2, 30000, 10000, 0, 5000, 99000, 2, 0, 2), "
                   "(1, 1, 15000, 120000, 1, NULL, NULL, 1, 1, 1), (2, 3, 10000, 10000, 1, 7, 8, 2, 0, 2)");
        view.resize(700, 400);
        view.InitialUpdate();
        view.show();
    }

    RecordList& List() { return Find<RecordList>(view, "composites"); }
    /// Opens the detail of "Sada".
    void Edit(Steps::Step step) {
        List().SelectRow(1);
        steps.Then(std::move(step));
        view.Run(Command::ID_RECORD_EDIT);
    }

    StoreFolder folder;
    ScriptedMessages messages;
    RecordedFrame frame;
    CViewCompCover view{folder.store, frame};
    Steps steps;
};

constexpr const char* StoredItems = "1|2|30000|10000|0|5000|99000|2|0|2 1|1|15000|120000|1|null|null|1|1|1 "
                                    "2|3|10000|10000|1|7|8|2|0|2";

TEST_F(CompCoverRegisterTest, ShowsTheCompositesAlone) {
    EXPECT_EQ("Balík|\nSada|dvě", Rows(List()));
    EXPECT_FALSE(view.Handles(Command::ID_DETAIL_ADD));
    EXPECT_EQ(692, List().width());
}

TEST_F(CompCoverRegisterTest, ShowsTheCompositionInCzechOrder) {
    Edit([](QWidget& dialog) {
        EXPECT_EQ(Czech("Detail složeného obalu"), dialog.windowTitle());
        EXPECT_EQ("name", Focus(dialog));
        EXPECT_EQ("Bedna|3,00|12,00|-|-|skupinový|nakoupený v ČR|zpoplatněný\n"
                  "Čep|0,75|1,00|0,50|9,90|prodejní|dovezený do ČR|předplacený",
                  Rows(Find<RecordList>(dialog, "items")));
        Click(dialog, "cancel");
    });
}

TEST_F(CompCoverRegisterTest, NothingIsStoredBeforeOk) {
    Edit([&](QWidget& dialog) {
        TypeText(dialog, "name", "Jinak");
        auto& items = Find<RecordList>(dialog, "items");
        items.SelectRow(0);
        items.setFocus();
        QTest::keyClick(&items, Qt::Key_Delete);
        EXPECT_EQ("Čep", Names(items));
        Click(dialog, "button32792");
        EXPECT_EQ("", Names(items));
        Click(dialog, "cancel");
    });
    EXPECT_EQ(StoredItems, folder.AskAll(AllItems));
    EXPECT_EQ("1|Sada|dvě 2|Balík|", folder.AskAll(Composites));
}

TEST_F(CompCoverRegisterTest, AddsACompositeWithItsItems) {
    folder.Sql("INSERT INTO TmpCover_Item (cover_id) VALUES (1)");
    steps.Then([&](QWidget& dialog) {
        EXPECT_EQ(0, Find<RecordList>(dialog, "items").RowCount()) << "left by an earlier dialog";
        steps.Then([&](QWidget& sheet) {
            EXPECT_EQ(Czech("Vyberte obal"), sheet.windowTitle());
            EXPECT_EQ(1, Find<QTabWidget>(sheet, "tabs").count()) << "no composite inside a composite";
            auto& covers = Find<RecordList>(sheet, "simple");
            EXPECT_EQ("Bedna, Cívka, Čep", Names(covers));
            messages.Expect(Czech("Není vybrán obal !"), Message::Icon::Warning);
            Click(sheet, "next");
            EXPECT_EQ("simple", Focus(sheet));
            covers.SelectRow(2);
            Click(sheet, "next");
            EXPECT_EQ(Czech("Údaje balení"), sheet.windowTitle());
            EXPECT_EQ("covers", Focus(sheet));
            EXPECT_EQ(2, Find<QComboBox>(sheet, "type").currentIndex());
            EXPECT_EQ(0, Find<QComboBox>(sheet, "origin").currentIndex());
            EXPECT_EQ(2, Find<QComboBox>(sheet, "payment").currentIndex());
            EXPECT_EQ(QStringLiteral("0,25"), Find<QLineEdit>(sheet, "weight").text());
            TypeText(sheet, "covers", "4");
            EXPECT_EQ(QStringLiteral("1"), Find<QLineEdit>(sheet, "weight").text());
            Click(sheet, "useRange");
            TypeText(sheet, "useFrom", "2,5");
            TypeText(sheet, "useTo", "1");
            Pick(sheet, "payment", 1);
            Click(sheet, "finish");
        });
        Click(dialog, "button32793");
        EXPECT_EQ("Čep|1,00|1,00|2,50|1,00|prodejní|dovezený do ČR|zpoplatněný",
                  Rows(Find<RecordList>(dialog, "items")));
        TypeText(dialog, "name", "  Nový ");
        TypeText(dialog, "note", "poznámka");
        Click(dialog, "ok");
    });
    view.Run(Command::ID_RECORD_ADD);
    EXPECT_EQ("3|Nový |poznámka", folder.AskAll("SELECT ccover_id, ccover_name, ccover_note FROM CompCover WHERE "
                                                "ccover_id = 3"));
    EXPECT_EQ(std::string(StoredItems) + " 3|2|40000|10000|0|25000|10000|2|0|1", folder.AskAll(AllItems));
    EXPECT_EQ(3, List().SelectedId());
}

TEST_F(CompCoverRegisterTest, EditingReplacesTheItems) {
    Edit([&](QWidget& dialog) {
        auto& items = Find<RecordList>(dialog, "items");
        TypeText(dialog, "name", "Sada 2");
        // The range of a rule that applies always stays as it was stored.
        items.SelectRow(1);
        steps.Then([](QWidget& sheet) {
            EXPECT_EQ(QStringLiteral("OK"), Find<QPushButton>(sheet, "finish").text());
            EXPECT_FALSE(Find<QPushButton>(sheet, "back").isVisible());
            EXPECT_TRUE(Find<QRadioButton>(sheet, "useRange").isChecked());
            EXPECT_EQ(QStringLiteral("9,9"), Find<QLineEdit>(sheet, "useTo").text());
            Click(sheet, "useAlways");
            EXPECT_FALSE(Find<QLineEdit>(sheet, "useFrom").isEnabled());
            TypeText(sheet, "covers", "0,0001");
            Click(sheet, "finish");
        });
        DoubleClickRow(items, 1);
        EXPECT_EQ("Čep|0,00|1,00|-|-|prodejní|dovezený do ČR|předplacený",
                  Rows(items).substr(Rows(items).find('\n') + 1));
        Click(dialog, "ok");
    });
    EXPECT_EQ("1|Sada 2|dvě 2|Balík|", folder.AskAll(Composites));
    EXPECT_EQ("2|3|10000|10000|1|7|8|2|0|2 1|2|1|10000|1|5000|99000|2|0|2 1|1|15000|120000|1|null|null|1|1|1",
              folder.AskAll(AllItems));
    EXPECT_EQ(1, List().SelectedId());
}

TEST_F(CompCoverRegisterTest, ChecksInOrderAndPutsTheFocusOnTheFault) {
    Edit([&](QWidget& dialog) {
        auto& items = Find<RecordList>(dialog, "items");
        TypeText(dialog, "name", "   ");
        messages.Expect(Czech("Není zadáno jméno!"), Message::Icon::Warning);
        Click(dialog, "ok");
        EXPECT_EQ("name", Focus(dialog));
        while (items.RowCount() > 0)
            Click(dialog, "button32792");
        for (const char* button : {"button32790", "button32792"}) {
            messages.Expect(Czech("Není vybrán obal !"), Message::Icon::Warning);
            Click(dialog, button);
        }
        messages.Expect(Czech("Není zadáno jméno!"), Message::Icon::Warning);
        Click(dialog, "ok");
        TypeText(dialog, "name", "Jméno");
        messages.Expect(Czech("Není vybrán žádný obal!"), Message::Icon::Warning);
        Click(dialog, "ok");
        EXPECT_EQ("items", Focus(dialog));
        EXPECT_TRUE(dialog.isVisible());
        Click(dialog, "cancel");
    });
    EXPECT_EQ(StoredItems, folder.AskAll(AllItems));
}

TEST_F(CompCoverRegisterTest, ThePackagingPageChecksInOrder) {
    struct Case {
        const char* what;
        std::function<void(QWidget&)> spoil;
        const char* message;
        const char* focus;
    };
    const auto none = [](const char* combo) {
        return [combo](QWidget& sheet) { Find<QComboBox>(sheet, combo).setCurrentIndex(-1); };
    };
    const auto products = [](const char* text) {
        return [text](QWidget& sheet) {
            Find<QLineEdit>(Find<QWidget>(sheet, "products"), "").setText(QString::fromUtf8(text));
        };
    };
    const std::vector<Case> cases = {
        {"covers", [](QWidget& s) { TypeText(s, "covers", "0"); }, "Množství obalu musí být větší než 0", "covers"},
        {"no covers", [](QWidget& s) { TypeText(s, "covers", ""); }, "Množství obalu musí být větší než 0", "covers"},
        {"products", products("0"), "Počet balených produktů musí být větší než 0", "products"},
        {"type", none("type"), "Není vybrán typ", "type"},
        {"origin", none("origin"), "Není vybrán původ", "origin"},
        {"payment", none("payment"), "Není vybrána platba", "payment"},
        {"all",
         [&](QWidget& s) {
             for (const char* combo : {"payment", "origin", "type"})
                 none(combo)(s);
             products("-1")(s);
         },
         "Počet balených produktů musí být větší než 0", "products"},
    };
    Edit([&](QWidget& dialog) {
        for (const Case& each : cases) {
            SCOPED_TRACE(each.what);
            steps.Then([&](QWidget& sheet) {
                each.spoil(sheet);
                messages.Expect(Czech(each.message), Message::Icon::Warning);
                Click(sheet, "finish");
                EXPECT_TRUE(sheet.isVisible());
                EXPECT_EQ(each.focus, Focus(sheet));
                Click(sheet, "cancel");
            });
            Click(dialog, "button32790");
        }
        Click(dialog, "cancel");
    });
}

TEST_F(CompCoverRegisterTest, TheProductsStepThroughWholeNumbers) {
    Edit([&](QWidget& dialog) {
        steps.Then([](QWidget& sheet) {
            auto& products = Find<QWidget>(sheet, "products");
            auto& edit = Find<QLineEdit>(products, "");
            const auto press = [&](const char* from, Qt::Key key) {
                edit.setText(QString::fromUtf8(from));
                QTest::keyClick(&products, key);
                return edit.text().toStdString();
            };
            EXPECT_EQ("13", press("12", Qt::Key_Up));
            EXPECT_EQ("3", press("2,75", Qt::Key_Up));
            EXPECT_EQ("1", press("1", Qt::Key_Down));
            EXPECT_EQ("65535", press("65535", Qt::Key_Up));
            EXPECT_EQ("65535", press("99999,5", Qt::Key_Up));
            Click(sheet, "cancel");
        });
        Click(dialog, "button32790");
        Click(dialog, "cancel");
    });
}

TEST_F(CompCoverRegisterTest, OffersTheMenuOfTheComposition) {
    Edit([&](QWidget& dialog) {
        for (const bool onRow : {true, false}) {
            emit Find<RecordList>(dialog, "items").menuWanted(dialog.mapToGlobal(QPoint(50, 50)), onRow);
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(nullptr, menu);
            QStringList texts;
            for (const QAction* action : menu->actions())
                texts.append(action->text() + (action->isEnabled() ? QStringLiteral(" on") : QStringLiteral(" off")));
            EXPECT_EQ(onRow ? "&Přidat\tIns on, &Upravit on, &Odstranit\tDel on"
                            : "&Přidat\tIns on, &Upravit off, &Odstranit\tDel off",
                      texts.join(QStringLiteral(", ")).toStdString());
            menu->close();
        }
        Click(dialog, "cancel");
    });
}

TEST_F(CompCoverRegisterTest, OpensTheGuideAtItsPage) {
    std::vector<HelpContext> opened;
    const HelpDoor before = SetHelpDoor([&](HelpContext context) { opened.push_back(context); });
    Edit([&](QWidget& dialog) {
        Click(dialog, "help");
        Click(dialog, "cancel");
    });
    SetHelpDoor(before);
    EXPECT_EQ(std::vector<HelpContext>{HelpContext::CompositeCover}, opened);
}

TEST_F(CompCoverRegisterTest, FailuresWhileCopyingLeaveWhatWasWritten) {
    struct Case {
        const char* what;
        const char* trigger;
        const char* items;
        const char* composites;
    };
    const std::vector<Case> cases = {
        {"the name", "BEFORE UPDATE ON CompCover", StoredItems, "1|Sada|dvě 2|Balík|"},
        {"the old items", "BEFORE DELETE ON CompCover_Item", StoredItems, "1|Jiná|dvě 2|Balík|"},
        {"the second item", "BEFORE INSERT ON CompCover_Item WHEN NEW.cover_id = 1",
         "2|3|10000|10000|1|7|8|2|0|2 1|2|30000|10000|0|5000|99000|2|0|2", "1|Jiná|dvě 2|Balík|"},
    };
    messages.AcceptAny();
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        folder.Sql((std::string("CREATE TRIGGER fault ") + each.trigger + " BEGIN SELECT RAISE(ABORT, 'zkouška'); END")
                       .c_str());
        const std::size_t before = messages.Shown().size();
        List().SelectRow(List().CellText(0, 0) == Czech("Balík") ? 1 : 0);
        steps.Then([](QWidget& dialog) {
            TypeText(dialog, "name", "Jiná");
            Click(dialog, "ok");
        });
        view.Run(Command::ID_RECORD_EDIT);
        ASSERT_EQ(before + 1, messages.Shown().size());
        EXPECT_TRUE(messages.Shown().back().text.startsWith(Czech("Došlo k chybě COM č.0x")));
        EXPECT_EQ(each.items, folder.AskAll(AllItems));
        EXPECT_EQ(each.composites, folder.AskAll(Composites));
        EXPECT_EQ(1, List().SelectedId());
        folder.Sql("DROP TRIGGER fault");
    }
}

TEST_F(CompCoverRegisterTest, OpensWithWhatWasCopiedWhenTheCopyFails) {
    folder.Sql("CREATE TRIGGER fault BEFORE INSERT ON TmpCover_Item WHEN NEW.cover_id = 1 "
               "BEGIN SELECT RAISE(ABORT, 'zkouška'); END");
    messages.AcceptAny();
    Edit([](QWidget& dialog) {
        EXPECT_EQ("Čep", Names(Find<RecordList>(dialog, "items")));
        Click(dialog, "cancel");
    });
    EXPECT_EQ(1u, messages.Shown().size());
}

TEST_F(CompCoverRegisterTest, AVanishedCompositeIsToldAndLeavesTheList) {
    Edit([&](QWidget& dialog) {
        folder.Sql("DELETE FROM CompCover WHERE ccover_id = 1");
        messages.Expect(Czech("Záznam byl odstraněn jinou aplikací!"), Message::Icon::Information);
        Click(dialog, "ok");
    });
    EXPECT_EQ("Balík", Names(List()));
    EXPECT_EQ(StoredItems, folder.AskAll(AllItems));
    folder.Sql("DELETE FROM CompCover");
    messages.Expect(Czech("Záznam byl odstraněn jinou aplikací!"), Message::Icon::Information);
    view.Run(Command::ID_RECORD_EDIT);
    EXPECT_EQ("", Names(List()));
    for (const Command command : {Command::ID_RECORD_EDIT, Command::ID_RECORD_DELETE}) {
        messages.Expect(Czech("Není vybrán obal !"), Message::Icon::Warning);
        view.Run(command);
    }
}

TEST_F(CompCoverRegisterTest, DeletesCompositesForGood) {
    List().selectAll();
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit vybrané kuvel"), Message::Answer::Yes);
    view.Run(Command::ID_RECORD_DELETE);
    EXPECT_EQ("", folder.AskAll(AllItems));
    EXPECT_EQ("", folder.AskAll(Composites));
    EXPECT_EQ(0, List().RowCount());
}

TEST(CompCoverFilters, BecomeClauses) {
    struct Case {
        CompCoverFilter filter;
        const char* sql;
    };
    const QString text = QStringLiteral("x'y");
    for (const Case& each : std::vector<Case>{
             {{}, ""},
             {{true, text, false, false, {}, false}, " WHERE (ccover_name = 'x'y')"},
             {{true, text, true, false, {}, false}, " WHERE (ccover_name LIKE '%x'y%')"},
             {{false, text, true, true, text, false}, " WHERE (ccover_note = 'x'y')"},
             {{true, text, true, true, text, true}, " WHERE (ccover_name LIKE '%x'y%') AND (ccover_note LIKE '%x'y%')"},
         })
        EXPECT_EQ(each.sql, each.filter.Clauses());
}

TEST_F(CompCoverRegisterTest, FiltersByNoteAlone) {
    auto& button = Find<CIconButton>(view, "button32794");
    steps.Then([](QWidget& dialog) {
        EXPECT_EQ(Czech("Filtr výdejů"), dialog.windowTitle());
        EXPECT_FALSE(Find<QLineEdit>(dialog, "note").isEnabled());
        Click(dialog, "byNote");
        EXPECT_TRUE(Find<QCheckBox>(dialog, "notePart").isEnabled());
        TypeText(dialog, "note", "DVĚ");
        Click(dialog, "ok");
    });
    Click(view, "button32794");
    EXPECT_EQ("Sada", Names(List()));
    EXPECT_TRUE(button.IsLatched());
    steps.Then([](QWidget& dialog) {
        Click(dialog, "byNote");
        Click(dialog, "ok");
    });
    Click(view, "button32794");
    EXPECT_EQ("Balík, Sada", Names(List()));
    EXPECT_FALSE(button.IsLatched());
}

TEST_F(CompCoverRegisterTest, AFilterTextWithAnApostropheShowsTheErrorAndAnEmptyList) {
    messages.AcceptAny();
    steps.Then([](QWidget& dialog) {
        Click(dialog, "byName");
        TypeText(dialog, "name", "it's");
        Click(dialog, "ok");
    });
    view.Run(Command::ID_RECORD_FILTER);
    ASSERT_EQ(1u, messages.Shown().size());
    EXPECT_EQ(Message::Icon::Error, messages.Shown()[0].icon);
    EXPECT_EQ(0, List().RowCount());
}

} // namespace
