#include "windows/report/ReportDlg.h"
#include "core/base/AppDir.h"
#include "core/base/Profile.h"
#include "tests/windows/support/Driver.h"
#include "windows/widgets/edits/NumberSpin.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace {

struct ReportDlg : testing::Test {
    ProgramFolder folder;
    ScriptedMessages messages;

    static std::string Period(QWidget& dialog) {
        return ShownBy(dialog, "quarterSpin") + "/" + ShownBy(dialog, "yearSpin");
    }
    static void Type(QWidget& dialog, const char* spin, const char* text) {
        auto& field = Find<CNumberSpin>(dialog, spin);
        field.setFocus();
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, QString::fromLatin1(text));
    }
};

TEST_F(ReportDlg, ProposesTheQuarterByTheMonth) {
    const char* const expected[] = {"4/2011", "4/2011", "1/2012", "1/2012", "1/2012", "2/2012",
                                    "2/2012", "2/2012", "3/2012", "3/2012", "3/2012", "4/2012"};
    for (int month = 1; month <= 12; ++month) {
        const DoorUse clock(ClockDoor(), [month] { return DateTime::FromDay(2012, month, 15); });
        CReportDlg dialog(nullptr);
        EXPECT_EQ(expected[month - 1], Period(dialog)) << month;
    }
}

TEST_F(ReportDlg, ChecksThePeriodOnOk) {
    struct Row {
        const char* quarter;
        const char* year;
        const char* warning;
        const char* focus;
    };
    const Row rows[] = {
        {"0", "2012", "Zadejte celé číslo mezi 1 a 4.", "quarterSpin"},
        {"5", "2013", "Zadejte celé číslo mezi 1 a 4.", "quarterSpin"},
        {"", "2012", "Zadejte celé číslo.", "quarterSpin"},
        {"4", "1999", "Zadejte celé číslo mezi 2000 a 2012.", "yearSpin"},
        {"4", "2013", "Zadejte celé číslo mezi 2000 a 2012.", "yearSpin"},
        {"4", "", "Zadejte celé číslo.", "yearSpin"},
        {"1", "2000", nullptr, nullptr},
        {"4", "2012", nullptr, nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.quarter) + "/" + row.year);
        CReportDlg dialog(nullptr);
        dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        Type(dialog, "quarterSpin", row.quarter);
        Type(dialog, "yearSpin", row.year);
        if (row.warning != nullptr)
            messages.Expect(QString::fromUtf8(row.warning), Message::Icon::Warning);
        Click(dialog, "ok");
        EXPECT_EQ(row.warning != nullptr, dialog.isVisible());
        EXPECT_EQ(std::string(row.quarter) + "/" + row.year, Period(dialog));
        if (row.focus != nullptr) {
            EXPECT_TRUE(Find<CNumberSpin>(dialog, row.focus).hasFocus());
            EXPECT_FALSE(QFile::exists(SettingsPath()));
        } else {
            EXPECT_EQ((::Period{QString::fromLatin1(row.year).toInt(), QString::fromLatin1(row.quarter).toInt()}),
                      dialog.Request().period);
            QFile::remove(SettingsPath());
        }
    }
}

TEST_F(ReportDlg, ArrowsStayWithinTheLimits) {
    CReportDlg dialog(nullptr);
    struct Row {
        const char* spin;
        const char* typed;
        Qt::Key key;
        int expected;
    };
    const Row rows[] = {
        {"quarterSpin", "4", Qt::Key_Up, 4},      {"quarterSpin", "1", Qt::Key_Down, 1},
        {"quarterSpin", "2", Qt::Key_Up, 3},      {"yearSpin", "2012", Qt::Key_Up, 2012},
        {"yearSpin", "2013", Qt::Key_Down, 2012}, {"yearSpin", "2000", Qt::Key_Down, 2000},
    };
    for (const Row& row : rows) {
        Type(dialog, row.spin, row.typed);
        QTest::keyClick(&Find<CNumberSpin>(dialog, row.spin), row.key);
        EXPECT_EQ(row.expected, Find<CNumberSpin>(dialog, row.spin).value()) << row.spin << row.typed;
    }
}

TEST_F(ReportDlg, NamesTheFileThatCannotTakeTheCompanysData) {
    ASSERT_TRUE(QDir().mkdir(SettingsPath()));
    CReportDlg dialog(nullptr);
    dialog.show();
    messages.Expect(QStringLiteral("Nemohu zapsat soubor '%1'\n\nChyba č.21. %2")
                        .arg(SettingsPath(), QString::fromLocal8Bit(std::strerror(EISDIR))),
                    Message::Icon::Error);
    Click(dialog, "ok");
    EXPECT_EQ(QDialog::Accepted, dialog.result());
}

struct Field {
    const char* label;
    const char* edit;
    const char* key;
};

constexpr Field Fields[] = {
    {"Společnost:", "companyNameEdit", "Nazev"},
    {"Sídlo:", "officeEdit", "Sidlo"},
    {"IČ:", "companyNumberEdit", "ICO"},
    {"DIČ:", "taxNumberEdit", "DIC"},
    {"EKO-KOM ID:", "schemeIdEdit", "EKOKOM_ID"},
    {"Kontaktní osoba:", "contactPersonEdit", "KontaktniOsoba"},
    {"Tel.:", "telephoneEdit", "Tel"},
    {"Fax:", "faxEdit", "Fax"},
    {"e-mail:", "mailEdit", "Mail"},
    {"E-mail pro příjem faktur:", "invoiceMailEdit", "MailInv"},
};

TEST_F(ReportDlg, TabGoesThroughTheGroupsInReadingOrder) {
    CReportDlg dialog(nullptr);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    std::vector<std::string> expected{"quarterSpin", "yearSpin", "regularRadio"};
    for (const Field& field : Fields)
        expected.emplace_back(field.edit);
    expected.insert(expected.end(), {"ok", "cancel", "help", "quarterSpin"});
    std::vector<std::string> met;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        met.push_back(dialog.focusWidget()->objectName().toStdString());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(expected, met);
}

TEST_F(ReportDlg, OkKeepsTheCompanysDataAndStornoWritesNothing) {
    CProfile settings(SettingsPath());
    const auto read = [&](const Field& field) {
        return settings.GetString(QStringLiteral("Spolecnost"), QString::fromLatin1(field.key), QStringLiteral("-"));
    };
    CReportDlg first(nullptr);
    first.show();
    TypeText(first, "mailEdit", "x");
    Click(first, "cancel");
    EXPECT_FALSE(QFile::exists(SettingsPath()));

    CReportDlg dialog(nullptr);
    dialog.show();
    EXPECT_EQ("Údaje uvedené na výkazu", dialog.windowTitle().toStdString());
    for (const Field& field : Fields) {
        auto& edit = Find<QLineEdit>(dialog, field.edit);
        bool labelled = false;
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            labelled = labelled || (label->buddy() == &edit && label->text() == QString::fromUtf8(field.label));
        EXPECT_TRUE(labelled) << field.label;
        TypeText(dialog, field.edit, (std::string(" ž ") + field.key + " ").c_str());
    }
    TypeText(dialog, "faxEdit", "");
    QTest::keyClick(&Find<QRadioButton>(dialog, "correctiveRadio"), Qt::Key_Space);
    Click(dialog, "ok");
    EXPECT_FALSE(dialog.Request().regular);
    for (const Field& field : Fields) {
        const QString expected = std::string(field.key) == "Fax"
                                     ? QString()
                                     : QStringLiteral(" ž %1 ").arg(QString::fromLatin1(field.key)).trimmed();
        EXPECT_EQ(expected, read(field).trimmed()) << field.key;
    }

    CReportDlg again(nullptr);
    EXPECT_TRUE(Find<QRadioButton>(again, "regularRadio").isChecked());
    EXPECT_EQ("ž Sidlo", Find<QLineEdit>(again, "officeEdit").text().trimmed().toStdString());
    EXPECT_EQ("2/2012", Period(again));
}

} // namespace
