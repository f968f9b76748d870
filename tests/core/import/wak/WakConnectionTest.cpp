#include "core/import/wak/OleDbString.h"
#include "core/import/wak/SqlServerConnection.h"
#include "tests/support/SampleRows.h"
#include "tests/support/ScriptedDoors.h"
#include "tests/support/TdsServer.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <chrono>

namespace {

using SourceType = CSqlServerConnection::SourceType;

const char* const Query = "SELECT * FROM pol_mj";

std::string Show(const CSqlServerRows& rows, const char* column) {
    return ShownOrCode([&] { return rows.get_Collect(column); });
}

/// What `act` raised.
template <class Act>
std::string Raised(const Act& act) {
    try {
        act();
        return "nothing";
    } catch (const ComError& error) {
        return QString::asprintf("%08X ", error.Code()).toStdString() + error.Description().toStdString();
    }
}

class WakConnection : public testing::Test {
protected:
    bool Connect() { return connection.Connect(server.Name(), "wak", "sa", "heslo", false); }

    ScriptedMessages messages;
    TdsServer server;
    CSqlServerConnection connection{{2, QStringLiteral("FreeTDS")}};
};

} // namespace

TEST(OleDbString, HoldsTheValuesAsTheyStand) {
    EXPECT_EQ("Provider=SQLOLEDB; Data Source=s\\i; User ID=\"u\"; Password=\"a\";}b\"; Initial Catalog=d;",
              OleDbConnectionString({"s\\i", "d", "u", "a\";}b", false}));
    EXPECT_EQ("Provider=SQLOLEDB; Data Source=s; Integrated Security=SSPI; Initial Catalog=d;",
              OleDbConnectionString({"s", "d", "u", "p", true}));
}

TEST(OleDbString, IsReadAsTheProviderReadsIt) {
    // read: server|database|user|password
    const std::pair<QString, const char*> cases[] = {
        {"", "s|d|u|"},
        {" a;b}c'=\\ ", "s|d|u| a;b}c'=\\ "},
        {"a\"\"b", "s|d|u|a\"b"},
        {"a\"b", nullptr},
        {"a\"", nullptr},
        {"\"\"", "s|d|u|\""},
        {"a\"; Initial Catalog=x; Data Source=\"other", "other|d|u|a"},
    };
    for (const auto& [password, read] : cases) {
        const auto login = ParseOleDbString(OleDbConnectionString({" s ", "d", "u", password, false}));
        ASSERT_EQ(read != nullptr, login.has_value()) << password.toStdString();
        if (login) {
            EXPECT_EQ(read, login->server + "|" + login->database + "|" + login->user + "|" + login->password);
            EXPECT_FALSE(login->windows);
        }
    }
    EXPECT_TRUE(ParseOleDbString(OleDbConnectionString({"s", "d", "u", "p", true}))->windows);
}

TEST(OleDbString, TheServerIsReadInEveryForm) {
    // read: host|instance|port
    const std::pair<const char*, const char*> cases[] = {
        {" tcp:pc1 , 1500", "pc1||1500"},
        {"10.0.0.1\\WAK", "10.0.0.1|WAK|0"},
        {"(LOCAL)", "localhost||0"},
        {".", "localhost||0"},
        {".\\WAK,1500", "localhost|WAK|1500"},
        {"pc1,", nullptr},
        {"pc1,0", nullptr},
        {"pc1,65536", nullptr},
        {"pc1,sql", nullptr},
    };
    for (const auto& [server, read] : cases) {
        const auto address = ParseServer(server);
        ASSERT_EQ(read != nullptr, address.has_value()) << server;
        if (address) {
            EXPECT_EQ(read, address->host + "|" + address->instance + "|" + QString::number(address->port));
        }
    }
}

TEST(OdbcString, HasAnInstanceOrAPort) {
    const LoginData login{"", "d", "u", "p;", false};
    EXPECT_TRUE(OdbcConnectionString(login, {"pc", "WAK", 0}, "x")
                    ->startsWith("DRIVER={x};SERVER=pc\\WAK;DATABASE=d;UID=u;PWD={p;};"));
    EXPECT_TRUE(OdbcConnectionString(login, {"pc", "WAK", 1500}, "x")->startsWith("DRIVER={x};SERVER=pc;PORT=1500;"));
    EXPECT_TRUE(OdbcConnectionString(login, {"pc", "", 0}, "x")->startsWith("DRIVER={x};SERVER=pc;PORT=1433;"));
}

TEST_F(WakConnection, SetsTheSessionAndReadsEveryType) {
    server.products.columns = {
        {"nPol", "int"},          {"short", "smallint"}, {"long", "bigint"},         {"flag", "bit"},
        {"real", "float"},        {"money", "money"},    {"exact", "decimal(38,4)"}, {"fine", "decimal(9,6)"},
        {"when", "datetime"},     {"day", "date"},       {"old", "varchar"},         {"new", "nvarchar"},
        {"big", "nvarchar(max)"}, {"nPol", "nvarchar"}};
    const std::string longText = QString("Žluťoučký kůň ").repeated(2000).toStdString();
    server.products.rows = {
        {"2147483647", "-32768", "5", "1", "-0.25", "922337203685477.5807", "-12.3456", "1.000050",
         "2023-12-31 23:59:59.997", "2024-02-29", "Příliš žluťoučký €", "ďábelské ódy Ω", longText, "second"},
        {{}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}},
        {"-1", "0", "99999999999", "0", "0", "-0.0001", "99999999999999999999999999.0", "-1.000049",
         "1899-12-30 00:00:00", "0001-01-01", "", "", "", "second"},
    };
    const std::vector<std::vector<std::string>> expected = {
        {"2147483647", "-32768", "5", "ano", "-0.25", "922337203685477,5807", "-12,3456", "1,0001",
         "#2023-12-31 23:59:59#", "#2024-02-29 00:00:00#", "'Příliš žluťoučký €'", "'ďábelské ódy Ω'",
         "'" + longText + "'"},
        std::vector<std::string>(13, "null"),
        {"-1", "0", "'99999999999'", "ne", "0.00", "-0,0001", "'99999999999999999999999999.0000'", "-1,0000",
         "#1899-12-30 00:00:00#", "#0001-01-01 00:00:00#", "''", "''", "''"},
    };
    server.Start();
    ASSERT_TRUE(Connect());
    EXPECT_EQ((std::vector<std::string>{"SET LOCK_TIMEOUT 1000", "SET TRANSACTION ISOLATION LEVEL READ UNCOMMITTED"}),
              server.TakeStatements());
    std::vector<std::string> names;
    for (const auto& column : server.products.columns)
        names.push_back(column.name);
    SqlServerRowsPtr rows;
    ASSERT_TRUE(connection.OpenRecordset(rows, Query, SourceType::Text, names));
    ASSERT_EQ(3, rows->get_RecordCount());
    for (const auto& row : expected) {
        for (std::size_t i = 0; i < 13; ++i)
            EXPECT_EQ(row[i], Show(*rows, names[i].c_str())) << names[i];
        rows->MoveNext();
    }
    EXPECT_TRUE(rows->get_EOF());
    EXPECT_EQ("800A0BCD", Show(*rows, "nPol"));
    EXPECT_NE("nothing", Raised([&] { rows->MoveNext(); }));
}

TEST_F(WakConnection, ReadsOnlyTheColumnsAskedForInAnyCase) {
    server.products.columns = {{"NPOL", "int"}, {"IdeMJ", "nvarchar"}};
    server.products.rows = {{"1", "ks"}, {"2", "ks"}};
    server.Start();
    ASSERT_TRUE(Connect());
    SqlServerRowsPtr rows;
    ASSERT_TRUE(connection.OpenRecordset(rows, Query, SourceType::Text, {"nPol", "missing"}));
    EXPECT_EQ("1", Show(*rows, "npol"));
    EXPECT_EQ("800A0CC1", Show(*rows, "IdeMJ"));
    EXPECT_EQ("800A0CC1", Show(*rows, "missing"));
    const CSqlServerRows* object = rows.get();
    server.products.rows.clear();
    ASSERT_TRUE(connection.OpenRecordset(rows, Query, SourceType::Text, {"IdeMJ"}));
    EXPECT_EQ(object, rows.get());
    EXPECT_TRUE(rows->get_EOF());
}

TEST_F(WakConnection, CallsTheRoutineAsAStatement) {
    server.documents.columns = {{"nPol", "int"}};
    server.documents.rows = {{"1"}, {"2"}};
    server.Start();
    ASSERT_TRUE(Connect());
    server.TakeStatements();
    SqlServerRowsPtr rows;
    ASSERT_TRUE(
        connection.OpenRecordset(rows, "DoklSkl_Pre('20231001', '20231231')", SourceType::StoredProcedure, {"nPol"}));
    EXPECT_EQ(std::vector<std::string>{"EXEC DoklSkl_Pre '20231001', '20231231'"}, server.TakeStatements());
    EXPECT_EQ(2, rows->get_RecordCount());
}

TEST_F(WakConnection, StaysAliveAndCanBeGivenUpWhileTheServerThinks) {
    struct Stop {};
    server.products.columns = {{"nPol", "int"}};
    server.products.rows.assign(2500, {"1"});
    server.delayed = Query;
    server.delayMilliseconds = 700;
    server.Start();
    ASSERT_TRUE(Connect());
    SqlServerRowsPtr rows;
    int calls = 0;
    ASSERT_TRUE(connection.OpenRecordset(rows, Query, SourceType::Text, {"nPol"}, [&] { ++calls; }));
    EXPECT_GE(calls, 4);
    EXPECT_EQ(2500, rows->get_RecordCount());
    // A server that does not let go is left, and the program goes on at once.
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THROW(connection.OpenRecordset(rows, Query, SourceType::Text, {"nPol"}, [] { throw Stop(); }), Stop);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(600));
    EXPECT_FALSE(rows || connection.IsOpen());
    ASSERT_TRUE(Connect());
    server.delayMilliseconds = 0;
    ASSERT_TRUE(connection.OpenRecordset(rows, Query, SourceType::Text, {"nPol"}));
    EXPECT_EQ(2500, rows->get_RecordCount());
    // Errors come out of the waiting as they are.
    server.refused = Query;
    EXPECT_THROW(connection.OpenRecordset(rows, Query, SourceType::Text, {"nPol"}, [] {}), ComError);
}

TEST_F(WakConnection, ALoginCanBeGivenUp) {
    struct Stop {};
    server.silent = true;
    server.Start();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THROW(connection.Connect(server.Name(), "wak", "sa", "heslo", false, [] { throw Stop(); }), Stop);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_FALSE(connection.IsOpen());
}

TEST_F(WakConnection, RaisesWhatTheServerSays) {
    using Fault = TdsTable::Fault;
    const char* const Locked =
        "80040E31 Lock request time out period exceeded.\nData má zamčena jiný uživatel systému WAK "
        "INTRA. Opakujte import později.";
    const std::tuple<Fault, std::size_t, int, const char*, const char*> cases[] = {
        {Fault::Error, 0, 208, "Invalid object name 'pol_mj'.",
         "80040E37 Invalid object name 'pol_mj'.\nDatabáze neobsahuje, co se z ní má číst. Ověřte, že je to databáze "
         "systému WAK INTRA."},
        {Fault::Error, 0, 229, "The SELECT permission was denied.",
         "80040E09 The SELECT permission was denied.\nUživatel nemá právo tato data číst. Požádejte o ně správce "
         "serveru."},
        {Fault::Error, 0, 1222, "Lock request time out period exceeded.", Locked},
        {Fault::Error, 3, 1222, "Lock request time out period exceeded.", Locked},
        {Fault::Error, 5, 50000, "Chyba až za řádky: ěščř", "80040E14 Chyba až za řádky: ěščř"},
    };
    server.products.columns = {{"nPol", "int"}, {"NazPol", "varchar"}};
    server.products.rows.assign(5, {"1", "víko"});
    server.Start();
    ASSERT_TRUE(Connect());
    SqlServerRowsPtr rows;
    for (const auto& [fault, after, number, text, raised] : cases) {
        server.products.fault = fault;
        server.products.faultAfter = after;
        server.products.errorNumber = number;
        server.products.errorText = text;
        EXPECT_EQ(raised, Raised([&] { connection.OpenRecordset(rows, Query, SourceType::Text, {"nPol", "NazPol"}); }));
        EXPECT_TRUE(!rows || !rows->get_State());
    }
    EXPECT_EQ("80040E14 Incorrect syntax near 'DELETE'.", Raised([&] { connection.Execute("DELETE"); }));
}

TEST_F(WakConnection, RaisesWhenTheLineDrops) {
    server.products.columns = {{"nPol", "int"}, {"NazPol", "varchar"}};
    server.products.rows.assign(3000, {"1", "víko"});
    server.products.fault = TdsTable::Fault::Drop;
    server.Start();
    SqlServerRowsPtr rows;
    for (const std::size_t after : {0, 1, 2999}) {
        server.products.faultAfter = after;
        ASSERT_TRUE(Connect());
        EXPECT_EQ("80004005", Raised([&] {
                                  connection.OpenRecordset(rows, Query, SourceType::Text, {"nPol", "NazPol"});
                              }).substr(0, 8))
            << after;
        EXPECT_FALSE(rows->get_State());
        EXPECT_NE("nothing", Raised([&] { connection.Execute("SET LOCK_TIMEOUT 1000"); }));
    }
}

TEST_F(WakConnection, SaysWhyItCannotBeOpened) {
    server.database = "účetnictví";
    server.user = "jiří";
    server.password = "tajné;}heslo";
    server.Start();
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"účetnictví", "jiří", "tajné",
         "0x80040E4D. Login failed for user 'jiří'.\nServer přihlášení odmítl. Zkontrolujte uživatele a heslo."},
        {"účetnictví", "sa", "tajné;}heslo",
         "0x80040E4D. Login failed for user 'sa'.\nServer přihlášení odmítl. Zkontrolujte uživatele a heslo."},
        {"jiná", "jiří", "tajné;}heslo",
         "0x80040E14. Cannot open database \"jiná\" requested by the login. The login failed.\nDatabáze tohoto jména "
         "na serveru "
         "není, nebo do ní uživatel nesmí."},
        {"účetnictví", "jiří", "tajné};UID=sa",
         "0x80004005. Ovladač neumí předat přihlašovací údaje, ve kterých stojí „};“."},
        {"účetnictví", "jiří", "tajné\"heslo",
         "0x80040E73. Formát inicializačního řetězce neodpovídá specifikaci OLE DB.\nUvozovky v uživateli a v hesle "
         "zapište "
         "dvakrát."},
    };
    for (const auto& [database, user, password, reason] : cases) {
        messages.Expect(
            QString("Nemohu otevřít databázi '%1' na serveru '%2'\n\nChyba č.%3").arg(database, server.Name(), reason),
            Message::Icon::Error);
        EXPECT_FALSE(connection.Connect(server.Name(), database, user, password, false));
        EXPECT_FALSE(connection.IsOpen());
    }
    EXPECT_TRUE(connection.Connect(server.Name(), "účetnictví", "jiří", "tajné;}heslo", false));
}

TEST_F(WakConnection, PasswordsArriveAsTheyWereEntered) {
    server.Start();
    for (const char* password : {"", " ", "a;DSN=x", "{a}", "a;}b", "a'b", "100%s", "ěščřžýáíé"}) {
        server.password = password;
        EXPECT_TRUE(connection.Connect(server.Name(), "wak", "sa", password, false)) << password;
    }
    server.password = "a\"b";
    EXPECT_TRUE(connection.Connect(server.Name(), "wak", "sa", "a\"\"b", false));
}

TEST_F(WakConnection, FailsInBoundedTimeAndWithoutThePassword) {
    server.silent = true;
    server.Start();
    int port = 0;
    {
        const TdsServer closed;
        port = closed.Port();
    }
    const struct {
        QString server;
        bool windows;
        const char* reason;
    } cases[] = {
        {server.Name(), false, "\nServer neodpovídá. "},
        {QString("127.0.0.1,%1").arg(port), false, "\nServer neodpovídá. "},
        {"127.0.0.1,x", false, "Neplatný port serveru."},
        {QString("127.0.0.1,%1").arg(port), true, "Kerberos"},
        {"no-such-host.invalid", false, "\nServer neodpovídá. "},
    };
    CSqlServerConnection hasty({1, QStringLiteral("FreeTDS")});
    messages.AcceptAny();
    for (const auto& c : cases) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_FALSE(hasty.Connect(c.server, "wak", "sa", "TajneHeslo", c.windows));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8)) << c.server.toStdString();
        const QString text = messages.Shown().back().text;
        EXPECT_TRUE(
            text.startsWith(QString("Nemohu otevřít databázi 'wak' na serveru '%1'\n\nChyba č.0x8").arg(c.server)))
            << text.toStdString();
        EXPECT_TRUE(text.contains(c.reason)) << text.toStdString();
        EXPECT_FALSE(text.contains("TajneHeslo"));
    }
    EXPECT_EQ(std::size(cases), messages.Shown().size());
}

TEST_F(WakConnection, PipesAreRefusedAtOnce) {
    const QString reason = "Spojení přes pojmenovanou rouru ani sdílenou paměť není podporováno. Zadejte server jako "
                           "počítač, počítač,port nebo počítač\\instance.";
    for (const char* pipe : {R"(\\.\pipe\sql\query)", R"(\\pc1\pipe\MSSQL$WAK\sql\query)", R"( np:\\.\pipe\sql\query)",
                             "NP:pc1", "lpc:pc1", R"((localdb)\v11.0)"}) {
        const auto start = std::chrono::steady_clock::now();
        messages.Expect(
            QString("Nemohu otevřít databázi 'wak' na serveru '%1'\n\nChyba č.0x80004005. %2").arg(pipe, reason),
            Message::Icon::Error);
        EXPECT_FALSE(connection.Connect(pipe, "wak", "sa", "heslo", false));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500)) << pipe;
    }
}

TEST_F(WakConnection, RaisesWhenThereIsNothingToSpeakThrough) {
    CSqlServerConnection missing({1, QStringLiteral("no such driver")});
    EXPECT_EQ("80004003", Raised([&] { missing.Connect("s", "d", "u", "TajneHeslo", false); }).substr(0, 8));
    SqlServerRowsPtr rows;
    EXPECT_EQ("800A0E78", Raised([&] { connection.Execute("SET LOCK_TIMEOUT 1000"); }).substr(0, 8));
    EXPECT_EQ("800A0E78",
              Raised([&] { connection.OpenRecordset(rows, Query, SourceType::Text, {"nPol"}); }).substr(0, 8));
    server.refused = "SET TRANSACTION ISOLATION LEVEL READ UNCOMMITTED";
    server.Start();
    EXPECT_EQ("80040E14", Raised([&] { Connect(); }).substr(0, 8));
}

TEST_F(WakConnection, FindsTheDriverThatIsNotRegistered) {
    const QTemporaryDir empty;
    qputenv("ODBCSYSINI", empty.path().toLocal8Bit());
    server.Start();
    EXPECT_TRUE(Connect());
    qunsetenv("ODBCSYSINI");
}
