#include "tests/windows/registers/products/ProductFixture.h"

namespace {

using enum Command;

class ValidityDateTest : public ProductFixture {};

TEST_F(ValidityDateTest, ANewDateKeepsTheTimeAtWhichItsDialogWasOpened) {
    Do(ID_DETAIL_ADD, {ShowsTitle("Definice časové platnosti"), ShowsFocus("date"), Shows("date", "02.07.2012"),
                       Dated("date", {2012, 8, 5}), Pressed(Qt::Key_Return)});
    EXPECT_EQ("1|1|2012-01-01_00:00:00 2|1|2012-06-01_08:00:00 3|2|2012-02-01_00:00:00 4|1|2012-08-05_10:15:30",
              StoredDates());
    EXPECT_EQ(4, List("dates").SelectedId());
    EXPECT_EQ("", Rows(List("packaging")));
    ExpectIssued(Computed, 1);
    // An earlier one leaves the newest selected.
    Do(ID_DETAIL_ADD, {Dated("date", {2011, 8, 5}), Clicked("ok")});
    EXPECT_EQ("05.08.2011, 01.01.2012, 01.06.2012, 05.08.2012", Names(List("dates")));
    EXPECT_EQ(4, List("dates").SelectedId());
}

TEST_F(ValidityDateTest, ANewDateOffersThePackagingOfTheDateBefore) {
    RecordList& dates = List("dates");
    ClickRow(dates, 0);
    const std::string first = Rows(List("packaging"));
    ClickRow(dates, 1);
    const std::string second = Rows(List("packaging"));
    ASSERT_NE(first, second);
    Do(ID_DETAIL_ADD,
       {Shows("takePackaging", "ne"), Dated("date", {2012, 8, 5}), Clicked("takePackaging"), Clicked("ok")});
    EXPECT_EQ(second, Rows(List("packaging")));
    Do(ID_DETAIL_ADD, {Dated("date", {2012, 2, 5}), Clicked("takePackaging"), Clicked("ok")});
    ClickRow(dates, 1);
    EXPECT_EQ(first, Rows(List("packaging")));
}

TEST_F(ValidityDateTest, ANewDateDoesNotApplyToAnIssueEarlierThatDay) {
    folder.Sql("UPDATE Move_Prod SET prod_id = 1 WHERE mvprod_id = 3");
    Do(ID_DETAIL_ADD, {Clicked("ok")});
    // It begins at 10:15:30 and has no rows yet: the issue of 10:00 keeps the older rows, that of 12:00 loses them.
    ExpectIssued("1|1|500000 1|2|20000 2|1|100000 2|2|0", 1);
}

TEST_F(ValidityDateTest, ASecondDateOfOneDayIsRefusedWhateverItsTime) {
    const std::string before = StoredDates();
    for (const auto& [month, text] : {std::pair{1, "01.01.2012"}, std::pair{6, "01.06.2012"}}) {
        messages.Expect(QStringLiteral("Databáze již obsahuje datum \"%1\"!").arg(QString::fromLatin1(text)),
                        Message::Icon::None);
        Do(ID_DETAIL_ADD, {Dated("date", {2012, month, 1}), Clicked("ok")});
    }
    EXPECT_EQ(before, StoredDates());
    ExpectIssued(ByHand, 0);
    // Another product's day is no obstacle.
    Do(ID_DETAIL_ADD, {Dated("date", {2012, 2, 1}), Clicked("ok")});
    EXPECT_EQ(3, List("dates").RowCount());
}

TEST_F(ValidityDateTest, ChangesADate) {
    // The definition of January holds no more than a label.
    // stored: of the second date
    const std::tuple<const char*, QDate, const char*, const char*, std::size_t> cases[] = {
        {"the same", {2012, 6, 1}, "2012-06-01_08:00:00", ByHand, 0},
        {"another day keeps the time", {2012, 6, 2}, "2012-06-02_08:00:00", Computed, 1},
        {"after all issues", {2012, 7, 3}, "2012-07-03_08:00:00", "1|3|250000 2|3|50000 3|3|770000", 1},
        {"the day of the other date", {2012, 1, 1}, "2012-01-01_08:00:00", Computed, 1},
    };
    for (const auto& [what, day, stored, issued, told] : cases) {
        SCOPED_TRACE(what);
        folder.Sql("UPDATE Prod_CoverDT SET dt_from = '2012-06-01 08:00:00' WHERE dt_id = 2");
        PackIssuesByHand();
        Execute(ID_RECORD_REFRESH);
        Do(ID_DETAIL_EDIT, {Shows("date", "01.06.2012"), Dated("date", day), Clicked("ok")});
        EXPECT_EQ(stored, folder.AskAll("SELECT replace(dt_from, ' ', '_') FROM Prod_CoverDT WHERE dt_id = 2"));
        EXPECT_EQ(2, List("dates").SelectedId());
        ExpectIssued(issued, told);
    }
}

TEST_F(ValidityDateTest, DeletingDatesComputesTheIssuesAnew) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"01.06.2012", "01.01.2012", "1|3|250000 2|3|50000 3|3|770000"},
        {"01.01.2012", "", "3|3|770000"}, // without a definition nothing goes out
    };
    for (const auto& [date, dates, issued] : cases) {
        messages.ExpectQuestion(
            QStringLiteral("Opravdu si přejete odstranit ze seznamu platnost\n\"%1\" ?").arg(QLatin1String(date)),
            Message::Answer::Yes);
        Execute(ID_DETAIL_DELETE);
        EXPECT_EQ(dates, Names(List("dates")));
        ExpectIssued(issued, 1);
    }
    EXPECT_EQ("", Rows(List("packaging")));
}

} // namespace
