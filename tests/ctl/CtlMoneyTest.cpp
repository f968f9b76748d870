#include "core/import/ImportOptions.h"
#include "tests/support/Kuvelctl.h"
#include "tests/support/MoneyFolder.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

QString Summary(int products, int documents) {
    return QStringLiteral("Import dokončen úspěšně!\n\nNaimportováno:\n   Produktů ~ %1\n   Dokladů ~ %2\n")
        .arg(products)
        .arg(documents);
}

TEST(CtlImportMoney, TakesFromTheSettingsWhatIsNotGiven) {
    const MoneyFolder money;
    money.AddAgenda("d:/Data/Agenda.001", "Firma");
    // The year has no description: its folder is enough.
    DbfBytes cards = StockCards();
    cards.rows = {DbfRow({"1", "Kůň", "K-1", "ks"})};
    money.WriteTable("d:/Data/Agenda.001/SKKMKART.DAT", cards);
    DbfBytes documents = StockDocuments();
    documents.rows = {DbfRow({"1", "V1", "20120401", "V", "Slovensko"})};
    money.WriteTable("d:/Data/Agenda.001/Rok.2012/SKSEZDOK.DAT", documents);
    money.WriteTable("d:/Data/Agenda.001/Rok.2012/VFAKTURY.DAT", Invoices());
    DbfBytes lines = StockLines();
    lines.rows = {DbfRow({"S", "1", "1", "1", "x", "x", "x", "2.5"})};
    money.WriteTable("d:/Data/Agenda.001/Rok.2012/SKSEZPOL.DAT", lines);

    const QString year = QStringLiteral("D:\\data\\Agenda.001\\Rok.2012");
    const QString both = Summary(1, 1);
    // expected: how they begin
    const std::tuple<const char*, QStringList, std::function<void(MoneyOptions&)>, int, QString, const char*,
                     const char*>
        rows[] = {
            {"the settings alone", {year}, {}, 0, both, "", "1"},
            {"a path of this machine", {money.Path("d:/Data/Agenda.001/Rok.2012/")}, {}, 0, both, "", "1"},
            {"a phase chosen", {year, "--products"}, {}, 0, Summary(1, 0), "", "none"},
            {"a phase the settings leave out",
             {year, "--issues"},
             [](MoneyOptions& o) { o.documents = false; },
             0,
             both,
             "",
             "1"},
            {"no export", {year, "--no-export-flag"}, {}, 0, both, "", "0"},
            {"an export", {year, "--export-flag"}, [](MoneyOptions& o) { o.setExport = false; }, 0, both, "", "1"},
            {"domestic names", {year, "--domestic", "x;slovensko"}, {}, 0, both, "", "0"},
            {"nothing chosen",
             {year},
             [](MoneyOptions& o) { o.products = o.documents = false; },
             1,
             "",
             "Není vybrán import produktů ani dokladů!",
             "none"},
            {"settings that ask",
             {year},
             [](MoneyOptions& o) { o.existing = ExistingRecords::Ask; },
             1,
             "",
             "kuvelctl: kuvel.ini says to ask about each existing record",
             "none"},
            {"no year", {money.Path("d:/Data")}, {}, 1, "", "Adresář \"", "none"},
            {"no year given",
             {},
             {},
             2,
             "",
             "kuvelctl: YEARFOLDER is required; usage: kuvelctl import money YEARFOLDER [",
             "none"},
            {"asking", {year, "--existing", "ask"}, {}, 2, "", "kuvelctl: --existing: ask not in", "none"},
            {"both of two",
             {year, "--export-flag", "--no-export-flag"},
             {},
             2,
             "",
             "kuvelctl: --export-flag excludes --no-export-flag; usage:",
             "none"},
        };
    for (const auto& [what, arguments, change, exitCode, output, expected, isExport] : rows) {
        const StoreFolder folder;
        MoneyOptions stored;
        if (change)
            change(stored);
        ASSERT_FALSE(stored.Write());
        const QByteArray settings = FileBytes(folder.folder.File("kuvel.ini"));
        CKuvelctl program(folder.folder.Path());
        program.SetVariable("KUVEL_DRIVES", money.Path({}));
        const CtlResult run =
            program.RunBare(QStringList{"--home", folder.folder.Path(), "import", "money"} + arguments);
        EXPECT_EQ(exitCode, run.exitCode) << what;
        EXPECT_EQ(output.toStdString(), run.output.toStdString()) << what;
        const QString errors = QString::fromUtf8(expected);
        EXPECT_TRUE(errors.isEmpty() ? run.errors.isEmpty() : run.errors.startsWith(errors))
            << what << ": " << run.errors.toStdString();
        EXPECT_EQ(isExport, folder.Ask("SELECT move_export FROM Move")) << what;
        // The settings are read, not written.
        EXPECT_EQ(settings, FileBytes(folder.folder.File("kuvel.ini"))) << what;
    }
}

TEST(CtlImportMoney, AFullDiskIsSaidAndWhatIsKeptIsCounted) {
    const MoneyFolder money;
    money.AddAgenda("d:/Data/Agenda.001", "Firma");
    money.AddYear("d:/Data/Agenda.001/Rok.2012", "2012");
    DbfBytes cards = StockCards();
    for (int card = 1; card <= 12'000; ++card)
        cards.rows.push_back(DbfRow({QString::number(card), "Zboží", "K", "ks"}));
    money.WriteTable("d:/Data/Agenda.001/SKKMKART.DAT", cards);
    int kept = 0;
    for (const int bytes : {100'000, 300'000, 400'000, 500'000}) {
        const StoreFolder folder;
        CKuvelctl program(folder.folder.Path());
        program.SetVariable("KUVEL_DRIVES", money.Path({}));
        program.FillDiskAfter(bytes);
        const CtlResult run = program.RunBare(
            {"--home", folder.folder.Path(), "import", "money", "D:\\Data\\Agenda.001\\Rok.2012", "--products"});
        const int products = std::stoi(folder.Ask("SELECT count(*) FROM Product"));
        EXPECT_EQ(1, run.exitCode) << bytes;
        EXPECT_EQ(QStringLiteral("Během importu došlo k chybě!\n\nNaimportováno:\n   Produktů ~ %1\n   Dokladů ~ 0\n")
                      .arg(products)
                      .toStdString(),
                  run.output.toStdString())
            << bytes;
        EXPECT_EQ(1, run.errors.count(QStringLiteral("Na disku není dost místa."))) << run.errors.toStdString();
        kept += products;
    }
    EXPECT_GT(kept, 0) << "no import came to its first commit";
}

} // namespace
