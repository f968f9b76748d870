#include "import/WakOptions.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/TdsServer.h"

#include <gtest/gtest.h>

#include <QProcess>

#include <functional>

namespace {

struct Result {
    int exitCode;
    std::string output;
    std::string errors;
};

Result RunImportWak(const ProgramFolder& folder, const QStringList& arguments, const char* input) {
    QProcess process;
    process.start(QStringLiteral(KUVEL_BIN_DIR "/kuvelctl"),
                  QStringList{"--home", folder.Path(), "import", "wak"} + arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(60'000)) << process.errorString().toStdString();
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

} // namespace

TEST(CtlImportWak, TakesFromTheSettingsWhatIsNotGiven) {
    TdsServer server;
    server.user = "jiří";
    server.password = "TajnéHeslo";
    server.products.columns = {{"nPol", "int"}, {"NazPol", "nvarchar"}, {"IdePol", "varchar"}, {"IdeMJ", "varchar"}};
    server.products.rows = {{"1", "Kůň", "K-1", "ks"}};
    server.documents.columns = {{"nDoklSkl", "int"},        {"IdeTypuDoklSkl", "varchar"}, {"IdeDoklSkl", "varchar"},
                                {"DatDoklSkl", "datetime"}, {"TypStatu", "bit"},           {"nPol", "int"},
                                {"MnoPol", "money"}};
    server.documents.rows = {{"1", "PRO", "D1", "2024-02-29 00:00:00", "0", "1", "2"}};
    server.Start();
    const StoreFolder folder;
    WakOptions stored;
    stored.server = server.Name();
    stored.database = "wak";
    stored.user = server.user;
    stored.password = server.password;
    stored.documents = false;

    const QString name = server.Name();
    const struct {
        const char* what;
        QStringList arguments;
        std::function<void(WakOptions&)> change;
        int exitCode;
        const char* output;
        std::string errors; // how they begin
        const char* input = "";
    } rows[] = {
        {"the settings alone",
         {},
         {},
         0,
         "Import dokončen úspěšně!\n\nNaimportováno:\n   Produktů ~ 1\n   Dokladů ~ 0\n",
         ""},
        {"days and phases",
         {"--issues", "--from", "2024-02-29", "--to", "2024-02-29"},
         {},
         0,
         "Import dokončen úspěšně!\n\nNaimportováno:\n   Produktů ~ 0\n   Dokladů ~ 1\n",
         ""},
        {"overwrite",
         {"--products", "--issues", "--existing", "overwrite"},
         {},
         0,
         "Import dokončen úspěšně!\n\nNaimportováno:\n   Produktů ~ 1\n   Dokladů ~ 1\n",
         ""},
        {"a login that replaces the settings'",
         {"--server", name, "--database", "wak", "--user", "jiří", "--password-stdin"},
         [](WakOptions& options) { options = {}; },
         0,
         "Import dokončen úspěšně!\n\nNaimportováno:\n   Produktů ~ 0\n   Dokladů ~ 0\n",
         "",
         "TajnéHeslo\r\n"},
        {"a wrong password",
         {"--password-stdin"},
         {},
         1,
         "",
         "Nemohu otevřít databázi 'wak' na serveru '" + name.toStdString() + "'\n\nChyba č.0x80040E4D. Login failed",
         "TajnéHesl"},
        {"a ticket that is not there", {"--windows"}, {}, 1, "", "Nemohu otevřít databázi 'wak' na serveru '"},
        {"no server", {"--server", " "}, {}, 1, "", "Zadejte server!\n"},
        {"no phase",
         {},
         [](WakOptions& options) { options.products = false; },
         1,
         "",
         "Není vybrán import produktů ani dokladů!\n"},
        {"nobody to ask",
         {},
         [](WakOptions& options) { options.existing = ExistingRecords::Ask; },
         1,
         "",
         "kuvelctl: "},
        {"days the wrong way",
         {"--issues", "--from", "2024-02-29", "--to", "2024-02-28"},
         {},
         1,
         "",
         "Datum od nesmí být větší než datum do!\n"},
        {"no such day", {"--to", "2023-02-29"}, {}, 2, "", "kuvelctl: --to must be a day as YYYY-MM-DD"},
        {"a day and a time", {"--from", "2023-01-01 00:00:00"}, {}, 2, "", "kuvelctl: --from must be a day"},
        {"two ways to log in", {"--windows", "--user", "sa"}, {}, 2, "", "kuvelctl: --"},
        {"a password in the arguments", {"--password", "TajnéHeslo"}, {}, 2, "", "kuvelctl: "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        WakOptions options = stored;
        if (row.change)
            row.change(options);
        ASSERT_TRUE(options.Write());
        const QByteArray settings = FileBytes(folder.folder.File("kuvel.ini"));
        const Result result = RunImportWak(folder.folder, row.arguments, row.input);
        EXPECT_EQ(row.exitCode, result.exitCode) << result.errors;
        EXPECT_EQ(row.output, result.output);
        EXPECT_TRUE(row.errors.empty() ? result.errors.empty() : result.errors.starts_with(row.errors))
            << result.errors;
        EXPECT_EQ(settings, FileBytes(folder.folder.File("kuvel.ini")));
    }
    EXPECT_EQ("EXEC DoklSkl_Pre '20240229', '20240229'", server.TakeStatements()[5]);
}
