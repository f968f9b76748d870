#include "tests/windows/support/Accessibility.h"
#include "tests/windows/support/RegisterFixture.h"
#include "windows/widgets/SplitterBar.h"

#include <QTabBar>

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
