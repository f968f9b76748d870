#include "bench/plain/Plain.h"
#include "bench/support/BenchFolder.h"
#include "bench/support/Pairs.h"

#include "core/base/SqlText.h"
#include "core/rules/Recomputation.h"
#include "windows/frame/doors/Desktop.h"
#include "windows/registers/products/PageProd.h"
#include "windows/widgets/lists/RecordList.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int Product = 1;
constexpr int PackagingRow = 1;
constexpr int Pieces = 30000;

/// What the register does when a changed row is stored: the row, then the issues of its product.
void ChangeRow(int lines) {
    CDataStore store;
    store.OpenDatabase();
    const RecordsetPtr row = store.Query(SqlText("SELECT * FROM Prod_Cover WHERE (cp_id = %li)", PackagingRow));
    row->put_Collect("cp_qtycover", Currency::FromCount(Pieces));
    row->Update();
    if (RecomputeProductCovers(store, Product) != lines)
        std::abort();
}

void PackagingChange() {
    const int lines = Sized(50000);
    const BenchFolder folder;
    FillIssues(folder, lines);
    folder.Sql("UPDATE Move_Prod SET prod_id = " + std::to_string(Product));
    folder.Keep();
    const auto plain = [&] {
        sqlite3* db = plain_open(folder.Database().c_str());
        if (plain_change_packaging(db, PackagingRow, Product, Pieces) != lines)
            std::abort();
        plain_close(db);
    };
    Measure({"packaging-change", 1.5, 7, [&] { folder.Restore(); }, [&] { ChangeRow(lines); }, plain});
}

/// From the command to the painted list.
double OpenPicker(CDataStore& store) {
    return Seconds([&] {
        CPageProd products(store);
        CWizardSheet sheet(nullptr);
        sheet.AddPage(products);
        QTimer::singleShot(0, &sheet, [&] {
            products.findChild<RecordList*>()->viewport()->repaint();
            sheet.reject();
        });
        sheet.Run();
    });
}

void ProductPicker() {
    const BenchFolder folder;
    folder.Sql("WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < " +
               std::to_string(Sized(50000)) +
               ") INSERT INTO Product (prod_name, prod_katalog, prod_unit, deleted) SELECT 'Čajový výrobek č. ' || "
               "(i * 7919 % 1000003), 'K' || i, 'ks', 0 FROM n");
    CDataStore store;
    store.OpenDatabase();
    std::vector<double> times;
    for (int i = 0; i < 9; ++i)
        times.push_back(OpenPicker(store) * 1000);
    std::sort(times.begin(), times.end());
    Report("product-picker-open", times[times.size() / 2], 100, "ms");
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const QApplication app(argc, argv);
    SetUpDesktop();
    ReadArguments(argc, argv);
    PackagingChange();
    ProductPicker();
}
