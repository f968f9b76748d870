// What is the covers register's own: the cover's dialog, the discards, the filter, and where a changed cover goes.

#include "tests/windows/support/RegisterFixture.h"

#include <QComboBox>

namespace {

using enum Command;
using CoverRegisterTest = RegisterTest<ID_SHOW_COVERS>;

const Act FillValid = InTurn({Typed("name", "Pytel"), Typed("weight", "0,125"), Picked("stat", 0),
                              Picked("material", 0), Picked("type", 0), Picked("origin", 0), Picked("payment", 0)});

TEST_F(CoverRegisterTest, AddsWithTheKeysAloneAndSelectsTheNewCover) {
    Do(ID_RECORD_ADD, {ShowsTitle("Detail obalu"), ShowsFocus("name"), FillValid,
                       [](QWidget& dialog) { QTest::keyClick(&Find<QWidget>(dialog, "reusable"), Qt::Key_Space); },
                       Typed("note", "it's"), Pressed(Qt::Key_Return)});
    EXPECT_EQ("4|Pytel|0|1250|0|0|0|1|0|it's|0",
              folder.AskAll("SELECT cover_id, cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay, "
                            "cover_reusable, cover_stat, cover_note, deleted FROM Cover WHERE cover_id > 3"));
    EXPECT_EQ(4, List("covers").SelectedId());
    ExpectTold(0);
}

TEST_F(CoverRegisterTest, ChecksInOrderAndPutsTheFocusOnTheFault) {
    const std::string longName(51, 'x');
    const std::string longNote(256, 'x');
    const auto spoilt = [](const Act& act) { return InTurn({FillValid, act}); };
    DoRefused(ID_RECORD_ADD, "ok",
              {{"name", spoilt(Typed("name", longName.c_str())), "Zadejte nejvýše 50 znaků.", "name"},
               {"note", spoilt(Typed("note", longNote.c_str())), "Zadejte nejvýše 255 znaků.", "note"},
               {"no weight", spoilt(Typed("weight", "")), "Hmotnost musí být větší než 0!", "weight"},
               {"zero", spoilt(Typed("weight", "0,0000")), "Hmotnost musí být větší než 0!", "weight"},
               {"negative", spoilt(Typed("weight", "-1")), "Hmotnost musí být větší než 0!", "weight"},
               {"all lists", Typed("weight", "1"), "Není vybrán materiál!", "material"},
               {"material", spoilt(Emptied("material")), "Není vybrán materiál!", "material"},
               {"type", spoilt(InTurn({Emptied("type"), Emptied("origin")})), "Není vybrán typ!", "type"},
               {"origin", spoilt(InTurn({Emptied("origin"), Emptied("payment")})), "Není vybrán původ!", "origin"},
               {"payment", spoilt(InTurn({Emptied("payment"), Emptied("stat")})), "Není vybrána platba!", "payment"},
               {"stat", spoilt(Emptied("stat")), "Není vybrán údaj pro statistickou evidenci!", "stat"}});
}

TEST_F(CoverRegisterTest, LinksMaterialAndStatisticalKind) {
    const std::tuple<const char*, int, int, int> cases[] = {{"material", 7, 6, 3}, {"stat", 1, 0, 1},
                                                            {"stat", 2, 0, 2},     {"stat", 3, 6, 3},
                                                            {"stat", 0, 5, 0},     {"material", 1, 29, 0}};
    // The rows of the material list: wood 0, textile 1, then the others, one below their code.
    Do(ID_RECORD_ADD, {[&](QWidget& dialog) {
                           auto& material = Find<QComboBox>(dialog, "material");
                           EXPECT_EQ("textil", material.itemText(1).toStdString());
                           EXPECT_EQ(30, material.count());
                           for (const auto& [combo, row, picked, stat] : cases) {
                               material.setCurrentIndex(6);
                               Pick(dialog, "stat", 0);
                               Pick(dialog, combo, row);
                               EXPECT_EQ(picked, material.currentData().toInt()) << row;
                               EXPECT_EQ(stat, Find<QComboBox>(dialog, "stat").currentData().toInt()) << row;
                           }
                       },
                       Clicked("cancel")});
}

TEST_F(CoverRegisterTest, AChangedTripleGoesWhereTheOptionsSay) {
    const Act payment = Picked("payment", 0);
    // rows: composites, packaging, issues
    const std::tuple<const char*, PropagationOptions, Act, const char*, bool> cases[] = {
        {"note only", {}, Typed("note", "jiná"), "3|3|3 3|3|3 3|3|3", false},
        {"weight", {}, Typed("weight", "3"), "3|3|3 3|3|3 3|3|3", false},
        {"all", {}, payment, "1|1|0 1|1|0 1|1|0", true},
        {"type", {}, Picked("type", 3), "3|1|1 3|1|1 3|1|1", true},
        {"origin", {}, Picked("origin", 2), "1|2|1 1|2|1 1|2|1", true},
        {"composites", {1, 0, 0, 0}, payment, "1|1|0 3|3|3 3|3|3", true},
        {"packaging", {0, 1, 0, 0}, payment, "3|3|3 1|1|0 3|3|3", true},
        {"issues", {0, 0, 1, 0}, payment, "3|3|3 3|3|3 1|1|0", true},
        {"none", {0, 0, 0, 1}, payment, "3|3|3 3|3|3 3|3|3", true},
    };
    const char* const triples = "SELECT cover_type, cover_org, cover_pay FROM CompCover_Item WHERE cover_id = 1 UNION "
                                "ALL SELECT cover_type, cover_org, cover_pay FROM Prod_Cover UNION ALL SELECT "
                                "cover_type, cover_org, cover_pay FROM Move_Cover";
    for (const auto& [what, options, change, rows, told] : cases) {
        SCOPED_TRACE(what);
        folder.Sql("UPDATE Cover SET cover_type = 1, cover_org = 1, cover_pay = 1, cover_stat = 0 WHERE cover_id = 1;"
                   "UPDATE CompCover_Item SET cover_type = 3, cover_org = 3, cover_pay = 3;"
                   "UPDATE Prod_Cover SET cover_type = 3, cover_org = 3, cover_pay = 3;"
                   "UPDATE Move_Cover SET cover_type = 3, cover_org = 3, cover_pay = 3");
        Execute(ID_RECORD_REFRESH);
        *Options() = options;
        Do(ID_RECORD_EDIT, {change, Clicked("ok")});
        EXPECT_EQ(rows, folder.AskAll(triples));
        EXPECT_EQ("3", folder.Ask("SELECT cover_type FROM CompCover_Item WHERE cover_id = 3"));
        ExpectTold(told ? 1 : 0);
    }
    EXPECT_EQ(1, List("covers").SelectedId());
    *Options() = {};
    Fault("UPDATE ON Prod_Cover");
    ExpectError([&] { Do(ID_RECORD_EDIT, {Picked("payment", 2), Clicked("ok")}); });
    EXPECT_EQ("1|1|2 3|3|3 3|3|3", folder.AskAll(triples)) << "a failure stops it";
    EXPECT_EQ("předplacený", List("covers").CellText(0, 5).toStdString()) << "the cover keeps its values";
    EXPECT_EQ(1, List("covers").SelectedId());
    ExpectTold(0);
}

constexpr const char* AllDiscards =
    "SELECT disc_id, cover_id, replace(disc_date, ' ', '_'), disc_qty, disc_type FROM CoverDiscard ORDER BY disc_id";

TEST_F(CoverRegisterTest, AddsAndEditsADiscard) {
    ClickRow(List("covers"), 1);
    Do(ID_DETAIL_ADD,
       {ShowsFocus("quantity"), ShowsSelected("quantity", "0"), Shows("finish", "OK"), Shows("date", "02.07.2012"),
        Shows("way2", "ano"), IsRefused("finish", "Množství musí být větší než 0 !", "quantity"),
        // 0,25 kg a piece: the two follow each other.
        Typed("quantity", "3"), Shows("weight", "0,75"), Typed("weight", "1"), Shows("quantity", "4"),
        Shows("weight", "1"), Clicked("way0"), Pressed(Qt::Key_Return)});
    EXPECT_EQ("1|1|2012-05-02_00:00:00|30000|0 2|1|2012-03-01_00:00:00|10000|2 3|2|2012-07-02_00:00:00|40000|0",
              folder.AskAll(AllDiscards));
    EXPECT_EQ("02.07.2012|energeticky využito|1,00", Rows(List("discards")));
    EXPECT_EQ(3, List("discards").SelectedId());
    Do(ID_DETAIL_ADD, {Dated("date", {2012, 1, 1}), Typed("quantity", "1"), Clicked("finish")});
    EXPECT_EQ(4, List("discards").SelectedId());

    ClickRow(List("covers"), 0);
    ClickRow(List("discards"), 1);
    Do(ID_DETAIL_EDIT, {Shows("quantity", "3"), Shows("weight", "6"), Shows("way0", "ano"), Typed("quantity", "0,5"),
                        Clicked("way1"), Dated("date", {2012, 6, 1}), Clicked("finish")});
    EXPECT_EQ("1|1|2012-06-01_00:00:00|5000|1 2|1|2012-03-01_00:00:00|10000|2 3|2|2012-07-02_00:00:00|40000|0 "
              "4|2|2012-01-01_00:00:00|10000|2",
              folder.AskAll(AllDiscards));
    EXPECT_EQ(1, List("discards").SelectedId());
}

TEST_F(CoverRegisterTest, FiltersByWhatIsTicked) {
    // acts: on what the filter before left
    const std::pair<std::vector<Act>, const char*> cases[] = {
        {{Clicked("byName"), Typed("name", "folie"), Clicked("namePart")}, "PE folie 20 µm"},
        {{Shows("name", "folie"), Shows("namePart", "ano"), Clicked("namePart")}, ""},
        {{Clicked("byName"), Clicked("byWeight"), Typed("weightFrom", "0,2"), Typed("weightTo", "1")}, "Fólie"},
        {{Shows("weightFrom", "0,2"), Clicked("byWeight"), Clicked("byMaterial"), Picked("material", 0)}, "Bedna"},
        {{Shows("material", "dřevo"), Clicked("byMaterial"), Clicked("byType"), Picked("type", 1)}, "Bedna"},
        {{Clicked("byType"), Clicked("byOrigin"), Picked("origin", 0)}, "Fólie, PE folie 20 µm"},
        {{Clicked("byOrigin"), Clicked("byPayment"), Picked("payment", 2)}, "PE folie 20 µm"},
        {{Clicked("byPayment"), Clicked("byUsage"), Clicked("reusable")}, "Bedna"},
        {{Shows("reusable", "ano"), Clicked("reusable")}, "Fólie, PE folie 20 µm"},
        {{Clicked("byWeight"), Clicked("byMaterial"), Picked("material", 3), Clicked("byType"), Picked("type", 2),
          Clicked("byOrigin"), Clicked("byPayment"), Picked("payment", 1), Clicked("byName"), Clicked("namePart")},
         ""},
        {{Typed("name", "ól")}, "Fólie"}, // all seven
    };
    for (const auto& [acts, names] : cases) {
        Do(ID_RECORD_FILTER, {InTurn(acts), Clicked("ok")});
        EXPECT_EQ(names, Names(List("covers")));
    }
}

TEST_F(CoverRegisterTest, TheFilterChecksInOrder) {
    const Act wrongWay =
        InTurn({Clicked("byWeight"), Clicked("byMaterial"), Typed("weightFrom", "2"), Typed("weightTo", "1,9999")});
    DoRefused(ID_RECORD_FILTER, "ok",
              {{"weight", wrongWay, "Hmotnost \"Od\" nesmí být větší než hodnota \"do\"", "weightFrom"},
               {"material", InTurn({Clicked("byMaterial"), Clicked("byType")}), "Není vybrán materiál", "material"},
               {"type", InTurn({Clicked("byType"), Clicked("byOrigin")}), "Není vybrán typ", "type"},
               {"origin", InTurn({Clicked("byOrigin"), Clicked("byPayment")}), "Není vybrán původ", "origin"},
               {"payment", Clicked("byPayment"), "Není vybrána platba", "payment"}});
    EXPECT_FALSE(FilterIsLatched());
}

} // namespace
