#include "core/import/Import.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

namespace {

TEST(ImportOptions, AreKeptInTheSettings) {
    const ProgramFolder folder;
    MoneyOptions options;
    options.Read();
    EXPECT_TRUE(options.products && options.documents && options.setExport);
    EXPECT_EQ(ExistingRecords::Keep, options.existing);
    EXPECT_EQ(";Česká republika ;ČR", options.domestic.toStdString());

    options.products = options.setExport = false;
    options.existing = ExistingRecords::Ask;
    options.domestic = QStringLiteral(";ČR;SLOVENSKO");
    ASSERT_FALSE(options.Write());
    EXPECT_EQ(QByteArray("[Import]\r\nProdukty=0\r\nVydaje=1\r\nExistujici zaznamy=2\r\nNastavovat Export=0\r\n"
                         "Neexportni zeme=;\xc8R;SLOVENSKO\r\n"),
              FileBytes(folder.File("kuvel.ini")));
    MoneyOptions again;
    again.Read();
    EXPECT_TRUE(!again.products && again.documents && !again.setExport);
    EXPECT_EQ(ExistingRecords::Ask, again.existing);
    EXPECT_EQ(options.domestic, again.domestic);
    again.lastYear = QStringLiteral("/Data/Agenda.1/Rok.1/");
    ASSERT_FALSE(again.Write());
    EXPECT_TRUE(FileBytes(folder.File("kuvel.ini")).endsWith("SLOVENSKO\r\nPosledni rok=/Data/Agenda.1/Rok.1/\r\n"));
    options.Read();
    EXPECT_EQ(again.lastYear, options.lastYear);
}

TEST(ImportOptions, OddSettingsReadAsTheyCan) {
    const std::tuple<const char*, ExistingRecords, bool> cases[] = {
        {"Existujici zaznamy=0\r\nProdukty=0", ExistingRecords::Overwrite, false},
        {"Existujici zaznamy=3\r\nProdukty=5", ExistingRecords::Keep, true},
        {"Existujici zaznamy=-1\r\nProdukty=", ExistingRecords::Keep, false},
        {"Existujici zaznamy=x", ExistingRecords::Overwrite, true}};
    for (const auto& [ini, existing, products] : cases) {
        const ProgramFolder folder;
        WriteFile(folder.File("kuvel.ini"), QByteArray("[ImportWAK]\r\n") + ini);
        ImportOptions options;
        options.Read(QStringLiteral("ImportWAK"));
        EXPECT_EQ(existing, options.existing) << ini;
        EXPECT_EQ(products, options.products) << ini;
    }
    const ProgramFolder folder;
    WriteFile(folder.File("kuvel.ini"), "[Import]\r\nNeexportni zeme=" + QByteArray(1500, 'x'));
    MoneyOptions options;
    options.Read();
    EXPECT_EQ(1000, options.domestic.size());
}

} // namespace
