// From the keyboard alone, in the main window.

#include "core/report/FigureList.h"
#include "core/rules/Propagation.h"
#include "tests/windows/support/Driver.h"
#include "tests/windows/support/FrameFolder.h"
#include "windows/frame/KuvelDoc.h"
#include "windows/frame/MainFrame.h"
#include "windows/widgets/lists/RecordList.h"

#include <gtest/gtest.h>

#include <QTabWidget>

namespace {

/// To whatever has the focus.
void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    // Shortcuts reach only the active window, which it becomes a little after a dialog closed.
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QWidget* control = window.focusWidget();
    QTest::keyClick(control != nullptr ? control : &window, key, modifiers);
}

/// Text, and in it a line's end for Enter, a tab for Tab, and "_" for Down.
Act Keys(const char* keys) {
    return [keys](QWidget& dialog) {
        for (const char* key = keys; *key != '\0'; ++key) {
            if (*key == '\n')
                Press(dialog, Qt::Key_Return);
            else if (*key == '\t')
                Press(dialog, Qt::Key_Tab);
            else if (*key == '_')
                Press(dialog, Qt::Key_Down);
            else
                QTest::keyClick(dialog.focusWidget(), *key);
        }
    };
}

class ByKeysTest : public testing::Test {
protected:
    ByKeysTest() {
        *Options() = {};
        folder.Sql("INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay, "
                   "cover_reusable, cover_stat) VALUES ('Folie', 8, 2500, 2, 0, 1, 0, 0), "
                   "('Krabice', 7, 20000, 1, 1, 2, 0, 0)");
        frame.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
    }
    void InDialog(Qt::Key key, Qt::KeyboardModifiers modifiers, std::vector<Act> acts) {
        steps.Then(InTurn(std::move(acts)));
        Press(frame, key, modifiers);
    }

    FreshSettings settings;
    StoreFolder folder;
    ScriptedMessages messages;
    CKuvelDoc document{folder.store};
    CMainFrame frame{document};
    Steps steps;
};

TEST_F(ByKeysTest, FromTheProductToItsPackagingRow) {
    frame.RunCommand(Command::ID_SHOW_PRODUCTS);
    InDialog(Qt::Key_Insert, Qt::NoModifier, {Keys("Svicka\tS-1\tks\n")});
    InDialog(Qt::Key_Insert, Qt::ControlModifier, {Keys("\n")});
    InDialog(Qt::Key_Insert, Qt::AltModifier,
             {[](QWidget& sheet) { Find<QTabWidget>(sheet, "tabs").setCurrentIndex(0); }, Keys("__\n3\n")});
    EXPECT_EQ("1|Svicka|S-1|ks", folder.AskAll("SELECT prod_id, prod_name, prod_katalog, prod_unit FROM Product"));
    EXPECT_EQ("1|1|2012-07-02_10:15:30",
              folder.AskAll("SELECT dt_id, prod_id, replace(dt_from, ' ', '_') FROM Prod_CoverDT"));
    EXPECT_EQ("1|2|30000|10000|1|1|1|2", folder.AskAll("SELECT dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, "
                                                       "cover_type, cover_org, cover_pay FROM Prod_Cover"));

    // Enter edits the product, not the row; Alt+Enter the row, Alt+Del takes it.
    InDialog(Qt::Key_Return, Qt::NoModifier, {ShowsTitle("Detail produktu"), Pressed(Qt::Key_Escape)});
    InDialog(Qt::Key_Return, Qt::AltModifier, {ShowsTitle("Údaje balení"), Pressed(Qt::Key_Escape)});
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit ze seznamu obal\n\"Krabice\" ?"), Message::Answer::Yes);
    Press(frame, Qt::Key_Delete, Qt::AltModifier);
    EXPECT_EQ("", folder.AskAll("SELECT cp_id FROM Prod_Cover"));
}

TEST_F(ByKeysTest, FromTheIssueToTheCellOfTheReport) {
    folder.Sql("INSERT INTO Product (prod_name) VALUES ('Caj');"
               "INSERT INTO Prod_CoverDT (prod_id, dt_from) VALUES (1, '2012-01-01 00:00:00');"
               "INSERT INTO Prod_Cover (dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cover_type, cover_org, "
               "cover_pay) VALUES (1, 1, 20000, 10000, 1, 2, 0, 1)");
    frame.RunCommand(Command::ID_SHOW_ISSUES);
    InDialog(Qt::Key_Insert, Qt::NoModifier, {Keys("V-1\t_\n")});
    EXPECT_EQ("1|V-1|0", folder.AskAll("SELECT move_id, move_num, move_type FROM Move"));
    InDialog(Qt::Key_Insert, Qt::ControlModifier, {Keys("_\n6000\n")});
    const std::unique_ptr<IProgress> progress = SilentProgress().Open({}, false);
    const std::vector<FigureCell> cells = ListFigures(folder.store, *progress, 2012, 3, QStringLiteral("2.21"));
    // 6,000 products carry 12,000 pieces of 0.25 kg.
    ASSERT_EQ(1u, cells.size());
    EXPECT_EQ("1-1 D7 3,0000",
              (cells[0].sheet + u' ' + cells[0].cell + u' ' + FormatCurrency(cells[0].tonnes, 1, 'M')).toStdString());
}

} // namespace
