#include "registers/HelpDoor.h"
#include "registers/IconButton.h"
#include "registers/ProdFilter.h"
#include "tests/gui/ProductFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>

namespace {

class ProductRegisterTest : public ProductFixture {};

constexpr const char* AllProducts =
    "SELECT prod_id, prod_name, prod_katalog, prod_unit, prod_source, prod_scrid, deleted FROM Product";

TEST_F(ProductRegisterTest, ShowsTheThreeLists) {
    EXPECT_EQ("77|Čaj|C-10|ks\n|Chléb|B-3|ks\n|Káva|K-2|kg", Rows(Products()));
    EXPECT_EQ("01.01.2012\n01.06.2012", Rows(Dates()));
    EXPECT_EQ(1, Dates().SelectedRow()) << "the newest date";
    EXPECT_EQ("Fólie|0,50|1,00|-|-|prodejní|dovezený do ČR|zpoplatněný\n"
              "Krabice|2,00|10,00|1,00|100,00|skupinový|nakoupený v ČR|předplacený",
              Rows(Packaging()));
    EXPECT_EQ(0, Packaging().SelectedRow());

    ClickRow(Dates(), 0);
    EXPECT_EQ("Štítek||1,00|-|-|přepravní|vyrobený v ČR|neplacený", Rows(Packaging()));
    ClickRow(Products(), 1);
    EXPECT_EQ("", Rows(Dates()) + Rows(Packaging()));
    ClickRow(Products(), 2);
    EXPECT_EQ("01.02.2012", Rows(Dates()));
    EXPECT_EQ("", Rows(Packaging()));
}

TEST_F(ProductRegisterTest, ShowsItsTitlesAndHeaders) {
    const auto headers = [](RecordList& list) {
        QStringList texts;
        for (int column = 0; column < list.model()->columnCount(); ++column)
            texts.append(list.model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        return texts.join(QLatin1Char('|')).toStdString();
    };
    EXPECT_EQ("ID|Název|Kat. č.|Jednotka", headers(Products()));
    EXPECT_EQ("Platné od", headers(Dates()));
    EXPECT_EQ("Název|Hmotnost [kg]|Počet výr.|Použít od|Použít do|Typ|Původ|Platba", headers(Packaging()));
    EXPECT_FALSE(Dates().showGrid());
    EXPECT_TRUE(Packaging().showGrid());
}

TEST_F(ProductRegisterTest, SortsByEveryColumn) {
    // Text of a code and the code itself order these rows differently.
    folder.Sql("INSERT INTO Prod_Cover (dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, cp_useto, "
               "cover_type, cover_org, cover_pay) VALUES (2, 3, 50000, 20000, 0, 20000, 950000, 0, 2, 0)");
    view.Run(Command::ID_RECORD_REFRESH);
    struct Case {
        bool products;
        int column;
        const char* up;
        const char* down;
    };
    const std::vector<Case> cases = {
        {true, 0, "Chléb, Káva, Čaj", "Čaj, Káva, Chléb"},
        {true, 1, "Čaj, Chléb, Káva", "Káva, Chléb, Čaj"},
        {true, 2, "Chléb, Čaj, Káva", "Káva, Čaj, Chléb"},
        {false, 1, "Štítek, Fólie, Krabice", "Krabice, Fólie, Štítek"},
        {false, 0, "Fólie, Krabice, Štítek", "Štítek, Krabice, Fólie"},
        {false, 2, "Fólie, Štítek, Krabice", "Krabice, Štítek, Fólie"},
        {false, 3, "Krabice, Štítek, Fólie", "Fólie, Štítek, Krabice"},
        {false, 4, "Fólie, Štítek, Krabice", "Krabice, Štítek, Fólie"},
        {false, 5, "Štítek, Krabice, Fólie", "Fólie, Krabice, Štítek"},
        {false, 6, "Fólie, Krabice, Štítek", "Štítek, Krabice, Fólie"},
        {false, 7, "Štítek, Fólie, Krabice", "Krabice, Fólie, Štítek"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.column);
        if (!each.products)
            ClickRow(Products(), 1);
        const auto order = [&] { return each.products ? ProductNames() : Names(Packaging()); };
        RecordList& list = each.products ? Products() : Packaging();
        ClickHeader(list, each.column);
        EXPECT_EQ(each.up, order());
        ClickHeader(list, each.column);
        EXPECT_EQ(each.down, order());
        EXPECT_TRUE(list.SortDescending());
    }
    EXPECT_EQ(0, Packaging().SelectedRow()) << "a sorted detail list begins anew";
}

TEST_F(ProductRegisterTest, TheNameOrdersTheProductsFirstAndDatesHaveNoSort) {
    EXPECT_EQ(1, Products().SortColumn());
    ClickHeader(Products(), 1);
    EXPECT_EQ("Káva, Chléb, Čaj", ProductNames()) << "a click on the sort column turns it";
    EXPECT_EQ(1, Products().SelectedId()) << "the selection stays";
    ClickHeader(Dates(), 0);
    EXPECT_EQ("01.01.2012, 01.06.2012", Names(Dates()));
}

TEST_F(ProductRegisterTest, AddsAProductWithTheKeysAlone) {
    steps.Then([](QWidget& dialog) {
        EXPECT_EQ(Czech("Detail produktu"), dialog.windowTitle());
        EXPECT_EQ("name", Focus(dialog));
        TypeText(dialog, "name", "  Džus   ");
        TypeText(dialog, "katalog", "D 'x'  ");
        TypeText(dialog, "unit", "l  ");
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    view.Run(Command::ID_RECORD_ADD);
    EXPECT_EQ("  Džus;D 'x';l  ;null;null;0",
              folder.AskAll("SELECT prod_name || ';' || prod_katalog || ';' || prod_unit || ';' || "
                            "ifnull(prod_source, 'null') || ';' || ifnull(prod_scrid, 'null') || ';' || deleted FROM "
                            "Product WHERE prod_id = 5"));
    EXPECT_EQ(5, Products().SelectedId());
    EXPECT_TRUE(frame.told.empty());
}

TEST_F(ProductRegisterTest, ChecksAProductAndPutsTheFocusOnTheFault) {
    struct Case {
        std::string name;
        std::string katalog;
        std::string unit;
        const char* message;
        const char* focus;
    };
    const std::string blanks(3, ' ');
    const std::vector<Case> cases = {
        {"", "", "ks", "Musíte zadat jméno nebo katalog!", "name"},
        {blanks, blanks, "", "Musíte zadat jméno nebo katalog!", "name"},
        {std::string(51, 'x'), "", "", "Zadejte nejvýše 50 znaků.", "name"},
        {"x", std::string(21, 'x'), "", "Zadejte nejvýše 20 znaků.", "katalog"},
        {"x", "", std::string(11, 'x'), "Zadejte nejvýše 10 znaků.", "unit"},
    };
    const std::string before = folder.AskAll(AllProducts);
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name + "/" + each.katalog + "/" + each.unit);
        steps.Then([&](QWidget& dialog) {
            TypeText(dialog, "name", each.name.c_str());
            TypeText(dialog, "katalog", each.katalog.c_str());
            TypeText(dialog, "unit", each.unit.c_str());
            Find<QWidget>(dialog, "ok").setFocus();
            messages.Expect(Czech(each.message), Message::Icon::Warning);
            Click(dialog, "ok");
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(each.focus, Focus(dialog));
            Click(dialog, "cancel");
        });
        view.Run(Command::ID_RECORD_ADD);
    }
    EXPECT_EQ(before, folder.AskAll(AllProducts));

    // Either of the two is enough, and the longest texts fit.
    steps.Then([&](QWidget& dialog) {
        TypeText(dialog, "name", std::string(50, 'x').c_str());
        TypeText(dialog, "katalog", std::string(20, 'x').c_str());
        TypeText(dialog, "unit", std::string(10, 'x').c_str());
        Click(dialog, "ok");
    });
    view.Run(Command::ID_RECORD_ADD);
    steps.Then([&](QWidget& dialog) {
        TypeText(dialog, "katalog", "jen katalog");
        Click(dialog, "ok");
    });
    view.Run(Command::ID_RECORD_ADD);
    EXPECT_EQ("|jen katalog|",
              folder.AskAll("SELECT prod_name, prod_katalog, prod_unit FROM Product WHERE prod_id = 6"));
}

TEST_F(ProductRegisterTest, EditsTheFocusedProduct) {
    ClickRow(Products(), 2);
    steps.Then([](QWidget& dialog) {
        auto& name = Find<QLineEdit>(dialog, "name");
        EXPECT_EQ("name", Focus(dialog));
        EXPECT_EQ(Czech("Káva"), name.selectedText());
        EXPECT_EQ(QStringLiteral("K-2"), Find<QLineEdit>(dialog, "katalog").text());
        EXPECT_EQ(QStringLiteral("kg"), Find<QLineEdit>(dialog, "unit").text());
        TypeText(dialog, "name", "Zelená káva");
        Click(dialog, "ok");
    });
    view.Run(Command::ID_RECORD_EDIT);
    EXPECT_EQ("2|Zelená káva|K-2|kg|0|5|0", folder.AskAll((std::string(AllProducts) + " WHERE prod_id = 2").c_str()));
    EXPECT_EQ(2, Products().SelectedId());
    EXPECT_EQ("Čaj, Chléb, Zelená káva", ProductNames());

    steps.Then([](QWidget& dialog) {
        TypeText(dialog, "name", "Jinak");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    view.Run(Command::ID_RECORD_EDIT);
    EXPECT_EQ("Zelená káva", folder.AskAll("SELECT prod_name FROM Product WHERE prod_id = 2"));
}

TEST_F(ProductRegisterTest, OpensTheGuide) {
    std::vector<HelpContext> opened;
    const HelpDoor before = SetHelpDoor([&](HelpContext context) { opened.push_back(context); });
    steps.Then([](QWidget& dialog) {
        Click(dialog, "help");
        Click(dialog, "cancel");
    });
    view.Run(Command::ID_RECORD_ADD);
    SetHelpDoor(before);
    EXPECT_EQ(std::vector<HelpContext>{HelpContext::Product}, opened);
}

TEST_F(ProductRegisterTest, AVanishedProductIsToldAndLeavesTheList) {
    folder.Sql("DELETE FROM Product WHERE prod_id = 1");
    ExpectVanished();
    view.Run(Command::ID_RECORD_EDIT);
    EXPECT_EQ("Chléb, Káva", ProductNames());
    EXPECT_EQ(-1, Products().SelectedRow());
    EXPECT_EQ("", Rows(Dates()) + Rows(Packaging())) << "what hung on it";

    ClickRow(Products(), 1);
    steps.Then([&](QWidget& dialog) {
        TypeText(dialog, "name", "Jinak");
        folder.Sql("DELETE FROM Product WHERE prod_id = 2");
        ExpectVanished();
        Click(dialog, "ok");
    });
    view.Run(Command::ID_RECORD_EDIT);
    EXPECT_EQ("Chléb", ProductNames());
    EXPECT_EQ("3 4", folder.AskAll("SELECT prod_id FROM Product"));
    EXPECT_EQ("", Rows(Dates()));
}

TEST_F(ProductRegisterTest, DeletingMarksProductsAndTakesTheirDefinitions) {
    ClickRow(Products(), 0);
    ClickRow(Products(), 1, Qt::ControlModifier);
    const QString question = Czech("Opravdu si přejete odstranit vybrané produkty");
    messages.ExpectQuestion(question, Message::Answer::No);
    view.Run(Command::ID_RECORD_DELETE);
    EXPECT_EQ(3, Products().RowCount());

    messages.ExpectQuestion(question, Message::Answer::Yes);
    view.Run(Command::ID_RECORD_DELETE);
    EXPECT_EQ("Káva", ProductNames());
    EXPECT_EQ("1 3 4", folder.AskAll("SELECT prod_id FROM Product WHERE deleted = 1 ORDER BY prod_id"));
    EXPECT_EQ("1 3", folder.AskAll("SELECT id FROM TmpID"));
    EXPECT_EQ("3|2|2012-02-01_00:00:00", StoredDates());
    EXPECT_EQ("", StoredPackaging());
    EXPECT_EQ(ByHand, Issued()) << "issues keep their packaging";
    EXPECT_EQ("3", folder.AskAll("SELECT count(*) FROM Move_Prod"));
    ExpectTold(0);
}

TEST_F(ProductRegisterTest, ADeletionThatFailsHalfWayKeepsTheProducts) {
    Fault("DELETE ON Prod_CoverDT");
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit vybrané produkty"), Message::Answer::Yes);
    messages.AcceptAny();
    view.Run(Command::ID_RECORD_DELETE);
    EXPECT_EQ(Message::Icon::Error, messages.Shown().back().icon);
    EXPECT_EQ("Čaj, Chléb, Káva", ProductNames());
    EXPECT_EQ("", Rows(Packaging())) << "the rows went before the error, and the lists show it";
    EXPECT_EQ(2, Dates().RowCount());
}

TEST_F(ProductRegisterTest, WithoutASelectionWarnsAndRunsNothing) {
    folder.Sql("INSERT INTO TmpID VALUES (77); DELETE FROM Product");
    view.Run(Command::ID_RECORD_REFRESH);
    const struct {
        Command command;
        const char* text;
    } cases[] = {
        {Command::ID_RECORD_EDIT, "Není vybrán produkt !"},        {Command::ID_RECORD_DELETE, "Není vybrán produkt !"},
        {Command::ID_DETAIL_ADD, "Není vybrán produkt !"},         {Command::ID_DETAIL_EDIT, "Není vybráno datum !"},
        {Command::ID_DETAIL_DELETE, "Není vybráno datum !"},       {Command::ID_SUBDETAIL_ADD, "Není vybráno datum !"},
        {Command::ID_SUBDETAIL_EDIT, "Není vybrán obal !"},        {Command::ID_SUBDETAIL_DELETE, "Není vybrán obal !"},
        {Command::ID_PROD_ASSIGN_COVERS, "Není vybrán produkt !"},
    };
    for (const auto& each : cases) {
        messages.Expect(Czech(each.text), Message::Icon::Warning);
        view.Run(each.command);
    }
    EXPECT_EQ("77", folder.AskAll("SELECT id FROM TmpID"));
}

TEST_F(ProductRegisterTest, TwoProductsDisableTheDetails) {
    const std::string before = StoredDates() + StoredPackaging();
    ClickRow(Products(), 2, Qt::ControlModifier);
    for (RecordList* list : {&Dates(), &Packaging()}) {
        EXPECT_FALSE(list->isEnabled());
        EXPECT_EQ("", Rows(*list));
    }
    const std::vector<Command> details = {Command::ID_DETAIL_ADD,     Command::ID_DETAIL_EDIT,
                                          Command::ID_DETAIL_DELETE,  Command::ID_SUBDETAIL_ADD,
                                          Command::ID_SUBDETAIL_EDIT, Command::ID_SUBDETAIL_DELETE};
    const auto button = [&](Command command) -> CIconButton& {
        return Find<CIconButton>(view, ("button" + std::to_string(static_cast<int>(command))).c_str());
    };
    for (const Command command : details) {
        EXPECT_FALSE(button(command).isEnabled());
        view.Run(command); // no message, no dialog
    }
    view.Receive(ViewMessage::WM_COVERS_CHANGED);
    view.Receive(ViewMessage::Refresh);
    ClickRow(Products(), 2, Qt::ControlModifier);
    EXPECT_EQ(before, StoredDates() + StoredPackaging());

    ClickRow(Products(), 0);
    for (const Command command : details)
        EXPECT_TRUE(button(command).isEnabled());
    EXPECT_EQ(2, Packaging().RowCount());
}

TEST_F(ProductRegisterTest, FiltersByWhatIsTicked) {
    folder.Sql("INSERT INTO Product (prod_name, prod_katalog, prod_unit) VALUES ('Černý čaj ', 'XC-10', 'KS')");
    struct Case {
        const char* what;
        std::function<void(QWidget&)> set;
        const char* names;
        bool latched;
    };
    const auto ticked = [](std::vector<const char*> checks, const char* edit, const char* text) {
        return [checks = std::move(checks), edit, text](QWidget& dialog) {
            for (const char* check : checks)
                Click(dialog, check);
            TypeText(dialog, edit, text);
        };
    };
    const auto criterion = [](int row) { return [row](QWidget& dialog) { Pick(dialog, "criterion", row); }; };
    const std::vector<Case> cases = {
        {"nothing", [](QWidget&) {}, "Čaj, Černý čaj , Chléb, Káva", false},
        {"name", ticked({"byName"}, "name", "čaj"), "Čaj", true},
        {"part of the name", ticked({"byName", "namePart"}, "name", "ČAJ"), "Čaj, Černý čaj ", true},
        {"text as typed", ticked({"byName", "namePart"}, "name", "čaj "), "Černý čaj ", true},
        {"katalog", ticked({"byKatalog"}, "katalog", "C-10"), "Čaj", true},
        {"part of the katalog", ticked({"byKatalog", "katalogPart"}, "katalog", "C-1"), "Čaj, Černý čaj ", true},
        {"unit", ticked({"byUnit"}, "unit", "ks"), "Čaj, Černý čaj , Chléb", true},
        {"no part of a unit", ticked({"byUnit"}, "unit", "k"), "", true},
        {"with packaging", criterion(1), "Čaj", true},
        {"without packaging", criterion(2), "Černý čaj , Chléb, Káva", true},
        {"all of them",
         [&](QWidget& dialog) {
             criterion(2)(dialog);
             ticked({"byUnit"}, "unit", "ks")(dialog);
             ticked({"byName", "namePart"}, "name", "ch")(dialog);
         },
         "Chléb", true},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        steps.Then([&](QWidget& dialog) {
            EXPECT_EQ(Czech("Filtr produktů"), dialog.windowTitle());
            for (const char* check : {"byName", "byKatalog", "byUnit"})
                Find<QCheckBox>(dialog, check).setChecked(true), Click(dialog, check);
            Find<QCheckBox>(dialog, "namePart").setChecked(false);
            Find<QCheckBox>(dialog, "katalogPart").setChecked(false);
            Pick(dialog, "criterion", 0);
            each.set(dialog);
            Click(dialog, "ok");
        });
        view.Run(Command::ID_RECORD_FILTER);
        EXPECT_EQ(each.names, ProductNames());
        EXPECT_EQ(each.latched, Find<CIconButton>(view, "button32794").IsLatched());
    }
    EXPECT_EQ(3, Products().SelectedId());
}

TEST_F(ProductRegisterTest, TheFilterIsWrittenInItsOrder) {
    ProdFilter filter;
    EXPECT_EQ("", filter.Clauses());
    filter.byName = filter.byKatalog = filter.byUnit = true;
    filter.name = QStringLiteral("a");
    filter.katalog = QStringLiteral("b");
    filter.unit = QStringLiteral("c");
    filter.coverCriterion = ProdFilter::Without;
    EXPECT_EQ(" AND (prod_name = 'a') AND (prod_katalog = 'b') AND prod_unit = 'c' AND prod_id NOT IN (SELECT "
              "Prod_CoverDT.prod_id FROM Prod_CoverDT INNER JOIN Prod_Cover ON Prod_CoverDT.dt_id = Prod_Cover.dt_id)",
              filter.Clauses());
    filter.namePart = filter.katalogPart = true;
    filter.byUnit = false;
    filter.coverCriterion = ProdFilter::With;
    EXPECT_EQ(" AND (prod_name LIKE '%a%') AND (prod_katalog LIKE '%b%') AND prod_id IN (SELECT "
              "Prod_CoverDT.prod_id FROM Prod_CoverDT INNER JOIN Prod_Cover ON Prod_CoverDT.dt_id = Prod_Cover.dt_id)",
              filter.Clauses());
}

TEST_F(ProductRegisterTest, TheFilterDialogFollowsItsChecks) {
    steps.Then([&](QWidget& dialog) {
        const auto enabled = [&](const char* name) { return Find<QWidget>(dialog, name).isEnabled(); };
        auto& criterion = Find<QComboBox>(dialog, "criterion");
        QStringList texts;
        for (int i = 0; i < criterion.count(); ++i)
            texts.append(criterion.itemText(i));
        EXPECT_EQ("všechny produkty|jen produkty s definovanými kuvel|jen produkty bez obalů",
                  texts.join(QLatin1Char('|')).toStdString());
        EXPECT_EQ(0, criterion.currentIndex());
        for (const auto& [check, controls] : std::vector<std::pair<const char*, std::vector<const char*>>>{
                 {"byName", {"name", "namePart"}}, {"byKatalog", {"katalog", "katalogPart"}}, {"byUnit", {"unit"}}}) {
            for (const char* control : controls)
                EXPECT_FALSE(enabled(control));
            Click(dialog, check);
            for (const char* control : controls)
                EXPECT_TRUE(enabled(control));
        }
        criterion.setCurrentIndex(-1);
        messages.Expect(Czech("Není vybráno kriterium balení!"), Message::Icon::Warning);
        Click(dialog, "ok");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ("criterion", Focus(dialog));
        Pick(dialog, "criterion", 2);
        TypeText(dialog, "unit", "ks");
        Click(dialog, "byName");
        Click(dialog, "byKatalog");
        Click(dialog, "ok");
    });
    view.Run(Command::ID_RECORD_FILTER);
    EXPECT_EQ("Chléb", ProductNames());

    // It opens on what is in force; cancelled, it changes nothing.
    steps.Then([&](QWidget& dialog) {
        EXPECT_TRUE(Find<QWidget>(dialog, "unit").isEnabled());
        EXPECT_FALSE(Find<QWidget>(dialog, "name").isEnabled());
        EXPECT_EQ(2, Find<QComboBox>(dialog, "criterion").currentIndex());
        Pick(dialog, "criterion", 0);
        Click(dialog, "cancel");
    });
    view.Run(Command::ID_RECORD_FILTER);
    EXPECT_EQ("Chléb", ProductNames());
    EXPECT_TRUE(Find<CIconButton>(view, "button32794").IsLatched());
}

TEST_F(ProductRegisterTest, AnApostropheInTheFilterIsReportedAsTheDatabasesError) {
    steps.Then([](QWidget& dialog) {
        Click(dialog, "byName");
        TypeText(dialog, "name", "d'Or");
        Click(dialog, "ok");
    });
    messages.AcceptAny();
    view.Run(Command::ID_RECORD_FILTER);
    ASSERT_EQ(1u, messages.Shown().size());
    EXPECT_EQ(Message::Icon::Error, messages.Shown()[0].icon);
    EXPECT_TRUE(messages.Shown()[0].text.startsWith(Czech("Došlo k chybě COM č.0x")));
    EXPECT_TRUE(Find<CIconButton>(view, "button32794").IsLatched());
}

TEST_F(ProductRegisterTest, EachNotificationReloadsItsList) {
    ClickRow(Products(), 2);
    folder.Sql("INSERT INTO Product (prod_name) VALUES ('Aaa')");
    view.Receive(ViewMessage::WM_MOVES_CHANGED);
    view.Receive(ViewMessage::WM_COVERS_CHANGED);
    EXPECT_EQ(3, Products().RowCount());
    view.Receive(ViewMessage::WM_PRODUCTS_CHANGED);
    EXPECT_EQ("Aaa, Čaj, Chléb, Káva", ProductNames());
    EXPECT_EQ(2, Products().SelectedId());

    ClickRow(Products(), 1);
    ClickRow(Dates(), 0);
    folder.Sql("UPDATE Prod_Cover SET cover_pay = 2; INSERT INTO Prod_CoverDT (prod_id, dt_from) VALUES (1, "
               "'2012-07-01 00:00:00')");
    view.Receive(ViewMessage::WM_COVERS_CHANGED);
    EXPECT_EQ("Štítek||1,00|-|-|přepravní|vyrobený v ČR|předplacený", Rows(Packaging()));
    EXPECT_EQ(2, Dates().RowCount());
    view.Receive(ViewMessage::Refresh);
    EXPECT_EQ(3, Dates().RowCount());
    EXPECT_EQ(2, Dates().SelectedRow()) << "a fill selects the newest date";
}

TEST_F(ProductRegisterTest, TheMenuOfProductsOffersTheAssignment) {
    for (const bool onRow : {true, false}) {
        emit Products().menuWanted(view.mapToGlobal(QPoint(50, 50)), onRow);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(nullptr, menu);
        QStringList texts;
        for (const QAction* action : menu->actions())
            texts.append(action->isSeparator() ? QStringLiteral("|")
                                               : action->text().section(QLatin1Char('\t'), 0, 0) +
                                                     (action->isEnabled() ? QStringLiteral("+") : QStringLiteral("-")));
        EXPECT_EQ(onRow ? "&Přidat+ &Upravit+ &Odstranit+ | Hromadně přiř&adit kuvel+ |"
                        : "&Přidat+ &Upravit- &Odstranit- | Hromadně přiř&adit kuvel- |",
                  texts.mid(0, 6).join(QLatin1Char(' ')).toStdString());
        menu->close();
    }
}

} // namespace
