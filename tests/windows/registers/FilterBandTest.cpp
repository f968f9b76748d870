#include "tests/windows/support/RegisterFixture.h"
#include "windows/widgets/SplitterBar.h"

#include <QAccessible>
#include <QRadioButton>
#include <QTabBar>

#include <map>

namespace {

using enum Command;

TEST(FilterBand, CountsTheRowsAndDropsTheFilter) {
    for (const Command show : {ID_SHOW_COVERS, ID_SHOW_COMPOSITES, ID_SHOW_PRODUCTS}) {
        SCOPED_TRACE(static_cast<int>(show));
        OpenRegister opened(show);
        auto& master = static_cast<RecordList&>(*opened.view->focusProxy());
        const std::string all = Rows(master);
        auto& drop = Find<CIconButton>(*opened.view, "dropFilter");
        EXPECT_FALSE(drop.isVisible());
        const std::string name = master.CellText(master.SelectedRow(), show == ID_SHOW_PRODUCTS ? 1 : 0).toStdString();
        opened.Do(ID_RECORD_FILTER, {Clicked("byName"), Typed("name", name.c_str()), Clicked("ok")});
        EXPECT_TRUE(drop.isVisible());
        EXPECT_EQ("1 z " + std::to_string(QString::fromStdString(all).count(u'\n') + 1), drop.text().toStdString());
        Click(*opened.view, "dropFilter");
        EXPECT_EQ(all, Rows(master));
        EXPECT_FALSE(drop.isVisible());
        EXPECT_FALSE(opened.FilterIsLatched());
        opened.Do(ID_RECORD_FILTER, {Shows("byName", "ne"), Clicked("cancel")});
    }
}

TEST(FilterBand, ARecordThatTheFilterHidesAfterSavingIsSaid) {
    OpenRegister opened(ID_SHOW_PRODUCTS);
    opened.Do(ID_RECORD_FILTER, {Clicked("byName"), Typed("name", "Caj"), Clicked("ok")});
    opened.Do(ID_RECORD_ADD, {Typed("name", "Caj"), Clicked("ok")});
    EXPECT_EQ("", opened.frame.said);
    opened.Do(ID_RECORD_ADD, {Typed("name", "Kakao"), Clicked("ok")});
    EXPECT_EQ("Záznam je uložen, ale filtr ho nezobrazuje.", opened.frame.said);
    opened.frame.said.clear();
    opened.Do(ID_RECORD_EDIT, {Typed("name", "Jiny"), Clicked("ok")});
    EXPECT_EQ("Záznam je uložen, ale filtr ho nezobrazuje.", opened.frame.said);
}

TEST(RegisterKeys, SortAListAndMoveTheSplitter) {
    OpenRegister opened(ID_SHOW_COVERS);
    RecordList& covers = opened.List("covers");
    QTest::keyClick(&covers, Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ("PE folie 20 µm, Fólie, Bedna", Names(covers));
    QTest::keyClick(&covers, Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ("Bedna, Fólie, PE folie 20 µm", Names(covers));
    auto& splitter = Find<CSplitterBar>(*opened.view, "splitter");
    const int left = splitter.x();
    const int width = covers.width();
    QTest::keyClick(&splitter, Qt::Key_Left);
    EXPECT_LT(splitter.x(), left);
    EXPECT_EQ(width - (left - splitter.x()), covers.width());
    QTest::keyClick(&splitter, Qt::Key_Right);
    EXPECT_EQ(left, splitter.x());
}

/// Every control that takes the focus has a name, and no two that are shown share a mnemonic.
void ExpectAccessible(QWidget& dialog) {
    std::map<QChar, std::string> mnemonics;
    for (QWidget* control : dialog.findChildren<QWidget*>()) {
        if (!control->isVisibleTo(&dialog))
            continue;
        QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(control);
        const std::string name = control->objectName().toStdString();
        // The edit inside a box is named by the box.
        const bool isPart = name.rfind("qt_", 0) == 0;
        if ((control->focusPolicy() & Qt::TabFocus) && control->focusProxy() == nullptr && !isPart) {
            EXPECT_TRUE(seen != nullptr && !seen->text(QAccessible::Name).isEmpty())
                << dialog.objectName().toStdString() << " " << control->metaObject()->className() << " " << name;
        }
        const QKeySequence key = QKeySequence::mnemonic(control->property("text").toString());
        if (!key.isEmpty()) {
            const QChar letter = key.toString().back();
            EXPECT_FALSE(mnemonics.contains(letter)) << name << " and " << mnemonics[letter];
            mnemonics[letter] = name;
        }
    }
}

/// Tab goes through every control that takes the focus, row by row, and comes back to the first.
void ExpectReadByTab(QWidget& dialog) {
    constexpr int RowHeight = 12;
    const auto middle = [&](QWidget* control) { return control->mapTo(&dialog, control->rect().center()).y(); };
    QWidget* const first = dialog.focusWidget();
    QList<QWidget*> order;
    for (QWidget* at = first; at != nullptr && !order.contains(at) && order.size() < 100; at = dialog.focusWidget()) {
        order.append(at);
        QTest::keyClick(at, Qt::Key_Tab);
    }
    EXPECT_EQ(first, dialog.focusWidget()) << "the round";
    int up = 0;
    std::string read;
    for (qsizetype i = 0; i < order.size(); ++i) {
        up += middle(order[(i + 1) % order.size()]) < middle(order[i]) - RowHeight;
        read += order[i]->objectName().toStdString() + " ";
    }
    EXPECT_LE(up, 1) << "only from the last to the first: " << read;
    for (QWidget* control : dialog.findChildren<QWidget*>()) {
        const bool takesFocus = (control->focusPolicy() & Qt::TabFocus) && control->focusProxy() == nullptr;
        const bool isChoice = qobject_cast<QRadioButton*>(control) != nullptr;
        if (takesFocus && !isChoice && control->isEnabled() && control->isVisibleTo(&dialog) &&
            !control->objectName().startsWith(u"qt_")) {
            EXPECT_TRUE(order.contains(control)) << control->objectName().toStdString();
        }
    }
}

TEST(Accessibility, EveryControlOfTheRegistersDialogsHasANameAndIsReadByTab) {
    const struct {
        Command show;
        std::vector<Command> commands;
    } cases[] = {
        {ID_SHOW_COVERS, {ID_RECORD_ADD, ID_RECORD_FILTER, ID_DETAIL_ADD}},
        {ID_SHOW_COMPOSITES, {ID_RECORD_ADD, ID_RECORD_FILTER}},
        {ID_SHOW_PRODUCTS, {ID_RECORD_ADD, ID_RECORD_FILTER, ID_DETAIL_ADD, ID_SUBDETAIL_ADD, ID_SUBDETAIL_EDIT}},
        {ID_SHOW_ISSUES,
         {ID_RECORD_ADD, ID_RECORD_FILTER, ID_DETAIL_ADD, ID_DETAIL_EDIT, ID_SUBDETAIL_ADD, ID_SUBDETAIL_EDIT}},
    };
    for (const auto& each : cases) {
        OpenRegister opened(each.show);
        ExpectAccessible(*opened.view);
        for (const Command command : each.commands) {
            SCOPED_TRACE(static_cast<int>(command));
            opened.Do(command, {ExpectAccessible, ExpectReadByTab, Pressed(Qt::Key_Escape)});
        }
    }
}

} // namespace
