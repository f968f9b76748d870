// What is typed, pasted and stepped in the fields of the real dialogs, and what is stored of it.

#include "tests/windows/support/RegisterFixture.h"

#include <QCalendarWidget>
#include <QClipboard>
#include <QComboBox>

namespace {

using enum Command;

class TypedIssue : public RegisterTest<ID_SHOW_ISSUES> {
protected:
    std::string Date() const { return folder.AskAll("SELECT move_date FROM Move WHERE move_id = 1"); }
};
using TypedCover = RegisterTest<ID_SHOW_COVERS>;
using TypedComposite = RegisterTest<ID_SHOW_COMPOSITES>;

/// Into whatever has the focus, as it is.
Act Keys(const char* text) {
    return [=](QWidget& dialog) { QTest::keyClicks(dialog.focusWidget(), QString::fromUtf8(text)); };
}

Act Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    return [=](QWidget& dialog) { QTest::keyClick(dialog.focusWidget(), key, modifiers); };
}

Act Pasted(const char* edit, const char* text) {
    return [=](QWidget& dialog) {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
        auto& line = Find<QLineEdit>(dialog, edit);
        line.setFocus();
        QTest::keyClick(&line, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
    };
}

/// From the list of types to the date.
const Act Tabbed =
    InTurn({[](QWidget& dialog) { Find<QWidget>(dialog, "type").setFocus(); }, Key(Qt::Key_Tab), ShowsFocus("date")});
const Act BackTabbed = InTurn({[](QWidget& dialog) { Find<QWidget>(dialog, "exported").setFocus(); },
                               Key(Qt::Key_Backtab, Qt::ShiftModifier), ShowsFocus("date")});

TEST_F(TypedIssue, ADateIsTypedAsUsersTypeIt) {
    const struct {
        Act enter;
        const char* stored;
    } cases[] = {
        {InTurn({Tabbed, Keys("15.3.2012")}), "2012-03-15 10:00:00"},
        {InTurn({Tabbed, Keys("31032012")}), "2012-03-31 10:00:00"},
        {InTurn({Tabbed, Keys("29,2,12"), Key(Qt::Key_Tab), Shows("date", "29.02.2012")}), "2012-02-29 10:00:00"},
        {InTurn({BackTabbed, Keys("05032012")}), "2012-03-05 10:00:00"},
        {InTurn({Tabbed, Key(Qt::Key_End), Key(Qt::Key_A, Qt::ControlModifier), Keys("2012-12-31")}),
         "2012-12-31 10:00:00"},
        {InTurn({Clicked("exported"),
                 [](QWidget& dialog) {
                     QTest::mouseClick(&Find<QWidget>(dialog, "date"), Qt::LeftButton, {}, QPoint(8, 8));
                 },
                 Keys("1/4/2012")}),
         "2012-04-01 10:00:00"},
        {InTurn({Tabbed, Key(Qt::Key_Up), Key(Qt::Key_Up), Key(Qt::Key_Down)}), "2012-04-02 10:00:00"},
        {InTurn({Tabbed, Keys("31.5.2012"), Key(Qt::Key_PageDown), Shows("date", "30.04.2012"), Key(Qt::Key_PageUp)}),
         "2012-05-30 10:00:00"},
        {InTurn({Tabbed, Keys("31.12.2100"), Key(Qt::Key_Up)}), "2100-12-31 10:00:00"},
    };
    for (const auto& each : cases) {
        Do(ID_RECORD_EDIT, {each.enter, Key(Qt::Key_Return)});
        EXPECT_EQ(each.stored, Date());
    }
}

TEST_F(TypedIssue, AnImpossibleDateIsRefusedOnlyByOk) {
    const struct {
        const char* typed;
        const char* warning;
    } cases[] = {
        {"30.2.2012", "Datum \"30.2.2012\" neexistuje: únor 2012 má dny od 1 do 29."},
        {"15.3.1812", "Rok v datu \"15.3.1812\" musí být od 1900 do 2100."},
        {"15.3.", "Datum \"15.3.\" nelze přečíst. Zadejte den, měsíc a rok, například 31.12.2012."},
        {"", "Není zadáno datum!"},
    };
    for (const auto& each : cases)
        Do(ID_RECORD_EDIT, {Typed("date", each.typed), Key(Qt::Key_Up), Shows("date", each.typed), Key(Qt::Key_Tab),
                            ShowsFocus("exported"), IsRefused("ok", each.warning, "date"),
                            ShowsSelected("date", each.typed), Shows("date", each.typed), Clicked("cancel")});
    EXPECT_EQ("2012-06-15 10:00:00", Date());
}

TEST_F(TypedIssue, TheCalendarOpensByKeyAndItsDayIsTaken) {
    for (const Act& open : {Key(Qt::Key_F4), Key(Qt::Key_Down, Qt::AltModifier)})
        Do(ID_RECORD_EDIT, {Tabbed, Keys("10.3.2012"), open,
                            [](QWidget&) {
                                auto* popup = QApplication::activePopupWidget();
                                ASSERT_NE(nullptr, popup);
                                auto& calendar = Find<QCalendarWidget>(*popup, "calendar");
                                EXPECT_EQ(QDate(2012, 3, 10), calendar.selectedDate());
                                QTest::keyClick(popup->focusWidget(), Qt::Key_Right);
                                QTest::keyClick(popup->focusWidget(), Qt::Key_Return);
                                EXPECT_FALSE(popup->isVisible());
                            },
                            Shows("date", "11.03.2012"), Clicked("ok")});
    EXPECT_EQ("2012-03-11 10:00:00", Date());
}

TEST_F(TypedCover, ANumberIsNeverAnotherOne) {
    const struct {
        Act enter;
        const char* warning; // null for one that is stored
        const char* stored;
    } cases[] = {
        {Typed("weight", "1.234,5"), nullptr, "12345000"},
        {Typed("weight", "1,234.5"), nullptr, "12345000"},
        {Pasted("weight", "2.5000 kg"), nullptr, "25000"},
        {Typed("weight", "1e5"), "Číslo \"1e5\" nelze přečíst. Zadejte jen číslice, například 1234,5.", "25000"},
        {Typed("weight", "1234567890123456"),
         "Číslo \"1234567890123456\" je mimo rozsah, nejvýše lze zadat 922337203685477,5807.", "25000"},
        {Pasted("weight", "1 234,56789"), "Číslo \"1 234,56789\" má více než čtyři desetinná místa.", "25000"},
        {InTurn({[](QWidget& dialog) { Find<QWidget>(dialog, "weight").setFocus(); }, Keys("7"),
                 Key(Qt::Key_Period, Qt::KeypadModifier), Keys("125")}),
         nullptr, "71250"},
    };
    for (const auto& each : cases) {
        if (each.warning != nullptr)
            Do(ID_RECORD_EDIT, {each.enter, IsRefused("ok", each.warning, "weight"), Clicked("cancel")});
        else
            Do(ID_RECORD_EDIT, {each.enter, Clicked("ok")});
        EXPECT_EQ(each.stored, folder.Ask("SELECT cover_weight FROM Cover WHERE cover_id = 1"));
    }
}

TEST_F(TypedCover, AWeightOutOfRangeIsRefusedAndDoesNotHideTheOthers) {
    folder.Sql("UPDATE Cover SET cover_weight = 250000 WHERE cover_id = 1");
    Do(ID_DETAIL_ADD,
       {Typed("quantity", "99999999999999"), Shows("weight", ""),
        IsRefused("finish",
                  "Hmotnost 99999999999999 ks po 25 kg je mimo rozsah, nejvýše lze zadat 922337203685477,5807 kg.",
                  "quantity"),
        Clicked("cancel")});
    folder.Sql("UPDATE CoverDiscard SET disc_qty = 999999999999990000 WHERE disc_id = 1");
    Execute(ID_RECORD_REFRESH);
    EXPECT_EQ("01.03.2012|recyklováno|25,00\n02.05.2012|energeticky využito|mimo rozsah", Rows(List("discards")));
    ClickHeader(List("discards"), 2);
    EXPECT_EQ("25,00, mimo rozsah", Names(List("discards"), 2));
    ClickRow(List("discards"), 1);
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit ze seznamu obal vyřazený \"02.05.2012\" ?"),
                            Message::Answer::Yes);
    Execute(ID_DETAIL_DELETE);
    EXPECT_EQ(1, List("discards").RowCount());
}

TEST_F(TypedCover, APastedNameIsOneLine) {
    Do(ID_RECORD_EDIT, {Pasted("name", " PE\nfolie\t20 µm\n"), Clicked("ok")});
    EXPECT_EQ("PE folie 20 µm", folder.AskAll("SELECT cover_name FROM Cover WHERE cover_id = 1"));
}

TEST_F(TypedCover, ABlankBelongsToTheMaterialThatIsTyped) {
    Do(ID_RECORD_ADD, {[](QWidget& dialog) {
                           auto& material = Find<QComboBox>(dialog, "material");
                           material.setFocus();
                           QTest::keyClicks(&material, QStringLiteral("PET - p"));
                           EXPECT_EQ(nullptr, QApplication::activePopupWidget());
                           EXPECT_EQ("PET - pevné duté", material.currentText().toStdString());
                       },
                       Clicked("cancel")});
}

TEST_F(TypedComposite, LongTextsAreRefused) {
    const std::string name(51, 'x');
    const std::string note(256, 'x');
    DoRefused(ID_RECORD_EDIT, "ok",
              {{"name", Typed("name", name.c_str()), "Zadejte nejvýše 50 znaků.", "name"},
               {"note", Typed("note", note.c_str()), "Zadejte nejvýše 255 znaků.", "note"}});
}

} // namespace
