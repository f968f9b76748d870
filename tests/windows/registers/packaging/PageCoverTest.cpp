// The page on which a cover is chosen, in the sheet of a bulk assignment: date, cover, packaging.

#include "windows/registers/packaging/PageCover.h"
#include "tests/windows/support/Driver.h"
#include "windows/registers/packaging/PageCoverProd.h"
#include "windows/registers/packaging/PageDateRange.h"
#include "windows/widgets/lists/RecordList.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTabWidget>

namespace {

class PageCoverTest : public testing::Test {
protected:
    PageCoverTest() {
        folder.Sql("INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay, deleted) "
                   "VALUES ('Bedna', 0, 20000, 1, 2, 0, 0), ('Pryč', 0, 1, 1, 1, 1, 1), ('Čep', 3, 2500, 2, 0, 2, 0);"
                   "INSERT INTO CompCover (ccover_name, ccover_note) VALUES ('Sada', 'dvě'), ('Balík', '')");
    }

    /// True when the sheet was finished; from the second page on.
    bool Finishes(std::vector<Act> acts) {
        CPageDateRange date;
        CPageCover cover(folder.store, CPageCover::Offer::SimpleAndComposite);
        CPageCoverProd rule(folder.store);
        cover.SetFollower([&](const CoverChoice& each) {
            choice = each;
            rule.SetCover(each);
        });
        CWizardSheet sheet(nullptr);
        sheet.AddPage(date);
        sheet.AddPage(cover);
        sheet.AddPage(rule);
        steps.Then(InTurn({Clicked("next"), InTurn(std::move(acts))}));
        const bool finished = sheet.Run();
        chosen = {cover.ChosenId(), cover.IsComposite()};
        return finished;
    }
    static Act Tab(int tab) {
        return [tab](QWidget& sheet) { Find<QTabWidget>(sheet, "tabs").setCurrentIndex(tab); };
    }
    static Act ShowsRows(const char* list, const char* rows) {
        return [=](QWidget& sheet) { EXPECT_EQ(rows, Rows(Find<RecordList>(sheet, list))); };
    }
    static Act DoubleClicked(const char* list, int row) {
        return [=](QWidget& sheet) { DoubleClickRow(Find<RecordList>(sheet, list), row); };
    }

    StoreFolder folder;
    ScriptedMessages messages;
    Steps steps;
    CoverChoice choice;
    std::pair<std::int32_t, bool> chosen;
};

TEST_F(PageCoverTest, ASimpleCoverLeadsOnWithItsValues) {
    EXPECT_TRUE(Finishes({Tab(0), ShowsEnabled({"back"}, true),
                          ShowsRows("simple", "Bedna|skupinový|vyrobený v ČR|neplacený|dřevo|2,00|ne\n"
                                              "Čep|prodejní|dovezený do ČR|předplacený|kovy - železo FE|0,25|ne"),
                          Refused(messages, "next", "Není vybrán obal !", "simple"), DoubleClicked("simple", 0),
                          ShowsTitle("Údaje balení"), Clicked("back"), ShowsTitle("Vyberte obal"),
                          Pressed(Qt::Key_Return), Shows("finish", "Dokončit"), Pressed(Qt::Key_Return)}));
    EXPECT_EQ(std::pair(1, false), chosen);
    EXPECT_EQ((CoverTerms{1, 2, 0}), choice.terms);
}

TEST_F(PageCoverTest, ACompositeCoverEndsTheSheetAndItsTabComesUpAgain) {
    EXPECT_TRUE(
        Finishes({Tab(1), ShowsRows("composite", "Balík|\nSada|dvě"),
                  Refused(messages, "finish", "Není vybrán obal !", "composite"), DoubleClicked("composite", 1)}));
    EXPECT_EQ(std::pair(1, true), chosen);
    EXPECT_EQ(-1, choice.id) << "the packaging page is not asked";

    const auto composite = [](QWidget& sheet) {
        EXPECT_EQ(1, Find<QTabWidget>(sheet, "tabs").currentIndex());
        EXPECT_TRUE(Find<QPushButton>(sheet, "finish").isVisible());
        EXPECT_FALSE(Find<QPushButton>(sheet, "next").isVisible());
    };
    EXPECT_FALSE(Finishes({composite, Tab(0), Clicked("cancel")}));
}

TEST_F(PageCoverTest, ACoverThatVanishedMeanwhileHandsOnNoValues) {
    Finishes({Tab(0), Chose("simple", 0), [this](QWidget&) { folder.Sql("DELETE FROM Cover WHERE cover_id = 1"); },
              Clicked("next"), Clicked("cancel")});
    EXPECT_EQ(1, choice.id);
    EXPECT_EQ(CoverTerms(), choice.terms);
}

TEST_F(PageCoverTest, EachTabIsFilledOnceAndOnlyWhenShown) {
    Finishes({Tab(0), ShowsRows("composite", ""),
              [this](QWidget&) { folder.Sql("DELETE FROM CompCover WHERE ccover_id = 1; DELETE FROM Cover"); }, Tab(1),
              ShowsRows("composite", "Balík|"), Tab(0),
              [](QWidget& sheet) { EXPECT_EQ(2, Find<RecordList>(sheet, "simple").RowCount()); }, Clicked("cancel")});
}

} // namespace
