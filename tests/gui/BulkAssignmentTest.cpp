#include "tests/gui/ProductFixture.h"

#include <QPushButton>

namespace {

/// One packaging assigned to many products at once.
class BulkAssignmentTest : public ProductFixture {
protected:
    void Assign(const std::function<void(QWidget&)>& act) {
        steps.Then(act);
        view.Run(Command::ID_PROD_ASSIGN_COVERS);
    }
    static void FirstOfJune(QWidget& sheet) {
        ChooseDay(sheet, 2012, 6, 1);
        Click(sheet, "next");
    }
    static void Box(QWidget& sheet) {
        FirstOfJune(sheet);
        ChooseCover(sheet, 1);
        Click(sheet, "finish");
    }
    void SelectTeaAndCoffee() {
        ClickRow(Products(), 2);
        ClickRow(Products(), 0, Qt::ControlModifier);
    }
};

TEST_F(BulkAssignmentTest, LeadsThroughThreePages) {
    Assign([](QWidget& sheet) {
        EXPECT_EQ(Czech("Zadejte časovou platnost"), sheet.windowTitle());
        EXPECT_EQ("date", Focus(sheet));
        EXPECT_EQ(QStringLiteral("02.07.2012"), Find<QDateEdit>(sheet, "date").text());
        EXPECT_FALSE(Find<QPushButton>(sheet, "back").isEnabled());
        QTest::keyClick(&sheet, Qt::Key_Return);
        EXPECT_EQ(Czech("Vyberte obal"), sheet.windowTitle());
        Click(sheet, "back");
        EXPECT_EQ(Czech("Zadejte časovou platnost"), sheet.windowTitle());
        Click(sheet, "next");
        ChooseCover(sheet, 0);
        EXPECT_EQ(Czech("Údaje balení"), sheet.windowTitle());
        EXPECT_EQ("covers", Focus(sheet));
        QTest::keyClick(&sheet, Qt::Key_Return);
    });
    EXPECT_EQ("4|1|2012-07-02_00:00:00", folder.AskAll("SELECT dt_id, prod_id, replace(dt_from, ' ', '_') FROM "
                                                       "Prod_CoverDT WHERE dt_id > 3"));
    EXPECT_EQ("4|1|10000|10000|1|null|null|2|0|1", StoredPackaging("cp_id > 3"));
}

TEST_F(BulkAssignmentTest, AddsToTheDefinitionOfTheDayOrBeginsOne) {
    SelectTeaAndCoffee();
    Assign(Box);
    // Tea has a definition of that day, at eight; coffee gets one.
    EXPECT_EQ("1|1|2012-01-01_00:00:00 2|1|2012-06-01_08:00:00 3|2|2012-02-01_00:00:00 4|2|2012-06-01_00:00:00",
              StoredDates());
    EXPECT_EQ("2|2|10000|10000|1|null|null|1|1|2 4|2|10000|10000|1|null|null|1|1|2", StoredPackaging("cp_id > 3"));
    EXPECT_EQ("1|1|500000 1|2|20000 1|2|250000 2|1|100000 2|2|0 2|2|50000 3|2|120000", Issued());
    ExpectTold(1);

    // Once more: existing rows stay.
    Assign(Box);
    EXPECT_EQ("2 2 4 2 4", folder.AskAll("SELECT dt_id FROM Prod_Cover WHERE cover_id = 2 ORDER BY cp_id"));
    EXPECT_EQ("4", folder.Ask("SELECT count(*) FROM Prod_CoverDT"));
}

TEST_F(BulkAssignmentTest, CopiesACompositeToEachProduct) {
    SelectTeaAndCoffee();
    Assign([](QWidget& sheet) {
        FirstOfJune(sheet);
        ChooseComposite(sheet, 1);
    });
    const std::string items = "|2|10000|100000|1|null|null|3|2|1 #|1|35000|50000|0|50000|20000|0|1|2 "
                              "#|2|12345|0|0|0|70000|null|0|0";
    QString expected;
    for (const char* id : {"2", "4"})
        expected += (expected.isEmpty() ? "" : " ") + QString::fromStdString("#" + items).replace('#', id);
    EXPECT_EQ(expected.toStdString(), StoredPackaging("cp_id > 3"));
}

TEST_F(BulkAssignmentTest, WithTheOptionOffOnlyTellsTheOthers) {
    g_options.packagingToIssues = 0;
    SelectTeaAndCoffee();
    Assign(Box);
    EXPECT_EQ("5", folder.Ask("SELECT count(*) FROM Prod_Cover"));
    EXPECT_EQ(ByHand, Issued());
    ExpectTold(1);
}

TEST_F(BulkAssignmentTest, TheRegistersOwnListsWaitForARefresh) {
    Assign([](QWidget& sheet) {
        Click(sheet, "next");
        ChooseComposite(sheet, 1);
    });
    EXPECT_EQ("01.01.2012, 01.06.2012", Names(Dates()));
    EXPECT_EQ("Fólie, Krabice", Names(Packaging()));
    view.Run(Command::ID_RECORD_REFRESH);
    EXPECT_EQ("01.01.2012, 01.06.2012, 02.07.2012", Names(Dates()));
    EXPECT_EQ("Fólie, Krabice, Krabice", Names(Packaging()));
}

TEST_F(BulkAssignmentTest, AnErrorKeepsWhatWasAssignedBeforeIt) {
    Fault("INSERT ON Prod_CoverDT WHEN NEW.prod_id = 3");
    Products().selectAll();
    messages.AcceptAny();
    Assign(Box);
    ASSERT_EQ(1u, messages.Shown().size());
    EXPECT_TRUE(messages.Shown()[0].text.startsWith(Czech("Došlo k chybě COM č.0x")));
    // Tea, before bread in the list, is done; bread and coffee are not.
    EXPECT_EQ("2|2|10000|10000|1|null|null|1|1|2", StoredPackaging("cp_id > 3"));
    EXPECT_EQ("1|1|500000 1|2|20000 1|2|250000 2|1|100000 2|2|0 2|2|50000 3|3|770000", Issued());
    ExpectTold(1);
}

} // namespace
