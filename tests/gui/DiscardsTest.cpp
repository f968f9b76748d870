#include "tests/gui/CoverFixture.h"

#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>

namespace {

class DiscardsTest : public CoverFixture {};

TEST_F(DiscardsTest, TwoCoversDisableTheDiscards) {
    ClickRow(Covers(), 0);
    EXPECT_TRUE(Discards().isEnabled());
    ClickRow(Covers(), 1, Qt::ControlModifier);
    EXPECT_FALSE(Discards().isEnabled());
    EXPECT_EQ("", Rows(Discards()));
    for (const Command command : {Command::ID_DETAIL_ADD, Command::ID_DETAIL_EDIT, Command::ID_DETAIL_DELETE}) {
        EXPECT_FALSE(
            Find<QPushButton>(view, ("button" + std::to_string(static_cast<int>(command))).c_str()).isEnabled());
        view.Run(command);
    }
    ClickRow(Covers(), 0);
    EXPECT_TRUE(Discards().isEnabled());
    EXPECT_EQ(2, Discards().RowCount());
}

TEST_F(DiscardsTest, SortsDiscardsByTheirHeader) {
    EXPECT_EQ("01.03.2012, 02.05.2012", Names(Discards()));
    ClickHeader(Discards(), 0);
    EXPECT_EQ("02.05.2012, 01.03.2012", Names(Discards()));
    ClickHeader(Discards(), 2);
    EXPECT_EQ("01.03.2012, 02.05.2012", Names(Discards()));
}

TEST_F(DiscardsTest, AddsADiscardOfTheSelectedCover) {
    ClickRow(Covers(), 1);
    steps.Then([&](QWidget& sheet) {
        EXPECT_EQ(Czech("Vyřazení obalu"), sheet.windowTitle());
        EXPECT_EQ("quantity", Focus(sheet));
        EXPECT_EQ(QStringLiteral("0"), Find<QLineEdit>(sheet, "quantity").selectedText());
        EXPECT_EQ(QStringLiteral("OK"), Find<QPushButton>(sheet, "finish").text());
        EXPECT_EQ(QStringLiteral("02.07.2012"), Find<QDateEdit>(sheet, "date").text());
        messages.Expect(Czech("Množství musí být větší než 0 !"), Message::Icon::Warning);
        Click(sheet, "finish");
        EXPECT_EQ("quantity", Focus(sheet));
        // 0,25 kg a piece: the two follow each other.
        TypeText(sheet, "quantity", "3");
        EXPECT_EQ(QStringLiteral("0,75"), Find<QLineEdit>(sheet, "weight").text());
        TypeText(sheet, "weight", "1");
        EXPECT_EQ(QStringLiteral("4"), Find<QLineEdit>(sheet, "quantity").text());
        EXPECT_EQ(QStringLiteral("1"), Find<QLineEdit>(sheet, "weight").text());
        Click(sheet, "way0");
        QTest::keyClick(&sheet, Qt::Key_Return);
    });
    view.Run(Command::ID_DETAIL_ADD);
    EXPECT_EQ("3|2|2012-07-02_00:00:00|40000|0",
              folder.AskAll("SELECT disc_id, cover_id, replace(disc_date, ' ', '_'), disc_qty, disc_type FROM "
                            "CoverDiscard WHERE cover_id = 2"));
    EXPECT_EQ("02.07.2012|energeticky využito|1,00", Rows(Discards()));
    EXPECT_EQ(3, Discards().SelectedId());
}

TEST_F(DiscardsTest, EditsADiscard) {
    ClickRow(Discards(), 1);
    steps.Then([](QWidget& sheet) {
        EXPECT_EQ(QStringLiteral("3"), Find<QLineEdit>(sheet, "quantity").text());
        EXPECT_EQ(QStringLiteral("6"), Find<QLineEdit>(sheet, "weight").text());
        TypeText(sheet, "quantity", "0,5");
        Click(sheet, "way1");
        Find<QDateEdit>(sheet, "date").setDate(QDate(2012, 6, 1));
        Click(sheet, "finish");
    });
    view.Run(Command::ID_DETAIL_EDIT);
    EXPECT_EQ("1|1|2012-06-01_00:00:00|5000|1 2|1|2012-03-01_00:00:00|10000|2", folder.AskAll(AllDiscards));
    EXPECT_EQ(1, Discards().SelectedId());
}

TEST_F(DiscardsTest, AVanishedDiscardIsToldAndLeavesTheList) {
    const auto inform = [&] {
        messages.Expect(Czech("Záznam byl odstraněn jinou aplikací!"), Message::Icon::Information);
    };
    steps.Then([&](QWidget& sheet) {
        folder.Sql("DELETE FROM CoverDiscard WHERE disc_id = 2");
        TypeText(sheet, "quantity", "5");
        inform();
        Click(sheet, "finish");
    });
    view.Run(Command::ID_DETAIL_EDIT);
    EXPECT_EQ("02.05.2012", Names(Discards()));
    folder.Sql("DELETE FROM CoverDiscard");
    Discards().SelectRow(0);
    inform();
    view.Run(Command::ID_DETAIL_EDIT);
    EXPECT_EQ("", Names(Discards()));
}

TEST_F(DiscardsTest, DeletesADiscardAfterItsQuestion) {
    const QString question = Czech("Opravdu si přejete odstranit ze seznamu obal vyřazený \"01.03.2012\" ?");
    messages.ExpectQuestion(question, Message::Answer::No);
    view.Run(Command::ID_DETAIL_DELETE);
    EXPECT_EQ(2, Discards().RowCount());
    messages.ExpectQuestion(question, Message::Answer::Yes);
    view.Run(Command::ID_DETAIL_DELETE);
    EXPECT_EQ("1", folder.AskAll("SELECT disc_id FROM CoverDiscard"));
    EXPECT_EQ("02.05.2012", Names(Discards()));
}

} // namespace
