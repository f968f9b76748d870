// What the four registers show, each rule once over all of them.

#include "tests/windows/support/RegisterFixture.h"
#include "windows/widgets/HelpDoor.h"
#include "windows/widgets/SplitterBar.h"
#include "windows/widgets/TitleBand.h"

namespace {

using enum Command;

TEST(Registers, ShowTheirListsUnderTheirHeaders) {
    const std::tuple<Command, const char*, const char*, const char*> cases[] = {
        {ID_SHOW_COVERS, "covers", "Název|Materiál|Hmotnost [kg]|Typ|Původ|Platba|Opakovaně používaný",
         "Bedna|dřevo|2,00|skupinový|nakoupený v ČR|zpoplatněný|ano\n"
         "Fólie|kovy - železo FE|0,25|prodejní|dovezený do ČR|zpoplatněný|ne\n"
         "PE folie 20 µm|kovy - železo FE|0,03|prodejní|dovezený do ČR|předplacený|ne"},
        {ID_SHOW_COVERS, "discards", "Datum|Typ|Hmotnost [kg]",
         "01.03.2012|recyklováno|2,00\n02.05.2012|energeticky využito|6,00"},
        {ID_SHOW_COMPOSITES, "composites", "Název|Poznámka", "Balík|\nSada|dvě"},
        {ID_SHOW_PRODUCTS, "products", "ID|Název|Kat. č.|Jednotka", "77|Čaj|C-10|ks\n|Chléb|B-3|ks\n|Káva|K-2|kg"},
        {ID_SHOW_PRODUCTS, "dates", "Platné od", "01.01.2012\n01.06.2012"},
        {ID_SHOW_PRODUCTS, "packaging", "Název|Hmotnost [kg]|Počet výr.|Použít od|Použít do|Typ|Původ|Platba",
         "Fólie|0,50|1,00|-|-|prodejní|dovezený do ČR|zpoplatněný\n"
         "Krabice|2,00|10,00|1,00|100,00|skupinový|nakoupený v ČR|předplacený"},
        {ID_SHOW_ISSUES, "issues", "Číslo|Datum|Export|Typ",
         "D-1|15.06.2012|ano|dodací list\nD-2|02.07.2012|ne|výdejka"},
        {ID_SHOW_ISSUES, "items", "Název|Kat. č.|Množství", "Čaj|C-10|25,00\nKáva|K-2|5,00"},
        {ID_SHOW_ISSUES, "issuedCovers", "Název|Hmotnost [kg]|Materiál|Typ|Původ|Platba",
         "Fólie|12,50|PE - měkké|prodejní|dovezený do ČR|zpoplatněný\n"
         "Krabice|4,00|papír|skupinový|nakoupený v ČR|předplacený"},
    };
    for (const auto& [show, name, captions, rows] : cases) {
        const OpenRegister opened(show);
        const RecordList& list = opened.List(name);
        QStringList headers;
        for (int column = 0; column < list.model()->columnCount(); ++column)
            headers.append(list.model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        EXPECT_EQ(captions, headers.join(u'|').toStdString());
        EXPECT_EQ(rows, Rows(list)) << name;
        EXPECT_EQ(name != std::string("dates"), list.showGrid()) << name;
    }
    EXPECT_FALSE(OpenRegister(ID_SHOW_COMPOSITES).view->Handles(ID_DETAIL_ADD));
}

TEST(Registers, ShowTheChildrenOfTheSelectedRow) {
    const std::tuple<Command, const char*, int, const char*, const char*> cases[] = {
        {ID_SHOW_COVERS, "covers", 1, "discards", ""},
        {ID_SHOW_PRODUCTS, "dates", 0, "packaging", "Štítek||1,00|-|-|přepravní|vyrobený v ČR|neplacený"},
        {ID_SHOW_PRODUCTS, "products", 1, "dates", ""},
        {ID_SHOW_PRODUCTS, "products", 1, "packaging", ""},
        {ID_SHOW_PRODUCTS, "products", 2, "dates", "01.02.2012"},
        {ID_SHOW_ISSUES, "items", 1, "issuedCovers", "Krabice|2,00|papír|průmyslový|vyrobený v ČR|neplacený"},
        {ID_SHOW_ISSUES, "issues", 1, "items", "Čaj|C-10|12,00"},
        {ID_SHOW_ISSUES, "issues", 1, "issuedCovers", ""},
    };
    for (const auto& [show, name, row, child, rows] : cases) {
        const OpenRegister opened(show);
        ClickRow(opened.List(name), row);
        EXPECT_EQ(rows, Rows(opened.List(child))) << child << " of " << name << row;
    }
    const OpenRegister products(ID_SHOW_PRODUCTS);
    EXPECT_EQ(1, products.List("dates").SelectedRow()) << "the newest date";
    EXPECT_EQ(0, products.List("packaging").SelectedRow());
}

TEST(Registers, SortByEachColumnsField) {
    // What is changed first makes the order differ from that of the names, and that of codes from that of their texts.
    const std::tuple<Command, const char*, const char*, int, const char*> cases[] = {
        {ID_SHOW_COVERS, "UPDATE Cover SET cover_mat = 7 - cover_id", "covers", 1, "PE folie 20 µm, Fólie, Bedna"},
        {ID_SHOW_COVERS, "", "covers", 2, "PE folie 20 µm, Fólie, Bedna"},
        {ID_SHOW_COVERS, "UPDATE Cover SET cover_type = (cover_id + 1) % 3", "covers", 3, "Fólie, PE folie 20 µm, B"},
        {ID_SHOW_COVERS, "UPDATE Cover SET cover_org = (cover_id + 1) % 3", "covers", 4, "Fólie, PE folie 20 µm, B"},
        {ID_SHOW_COVERS, "UPDATE Cover SET cover_pay = (cover_id + 1) % 3", "covers", 5, "Fólie, PE folie 20 µm, B"},
        {ID_SHOW_COVERS, "UPDATE Cover SET cover_reusable = (cover_id = 2)", "covers", 6, "Fólie, "}, // yes before no
        {ID_SHOW_COVERS, "", "discards", 1, "02.05.2012, 01.03.2012"},
        {ID_SHOW_COVERS, "UPDATE CoverDiscard SET disc_qty = disc_id", "discards", 2, "02.05.2012, 01.03.2012"},
        {ID_SHOW_COMPOSITES, "UPDATE CompCover SET ccover_note = ccover_id", "composites", 1, "Sada, Balík"},
        {ID_SHOW_PRODUCTS, "", "products", 0, "Chléb, Káva, Čaj"},
        {ID_SHOW_PRODUCTS, "", "products", 2, "Chléb, Čaj, Káva"},
        {ID_SHOW_PRODUCTS, "", "products", 3, "Káva, "},
        {ID_SHOW_PRODUCTS, "", "dates", 0, "01.01.2012, 01.06.2012"}, // no sort
        {ID_SHOW_PRODUCTS, "", "packaging", 1, "Štítek, Fólie, Krabice"},
        {ID_SHOW_PRODUCTS, "", "packaging", 2, "Fólie, Štítek, Krabice"},
        {ID_SHOW_PRODUCTS, "", "packaging", 3, "Krabice, Štítek, Fólie"},
        {ID_SHOW_PRODUCTS, "", "packaging", 4, "Fólie, Štítek, Krabice"},
        {ID_SHOW_PRODUCTS, "", "packaging", 5, "Štítek, Krabice, Fólie"},
        {ID_SHOW_PRODUCTS, "UPDATE Prod_Cover SET cover_org = 3 - cover_id", "packaging", 6, "Štítek, Krabice, Fólie"},
        {ID_SHOW_PRODUCTS, "", "packaging", 7, "Štítek, Fólie, Krabice"},
        {ID_SHOW_ISSUES, "UPDATE Move SET move_date = '2012-08-01' WHERE move_id = 1", "issues", 1, "D-2, D-1"},
        {ID_SHOW_ISSUES, "UPDATE Move SET move_export = 1 - move_export", "issues", 2, "D-1, D-2"}, // by number
        {ID_SHOW_ISSUES, "UPDATE Move SET move_type = 3 - move_type", "issues", 3, "D-2, D-1"},
        {ID_SHOW_ISSUES, "UPDATE Product SET prod_katalog = 'A' WHERE prod_id = 2", "items", 1, "Káva, Čaj"},
        {ID_SHOW_ISSUES, "", "items", 2, "Káva, Čaj"},
        {ID_SHOW_ISSUES, "", "issuedCovers", 1, "Krabice, Fólie"},
        {ID_SHOW_ISSUES, "", "issuedCovers", 2, "Krabice, Fólie"},
        {ID_SHOW_ISSUES, "", "issuedCovers", 3, "Krabice, Fólie"},
        {ID_SHOW_ISSUES, "UPDATE Move_Cover SET cover_org = 2 - cover_org", "issuedCovers", 4, "Krabice, Fólie"},
        {ID_SHOW_ISSUES, "UPDATE Move_Cover SET cover_pay = 2 - cover_pay", "issuedCovers", 5, "Krabice, Fólie"},
    };
    for (const auto& [show, change, which, column, first] : cases) {
        const OpenRegister opened(show);
        opened.folder.Sql(change);
        opened.folder.Sql("INSERT INTO Prod_Cover (dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, "
                          "cp_useto, cover_type, cover_org, cover_pay) VALUES (2, 3, 50000, 20000, 0, 20000, 950000, "
                          "0, 0, 0)");
        opened.Execute(ID_RECORD_REFRESH);
        RecordList& list = opened.List(which);
        const int name = which == std::string("products") ? 1 : 0;
        list.scrollTo(list.model()->index(0, column));
        ClickHeader(list, column);
        EXPECT_EQ(first, Names(list, name).substr(0, std::string(first).size())) << which << column;
    }
    const OpenRegister products(ID_SHOW_PRODUCTS);
    ClickHeader(products.List("products"), 1); // it is sorted by the name already
    EXPECT_EQ("Káva, Chléb, Čaj", Names(products.List("products"), 1));
    EXPECT_EQ(1, products.List("products").SelectedId()) << "the selection stays";
}

TEST(Registers, ANotificationRefillsItsListsAndKeepsTheSelection) {
    const std::tuple<Command, ViewMessage, const char*> cases[] = {
        {ID_SHOW_COVERS, ViewMessage::WM_PRODUCTS_CHANGED, ""},
        {ID_SHOW_COVERS, ViewMessage::WM_COVERS_CHANGED, ""},
        {ID_SHOW_COVERS, ViewMessage::Refresh, "covers discards "},
        {ID_SHOW_COMPOSITES, ViewMessage::WM_COVERS_CHANGED, ""},
        {ID_SHOW_COMPOSITES, ViewMessage::Refresh, "composites "},
        {ID_SHOW_PRODUCTS, ViewMessage::WM_PRODUCTS_CHANGED, "products dates packaging "},
        {ID_SHOW_PRODUCTS, ViewMessage::WM_MOVES_CHANGED, ""},
        {ID_SHOW_PRODUCTS, ViewMessage::WM_COVERS_CHANGED, "packaging "},
        {ID_SHOW_PRODUCTS, ViewMessage::Refresh, "products dates packaging "},
        {ID_SHOW_ISSUES, ViewMessage::WM_PRODUCTS_CHANGED, "items issuedCovers "},
        {ID_SHOW_ISSUES, ViewMessage::WM_MOVES_CHANGED, "issues items issuedCovers "},
        {ID_SHOW_ISSUES, ViewMessage::WM_COVERS_CHANGED, "issuedCovers "},
        {ID_SHOW_ISSUES, ViewMessage::Refresh, "issues items issuedCovers "},
    };
    for (const auto& [show, message, expected] : cases) {
        const OpenRegister opened(show);
        RecordList& master = static_cast<RecordList&>(*opened.view->focusProxy());
        const std::int32_t selected = master.SelectedId();
        opened.folder.Sql(
            "INSERT INTO Cover (cover_name) VALUES ('Aaa'); INSERT INTO CompCover (ccover_name) VALUES ('Aaa');"
            "INSERT INTO Product (prod_name) VALUES ('Aaa'); INSERT INTO Move (move_num) VALUES ('Aaa');"
            "INSERT INTO CoverDiscard (cover_id) VALUES (1); INSERT INTO Prod_CoverDT (prod_id) VALUES (1);"
            "INSERT INTO Prod_Cover (dt_id, cover_id) VALUES (2, 1);"
            "INSERT INTO Move_Prod (move_id, prod_id, mvprod_qty) VALUES (1, 1, 0);"
            "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id) VALUES (1, 1, 1)");
        std::map<const RecordList*, int> before;
        for (const RecordList* list : opened.view->findChildren<RecordList*>())
            before[list] = list->RowCount();
        opened.view->Receive(message);
        std::string refilled;
        for (const RecordList* list : opened.view->findChildren<RecordList*>())
            refilled += list->RowCount() != before[list] ? list->objectName().toStdString() + " " : "";
        EXPECT_EQ(expected, refilled) << static_cast<int>(show) << " " << static_cast<int>(message);
        EXPECT_EQ(selected, master.SelectedId());
    }
}

TEST(Registers, ContextMenusGreyWhatHasNoRow) {
    const std::tuple<Command, const char*, const char*, bool, const char*> cases[] = {
        {ID_SHOW_COVERS, "", "covers", true,
         "&Přidat Ins+ &Upravit Enter+ &Odstranit Del+ | &Najít... Ctrl+F+ Na&hradit... Ctrl+H+ | Fil&tr... Ctrl+T+"},
        {ID_SHOW_COVERS, "", "covers", false,
         "&Přidat Ins+ &Upravit Enter &Odstranit Del | &Najít... Ctrl+F+ Na&hradit... Ctrl+H+ | Fil&tr... Ctrl+T+"},
        {ID_SHOW_COVERS, "", "discards", true, "&Přidat Ctrl+Ins+ &Upravit Ctrl+Enter+ &Odstranit Ctrl+Del+"},
        {ID_SHOW_COVERS, "", "discards", false, "&Přidat Ctrl+Ins+ &Upravit Ctrl+Enter &Odstranit Ctrl+Del"},
        {ID_SHOW_COVERS, "DELETE FROM Cover", "discards", false,
         "&Přidat Ctrl+Ins &Upravit Ctrl+Enter &Odstranit Ctrl+Del"},
        {ID_SHOW_PRODUCTS, "", "products", true,
         "&Přidat Ins+ &Upravit Enter+ &Odstranit Del+ | Hromadně přiř&adit kuvel+ | &Najít... Ctrl+F+ Na&hradit... "
         "Ctrl+H+ | Fil&tr... Ctrl+T+"},
        {ID_SHOW_PRODUCTS, "", "products", false,
         "&Přidat Ins+ &Upravit Enter &Odstranit Del | Hromadně přiř&adit kuvel | &Najít... Ctrl+F+ Na&hradit... "
         "Ctrl+H+ | Fil&tr... Ctrl+T+"},
        {ID_SHOW_PRODUCTS, "DELETE FROM Prod_CoverDT", "packaging", false,
         "&Přidat Alt+Ins &Upravit Alt+Enter &Odstranit Alt+Del"},
        {ID_SHOW_ISSUES, "", "issuedCovers", true, "&Přidat Alt+Ins+ &Upravit Alt+Enter+ &Odstranit Alt+Del+"},
    };
    for (const auto& [show, leave, name, onRow, menu] : cases) {
        const OpenRegister opened(show);
        opened.folder.Sql(leave);
        opened.Execute(ID_RECORD_REFRESH);
        emit opened.List(name).menuWanted(opened.view->mapToGlobal(QPoint(50, 50)), onRow);
        EXPECT_EQ(menu, TakeMenu());
    }
}

TEST(Registers, ADoubleClickEditsARowAndOnlyARow) {
    const std::tuple<Command, const char*, const char*> cases[] = {
        {ID_SHOW_COVERS, "covers", "Detail obalu"},
        {ID_SHOW_COVERS, "discards", "Vyřazení obalu"},
        {ID_SHOW_COMPOSITES, "composites", "Detail složeného obalu"},
        {ID_SHOW_PRODUCTS, "products", "Detail produktu"},
        {ID_SHOW_PRODUCTS, "dates", "Definice časové platnosti"},
        {ID_SHOW_PRODUCTS, "packaging", "Údaje balení"},
        {ID_SHOW_ISSUES, "issues", "Výdej produktů a obalů"},
        {ID_SHOW_ISSUES, "items", "Zadejte množství"},
        {ID_SHOW_ISSUES, "issuedCovers", "Zadejte množství"},
    };
    for (const auto& [show, name, title] : cases) {
        SCOPED_TRACE(name);
        OpenRegister opened(show);
        RecordList& list = opened.List(name);
        const QPoint empty(20, list.viewport()->height() - 3);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, empty);
        opened.steps.Then(InTurn({ShowsTitle(title), Clicked("cancel")}));
        DoubleClickRow(list, 1);
    }
}

TEST(Registers, TheirDialogsOpenTheGuideAtTheirPage) {
    std::vector<HelpContext> opened;
    const DoorUse help(HelpDoor(), [&](HelpContext context) { opened.push_back(context); });
    for (const Command show : {ID_SHOW_COVERS, ID_SHOW_COMPOSITES, ID_SHOW_PRODUCTS, ID_SHOW_ISSUES})
        OpenRegister(show).Do(ID_RECORD_ADD, {Clicked("help"), Clicked("cancel")});
    EXPECT_EQ((std::vector{HelpContext::Cover, HelpContext::CompositeCover, HelpContext::Product, HelpContext::Issue}),
              opened);
}

TEST(Registers, EveryFilterHasItsPageOfTheGuide) {
    std::vector<HelpContext> opened;
    const DoorUse help(HelpDoor(), [&](HelpContext context) { opened.push_back(context); });
    for (const Command show : {ID_SHOW_COVERS, ID_SHOW_COMPOSITES, ID_SHOW_PRODUCTS, ID_SHOW_ISSUES})
        OpenRegister(show).Do(ID_RECORD_FILTER, {Clicked("help"), Clicked("cancel")});
    EXPECT_EQ((std::vector{HelpContext::CoverFilter, HelpContext::CompositeFilter, HelpContext::ProductFilter,
                           HelpContext::IssueFilter}),
              opened);
}

TEST(Registers, WideningBringsBackWhatNarrowingHid) {
    const OpenRegister opened(ID_SHOW_COVERS);
    opened.view->resize(1000, 400);
    auto& bar = Find<CSplitterBar>(*opened.view, "splitter");
    QTest::mousePress(&bar, Qt::LeftButton, {}, {2, 50});
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, QPoint(2 + 800 - bar.x(), 50));
    ASSERT_EQ(800, bar.x());
    const struct {
        int width;
        int left;
        bool discards;
    } steps[] = {{921, 800, true}, {920, 913, false}, {600, 593, false}, {960, 800, true}, {1000, 800, true}};
    for (const auto& step : steps) {
        opened.view->resize(step.width, 400);
        EXPECT_EQ(step.left, bar.x()) << step.width;
        EXPECT_EQ(step.discards, opened.List("discards").isVisible()) << step.width;
    }
}

TEST(Registers, EveryListHasABandAsHighAsItsButtons) {
    const OpenRegister opened(ID_SHOW_PRODUCTS);
    const auto bands = opened.view->findChildren<CTitleBand*>();
    ASSERT_EQ(3, bands.size());
    for (const CTitleBand* band : bands) {
        EXPECT_EQ(opened.Button(ID_RECORD_ADD).height(), band->height());
        EXPECT_LT(40, band->width());
    }
}

TEST(Registers, TheSplitterCollapsesEitherSide) {
    const OpenRegister opened(ID_SHOW_COVERS);
    opened.view->resize(1000, 400);
    auto& bar = Find<CSplitterBar>(*opened.view, "splitter");
    const RecordList& covers = opened.List("covers");
    const RecordList& discards = opened.List("discards");
    const std::tuple<const char*, int, int, bool, bool> cases[] = {
        {"middle", 500, 500, true, true},       {"just left of the limit", 879, 879, true, true},
        {"right limit", 880, 993, true, false}, {"back", 600, 600, true, true},
        {"left limit", 120, 120, true, true},   {"left", 119, 2, false, true},
        {"past the edge", -50, 2, false, true}, {"back again", 300, 300, true, true},
    };
    for (const auto& [what, to, left, leftShown, rightShown] : cases) {
        SCOPED_TRACE(what);
        const QPoint grip(2, 50);
        QTest::mousePress(&bar, Qt::LeftButton, {}, grip);
        QTest::mouseMove(&bar, grip + QPoint(to - bar.x(), 0));
        QTest::mouseRelease(&bar, Qt::LeftButton, {}, grip + QPoint(to - bar.x(), 0));
        EXPECT_EQ(left, bar.x());
        EXPECT_EQ(5, bar.width());
        EXPECT_EQ(leftShown, covers.isVisible());
        EXPECT_EQ(rightShown, discards.isVisible());
    }
    EXPECT_EQ(298, covers.geometry().right() + 1);
    EXPECT_EQ(307, discards.x());
    EXPECT_EQ(996, discards.geometry().right() + 1);
    EXPECT_EQ(1192, OpenRegister(ID_SHOW_COMPOSITES).List("composites").width()) << "alone, it has the whole width";
}

} // namespace
