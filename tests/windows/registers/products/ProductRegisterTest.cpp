// What is the products register's own: the product's dialog and the filter.

#include "tests/windows/registers/products/ProductFixture.h"

namespace {

using enum Command;

class ProductRegisterTest : public ProductFixture {};

TEST_F(ProductRegisterTest, AddsAProductWithTheKeysAlone) {
    Do(ID_RECORD_ADD, {ShowsTitle("Detail produktu"), ShowsFocus("name"), Typed("name", "  Džus   "),
                       Typed("katalog", "D 'x'  "), Typed("unit", "l  "), Pressed(Qt::Key_Return)});
    EXPECT_EQ("  Džus;D 'x';l  ;null;null;0",
              folder.AskAll("SELECT prod_name || ';' || prod_katalog || ';' || prod_unit || ';' || "
                            "ifnull(prod_source, 'null') || ';' || ifnull(prod_scrid, 'null') || ';' || deleted FROM "
                            "Product WHERE prod_id = 5"));
    EXPECT_EQ(5, List("products").SelectedId());
    ExpectTold(0);
}

TEST_F(ProductRegisterTest, ChecksAProductAndPutsTheFocusOnTheFault) {
    const std::string x(51, 'x');
    const char* const x51 = x.c_str();
    const auto filled = [](const char* name, const char* katalog, const char* unit) {
        return InTurn({Typed("name", name), Typed("katalog", katalog), Typed("unit", unit)});
    };
    DoRefused(ID_RECORD_ADD, "ok",
              {{"empty", filled("", "", "ks"), "Musíte zadat jméno nebo katalog!", "name"},
               {"blank", filled("   ", "   ", ""), "Musíte zadat jméno nebo katalog!", "name"},
               {"name", filled(x51, "", ""), "Zadejte nejvýše 50 znaků.", "name"},
               {"katalog", filled("x", x51 + 30, ""), "Zadejte nejvýše 20 znaků.", "katalog"},
               {"unit", filled("x", "", x51 + 40), "Zadejte nejvýše 10 znaků.", "unit"}});
    // Either of the two is enough, and the longest texts fit.
    Do(ID_RECORD_ADD, {filled(x51 + 1, "", ""), Clicked("ok")});
    Do(ID_RECORD_ADD, {filled("", x51 + 31, x51 + 41), Clicked("ok")});
    EXPECT_EQ("50|0|0 0|20|10", folder.AskAll("SELECT length(prod_name), length(prod_katalog), length(prod_unit) FROM "
                                              "Product WHERE prod_id > 4"));
}

TEST_F(ProductRegisterTest, EditsTheFocusedProduct) {
    ClickRow(List("products"), 2);
    Do(ID_RECORD_EDIT, {ShowsFocus("name"), ShowsSelected("name", "Káva"), Shows("katalog", "K-2"), Shows("unit", "kg"),
                        Typed("name", "Zelená káva"), Clicked("ok")});
    EXPECT_EQ("Zelená_káva|K-2|kg|0|5|0",
              folder.AskAll("SELECT replace(prod_name, ' ', '_'), prod_katalog, prod_unit, prod_source, prod_scrid, "
                            "deleted FROM Product WHERE prod_id = 2"));
    EXPECT_EQ(2, List("products").SelectedId());
    EXPECT_EQ("Čaj, Chléb, Zelená káva", ProductNames());
    Do(ID_RECORD_EDIT, {Typed("name", "Jinak"), Pressed(Qt::Key_Escape)});
    EXPECT_EQ("Čaj, Chléb, Zelená káva", ProductNames());
}

TEST_F(ProductRegisterTest, FiltersByWhatIsTicked) {
    folder.Sql("INSERT INTO Product (prod_name, prod_katalog, prod_unit) VALUES ('Černý čaj ', 'XC-10', 'KS')");
    // acts: on what the filter before left
    const std::tuple<const char*, std::vector<Act>, const char*, bool> cases[] = {
        {"nothing", {Shows("criterion", "všechny produkty")}, "Čaj, Černý čaj , Chléb, Káva", false},
        {"name", {Clicked("byName"), Typed("name", "čaj")}, "Čaj", true},
        {"part of the name", {Clicked("namePart"), Typed("name", "ČAJ")}, "Čaj, Černý čaj ", true},
        {"text as typed", {Shows("namePart", "ano"), Typed("name", "čaj ")}, "Černý čaj ", true},
        {"katalog", {Clicked("byName"), Clicked("byKatalog"), Typed("katalog", "C-10")}, "Čaj", true},
        {"part of the katalog", {Clicked("katalogPart"), Typed("katalog", "C-1")}, "Čaj, Černý čaj ", true},
        {"unit", {Clicked("byKatalog"), Clicked("byUnit"), Typed("unit", "ks")}, "Čaj, Černý čaj , Chléb", true},
        {"no part of a unit", {Typed("unit", "k")}, "", true},
        {"with packaging", {Clicked("byUnit"), Picked("criterion", 1)}, "Čaj", true},
        {"without packaging",
         {Shows("criterion", "jen produkty s definovanými kuvel"), Picked("criterion", 2)},
         "Černý čaj , Chléb, Káva",
         true},
        {"all of them",
         {Shows("criterion", "jen produkty bez obalů"), Clicked("byUnit"), Typed("unit", "ks"), Clicked("byName"),
          Typed("name", "ch"), Clicked("byKatalog"), Typed("katalog", "b")},
         "Chléb",
         true},
    };
    for (const auto& [what, acts, names, latched] : cases) {
        SCOPED_TRACE(what);
        Do(ID_RECORD_FILTER, {InTurn(acts), Clicked("ok")});
        EXPECT_EQ(names, ProductNames());
        EXPECT_EQ(latched, FilterIsLatched());
    }
    EXPECT_EQ(3, List("products").SelectedId());
    DoRefused(ID_RECORD_FILTER, "ok",
              {{"criterion", Emptied("criterion"), "Není vybráno kriterium balení!", "criterion"}});
}

TEST_F(ProductRegisterTest, TheFilterDialogFollowsItsChecks) {
    const auto follows = [](const char* check, const std::vector<const char*>& controls) {
        return InTurn({ShowsEnabled(controls, false), Clicked(check), ShowsEnabled(controls, true)});
    };
    Do(ID_RECORD_FILTER,
       {follows("byName", {"name", "namePart"}), follows("byKatalog", {"katalog", "katalogPart"}),
        follows("byUnit", {"unit"}), Clicked("byName"), ShowsEnabled({"name", "namePart"}, false), Clicked("cancel")});
}

} // namespace
