#include "windows/frame/KuvelApp.h"
#include "core/base/AppDir.h"
#include "core/rules/Propagation.h"
#include "tests/windows/support/FrameFolder.h"
#include "windows/frame/doors/Desktop.h"
#include "windows/frame/doors/ProgressDoor.h"
#include "windows/widgets/DisabledWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QProcess>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <csignal>
#include <cstring>
#include <sys/types.h>

namespace {

/// A program folder and a run-time folder of the test's own, for the program in this process and in others.
struct Start : testing::Test {
    FreshSettings settings;
    ProgramFolder folder;
    QTemporaryDir runtime;
    ScriptedMessages messages;

    Start() {
        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
        qputenv("KUVEL_HOME", folder.Path().toUtf8());
        g_strAppDir.clear();
    }
    ~Start() override {
        qunsetenv("KUVEL_HOME");
        g_dataStore.CloseDatabase();
        *Options() = {};
    }
    QString Database() const { return folder.File("Kuvel.mdb"); }
};

struct Program {
    QProcess process;

    explicit Program(const QString& home = {}) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        if (!home.isEmpty())
            environment.insert(QStringLiteral("KUVEL_HOME"), home);
        process.setProcessEnvironment(environment);
        Run();
    }
    void Run() {
        process.start(QStringLiteral(KUVEL_BIN_DIR "/kuvel"), {});
        EXPECT_TRUE(process.waitForStarted());
    }
    ~Program() {
        process.kill();
        process.waitForFinished();
    }
    bool Runs() { return process.state() == QProcess::Running; }
    void ExpectEnd() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !Runs(); }, 10000));
        EXPECT_EQ(QProcess::NormalExit, process.exitStatus());
        EXPECT_EQ(0, process.exitCode());
    }
    /// Ended by itself and without a word.
    void ExpectSilentEnd() {
        ExpectEnd();
        EXPECT_EQ("", process.readAllStandardError().toStdString());
    }
};

bool CanAcquire(const QString& folder) {
    return CSingleInstance().Acquire(folder, std::chrono::milliseconds(0));
}

TEST_F(Start, ASecondStartBringsTheFirstForwardAndEndsSilently) {
    folder.AddDatabase();
    CKuvelApp app;
    ASSERT_TRUE(app.InitInstance());
    QDialog modal(app.MainFrame());
    bool came = false;
    QTimer::singleShot(0, &modal, [&] {
        app.MainFrame()->showMinimized();
        QWidget other;
        other.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
        Program second;
        second.ExpectSilentEnd();
        came = QTest::qWaitFor([&] { return QApplication::activeWindow() == &modal; }, 3000);
        modal.accept();
    });
    modal.exec();
    EXPECT_TRUE(came);
    EXPECT_FALSE(app.MainFrame()->isMinimized());
    EXPECT_TRUE(app.MainFrame()->isVisible());
}

TEST_F(Start, ACopyAtItsEndIsWaitedForAndItsPlaceTaken) {
    folder.AddDatabase();
    const auto takesOver = [this](const Program& second, const char* from) {
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return second.process.state() != QProcess::Running || !CanAcquire(folder.Path()); }, 15000));
        EXPECT_EQ(QProcess::Running, second.process.state()) << from;
    };
    {
        // It holds the lock and its socket, but reads no more.
        auto first = std::make_unique<CSingleInstance>();
        ASSERT_TRUE(first->Acquire(folder.Path()));
        Program second;
        QTest::qWait(2500);
        EXPECT_TRUE(second.Runs()) << "a message that nobody reads is no answer";
        first.reset();
        takesOver(second, "the lock");
    }
    auto app = std::make_unique<CKuvelApp>();
    ASSERT_TRUE(app->InitInstance());
    Program second;
    EXPECT_TRUE(app->MainFrame()->close());
    app->ExitInstance();
    app.reset();
    takesOver(second, "the program");
}

TEST_F(Start, APoliteEndFromOutsideClosesTheWindow) {
    folder.AddDatabase();
    for (const int signal : {SIGTERM, SIGHUP}) {
        QFile::remove(folder.File("kuvel.ini"));
        Program program;
        ASSERT_TRUE(QTest::qWaitFor([&] { return !CanAcquire(folder.Path()); }, 15000));
        ASSERT_FALSE(CSingleInstance().Acquire(folder.Path(), std::chrono::seconds(15)));
        ASSERT_TRUE(program.Runs()); // its window is up, for it answers
        kill(static_cast<pid_t>(program.process.processId()), signal);
        program.ExpectEnd();
        EXPECT_TRUE(QFile::exists(folder.File("kuvel.ini"))) << "options are kept";
    }
}

TEST_F(Start, APoliteEndWaitsForAnOperationAndClosesDialogs) {
    folder.AddDatabase();
    CKuvelApp app;
    ASSERT_TRUE(app.InitInstance());
    bool isDialogClosed = false;
    QTimer::singleShot(0, [&] {
        QDialog dialog(app.MainFrame());
        {
            const CDisabledWindow operation(*app.MainFrame());
            raise(SIGTERM);
            QTest::qWait(500);
            EXPECT_TRUE(app.MainFrame()->isVisible());
        }
        QTimer::singleShot(5000, qApp, &QCoreApplication::quit);
        dialog.exec();
        isDialogClosed = true;
    });
    QCoreApplication::exec();
    EXPECT_TRUE(isDialogClosed);
    EXPECT_FALSE(app.MainFrame()->isVisible());
    app.ExitInstance();
}

TEST_F(Start, AKilledProcessDoesNotKeepTheNextFromStarting) {
    folder.AddDatabase();
    for (int round = 0; round < 3; ++round) {
        Program program;
        const auto hasStarted = [&] {
            // A look at the lock that comes just then keeps the program from starting.
            if (!program.Runs())
                program.Run();
            return !CanAcquire(folder.Path());
        };
        EXPECT_TRUE(QTest::qWaitFor(hasStarted, 10000)) << round;
        // A process that is not there would have the number of our own group.
        ASSERT_TRUE(program.Runs());
        kill(static_cast<pid_t>(program.process.processId()), SIGKILL);
        program.process.waitForFinished();
    }
    EXPECT_TRUE(CanAcquire(folder.Path()));
}

TEST_F(Start, UsersAndFoldersDoNotBlockEachOther) {
    CSingleInstance first;
    EXPECT_TRUE(first.Acquire(folder.Path()));
    const QTemporaryDir other;
    EXPECT_TRUE(CanAcquire(other.path()));
    const QString link = other.filePath(QStringLiteral("odkaz"));
    ASSERT_TRUE(QFile::link(folder.Path(), link));
    EXPECT_FALSE(CanAcquire(link)); // the same folder by another name
    const QTemporaryDir anotherUser;
    qputenv("XDG_RUNTIME_DIR", anotherUser.path().toUtf8());
    EXPECT_TRUE(CanAcquire(folder.Path()));
}

TEST_F(Start, EachFailureHasItsMessageAndEndsTheStart) {
    {
        CKuvelApp app;
        messages.Expect(QStringLiteral("Nemohu otevřít databázi '%1'\nSoubor neexistuje.").arg(Database()),
                        Message::Icon::Error);
        EXPECT_FALSE(app.InitInstance());
        EXPECT_EQ(1, app.InitResult());
        EXPECT_EQ(nullptr, app.MainFrame());
    }
    folder.AddDatabase();
    CKuvelApp app;
    EXPECT_TRUE(app.InitInstance());
}

TEST_F(Start, OptionsAreReadAtStartAndWrittenAtExit) {
    folder.AddDatabase();
    WriteFile(folder.File("kuvel.ini"), "[Moznosti]\r\nZmenu obalu promitnout do vydeju=0\r\n");
    WriteFile(folder.File("KuvelTmp.MDB"), "x");
    CKuvelApp app;
    ASSERT_TRUE(app.InitInstance());
    EXPECT_EQ(0, Options()->coversToIssues);
    EXPECT_EQ(1, Options()->packagingToIssues);
    Options()->packagingToIssues = 0;
    Options()->coversToIssues = 1;
    EXPECT_TRUE(app.MainFrame()->close());
    app.ExitInstance();
    EXPECT_EQ("[Moznosti]\r\nZmenu obalu promitnout do vydeju=1\r\n"
              "Zmenu obalu promitnout do slozenych obalu=1\r\nZmenu obalu promitnout v balenich=1\r\n"
              "Zmenu baleni promitnout do vydeju=0\r\n",
              FileBytes(folder.File("kuvel.ini")).toStdString());
    EXPECT_FALSE(g_dataStore.IsOpen());
    EXPECT_FALSE(QFile::exists(folder.File("KuvelTmp.MDB")));
    EXPECT_TRUE(QSettings().contains(QStringLiteral("Kuvel/bars")));
}

TEST_F(Start, OptionsThatCannotBeWrittenAreTold) {
    folder.AddDatabase();
    CKuvelApp app;
    ASSERT_TRUE(app.InitInstance());
    ASSERT_TRUE(QDir().mkdir(folder.File("kuvel.ini")));
    messages.Expect(QStringLiteral("Nemohu zapsat soubor '%1'\n\nChyba č.21. %2")
                        .arg(folder.File("kuvel.ini"), QString::fromLocal8Bit(std::strerror(EISDIR))),
                    Message::Icon::Error);
    // As the end of the user's session does it.
    QTimer::singleShot(0, [] {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &quit);
    });
    QCoreApplication::exec();
    EXPECT_FALSE(app.MainFrame()->isVisible());
    EXPECT_TRUE(QSettings().contains(QStringLiteral("Kuvel/bars")));
    app.ExitInstance();
    EXPECT_FALSE(g_dataStore.IsOpen());
}

} // namespace
