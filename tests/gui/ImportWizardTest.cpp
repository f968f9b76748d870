#include "app/Desktop.h"
#include "app/HelpKey.h"
#include "import/AskOverwriteDlg.h"
#include "import/MoneyWizard.h"
#include "import/WakWizard.h"
#include "registers/DateEdit.h"
#include "registers/HelpDoor.h"
#include "store/CodePage.h"
#include "tests/gui/Driver.h"
#include "tests/support/MoneyFolder.h"
#include "tests/support/ScriptedFiles.h"
#include "tests/support/TdsServer.h"

#include <gtest/gtest.h>

namespace {

using Act = std::function<void(QWidget&)>;

Act Clicked(const char* button) {
    return [button](QWidget& sheet) { Click(sheet, button); };
}

Act Typed(const char* edit, const char* text) {
    return [=](QWidget& sheet) { TypeText(sheet, edit, text); };
}

Act Pressed(const char* control, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    return [=](QWidget& sheet) { QTest::keyClick(&Find<QWidget>(sheet, control), key, modifiers); };
}

bool IsEnabled(QWidget& sheet, const char* control) {
    return Find<QWidget>(sheet, control).isEnabled();
}

/// The controls that Tab goes through, from the first one to the first again.
std::string TabOrder(QWidget& sheet, const char* first) {
    Find<QWidget>(sheet, first).setFocus();
    std::string names;
    do {
        names += Focus(sheet) + " ";
        QTest::keyClick(sheet.focusWidget(), Qt::Key_Tab);
    } while (Focus(sheet) != first && names.size() < 500);
    return names;
}

struct Wizards : testing::Test {
    ProgramFolder folder;
    ScriptedMessages messages;
    ScriptedFiles files;

    Wizards() { SetUpDesktop(); }

    template <class Wizard>
    bool Run(Wizard& wizard, const Act& act) {
        Steps steps;
        steps.Then(act);
        return wizard.Run(nullptr);
    }
    /// The settings file after a wizard was cancelled in which the user did this.
    template <class Wizard>
    std::string SettingsAfter(const std::vector<Act>& acts) {
        {
            Wizard wizard;
            EXPECT_FALSE(Run(wizard, [&](QWidget& sheet) {
                for (const Act& act : acts)
                    act(sheet);
                Click(sheet, "cancel");
            }));
        }
        return DecodeWindows1250(FileBytes(folder.File("kuvel.ini"))).remove(u'\r').toStdString();
    }
};

struct MoneyPages : Wizards {
    MoneyFolder money;

    MoneyPages() {
        money.Install('d', QStringLiteral("D:\\Data"));
        for (const char* const agenda : {"1", "2"}) {
            const QString path = QStringLiteral("d:/Data/Agenda.00%1").arg(QLatin1String(agenda));
            money.AddAgenda(path, *agenda == '1' ? QStringLiteral("Žofín") : QStringLiteral("Alfa"));
            money.AddYear(path + QStringLiteral("/Rok.2011"), QStringLiteral("2011"));
            money.AddYear(path + QStringLiteral("/Rok.2012"), QStringLiteral("2012"));
        }
        money.AddAgenda("d:/Jinde/Agenda.1", "Vedle");
        money.AddYear("d:/Jinde/Agenda.1/Rok.2010", "2010");
    }
    std::string Folder(const char* path) const { return money.Path(QString::fromUtf8(path)).toStdString(); }
    static std::string Shown(QWidget& sheet) { return Find<QLineEdit>(sheet, "yearFolder").text().toStdString(); }
    static std::string Selected(QWidget& sheet) {
        std::string rows;
        for (const QTreeWidgetItem* item : Find<QTreeWidget>(sheet, "agendaList").selectedItems())
            rows += item->text(0).toStdString() + "|" + item->text(1).toStdString();
        return rows;
    }
    static void ClickYear(QWidget& sheet, int row, Qt::KeyboardModifiers modifiers = {}) {
        auto& list = Find<QTreeWidget>(sheet, "agendaList");
        const QRect place = list.visualItemRect(list.topLevelItem(row));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, place.center());
    }
};

TEST_F(MoneyPages, AYearIsChosenFromTheList) {
    CMoneyWizard wizard;
    const bool finished = Run(wizard, [&](QWidget& sheet) {
        EXPECT_EQ("Vyberte účetní rok Money", sheet.windowTitle().toStdString());
        auto& list = Find<QTreeWidget>(sheet, "agendaList");
        QStringList rows;
        for (int row = 0; row < list.topLevelItemCount(); ++row)
            rows += list.topLevelItem(row)->text(0) + u'|' + list.topLevelItem(row)->text(1);
        EXPECT_EQ("Alfa|2011 Alfa|2012 Žofín|2011 Žofín|2012", rows.join(u' ').toStdString());
        EXPECT_EQ("Název agendy|Rok", (list.headerItem()->text(0) + u'|' + list.headerItem()->text(1)).toStdString());
        EXPECT_EQ("", Selected(sheet) + Shown(sheet));
        EXPECT_FALSE(IsEnabled(sheet, "back"));
        messages.Expect(QStringLiteral("Není vybrána agenda!"), Message::Icon::Warning);
        Click(sheet, "next");
        EXPECT_EQ("agendaList", Focus(sheet));

        QTest::keyClick(&list, Qt::Key_Down);
        EXPECT_EQ("Alfa|2011", Selected(sheet));
        QTest::keyClick(&list, Qt::Key_Down);
        EXPECT_EQ("Alfa|2012", Selected(sheet));
        EXPECT_EQ(Folder("d:/Data/Agenda.002/Rok.2012/"), Shown(sheet));
        ClickYear(sheet, 1, Qt::ControlModifier);
        EXPECT_EQ("", Selected(sheet) + Shown(sheet));
        ClickYear(sheet, 2);
        EXPECT_EQ("Žofín|2011", Selected(sheet));
        QTest::keyClick(&list, Qt::Key_Return);
        EXPECT_EQ("Parametry importu", sheet.windowTitle().toStdString());
        Click(sheet, "back");
        EXPECT_EQ("Žofín|2011", Selected(sheet));
        Click(sheet, "next");
        Click(sheet, "finish");
    });
    EXPECT_TRUE(finished);
    EXPECT_EQ(Folder("d:/Data/Agenda.001/"), wizard.Year().agendaFolder.toStdString());
    EXPECT_EQ(Folder("d:/Data/Agenda.001/Rok.2011/"), wizard.Year().yearFolder.toStdString());
}

TEST_F(MoneyPages, AYearIsChosenAsAFolder) {
    const struct {
        const char* answer;
        const char* warning; // %1 is the folder
        const char* selected;
        int rows;
    } cases[] = {
        {"", nullptr, "Alfa|2011", 4},
        {"d:/Jinde/Agenda.1/Rok.2010", nullptr, "Vedle|2010", 5},
        {"d:/Data/Agenda.001/Rok.2012", nullptr, "Žofín|2012", 5},
        {"d:/Jinde/Agenda.1/Rok.2010/", nullptr, "Vedle|2010", 5},
        {"d:/Jinde/Agenda.1", "Adresář \"%1/\" neobsahuje informace o účetním roce Money!", "Vedle|2010", 5},
    };
    CMoneyWizard wizard;
    Run(wizard, [&](QWidget& sheet) {
        ClickYear(sheet, 0);
        for (const auto& row : cases) {
            const QString answer = *row.answer == '\0' ? QString() : money.Path(QString::fromUtf8(row.answer));
            files.answers = {answer};
            if (row.warning != nullptr)
                messages.Expect(QString::fromUtf8(row.warning).arg(answer), Message::Icon::Warning);
            Click(sheet, "browseButton");
            EXPECT_EQ(ScriptedFiles::Kind::Folder, files.asked.back().kind);
            EXPECT_EQ(row.selected, Selected(sheet)) << row.answer;
            EXPECT_EQ(row.rows, Find<QTreeWidget>(sheet, "agendaList").topLevelItemCount()) << row.answer;
        }
        EXPECT_EQ(Folder("d:/Jinde/Agenda.1/Rok.2010/"), Shown(sheet));
        Click(sheet, "cancel");
    });
}

TEST_F(MoneyPages, WithoutAnInstallationTheListIsEmpty) {
    const MoneyFolder nothing;
    messages.Expect(QStringLiteral("Na tomto počítači pravděpodobně nejsou nainstalovány MoneyS3."),
                    Message::Icon::None);
    messages.Expect(QStringLiteral("Není vybrána agenda!"), Message::Icon::Warning);
    CMoneyWizard wizard;
    Run(wizard, [&](QWidget& sheet) {
        Click(sheet, "next");
        Click(sheet, "cancel");
    });
}

TEST_F(MoneyPages, ParametersAreCheckedAndKept) {
    const auto open = [](QWidget& sheet) {
        ClickYear(sheet, 0);
        Click(sheet, "next");
    };
    const auto refused = [this](QWidget& sheet) {
        messages.Expect(QStringLiteral("Není vybrán import produktů ani dokladů!"), Message::Icon::Warning);
        Click(sheet, "finish");
        EXPECT_EQ("productsCheck", Focus(sheet));
    };
    const auto enabled = [](bool exportCheck, bool domesticEdit) {
        return [=](QWidget& sheet) {
            EXPECT_EQ(exportCheck, IsEnabled(sheet, "exportCheck"));
            EXPECT_EQ(domesticEdit, IsEnabled(sheet, "domesticEdit"));
        };
    };
    const struct {
        const char* what;
        std::vector<Act> acts;
        const char* settings;
    } cases[] = {
        {"untouched",
         {},
         "Produkty=1\nVydaje=1\nExistujici zaznamy=1\nNastavovat Export=1\nNeexportni zeme=;Česká "
         "republika ;ČR\n"},
        {"no export",
         {open, enabled(true, true), Clicked("exportCheck"), enabled(true, false), Clicked("askRadio")},
         "Produkty=1\nVydaje=1\nExistujici zaznamy=2\nNastavovat Export=0\nNeexportni zeme=;Česká republika ;ČR\n"},
        {"nothing to import, by keys",
         {open, enabled(true, false), Pressed("issuesCheck", Qt::Key_Space), enabled(false, false),
          Pressed("productsCheck", Qt::Key_Space), refused},
         "Produkty=0\nVydaje=0\nExistujici zaznamy=2\nNastavovat Export=0\nNeexportni zeme=;Česká republika ;ČR\n"},
        {"other countries",
         {open, enabled(false, false), Clicked("issuesCheck"), Clicked("exportCheck"), enabled(true, true),
          Typed("domesticEdit", "Žižkov;"), Clicked("overwriteRadio")},
         "Produkty=0\nVydaje=1\nExistujici zaznamy=0\nNastavovat Export=1\nNeexportni zeme=Žižkov;\n"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(std::string("[Import]\n") + row.settings, SettingsAfter<CMoneyWizard>(row.acts)) << row.what;
}

TEST_F(MoneyPages, TabGoesThroughTheControlsAsTheyAreRead) {
    CMoneyWizard wizard;
    Run(wizard, [](QWidget& sheet) {
        EXPECT_EQ("agendaList browseButton next cancel ", TabOrder(sheet, "agendaList"));
        ClickYear(sheet, 0);
        Click(sheet, "next");
        EXPECT_EQ("productsCheck issuesCheck exportCheck domesticEdit keepRadio back finish cancel ",
                  TabOrder(sheet, "productsCheck"));
        Find<QWidget>(sheet, "keepRadio").setFocus();
        QTest::keyClick(sheet.focusWidget(), Qt::Key_Down);
        EXPECT_EQ("askRadio", Focus(sheet));
        Click(sheet, "cancel");
    });
    EXPECT_EQ(ExistingRecords::Ask, wizard.Options().existing);
}

TEST_F(MoneyPages, F1OpensTheirPageOfTheGuide) {
    std::vector<HelpContext> opened;
    const HelpDoor before = SetHelpDoor([&](HelpContext context) { opened.push_back(context); });
    const CHelpKey key(nullptr);
    CMoneyWizard wizard;
    Run(wizard, [&](QWidget& sheet) {
        QTest::keyClick(&Find<QWidget>(sheet, "agendaList"), Qt::Key_F1);
        QTest::keyClick(&Find<QWidget>(sheet, "next"), Qt::Key_F1);
        Click(sheet, "cancel");
    });
    SetHelpDoor(before);
    EXPECT_EQ(std::vector(2, HelpContext::MoneyImport), opened);
}

struct WakPages : Wizards {
    WakOptions stored;

    WakPages() {
        stored.server = "server";
        stored.database = "wak";
        EXPECT_TRUE(stored.Write());
    }
    WakOptions Settings() const {
        WakOptions options;
        options.Read();
        return options;
    }
    static void OpenParameters(QWidget& sheet) { Click(sheet, "next"); }
};

TEST_F(WakPages, TheConnectionIsChecked) {
    const struct {
        const char* what;
        std::vector<Act> acts;
        const char* warning; // null: the next page is shown
        const char* focus;
    } cases[] = {
        {"no server", {Typed("serverEdit", " ")}, "Zadejte server!", "serverEdit"},
        {"no server, but Windows", {Typed("serverEdit", ""), Clicked("windowsRadio")}, "Zadejte server!", "serverEdit"},
        {"no database", {Typed("databaseEdit", "")}, "Zadejte databázi!", "databaseEdit"},
        {"server before database",
         {Typed("databaseEdit", ""), Typed("serverEdit", "")},
         "Zadejte server!",
         "serverEdit"},
        {"no user", {Typed("userEdit", "  ")}, "Zadejte uživatele!", "userEdit"},
        {"no user, but Windows", {Typed("userEdit", ""), Clicked("windowsRadio")}, nullptr, "productsCheck"},
        {"no password", {Typed("passwordEdit", "")}, nullptr, "productsCheck"},
    };
    for (const char* const button : {"next", "testButton"}) {
        for (const auto& row : cases) {
            if (row.warning == nullptr && button != std::string("next"))
                continue;
            SCOPED_TRACE(std::string(row.what) + " " + button);
            ASSERT_TRUE(stored.Write());
            CWakWizard wizard;
            Run(wizard, [&](QWidget& sheet) {
                EXPECT_EQ("Připojení k databázi WAK ", sheet.windowTitle().toStdString());
                for (const Act& act : row.acts)
                    act(sheet);
                if (row.warning != nullptr)
                    messages.Expect(QString::fromUtf8(row.warning), Message::Icon::Warning);
                Click(sheet, button);
                EXPECT_EQ(row.focus, Focus(sheet));
                EXPECT_EQ(row.warning == nullptr, sheet.windowTitle() == QStringLiteral("Parametry importu"));
                Click(sheet, "cancel");
            });
        }
    }
}

TEST_F(WakPages, TheLoginIsForTheServersOwnUsers) {
    CWakWizard wizard;
    Run(wizard, [&](QWidget& sheet) {
        const auto enabled = [&] { return IsEnabled(sheet, "userEdit") && IsEnabled(sheet, "passwordEdit"); };
        EXPECT_TRUE(enabled());
        Find<QWidget>(sheet, "sqlServerRadio").setFocus();
        QTest::keyClick(&Find<QWidget>(sheet, "sqlServerRadio"), Qt::Key_Right);
        EXPECT_FALSE(enabled() || IsEnabled(sheet, "userEdit"));
        Click(sheet, "sqlServerRadio");
        EXPECT_TRUE(enabled());
        EXPECT_EQ(QLineEdit::Password, Find<QLineEdit>(sheet, "passwordEdit").echoMode());
        Click(sheet, "cancel");
    });
}

TEST_F(WakPages, TabGoesThroughTheControlsAsTheyAreRead) {
    CWakWizard wizard;
    Run(wizard, [](QWidget& sheet) {
        EXPECT_EQ("serverEdit databaseEdit sqlServerRadio userEdit passwordEdit testButton next cancel ",
                  TabOrder(sheet, "serverEdit"));
        Click(sheet, "next");
        EXPECT_EQ("productsCheck issuesCheck fromDate toDate keepRadio back finish cancel ",
                  TabOrder(sheet, "productsCheck"));
        Click(sheet, "cancel");
    });
}

TEST_F(WakPages, WhatWasTypedIsKept) {
    const std::string settings = SettingsAfter<CWakWizard>(
        {Typed("serverEdit", "  host,1433 "), Typed("databaseEdit", " data "), Typed("userEdit", " já "),
         Typed("passwordEdit", " tajné "), OpenParameters, Clicked("productsCheck"), Clicked("askRadio")});
    const WakOptions kept = Settings();
    EXPECT_EQ("host,1433|data|já| tajné ",
              QStringList({kept.server, kept.database, kept.user, kept.password}).join(u'|').toStdString());
    EXPECT_TRUE(!kept.products && kept.documents && !kept.windows);
    EXPECT_EQ(ExistingRecords::Ask, kept.existing);
    EXPECT_EQ(std::string::npos, settings.find("tajn"));
}

TEST_F(WakPages, TheTestButtonConnects) {
    TdsServer server;
    server.Start();
    const QString failure = QStringLiteral("Nemohu otevřít databázi 'wak' na serveru '%1'").arg(server.Name());
    CWakWizard wizard;
    Run(wizard, [&](QWidget& sheet) {
        TypeText(sheet, "serverEdit", server.Name().toUtf8().constData());
        TypeText(sheet, "passwordEdit", "heslo");
        messages.Expect(QStringLiteral("Spojení s databází vytvořeno!"), Message::Icon::Information);
        Click(sheet, "testButton");
        TypeText(sheet, "passwordEdit", "jiné");
        messages.AcceptAny();
        const std::size_t before = messages.Shown().size();
        Click(sheet, "testButton");
        ASSERT_EQ(before + 1, messages.Shown().size());
        EXPECT_TRUE(messages.Shown().back().text.startsWith(failure)) << messages.Shown().back().text.toStdString();
        EXPECT_EQ(Message::Icon::Error, messages.Shown().back().icon);
        Click(sheet, "cancel");
    });
    // Each connection is closed again, so that the one after it can be served.
    EXPECT_EQ((std::vector<std::string>{"SET LOCK_TIMEOUT 1000", "SET TRANSACTION ISOLATION LEVEL READ UNCOMMITTED"}),
              server.TakeStatements());
}

TEST_F(WakPages, ParametersAreChecked) {
    const auto dates = [](const QDate& from, const QDate& to) {
        return [=](QWidget& sheet) {
            Find<DateEdit>(sheet, "fromDate").setDate(from);
            Find<DateEdit>(sheet, "toDate").setDate(to);
        };
    };
    const QDate leapDay(2012, 2, 29);
    const struct {
        const char* what;
        std::vector<Act> acts;
        const char* warning; // null: the wizard ends
        const char* focus;
        const char* range;
    } cases[] = {
        {"the previous quarter", {}, nullptr, "", "2012-04-01 00:00:00 2012-06-30 23:59:59"},
        {"one day", {dates(leapDay, leapDay)}, nullptr, "", "2012-02-29 00:00:00 2012-02-29 23:59:59"},
        {"the wrong way",
         {dates(leapDay.addDays(1), leapDay)},
         "Datum od nesmí být větší než datum do!",
         "fromDate",
         ""},
        {"the wrong way, but no issues", {dates(leapDay.addDays(1), leapDay), Clicked("issuesCheck")}, nullptr, "", ""},
        {"nothing",
         {Clicked("productsCheck"), Clicked("issuesCheck")},
         "Není vybrán import produktů ani dokladů!",
         "productsCheck",
         ""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        ASSERT_TRUE(stored.Write());
        CWakWizard wizard;
        const bool finished = Run(wizard, [&](QWidget& sheet) {
            OpenParameters(sheet);
            EXPECT_TRUE(IsEnabled(sheet, "fromDate") && IsEnabled(sheet, "toDate"));
            for (const Act& act : row.acts)
                act(sheet);
            const bool issues = Find<QCheckBox>(sheet, "issuesCheck").isChecked();
            EXPECT_EQ(issues, IsEnabled(sheet, "fromDate") && IsEnabled(sheet, "toDate"));
            if (row.warning != nullptr)
                messages.Expect(QString::fromUtf8(row.warning), Message::Icon::Warning);
            Click(sheet, "finish");
            if (row.warning != nullptr) {
                EXPECT_EQ(row.focus, Focus(sheet));
                Click(sheet, "cancel");
            }
        });
        EXPECT_EQ(row.warning == nullptr, finished);
        if (*row.range != '\0') {
            EXPECT_EQ(row.range, wizard.Range().from.Stored() + " " + wizard.Range().to.Stored());
        }
    }
}

TEST(AskOverwriteDlg, EachButtonAnswers) {
    using enum IOverwriteDoor::Answer;
    const struct {
        Qt::Key key;
        Qt::KeyboardModifier modifier;
        IOverwriteDoor::Answer answer;
    } cases[] = {
        {Qt::Key_Return, Qt::NoModifier, Yes}, {Qt::Key_A, Qt::AltModifier, Yes},
        {Qt::Key_N, Qt::AltModifier, No},      {Qt::Key_V, Qt::AltModifier, YesToAll},
        {Qt::Key_M, Qt::AltModifier, NoToAll}, {Qt::Key_Escape, Qt::NoModifier, No},
    };
    const QString question = QStringLiteral("Produkt \"<b>, kat.č. &x\" byl již z Money importován.");
    for (const auto& row : cases) {
        Steps steps;
        steps.Then([&](QWidget& window) {
            EXPECT_EQ("Kuvel", window.windowTitle().toStdString());
            EXPECT_EQ(question, Find<QLabel>(window, "questionLabel").text());
            EXPECT_TRUE(Find<QPushButton>(window, "yesButton").isDefault());
            QStringList texts;
            for (const char* const name : {"yesButton", "noButton", "yesToAllButton", "noToAllButton"})
                texts += Find<QPushButton>(window, name).text();
            EXPECT_EQ("&Ano|&Ne|Ano &všem|Ne vše&m", texts.join(u'|').toStdString());
            QTest::keyClick(&window, row.key, row.modifier);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }, 2000));
        });
        EXPECT_EQ(row.answer, CAskOverwriteDlg(question, nullptr).Ask()) << row.key;
    }
}

} // namespace
