// The wizards that ask what to import, up to the options that they keep.

#include "core/base/CodePage.h"
#include "tests/support/MoneyFolder.h"
#include "tests/support/ScriptedFiles.h"
#include "tests/support/TdsServer.h"
#include "tests/windows/support/Driver.h"
#include "windows/frame/doors/Desktop.h"
#include "windows/frame/doors/ProgressDlg.h"
#include "windows/frame/doors/ProgressDoor.h"
#include "windows/frame/help/HelpKey.h"
#include "windows/import/AskOverwriteDlg.h"
#include "windows/import/MoneyWizard.h"
#include "windows/import/WakWizard.h"
#include "windows/widgets/HelpDoor.h"

#include <gtest/gtest.h>

namespace {

Act PressedOn(const char* control, Qt::Key key) {
    return [=](QWidget& sheet) {
        Find<QWidget>(sheet, control).setFocus();
        QTest::keyClick(&Find<QWidget>(sheet, control), key);
    };
}

/// The controls that Tab goes through, from the first one to the first again.
Act ShowsTabOrder(const char* first, const char* names) {
    return [=](QWidget& sheet) {
        Find<QWidget>(sheet, first).setFocus();
        std::string order;
        do {
            order += Focus(sheet) + " ";
            QTest::keyClick(sheet.focusWidget(), Qt::Key_Tab);
        } while (Focus(sheet) != first && order.size() < 500);
        EXPECT_EQ(names, order);
    };
}

constexpr const char* NothingToImport = "Není vybrán import produktů ani dokladů!";

/// Over no main window.
struct WakWizard : CWakWizard {
    WakWizard() : CWakWizard(SilentProgress()) {}
};

struct Wizards : testing::Test {
    ProgramFolder folder;
    ScriptedMessages messages;
    ScriptedFiles files;

    Wizards() { SetUpDesktop(); }

    template <class Wizard>
    static bool Run(Wizard& wizard, std::vector<Act> acts) {
        Steps steps;
        steps.Then(InTurn(std::move(acts)));
        const bool finished = wizard.Run(nullptr);
        wizard.StoreOptions();
        return finished;
    }
    template <class Wizard>
    static void Cancel(std::vector<Act> acts) {
        acts.push_back(Clicked("cancel"));
        Wizard wizard;
        EXPECT_FALSE(Run(wizard, std::move(acts)));
    }
    Act IsRefused(const char* button, const char* warning, const char* focus) {
        return Refused(messages, button, warning, focus);
    }
    std::string Settings() const {
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
    /// The selected years, and the folder shown.
    Act ShowsYear(const char* years, const char* path) const {
        return [=, this](QWidget& sheet) {
            std::string rows;
            for (const QTreeWidgetItem* item : Find<QTreeWidget>(sheet, "agendaList").selectedItems())
                rows += item->text(0).toStdString() + "|" + item->text(1).toStdString();
            EXPECT_EQ(years, rows);
            EXPECT_EQ(*path == '\0' ? "" : Folder(path), Find<QLineEdit>(sheet, "yearFolder").toolTip().toStdString());
        };
    }
    static Act ClickedYear(int row, Qt::KeyboardModifiers modifiers = {}) {
        return [=](QWidget& sheet) {
            auto& list = Find<QTreeWidget>(sheet, "agendaList");
            const QRect place = list.visualItemRect(list.topLevelItem(row));
            QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, place.center());
        };
    }
    static Act ShowsYears(const char* years) {
        return [=](QWidget& sheet) {
            const auto& list = Find<QTreeWidget>(sheet, "agendaList");
            QStringList rows = {list.headerItem()->text(0) + u'|' + list.headerItem()->text(1)};
            for (int row = 0; row < list.topLevelItemCount(); ++row)
                rows += list.topLevelItem(row)->text(0) + u'|' + list.topLevelItem(row)->text(1);
            EXPECT_EQ(years, rows.join(u", ").toStdString());
        };
    }
};

TEST_F(MoneyPages, AYearIsChosenFromTheList) {
    CMoneyWizard wizard;
    EXPECT_TRUE(
        Run(wizard, {ShowsTitle("Vyberte účetní rok Money"),
                     ShowsYears("Název agendy|Rok, Alfa|2011, Alfa|2012, Žofín|2011, Žofín|2012"), ShowsYear("", ""),
                     ShowsEnabled({"back"}, false), IsRefused("next", "Není vybrána agenda!", "agendaList"),
                     PressedOn("agendaList", Qt::Key_Down), ShowsYear("Alfa|2011", "d:/Data/Agenda.002/Rok.2011/"),
                     PressedOn("agendaList", Qt::Key_Down), ShowsYear("Alfa|2012", "d:/Data/Agenda.002/Rok.2012/"),
                     ClickedYear(1, Qt::ControlModifier), ShowsYear("", ""), ClickedYear(2),
                     PressedOn("agendaList", Qt::Key_Return), ShowsTitle("Parametry importu"), Clicked("back"),
                     ShowsYear("Žofín|2011", "d:/Data/Agenda.001/Rok.2011/"), Clicked("next"), Clicked("finish")}));
    EXPECT_EQ(Folder("d:/Data/Agenda.001/"), wizard.Year().agendaFolder.toStdString());
    EXPECT_EQ(Folder("d:/Data/Agenda.001/Rok.2011/"), wizard.Year().yearFolder.toStdString());
}

TEST_F(MoneyPages, AYearIsChosenAsAFolder) {
    // warning: %1 is the folder
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"", nullptr, "Alfa|2011", "d:/Data/Agenda.002/Rok.2011/"},
        {"d:/Jinde/Agenda.1/Rok.2010", nullptr, "Vedle|2010", "d:/Jinde/Agenda.1/Rok.2010/"},
        {"d:/Data/Agenda.001/Rok.2012", nullptr, "Žofín|2012", "d:/Data/Agenda.001/Rok.2012/"},
        {"d:/Jinde/Agenda.1/Rok.2010/", nullptr, "Vedle|2010", "d:/Jinde/Agenda.1/Rok.2010/"},
        {"d:/Jinde/Agenda.1", "Adresář \"%1/\" neobsahuje informace o účetním roce Money!", "Vedle|2010",
         "d:/Jinde/Agenda.1/Rok.2010/"},
    };
    Cancel<CMoneyWizard>({ClickedYear(0),
                          [&](QWidget& sheet) {
                              for (const auto& [reply, warning, selected, shown] : cases) {
                                  SCOPED_TRACE(reply);
                                  const QString answer =
                                      *reply == '\0' ? QString() : money.Path(QString::fromUtf8(reply));
                                  files.answers = {answer};
                                  if (warning != nullptr)
                                      messages.Expect(QString::fromUtf8(warning).arg(answer), Message::Icon::Warning);
                                  Click(sheet, "browseButton");
                                  EXPECT_EQ(ScriptedFiles::Kind::Folder, files.asked.back().kind);
                                  ShowsYear(selected, shown)(sheet);
                              }
                          },
                          ShowsYears("Název agendy|Rok, Alfa|2011, Alfa|2012, Žofín|2011, Žofín|2012, Vedle|2010")});
}

TEST_F(MoneyPages, TheYearChosenLastIsChosenAgain) {
    {
        CMoneyWizard wizard;
        EXPECT_TRUE(Run(wizard, {ClickedYear(2), Clicked("next"), Clicked("finish")}));
    }
    Cancel<CMoneyWizard>({ShowsYear("Žofín|2011", "d:/Data/Agenda.001/Rok.2011/"), ClickedYear(3)});
    // Only Next makes a choice.
    files.answers = {money.Path("d:/Jinde/Agenda.1/Rok.2010")};
    Cancel<CMoneyWizard>(
        {ShowsYear("Žofín|2011", "d:/Data/Agenda.001/Rok.2011/"), Clicked("browseButton"), Clicked("next")});
    Cancel<CMoneyWizard>({ShowsYear("Vedle|2010", "d:/Jinde/Agenda.1/Rok.2010/"), PressedOn("agendaList", Qt::Key_Up),
                          ShowsYear("Žofín|2012", "d:/Data/Agenda.001/Rok.2012/")});
    QDir(money.Path("d:/Jinde")).removeRecursively();
    Cancel<CMoneyWizard>({ShowsYear("", ""), IsRefused("next", "Není vybrána agenda!", "agendaList")});
}

TEST_F(MoneyPages, ALongFolderIsCutInItsMiddle) {
    const QString agenda = QStringLiteral("d:/Data/Agenda.") + QString(200, u'x');
    money.AddAgenda(agenda, QStringLiteral("Aa"));
    money.AddYear(agenda + QStringLiteral("/Rok.2012"), QStringLiteral("2012"));
    Cancel<CMoneyWizard>({ClickedYear(0), [&](QWidget& sheet) {
                              auto& edit = Find<QLineEdit>(sheet, "yearFolder");
                              const QString whole = money.Path(agenda + QStringLiteral("/Rok.2012/"));
                              const auto isCut = [&] {
                                  return edit.text().startsWith(whole.left(5)) && edit.text().contains(u'…') &&
                                         edit.text().endsWith(QStringLiteral("x/Rok.2012/"));
                              };
                              EXPECT_TRUE(isCut()) << edit.text().toStdString();
                              EXPECT_LE(edit.fontMetrics().horizontalAdvance(edit.text()), edit.width());
                              QTest::mouseClick(&edit, Qt::LeftButton);
                              EXPECT_EQ(whole, edit.text());
                              Find<QTreeWidget>(sheet, "agendaList").setFocus();
                              EXPECT_TRUE(isCut());
                          }});
}

TEST_F(MoneyPages, WithoutAnInstallationTheListIsEmpty) {
    const MoneyFolder nothing;
    messages.Expect(QStringLiteral("Na tomto počítači pravděpodobně nejsou nainstalovány MoneyS3."),
                    Message::Icon::None);
    Cancel<CMoneyWizard>({IsRefused("next", "Není vybrána agenda!", "agendaList")});
}

TEST_F(MoneyPages, ParametersAreCheckedAndKept) {
    const Act open = InTurn({ClickedYear(0), Clicked("next")});
    const auto enabled = [](bool exportCheck, bool domesticEdit) {
        return InTurn({ShowsEnabled({"exportCheck"}, exportCheck), ShowsEnabled({"domesticEdit"}, domesticEdit)});
    };
    const std::tuple<const char*, std::vector<Act>, const char*> cases[] = {
        {"untouched",
         {},
         "Produkty=1\nVydaje=1\nExistujici zaznamy=1\nNastavovat Export=1\nNeexportni zeme=;Česká "
         "republika ;ČR\n"},
        {"no export",
         {open, enabled(true, true), Clicked("exportCheck"), enabled(true, false), Clicked("askRadio")},
         "Produkty=1\nVydaje=1\nExistujici zaznamy=2\nNastavovat Export=0\nNeexportni zeme=;Česká republika ;ČR\n"},
        {"nothing to import, by keys",
         {open, enabled(true, false), PressedOn("issuesCheck", Qt::Key_Space), enabled(false, false),
          PressedOn("productsCheck", Qt::Key_Space), IsRefused("finish", NothingToImport, "productsCheck")},
         "Produkty=0\nVydaje=0\nExistujici zaznamy=2\nNastavovat Export=0\nNeexportni zeme=;Česká republika ;ČR\n"},
        {"other countries",
         {open, enabled(false, false), Clicked("issuesCheck"), Clicked("exportCheck"), enabled(true, true),
          Typed("domesticEdit", "Žižkov;"), Clicked("overwriteRadio")},
         "Produkty=0\nVydaje=1\nExistujici zaznamy=0\nNastavovat Export=1\nNeexportni zeme=Žižkov;\n"},
    };
    for (const auto& [what, acts, settings] : cases) {
        SCOPED_TRACE(what);
        Cancel<CMoneyWizard>(acts);
        const std::string last = acts.empty() ? "" : "Posledni rok=" + Folder("d:/Data/Agenda.002/Rok.2011/") + "\n";
        EXPECT_EQ(std::string("[Import]\n") + settings + last, Settings());
    }
}

TEST_F(MoneyPages, KeysGoThroughTheControlsAsTheyAreReadAndF1OpensTheGuide) {
    std::vector<HelpContext> opened;
    const DoorUse help(HelpDoor(), [&](HelpContext context) { opened.push_back(context); });
    const CHelpKey key(nullptr);
    CMoneyWizard wizard;
    Run(wizard,
        {ShowsTabOrder("agendaList", "agendaList browseButton next cancel help "), PressedOn("agendaList", Qt::Key_F1),
         PressedOn("next", Qt::Key_F1), ClickedYear(0), Clicked("next"),
         ShowsTabOrder("productsCheck", "productsCheck issuesCheck exportCheck domesticEdit keepRadio back finish "
                                        "cancel help "),
         PressedOn("keepRadio", Qt::Key_Down), Shows("askRadio", "ano"), Clicked("cancel")});
    EXPECT_EQ(std::vector(2, HelpContext::MoneyImport), opened);
    EXPECT_EQ(ExistingRecords::Ask, wizard.Options().existing);
}

struct WakPages : Wizards {
    WakOptions stored;

    WakPages() {
        stored.server = "server";
        stored.database = "wak";
        EXPECT_FALSE(stored.Write());
    }
};

TEST_F(WakPages, TheConnectionIsChecked) {
    const Act noServer = Typed("serverEdit", " ");
    const Act noDatabase = Typed("databaseEdit", "");
    const Act noUser = Typed("userEdit", "  ");
    const Act windows = Clicked("windowsRadio");
    const Refusal cases[] = {
        {"no server", noServer, "Zadejte server!", "serverEdit"},
        {"no server, but Windows", InTurn({noServer, windows}), "Zadejte server!", "serverEdit"},
        {"no database", noDatabase, "Zadejte databázi!", "databaseEdit"},
        {"server before database", InTurn({noDatabase, noServer}), "Zadejte server!", "serverEdit"},
        {"no user", noUser, "Zadejte uživatele!", "userEdit"},
    };
    for (const char* const button : {"next", "testButton"}) {
        for (const Refusal& row : cases) {
            SCOPED_TRACE(std::string(row.what) + " " + button);
            ASSERT_FALSE(stored.Write());
            Cancel<WakWizard>({row.spoil, IsRefused(button, row.warning, row.focus)});
        }
    }
    for (const Act& act : {InTurn({noUser, windows}), Typed("passwordEdit", "")}) {
        ASSERT_FALSE(stored.Write());
        Cancel<WakWizard>({ShowsTitle("Připojení k databázi WAK "), act, Clicked("next"),
                           ShowsTitle("Parametry importu"), ShowsFocus("productsCheck")});
    }
}

TEST_F(WakPages, KeysGoThroughTheControlsAndTheLoginIsForTheServersOwnUsers) {
    const auto hidden = [](QWidget& sheet) {
        EXPECT_EQ(QLineEdit::Password, Find<QLineEdit>(sheet, "passwordEdit").echoMode());
    };
    Cancel<WakWizard>({ShowsTabOrder("serverEdit", "serverEdit databaseEdit sqlServerRadio userEdit passwordEdit "
                                                   "storePasswordCheck testButton next cancel help "),
                       hidden, ShowsEnabled({"userEdit", "passwordEdit"}, true),
                       PressedOn("sqlServerRadio", Qt::Key_Right),
                       ShowsEnabled({"userEdit", "passwordEdit", "storePasswordCheck"}, false),
                       Clicked("sqlServerRadio"), ShowsEnabled({"userEdit", "passwordEdit"}, true), Clicked("next"),
                       ShowsTabOrder("productsCheck",
                                     "productsCheck issuesCheck fromDate toDate keepRadio back finish cancel help ")});
}

TEST_F(WakPages, WhatWasTypedIsKept) {
    Cancel<WakWizard>({Typed("serverEdit", "  host,1433 "), Typed("databaseEdit", " data "), Typed("userEdit", " já "),
                       Typed("passwordEdit", " tajné "), Clicked("next"), Clicked("productsCheck"),
                       Clicked("askRadio")});
    WakOptions kept;
    kept.Read();
    EXPECT_EQ("host,1433|data|já| tajné ",
              QStringList({kept.server, kept.database, kept.user, kept.password}).join(u'|').toStdString());
    EXPECT_TRUE(!kept.products && kept.documents && !kept.windows);
    EXPECT_EQ(ExistingRecords::Ask, kept.existing);
    EXPECT_EQ(std::string::npos, Settings().find("tajn"));
}

TEST_F(WakPages, TheTestButtonConnects) {
    TdsServer server;
    server.Start();
    const QByteArray name = server.Name().toUtf8();
    messages.Expect(QStringLiteral("Spojení s databází vytvořeno!"), Message::Icon::Information);
    Cancel<WakWizard>({Typed("serverEdit", name.constData()), Typed("passwordEdit", "heslo"), Clicked("testButton"),
                       Typed("passwordEdit", "jiné"), [this](QWidget&) { messages.AcceptAny(); },
                       Clicked("testButton")});
    ASSERT_EQ(2U, messages.Shown().size());
    EXPECT_EQ(Message::Icon::Error, messages.Shown()[1].icon);
    EXPECT_TRUE(messages.Shown()[1].text.startsWith(
        QStringLiteral("Nemohu otevřít databázi 'wak' na serveru '%1'").arg(server.Name())));
    // Each connection is closed again, so that the one after it can be served.
    EXPECT_EQ((std::vector<std::string>{"SET LOCK_TIMEOUT 1000", "SET TRANSACTION ISOLATION LEVEL READ UNCOMMITTED"}),
              server.TakeStatements());
}

TEST_F(WakPages, TheTestCanBeStopped) {
    TdsServer server;
    server.silent = true;
    server.Start();
    const QByteArray name = server.Name().toUtf8();
    QWidget frame;
    CProgressDoor progress(frame);
    CWakWizard wizard(progress);
    QTimer timer;
    int pressed = 0;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (auto* const dialog = qobject_cast<CProgressDlg*>(window); dialog != nullptr && dialog->isVisible()) {
                ++pressed;
                EXPECT_FALSE(CDisabledWindow::TakesInput(*dialog->parentWidget()));
                Click(*dialog, "cancel");
            }
        }
    });
    timer.start(20);
    const auto start = std::chrono::steady_clock::now();
    Run(wizard, {Typed("serverEdit", name.constData()), Clicked("testButton"), ShowsEnabled({"testButton"}, true),
                 Clicked("cancel")});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8));
    EXPECT_GE(pressed, 1);
}

TEST_F(WakPages, APasswordIsWarnedOfAndNeedNotBeStored) {
    const auto notes = [](const char* note) {
        return [=](QWidget& sheet) {
            const auto& label = Find<QLabel>(sheet, "passwordNote");
            EXPECT_EQ(note, label.text().toStdString());
            EXPECT_EQ(*note != '\0', label.isVisible());
            // The page grows with it.
            QCoreApplication::processEvents();
            EXPECT_TRUE(!label.isVisible() || label.size() == label.size().expandedTo(label.sizeHint()));
        };
    };
    const char* const quote = "Uvozovky v hesle zapište dvakrát.";
    const char* const cut = "Uloží se jen prvních 20 znaků hesla.";
    const char* const both = "Uvozovky v hesle zapište dvakrát.\nUloží se jen prvních 20 znaků hesla.";
    Cancel<WakWizard>({notes(""), Typed("passwordEdit", "taj\"né"), notes(quote), Clicked("windowsRadio"), notes(""),
                       Clicked("sqlServerRadio"), notes(quote), Typed("passwordEdit", "123456789012345678901"),
                       notes(cut), Typed("passwordEdit", "\"12345678901234567890"), notes(both),
                       PressedOn("storePasswordCheck", Qt::Key_Space), notes(quote)});
    EXPECT_NE(std::string::npos, Settings().find("Heslo=\nUkladat heslo=0\n"));
    Cancel<WakWizard>({Shows("passwordEdit", ""), Shows("storePasswordCheck", "ne"), Clicked("storePasswordCheck"),
                       Typed("passwordEdit", "heslo")});
    Cancel<WakWizard>({Shows("passwordEdit", "heslo"), Shows("storePasswordCheck", "ano")});
}

TEST_F(WakPages, ParametersAreChecked) {
    const auto dated = [](int from, int to) {
        return InTurn({Dated("fromDate", {2012, 2, from}), Dated("toDate", {2012, 2, to})});
    };
    const Act noIssues = InTurn({Clicked("issuesCheck"), ShowsEnabled({"fromDate", "toDate"}, false)});
    // range: null when only the end counts
    const std::tuple<const char*, Act, const char*> cases[] = {
        {"the previous quarter", InTurn({}), "2012-04-01 00:00:00 2012-06-30 23:59:59"},
        {"one day", dated(29, 29), "2012-02-29 00:00:00 2012-02-29 23:59:59"},
        {"the wrong way",
         InTurn(
             {dated(29, 28), IsRefused("finish", "Datum od nesmí být větší než datum do!", "fromDate"), dated(28, 29)}),
         "2012-02-28 00:00:00 2012-02-29 23:59:59"},
        {"the wrong way, but no issues", InTurn({dated(29, 28), noIssues}), nullptr},
        {"nothing",
         InTurn({Clicked("productsCheck"), noIssues, IsRefused("finish", NothingToImport, "productsCheck"),
                 Clicked("productsCheck")}),
         nullptr},
    };
    for (const auto& [what, act, range] : cases) {
        SCOPED_TRACE(what);
        ASSERT_FALSE(stored.Write());
        WakWizard wizard;
        EXPECT_TRUE(Run(wizard, {Clicked("next"), ShowsEnabled({"fromDate", "toDate"}, true), act, Clicked("finish")}));
        if (range != nullptr) {
            EXPECT_EQ(range, wizard.Range().from.Stored() + " " + wizard.Range().to.Stored());
        }
    }
}

TEST(AskOverwriteDlg, EachButtonAnswers) {
    using enum IOverwriteDoor::Answer;
    const std::tuple<Qt::Key, Qt::KeyboardModifier, IOverwriteDoor::Answer> cases[] = {
        {Qt::Key_Return, Qt::NoModifier, Yes}, {Qt::Key_A, Qt::AltModifier, Yes},
        {Qt::Key_N, Qt::AltModifier, No},      {Qt::Key_V, Qt::AltModifier, YesToAll},
        {Qt::Key_M, Qt::AltModifier, NoToAll}, {Qt::Key_Escape, Qt::NoModifier, No},
        {Qt::Key_S, Qt::AltModifier, Stop},
    };
    const char* const question = "Produkt \"<b>, kat.č. &x\" byl již z Money importován.";
    for (const auto& [key, modifier, reply] : cases) {
        Steps steps;
        steps.Then([&](QWidget& window) {
            EXPECT_EQ("Kuvel", window.windowTitle().toStdString());
            EXPECT_EQ(question, Find<QLabel>(window, "questionLabel").text().toStdString());
            EXPECT_TRUE(Find<QPushButton>(window, "yesButton").isDefault());
            EXPECT_EQ("&Ano|&Ne|Ano &všem|Ne vše&m", ShownBy(window, "yesButton") + "|" + ShownBy(window, "noButton") +
                                                         "|" + ShownBy(window, "yesToAllButton") + "|" +
                                                         ShownBy(window, "noToAllButton"));
            QTest::keyClick(&window, key, modifier);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }, 2000));
        });
        EXPECT_EQ(reply, CAskOverwriteDlg({QString::fromUtf8(question), {}}, nullptr).Ask()) << key;
    }
}

TEST(AskOverwriteDlg, ShowsWhatIsThereBesideWhatWouldBe) {
    Steps steps;
    steps.Then([](QWidget& window) {
        const auto& label = Find<QLabel>(window, "valuesLabel");
        EXPECT_TRUE(label.isVisible());
        QTextDocument document;
        document.setHtml(label.text());
        EXPECT_EQ("Nyní|Po přepsání|Název|a <b>|a <b> & c|Jednotka|ks|ks|Katalog|–|K",
                  document.toPlainText().split(u'\n', Qt::SkipEmptyParts).join(u'|').toStdString());
        // Bold where they differ.
        EXPECT_EQ(2, label.text().count(QStringLiteral("<b>")));
        Click(window, "stopButton");
    });
    const OverwriteQuestion question{QStringLiteral("?"),
                                     {{"Název", "a <b>", "a <b> & c"}, {"Jednotka", "ks", "ks"}, {"Katalog", "", "K"}}};
    EXPECT_EQ(IOverwriteDoor::Answer::Stop, CAskOverwriteDlg(question, nullptr).Ask());
}

} // namespace
