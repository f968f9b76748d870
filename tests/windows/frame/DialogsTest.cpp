#include "core/base/AppDir.h"
#include "core/base/ListDecimals.h"
#include "core/rules/Propagation.h"
#include "tests/support/ScriptedFiles.h"
#include "tests/windows/support/Driver.h"
#include "tests/windows/support/FrameFolder.h"
#include "windows/frame/AboutDlg.h"
#include "windows/frame/BackupDlg.h"
#include "windows/frame/OptionsDlg.h"
#include "windows/frame/ReportCommand.h"
#include "windows/frame/doors/Desktop.h"
#include "windows/frame/doors/FileDialogDoor.h"
#include "windows/frame/doors/MessageBoxDoor.h"
#include "windows/report/ReportDlg.h"
#include "windows/widgets/HelpDoor.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>
#include <QUrlQuery>

namespace {

TEST(OptionsDlg, OkTakesTheChecksAndStornoDoesNot) {
    PropagationOptions options;
    options.coversToIssues = 0;
    options.coversToComposites = 7; // any number but 0 is on
    for (const char* const button : {"cancel", "ok"}) {
        COptionsDlg dialog(options, nullptr);
        dialog.show();
        InTurn({ShowsTitle("Možnosti "), Shows("coversToCompositesCheck", "ano"), Shows("coversToIssuesCheck", "ne"),
                Clicked("coversToIssuesCheck"), Clicked("packagingToIssuesCheck"), Clicked("coversToPackagingCheck"),
                Clicked(button)})(dialog);
        const bool taken = button[0] == 'o';
        EXPECT_EQ(taken, options.coversToIssues != 0);
        EXPECT_EQ(!taken, options.packagingToIssues != 0);
        EXPECT_EQ(!taken, options.coversToPackaging != 0);
        EXPECT_NE(0, options.coversToComposites);
    }
}

TEST(OptionsDlg, KeepsTheDecimalsOfListsApart) {
    const ProgramFolder folder;
    ScriptedMessages messages;
    PropagationOptions options;
    ReadListDecimals();
    for (const bool four : {true, false}) {
        COptionsDlg dialog(options, nullptr);
        dialog.show();
        InTurn({Shows("fourDecimalsCheck", four ? "ne" : "ano"), Clicked("fourDecimalsCheck")})(dialog);
        if (four) {
            Click(dialog, "ok");
            EXPECT_TRUE(FourDecimalsInLists());
            EXPECT_EQ("[Zobrazeni]\r\nCtyri desetinna mista v seznamech=1\r\n",
                      FileBytes(folder.File("kuvel.ini")).toStdString());
        } else {
            Click(dialog, "cancel");
        }
        ReadListDecimals();
        EXPECT_TRUE(FourDecimalsInLists());
    }
    QFile::remove(folder.File("kuvel.ini"));
    ReadListDecimals();
    EXPECT_FALSE(FourDecimalsInLists());
}

TEST(Dialogs, HaveTheirPageOfTheGuideAtAButton) {
    StoreFolder f;
    PropagationOptions options;
    std::vector<HelpContext> opened;
    const DoorUse help(HelpDoor(), [&](HelpContext context) { opened.push_back(context); });
    COptionsDlg optionsDlg(options, nullptr);
    CBackupDlg backupDlg(CBackupDlg::Mode::Backup, f.store, BackupActions{}, nullptr);
    CReportDlg reportDlg(nullptr);
    CAboutDlg aboutDlg(nullptr);
    for (QDialog* const dialog : std::initializer_list<QDialog*>{&optionsDlg, &backupDlg, &reportDlg, &aboutDlg}) {
        dialog->show();
        Click(*dialog, "help");
    }
    EXPECT_EQ((std::vector{HelpContext::Options, HelpContext::Backup, HelpContext::Report, HelpContext::Contents}),
              opened);
}

struct BackupDlg : testing::Test {
    StoreFolder f;
    ScriptedMessages messages;
    ScriptedFiles files;
    int reloads = 0;
    BackupActions actions{[this] { ++reloads; }, [](int) { FAIL(); }};

    std::unique_ptr<CBackupDlg> Open(CBackupDlg::Mode mode) {
        auto dialog = std::make_unique<CBackupDlg>(mode, f.store, actions, nullptr);
        dialog->show();
        return dialog;
    }
    QString Ini() const {
        return QFile::exists(f.folder.File("kuvel.ini")) ? QString::fromLatin1(FileBytes(f.folder.File("kuvel.ini")))
                                                         : QString();
    }
};

TEST_F(BackupDlg, BackupGoesToTodaysNameAndRestoreComesFromTheLastOne) {
    const QString target = f.folder.File("Zalohy/Zaloha20120702.mdb");
    auto dialog = Open(CBackupDlg::Mode::Backup);
    EXPECT_EQ("Záloha dat", dialog->windowTitle().toStdString());
    EXPECT_EQ("Zálohovat do souboru:", Find<QLabel>(*dialog, "pathLabel").text().toStdString());
    EXPECT_EQ("Vytvořit zálohu", ShownBy(*dialog, "actionButton"));
    EXPECT_EQ(target.toStdString(), ShownBy(*dialog, "pathEdit"));
    messages.Expect(QStringLiteral("Záloha '%1' byla úspěšně vytvořena!").arg(target), Message::Icon::Information);
    QTest::keyClick(dialog.get(), Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_TRUE(Ini().contains(QStringLiteral("Posledni zaloha=") + target)) << Ini().toStdString();

    f.Sql("INSERT INTO TmpID VALUES (5)");
    dialog = Open(CBackupDlg::Mode::Restore);
    EXPECT_EQ("Obnovit ze souboru:", Find<QLabel>(*dialog, "pathLabel").text().toStdString());
    EXPECT_EQ("Obnovit zálohu", ShownBy(*dialog, "actionButton"));
    EXPECT_EQ(target.toStdString(), ShownBy(*dialog, "pathEdit"));
    messages.Expect(QStringLiteral("Data za zálohy '%1' byla obnovena!").arg(target), Message::Icon::Information);
    Click(*dialog, "actionButton");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ("0", f.AskAll("SELECT count(*) FROM TmpID"));
    EXPECT_EQ(2, reloads);
}

TEST_F(BackupDlg, StaysOpenAfterAFailureAndKeepsTheLastBackup) {
    WriteFile(f.folder.File("kuvel.ini"), "[Zalohovani]\r\nPosledni zaloha=/drive/z.mdb\r\n");
    auto dialog = Open(CBackupDlg::Mode::Restore);
    messages.Expect(QStringLiteral("Nemohu nalézt soubor '/drive/z.mdb'!"), Message::Icon::Warning);
    Click(*dialog, "actionButton");
    EXPECT_TRUE(dialog->isVisible());

    WriteFile(f.folder.File("x.mdb"), "stara");
    dialog = Open(CBackupDlg::Mode::Backup);
    TypeText(*dialog, "pathEdit", QStringLiteral("  %1 ").arg(f.folder.File("x.mdb")).toUtf8().constData());
    messages.ExpectQuestion(
        QStringLiteral("Soubor '%1' již existuje. Přejete si ho přepsat?").arg(f.folder.File("x.mdb")),
        Message::Answer::No);
    Click(*dialog, "actionButton");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ("stara", FileBytes(f.folder.File("x.mdb")));
    EXPECT_EQ("[Zalohovani]\r\nPosledni zaloha=/drive/z.mdb\r\n", Ini().toStdString());
    Click(*dialog, "closeButton");
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(BackupDlg, BrowsingProposesTheNameInTheField) {
    struct Row {
        CBackupDlg::Mode mode;
        QString field, proposed, answer, after;
    };
    using enum CBackupDlg::Mode;
    const Row rows[] = {
        {Backup, QStringLiteral("/a/b/z.mdb//  "), QStringLiteral("/a/b/z.mdb"), {}, QStringLiteral("/a/b/z.mdb//  ")},
        {Backup, QStringLiteral("z.mdb"), {}, QStringLiteral("/c/n.mdb"), QStringLiteral("/c/n.mdb")},
        {Restore, QStringLiteral("/z.mdb"), {}, QStringLiteral("/c/n.mdb"), QStringLiteral("/c/n.mdb")},
    };
    for (const Row& row : rows) {
        const auto dialog = Open(row.mode);
        auto& field = Find<QLineEdit>(*dialog, "pathEdit");
        TypeText(*dialog, "pathEdit", row.field.toUtf8().constData());
        files.answers = {row.answer};
        Click(*dialog, "browseButton");
        const ScriptedFiles::Asked& asked = files.asked.back();
        EXPECT_EQ(row.mode == Backup ? ScriptedFiles::Kind::Save : ScriptedFiles::Kind::Open, asked.kind);
        EXPECT_EQ(row.proposed, asked.request.path);
        EXPECT_EQ("Záloha dat (*.mdb)", asked.request.filter.toStdString());
        EXPECT_EQ("mdb", asked.request.defaultExtension.toStdString());
        EXPECT_EQ(row.after, field.text());
    }
}

/// Takes the links that the desktop would open.
/// The desktop's opener, which writes down what it is asked and ends with this code.
class Opener {
public:
    explicit Opener(int exitCode) {
        const QString program = m_folder.filePath(QStringLiteral("xdg-open"));
        WriteFile(program, "#!/bin/sh\nprintf '%s\\n' \"$@\" >> \"$(dirname \"$0\")/log\"\nexit " +
                               QByteArray::number(exitCode) + "\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("PATH", m_folder.path().toUtf8() + ":" + m_path);
    }
    ~Opener() { qputenv("PATH", m_path); }
    Opener(const Opener&) = delete;
    Opener& operator=(const Opener&) = delete;

    QStringList Asked() const {
        const QString log = m_folder.filePath(QStringLiteral("log"));
        return QFile::exists(log) ? QString::fromUtf8(FileBytes(log)).split(u'\n', Qt::SkipEmptyParts) : QStringList();
    }

private:
    QTemporaryDir m_folder;
    QByteArray m_path = qgetenv("PATH");
};

TEST(AboutDlg, NamesItsVersionAndItsLinksOpenByKey) {
    const Opener opener(0);
    CAboutDlg dialog(nullptr);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_EQ("O aplikaci Kuvel", dialog.windowTitle().toStdString());
    const QString version = Find<QLabel>(dialog, "versionLabel").text();
    EXPECT_EQ("Kuvel, verze " KUVEL_VERSION "  (rel. Jul  2 2012)", version.toStdString());
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ("help", dialog.focusWidget()->objectName().toStdString());
    QStringList asked;
    for (const char* const name : {"mailButton", "webButton"}) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(name, dialog.focusWidget()->objectName().toStdString());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
        ASSERT_TRUE(QTest::qWaitFor([&] { return opener.Asked().size() > asked.size(); }, 5000)) << name;
        asked = opener.Asked();
    }
    const QUrl mail(asked[0]);
    EXPECT_EQ("mailto:" + Find<QPushButton>(dialog, "mailButton").text(), mail.toString(QUrl::RemoveQuery));
    EXPECT_EQ(QStringLiteral("Připomínka k programu \"%1\"").arg(version),
              QUrlQuery(mail).queryItemValue(QStringLiteral("subject"), QUrl::FullyDecoded));
    EXPECT_EQ(Find<QPushButton>(dialog, "webButton").text(), asked[1]);
}

TEST(AboutDlg, SaysWhenNothingOpensItsLinks) {
    const std::pair<const char*, const char*> links[] = {
        {"webButton", "Stránku 'https://www.pelrond.example/kuvel' nelze otevřít.\nV tomto počítači není nastaven "
                      "internetový prohlížeč."},
        {"mailButton", "Nelze zavést podporu poštovního systému."},
    };
    for (const auto& [button, warning] : links)
        for (const bool hasOpener : {true, false}) {
            SCOPED_TRACE(std::string(button) + (hasOpener ? " with an opener" : " without one"));
            ScriptedMessages messages;
            const Opener opener(3); // what it was asked needs a program that is not there
            if (!hasOpener)
                qputenv("PATH", "/nowhere");
            CAboutDlg dialog(nullptr);
            dialog.show();
            messages.Expect(QString::fromUtf8(warning), Message::Icon::Warning);
            Click(dialog, button);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !messages.Shown().empty(); }, 5000));
        }
}

TEST(FileDialogDoor, ShowsDatesAndTypesInCzechAndInFull) {
    SetUpDesktop();
    const ProgramFolder folder;
    WriteFile(folder.File("kuvel.ini"), "x");
    QFile file(folder.File("kuvel.ini"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime({2012, 7, 2}, {10, 15}), QFileDevice::FileModificationTime);
    ASSERT_TRUE(QDir().mkdir(folder.File("Vykazy")));
    Steps steps;
    steps.Then([](QWidget& dialog) {
        auto& list = Find<QTreeView>(dialog, "treeView");
        // Files come in no order, and are put in order later.
        const auto cell = [&](const char* name, int column) {
            const auto found = list.model()->match(list.model()->index(0, 0, list.rootIndex()), Qt::DisplayRole,
                                                   QString::fromLatin1(name), 1, Qt::MatchExactly);
            return found.empty() ? "" : found.front().siblingAtColumn(column).data().toString().toStdString();
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return !cell("Vykazy", 3).empty() && !cell("kuvel.ini", 3).empty(); }, 5000));
        EXPECT_EQ("Složka", cell("Vykazy", 2));
        EXPECT_EQ("2. července 2012 10:15", cell("kuvel.ini", 3));
        for (int column = 1; column < 4; ++column)
            EXPECT_LE(static_cast<QAbstractItemView&>(list).sizeHintForColumn(column), list.columnWidth(column))
                << column;
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    CFileDialogDoor door;
    EXPECT_EQ("", door.OpenFile({QStringLiteral("Otevřít"), folder.Path(), {}, {}}).toStdString());
}

TEST(MessageBoxDoor, SpeaksCzechAndAnswersNoWhenClosed) {
    SetUpDesktop();
    CMessageBoxDoor door;
    const Message question{QStringLiteral("Soubor '<b>' ?"), Message::Icon::Question, Message::Buttons::YesNo};
    const auto label = [](QWidget& box, const char* button) {
        return Find<QPushButton>(box, button).text().remove(u'&').toStdString();
    };
    struct Row {
        Qt::Key key;
        Message::Answer answer;
    };
    const Row rows[] = {
        {Qt::Key_Return, Message::Answer::Yes},
        {Qt::Key_A, Message::Answer::Yes},
        {Qt::Key_N, Message::Answer::No},
        {Qt::Key_Escape, Message::Answer::No},
    };
    for (const Row& row : rows) {
        Steps steps;
        steps.Then([&](QWidget& box) {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
            EXPECT_EQ("Kuvel", box.windowTitle().toStdString());
            EXPECT_EQ("Ano", label(box, "yesButton"));
            EXPECT_EQ("Ne", label(box, "noButton"));
            EXPECT_EQ(Qt::PlainText, static_cast<QMessageBox&>(box).textFormat());
            QTest::keyClick(&box, row.key, row.key < 0x100 ? Qt::AltModifier : Qt::NoModifier);
            // A mnemonic shows its button pressed for a moment.
            EXPECT_TRUE(QTest::qWaitFor([&] { return !box.isVisible(); }, 2000));
        });
        EXPECT_EQ(row.answer, door.Show(question)) << row.key;
    }
    Steps steps;
    steps.Then([&](QWidget& box) {
        EXPECT_EQ("OK", label(box, "ok"));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(Message::Answer::Ok, door.Show({QStringLiteral("x"), Message::Icon::None, Message::Buttons::Ok}));
}

TEST(OpenWorkbook, StartsTheUsersOfficeWithTheFile) {
    QTemporaryDir folder;
    const QString office = folder.filePath(QStringLiteral("soffice"));
    WriteFile(office, "#!/bin/sh\nprintf '%s|' \"$@\" > \"$(dirname \"$0\")/.log\"; mv \"$(dirname \"$0\")/.log\" "
                      "\"$(dirname \"$0\")/log\"\n");
    QFile::setPermissions(office, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QByteArray path = qgetenv("PATH");
    const auto named = qgetenv("KUVEL_SOFFICE");
    const QString log = folder.filePath(QStringLiteral("log"));
    // On the path, or where the one that writes the reports is named.
    for (const bool onPath : {true, false}) {
        QFile::remove(log);
        qputenv("PATH", onPath ? folder.path().toUtf8() + ":" + path : path);
        qputenv("KUVEL_SOFFICE", onPath ? QByteArray() : office.toUtf8());
        EXPECT_TRUE(OpenWorkbook(QStringLiteral("/a b/výkaz 1.XLS")));
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(log); }, 5000));
        EXPECT_EQ("/a b/výkaz 1.XLS|", FileBytes(log).toStdString());
    }
    qputenv("PATH", path);
    qputenv("KUVEL_SOFFICE", named);
}

} // namespace
