#include "tests/windows/registers/products/ProductFixture.h"

namespace {

using enum Command;

/// One packaging assigned to many products at once.
class BulkAssignmentTest : public ProductFixture {
protected:
    const Act FirstOfJune = InTurn({Dated("date", {2012, 6, 1}), Clicked("next")});
    void AssignBox() { Do(ID_PROD_ASSIGN_COVERS, {FirstOfJune, ChoseCover(1), Clicked("finish")}); }
    void SelectTeaAndCoffee() {
        ClickRow(List("products"), 2);
        ClickRow(List("products"), 0, Qt::ControlModifier);
    }
};

TEST_F(BulkAssignmentTest, LeadsThroughThreePages) {
    Do(ID_PROD_ASSIGN_COVERS, {ShowsTitle("Zadejte časovou platnost"), ShowsFocus("date"), Shows("date", "02.07.2012"),
                               ShowsEnabled({"back"}, false), Pressed(Qt::Key_Return), ShowsTitle("Vyberte obal"),
                               Clicked("back"), ShowsTitle("Zadejte časovou platnost"), Clicked("next"), ChoseCover(0),
                               ShowsTitle("Údaje balení"), ShowsFocus("covers"), Pressed(Qt::Key_Return)});
    EXPECT_EQ("1|1|2012-01-01_00:00:00 2|1|2012-06-01_08:00:00 3|2|2012-02-01_00:00:00 4|1|2012-07-02_00:00:00",
              StoredDates());
    EXPECT_EQ("4|1|10000|10000|1|null|null|2|0|1", StoredPackaging());
}

TEST_F(BulkAssignmentTest, AddsToTheDefinitionOfTheDayOrBeginsOne) {
    SelectTeaAndCoffee();
    AssignBox();
    // Tea has a definition of that day, at eight; coffee gets one.
    EXPECT_EQ("1|1|2012-01-01_00:00:00 2|1|2012-06-01_08:00:00 3|2|2012-02-01_00:00:00 4|2|2012-06-01_00:00:00",
              StoredDates());
    EXPECT_EQ("2|2|10000|10000|1|null|null|1|1|2 4|2|10000|10000|1|null|null|1|1|2", StoredPackaging());
    ExpectIssued("1|1|500000 1|2|20000 1|2|250000 2|1|100000 2|2|0 2|2|50000 3|2|120000", 1);
    // Once more: existing rows stay. With the option off, the others are only told.
    Options()->packagingToIssues = 0;
    PackIssuesByHand();
    AssignBox();
    EXPECT_EQ("2 2 4 2 4", folder.AskAll("SELECT dt_id FROM Prod_Cover WHERE cover_id = 2 ORDER BY cp_id"));
    EXPECT_EQ("4", folder.Ask("SELECT count(*) FROM Prod_CoverDT"));
    ExpectIssued(ByHand, 1);
}

TEST_F(BulkAssignmentTest, CopiesACompositeToEachProductAndItsOwnListsWaitForARefresh) {
    SelectTeaAndCoffee();
    Do(ID_PROD_ASSIGN_COVERS, {FirstOfJune, ChoseComposite(1)});
    const std::string tea = "2|2|10000|100000|1|null|null|3|2|1 2|1|35000|50000|0|50000|20000|0|1|2 "
                            "2|2|12345|0|0|0|70000|null|0|0";
    const std::string coffee = "4|2|10000|100000|1|null|null|3|2|1 4|1|35000|50000|0|50000|20000|0|1|2 "
                               "4|2|12345|0|0|0|70000|null|0|0";
    EXPECT_EQ(tea + " " + coffee, StoredPackaging());
    ClickRow(List("products"), 0);
    Do(ID_PROD_ASSIGN_COVERS, {Clicked("next"), ChoseComposite(1)});
    EXPECT_EQ("01.01.2012, 01.06.2012", Names(List("dates")));
    EXPECT_EQ(5, List("packaging").RowCount());
    Execute(ID_RECORD_REFRESH);
    EXPECT_EQ("01.01.2012, 01.06.2012, 02.07.2012", Names(List("dates")));
    EXPECT_EQ("Fólie, Krabice, Krabice", Names(List("packaging")));
}

TEST_F(BulkAssignmentTest, AnErrorKeepsWhatWasAssignedBeforeIt) {
    Fault("INSERT ON Prod_CoverDT WHEN NEW.prod_id = 3");
    List("products").selectAll();
    ExpectError([this] { AssignBox(); });
    // Tea, before bread in the list, is done; bread and coffee are not.
    EXPECT_EQ("2|2|10000|10000|1|null|null|1|1|2", StoredPackaging());
    ExpectIssued("1|1|500000 1|2|20000 1|2|250000 2|1|100000 2|2|0 2|2|50000 3|3|770000", 1);
}

} // namespace
