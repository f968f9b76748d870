#include "app/KuvelDoc.h"
#include "app/MainFrame.h"
#include "tests/gui/FrameFolder.h"
#include "tests/gui/ProductFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QTabWidget>

namespace {

/// A product is packed from the keyboard alone, in the main window.
class ProductByKeysTest : public testing::Test {
protected:
    ProductByKeysTest() {
        g_options = {};
        folder.Sql("INSERT INTO Cover (cover_name, cover_weight, cover_type, cover_org, cover_pay) VALUES "
                   "('Fólie', 2500, 2, 0, 1), ('Krabice', 20000, 1, 1, 2)");
        frame.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
        frame.RunCommand(Command::ID_SHOW_PRODUCTS);
    }
    /// To whatever has the focus.
    static void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        // Shortcuts reach only the active window, which it becomes a little after a dialog closed.
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QWidget* control = window.focusWidget();
        QTest::keyClick(control != nullptr ? control : &window, key, modifiers);
    }
    static void Type(QWidget& window, const char* text) {
        QTest::keyClicks(window.focusWidget(), QString::fromLatin1(text));
    }

    FreshSettings settings;
    StoreFolder folder;
    ScriptedMessages messages;
    CKuvelDoc document{folder.store};
    CMainFrame frame{document};
    Steps steps;
};

TEST_F(ProductByKeysTest, FromTheProductToItsPackagingRow) {
    steps.Then([](QWidget& dialog) {
        Type(dialog, "Svicka");
        Press(dialog, Qt::Key_Tab);
        Type(dialog, "S-1");
        Press(dialog, Qt::Key_Tab);
        Type(dialog, "ks");
        Press(dialog, Qt::Key_Return);
    });
    Press(frame, Qt::Key_Insert);
    steps.Then([](QWidget& dialog) { Press(dialog, Qt::Key_Return); });
    Press(frame, Qt::Key_Insert, Qt::ControlModifier);
    steps.Then([](QWidget& sheet) {
        Find<QTabWidget>(sheet, "tabs").setCurrentIndex(0);
        Press(sheet, Qt::Key_Down);
        Press(sheet, Qt::Key_Down);
        Press(sheet, Qt::Key_Return);
        Type(sheet, "3");
        Press(sheet, Qt::Key_Return);
    });
    Press(frame, Qt::Key_Insert, Qt::AltModifier);
    EXPECT_EQ("1|Svicka|S-1|ks", folder.AskAll("SELECT prod_id, prod_name, prod_katalog, prod_unit FROM Product"));
    EXPECT_EQ("1|1|2012-07-02_10:15:30",
              folder.AskAll("SELECT dt_id, prod_id, replace(dt_from, ' ', '_') FROM Prod_CoverDT"));
    EXPECT_EQ("1|2|30000|10000|1|1|1|2", folder.AskAll("SELECT dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, "
                                                       "cover_type, cover_org, cover_pay FROM Prod_Cover"));

    // Enter edits the product, not the row; Alt+Enter the row, Alt+Del takes it.
    steps.Then([](QWidget& dialog) {
        EXPECT_EQ(Czech("Detail produktu"), dialog.windowTitle());
        Press(dialog, Qt::Key_Escape);
    });
    Press(frame, Qt::Key_Return);
    steps.Then([](QWidget& sheet) {
        EXPECT_EQ(Czech("Údaje balení"), sheet.windowTitle());
        Press(sheet, Qt::Key_Escape);
    });
    Press(frame, Qt::Key_Return, Qt::AltModifier);
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit ze seznamu obal\n\"Krabice\" ?"), Message::Answer::Yes);
    Press(frame, Qt::Key_Delete, Qt::AltModifier);
    EXPECT_EQ("", folder.AskAll("SELECT cp_id FROM Prod_Cover"));
}

} // namespace
