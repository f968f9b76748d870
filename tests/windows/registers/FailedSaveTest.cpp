// A save that fails brings its dialog back with what was typed, so that it can be tried again.

#include "tests/windows/support/RegisterFixture.h"

namespace {

using enum Command;

struct Save {
    const char* name;
    Command show;
    Command command;
    /// What the store refuses, as a trigger's event.
    const char* refused;
    std::vector<Act> acts;
    const char* end;
    /// In the dialog that came back, on the way to its last page.
    std::vector<Act> again;
    /// What one row holds after the second try: a table and its condition.
    const char* saved;
};

std::vector<Save> Saves() {
    return {
        {"cover",
         ID_SHOW_COVERS,
         ID_RECORD_EDIT,
         "UPDATE ON Cover",
         {Typed("name", "Krabice"), Typed("weight", "1,5")},
         "ok",
         {Shows("name", "Krabice"), Shows("weight", "1,5")},
         "Cover WHERE cover_name = 'Krabice' AND cover_weight = 15000"},
        {"composite",
         ID_SHOW_COMPOSITES,
         ID_RECORD_EDIT,
         "UPDATE ON CompCover",
         {Typed("name", "Jiná")},
         "ok",
         {Shows("name", "Jiná")},
         "CompCover WHERE ccover_name = 'Jiná'"},
        {"new product",
         ID_SHOW_PRODUCTS,
         ID_RECORD_ADD,
         "INSERT ON Product",
         {Typed("name", "Voda"), Typed("unit", "ks")},
         "ok",
         {Shows("name", "Voda"), Shows("unit", "ks")},
         "Product WHERE prod_name = 'Voda' AND prod_unit = 'ks'"},
        {"new issue",
         ID_SHOW_ISSUES,
         ID_RECORD_ADD,
         "INSERT ON Move",
         {Typed("num", "V-77"), Picked("type", 1)},
         "ok",
         {Shows("num", "V-77")},
         "Move WHERE move_num = 'V-77' AND move_type = 1"},
        {"new discard",
         ID_SHOW_COVERS,
         ID_DETAIL_ADD,
         "INSERT ON CoverDiscard",
         {Typed("quantity", "77")},
         "finish",
         {Shows("quantity", "77")},
         "CoverDiscard WHERE disc_qty = 770000"},
        {"new issue line",
         ID_SHOW_ISSUES,
         ID_DETAIL_ADD,
         "INSERT ON Move_Prod",
         {Chose("products", 0), Clicked("next"), Typed("quantity", "77")},
         "finish",
         {Chose("products", 0), Clicked("next"), Shows("quantity", "77")},
         "Move_Prod WHERE mvprod_qty = 770000"},
        {"issue line",
         ID_SHOW_ISSUES,
         ID_DETAIL_EDIT,
         "UPDATE ON Move_Prod",
         {Typed("quantity", "78")},
         "finish",
         {Shows("quantity", "78")},
         "Move_Prod WHERE mvprod_qty = 780000"},
        {"new packaging",
         ID_SHOW_PRODUCTS,
         ID_SUBDETAIL_ADD,
         "INSERT ON Prod_Cover",
         {ChoseCover(1), Typed("covers", "77")},
         "finish",
         {ChoseCover(1), Shows("covers", "77")},
         "Prod_Cover WHERE cp_qtycover = 770000"},
    };
}

TEST(FailedSave, BringsTheDialogBackWithWhatWasTyped) {
    for (const Save& save : Saves()) {
        SCOPED_TRACE(save.name);
        OpenRegister opened(save.show);
        ClickRow(static_cast<RecordList&>(*opened.view->focusProxy()), 0);
        opened.Fault(save.refused);
        opened.steps.Then(InTurn({InTurn(save.acts), Clicked(save.end)}));
        opened.steps.Then(InTurn(
            {InTurn(save.again), [&opened](QWidget&) { opened.folder.Sql("DROP TRIGGER fault"); }, Clicked(save.end)}));
        opened.ExpectError([&] { opened.Execute(save.command); });
        EXPECT_EQ("1", opened.folder.AskAll((std::string("SELECT count(*) FROM ") + save.saved).c_str()));
    }
}

TEST(FailedSave, AddingDoesNotNeedTheList) {
    OpenRegister opened(ID_SHOW_PRODUCTS);
    auto& products = static_cast<RecordList&>(*opened.view->focusProxy());
    products.Records()->Close();
    opened.Do(ID_RECORD_ADD, {Typed("name", "Voda"), Clicked("ok")});
    EXPECT_EQ("1", opened.folder.AskAll("SELECT count(*) FROM Product WHERE prod_name = 'Voda'"));
}

} // namespace
