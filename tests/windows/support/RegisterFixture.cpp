#include "tests/windows/support/RegisterFixture.h"

#include "windows/frame/RegisterTable.h"

#include <QTabWidget>

#include <map>

namespace {

const std::map<Command, const char*> Samples = {
    {Command::ID_SHOW_COVERS,
     "INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay, cover_reusable, "
     "cover_stat, cover_note) VALUES ('Bedna', 0, 20000, 1, 1, 1, 1, 0, ''), "
     "('Fólie', 3, 2500, 2, 0, 1, 0, 0, 'tenká'), ('PE folie 20 µm', 3, 300, 2, 0, 2, 0, 0, '');"
     "INSERT INTO CoverDiscard (cover_id, disc_date, disc_qty, disc_type) VALUES "
     "(1, '2012-05-02 00:00:00', 30000, 0), (1, '2012-03-01 00:00:00', 10000, 2);"
     "INSERT INTO CompCover_Item (ccover_id, cover_id) VALUES (1, 1), (1, 3);"
     "INSERT INTO Prod_Cover (cover_id) VALUES (1); INSERT INTO Move_Cover (cover_id) VALUES (1)"},
    {Command::ID_SHOW_COMPOSITES,
     "INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay) VALUES "
     "('Bedna', 0, 20000, 1, 1, 1), ('Čep', 3, 2500, 2, 0, 2), ('Cívka', 3, 300, 2, 0, 2);"
     "INSERT INTO CompCover (ccover_name, ccover_note) VALUES ('Sada', 'dvě'), ('Balík', '');"
     "INSERT INTO CompCover_Item VALUES (1, 2, 30000, 10000, 0, 5000, 99000, 2, 0, 2), "
     "(1, 1, 15000, 120000, 1, NULL, NULL, 1, 1, 1), (2, 3, 10000, 10000, 1, 7, 8, 2, 0, 2)"},
    {Command::ID_SHOW_PRODUCTS,
     "INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay) VALUES "
     "('Fólie', 8, 2500, 2, 0, 1), ('Krabice', 7, 20000, 1, 1, 2), ('Štítek', 7, NULL, 0, 2, 0);"
     "INSERT INTO CompCover (ccover_name) VALUES ('Sada'), ('Prázdná');"
     "INSERT INTO CompCover_Item VALUES (1, 2, 10000, 100000, 1, NULL, NULL, 3, 2, 1), "
     "(1, 1, 35000, 50000, 0, 50000, 20000, 0, 1, 2), (1, 2, 12345, 0, 0, 0, 70000, NULL, 0, 0);"
     "INSERT INTO Product (prod_name, prod_katalog, prod_unit, prod_source, prod_scrid, deleted) VALUES "
     "('Čaj', 'C-10', 'ks', 1, 77, 0), ('Káva', 'K-2', 'kg', 0, 5, 0), ('Chléb', 'B-3', 'ks', NULL, NULL, 0), "
     "('Zrušený', 'Z-4', 'ks', NULL, NULL, 1);"
     "INSERT INTO Prod_CoverDT (prod_id, dt_from) VALUES (1, '2012-01-01 00:00:00'), (1, '2012-06-01 08:00:00'), "
     "(2, '2012-02-01 00:00:00');"
     "INSERT INTO Prod_Cover (dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, cp_useto, "
     "cover_type, cover_org, cover_pay) VALUES (2, 1, 20000, 10000, 1, 30000, 90000, 2, 0, 1), "
     "(2, 2, 10000, 100000, 0, 10000, 1000000, 1, 1, 2), (1, 3, 10000, 10000, 1, NULL, NULL, 0, 2, 0);"
     "INSERT INTO Move (move_date) VALUES ('2012-06-15 00:00:00'), ('2012-07-02 10:00:00'), ('2012-07-02 12:00:00');"
     "INSERT INTO Move_Prod (move_id, prod_id, mvprod_qty) VALUES (1, 1, 250000), (2, 1, 50000), (3, 2, 120000);"
     "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty) VALUES (1, 1, 3, 770000), "
     "(3, 3, 3, 770000)"},
    {Command::ID_SHOW_ISSUES,
     "INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay, cover_reusable, "
     "cover_stat) VALUES ('Fólie', 8, 2500, 2, 0, 1, 0, 0), ('Krabice', 7, 20000, 1, 1, 2, 1, 2);"
     "INSERT INTO Product (prod_name, prod_katalog, prod_unit) VALUES ('Čaj', 'C-10', 'ks'), ('Káva', 'K-2', 'kg');"
     "INSERT INTO Prod_CoverDT (prod_id, dt_from) VALUES (1, '2012-01-01 00:00:00'), (1, '2012-07-01 00:00:00');"
     "INSERT INTO Prod_Cover (dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cover_type, cover_org, "
     "cover_pay) VALUES (1, 1, 20000, 10000, 1, 2, 0, 1), (1, 2, 10000, 100000, 1, 1, 1, 2), "
     "(2, 2, 30000, 10000, 1, 1, 1, 2);"
     "INSERT INTO Move (move_num, move_date, move_type, move_export) VALUES ('D-1', '2012-06-15 10:00:00', 0, 1), "
     "('D-2', '2012-07-02 00:00:00', 3, 0);"
     "INSERT INTO Move_Prod (move_id, prod_id, mvprod_qty) VALUES (1, 1, 250000), (1, 2, 50000), (2, 1, 120000);"
     "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay) VALUES "
     "(1, 1, 1, 500000, 2, 0, 1), (1, 1, 2, 20000, 1, 1, 2), (2, 1, 2, 10000, 3, 2, 0)"},
};

} // namespace

OpenRegister::OpenRegister(Command show) {
    *Options() = {};
    folder.Sql(Samples.at(show));
    for (const RegisterEntry& entry : Registers()) {
        if (entry.show == show)
            view.reset(entry.create(folder.store, frame, nullptr));
    }
    view->resize(1200, 500);
    view->InitialUpdate();
    view->show();
}

CIconButton& OpenRegister::Button(Command command) const {
    return Find<CIconButton>(*view, ("button" + std::to_string(static_cast<int>(command))).c_str());
}

std::string OpenRegister::ShownRows() const {
    std::string rows;
    for (const RecordList* list : view->findChildren<RecordList*>())
        rows += Rows(*list) + "\n\n";
    return rows;
}

void OpenRegister::Do(Command command, std::vector<Act> acts) {
    steps.Then(InTurn(std::move(acts)));
    Execute(command);
}

Act OpenRegister::Opening(const char* button, std::vector<Act> acts) {
    return [this, button, acts = InTurn(std::move(acts))](QWidget& dialog) {
        steps.Then(acts);
        Click(dialog, button);
    };
}

void OpenRegister::DoRefused(Command command, const char* button, const std::vector<Refusal>& refusals) {
    const std::string before = AllRows(folder);
    for (const Refusal& each : refusals) {
        SCOPED_TRACE(each.what);
        Do(command, {each.spoil, IsRefused(button, each.warning, each.focus), Clicked("cancel")});
    }
    EXPECT_EQ(before, AllRows(folder));
}

void OpenRegister::Fault(const std::string& when) const {
    folder.Sql(("CREATE TRIGGER fault BEFORE " + when + " BEGIN SELECT RAISE(ABORT, 'zkouška'); END").c_str());
}

void OpenRegister::ExpectError(const std::function<void()>& act) {
    messages.Expect(Czech("Došlo k chybě COM č.0x80004005\n\nzkouška"), Message::Icon::Error);
    act();
}

void OpenRegister::ExpectTold(std::size_t times) {
    EXPECT_EQ(std::vector<ViewMessage>(times, ViewMessage::WM_COVERS_CHANGED), frame.told);
    EXPECT_EQ(times > 0 ? view.get() : nullptr, frame.lastExcept);
    frame.told.clear();
    frame.lastExcept = nullptr;
}

Act ChoseCover(int row) {
    return [row](QWidget& sheet) {
        Find<QTabWidget>(sheet, "tabs").setCurrentIndex(0);
        ClickRow(Find<RecordList>(sheet, "simple"), row);
        Click(sheet, "next");
    };
}

Act ChoseComposite(int row) {
    return [row](QWidget& sheet) {
        Find<QTabWidget>(sheet, "tabs").setCurrentIndex(1);
        ClickRow(Find<RecordList>(sheet, "composite"), row);
        Click(sheet, "finish");
        EXPECT_FALSE(sheet.isVisible());
    };
}
