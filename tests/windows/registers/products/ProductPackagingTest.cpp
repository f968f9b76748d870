#include "tests/windows/registers/products/ProductFixture.h"

namespace {

using enum Command;

Act EnteredProducts(const char* text) {
    return [=](QWidget& sheet) {
        Find<QWidget>(sheet, "products").findChild<QLineEdit*>()->setObjectName(QStringLiteral("productsEdit"));
        TypeText(sheet, "productsEdit", text);
    };
}

class ProductPackagingTest : public ProductFixture {
protected:
    void UseFirstRow(const char* values) const {
        folder.Sql((std::string("UPDATE Prod_Cover SET ") + values + " WHERE cp_id = 1").c_str());
    }
};

TEST_F(ProductPackagingTest, AddsARowOfASimpleCover) {
    Do(ID_SUBDETAIL_ADD, {ShowsTitle("Vyberte obal"), ChoseCover(1), ShowsTitle("Údaje balení"), ShowsFocus("covers"),
                          ShowsSelected("covers", "1"), Shows("weight", "2"), Shows("type", "skupinový"),
                          Shows("origin", "nakoupený v ČR"), Shows("payment", "předplacený"), Shows("products", "1"),
                          Shows("useAlways", "ano"), Shows("finish", "Dokončit"), Typed("covers", "0,5"),
                          Picked("payment", 1), Pressed(Qt::Key_Return)});
    // Any quantity: the range is not written at all.
    EXPECT_EQ("2|2|5000|10000|1|null|null|1|1|1", StoredPackaging());
    EXPECT_EQ("Fólie, Krabice, Krabice", Names(List("packaging")));
    ExpectIssued("1|1|500000 1|2|20000 1|2|125000 2|1|100000 2|2|0 2|2|25000 3|3|770000", 1);
    // A range is stored as it was entered, also the wrong way round.
    ClickRow(List("dates"), 0);
    Do(ID_SUBDETAIL_ADD,
       {ChoseCover(0), ShowsEnabled({"useFrom", "useTo"}, false), Clicked("useRange"), Shows("useFrom", "0"),
        Shows("useTo", "1000"), Typed("useFrom", "20,5"), Typed("useTo", "3"), Clicked("useAlways"),
        ShowsEnabled({"useFrom", "useTo"}, false), Clicked("useRange"), Clicked("finish")});
    EXPECT_EQ("1|1|10000|10000|0|205000|30000|2|0|1", StoredPackaging("cp_id > 4"));
}

TEST_F(ProductPackagingTest, GoingBackToAnotherCoverTakesItsValues) {
    Do(ID_SUBDETAIL_ADD,
       {ChoseCover(0), Typed("covers", "4"), Clicked("back"), ChoseCover(1), Shows("covers", "4"), Shows("weight", "8"),
        Shows("type", "skupinový"), Clicked("back"), ChoseCover(2), Shows("weight", "0"), // it has none
        Clicked("back"), ChoseCover(1), Clicked("finish")});
    EXPECT_EQ("2|2|40000|10000|1|null|null|1|1|2", StoredPackaging());
}

TEST_F(ProductPackagingTest, AddsTheItemsOfACompositeUnchanged) {
    // What was entered for a simple cover before does not count.
    Do(ID_SUBDETAIL_ADD, {ChoseCover(0), Typed("covers", "9"), Clicked("back"), ChoseComposite(1)});
    const std::string copied = "2|2|10000|100000|1|null|null|3|2|1 2|1|35000|50000|0|50000|20000|0|1|2 "
                               "2|2|12345|0|0|0|70000|null|0|0";
    EXPECT_EQ(copied, StoredPackaging());
    EXPECT_EQ(5, List("packaging").RowCount());
    ExpectTold(1);
    Do(ID_SUBDETAIL_ADD, {ChoseComposite(0)});
    EXPECT_EQ(copied, StoredPackaging()) << "an empty composite adds nothing";
    ExpectTold(1);
    // An error in the middle keeps the rows before it.
    Fault("INSERT ON Prod_Cover WHEN NEW.cover_id = 1");
    ExpectError([this] { Do(ID_SUBDETAIL_ADD, {ChoseComposite(1)}); });
    EXPECT_EQ(copied + " 2|2|10000|100000|1|null|null|3|2|1", StoredPackaging());
    EXPECT_EQ(6, List("packaging").RowCount());
    // The issues follow what was written.
    ExpectIssued("1|1|500000 1|2|20000 1|2|20000 1|2|20000 2|1|100000 2|2|0 2|2|0 2|2|0 2|2|0 3|3|770000", 1);
}

TEST_F(ProductPackagingTest, ChangesARow) {
    const Act range = Clicked("useRange");
    const std::tuple<const char*, int, Act, const char*, bool> cases[] = {
        {"nothing", 0, InTurn({}), "20000|10000|1|30000|90000|2|0|1", false},
        {"the same again", 0, Typed("covers", "2,00"), "20000|10000|1|30000|90000|2|0|1", false},
        {"covers", 0, Typed("covers", "2,0001"), "20001|10000|1|30000|90000|2|0|1", true},
        {"weight", 0, Typed("weight", "1"), "40000|10000|1|30000|90000|2|0|1", true},
        {"products", 0, EnteredProducts("2,5"), "20000|25000|1|30000|90000|2|0|1", true},
        {"type", 0, Picked("type", 3), "20000|10000|1|30000|90000|3|0|1", true},
        {"origin", 0, Picked("origin", 2), "20000|10000|1|30000|90000|2|2|1", true},
        {"payment", 0, Picked("payment", 0), "20000|10000|1|30000|90000|2|0|0", true},
        {"a range begins with its defaults", 0, range, "20000|10000|0|0|10000000|2|0|1", true},
        {"from", 1, Typed("useFrom", "2"), "10000|100000|0|20000|1000000|1|1|2", true},
        {"to", 1, Typed("useTo", "99,9999"), "10000|100000|0|10000|999999|1|1|2", true},
        {"any quantity leaves the range that was stored", 1, InTurn({Typed("useFrom", "7"), Clicked("useAlways")}),
         "10000|100000|1|10000|1000000|1|1|2", true},
    };
    for (const auto& [what, row, change, stored, changed] : cases) {
        SCOPED_TRACE(what);
        UseFirstRow("cp_qtycover = 20000, cp_qtyprod = 10000, cp_usealways = 1, cp_usefrom = 30000, cp_useto = 90000, "
                    "cover_type = 2, cover_org = 0, cover_pay = 1");
        folder.Sql("UPDATE Prod_Cover SET cp_usealways = 0, cp_usefrom = 10000, cp_useto = 1000000 WHERE cp_id = 2");
        PackIssuesByHand();
        Execute(ID_RECORD_REFRESH);
        ClickRow(List("packaging"), row);
        Do(ID_SUBDETAIL_EDIT, {Shows("finish", "OK"), change, Clicked("finish")});
        EXPECT_EQ(stored,
                  folder.AskAll(("SELECT cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, cp_useto, cover_type, "
                                 "cover_org, cover_pay FROM Prod_Cover WHERE cp_id = " +
                                 std::to_string(row + 1))
                                    .c_str()));
        EXPECT_EQ(!changed, Issued() == ByHand) << Issued();
        EXPECT_EQ(0, List("packaging").SelectedRow());
        ExpectTold(changed ? 1 : 0);
    }
    Do(ID_SUBDETAIL_EDIT, {Typed("covers", "3"), range, Clicked("finish")});
    EXPECT_EQ("Fólie|0,75|1,00|0,00|1000,00|prodejní|dovezený do ČR|zpoplatněný",
              Rows(List("packaging")).substr(0, Rows(List("packaging")).find('\n')));
    // An error of the computation keeps the change.
    Fault("DELETE ON Move_Cover");
    ExpectError([this] { Do(ID_SUBDETAIL_EDIT, {Typed("covers", "8"), Clicked("finish")}); });
    EXPECT_EQ("80000", folder.Ask("SELECT cp_qtycover FROM Prod_Cover WHERE cp_id = 1"));
    EXPECT_EQ("2,00", List("packaging").CellText(0, 1).toStdString());
}

TEST_F(ProductPackagingTest, ChecksTheValuesInOrderAndPutsTheFocusOnTheFault) {
    constexpr const char* Covers = "Množství obalu musí být větší než 0";
    constexpr const char* Products = "Počet balených produktů musí být větší než 0";
    const Act noLists = InTurn({Emptied("type"), Emptied("origin"), Emptied("payment")});
    const Act noProducts = EnteredProducts("0");
    DoRefused(ID_SUBDETAIL_EDIT, "finish",
              {{"covers 0", InTurn({Typed("covers", "0"), noProducts}), Covers, "covers"},
               {"covers empty", Typed("covers", ""), Covers, "covers"},
               {"covers -1", Typed("covers", "-1"), Covers, "covers"},
               {"products 0", InTurn({noProducts, noLists}), Products, "products"},
               {"products empty", EnteredProducts(""), Products, "products"},
               {"type", noLists, "Není vybrán typ", "type"},
               {"origin", InTurn({Emptied("origin"), Emptied("payment")}), "Není vybrán původ", "origin"},
               {"payment", Emptied("payment"), "Není vybrána platba", "payment"}});
}

TEST_F(ProductPackagingTest, NumberAndWeightFollowEachOtherWithoutAnEcho) {
    // pieceWeight: ten-thousandths of a kilogram
    const std::tuple<int, const char*, const char*, const char*, const char*> cases[] = {
        {3000, "covers", "3", "weight", "0,9"}, {3000, "weight", "1", "covers", "3,3333"},
        {3000, "weight", "", "covers", "0"},    {3000, "covers", "-2", "weight", "-0,6"},
        {1, "weight", "0,5", "covers", "5000"}, {1, "covers", "0,9999", "weight", "0"},
        {0, "covers", "3", "weight", "0"},      {0, "weight", "3", "covers", "2"},
    };
    for (const auto& [pieceWeight, edit, typed, other, shown] : cases) {
        SCOPED_TRACE(std::string(edit) + " " + typed);
        folder.Sql(("UPDATE Cover SET cover_weight = " + std::to_string(pieceWeight) + " WHERE cover_id = 1").c_str());
        Do(ID_SUBDETAIL_EDIT, {Typed(edit, typed), Shows(other, shown), Shows(edit, typed), Clicked("cancel")});
    }
}

TEST_F(ProductPackagingTest, EmptyQuantitiesOpenAsTheirDefaults) {
    UseFirstRow("cp_qtycover = NULL, cp_qtyprod = NULL, cp_usealways = NULL, cp_usefrom = NULL, cp_useto = NULL, "
                "cover_type = NULL, cover_org = 9");
    Do(ID_SUBDETAIL_EDIT,
       {Shows("covers", "1"), Shows("products", "1"), Shows("useRange", "ano"), Shows("useFrom", "0"),
        Shows("useTo", "1000"), Shows("type", ""), Shows("origin", ""), Clicked("cancel")});
}

TEST_F(ProductPackagingTest, TheProductsStepThroughWholeNumbers) {
    const auto steps = [](const char* from, Qt::Key key, const char* to) {
        const Act press = [key](QWidget& sheet) { QTest::keyClick(&Find<QWidget>(sheet, "products"), key); };
        return InTurn({EnteredProducts(from), press, Shows("products", to)});
    };
    Do(ID_SUBDETAIL_EDIT,
       {steps("12", Qt::Key_Up, "13"), steps("2,75", Qt::Key_Up, "3"), steps("1", Qt::Key_Down, "1"),
        steps("65535", Qt::Key_Up, "65535"), steps("99999,5", Qt::Key_Up, "65535"), Clicked("cancel")});
}

TEST_F(ProductPackagingTest, IssuesFollowADeletedRowUnlessTheOptionIsOff) {
    const auto remove = [this](const char* name) {
        messages.ExpectQuestion(
            QStringLiteral("Opravdu si přejete odstranit ze seznamu obal\n\"%1\" ?").arg(QString::fromUtf8(name)),
            Message::Answer::Yes);
        Execute(ID_SUBDETAIL_DELETE);
    };
    ClickRow(List("packaging"), 1);
    remove("Krabice");
    ExpectIssued("1|1|500000 2|1|100000 3|3|770000", 1);

    Options()->packagingToIssues = 0;
    PackIssuesByHand();
    Do(ID_SUBDETAIL_EDIT, {Typed("covers", "8"), Clicked("finish")});
    Do(ID_SUBDETAIL_ADD, {ChoseComposite(1)});
    remove("Fólie");
    Do(ID_DETAIL_EDIT, {Dated("date", {2012, 3, 3}), Clicked("ok")});
    Do(ID_DETAIL_ADD, {Clicked("ok")});
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit ze seznamu platnost\n\"02.07.2012\" ?"),
                            Message::Answer::Yes);
    Execute(ID_DETAIL_DELETE);
    EXPECT_EQ("1|1|2012-01-01_00:00:00 2|1|2012-03-03_08:00:00 3|2|2012-02-01_00:00:00", StoredDates());
    ExpectIssued(ByHand, 0);
}

} // namespace
