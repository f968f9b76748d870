#include "registers/PageCover.h"
#include "registers/PageCoverProd.h"
#include "registers/PageDateRange.h"
#include "registers/RecordList.h"
#include "tests/gui/Driver.h"

#include <gtest/gtest.h>

#include <QDateEdit>
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

    /// The sheet of a bulk assignment: date, cover, packaging.
    bool Run(const std::function<void(QWidget&)>& act) {
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
        steps.Then(act);
        const bool finished = sheet.Run();
        chosenId = cover.ChosenId();
        isComposite = cover.IsComposite();
        day = date.Date().Stored();
        return finished;
    }
    static void ShowTab(QWidget& sheet, int tab) { Find<QTabWidget>(sheet, "tabs").setCurrentIndex(tab); }

    StoreFolder folder;
    ScriptedMessages messages;
    Steps steps;
    CoverChoice choice;
    std::int32_t chosenId = -1;
    bool isComposite = false;
    std::string day;
};

TEST_F(PageCoverTest, ASimpleCoverLeadsOnWithItsValues) {
    EXPECT_TRUE(Run([](QWidget& sheet) {
        EXPECT_EQ(Czech("Zadejte časovou platnost"), sheet.windowTitle());
        EXPECT_EQ("date", Focus(sheet));
        EXPECT_FALSE(Find<QPushButton>(sheet, "back").isEnabled());
        EXPECT_EQ(QStringLiteral("02.07.2012"), Find<QDateEdit>(sheet, "date").text());
        Click(sheet, "next");
        ShowTab(sheet, 0);
        EXPECT_TRUE(Find<QPushButton>(sheet, "back").isEnabled());
        auto& covers = Find<RecordList>(sheet, "simple");
        EXPECT_EQ("Bedna|skupinový|vyrobený v ČR|neplacený|dřevo|2,00|ne\n"
                  "Čep|prodejní|dovezený do ČR|předplacený|kovy - železo FE|0,25|ne",
                  Rows(covers));
        EXPECT_EQ(-1, covers.SelectedRow());
        // A double click is Next.
        DoubleClickRow(covers, 0);
        EXPECT_EQ(Czech("Údaje balení"), sheet.windowTitle());
        Click(sheet, "back");
        EXPECT_EQ(Czech("Vyberte obal"), sheet.windowTitle());
        QTest::keyClick(&sheet, Qt::Key_Return);
        EXPECT_EQ(Czech("Dokončit"), Find<QPushButton>(sheet, "finish").text());
        QTest::keyClick(&sheet, Qt::Key_Return);
    }));
    EXPECT_EQ(1, chosenId);
    EXPECT_FALSE(isComposite);
    EXPECT_EQ(1, choice.type);
    EXPECT_EQ(2, choice.origin);
    EXPECT_EQ(0, choice.payment);
    EXPECT_EQ("2012-07-02 00:00:00", day);
}

TEST_F(PageCoverTest, ACompositeCoverEndsTheSheetAndItsTabComesUpAgain) {
    EXPECT_TRUE(Run([&](QWidget& sheet) {
        Click(sheet, "next");
        ShowTab(sheet, 1);
        EXPECT_FALSE(Find<QPushButton>(sheet, "next").isVisible());
        auto& composites = Find<RecordList>(sheet, "composite");
        EXPECT_EQ("Balík|\nSada|dvě", Rows(composites));
        messages.Expect(Czech("Není vybrán obal !"), Message::Icon::Warning);
        Click(sheet, "finish");
        EXPECT_EQ("composite", Focus(sheet));
        DoubleClickRow(composites, 1);
    }));
    EXPECT_EQ(1, chosenId);
    EXPECT_TRUE(isComposite);
    EXPECT_EQ(-1, choice.id) << "the packaging page is not asked";

    EXPECT_FALSE(Run([](QWidget& sheet) {
        Click(sheet, "next");
        EXPECT_EQ(1, Find<QTabWidget>(sheet, "tabs").currentIndex());
        EXPECT_TRUE(Find<QPushButton>(sheet, "finish").isVisible());
        ShowTab(sheet, 0);
        Click(sheet, "cancel");
    }));
}

TEST_F(PageCoverTest, ACoverThatVanishedMeanwhileHandsOnNoValues) {
    Run([&](QWidget& sheet) {
        Click(sheet, "next");
        ShowTab(sheet, 0);
        Find<RecordList>(sheet, "simple").SelectRow(0);
        folder.Sql("DELETE FROM Cover WHERE cover_id = 1");
        Click(sheet, "next");
        Click(sheet, "cancel");
    });
    EXPECT_EQ(1, choice.id);
    EXPECT_EQ(-1, choice.type);
    EXPECT_EQ(-1, choice.payment);
}

TEST_F(PageCoverTest, EachTabIsFilledOnceAndOnlyWhenShown) {
    Run([&](QWidget& sheet) {
        Click(sheet, "next");
        ShowTab(sheet, 0);
        EXPECT_EQ(0, Find<RecordList>(sheet, "composite").RowCount());
        folder.Sql("INSERT INTO CompCover (ccover_name) VALUES ('Xaver'); DELETE FROM Cover");
        ShowTab(sheet, 1);
        EXPECT_EQ(3, Find<RecordList>(sheet, "composite").RowCount());
        ShowTab(sheet, 0);
        EXPECT_EQ(2, Find<RecordList>(sheet, "simple").RowCount());
        Click(sheet, "cancel");
    });
}

} // namespace
