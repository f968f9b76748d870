#include "windows/frame/doors/ProgressDlg.h"
#include "windows/frame/doors/ProgressDoor.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

namespace {

struct Progress : testing::Test {
    QWidget owner;
    QLineEdit* field = new QLineEdit(&owner);
    CProgressDlg window{QStringLiteral("Úprava"), true};

    Progress() {
        owner.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&owner));
        field->setFocus();
    }
    QPushButton* Cancel() const { return window.findChild<QPushButton*>(QStringLiteral("cancel")); }
};

/// What the field takes of a key, a press and a shortcut.
std::string TakenBy(QWidget& owner, QLineEdit& field) {
    int runs = 0;
    const QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), &owner, [&] { ++runs; });
    field.clear();
    field.setFocus();
    QTest::keyClicks(&field, QStringLiteral("a"));
    QTest::keyClick(owner.windowHandle(), Qt::Key_B);
    QTest::keyClick(owner.windowHandle(), Qt::Key_Q, Qt::ControlModifier);
    return field.text().toStdString() + " " + std::to_string(runs) + (owner.close() ? " closed" : "");
}

TEST_F(Progress, TheOwnerTakesNoInputMeanwhileAndLooksAsBefore) {
    QPushButton button(QStringLiteral("Tlačítko"), &owner);
    button.move(0, 40);
    button.show();
    const QImage before = owner.grab().toImage();
    {
        CProgressDlg inner(QStringLiteral("t"), false);
        inner.Create(field); // its top-level window
        EXPECT_EQ(before, owner.grab().toImage());
        EXPECT_EQ(" 0", TakenBy(owner, *field));
    }
    EXPECT_EQ("ab 1 closed", TakenBy(owner, *field));
}

TEST_F(Progress, AnOwnerThatWasDisabledBeforeStaysSo) {
    owner.setEnabled(false);
    {
        CProgressDlg inner(QStringLiteral("t"), false);
        inner.Create(&owner);
    }
    EXPECT_FALSE(owner.isEnabled());
}

TEST_F(Progress, ShortWorkShowsNothingAndLongWorkDoes) {
    window.Create(&owner);
    window.SetRange(0, 200);
    window.SetPosition(100);
    EXPECT_FALSE(window.isVisible());
    QTest::qSleep(CProgressDlg::ShowDelay + 20);
    window.SetPosition(150);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ("Úprava", window.windowTitle().toStdString());
    EXPECT_EQ(150, window.findChild<QProgressBar*>()->value());
}

TEST_F(Progress, PressingCancelTwiceIsOneRequest) {
    window.Create(&owner);
    window.ShowNow();
    EXPECT_FALSE(window.CancelRequested());
    QTest::mouseClick(Cancel(), Qt::LeftButton);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.CancelRequested());
    EXPECT_FALSE(window.CancelRequested());
    window.close();
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.CancelRequested());
}

TEST_F(Progress, WithoutCancelThereIsNothingToPress) {
    CProgressDlg inner(QStringLiteral("t"), false);
    inner.Create(&owner);
    inner.ShowNow();
    EXPECT_FALSE(inner.findChild<QPushButton*>(QStringLiteral("cancel"))->isVisible());
    QTest::keyClick(&inner, Qt::Key_Escape);
    inner.close();
    EXPECT_FALSE(inner.CancelRequested());
    EXPECT_TRUE(inner.isVisible());
}

TEST_F(Progress, AskingAndMovingLetPendingMessagesThrough) {
    window.Create(&owner);
    int passed = 0;
    const auto post = [&] { QTimer::singleShot(0, &window, [&] { ++passed; }); };
    post();
    EXPECT_EQ(0, passed);
    window.SetPosition(1);
    EXPECT_EQ(1, passed);
    // A press that waits in the queue counts at once.
    QTimer::singleShot(0, &window, [this] { Cancel()->click(); });
    EXPECT_TRUE(window.CancelRequested());
}

TEST_F(Progress, ThePhaseClearsTheDetail) {
    const auto text = [this](const char* name) {
        return window.findChild<QLabel*>(QString::fromLatin1(name))->text().toStdString();
    };
    window.SetDetailText(QStringLiteral("1 z 9"));
    window.SetPhaseText(QStringLiteral("sešit 1-1"));
    EXPECT_EQ("sešit 1-1", text("phaseLabel"));
    EXPECT_EQ("", text("detailLabel"));
}

TEST_F(Progress, StandsOverTheDialogThatIsOpen) {
    CProgressDoor door(owner);
    QDialog dialog(&owner);
    QTimer::singleShot(0, &dialog, [&] {
        {
            const std::unique_ptr<IProgress> progress = door.Open(QStringLiteral("t"), true);
            EXPECT_FALSE(CDisabledWindow::TakesInput(dialog));
            EXPECT_TRUE(CDisabledWindow::TakesInput(owner));
        }
        EXPECT_TRUE(CDisabledWindow::TakesInput(dialog));
        dialog.accept();
    });
    dialog.exec();
}

} // namespace
