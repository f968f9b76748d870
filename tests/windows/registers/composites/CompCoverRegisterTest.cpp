// What is the composite covers' own: the dialog that works on a copy of the items until it is confirmed.

#include "tests/windows/support/RegisterFixture.h"
#include "windows/widgets/RegisterTexts.h"

#include <QTabWidget>

namespace {

using enum Command;

constexpr const char* AllItems = "SELECT ccover_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, "
                                 "cp_useto, cover_type, cover_org, cover_pay FROM CompCover_Item ORDER BY rowid";
constexpr const char* StoredItems = "1|2|30000|10000|0|5000|99000|2|0|2 1|1|15000|120000|1|null|null|1|1|1 "
                                    "2|3|10000|10000|1|7|8|2|0|2";
constexpr const char* Composites = "SELECT ccover_id, ccover_name, ccover_note FROM CompCover ORDER BY ccover_id";

class CompCoverRegisterTest : public RegisterTest<ID_SHOW_COMPOSITES> {
protected:
    /// In the detail of "Sada".
    void Edit(std::vector<Act> acts) {
        List("composites").SelectRow(1);
        Do(ID_RECORD_EDIT, std::move(acts));
    }
    static Act ShowsItems(const char* rows) {
        return [rows](QWidget& dialog) { EXPECT_EQ(rows, Rows(Find<RecordList>(dialog, "items"))); };
    }
};

TEST_F(CompCoverRegisterTest, NothingIsStoredBeforeOk) {
    const std::string stored = AllRows(folder);
    Edit({ShowsTitle("Detail složeného obalu"), ShowsFocus("name"),
          ShowsItems("Bedna|3,00|12,00|-|-|skupinový|nakoupený v ČR|zpoplatněný\n"
                     "Čep|0,75|1,00|0,50|9,90|prodejní|dovezený do ČR|předplacený"),
          Typed("name", "Jinak"), Chose("items", 0),
          [](QWidget& dialog) { QTest::keyClick(&Find<RecordList>(dialog, "items"), Qt::Key_Delete); },
          Opening("button32790", {Typed("covers", "9"), Clicked("cancel")}),
          ShowsItems("Čep|0,75|1,00|0,50|9,90|prodejní|dovezený do ČR|předplacený"), Clicked("button32792"),
          ShowsItems(""), Clicked("cancel")});
    EXPECT_EQ(stored, AllRows(folder));
}

TEST_F(CompCoverRegisterTest, AddsACompositeWithItsItems) {
    folder.Sql("INSERT INTO TmpCover_Item (cover_id) VALUES (1)");
    const auto onlySimple = [](QWidget& sheet) {
        EXPECT_EQ(1, Find<QTabWidget>(sheet, "tabs").count()) << "no composite inside a composite";
        EXPECT_EQ("Bedna, Cívka, Čep", Names(Find<RecordList>(sheet, "simple")));
    };
    Do(ID_RECORD_ADD,
       {ShowsItems(""), // whatever an earlier dialog left
        Opening("button32793",
                {ShowsTitle("Vyberte obal"), onlySimple, IsRefused("next", Text::NoCover, "simple"), ChoseCover(2),
                 ShowsTitle("Údaje balení"), ShowsFocus("covers"), Shows("type", "prodejní"),
                 Shows("origin", "dovezený do ČR"), Shows("payment", "předplacený"), Shows("weight", "0,25"),
                 Typed("covers", "4"), Shows("weight", "1"), Clicked("useRange"), Typed("useFrom", "2,5"),
                 Typed("useTo", "1"), Picked("payment", 1), Clicked("finish")}),
        ShowsItems("Čep|1,00|1,00|2,50|1,00|prodejní|dovezený do ČR|zpoplatněný"), Typed("name", "  Nový "),
        Typed("note", "poznámka"), Clicked("ok")});
    EXPECT_EQ("1|Sada|dvě 2|Balík| 3|Nový |poznámka", folder.AskAll(Composites));
    EXPECT_EQ(std::string(StoredItems) + " 3|2|40000|10000|0|25000|10000|2|0|1", folder.AskAll(AllItems));
    EXPECT_EQ(3, List("composites").SelectedId());
}

TEST_F(CompCoverRegisterTest, EditingReplacesTheItems) {
    // The range of a rule that applies always stays as it was stored.
    steps.Then(InTurn({Typed("name", "Sada 2"),
                       [this](QWidget& dialog) {
                           steps.Then(InTurn({Shows("finish", "OK"), Shows("useRange", "ano"), Shows("useTo", "9,9"),
                                              Clicked("useAlways"), ShowsEnabled({"useFrom", "useTo"}, false),
                                              Typed("covers", "0,0001"), Clicked("finish")}));
                           DoubleClickRow(Find<RecordList>(dialog, "items"), 1);
                       },
                       ShowsItems("Bedna|3,00|12,00|-|-|skupinový|nakoupený v ČR|zpoplatněný\n"
                                  "Čep|0,00|1,00|-|-|prodejní|dovezený do ČR|předplacený"),
                       Clicked("ok")}));
    DoubleClickRow(List("composites"), 1);
    EXPECT_EQ("1|Sada 2|dvě 2|Balík|", folder.AskAll(Composites));
    EXPECT_EQ("2|3|10000|10000|1|7|8|2|0|2 1|2|1|10000|1|5000|99000|2|0|2 1|1|15000|120000|1|null|null|1|1|1",
              folder.AskAll(AllItems));
    EXPECT_EQ(1, List("composites").SelectedId());
}

TEST_F(CompCoverRegisterTest, ChecksInOrderAndPutsTheFocusOnTheFault) {
    const std::string stored = AllRows(folder);
    Edit({Typed("name", "   "), IsRefused("ok", "Není zadáno jméno!", "name"), Clicked("button32792"),
          Clicked("button32792"), IsRefused("button32790", "Není vybrán obal !", "button32790"),
          IsRefused("button32792", "Není vybrán obal !", "button32792"), IsRefused("ok", "Není zadáno jméno!", "name"),
          Typed("name", "Jméno"), IsRefused("ok", "Není vybrán žádný obal!", "items"), Clicked("cancel")});
    EXPECT_EQ(stored, AllRows(folder));
}

TEST_F(CompCoverRegisterTest, OffersTheMenuOfTheComposition) {
    const auto shows = [](bool onRow, const char* menu) {
        return [=](QWidget& dialog) {
            emit Find<RecordList>(dialog, "items").menuWanted(dialog.mapToGlobal(QPoint(50, 50)), onRow);
            EXPECT_EQ(menu, TakeMenu());
        };
    };
    Edit({shows(true, "&Přidat Ins+ &Upravit+ &Odstranit Del+"), shows(false, "&Přidat Ins+ &Upravit &Odstranit Del"),
          Clicked("cancel")});
}

TEST_F(CompCoverRegisterTest, FailuresWhileCopyingLeaveWhatWasWritten) {
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"the old items", "DELETE ON CompCover_Item", StoredItems, "1|Jiná|dvě 2|Balík|"},
        {"the second item", "INSERT ON CompCover_Item WHEN NEW.cover_id = 1",
         "2|3|10000|10000|1|7|8|2|0|2 1|2|30000|10000|0|5000|99000|2|0|2", "1|Jiná|dvě 2|Balík|"},
    };
    for (const auto& [what, fault, items, composites] : cases) {
        SCOPED_TRACE(what);
        Fault(fault);
        List("composites").SelectRow(List("composites").CellText(0, 0) == Czech("Balík") ? 1 : 0);
        ExpectError([&] { Do(ID_RECORD_EDIT, {Typed("name", "Jiná"), Clicked("ok")}); });
        EXPECT_EQ(items, folder.AskAll(AllItems));
        EXPECT_EQ(composites, folder.AskAll(Composites));
        EXPECT_EQ(1, List("composites").SelectedId());
        folder.Sql("DROP TRIGGER fault");
    }
    // The dialog opens with what was copied.
    folder.Sql("INSERT INTO CompCover_Item (ccover_id, cover_id) VALUES (1, 3)");
    Fault("INSERT ON TmpCover_Item WHEN NEW.cover_id = 3");
    List("composites").SelectRow(1);
    ExpectError([&] {
        Do(ID_RECORD_EDIT,
           {ShowsItems("Čep|0,75|1,00|0,50|9,90|prodejní|dovezený do ČR|předplacený"), Clicked("cancel")});
    });
}

TEST_F(CompCoverRegisterTest, FiltersByNameAndNote) {
    Do(ID_RECORD_FILTER,
       {ShowsEnabled({"note", "notePart"}, false), Clicked("byNote"), ShowsEnabled({"note", "notePart"}, true),
        ShowsEnabled({"name", "namePart"}, false), Typed("note", "DVĚ"), Clicked("ok")});
    EXPECT_EQ("Sada", Names(List("composites")));
    Do(ID_RECORD_FILTER, {Typed("note", "v"), Clicked("notePart"), Clicked("ok")});
    EXPECT_EQ("Sada", Names(List("composites")));
    Do(ID_RECORD_FILTER, {Clicked("byName"), Typed("name", "balík"), Clicked("ok")});
    EXPECT_EQ("", Names(List("composites"))) << "both";
    Do(ID_RECORD_FILTER, {Shows("notePart", "ano"), Clicked("byNote"), Clicked("ok")});
    EXPECT_EQ("Balík", Names(List("composites")));
    Do(ID_RECORD_FILTER, {Typed("name", "a"), Clicked("namePart"), Clicked("ok")});
    EXPECT_EQ("Balík, Sada", Names(List("composites")));
    Do(ID_RECORD_FILTER, {Clicked("byNote"), Clicked("notePart"), Clicked("ok")});
    EXPECT_EQ("", Names(List("composites"))) << "not the whole note";
}

} // namespace
