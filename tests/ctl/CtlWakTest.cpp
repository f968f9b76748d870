#include "core/import/wak/WakOptions.h"
#include "tests/support/Kuvelctl.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/TdsServer.h"

#include <gtest/gtest.h>

#include <functional>

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
    const CKuvelctl program(folder.folder.Path());
    const std::string cannot = "Nemohu otevřít databázi 'wak' na serveru '" + name.toStdString() + "'\n\nChyba č.";
    const auto done = [](int products, int documents) {
        return "Import dokončen úspěšně!\n\nNaimportováno:\n   Produktů ~ " + std::to_string(products) +
               "\n   Dokladů ~ " + std::to_string(documents) + "\n";
    };
    const struct {
        const char* what;
        QStringList arguments;
        std::function<void(WakOptions&)> change;
        int exitCode;
        std::string output;
        std::string errors; // how they begin
        const char* input = "";
    } rows[] = {
        {"the settings alone", {}, {}, 0, done(1, 0), ""},
        {"days and phases", {"--issues", "--from", "2024-02-29", "--to", "2024-02-29"}, {}, 0, done(0, 1), ""},
        {"overwrite", {"--products", "--issues", "--existing", "overwrite"}, {}, 0, done(1, 1), ""},
        {"a login that replaces the settings'",
         {"--server", name, "--database", "wak", "--user", "jiří", "--password-stdin"},
         [](WakOptions& options) { options = {}; },
         0,
         done(0, 0),
         "",
         "TajnéHeslo\r\n"},
        {"a wrong password", {"--password-stdin"}, {}, 1, "", cannot + "0x80040E4D. Login failed", "TajnéHesl"},
        {"a ticket that is not there", {"--windows"}, {}, 1, "", cannot},
        {"no server", {"--server", " "}, {}, 1, "", "Zadejte server!\n"},
        {"no database", {"--database", " "}, {}, 1, "", "Zadejte databázi!\n"},
        {"no user", {"--user", " "}, {}, 1, "", "Zadejte uživatele!\n"},
        {"days the wrong way that nobody needs",
         {"--products", "--from", "2024-02-29", "--to", "2024-02-28"},
         {},
         0,
         done(0, 0),
         ""},
        {"nobody to ask", {}, [](WakOptions& o) { o.existing = ExistingRecords::Ask; }, 1, "", "kuvelctl: "},
        {"no phase",
         {},
         [](WakOptions& o) { o.products = false; },
         1,
         "",
         "Není vybrán import produktů ani dokladů!\n"},
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
        ASSERT_FALSE(options.Write());
        const QByteArray settings = FileBytes(folder.folder.File("kuvel.ini"));
        QProcess process;
        program.Prepare(process, QStringList{"--home", folder.folder.Path(), "import", "wak"} + row.arguments);
        const CtlResult result = CKuvelctl::Finish(process, row.input);
        EXPECT_EQ(row.exitCode, result.exitCode);
        EXPECT_EQ(row.output, result.output.toStdString());
        EXPECT_TRUE(row.errors.empty() ? result.errors.isEmpty() : result.errors.startsWith(row.errors.c_str()))
            << result.errors.toStdString();
        EXPECT_EQ(settings, FileBytes(folder.folder.File("kuvel.ini")));
    }
    EXPECT_EQ("EXEC DoklSkl_Pre '20240229', '20240229'", server.TakeStatements()[5]);
}
