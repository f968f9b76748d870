#include "core/rules/BulkRecompute.h"
#include "tests/windows/support/RegisterFixture.h"
#include "windows/frame/doors/MessageBoxDoor.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>

namespace {

using enum Command;

std::string Plain(QString text) {
    return text.replace(QChar::Nbsp, u' ').toStdString();
}

TEST(DeletionQuestions, NameTheRecordOrTheCountBelowAndEnterAnswersNo) {
    const struct {
        Command show;
        const char* list;
        int row;
        bool all;
        Command command;
        const char* detail;
    } cases[] = {
        {ID_SHOW_COVERS, "covers", 0, false, ID_RECORD_DELETE,
         "1 obal: Bedna, použit v 1 složeném obalu, 1 balení, 1 výdeji"},
        {ID_SHOW_COVERS, "covers", 1, false, ID_RECORD_DELETE, "1 obal: Fólie"},
        {ID_SHOW_COVERS, "covers", 0, true, ID_RECORD_DELETE, "3 obaly: Bedna, Fólie, PE folie 20 µm"},
        {ID_SHOW_COVERS, "discards", 1, false, ID_DETAIL_DELETE, "Obal Bedna, 3,00 ks"},
        {ID_SHOW_COMPOSITES, "composites", 1, false, ID_RECORD_DELETE, "1 složený obal: Sada, 2 obaly"},
        {ID_SHOW_ISSUES, "issues", 0, false, ID_RECORD_DELETE, "1 výdej: D-1, 2 položky"},
        {ID_SHOW_ISSUES, "items", 0, false, ID_DETAIL_DELETE, "Výdej D-1, 2 obaly"},
        {ID_SHOW_ISSUES, "issuedCovers", 0, false, ID_SUBDETAIL_DELETE, "Výdej D-1, produkt Čaj"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.detail);
        OpenRegister opened(each.show);
        opened.messages.AcceptAny();
        RecordList& list = opened.List(each.list);
        ClickRow(list, each.row);
        if (each.all)
            QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
        const std::string stored = AllRows(opened.folder);
        opened.Execute(each.command);
        ASSERT_EQ(1u, opened.messages.Shown().size());
        const Message& asked = opened.messages.Shown().front();
        EXPECT_EQ(each.detail, Plain(asked.detail));
        EXPECT_EQ(Message::Answer::No, asked.preset);
        EXPECT_EQ(stored, AllRows(opened.folder));
    }
}

TEST(DeletionQuestions, TheRealBoxShowsTheSecondLineAndEnterAnswersNo) {
    CMessageBoxDoor door;
    const DoorUse use(MessageDoor(), &door);
    for (const bool loses : {true, false}) {
        std::string shown;
        QTimer::singleShot(0, [&] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(nullptr, box);
            shown = (box->text() + u'|' + box->informativeText()).toStdString();
            QTest::keyClick(box, Qt::Key_Return);
        });
        const QString text = Czech("Opravdu?");
        const QString detail = Czech("1 obal: Bedna");
        EXPECT_EQ(!loses, loses ? AskToLose(text, detail) : AskYesNo(text, detail));
        EXPECT_EQ("Opravdu?|1 obal: Bedna", shown);
    }
}

TEST(ChangeReach, IsToldBeforeAnEarlierQuarterChanges) {
    {
        OpenRegister covers(ID_SHOW_COVERS);
        covers.folder.Sql(
            "INSERT INTO Move (move_num, move_date) VALUES ('1', '2012-03-31 00:00:00'), "
            "('2', '2012-04-01 00:00:00');"
            "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id) VALUES (1, 1, 1), (2, 2, 1), (2, 2, 1)");
        covers.Do(ID_RECORD_EDIT, {Picked("payment", 2), Clicked("ok")});
        EXPECT_EQ("Změní kuvel 2 položek výdejů, ve čtvrtletích 1/2012, 2/2012",
                  Plain(QString::fromStdString(covers.frame.said)));
        covers.frame.said.clear();
        Options()->coversToIssues = 0;
        covers.Do(ID_RECORD_EDIT, {Picked("payment", 1), Clicked("ok")});
        EXPECT_EQ("", covers.frame.said);
    }
    OpenRegister issues(ID_SHOW_ISSUES);
    issues.folder.Sql("UPDATE Product SET deleted = 1 WHERE prod_id = 2");
    issues.messages.AcceptAny();
    EXPECT_FALSE(AskRecomputeAllIssues(issues.folder.store));
    const Message& asked = issues.messages.Shown().front();
    EXPECT_EQ("Změní kuvel 3 položek výdejů, ve čtvrtletích 2/2012, 3/2012; o kuvel přijde 1 položek odstraněných "
              "produktů",
              Plain(asked.detail));
    EXPECT_EQ(Message::Answer::No, asked.preset);
}

TEST(Sheets, NameWhatTheyAreAbout) {
    OpenRegister issues(ID_SHOW_ISSUES);
    const auto subject = [](const char* text) {
        return [text](QWidget& sheet) {
            EXPECT_EQ(text, Find<QLabel>(sheet, "subject").text().toStdString());
            EXPECT_TRUE(Find<QLabel>(sheet, "subject").isVisible());
        };
    };
    ClickRow(issues.List("items"), 1);
    issues.Do(ID_DETAIL_EDIT, {subject("Káva"), Clicked("cancel")});
    ClickRow(issues.List("items"), 0);
    issues.Do(ID_SUBDETAIL_EDIT, {subject("Fólie"),
                                  [](QWidget& sheet) {
                                      const QPalette palette = Find<QWidget>(sheet, "type").palette();
                                      EXPECT_EQ(palette.color(QPalette::Active, QPalette::Text),
                                                palette.color(QPalette::Disabled, QPalette::Text));
                                  },
                                  Clicked("cancel")});
    OpenRegister covers(ID_SHOW_COVERS);
    covers.Do(ID_DETAIL_EDIT, {subject("Bedna"), Clicked("cancel")});
    // The pages after a choice name it too, and the one before it no longer.
    issues.Do(ID_DETAIL_ADD, {Chose("products", 1), Clicked("next"), subject("Káva"), Clicked("cancel")});
    issues.Do(ID_SUBDETAIL_ADD, {subject("Čaj"), Chose("simple", 0), Clicked("next"), subject("Čaj – Fólie"),
                                 Clicked("back"), subject("Čaj"), Clicked("cancel")});
    OpenRegister products(ID_SHOW_PRODUCTS);
    products.Do(ID_SUBDETAIL_ADD,
                {subject("Čaj"), Chose("simple", 1), Clicked("next"), subject("Čaj – Krabice"), Clicked("cancel")});
    for (int row : {0, 1})
        ClickRow(products.List("products"), row, row == 0 ? Qt::NoModifier : Qt::ControlModifier);
    products.Do(ID_PROD_ASSIGN_COVERS, {subject("2\u00a0produkty"), Clicked("cancel")});
    // A long name does not make the sheet wider than the screen.
    issues.folder.Sql("UPDATE Product SET prod_name = 'Káva ' || replace(hex(zeroblob(120)), '00', 'W')");
    issues.Execute(ID_RECORD_REFRESH);
    ClickRow(issues.List("items"), 1);
    issues.Do(ID_DETAIL_EDIT, {[](QWidget& sheet) { EXPECT_GT(700, sheet.width()); }, Clicked("cancel")});
}

} // namespace
