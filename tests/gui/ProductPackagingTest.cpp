#include "tests/gui/ProductFixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

class ProductPackagingTest : public ProductFixture {
protected:
    static QString Text(QWidget& dialog, const char* edit) { return Find<QLineEdit>(dialog, edit).text(); }
    QString ShownPieceWeight(int coverRow) {
        QString weight;
        steps.Then([&](QWidget& sheet) {
            ChooseCover(sheet, coverRow);
            weight = Text(sheet, "weight");
            Click(sheet, "cancel");
        });
        view.Run(Command::ID_SUBDETAIL_ADD);
        return weight;
    }
};

TEST_F(ProductPackagingTest, AddsARowOfASimpleCover) {
    steps.Then([](QWidget& sheet) {
        EXPECT_EQ(Czech("Vyberte obal"), sheet.windowTitle());
        ChooseCover(sheet, 1);
        EXPECT_EQ(Czech("Údaje balení"), sheet.windowTitle());
        EXPECT_EQ("covers", Focus(sheet));
        EXPECT_EQ(QStringLiteral("1"), Find<QLineEdit>(sheet, "covers").selectedText());
        EXPECT_EQ(QStringLiteral("2"), Text(sheet, "weight"));
        EXPECT_EQ(Czech("skupinový"), Find<QComboBox>(sheet, "type").currentText());
        EXPECT_EQ(Czech("nakoupený v ČR"), Find<QComboBox>(sheet, "origin").currentText());
        EXPECT_EQ(Czech("předplacený"), Find<QComboBox>(sheet, "payment").currentText());
        EXPECT_EQ(Czech("Dokončit"), Find<QPushButton>(sheet, "finish").text());
        TypeText(sheet, "covers", "0,5");
        Pick(sheet, "payment", 1);
        QTest::keyClick(&sheet, Qt::Key_Return);
    });
    view.Run(Command::ID_SUBDETAIL_ADD);
    // Any quantity: the range is not written at all.
    EXPECT_EQ("2|2|5000|10000|1|null|null|1|1|1", StoredPackaging("cp_id > 3"));
    EXPECT_EQ("Fólie, Krabice, Krabice", Names(Packaging()));
    EXPECT_EQ("1|1|500000 1|2|20000 1|2|125000 2|1|100000 2|2|0 2|2|25000 3|3|770000", Issued());
    ExpectTold(1);

    // A range is stored as it was entered, also the wrong way round.
    ClickRow(Dates(), 0);
    steps.Then([](QWidget& sheet) {
        ChooseCover(sheet, 0);
        EXPECT_FALSE(Find<QLineEdit>(sheet, "useFrom").isEnabled());
        EXPECT_FALSE(Find<QLineEdit>(sheet, "useTo").isEnabled());
        Click(sheet, "useRange");
        EXPECT_EQ(QStringLiteral("0"), Text(sheet, "useFrom"));
        EXPECT_EQ(QStringLiteral("1000"), Text(sheet, "useTo"));
        TypeText(sheet, "useFrom", "20,5");
        TypeText(sheet, "useTo", "3");
        Click(sheet, "useAlways");
        EXPECT_FALSE(Find<QLineEdit>(sheet, "useTo").isEnabled());
        Click(sheet, "useRange");
        Click(sheet, "finish");
    });
    view.Run(Command::ID_SUBDETAIL_ADD);
    EXPECT_EQ("1|1|10000|10000|0|205000|30000|2|0|1", StoredPackaging("cp_id > 4"));
}

TEST_F(ProductPackagingTest, AddsTheItemsOfACompositeUnchanged) {
    steps.Then([](QWidget& sheet) {
        // What was entered for a simple cover before does not count.
        ChooseCover(sheet, 0);
        TypeText(sheet, "covers", "9");
        Click(sheet, "back");
        ChooseComposite(sheet, 1);
    });
    view.Run(Command::ID_SUBDETAIL_ADD);
    EXPECT_EQ("2|2|10000|100000|1|null|null|3|2|1 2|1|35000|50000|0|50000|20000|0|1|2 "
              "2|2|12345|0|0|0|70000|null|0|0",
              StoredPackaging("cp_id > 3"));
    EXPECT_EQ(5, Packaging().RowCount());
    ExpectTold(1);

    steps.Then([](QWidget& sheet) { ChooseComposite(sheet, 0); });
    view.Run(Command::ID_SUBDETAIL_ADD);
    EXPECT_EQ("6", folder.Ask("SELECT count(*) FROM Prod_Cover")) << "an empty composite adds nothing";
}

TEST_F(ProductPackagingTest, ACancelledWizardChangesNothing) {
    const std::string before = StoredDates() + StoredPackaging();
    const std::vector<std::pair<Command, std::function<void(QWidget&)>>> cases = {
        {Command::ID_DETAIL_ADD, [](QWidget&) {}},
        {Command::ID_DETAIL_EDIT, [](QWidget& dialog) { ChooseDay(dialog, 2012, 3, 3); }},
        {Command::ID_SUBDETAIL_ADD, [](QWidget&) {}},
        {Command::ID_SUBDETAIL_ADD, [](QWidget& sheet) { ChooseCover(sheet, 0); }},
        {Command::ID_SUBDETAIL_EDIT, [](QWidget& sheet) { TypeText(sheet, "covers", "8"); }},
        {Command::ID_PROD_ASSIGN_COVERS, [](QWidget&) {}},
        {Command::ID_PROD_ASSIGN_COVERS,
         [](QWidget& sheet) {
             Click(sheet, "next");
             ChooseCover(sheet, 0);
         }},
    };
    for (const auto& [command, act] : cases) {
        steps.Then([&act = act](QWidget& dialog) {
            act(dialog);
            Click(dialog, "cancel");
        });
        view.Run(command);
    }
    EXPECT_EQ(before, StoredDates() + StoredPackaging());
    EXPECT_EQ(ByHand, Issued());
    ExpectTold(0);
}

TEST_F(ProductPackagingTest, ChangesARow) {
    struct Case {
        const char* what;
        int row;
        std::function<void(QWidget&)> change;
        const char* stored;
        bool changed;
    };
    const auto type = [](const char* edit, const char* text) {
        return [=](QWidget& sheet) { TypeText(sheet, edit, text); };
    };
    const auto pick = [](const char* combo, int row) { return [=](QWidget& sheet) { Pick(sheet, combo, row); }; };
    const auto products = [](const char* text) {
        return [=](QWidget& sheet) {
            auto& edit = Find<QLineEdit>(Find<QWidget>(sheet, "products"), "");
            edit.selectAll();
            QTest::keyClicks(&edit, QString::fromLatin1(text));
        };
    };
    const std::vector<Case> cases = {
        {"nothing", 0, [](QWidget&) {}, "20000|10000|1|30000|90000|2|0|1", false},
        {"the same again", 0, type("covers", "2,00"), "20000|10000|1|30000|90000|2|0|1", false},
        {"covers", 0, type("covers", "2,0001"), "20001|10000|1|30000|90000|2|0|1", true},
        {"weight", 0, type("weight", "1"), "40000|10000|1|30000|90000|2|0|1", true},
        {"products", 0, products("2,5"), "20000|25000|1|30000|90000|2|0|1", true},
        {"type", 0, pick("type", 3), "20000|10000|1|30000|90000|3|0|1", true},
        {"origin", 0, pick("origin", 2), "20000|10000|1|30000|90000|2|2|1", true},
        {"payment", 0, pick("payment", 0), "20000|10000|1|30000|90000|2|0|0", true},
        {"a range begins with its defaults", 0, [](QWidget& s) { Click(s, "useRange"); },
         "20000|10000|0|0|10000000|2|0|1", true},
        {"from", 1, type("useFrom", "2"), "10000|100000|0|20000|1000000|1|1|2", true},
        {"to", 1, type("useTo", "99,9999"), "10000|100000|0|10000|999999|1|1|2", true},
        {"any quantity leaves the range that was stored", 1,
         [&](QWidget& s) {
             type("useFrom", "7")(s);
             Click(s, "useAlways");
         },
         "10000|100000|1|10000|1000000|1|1|2", true},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        folder.Sql("UPDATE Prod_Cover SET cp_qtycover = 20000, cp_qtyprod = 10000, cp_usealways = 1, cp_usefrom = "
                   "30000, cp_useto = 90000, cover_type = 2, cover_org = 0, cover_pay = 1 WHERE cp_id = 1;"
                   "UPDATE Prod_Cover SET cp_usealways = 0, cp_usefrom = 10000, cp_useto = 1000000 WHERE cp_id = 2;"
                   "DELETE FROM Move_Cover; INSERT INTO Move_Cover (mvprod_id, cover_id, mvcover_qty) VALUES (1, 3, "
                   "770000), (3, 3, 770000)");
        view.Run(Command::ID_RECORD_REFRESH);
        ClickRow(Packaging(), each.row);
        steps.Then([&](QWidget& sheet) {
            EXPECT_EQ(Czech("Údaje balení"), sheet.windowTitle());
            EXPECT_EQ(QStringLiteral("OK"), Find<QPushButton>(sheet, "finish").text());
            each.change(sheet);
            Click(sheet, "finish");
        });
        view.Run(Command::ID_SUBDETAIL_EDIT);
        EXPECT_EQ(each.stored,
                  folder.AskAll(("SELECT cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, cp_useto, cover_type, "
                                 "cover_org, cover_pay FROM Prod_Cover WHERE cp_id = " +
                                 std::to_string(each.row + 1))
                                    .c_str()));
        EXPECT_EQ(!each.changed, Issued() == ByHand) << Issued();
        EXPECT_EQ(0, Packaging().SelectedRow());
        ExpectTold(each.changed ? 1 : 0);
    }
}

TEST_F(ProductPackagingTest, TheListShowsAChangedRow) {
    steps.Then([](QWidget& sheet) {
        TypeText(sheet, "covers", "3");
        Click(sheet, "useRange");
        Click(sheet, "finish");
    });
    view.Run(Command::ID_SUBDETAIL_EDIT);
    EXPECT_EQ("Fólie|0,75|1,00|0,00|1000,00|prodejní|dovezený do ČR|zpoplatněný\n"
              "Krabice|2,00|10,00|1,00|100,00|skupinový|nakoupený v ČR|předplacený",
              Rows(Packaging()));
}

TEST_F(ProductPackagingTest, ChecksTheValuesInOrderAndPutsTheFocusOnTheFault) {
    const auto products = [](QWidget& sheet) -> QLineEdit& {
        return Find<QLineEdit>(Find<QWidget>(sheet, "products"), "");
    };
    const auto none = [](const char* combo) {
        return [combo](QWidget& sheet) { Find<QComboBox>(sheet, combo).setCurrentIndex(-1); };
    };
    struct Case {
        const char* what;
        std::function<void(QWidget&)> spoil;
        const char* message;
        const char* focus;
    };
    const std::vector<Case> cases = {
        {"covers 0", [](QWidget& s) { TypeText(s, "covers", "0"); }, "Množství obalu musí být větší než 0", "covers"},
        {"covers empty", [](QWidget& s) { TypeText(s, "covers", ""); }, "Množství obalu musí být větší než 0",
         "covers"},
        {"covers -1", [](QWidget& s) { TypeText(s, "covers", "-1"); }, "Množství obalu musí být větší než 0", "covers"},
        {"products 0", [&](QWidget& s) { products(s).setText(QStringLiteral("0")); },
         "Počet balených produktů musí být větší než 0", "products"},
        {"type", none("type"), "Není vybrán typ", "type"},
        {"origin", none("origin"), "Není vybrán původ", "origin"},
        {"payment", none("payment"), "Není vybrána platba", "payment"},
        {"all",
         [&](QWidget& s) {
             for (const char* combo : {"type", "origin", "payment"})
                 none(combo)(s);
             products(s).setText({});
         },
         "Počet balených produktů musí být větší než 0", "products"},
    };
    const std::string before = StoredPackaging();
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        steps.Then([&](QWidget& sheet) {
            each.spoil(sheet);
            messages.Expect(Czech(each.message), Message::Icon::Warning);
            Find<QWidget>(sheet, "finish").setFocus();
            Click(sheet, "finish");
            EXPECT_TRUE(sheet.isVisible());
            EXPECT_EQ(each.focus, Focus(sheet));
            Click(sheet, "cancel");
        });
        view.Run(Command::ID_SUBDETAIL_EDIT);
    }
    EXPECT_EQ(before, StoredPackaging());
}

TEST_F(ProductPackagingTest, NumberAndWeightFollowEachOtherWithoutAnEcho) {
    struct Case {
        int pieceWeight; // ten-thousandths of a kilogram
        const char* edit;
        const char* typed;
        const char* other;
        const char* shown;
    };
    const std::vector<Case> cases = {
        {3000, "covers", "3", "weight", "0,9"}, {3000, "weight", "1", "covers", "3,3333"},
        {3000, "weight", "", "covers", "0"},    {3000, "covers", "-2", "weight", "-0,6"},
        {1, "weight", "0,5", "covers", "5000"}, {1, "covers", "0,9999", "weight", "0"},
        {0, "covers", "3", "weight", "0"},      {0, "weight", "3", "covers", "2"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(std::string(each.edit) + " " + each.typed);
        folder.Sql(
            ("UPDATE Cover SET cover_weight = " + std::to_string(each.pieceWeight) + " WHERE cover_id = 1").c_str());
        steps.Then([&](QWidget& sheet) {
            TypeText(sheet, each.edit, each.typed);
            EXPECT_EQ(each.shown, Text(sheet, each.other).toStdString());
            EXPECT_EQ(each.typed, Text(sheet, each.edit).toStdString());
            Click(sheet, "cancel");
        });
        view.Run(Command::ID_SUBDETAIL_EDIT);
    }
    EXPECT_EQ(QStringLiteral("0"), ShownPieceWeight(2)) << "a cover without a weight";
}

TEST_F(ProductPackagingTest, GoingBackToAnotherCoverTakesItsValues) {
    steps.Then([](QWidget& sheet) {
        ChooseCover(sheet, 0);
        TypeText(sheet, "covers", "4");
        Click(sheet, "back");
        ChooseCover(sheet, 1);
        EXPECT_EQ(QStringLiteral("4"), Text(sheet, "covers"));
        EXPECT_EQ(QStringLiteral("8"), Text(sheet, "weight"));
        EXPECT_EQ(Czech("skupinový"), Find<QComboBox>(sheet, "type").currentText());
        Click(sheet, "finish");
    });
    view.Run(Command::ID_SUBDETAIL_ADD);
    EXPECT_EQ("2|2|40000|10000|1|null|null|1|1|2", StoredPackaging("cp_id > 3"));
}

TEST_F(ProductPackagingTest, EmptyQuantitiesOpenAsTheirDefaults) {
    folder.Sql("UPDATE Prod_Cover SET cp_qtycover = NULL, cp_qtyprod = NULL, cp_usealways = NULL, cp_usefrom = NULL, "
               "cp_useto = NULL, cover_type = NULL, cover_org = 9 WHERE cp_id = 1");
    steps.Then([&](QWidget& sheet) {
        EXPECT_EQ(QStringLiteral("1"), Text(sheet, "covers"));
        EXPECT_EQ(QStringLiteral("1"), Find<QLineEdit>(Find<QWidget>(sheet, "products"), "").text());
        EXPECT_TRUE(Find<QRadioButton>(sheet, "useRange").isChecked());
        EXPECT_EQ(QStringLiteral("0"), Text(sheet, "useFrom"));
        EXPECT_EQ(QStringLiteral("1000"), Text(sheet, "useTo"));
        EXPECT_EQ(-1, Find<QComboBox>(sheet, "type").currentIndex());
        EXPECT_EQ(-1, Find<QComboBox>(sheet, "origin").currentIndex());
        Click(sheet, "cancel");
    });
    view.Run(Command::ID_SUBDETAIL_EDIT);
}

TEST_F(ProductPackagingTest, DeletesARow) {
    ClickRow(Packaging(), 1);
    const QString question = Czech("Opravdu si přejete odstranit ze seznamu obal\n\"Krabice\" ?");
    messages.ExpectQuestion(question, Message::Answer::No);
    view.Run(Command::ID_SUBDETAIL_DELETE);
    messages.ExpectQuestion(question, Message::Answer::Yes);
    view.Run(Command::ID_SUBDETAIL_DELETE);
    EXPECT_EQ("1 3", folder.AskAll("SELECT cp_id FROM Prod_Cover"));
    EXPECT_EQ("Fólie", Names(Packaging()));
    EXPECT_EQ("1|1|500000 2|1|100000 3|3|770000", Issued());
    ExpectTold(1);
}

TEST_F(ProductPackagingTest, WithTheOptionOffIssuesKeepWhatTheyCarry) {
    g_options.packagingToIssues = 0;
    const std::vector<std::pair<Command, std::function<void(QWidget&)>>> dialogs = {
        {Command::ID_SUBDETAIL_EDIT, [](QWidget& sheet) { TypeText(sheet, "covers", "8"), Click(sheet, "finish"); }},
        {Command::ID_SUBDETAIL_ADD, [](QWidget& sheet) { ChooseComposite(sheet, 1); }},
        {Command::ID_DETAIL_EDIT, [](QWidget& dialog) { ChooseDay(dialog, 2012, 3, 3), Click(dialog, "ok"); }},
        {Command::ID_DETAIL_ADD, [](QWidget& dialog) { Click(dialog, "ok"); }},
    };
    for (const auto& [command, act] : dialogs) {
        steps.Then(act);
        view.Run(command);
    }
    ClickRow(Dates(), 1);
    messages.AcceptAny();
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit ze seznamu obal\n\"Fólie\" ?"), Message::Answer::Yes);
    view.Run(Command::ID_SUBDETAIL_DELETE);
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit ze seznamu platnost\n\"03.03.2012\" ?"),
                            Message::Answer::Yes);
    view.Run(Command::ID_DETAIL_DELETE);
    EXPECT_EQ("1|1|2012-01-01_00:00:00 3|2|2012-02-01_00:00:00 4|1|2012-07-02_10:15:30", StoredDates());
    EXPECT_EQ(ByHand, Issued());
    ExpectTold(0);
}

TEST_F(ProductPackagingTest, AVanishedRecordIsToldAndLeavesTheList) {
    struct Case {
        const char* what;
        Command command;
        const char* list;
        const char* gone;
        bool during;
    };
    const std::vector<Case> cases = {
        {"row", Command::ID_SUBDETAIL_EDIT, "packaging", "DELETE FROM Prod_Cover WHERE cp_id = 1", false},
        {"row, meanwhile", Command::ID_SUBDETAIL_EDIT, "packaging", "DELETE FROM Prod_Cover WHERE cp_id = 2", true},
        {"date", Command::ID_DETAIL_EDIT, "dates", "DELETE FROM Prod_CoverDT WHERE dt_id = 2", false},
        {"date, meanwhile", Command::ID_DETAIL_EDIT, "dates", "DELETE FROM Prod_CoverDT WHERE dt_id = 1", true},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        auto& list = Find<RecordList>(view, each.list);
        const int rows = list.RowCount();
        if (each.during)
            steps.Then([&](QWidget& dialog) {
                folder.Sql(each.gone);
                if (each.command == Command::ID_DETAIL_EDIT)
                    ChooseDay(dialog, 2012, 4, 4);
                else
                    TypeText(dialog, "covers", "8");
                ExpectVanished();
                Click(dialog, each.command == Command::ID_DETAIL_EDIT ? "ok" : "finish");
            });
        else {
            folder.Sql(each.gone);
            ExpectVanished();
        }
        view.Run(each.command);
        EXPECT_EQ(rows - 1, list.RowCount());
    }
    EXPECT_EQ("3|2|2012-02-01_00:00:00", StoredDates());
    EXPECT_EQ(ByHand, Issued());
    ExpectTold(0);
}

TEST_F(ProductPackagingTest, EveryWriteThatFailsShowsTheErrorAndLeavesTheRecords) {
    struct Case {
        const char* what;
        const char* fault;
        Command command;
        std::function<void(QWidget&)> act;
    };
    const std::vector<Case> cases = {
        {"add date", "INSERT ON Prod_CoverDT", Command::ID_DETAIL_ADD, [](QWidget& d) { Click(d, "ok"); }},
        {"edit date", "UPDATE ON Prod_CoverDT", Command::ID_DETAIL_EDIT,
         [](QWidget& d) { ChooseDay(d, 2012, 3, 3), Click(d, "ok"); }},
        {"add row", "INSERT ON Prod_Cover", Command::ID_SUBDETAIL_ADD,
         [](QWidget& s) { ChooseCover(s, 0), Click(s, "finish"); }},
        {"edit row", "UPDATE ON Prod_Cover", Command::ID_SUBDETAIL_EDIT,
         [](QWidget& s) { TypeText(s, "covers", "8"), Click(s, "finish"); }},
    };
    messages.AcceptAny();
    const std::string before = StoredDates() + StoredPackaging();
    const std::string shown = Rows(Dates()) + Rows(Packaging());
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        Fault(each.fault);
        steps.Then(each.act);
        const std::size_t seen = messages.Shown().size();
        view.Run(each.command);
        ASSERT_EQ(seen + 1, messages.Shown().size());
        EXPECT_TRUE(messages.Shown().back().text.startsWith(Czech("Došlo k chybě COM č.0x")));
        EXPECT_EQ(before, StoredDates() + StoredPackaging());
        EXPECT_EQ(shown, Rows(Dates()) + Rows(Packaging()));
        folder.Sql("DROP TRIGGER fault");
    }
    EXPECT_EQ(ByHand, Issued());
    ExpectTold(0);
}

TEST_F(ProductPackagingTest, AnErrorInTheMiddleOfACompositeKeepsTheRowsBeforeIt) {
    Fault("INSERT ON Prod_Cover WHEN NEW.cover_id = 1");
    messages.AcceptAny();
    steps.Then([](QWidget& sheet) { ChooseComposite(sheet, 1); });
    view.Run(Command::ID_SUBDETAIL_ADD);
    EXPECT_EQ(1u, messages.Shown().size());
    EXPECT_EQ("2|2|10000|100000|1|null|null|3|2|1", StoredPackaging("cp_id > 3"));
    EXPECT_EQ(3, Packaging().RowCount()) << "the list shows them";
}

TEST_F(ProductPackagingTest, AnErrorOfTheRecomputationKeepsTheChange) {
    Fault("DELETE ON Move_Cover");
    messages.AcceptAny();
    steps.Then([](QWidget& sheet) {
        TypeText(sheet, "covers", "8");
        Click(sheet, "finish");
    });
    view.Run(Command::ID_SUBDETAIL_EDIT);
    EXPECT_EQ(1u, messages.Shown().size());
    EXPECT_EQ("80000", folder.Ask("SELECT cp_qtycover FROM Prod_Cover WHERE cp_id = 1"));
    EXPECT_EQ("2,00", Packaging().CellText(0, 1).toStdString());
}

} // namespace
