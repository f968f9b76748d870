// What the commands of the four registers share, each rule once over all of them.

#include "tests/windows/support/RegisterFixture.h"

namespace {

using enum Command;

/// A command that writes through a dialog, and how it is filled in.
struct Writing {
    Command show;
    Command command;
    std::vector<Act> acts;
    const char* end;
    const char* fault; // null for one that writes more than this record
    // Of a command that edits: its list, the one below a master list, and what takes the record away.
    const char* list = nullptr;
    const char* below = nullptr;
    const char* vanish = nullptr;
};

std::vector<Writing> Writings() {
    return {
        {ID_SHOW_COVERS,
         ID_RECORD_ADD,
         {Typed("name", "Pytel"), Typed("weight", "1"), Picked("material", 0), Picked("type", 0), Picked("origin", 0),
          Picked("payment", 0), Picked("stat", 0)},
         "ok",
         "INSERT ON Cover"},
        {ID_SHOW_COVERS,
         ID_RECORD_EDIT,
         {Typed("name", "Jinak"), Picked("stat", 0)},
         "ok",
         "UPDATE ON Cover",
         "covers",
         "discards",
         "DELETE FROM Cover WHERE cover_id = 1"},
        {ID_SHOW_COVERS, ID_DETAIL_ADD, {Typed("quantity", "7")}, "finish", "INSERT ON CoverDiscard"},
        {ID_SHOW_COVERS,
         ID_DETAIL_EDIT,
         {Typed("quantity", "7")},
         "finish",
         "UPDATE ON CoverDiscard",
         "discards",
         nullptr,
         "DELETE FROM CoverDiscard WHERE disc_id = 2"},
        {ID_SHOW_COMPOSITES,
         ID_RECORD_EDIT,
         {Typed("name", "Jinak")},
         "ok",
         "UPDATE ON CompCover",
         "composites",
         nullptr,
         "DELETE FROM CompCover WHERE ccover_id = 2"},
        {ID_SHOW_PRODUCTS, ID_RECORD_ADD, {Typed("name", "Džus")}, "ok", "INSERT ON Product"},
        {ID_SHOW_PRODUCTS,
         ID_RECORD_EDIT,
         {Typed("name", "Jinak")},
         "ok",
         "UPDATE ON Product",
         "products",
         "dates",
         "DELETE FROM Product WHERE prod_id = 1"},
        {ID_SHOW_PRODUCTS, ID_DETAIL_ADD, {}, "ok", "INSERT ON Prod_CoverDT"},
        {ID_SHOW_PRODUCTS,
         ID_DETAIL_EDIT,
         {Dated("date", {2012, 3, 3})},
         "ok",
         "UPDATE ON Prod_CoverDT",
         "dates",
         nullptr,
         "DELETE FROM Prod_CoverDT WHERE dt_id = 2"},
        {ID_SHOW_PRODUCTS, ID_SUBDETAIL_ADD, {ChoseCover(0)}, "finish", "INSERT ON Prod_Cover"},
        {ID_SHOW_PRODUCTS,
         ID_SUBDETAIL_EDIT,
         {Typed("covers", "8")},
         "finish",
         "UPDATE ON Prod_Cover",
         "packaging",
         nullptr,
         "DELETE FROM Prod_Cover WHERE cp_id = 1"},
        {ID_SHOW_PRODUCTS, ID_PROD_ASSIGN_COVERS, {Clicked("next"), ChoseCover(0)}, "finish", nullptr},
        {ID_SHOW_ISSUES, ID_RECORD_ADD, {Picked("type", 1)}, "ok", "INSERT ON Move"},
        {ID_SHOW_ISSUES,
         ID_RECORD_EDIT,
         {Typed("num", "Jinak")},
         "ok",
         "UPDATE ON Move",
         "issues",
         "items",
         "DELETE FROM Move WHERE move_id = 1"},
        {ID_SHOW_ISSUES, ID_DETAIL_ADD, {Chose("products", 0), Clicked("next")}, "finish", "INSERT ON Move_Prod"},
        {ID_SHOW_ISSUES,
         ID_DETAIL_EDIT,
         {Typed("quantity", "30")},
         "finish",
         "UPDATE ON Move_Prod",
         "items",
         nullptr,
         "DELETE FROM Move_Prod WHERE mvprod_id = 1"},
        {ID_SHOW_ISSUES, ID_SUBDETAIL_ADD, {ChoseCover(0)}, "finish", "INSERT ON Move_Cover"},
        {ID_SHOW_ISSUES,
         ID_SUBDETAIL_EDIT,
         {Typed("covers", "4")},
         "finish",
         "UPDATE ON Move_Cover",
         "issuedCovers",
         nullptr,
         "DELETE FROM Move_Cover WHERE mvcover_id = 1"},
    };
}

std::string Described(const Writing& writing) {
    return std::to_string(static_cast<int>(writing.show)) + " " + std::to_string(static_cast<int>(writing.command));
}

TEST(RegisterCommands, ACancelledDialogAndAFailedWriteLeaveEverything) {
    for (const Writing& each : Writings()) {
        SCOPED_TRACE(Described(each));
        OpenRegister opened(each.show);
        const std::string stored = AllRows(opened.folder);
        const std::string shown = opened.ShownRows();
        opened.Do(each.command, {InTurn(each.acts), Clicked("cancel")});
        EXPECT_EQ(stored, AllRows(opened.folder));
        if (each.fault != nullptr) {
            opened.Fault(each.fault);
            // It comes back with what was typed.
            opened.steps.Otherwise(Clicked("cancel"));
            opened.ExpectError([&] { opened.Do(each.command, {InTurn(each.acts), Clicked(each.end)}); });
        }
        EXPECT_EQ(stored, AllRows(opened.folder));
        EXPECT_EQ(shown, opened.ShownRows());
        opened.ExpectTold(0);
    }
}

TEST(RegisterCommands, AVanishedRecordIsToldAndLeavesItsListAndNothingIsWritten) {
    for (const Writing& each : Writings()) {
        if (each.vanish == nullptr)
            continue;
        for (const bool meanwhile : {false, true}) {
            SCOPED_TRACE(Described(each) + (meanwhile ? " meanwhile" : ""));
            OpenRegister opened(each.show);
            RecordList& list = opened.List(each.list);
            const auto others = [&list](int except) {
                QStringList names;
                for (int row = 0; row < list.RowCount(); ++row)
                    names += row == except ? QString() : list.CellText(row, 0);
                return names.join(QString()).toStdString();
            };
            const std::string kept = others(list.SelectedRow());
            std::string left;
            const auto vanish = [&] {
                opened.folder.Sql(each.vanish);
                left = AllRows(opened.folder);
                opened.ExpectVanished();
            };
            if (meanwhile) {
                opened.Do(each.command, {[&](QWidget&) { vanish(); }, InTurn(each.acts), Clicked(each.end)});
            } else {
                vanish();
                opened.Execute(each.command);
            }
            EXPECT_EQ(left, AllRows(opened.folder));
            EXPECT_EQ(kept, others(-1));
            EXPECT_EQ(std::min(0, list.RowCount() - 1), list.SelectedRow()) << "not its neighbour";
            if (each.below != nullptr) {
                const std::string below = Rows(opened.List(each.below));
                opened.view->Receive(ViewMessage::Refresh);
                EXPECT_EQ(below, Rows(opened.List(each.below))) << "not the neighbour's";
            }
            opened.ExpectTold(0);
        }
    }
}

TEST(RegisterCommands, NothingSelectedIsSaidInEachListsWords) {
    const std::tuple<Command, const char*, std::vector<Command>, const char*> cases[] = {
        {ID_SHOW_COVERS, "DELETE FROM Cover", {ID_RECORD_EDIT, ID_RECORD_DELETE}, "Není vybrán produkt !"},
        {ID_SHOW_COVERS, "DELETE FROM Cover", {ID_DETAIL_ADD}, "Není vybrán obal !"},
        {ID_SHOW_COVERS, "DELETE FROM Cover", {ID_DETAIL_EDIT, ID_DETAIL_DELETE}, "Není vybrán vyřazený obal !"},
        {ID_SHOW_COMPOSITES, "DELETE FROM CompCover", {ID_RECORD_EDIT, ID_RECORD_DELETE}, "Není vybrán obal !"},
        {ID_SHOW_PRODUCTS,
         "DELETE FROM Product",
         {ID_RECORD_EDIT, ID_RECORD_DELETE, ID_DETAIL_ADD, ID_PROD_ASSIGN_COVERS},
         "Není vybrán produkt !"},
        {ID_SHOW_PRODUCTS,
         "DELETE FROM Prod_CoverDT",
         {ID_DETAIL_EDIT, ID_DETAIL_DELETE, ID_SUBDETAIL_ADD},
         "Není vybráno datum !"},
        {ID_SHOW_PRODUCTS, "DELETE FROM Prod_Cover", {ID_SUBDETAIL_EDIT, ID_SUBDETAIL_DELETE}, "Není vybrán obal !"},
        {ID_SHOW_ISSUES, "DELETE FROM Move", {ID_RECORD_EDIT, ID_RECORD_DELETE, ID_DETAIL_ADD}, "Není vybrán doklad !"},
        {ID_SHOW_ISSUES,
         "DELETE FROM Move_Prod",
         {ID_DETAIL_EDIT, ID_DETAIL_DELETE, ID_SUBDETAIL_ADD},
         "Není vybrán produkt !"},
        {ID_SHOW_ISSUES, "DELETE FROM Move_Cover", {ID_SUBDETAIL_EDIT, ID_SUBDETAIL_DELETE}, "Není vybrán obal !"},
    };
    for (const auto& [show, leave, commands, warning] : cases) {
        OpenRegister opened(show);
        opened.folder.Sql("INSERT INTO TmpID VALUES (77)");
        opened.folder.Sql(leave);
        opened.Execute(ID_RECORD_REFRESH);
        for (const Command command : commands) {
            opened.messages.Expect(Czech(warning), Message::Icon::Warning);
            opened.Execute(command);
        }
        EXPECT_EQ("77", opened.folder.AskAll("SELECT id FROM TmpID"));
    }
}

TEST(RegisterCommands, DeleteTheSelectedRowsAndWhatHangsOnThem) {
    const std::tuple<Command, const char*, const char*, const char*, const char*, const char*> cases[] = {
        // Packaging and issues keep their rows of a deleted cover, which is only marked.
        {ID_SHOW_COVERS, "Opravdu si přejete odstranit vybrané kuvel",
         "SELECT (SELECT group_concat(cover_id) FROM Cover WHERE NOT deleted), (SELECT group_concat(cover_id) FROM "
         "CompCover_Item), (SELECT count(*) FROM CoverDiscard), (SELECT count(*) FROM Prod_Cover), (SELECT count(*) "
         "FROM Move_Cover)",
         "3|3|0|1|1", "DELETE ON CompCover_Item", "1,2,3|1,3|0|1|1"},
        {ID_SHOW_COMPOSITES, "Opravdu si přejete odstranit vybrané kuvel",
         "SELECT (SELECT count(*) FROM CompCover), (SELECT count(*) FROM CompCover_Item)", "0|0", "DELETE ON CompCover",
         "2|0"},
        // Issues keep their packaging of a deleted product, which is only marked.
        {ID_SHOW_PRODUCTS, "Opravdu si přejete odstranit vybrané produkty",
         "SELECT (SELECT group_concat(prod_id) FROM Product WHERE NOT deleted), (SELECT group_concat(dt_id) FROM "
         "Prod_CoverDT), (SELECT count(*) FROM Prod_Cover), (SELECT sum(mvcover_qty) FROM Move_Cover), (SELECT "
         "count(*) FROM Move_Prod)",
         "2|3|0|1540000|3", "DELETE ON Prod_CoverDT", "1,2,3|1,2,3|0|1540000|3"},
        {ID_SHOW_ISSUES, "Opravdu si přejete odstranit vybrané výdeje?",
         "SELECT (SELECT count(*) FROM Move), (SELECT count(*) FROM Move_Prod), (SELECT count(*) FROM Move_Cover)",
         "0|0|0", "DELETE ON Move_Prod", "2|3|0"},
    };
    for (const auto& [show, question, ask, left, fault, leftByFault] : cases) {
        SCOPED_TRACE(ask);
        OpenRegister opened(show);
        opened.folder.Sql("INSERT INTO TmpID VALUES (77)");
        RecordList& master = static_cast<RecordList&>(*opened.view->focusProxy());
        ClickRow(master, 0);
        ClickRow(master, 1, Qt::ControlModifier);
        const int rows = master.RowCount();
        const std::string stored = AllRows(opened.folder);
        const auto remove = [&](Message::Answer answer) {
            opened.messages.ExpectQuestion(Czech(question), answer);
            opened.Execute(ID_RECORD_DELETE);
        };
        remove(Message::Answer::No);
        EXPECT_EQ(stored, AllRows(opened.folder));
        opened.Fault(fault);
        opened.messages.ExpectQuestion(Czech(question), Message::Answer::Yes);
        opened.ExpectError([&] { opened.Execute(ID_RECORD_DELETE); });
        EXPECT_EQ(leftByFault, opened.folder.AskAll(ask));
        EXPECT_EQ(rows, master.RowCount());
        opened.folder.Sql("DROP TRIGGER fault");
        ClickRow(master, 0);
        ClickRow(master, 1, Qt::ControlModifier);
        remove(Message::Answer::Yes);
        EXPECT_EQ(left, opened.folder.AskAll(ask));
        EXPECT_EQ(rows - 2, master.RowCount());
        EXPECT_EQ(rows > 2 ? 0 : -1, master.SelectedRow());
        EXPECT_EQ("2", opened.folder.Ask("SELECT count(*) FROM TmpID")) << "what an earlier deletion left went first";
        opened.ExpectTold(0);
    }
}

TEST(RegisterCommands, DeleteADetailRowAfterItsQuestion) {
    const std::tuple<Command, Command, const char*, const char*, const char*, const char*> cases[] = {
        {ID_SHOW_COVERS, ID_DETAIL_DELETE, "discards",
         "Opravdu si přejete odstranit ze seznamu obal vyřazený \"01.03.2012\" ?", "SELECT disc_id FROM CoverDiscard",
         "1"},
        {ID_SHOW_PRODUCTS, ID_DETAIL_DELETE, "dates",
         "Opravdu si přejete odstranit ze seznamu platnost\n\"01.06.2012\" ?",
         "SELECT dt_id, (SELECT group_concat(cp_id) FROM Prod_Cover) FROM Prod_CoverDT", "1|3 3|3"},
        {ID_SHOW_PRODUCTS, ID_SUBDETAIL_DELETE, "packaging",
         "Opravdu si přejete odstranit ze seznamu obal\n\"Fólie\" ?", "SELECT cp_id FROM Prod_Cover", "2 3"},
        {ID_SHOW_ISSUES, ID_DETAIL_DELETE, "items", "Opravdu si přejete odstranit ze seznamu produkt\n\"Čaj\" ?",
         "SELECT mvprod_id, (SELECT group_concat(mvcover_id) FROM Move_Cover) FROM Move_Prod ORDER BY 1", "2|3 3|3"},
        {ID_SHOW_ISSUES, ID_SUBDETAIL_DELETE, "issuedCovers",
         "Opravdu si přejete odstranit ze seznamu obal\n\"Fólie\" ?", "SELECT mvcover_id FROM Move_Cover", "2 3"},
    };
    for (const auto& [show, command, list, question, ask, left] : cases) {
        OpenRegister opened(show);
        const std::string stored = AllRows(opened.folder);
        const int rows = opened.List(list).RowCount();
        opened.messages.ExpectQuestion(Czech(question), Message::Answer::No);
        opened.Execute(command);
        EXPECT_EQ(stored, AllRows(opened.folder));
        opened.messages.ExpectQuestion(Czech(question), Message::Answer::Yes);
        opened.Execute(command);
        EXPECT_EQ(left, opened.folder.AskAll(ask));
        EXPECT_EQ(rows - 1, opened.List(list).RowCount());
    }
}

TEST(RegisterCommands, TwoSelectedRowsDisableTheDetails) {
    // lists: the master list first
    const std::tuple<Command, std::vector<const char*>, std::vector<Command>> cases[] = {
        {ID_SHOW_COVERS, {"covers", "discards"}, {ID_DETAIL_ADD, ID_DETAIL_EDIT, ID_DETAIL_DELETE}},
        {ID_SHOW_PRODUCTS,
         {"products", "dates", "packaging"},
         {ID_DETAIL_ADD, ID_DETAIL_EDIT, ID_DETAIL_DELETE, ID_SUBDETAIL_ADD, ID_SUBDETAIL_EDIT, ID_SUBDETAIL_DELETE}},
        {ID_SHOW_ISSUES,
         {"issues", "items", "issuedCovers"},
         {ID_DETAIL_ADD, ID_DETAIL_EDIT, ID_DETAIL_DELETE, ID_SUBDETAIL_ADD, ID_SUBDETAIL_EDIT, ID_SUBDETAIL_DELETE}},
    };
    for (const auto& [show, lists, commands] : cases) {
        OpenRegister opened(show);
        const std::string stored = AllRows(opened.folder);
        const std::string shown = opened.ShownRows();
        RecordList& master = opened.List(lists[0]);
        const auto expectDetails = [&](bool enabled) {
            for (std::size_t i = 1; i < lists.size(); ++i) {
                EXPECT_EQ(enabled, opened.List(lists[i]).isEnabled()) << lists[i];
                EXPECT_EQ(enabled, opened.List(lists[i]).RowCount() > 0) << lists[i];
            }
            for (const Command command : commands)
                EXPECT_EQ(enabled, opened.Button(command).isEnabled()) << lists[0];
        };
        ClickRow(master, 1, Qt::ControlModifier);
        expectDetails(false);
        for (const Command command : commands)
            opened.Execute(command); // no message, no dialog
        opened.view->Receive(ViewMessage::WM_COVERS_CHANGED);
        expectDetails(false);
        opened.view->Receive(ViewMessage::Refresh); // selects one row
        EXPECT_EQ(stored, AllRows(opened.folder));
        ClickRow(master, 0);
        expectDetails(true);
        EXPECT_EQ(shown, opened.ShownRows());
    }
}

TEST(RegisterCommands, AFilterIsInForceUntilItIsUnticked) {
    const std::tuple<Command, const char*, const char*, const char*> cases[] = {
        {ID_SHOW_COVERS, "Filtr obalů", "byName", "name"},
        {ID_SHOW_COMPOSITES, "Filtr výdejů", "byName", "name"}, // the issues' title
        {ID_SHOW_PRODUCTS, "Filtr produktů", "byName", "name"},
        {ID_SHOW_ISSUES, "Filtr výdejů", "byNum", "num"},
    };
    for (const auto& [show, title, check, edit] : cases) {
        SCOPED_TRACE(static_cast<int>(show));
        OpenRegister opened(show);
        RecordList& master = static_cast<RecordList&>(*opened.view->focusProxy());
        const std::string all = Rows(master);
        // An apostrophe, as typed, makes the statement fail.
        opened.messages.AcceptAny();
        opened.Do(ID_RECORD_FILTER, {ShowsTitle(title), ShowsEnabled({edit}, false), Clicked(check),
                                     ShowsEnabled({edit}, true), Typed(edit, "it's"), Clicked("ok")});
        EXPECT_EQ(1u, opened.messages.Shown().size());
        EXPECT_EQ(Message::Icon::Error, opened.messages.Shown().back().icon);
        EXPECT_EQ(all, Rows(master)) << "the rows before it";
        EXPECT_FALSE(opened.FilterIsLatched());

        opened.Do(ID_RECORD_FILTER, {Shows(check, "ne"), Clicked(check), Typed(edit, "it"), Clicked("ok")});
        opened.Do(ID_RECORD_FILTER, {Shows(check, "ano"), Shows(edit, "it"), Clicked(check), Clicked("cancel")});
        EXPECT_EQ("", Rows(master));
        EXPECT_TRUE(opened.FilterIsLatched());

        opened.steps.Then(InTurn({Clicked(check), Clicked("ok")}));
        Click(*opened.view, "button32794");
        EXPECT_EQ(all, Rows(master));
        EXPECT_FALSE(opened.FilterIsLatched());
        for (const char* button : {"cancel", "ok"}) {
            master.SelectRow(1);
            opened.Do(ID_RECORD_FILTER, {Clicked(button)});
            EXPECT_EQ(1, master.SelectedRow()) << button;
        }
        EXPECT_EQ(1u, opened.messages.Shown().size());
    }
}

} // namespace
