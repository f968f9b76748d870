#include "tests/gui/ProductFixture.h"

namespace {

class ValidityDateTest : public ProductFixture {};

TEST_F(ValidityDateTest, ANewDateKeepsTheTimeAtWhichItsDialogWasOpened) {
    steps.Then([](QWidget& dialog) {
        EXPECT_EQ(Czech("Definice časové platnosti"), dialog.windowTitle());
        EXPECT_EQ("date", Focus(dialog));
        EXPECT_EQ(QStringLiteral("02.07.2012"), Find<QDateEdit>(dialog, "date").text());
        ChooseDay(dialog, 2012, 8, 5);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    view.Run(Command::ID_DETAIL_ADD);
    EXPECT_EQ("1|1|2012-01-01_00:00:00 2|1|2012-06-01_08:00:00 3|2|2012-02-01_00:00:00 4|1|2012-08-05_10:15:30",
              StoredDates());
    EXPECT_EQ(4, Dates().SelectedId());
    EXPECT_EQ("", Rows(Packaging()));
    EXPECT_EQ(Computed, Issued());
    ExpectTold(1);
}

TEST_F(ValidityDateTest, AnEarlierNewDateLeavesTheNewestSelected) {
    steps.Then([](QWidget& dialog) {
        ChooseDay(dialog, 2011, 8, 5);
        Click(dialog, "ok");
    });
    view.Run(Command::ID_DETAIL_ADD);
    EXPECT_EQ("05.08.2011, 01.01.2012, 01.06.2012", Names(Dates()));
    EXPECT_EQ(2, Dates().SelectedId());
    EXPECT_EQ(2, Packaging().RowCount());
}

TEST_F(ValidityDateTest, ANewDateDoesNotApplyToAnIssueEarlierThatDay) {
    folder.Sql("UPDATE Move_Prod SET prod_id = 1 WHERE mvprod_id = 3");
    steps.Then([](QWidget& dialog) { Click(dialog, "ok"); });
    view.Run(Command::ID_DETAIL_ADD);
    // It begins at 10:15:30 and has no rows yet: the issue of 10:00 keeps the older rows, that of 12:00 loses them.
    EXPECT_EQ("1|1|500000 1|2|20000 2|1|100000 2|2|0", Issued());
}

TEST_F(ValidityDateTest, ASecondDateOfOneDayIsRefusedWhateverItsTime) {
    const std::string before = StoredDates();
    for (const auto& [month, text] : std::vector<std::pair<int, const char*>>{{1, "01.01.2012"}, {6, "01.06.2012"}}) {
        steps.Then([month = month](QWidget& dialog) {
            ChooseDay(dialog, 2012, month, 1);
            Click(dialog, "ok");
        });
        messages.Expect(QStringLiteral("Databáze již obsahuje datum \"%1\"!").arg(QString::fromLatin1(text)),
                        Message::Icon::None);
        view.Run(Command::ID_DETAIL_ADD);
    }
    EXPECT_EQ(before, StoredDates());
    EXPECT_EQ(ByHand, Issued());
    ExpectTold(0);

    // Another product's day is no obstacle.
    steps.Then([](QWidget& dialog) {
        ChooseDay(dialog, 2012, 2, 1);
        Click(dialog, "ok");
    });
    view.Run(Command::ID_DETAIL_ADD);
    EXPECT_EQ(3, Dates().RowCount());
}

TEST_F(ValidityDateTest, ChangesADate) {
    struct Case {
        const char* what;
        QDate day;
        const char* stored; // of the second date
        const char* issued;
        bool changed;
    };
    // The definition of January holds no more than a label.
    const char* january = "1|3|250000 2|3|50000 3|3|770000";
    const std::vector<Case> cases = {
        {"the same", {2012, 6, 1}, "2012-06-01_08:00:00", ByHand, false},
        {"another day keeps the time", {2012, 6, 2}, "2012-06-02_08:00:00", Computed, true},
        {"after all issues", {2012, 7, 3}, "2012-07-03_08:00:00", january, true},
        {"the day of the other date", {2012, 1, 1}, "2012-01-01_08:00:00", Computed, true},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        folder.Sql("UPDATE Prod_CoverDT SET dt_from = '2012-06-01 08:00:00' WHERE dt_id = 2; DELETE FROM Move_Cover;"
                   "INSERT INTO Move_Cover (mvprod_id, cover_id, mvcover_qty) VALUES (1, 3, 770000), (3, 3, 770000)");
        view.Run(Command::ID_RECORD_REFRESH);
        steps.Then([&](QWidget& dialog) {
            EXPECT_EQ(QStringLiteral("01.06.2012"), Find<QDateEdit>(dialog, "date").text());
            ChooseDay(dialog, each.day.year(), each.day.month(), each.day.day());
            Click(dialog, "ok");
        });
        view.Run(Command::ID_DETAIL_EDIT);
        EXPECT_EQ(each.stored, folder.AskAll("SELECT replace(dt_from, ' ', '_') FROM Prod_CoverDT WHERE dt_id = 2"));
        EXPECT_EQ(each.issued, Issued());
        EXPECT_EQ(2, Dates().SelectedId());
        ExpectTold(each.changed ? 1 : 0);
    }
}

TEST_F(ValidityDateTest, DeletesADateWithItsRows) {
    const QString question = Czech("Opravdu si přejete odstranit ze seznamu platnost\n\"01.06.2012\" ?");
    messages.ExpectQuestion(question, Message::Answer::No);
    view.Run(Command::ID_DETAIL_DELETE);
    EXPECT_EQ(2, Dates().RowCount());
    ExpectTold(0);

    messages.ExpectQuestion(question, Message::Answer::Yes);
    view.Run(Command::ID_DETAIL_DELETE);
    EXPECT_EQ("1|1|2012-01-01_00:00:00 3|2|2012-02-01_00:00:00", StoredDates());
    EXPECT_EQ("1|3|10000|10000|1|null|null|0|2|0", StoredPackaging());
    EXPECT_EQ("01.01.2012", Names(Dates()));
    EXPECT_EQ("1|3|250000 2|3|50000 3|3|770000", Issued());
    ExpectTold(1);

    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit ze seznamu platnost\n\"01.01.2012\" ?"),
                            Message::Answer::Yes);
    view.Run(Command::ID_DETAIL_DELETE);
    EXPECT_EQ("", Rows(Dates()) + Rows(Packaging()));
    EXPECT_EQ("3|3|770000", Issued()) << "without a definition nothing goes out";
}

} // namespace
