#include "core/base/SqlText.h"
#include "core/rules/Propagation.h"
#include "tests/windows/support/Driver.h"
#include "tests/windows/support/FrameFolder.h"
#include "windows/frame/KuvelDoc.h"
#include "windows/frame/MainFrame.h"
#include "windows/widgets/Beep.h"
#include "windows/widgets/lists/RecordList.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTimer>

namespace {

using enum Command;

constexpr const char* StoredCovers =
    "SELECT cover_id, replace(cover_name, ' ', '_'), cover_mat, cover_reusable FROM Cover ORDER BY cover_id";

/// The find-and-replace window over the real registers in the real main window.
class FindReplace : public testing::Test {
protected:
    FindReplace() {
        *Options() = {}; // every change would be carried on
        folder.Sql("INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay, "
                   "cover_reusable, deleted) VALUES ('abcab', 7, 100, 0, 0, 0, 0, 0), ('BOX 50_', 7, 100, 2, 1, 2, 0, "
                   "0), ('Box 50%', 26, 100, 1, 1, 1, 1, 0), ('d''Or', 0, 100, 2, 2, 0, 0, 0), "
                   "('Žlutý box', 7, 100, 3, 2, 1, 1, 0), ('Žlutý Box', 26, 100, 3, 0, 2, 0, 1);"
                   "INSERT INTO CompCover (ccover_name, ccover_note) VALUES ('Sada', 'a'), ('Sada', 'b');"
                   "INSERT INTO Product (prod_name, prod_katalog, prod_unit, deleted) VALUES ('Čaj', 'C', 'ks', 0), "
                   "('Káva', 'K', 'ks', 0);"
                   "INSERT INTO Prod_CoverDT (prod_id, dt_from) VALUES (1, '2012-01-01 00:00:00');"
                   "INSERT INTO Prod_Cover (dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cover_type) VALUES "
                   "(1, 1, 10000, 10000, 1, 0);"
                   "INSERT INTO Move (move_num, move_date, move_type, move_export) VALUES "
                   "('D-1', '2012-06-15 00:00:00', 0, 1), ('D-2', '2012-07-02 00:00:00', 3, 0);"
                   "INSERT INTO Move_Prod (move_id, prod_id, mvprod_qty) VALUES (1, 1, 10000);"
                   "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty, cover_type) VALUES "
                   "(1, 1, 1, 770000, 0)");
        frame = std::make_unique<CMainFrame>(document);
        frame->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
    }

    RecordList& List(const char* name) { return Find<RecordList>(*frame, name); }
    RecordList& Covers() { return List("covers"); }
    QDialog& Window() { return Find<QDialog>(*frame, "findReplaceDlg"); }
    QComboBox& Combo(const char* name) { return Find<QComboBox>(Window(), name); }
    std::string Items(const char* combo) {
        QStringList texts;
        for (int i = 0; i < Combo(combo).count(); ++i)
            texts.append(Combo(combo).itemText(i));
        return texts.join(u'|').toStdString();
    }
    /// The toolkit's own wait takes a window for active also when the one under it is.
    static void WaitForActive(QWidget& window) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
    }
    QDialog& Open(Command registerCommand = ID_SHOW_COVERS, Qt::Key key = Qt::Key_H) {
        frame->activateWindow();
        WaitForActive(*frame);
        frame->RunCommand(registerCommand);
        QTest::keyClick(frame->RegisterArea().ActiveView(), key, Qt::ControlModifier);
        WaitForActive(Window());
        return Window();
    }
    void Enter(const char* combo, const char* text) {
        QLineEdit& edit = *Combo(combo).lineEdit();
        edit.setObjectName(QString::fromLatin1(combo) + QStringLiteral("Edit"));
        TypeText(Window(), edit.objectName().toLatin1().constData(), text);
    }
    /// Fills in the window from the top.
    void FillIn(const char* area, const char* find, bool partial, const char* replaceWith = "") {
        if (area == nullptr)
            Combo("area").setCurrentIndex(-1);
        else
            ChooseArea(area);
        Find<QCheckBox>(Window(), "partial").setChecked(partial);
        Enter("find", find);
        Enter("replaceWith", replaceWith);
    }
    /// The row is the selected one; −1 for none.
    void Select(int row) {
        if (row < 0)
            Covers().DeselectAll();
        else
            ClickRow(Covers(), row);
    }
    void ChooseArea(const char* name) { Pick(Window(), "area", Combo("area").findText(Czech(name))); }
    /// Presses the button; says which rows are selected after it, and "!" for each signal.
    std::string Press(RecordList& list, const char* button) {
        const int before = beeps;
        Click(Window(), button);
        std::string result;
        for (const int row : list.SelectedRows())
            result += std::to_string(row);
        return result + std::string(static_cast<std::size_t>(beeps - before), '!');
    }

    FreshSettings settings;
    StoreFolder folder;
    ScriptedMessages messages;
    CKuvelDoc document{folder.store};
    std::unique_ptr<CMainFrame> frame;
    int beeps = 0;
    const DoorUse<std::function<void()>> beep{BeepDoor(), [this] { ++beeps; }};
};

TEST_F(FindReplace, EachRegisterOffersItsAreasAndChoosesByASortedColumn) {
    const std::tuple<Command, const char*, int, const char*, const char*> cases[] = {
        {ID_SHOW_COVERS, "covers", 0, "Název|Materiál|Opakovaně používaný|Typ|Původ|Platba", "Název"},
        {ID_SHOW_COVERS, "covers", 1, nullptr, "Materiál"},
        {ID_SHOW_COVERS, "covers", 2, nullptr, ""},
        {ID_SHOW_COVERS, "covers", 3, nullptr, "Typ"},
        {ID_SHOW_COVERS, "covers", 5, nullptr, "Platba"},
        {ID_SHOW_COVERS, "covers", 6, nullptr, "Opakovaně používaný"},
        {ID_SHOW_COMPOSITES, "composites", 0, "Název|Poznámka", "Název"},
        {ID_SHOW_COMPOSITES, "composites", 1, nullptr, "Poznámka"},
        // The order of the master list does not matter, that of the third one does.
        {ID_SHOW_PRODUCTS, "products", 2, "Název|Kat. č.|Jednotka", ""},
        {ID_SHOW_PRODUCTS, "packaging", 1, nullptr, "Název"},
        {ID_SHOW_PRODUCTS, "packaging", 2, nullptr, "Kat. č."},
        {ID_SHOW_PRODUCTS, "packaging", 3, nullptr, "Jednotka"},
        {ID_SHOW_PRODUCTS, "packaging", 4, nullptr, ""},
        {ID_SHOW_ISSUES, "issues", 3, "Číslo dokumentu|Export|Typ", "Číslo dokumentu"},
        {ID_SHOW_ISSUES, "issuedCovers", 2, nullptr, "Export"},
        {ID_SHOW_ISSUES, "issuedCovers", 3, nullptr, "Typ"},
    };
    frame->resize(1400, 600);
    for (const auto& [show, list, column, areas, chosen] : cases) {
        SCOPED_TRACE(std::string(list) + std::to_string(column));
        frame->RunCommand(show);
        RecordList& sorted = List(list);
        if (sorted.SortColumn() != column)
            ClickHeader(sorted, column);
        ASSERT_EQ(column, sorted.SortColumn());
        Open(show, Qt::Key_F);
        EXPECT_EQ(chosen, Combo("area").currentText().toStdString());
        EXPECT_EQ("find", Focus(Window()));
        if (areas == nullptr)
            continue;
        EXPECT_EQ(areas, Items("area"));
    }
}

TEST_F(FindReplace, TheValuesFollowTheArea) {
    const std::tuple<Command, const char*, const char*> cases[] = {
        {ID_SHOW_COVERS, "Název", ""},
        {ID_SHOW_COVERS, "Platba", "neplacený|předplacený|zpoplatněný"},
        {ID_SHOW_COVERS, "Opakovaně používaný", "ano|ne"},
        {ID_SHOW_COVERS, "Typ", "prodejní|průmyslový|přepravní|skupinový"},
        {ID_SHOW_ISSUES, "Typ", "dodací list|faktura|prodejka|výdejka"},
    };
    for (const auto& [show, expected, values] : cases) {
        SCOPED_TRACE(expected);
        Open(show);
        Enter("find", "old");
        Enter("replaceWith", "older");
        const int area = Combo("area").findText(Czech(expected));
        Pick(Window(), "area", area == 0 ? 1 : 0);
        Pick(Window(), "area", area);
        for (const char* combo : {"find", "replaceWith"}) {
            EXPECT_EQ(values, Items(combo));
            EXPECT_EQ("", Combo(combo).currentText().toStdString());
        }
    }
    Open(ID_SHOW_COVERS);
    ChooseArea("Materiál");
    EXPECT_EQ(30, Combo("find").count());
}

TEST_F(FindReplace, RefusesInOrderAndPutsTheFocusOnTheFault) {
    // expected: null for none
    const std::tuple<const char*, const char*, const char*, const char*, const char*, const char*> cases[] = {
        {"Název", "", "", "findNext", "Není zadána výchozí hodnota!", "find"},
        {nullptr, "x", "x", "replaceAll", "Nová hodnota je stejná jako stará hodnota!", "replaceWith"},
        {nullptr, "x", "", "findNext", "Vyberte oblast hledání!", "area"},
        {"Materiál", "Sklo?", "", "findNext", "Není vybrána výchozí hodnota!", "find"},
        {"Materiál", "sklo", "", "replace", "Není vybrána nová hodnota!", "replaceWith"},
        {"Opakovaně používaný", "ano", "?", "replaceAll", "Není vybrána nová hodnota!", "replaceWith"},
    };
    const std::string stored = folder.AskAll(StoredCovers);
    for (const auto& [expected, find, replaceWith, button, warning, focus] : cases) {
        SCOPED_TRACE(warning + std::string(" ") + button);
        Open();
        FillIn(expected, find, false, replaceWith);
        messages.Expect(Czech(warning), Message::Icon::Warning);
        EXPECT_EQ("0", Press(Covers(), button));
        EXPECT_EQ(focus, Focus(Window()));
        EXPECT_TRUE(Window().isVisible());
    }
    EXPECT_EQ(stored, folder.AskAll(StoredCovers));
}

// Rows: 0 abcab, 1 BOX 50_, 2 Box 50%, 3 d'Or, 4 Žlutý box.
TEST_F(FindReplace, FindsTheNextMatchAndBeginsAgainAfterTheLastRow) {
    // from: −1 for no row selected
    const std::tuple<const char*, const char*, bool, int, const char*> cases[] = {
        {"Název", "box", false, 0, "! !"},          {"Název", "box", true, 0, "1 2 4 1"},
        {"Název", "50%", true, -1, "1 2 ! 1"}, // a wild card at the end
        {"Název", "x_5", true, -1, "1 2 !"},   // any letter
        {"Název", "zluty", true, -1, "!"},     // accents count
        {"Materiál", "papír", false, 0, "1 4 0 1"}, {"Opakovaně používaný", "ano", false, -1, "2 4 2"},
    };
    for (const auto& [expected, find, partial, from, rows] : cases) {
        SCOPED_TRACE(find);
        Select(from);
        Open(ID_SHOW_COVERS, Qt::Key_F);
        FillIn(expected, find, partial);
        for (const QString& row : QString::fromLatin1(rows).split(u' '))
            EXPECT_EQ(row.toStdString(), Press(Covers(), "findNext"));
        EXPECT_EQ(beeps > 0 && Covers().SelectedRow() < 0, Covers().FocusedRow() < 0);
    }
}

TEST_F(FindReplace, ReplacesInTheRowsThatMatch) {
    const std::tuple<const char*, const char*, const char*, const char*, bool, int, const char*, const char*,
                     const char*>
        cases[] = {
            {"part", "Název", "ab", "x", true, 0, "replace", "!", "xcx|BOX 50_|Box 50%|d'Or|Žlutý box"},
            {"part in its own case", "Název", "box", "bedna", true, -1, "replaceAll", "!",
             "abcab|BOX 50_|Box 50%|d'Or|Žlutý bedna"},
            {"whole", "Název", "box 50%", "Bedna", false, -1, "replaceAll", "!", "abcab|BOX 50_|Bedna|d'Or|Žlutý box"},
            {"wild card", "Název", "50%", "60", true, 2, "replace replace", "! 1",
             "abcab|BOX 50_|Box 60|d'Or|Žlutý box"},
            {"apostrophe", "Název", "Box 50%", "o'neill", false, 2, "replace", "!",
             "abcab|BOX 50_|o'neill|d'Or|Žlutý box"},
            {"still matching", "Název", "b", "bb", true, 0, "replaceAll", "!",
             "abbcabb|BOX 50_|Box 50%|d'Or|Žlutý bbox"},
            {"row that does not match", "Název", "box", "x", true, 0, "replace replace replace replace", "1 2 4 1",
             "abcab|BOX 50_|Box 50%|d'Or|Žlutý x"},
            {"no row", "Název", "abcab", "x", false, -1, "replace replace", "0 !", "x|BOX 50_|Box 50%|d'Or|Žlutý box"},
            {"code", "Materiál", "papír", "vlnitá lepenka", true, 0, "replaceAll", "!", "27|27|26|0|27"},
            {"no to yes", "Opakovaně používaný", "ne", "ano", false, 0, "replace", "1", "1|0|1|0|1"},
        };
    folder.Sql("CREATE TABLE Kept AS SELECT * FROM Cover");
    for (const auto& [what, expected, find, replaceWith, partial, from, presses, result, stored] : cases) {
        SCOPED_TRACE(what);
        folder.Sql("DELETE FROM Cover; INSERT INTO Cover SELECT * FROM Kept");
        frame->RunCommand(ID_RECORD_REFRESH);
        ASSERT_EQ("abcab, BOX 50_, Box 50%, d'Or, Žlutý box", Names(Covers()));
        Select(from);
        Open();
        FillIn(expected, find, partial, replaceWith);
        QStringList results;
        for (const QString& button : QString::fromLatin1(presses).split(u' '))
            results.append(QString::fromStdString(Press(Covers(), button.toLatin1().constData())));
        EXPECT_EQ(result, results.join(u' ').toStdString());
        const char* const columns[] = {"cover_name", "cover_mat", "cover_reusable"};
        EXPECT_EQ(stored, folder.AskAll(SqlText("SELECT group_concat(%s, '|') FROM Cover WHERE cover_id < 6",
                                                columns[Combo("area").currentIndex()])
                                            .c_str()));
        EXPECT_EQ("Žlutý Box", folder.AskAll("SELECT cover_name FROM Cover WHERE deleted")) << "not in the list";
        if (Combo("area").currentIndex() == 0) {
            EXPECT_EQ(Czech(stored).replace(u'|', QStringLiteral(", ")).toStdString(), Names(Covers()))
                << "in the old order";
        }
    }
}

TEST_F(FindReplace, ATextIsNeverACondition) {
    for (const bool part : {false, true}) {
        const std::string before = AllRows(folder);
        Select(-1);
        Open();
        FillIn("Název", "x' OR cover_name LIKE '%", part, "Y");
        messages.AcceptAny();
        Press(Covers(), "replaceAll");
        EXPECT_EQ(before, AllRows(folder));
    }
}

TEST_F(FindReplace, ATextTooLongForItsFieldIsNotMade) {
    Select(-1);
    Open();
    FillIn("Název", "box", true, std::string(45, 'x').c_str());
    messages.Expect(Czech("Nenahrazeno záznamů: 1. Nový text by měl více než 50 znaků."), Message::Icon::Warning);
    folder.Sql("UPDATE Cover SET cover_name = 'další žlutý box' WHERE cover_id = 5");
    frame->RunCommand(ID_RECORD_REFRESH);
    Press(Covers(), "replaceAll");
    EXPECT_EQ("další žlutý box", folder.AskAll("SELECT cover_name FROM Cover WHERE cover_id = 5"));
}

TEST_F(FindReplace, EachRegisterIsTheTargetOfTheWindowItOpenedLast) {
    const std::tuple<Command, const char*, const char*, const char*, const char*, const char*, const char*> cases[] = {
        {ID_SHOW_COMPOSITES, "composites", "Poznámka", "b", "c", "SELECT ccover_note FROM CompCover", "a c"},
        {ID_SHOW_PRODUCTS, "products", "Jednotka", "ks", "kg", "SELECT prod_unit FROM Product", "kg kg"},
        {ID_SHOW_ISSUES, "issues", "Číslo dokumentu", "d-1", "D-9", "SELECT move_num FROM Move ORDER BY move_id",
         "D-9 D-2"},
        {ID_SHOW_ISSUES, "issues", "Typ", "výdejka", "faktura", "SELECT move_type FROM Move", "0 1"},
        {ID_SHOW_ISSUES, "issues", "Export", "ne", "ano", "SELECT move_export FROM Move", "1 1"},
        {ID_SHOW_COVERS, "covers", "Typ", "skupinový", "prodejní", "SELECT cover_type FROM Cover", "0 2 2 2 3 3"},
    };
    for (const auto& [show, list, expected, find, replaceWith, ask, stored] : cases) {
        SCOPED_TRACE(expected);
        Open(show);
        FillIn(expected, find, false, replaceWith);
        // Switching to another register does not make that one the target.
        frame->RunCommand(show == ID_SHOW_PRODUCTS ? ID_SHOW_COVERS : ID_SHOW_PRODUCTS);
        frame->RunCommand(show);
        EXPECT_EQ("!", Press(List(list), "replaceAll"));
        EXPECT_EQ(stored, folder.AskAll(ask));
    }
    EXPECT_EQ(1, frame->findChildren<QDialog*>(QStringLiteral("findReplaceDlg")).size());
}

TEST_F(FindReplace, AReplacementChangesNothingElse) {
    frame->RunCommand(ID_SHOW_ISSUES);
    const std::string issued = Rows(List("issuedCovers"));
    frame->RunCommand(ID_SHOW_COVERS);
    ClickHeader(Covers(), 3);
    const std::string order = Names(Covers());
    Open();
    FillIn("Typ", "přepravní", false, "průmyslový");
    Press(Covers(), "replaceAll");
    EXPECT_EQ("3", folder.Ask("SELECT cover_type FROM Cover WHERE cover_id = 1"));
    EXPECT_EQ("0", folder.Ask("SELECT cover_type FROM Prod_Cover"));
    EXPECT_EQ("0|770000", folder.AskAll("SELECT cover_type, mvcover_qty FROM Move_Cover"));
    EXPECT_EQ(issued, Rows(List("issuedCovers"))) << "told";
    EXPECT_EQ(order, Names(Covers())) << "sorted anew";
    EXPECT_NE(std::string::npos, Rows(Covers()).find("abcab|papír|0,01|průmyslový"));
}

TEST_F(FindReplace, AnErrorIsShownAndWhatWasWrittenStays) {
    Open();
    Enter("find", "d'Or");
    for (const char* button : {"findNext", "replace", "replaceAll"}) {
        Enter("replaceWith", "x");
        ClickRow(Covers(), 0);
        messages.AcceptAny();
        EXPECT_EQ("", Press(Covers(), button)) << button;
        ASSERT_FALSE(messages.Shown().empty());
        EXPECT_TRUE(messages.Shown().back().text.startsWith(Czech("Došlo k chybě COM č.0x80040E14\n\n")));
        EXPECT_EQ(Message::Icon::Error, messages.Shown().back().icon);
    }
    EXPECT_EQ(3U, messages.Shown().size());
    folder.Sql("CREATE TRIGGER fault BEFORE UPDATE ON Cover WHEN NEW.cover_id = 4 "
               "BEGIN SELECT RAISE(ABORT, 'zkouška'); END");
    FillIn("Název", "o", true, "0");
    EXPECT_EQ("", Press(Covers(), "replaceAll"));
    EXPECT_EQ(4U, messages.Shown().size());
    EXPECT_TRUE(messages.Shown().back().text.endsWith(Czech("zkouška")));
    EXPECT_EQ("abcab, BOX 50_, B0x 50%, d'Or, Žlutý box", Names(Covers()));
    EXPECT_EQ("abcab|BOX 50_|B0x 50%|d'Or|Žlutý box",
              folder.AskAll("SELECT group_concat(cover_name, '|') FROM Cover WHERE cover_id < 6"));
}

TEST_F(FindReplace, OpensInBothModesAndKeepsItsFlagAndPlace) {
    QDialog& window = Open(ID_SHOW_COVERS, Qt::Key_F);
    EXPECT_FALSE(window.isModal());
    EXPECT_FALSE(Find<QCheckBox>(window, "partial").isChecked());
    const QSize size = window.size();
    const auto ExpectMode = [&](int tab, const char* what) {
        EXPECT_EQ(tab, Find<QTabBar>(window, "tabs").currentIndex()) << what;
        for (const char* control : {"replaceLabel", "replaceWith", "replace", "replaceAll"})
            EXPECT_EQ(tab == 1, Find<QWidget>(window, control).isVisible()) << what << control;
        EXPECT_EQ(size, window.size());
    };
    ExpectMode(0, "Ctrl+F");
    auto& tabs = Find<QTabBar>(window, "tabs");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    ExpectMode(1, "tab");
    QTest::keyClick(&tabs, Qt::Key_Left);
    ExpectMode(0, "arrow");
    Enter("find", "box");
    QTest::keyClick(&window, Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(0, Covers().SelectedRow()) << "a hidden button has no key";
    Click(window, "partial");
    QTest::keyClick(Combo("find").lineEdit(), Qt::Key_Return);
    EXPECT_EQ(1, Covers().SelectedRow());
    QTest::keyClick(&window, Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Covers().SelectedRow() == 2; }));
    window.move(33, 44);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(&window, &Open());
    ExpectMode(1, "Ctrl+H");
    EXPECT_EQ(QPoint(33, 44), window.pos());
    EXPECT_TRUE(Find<QCheckBox>(window, "partial").isChecked());
    EXPECT_EQ("", Combo("find").currentText().toStdString());
    Click(window, "cancel");
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FindReplace, TheRegisterStaysUsableBesideTheWindow) {
    QDialog& window = Open();
    FillIn("Název", "box", true);
    EXPECT_EQ("1", Press(Covers(), "findNext"));
    frame->activateWindow();
    WaitForActive(*frame);
    messages.ExpectQuestion(Czech("Opravdu si přejete odstranit vybrané kuvel"), Message::Answer::Yes);
    QTest::keyClick(&Covers(), Qt::Key_Delete);
    EXPECT_EQ("abcab, Box 50%, d'Or, Žlutý box", Names(Covers()));
    ClickHeader(Covers(), 0);
    ClickRow(Covers(), 1);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ("box", Combo("find").currentText().toStdString());
    EXPECT_EQ("2", Press(Covers(), "findNext"));
    EXPECT_EQ("Box 50%", Covers().CellText(2, 0).toStdString());
    EXPECT_TRUE(frame->close());
}

TEST_F(FindReplace, TheWindowNamesItsRegisterAndRestsWhileAnotherIsShown) {
    QDialog& window = Open();
    EXPECT_EQ("Tabulka: Kuvel", Find<QLabel>(window, "registerName").text().toStdString());
    FillIn("Název", "abcab", false, "x");
    frame->RunCommand(ID_SHOW_PRODUCTS);
    const std::string stored = folder.AskAll(StoredCovers);
    for (const char* button : {"findNext", "replace", "replaceAll"}) {
        EXPECT_FALSE(Find<QPushButton>(window, button).isEnabled()) << button;
        Click(window, button);
    }
    EXPECT_EQ(stored, folder.AskAll(StoredCovers));
    Open(ID_SHOW_PRODUCTS);
    EXPECT_EQ("Tabulka: Produkty", Find<QLabel>(window, "registerName").text().toStdString());
    EXPECT_TRUE(Find<QPushButton>(window, "replaceAll").isEnabled());
    frame->RunCommand(ID_SHOW_COVERS);
    EXPECT_FALSE(Find<QPushButton>(window, "findNext").isEnabled());
    frame->RunCommand(ID_SHOW_PRODUCTS);
    EXPECT_TRUE(Find<QPushButton>(window, "findNext").isEnabled());
}

TEST_F(FindReplace, ReplacingAllSaysHowManyAndHowManyDifferInCase) {
    const auto said = [this] { return frame->statusBar()->currentMessage().toStdString(); };
    Open();
    FillIn("Název", "Box", true, "Kus");
    Press(Covers(), "replaceAll");
    EXPECT_EQ("Nahrazeno 1, beze změny 2 (liší se velikost písmen)", said());
    FillIn("Název", "Kus", true, "Box");
    Press(Covers(), "replaceAll");
    EXPECT_EQ("Nahrazeno 1", said());
    FillIn("Název", "nikde", true, "Box");
    Press(Covers(), "replaceAll");
    EXPECT_EQ("Nahrazeno 0", said());
}

TEST_F(FindReplace, F3FindsTheNextAlsoWhenTheWindowIsHidden) {
    const auto f3 = [this] {
        QTest::keyClick(frame->windowHandle(), Qt::Key_F3);
        return Covers().SelectedRow();
    };
    // Nothing was asked yet: the window opens.
    f3();
    WaitForActive(Window());
    FillIn("Název", "box", true);
    EXPECT_EQ("1", Press(Covers(), "findNext"));
    QTest::keyClick(&Window(), Qt::Key_F3);
    EXPECT_EQ(2, Covers().SelectedRow());
    QTest::keyClick(&Window(), Qt::Key_Escape);
    frame->activateWindow();
    WaitForActive(*frame);
    EXPECT_EQ(4, f3());
    EXPECT_EQ(1, f3()) << "after the last row comes the first";
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(FindReplace, AContextMenusPromptsStandInTheStatusBar) {
    QTest::keyClick(&Covers(), Qt::Key_F10, Qt::ShiftModifier);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(nullptr, menu);
    QTest::keyClick(menu, Qt::Key_Down);
    EXPECT_EQ("Přidat nový záznam", frame->statusBar()->currentMessage().toStdString());
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_EQ("", frame->statusBar()->currentMessage().toStdString());
}

TEST_F(FindReplace, NothingGetsIntoTheMiddleOfReplacingAll) {
    folder.Sql("WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < 30000) INSERT INTO Cover "
               "(cover_name, deleted) SELECT 'mnoho ' || i, 0 FROM n");
    frame->RunCommand(ID_RECORD_REFRESH);
    QDialog& window = Open();
    FillIn("Název", "mnoho", true, "málo");
    Find<QPushButton>(window, "replaceAll").setFocus();
    bool alive = false;
    QTimer::singleShot(0, &window, [&] {
        alive = true;
        frame->RunCommand(ID_RECORD_DELETE);
        QTest::keyClick(&Covers(), Qt::Key_Delete);
        QTest::keyClick(&window, Qt::Key_Escape);
        Click(window, "replaceAll");
        EXPECT_FALSE(frame->close());
    });
    EXPECT_EQ("!", Press(Covers(), "replaceAll"));
    EXPECT_TRUE(alive);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ("replaceAll", Focus(window));
    EXPECT_EQ("30000", folder.Ask("SELECT count(*) FROM Cover WHERE cover_name LIKE 'málo %'"));
    EXPECT_EQ("málo 1", Covers().CellText(5, 0).toStdString().substr(0, 7));
}

} // namespace
