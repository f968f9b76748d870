// What is the issues register's own: the toggle, the issue's dialog and filter, the items and their covers.

#include "tests/windows/support/RegisterFixture.h"

namespace {

using enum Command;

class IssueRegisterTest : public RegisterTest<ID_SHOW_ISSUES> {
protected:
    std::string Stored() const {
        return folder.AskAll("SELECT mvprod_id, move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay FROM "
                             "Move_Cover ORDER BY mvcover_id");
    }
    std::string StoredIssues() const {
        return folder.AskAll("SELECT move_id, move_num, replace(move_date, ' ', '_'), move_type, move_export, "
                             "move_source FROM Move ORDER BY move_id");
    }
    static constexpr const char* Before = "1|1|1|500000|2|0|1 1|1|2|20000|1|1|2 2|1|2|10000|3|2|0";
};

TEST_F(IssueRegisterTest, TheToggleShowsTheWholeIssueAndLocksItsItems) {
    const auto& toggle = Find<QPushButton>(*view, "toggleCovers");
    for (const bool ofItem : {true, false, true}) {
        EXPECT_EQ(ofItem, toggle.isChecked());
        for (const Command command : {ID_DETAIL_ADD, ID_DETAIL_EDIT, ID_DETAIL_DELETE, ID_SUBDETAIL_ADD}) {
            EXPECT_EQ(ofItem, Button(command).isEnabled());
            if (!ofItem)
                Execute(command); // neither asks nor warns
        }
        EXPECT_TRUE(Button(ID_SUBDETAIL_EDIT).isEnabled() && Button(ID_SUBDETAIL_DELETE).isEnabled());
        EXPECT_TRUE(List("items").isEnabled());
        EXPECT_EQ(ofItem ? 2 : 3, List("issuedCovers").RowCount());
        Click(*view, "toggleCovers");
    }
}

TEST_F(IssueRegisterTest, ANewIssueNeedsATypeAndDoesNotStoreItsExportBox) {
    Do(ID_RECORD_ADD, {ShowsFocus("num"), Shows("date", "02.07.2012"), Clicked("exported"), Shows("exported", "ano"),
                       Typed("num", "D-0"), IsRefused("ok", "Není vybrán typ výdeje!", "type"), Picked("type", 2),
                       Dated("date", {2012, 7, 20}), Clicked("ok")});
    EXPECT_EQ(
        "1|D-1|2012-06-15_10:00:00|0|1|null 2|D-2|2012-07-02_00:00:00|3|0|null 3|D-0|2012-07-20_10:15:30|2|0|null",
        StoredIssues());
    EXPECT_EQ(3, List("issues").SelectedId());
    EXPECT_EQ("D-0, D-1, D-2", Names(List("issues")));
}

TEST_F(IssueRegisterTest, EditingAnIssueStoresAllFourAndKeepsItsCovers) {
    Do(ID_RECORD_EDIT, {ShowsSelected("num", "D-1"), Shows("exported", "ano"), Clicked("exported"), Typed("num", "E-1"),
                        Picked("type", 1), Dated("date", {2012, 7, 20}), Clicked("ok")});
    EXPECT_EQ("1|E-1|2012-07-20_10:00:00|1|0|null 2|D-2|2012-07-02_00:00:00|3|0|null", StoredIssues());
    EXPECT_EQ(1, List("issues").SelectedId());
    EXPECT_EQ(Before, Stored());
    // An unreadable date opens as the first of 1900, and a long number is refused.
    folder.Sql("UPDATE Move SET move_date = 'kdysi', move_num = '123456789012345678901' WHERE move_id = 1");
    Execute(ID_RECORD_REFRESH);
    DoRefused(ID_RECORD_EDIT, "ok", {{"number", Shows("date", "01.01.1900"), "Zadejte nejvýše 20 znaků.", "num"}});
}

TEST_F(IssueRegisterTest, FiltersByWhatIsTicked) {
    // acts: on what the filter before left
    const std::pair<std::vector<Act>, const char*> cases[] = {
        {{ShowsEnabled({"num", "numPart", "dateFrom", "dateTo", "exported"}, false), Clicked("byNum"),
          ShowsEnabled({"num", "numPart"}, true), ShowsEnabled({"dateFrom", "exported"}, false), Typed("num", "d-")},
         ""},
        {{Clicked("numPart")}, "D-1, D-2"},
        {{Shows("numPart", "ano"), Clicked("byExport"), ShowsEnabled({"exported"}, true)}, "D-2"},
        {{Clicked("exported")}, "D-1"},
        {{Shows("exported", "ano"), Clicked("byExport"), Clicked("byNum"), Clicked("byDate"),
          Shows("dateFrom", "02.07.2012"), ShowsEnabled({"dateFrom", "dateTo"}, true), Dated("dateFrom", {2012, 6, 16}),
          Dated("dateTo", {2012, 6, 15}), IsRefused("ok", "Datum \"Od\" nesmí být větší než datum \"do\"", "dateFrom"),
          Dated("dateFrom", {2012, 6, 15})},
         "D-1"}, // of ten o'clock
        {{Dated("dateTo", {2012, 7, 2}), Clicked("byNum"), Typed("num", "2")}, "D-2"},
        {{Clicked("byExport")}, ""},
        {{Clicked("exported")}, "D-2"}, // all three
    };
    for (const auto& [acts, names] : cases) {
        Do(ID_RECORD_FILTER, {InTurn(acts), Clicked("ok")});
        EXPECT_EQ(names, Names(List("issues")));
    }
}

TEST_F(IssueRegisterTest, ANewItemGetsTheCoversInForceOnTheDayOfIssue) {
    const auto listed = [](QWidget& sheet) {
        auto& products = Find<RecordList>(sheet, "products");
        EXPECT_EQ("Čaj|C-10|ks\nKáva|K-2|kg", Rows(products));
        EXPECT_EQ(-1, products.SelectedRow());
    };
    Do(ID_DETAIL_ADD, {ShowsTitle("Vyberte výrobek"), ShowsFocus("products"), listed,
                       IsRefused("next", "Není vybrán produkt !", "products"),
                       [](QWidget& sheet) { DoubleClickRow(Find<RecordList>(sheet, "products"), 0); },
                       ShowsTitle("Zadejte množství"), ShowsFocus("quantity"), ShowsSelected("quantity", "1"),
                       Typed("quantity", "0"), IsRefused("finish", "Množství musí být větší než 0 !", "quantity"),
                       Typed("quantity", ""), IsRefused("finish", "Množství musí být větší než 0 !", "quantity"),
                       Typed("quantity", "-1"), IsRefused("finish", "Množství musí být větší než 0 !", "quantity"),
                       Typed("quantity", "11,5"), Clicked("finish")});
    ClickRow(List("issues"), 1);
    Do(ID_DETAIL_ADD, {Chose("products", 0), Clicked("next"), Typed("quantity", "11,5"), Clicked("finish")});
    EXPECT_EQ(std::string(Before) + " 4|1|1|220000|2|0|1 4|1|2|10000|1|1|2 5|2|2|330000|1|1|2", Stored());
    EXPECT_EQ("4|1|1|115000 5|2|1|115000",
              folder.AskAll("SELECT mvprod_id, move_id, prod_id, mvprod_qty FROM Move_Prod WHERE mvprod_id > 3"));
    EXPECT_EQ(2, List("items").RowCount());
}

TEST_F(IssueRegisterTest, EditingAQuantityPutsBackTheComputedCovers) {
    folder.Sql("INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty) VALUES (1, 1, 2, 990000)");
    Do(ID_DETAIL_EDIT,
       {ShowsSelected("quantity", "25"), Shows("finish", "OK"), Typed("quantity", "30"), Clicked("finish")});
    EXPECT_EQ("2|1|2|10000|3|2|0 1|1|1|600000|2|0|1 1|1|2|30000|1|1|2", Stored());
    EXPECT_EQ("Čaj|C-10|30,00\nKáva|K-2|5,00", Rows(List("items")));
    EXPECT_EQ("Fólie|15,00|PE - měkké|prodejní|dovezený do ČR|zpoplatněný\n"
              "Krabice|6,00|papír|skupinový|nakoupený v ČR|předplacený",
              Rows(List("issuedCovers")));
    EXPECT_EQ(1, List("items").SelectedId());
    for (const auto& [stored, shown] : {std::pair{"123456", "12,3456"}, std::pair{"NULL", "1"}, std::pair{"0", "0"}}) {
        folder.Sql((std::string("UPDATE Move_Prod SET mvprod_qty = ") + stored).c_str());
        Do(ID_DETAIL_EDIT, {ShowsSelected("quantity", shown), Clicked("cancel")});
    }
}

TEST_F(IssueRegisterTest, ACoverAddedByHandTakesTheCoversValues) {
    folder.Sql("UPDATE Cover SET cover_org = 2, cover_pay = 0 WHERE cover_id = 2");
    Do(ID_SUBDETAIL_ADD,
       {ChoseCover(1), ShowsTitle("Zadejte množství"), ShowsFocus("covers"), Shows("weight", "2"),
        Shows("material", "papír"), Shows("stat", "paleta prostá (ČSN 269111)"), Shows("reusable", "ano"),
        Shows("type", "skupinový"), ShowsEnabled({"type", "origin", "payment", "reusable", "stat", "material"}, false),
        Typed("covers", "0"), IsRefused("finish", "Množství obalu musí být větší než 0", "covers"),
        Typed("weight", "5"), Shows("covers", "2,5"), Clicked("finish")});
    EXPECT_EQ(std::string(Before) + " 1|1|2|25000|1|2|0", Stored());
    EXPECT_EQ(3, List("issuedCovers").RowCount());
}

TEST_F(IssueRegisterTest, EditingACoverStoresItsQuantityOnlyInEitherView) {
    ClickRow(List("items"), 1);
    Do(ID_SUBDETAIL_EDIT, {Shows("type", "průmyslový"), Shows("origin", "vyrobený v ČR"), Shows("payment", "neplacený"),
                           Shows("finish", "OK"), Typed("covers", "4"), Shows("weight", "8"), Clicked("finish")});
    EXPECT_EQ("1|1|1|500000|2|0|1 1|1|2|20000|1|1|2 2|1|2|40000|3|2|0", Stored());
    EXPECT_EQ("8,00", List("issuedCovers").CellText(0, 1).toStdString());
    Click(*view, "toggleCovers");
    Do(ID_SUBDETAIL_EDIT, {Typed("covers", "1"), Clicked("finish")});
    EXPECT_EQ("1|1|1|500000|2|0|1 1|1|2|20000|1|1|2 2|1|2|10000|3|2|0", Stored()) << "it is still selected";
}

TEST_F(IssueRegisterTest, AnItemThatVanishedWhileItsCoverWasChosenIsClearedAway) {
    messages.Expect(Czech("Údaje o produktu byly odstraněny jinou aplikací!"), Message::Icon::Information);
    Do(ID_SUBDETAIL_ADD,
       {ChoseCover(0), [&](QWidget&) { folder.Sql("DELETE FROM Move_Prod WHERE mvprod_id = 1"); }, Clicked("finish")});
    EXPECT_EQ("2|1|2|10000|3|2|0", Stored());
    EXPECT_EQ("Káva", Names(List("items")));
}

} // namespace
