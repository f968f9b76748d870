#pragma once

#include "registers/RecordList.h"
#include "registers/ViewProd.h"
#include "rules/Propagation.h"
#include "tests/gui/Driver.h"

#include <gtest/gtest.h>

#include <QDateEdit>
#include <QTabWidget>

/// The products register on three products, the first of them packed and issued.
class ProductFixture : public testing::Test {
protected:
    ProductFixture() {
        g_options = {};
        folder.Sql(
            "INSERT INTO Cover (cover_name, cover_mat, cover_weight, cover_type, cover_org, cover_pay) VALUES "
            "('Fólie', 8, 2500, 2, 0, 1), ('Krabice', 7, 20000, 1, 1, 2), ('Štítek', 7, NULL, 0, 2, 0);"
            "INSERT INTO CompCover (ccover_name) VALUES ('Sada'), ('Prázdná');"
            "INSERT INTO CompCover_Item VALUES (1, 2, 10000, 100000, 1, NULL, NULL, 3, 2, 1), "
            "(1, 1, 35000, 50000, 0, 50000, 20000, 0, 1, 2), (1, 2, 12345, 0, 0, 0, 70000, NULL, 0, 0);"
            "INSERT INTO Product (prod_name, prod_katalog, prod_unit, prod_source, prod_scrid, deleted) VALUES "
            "('Čaj', 'C-10', 'ks', 1, 77, 0), ('Káva', 'K-2', 'kg', 0, 5, 0), ('Chléb', 'B-3', 'ks', NULL, NULL, 0), "
            "('Zrušený', 'Z-4', 'ks', NULL, NULL, 1);"
            "INSERT INTO Prod_CoverDT (prod_id, dt_from) VALUES (1, '2012-01-01 00:00:00'), "
            "(1, '2012-06-01 08:00:00'), (2, '2012-02-01 00:00:00');"
            "INSERT INTO Prod_Cover (dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, cp_useto, "
            "cover_type, cover_org, cover_pay) VALUES (2, 1, 20000, 10000, 1, 30000, 90000, 2, 0, 1), "
            "(2, 2, 10000, 100000, 0, 10000, 1000000, 1, 1, 2), (1, 3, 10000, 10000, 1, NULL, NULL, 0, 2, 0);"
            "INSERT INTO Move (move_date) VALUES ('2012-06-15 00:00:00'), ('2012-07-02 10:00:00'), "
            "('2012-07-02 12:00:00');"
            "INSERT INTO Move_Prod (move_id, prod_id, mvprod_qty) VALUES (1, 1, 250000), (2, 1, 50000), "
            "(3, 2, 120000);"
            "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty) VALUES (1, 1, 3, 770000), "
            "(3, 3, 3, 770000)");
        view.resize(1200, 500);
        view.InitialUpdate();
        view.show();
    }

    RecordList& Products() { return Find<RecordList>(view, "products"); }
    RecordList& Dates() { return Find<RecordList>(view, "dates"); }
    RecordList& Packaging() { return Find<RecordList>(view, "packaging"); }
    std::string ProductNames() {
        QStringList names;
        for (int row = 0; row < Products().RowCount(); ++row)
            names.append(Products().CellText(row, 1));
        return names.join(QStringLiteral(", ")).toStdString();
    }

    /// What the issues carry: line, cover and ten-thousandths. Rows entered by hand are there until it is computed.
    std::string Issued() const {
        return folder.AskAll("SELECT mvprod_id, cover_id, mvcover_qty FROM Move_Cover ORDER BY 1, 2, 3");
    }
    static constexpr const char* ByHand = "1|3|770000 3|3|770000";
    static constexpr const char* Computed = "1|1|500000 1|2|20000 2|1|100000 2|2|0 3|3|770000";

    std::string StoredDates() const {
        return folder.AskAll("SELECT dt_id, prod_id, replace(dt_from, ' ', '_') FROM Prod_CoverDT ORDER BY dt_id");
    }
    std::string StoredPackaging(const char* condition = "1") const {
        return folder.AskAll((std::string("SELECT dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, "
                                          "cp_useto, cover_type, cover_org, cover_pay FROM Prod_Cover WHERE ") +
                              condition + " ORDER BY cp_id")
                                 .c_str());
    }

    /// Chooses a simple cover and goes on to its values.
    static void ChooseCover(QWidget& sheet, int row) {
        Find<QTabWidget>(sheet, "tabs").setCurrentIndex(0);
        ClickRow(Find<RecordList>(sheet, "simple"), row);
        Click(sheet, "next");
    }
    static void ChooseComposite(QWidget& sheet, int row) {
        Find<QTabWidget>(sheet, "tabs").setCurrentIndex(1);
        ClickRow(Find<RecordList>(sheet, "composite"), row);
        Click(sheet, "finish");
        EXPECT_FALSE(sheet.isVisible());
    }
    static void ChooseDay(QWidget& dialog, int year, int month, int day) {
        Find<QDateEdit>(dialog, "date").setDate(QDate(year, month, day));
    }
    void ExpectVanished() {
        messages.Expect(Czech("Záznam byl odstraněn jinou aplikací!"), Message::Icon::Information);
    }
    void Fault(const char* when) const {
        folder.Sql((std::string("CREATE TRIGGER fault BEFORE ") + when + " BEGIN SELECT RAISE(ABORT, 'zkouška'); END")
                       .c_str());
    }
    /// Nothing but this many notifications that packaging rows changed, each sent past the register itself.
    void ExpectTold(std::size_t times) {
        EXPECT_EQ(std::vector<ViewMessage>(times, ViewMessage::WM_COVERS_CHANGED), frame.told);
        EXPECT_EQ(times > 0 ? &view : nullptr, frame.lastExcept);
        frame.told.clear();
        frame.lastExcept = nullptr;
    }

    StoreFolder folder;
    ScriptedMessages messages;
    RecordedFrame frame;
    CViewProd view{folder.store, frame};
    Steps steps;
};
