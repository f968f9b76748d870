#include "tests/windows/support/Driver.h"
#include "tests/windows/support/FrameFolder.h"
#include "windows/frame/FrameCommands.h"
#include "windows/frame/StatusPanes.h"
#include "windows/frame/doors/ProgressDoor.h"
#include "windows/widgets/ScreenFit.h"
#include "windows/widgets/lists/RecordList.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

namespace {

struct MainFrame : testing::Test, FrameFolder {};

TEST_F(MainFrame, ANewWindowIsAsLargeAsTheScreenAllows) {
    const QSize room = frame->screen()->availableSize();
    ASSERT_GT(1280, room.width()) << "the screen of this test is small";
    EXPECT_GT(room.width(), frame->width()) << "its frame has room too";
    EXPECT_GT(room.height(), frame->height());
    EXPECT_LT(room.width() - 60, frame->width());
    EXPECT_EQ(QSize(640, 300), FittingSize(*frame, {640, 300}));
    EXPECT_EQ(QSize(600, 400), frame->minimumSize());
}

TEST_F(MainFrame, TheIndicatorsStandWithoutFrames) {
    for (const char* const name : {"capsPane", "numPane", "scrollPane"})
        EXPECT_EQ(QFrame::NoFrame, frame->findChild<QLabel*>(QString::fromLatin1(name))->frameShape()) << name;
}

TEST_F(MainFrame, NoMnemonicStandsTwiceInAMenu) {
    const auto check = [](const QList<QAction*>& actions, auto& self) -> void {
        QString seen;
        for (const QAction* action : actions) {
            const qsizetype at = action->text().indexOf(u'&');
            if (at >= 0) {
                const QChar letter = action->text()[at + 1].toUpper();
                EXPECT_FALSE(seen.contains(letter)) << action->text().toStdString();
                seen += letter;
            }
            if (action->menu() != nullptr)
                self(action->menu()->actions(), self);
        }
    };
    check(frame->menuBar()->actions(), check);
}

TEST_F(MainFrame, KeysReachTheShownRegister) {
    struct Row {
        int key;
        Qt::KeyboardModifiers modifiers;
        Command command;
    };
    using enum Command;
    const Row rows[] = {
        {Qt::Key_F, Qt::ControlModifier, ID_RECORD_FIND},
        {Qt::Key_H, Qt::ControlModifier, ID_RECORD_REPLACE},
        {Qt::Key_T, Qt::ControlModifier, ID_RECORD_FILTER},
        {Qt::Key_Delete, Qt::NoModifier, ID_RECORD_DELETE},
        {Qt::Key_Delete, Qt::ControlModifier, ID_DETAIL_DELETE},
        {Qt::Key_Delete, Qt::AltModifier, ID_SUBDETAIL_DELETE},
        {Qt::Key_F5, Qt::NoModifier, ID_RECORD_REFRESH},
        {Qt::Key_Insert, Qt::NoModifier, ID_RECORD_ADD},
        {Qt::Key_Insert, Qt::ControlModifier, ID_DETAIL_ADD},
        {Qt::Key_Return, Qt::NoModifier, ID_RECORD_EDIT},
        {Qt::Key_Enter, Qt::KeypadModifier, ID_RECORD_EDIT},
        {Qt::Key_Return, Qt::ControlModifier, ID_DETAIL_EDIT},
        {Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier, ID_DETAIL_EDIT},
        {Qt::Key_Return, Qt::AltModifier, ID_SUBDETAIL_EDIT},
        {Qt::Key_Insert, Qt::AltModifier, Command{}}, // not handled by the recording register
    };
    for (const Row& row : rows) {
        View().ran.clear();
        QTest::keyClick(&View(), static_cast<Qt::Key>(row.key), row.modifiers);
        const std::vector<Command> expected =
            row.command == Command{} ? std::vector<Command>{} : std::vector{row.command};
        EXPECT_EQ(expected, View().ran) << "key " << row.key << " modifiers " << row.modifiers;
    }
}

TEST_F(MainFrame, ACommandThatNobodyHandlesIsDisabled) {
    EXPECT_TRUE(frame->Action(Command::ID_RECORD_ADD)->isEnabled());
    EXPECT_FALSE(frame->Action(Command::ID_SUBDETAIL_ADD)->isEnabled());
    EXPECT_FALSE(frame->Action(Command::ID_IMPORT_MONEY)->isEnabled());
    EXPECT_FALSE(frame->Action(Command::ID_BACKUP)->isEnabled());
    CProgressDoor progress(*frame);
    InstallFrameCommands(*frame, progress);
    for (const Command command : {Command::ID_BACKUP, Command::ID_RESTORE, Command::ID_REPORT, Command::ID_OPTIONS,
                                  Command::ID_RECOMPUTE_ISSUES, Command::ID_APP_ABOUT, Command::ID_HELP,
                                  Command::ID_IMPORT_MONEY, Command::ID_IMPORT_WAK})
        EXPECT_TRUE(frame->Action(command)->isEnabled()) << static_cast<int>(command);
}

TEST(MainFrameOptions, FourDecimalsAreInTheListsAtOnce) {
    const FreshSettings settings;
    StoreFolder f;
    f.Sql("INSERT INTO Cover(cover_name, cover_weight) VALUES ('Víčko', 11), ('Bez váhy', NULL)");
    CKuvelDoc document(f.store);
    CMainFrame frame(document);
    CProgressDoor progress(frame);
    InstallFrameCommands(frame, progress);
    frame.show();
    const auto shown = [&] { return Names(Find<RecordList>(frame, "covers"), 2); };
    EXPECT_EQ(", 0,00", shown());
    for (const char* const expected : {", 0,0011", ", 0,00"}) {
        Steps steps;
        steps.Then(InTurn({Clicked("fourDecimalsCheck"), Clicked("ok")}));
        frame.RunCommand(Command::ID_OPTIONS);
        EXPECT_EQ(expected, shown());
    }
}

TEST_F(MainFrame, RegistersAreCreatedOnFirstUseAndKept) {
    CRecordedView& covers = View();
    EXPECT_EQ(1, covers.updates);
    EXPECT_TRUE(frame->Action(Command::ID_SHOW_COVERS)->isChecked());
    EXPECT_EQ(1, frame->RegisterArea().count());

    frame->Action(Command::ID_SHOW_ISSUES)->trigger();
    CRecordedView& issues = View();
    EXPECT_NE(&covers, &issues);
    EXPECT_FALSE(covers.isVisible());
    EXPECT_TRUE(issues.isVisible());
    EXPECT_TRUE(issues.hasFocus());
    EXPECT_FALSE(frame->Action(Command::ID_SHOW_COVERS)->isChecked());
    EXPECT_TRUE(frame->Action(Command::ID_SHOW_ISSUES)->isChecked());

    frame->Action(Command::ID_SHOW_ISSUES)->trigger(); // the one that is shown
    EXPECT_EQ(&issues, &View());
    EXPECT_TRUE(frame->Action(Command::ID_SHOW_ISSUES)->isChecked());
    frame->Action(Command::ID_SHOW_COVERS)->trigger();
    EXPECT_EQ(&covers, &View());
    EXPECT_EQ(1, covers.updates);
    EXPECT_EQ(2, frame->RegisterArea().count());
}

TEST_F(MainFrame, ABroadcastReachesEachCreatedViewOnceAndNeverItsSender) {
    CRecordedView& covers = View();
    frame->RunCommand(Command::ID_SHOW_PRODUCTS);
    CRecordedView& products = View();
    frame->RunCommand(Command::ID_SHOW_ISSUES);
    CRecordedView& issues = View();
    using Messages = std::vector<ViewMessage>;
    products.Tell(ViewMessage::WM_COVERS_CHANGED);
    EXPECT_EQ(Messages{ViewMessage::WM_COVERS_CHANGED}, covers.received);
    EXPECT_EQ(Messages{}, products.received);
    EXPECT_EQ(Messages{ViewMessage::WM_COVERS_CHANGED}, issues.received);
    frame->RegisterArea().Broadcast(ViewMessage::Refresh, nullptr);
    EXPECT_EQ(Messages{ViewMessage::Refresh}, products.received);
    EXPECT_EQ(2U, covers.received.size());
    EXPECT_EQ(2U, issues.received.size());
    EXPECT_EQ(3, frame->RegisterArea().count());
}

TEST_F(MainFrame, BarsAndStatusRowStayAsTheUserLeftThem) {
    const auto bar = [this](const char* name) { return frame->findChild<QToolBar*>(QString::fromLatin1(name)); };
    frame->Action(Command::ID_VIEW_TOOLS_BAR)->trigger();
    frame->Action(Command::ID_VIEW_STATUS_BAR)->trigger();
    frame->addToolBar(Qt::LeftToolBarArea, bar("tablesBar"));
    frame->resize(777, 555);
    EXPECT_FALSE(frame->Action(Command::ID_VIEW_TOOLS_BAR)->isChecked());
    Open();
    EXPECT_TRUE(bar("toolsBar")->isHidden());
    EXPECT_FALSE(frame->Action(Command::ID_VIEW_TOOLS_BAR)->isChecked());
    EXPECT_TRUE(frame->statusBar()->isHidden());
    EXPECT_EQ(Qt::LeftToolBarArea, frame->toolBarArea(bar("tablesBar")));
    EXPECT_EQ(QSize(777, 555), frame->size());
    frame->Action(Command::ID_VIEW_TOOLS_BAR)->trigger();
    frame->Action(Command::ID_VIEW_STATUS_BAR)->trigger();
    EXPECT_TRUE(bar("toolsBar")->isVisible());
    EXPECT_TRUE(frame->statusBar()->isVisible());
}

TEST_F(MainFrame, ThePromptTakesThePlaceOfTheIdleText) {
    auto* const idle = frame->findChild<QLabel*>(QStringLiteral("messagePane"));
    EXPECT_EQ("Hotovo", idle->text().toStdString());
    EXPECT_TRUE(idle->isVisible());
    QMenu* const file = frame->menuBar()->actions().front()->menu();
    file->popup(frame->mapToGlobal(QPoint(0, 0)));
    file->setActiveAction(frame->Action(Command::ID_APP_EXIT));
    EXPECT_EQ("Ukončit aplikaci", frame->statusBar()->currentMessage().toStdString());
    EXPECT_FALSE(idle->isVisible());
    file->close();
    frame->statusBar()->clearMessage();
    EXPECT_TRUE(idle->isVisible());
}

TEST_F(MainFrame, IndicatorsKeepTheirWidth) {
    const auto pane = [this](const char* name) { return frame->findChild<QLabel*>(QString::fromLatin1(name)); };
    auto* const panes = frame->statusBar()->findChild<CStatusPanes*>();
    panes->Show({true, false, true});
    EXPECT_EQ("CAP", pane("capsPane")->text().toStdString());
    EXPECT_EQ("", pane("numPane")->text().toStdString());
    EXPECT_EQ("SCRL", pane("scrollPane")->text().toStdString());
    const int width = pane("scrollPane")->width();
    panes->Show({});
    QTest::qWait(1);
    EXPECT_EQ(width, pane("scrollPane")->width());
}

TEST_F(MainFrame, ADisabledWindowNeitherClosesNorRunsKeys) {
    frame->setEnabled(false);
    frame->close();
    EXPECT_TRUE(frame->isVisible());
    QTest::keyClick(frame.get(), Qt::Key_Insert);
    frame->RunCommand(Command::ID_RECORD_ADD);
    EXPECT_TRUE(View().ran.empty());
    frame->setEnabled(true);
    EXPECT_TRUE(frame->close());
}

} // namespace
