#include "tests/support/Kuvelctl.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

namespace {

constexpr const char* CoverCount = "SELECT count(*) FROM Cover";

TEST(KuvelctlBackup, ABackupIsKeptUntilToldOtherwiseAndRestoresWhatItHeld) {
    StoreFolder store;
    store.store.CloseDatabase();
    store.Sql("INSERT INTO Cover (cover_name) VALUES ('a')");
    const CKuvelctl program(store.folder.Path());
    const QString file = store.folder.File("zaloha/jinde.mdb");
    CtlResult result = program.Run(QStringLiteral("backup ") + file);
    EXPECT_EQ(0, result.exitCode) << result.errors.toStdString();
    EXPECT_EQ(file, result.output.trimmed());
    EXPECT_TRUE(FileBytes(store.folder.File("kuvel.ini")).contains("Posledni zaloha=" + file.toUtf8()));

    store.Sql("INSERT INTO Cover (cover_name) VALUES ('b')");
    const QByteArray before = FileBytes(file);
    result = program.Run(QStringLiteral("backup ") + file);
    EXPECT_EQ(1, result.exitCode);
    EXPECT_TRUE(result.errors.contains("--overwrite")) << result.errors.toStdString();
    EXPECT_EQ(before, FileBytes(file));

    result = program.Run(QStringLiteral("restore ") + file);
    EXPECT_EQ(0, result.exitCode) << result.errors.toStdString();
    EXPECT_EQ("1", store.Ask(CoverCount));

    store.Sql("INSERT INTO Cover (cover_name) VALUES ('c')");
    EXPECT_EQ(0, program.Run(QStringLiteral("backup %1 --overwrite").arg(file)).exitCode);
    EXPECT_NE(before, FileBytes(file));
}

TEST(KuvelctlBackup, WithoutANameItIsTheDaysInZalohy) {
    StoreFolder store;
    store.store.CloseDatabase();
    const CtlResult result = CKuvelctl(store.folder.Path()).Run(QStringLiteral("backup"));
    EXPECT_EQ(0, result.exitCode) << result.errors.toStdString();
    const QStringList made = QDir(store.folder.File("Zalohy")).entryList({QStringLiteral("Zaloha????????.mdb")});
    ASSERT_EQ(1, made.size());
    EXPECT_EQ(store.folder.File("Zalohy/") + made[0], result.output.trimmed());
}

TEST(KuvelctlBackup, ARestoreThatFailsLeavesTheOldData) {
    StoreFolder store;
    store.store.CloseDatabase();
    store.Sql("INSERT INTO Cover (cover_name) VALUES ('a')");
    WriteFile(store.folder.File("kniha.txt"), "no database");
    const std::pair<const char*, const char*> rows[] = {
        {"kniha.txt", "the old data were put back"},
        {"chybi.mdb", "Nemohu nalézt soubor '"},
    };
    const CKuvelctl program(store.folder.Path());
    for (const auto& [file, said] : rows) {
        const CtlResult result = program.Run(QStringLiteral("restore ") + store.folder.File(file));
        EXPECT_EQ(1, result.exitCode) << file;
        EXPECT_TRUE(result.errors.contains(QString::fromUtf8(said))) << result.errors.toStdString();
        EXPECT_EQ("1", store.Ask(CoverCount)) << file;
    }
}

} // namespace
