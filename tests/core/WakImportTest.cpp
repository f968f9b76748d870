#include "import/WakImport.h"
#include "import/Import.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"
#include "tests/support/TdsServer.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace {

using Fault = TdsTable::Fault;
using Answer = IOverwriteDoor::Answer;

const char* const Products =
    "SELECT prod_scrid, prod_name, prod_katalog, prod_unit, deleted FROM Product ORDER BY prod_scrid";
const char* const Documents =
    "SELECT move_num, move_date, move_type, move_export, move_source FROM Move ORDER BY move_id";
const char* const Lines = "SELECT move_num, prod_scrid, mvprod_qty FROM Move JOIN Move_Prod USING (move_id) "
                          "JOIN Product USING (prod_id) ORDER BY mvprod_id";
const char* const Covers = "SELECT move_num, mvcover_qty FROM Move JOIN Move_Cover USING (move_id) ORDER BY mvcover_id";

struct ScriptedQuestions : IOverwriteDoor {
    std::vector<Answer> answers;
    QStringList asked;

    Answer Ask(const QString& question) override {
        asked.append(question);
        EXPECT_LE(asked.size(), static_cast<qsizetype>(answers.size())) << question.toStdString();
        return asked.size() <= static_cast<qsizetype>(answers.size())
                   ? answers[static_cast<std::size_t>(asked.size() - 1)]
                   : Answer::No;
    }
};

/// Cannot make the n-th recordset.
class FailingConnection : public CSqlServerConnection {
public:
    explicit FailingConnection(int nth) : m_nth(nth) {}
    bool OpenRecordset(SqlServerRowsPtr& rows, std::string_view source, SourceType type,
                       const std::vector<std::string>& columns, const std::function<void()>& alive) override {
        if (--m_nth != 0)
            return CSqlServerConnection::OpenRecordset(rows, source, type, columns, alive);
        ShowHResultError(ResultCode::OutOfMemory, QStringLiteral("Nedostatek paměti"));
        return false;
    }

private:
    int m_nth;
};

/// A small WAK database: two products, four documents.
void Fill(TdsServer& server) {
    server.products.columns = {{"nPol", "int"},
                               {"NazPol", "nvarchar"},
                               {"IdePol", "varchar"},
                               {"IdeMJ", "varchar"},
                               {"Poznamka", "nvarchar(max)"}};
    server.products.rows = {{"1", "Žluťoučký kůň", "ŽK-1", "ks", {}}, {"2", "Děvče", "Ř'2", {}, "x"}};
    server.documents.columns = {{"nDoklSkl", "int"},        {"IdeTypuDoklSkl", "varchar"}, {"IdeDoklSkl", "nvarchar"},
                                {"DatDoklSkl", "datetime"}, {"TypStatu", "int"},           {"nPol", "int"},
                                {"MnoPol", "decimal(18,4)"}};
    server.documents.rows = {
        {"10", "PRO", "Č10", "2023-10-05 14:00:00", "1", "1", "25.5"},
        {"10", "PRO", "Č10", "2023-10-05 14:00:00", "1", "99", "0.0001"},
        {"11", "VYD", "Č11", "2023-10-06 00:00:00", "0", "1", "1"},
        {"11", "PRO", "Č11", "2023-10-06 00:00:00", "0", "1", "1"},
        {"12", "pro", "Č12", "2023-12-31 23:59:59", "0", "2", "-3"},
        {"13", "PRO ", "Č13", "2023-12-31 00:00:00", "0", "2", "1"},
    };
}

class WakImport : public testing::Test {
protected:
    WakImport() {
        Fill(server);
        options.server = server.Name();
        options.database = "wak";
        options.password = "heslo";
        options.existing = ExistingRecords::Overwrite;
    }

    ImportResult Run(int failingRecordset = 0) {
        return RunImportCommand([&](ImportCounts& counts) {
            CWakSource source(options, range, std::make_unique<FailingConnection>(failingRecordset));
            return RunImport(folder.store, source, options, progress, questions, counts);
        });
    }
    void ExpectSummary(const char* status, int products, int documents) {
        messages.Expect(
            QString("%1\n\nNaimportováno:\n   Produktů ~ %2\n   Dokladů ~ %3").arg(status).arg(products).arg(documents),
            Message::Icon::Information);
    }
    ImportResult RunToEnd(int products, int documents) {
        ExpectSummary("Import dokončen úspěšně!", products, documents);
        return Run();
    }
    void ExpectError(const char* code, const QString& text) {
        messages.Expect(QString("Došlo k chybě COM č.0x%1\n\n%2").arg(code, text), Message::Icon::Error);
    }

    StoreFolder folder;
    ScriptedMessages messages;
    RecordedProgress progress;
    ScriptedQuestions questions;
    TdsServer server;
    WakOptions options;
    WakDateRange range = WakDateRange::PreviousQuarter(DateTime::FromDay(2024, 2, 15));
};

} // namespace

TEST_F(WakImport, WritesProductsAndTheSalesOfTheRange) {
    folder.Sql("INSERT INTO Product (prod_name, prod_source, prod_scrid) VALUES ('Z Money', 1, 2), ('Kůň', 2, 1);"
               "INSERT INTO Prod_CoverDT (prod_id, dt_from) VALUES (2, '2023-10-05 00:00:00');"
               "INSERT INTO Prod_Cover (dt_id, cover_id, cp_usealways, cp_qtyprod, cp_qtycover) VALUES (1, 7, 1, "
               "100000, 20000)");
    server.Start();
    const ImportResult result = RunToEnd(3, 2);
    EXPECT_EQ(ImportResult::End::Done, result.end);
    EXPECT_EQ("1|Žluťoučký kůň|ŽK-1|ks|0 2|Z Money|null|null|0 2|Děvče|Ř'2|null|0 99|???||"
              "|0",
              folder.AskAll(Products));
    EXPECT_EQ("Č10|2023-10-05 14:00:00|2|1|2 Č12|2023-12-31 23:59:59|2|0|2", folder.AskAll(Documents));
    EXPECT_EQ("Č10|1|255000 Č10|99|1 Č12|2|-30000", folder.AskAll(Lines));
    EXPECT_EQ("Č10|40000", folder.AskAll(Covers)); // two whole packages of ten, two pieces each
    EXPECT_EQ((std::vector<std::string>{"SET LOCK_TIMEOUT 1000", "SET TRANSACTION ISOLATION LEVEL READ UNCOMMITTED",
                                        "SELECT * FROM pol_mj", "EXEC DoklSkl_Pre '20231001', '20231231'"}),
              server.TakeStatements());
    EXPECT_EQ("title Import dat z WAK INTRA (cancel)|range 0 200|phase Importuji produkty|position 0|detail 1 z 2|"
              "position 100|detail 2 z 2|position 200|phase Importuji skladové pohyby|position 0|detail 1 z 6|"
              "position 33|detail 2 z 6|position 66|detail 3 z 6|position 100|detail 4 z 6|position 133|detail 5 z 6|"
              "position 166|detail 6 z 6|position 200|closed",
              QStringList(progress.lines.begin(), progress.lines.end()).join('|'));
}

TEST_F(WakImport, ReadsTheExportFlagWhateverItsColumn) {
    for (const std::string type : {"bit", "int", "smallint", "money", "varchar"}) {
        TdsServer other;
        Fill(other);
        other.documents.columns[4].type = type;
        other.documents.rows = {{"1", "PRO", "a", "2023-10-05 00:00:00", "1", "1", "1"},
                                {"2", "PRO", "b", "2023-10-05 00:00:00", "0", "1", "1"},
                                {"3", "PRO", "c", "2023-10-05 00:00:00", {}, "1", "1"}};
        other.Start();
        options.server = other.Name();
        folder.Sql("DELETE FROM Move; DELETE FROM Product");
        RunToEnd(2, 3);
        EXPECT_EQ("1 0 0", folder.AskAll("SELECT move_export FROM Move ORDER BY move_id")) << type;
    }
}

TEST_F(WakImport, TwiceUnderEachPolicy) {
    server.Start();
    RunToEnd(3, 2);
    const std::string before = folder.AskAll(Products) + folder.AskAll(Documents) + folder.AskAll(Lines);
    const std::string ids = folder.AskAll("SELECT move_id FROM Move");
    folder.Sql("UPDATE Product SET prod_name = 'jinak', deleted = prod_scrid = 2; UPDATE Move SET move_type = 0");
    options.existing = ExistingRecords::Keep;
    RunToEnd(1, 0); // the deleted product comes back
    EXPECT_EQ("jinak|0 Děvče|0 jinak|0", folder.AskAll("SELECT prod_name, deleted FROM Product ORDER BY prod_scrid"));
    EXPECT_EQ("0 0", folder.AskAll("SELECT move_type FROM Move"));

    options.existing = ExistingRecords::Ask;
    questions.answers = {Answer::YesToAll, Answer::No, Answer::YesToAll};
    RunToEnd(2, 1);
    EXPECT_EQ(
        (QStringList{"Produkt \"Žluťoučký kůň, kat.č. ŽK-1\" byl již z WAK importován. Přejete si jej aktualizovat?",
                     "Doklad \"Č10\" byl již z Money importován. Přejete si jej aktualizovat?",
                     "Doklad \"Č12\" byl již z Money importován. Přejete si jej aktualizovat?"}),
        questions.asked);
    EXPECT_EQ("0 2", folder.AskAll("SELECT move_type FROM Move ORDER BY move_id"));

    options.existing = ExistingRecords::Overwrite;
    RunToEnd(2, 2);
    folder.Sql("UPDATE Product SET prod_name = '\?\?\?' WHERE prod_scrid = 99");
    EXPECT_EQ(before, folder.AskAll(Products) + folder.AskAll(Documents) + folder.AskAll(Lines));
    EXPECT_EQ(ids, folder.AskAll("SELECT move_id FROM Move"));
}

TEST_F(WakImport, OnlyThePhasesThatAreChosen) {
    server.Start();
    options.products = false;
    RunToEnd(3, 2);
    EXPECT_EQ("??? ??? ???", folder.AskAll("SELECT prod_name FROM Product"));
    options.products = true;
    options.documents = false;
    server.TakeStatements();
    RunToEnd(2, 0);
    EXPECT_EQ(3U, server.TakeStatements().size());
    options.products = false;
    EXPECT_TRUE(Run().IsSilent());
}

TEST_F(WakImport, SaysWhatFailedAndKeepsWhatWasWritten) {
    struct Row {
        const char* name;
        std::function<void(TdsServer&)> spoil;
        const char* code;
        const char* text;
        int products;
        int documents;
    };
    const auto error = [](TdsTable TdsServer::*table, std::size_t after, int number, const char* text) {
        return [=](TdsServer& s) {
            (s.*table).fault = Fault::Error;
            (s.*table).faultAfter = after;
            (s.*table).errorNumber = number;
            (s.*table).errorText = text;
        };
    };
    const Row rows[] = {
        {"no pol_mj", error(&TdsServer::products, 0, 208, "Invalid object name 'pol_mj'."), "80040E37",
         "Invalid object name 'pol_mj'.", 0, 0},
        {"no routine", error(&TdsServer::documents, 0, 2812, "Could not find stored procedure 'DoklSkl_Pre'."),
         "80040E14", "Could not find stored procedure 'DoklSkl_Pre'.", 2, 0},
        {"locked", error(&TdsServer::documents, 3, 1222, "Lock request time out period exceeded."), "80040E31",
         "Lock request time out period exceeded.", 2, 0},
        {"no key", [](TdsServer& s) { s.documents.rows[4][5].reset(); }, "80020005", "Pole nPol není vyplněno.", 3, 2},
        {"key too long",
         [](TdsServer& s) {
             s.products.columns[0].type = "bigint";
             s.products.rows[1][0] = "4294967297";
         },
         "80020005", "Hodnota neodpovídá typu pole.", 1, 0},
        {"no column", [](TdsServer& s) { s.products.columns[2].name = "KodPol"; }, "800A0CC1",
         "Položku nelze v kolekci nalézt: IdePol", 0, 0},
        {"session", [](TdsServer& s) { s.refused = "SET LOCK_TIMEOUT 1000"; }, "80040E14",
         "Incorrect syntax near 'SET LOCK_TIMEOUT 1000'.", 0, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        folder.Sql("DELETE FROM Product; DELETE FROM Move; DELETE FROM Move_Prod");
        TdsServer spoiled;
        Fill(spoiled);
        row.spoil(spoiled);
        spoiled.Start();
        options.server = spoiled.Name();
        ExpectError(row.code, row.text);
        ExpectSummary("Během importu došlo k chybě!", row.products, row.documents);
        EXPECT_EQ(ImportResult::End::Failed, Run().end);
        EXPECT_EQ(std::to_string(row.products), folder.Ask("SELECT COUNT(*) FROM Product"));
        EXPECT_EQ(std::to_string(row.documents), folder.Ask("SELECT COUNT(*) FROM Move"));
    }
}

TEST_F(WakImport, ADroppedLineKeepsWhatWasWritten) {
    server.documents.fault = Fault::Drop;
    server.documents.faultAfter = 4;
    server.Start();
    messages.AcceptAny();
    const ImportResult result = Run();
    EXPECT_EQ(ImportResult::End::Failed, result.end);
    ASSERT_EQ(2U, messages.Shown().size());
    EXPECT_TRUE(messages.Shown()[0].text.startsWith("Došlo k chybě COM č.0x80004005\n\n"))
        << messages.Shown()[0].text.toStdString();
    EXPECT_TRUE(
        messages.Shown()[1].text.startsWith("Během importu došlo k chybě!\n\nNaimportováno:\n   Produktů ~ 2\n"));
    EXPECT_EQ("2", folder.Ask("SELECT COUNT(*) FROM Product"));
    EXPECT_EQ("0", folder.Ask("SELECT COUNT(*) FROM Move"));
}

TEST_F(WakImport, WithoutAConnectionThereIsNoSummary) {
    server.Start();
    options.password = "TajneHeslo";
    messages.Expect(QString("Nemohu otevřít databázi 'wak' na serveru '%1'\n\nChyba č.0x80040E4D. "
                            "Login failed for user 'sa'.")
                        .arg(server.Name()),
                    Message::Icon::Error);
    EXPECT_TRUE(Run().IsSilent());
}

TEST_F(WakImport, WithoutTheRecordsetObject) {
    const QString shown = "Došlo k chybě č.0x8007000E\n\nNedostatek paměti";
    server.Start();
    messages.Expect(shown, Message::Icon::Error);
    EXPECT_TRUE(Run(1).IsSilent());
    EXPECT_EQ("0", folder.Ask("SELECT COUNT(*) FROM Product"));
    messages.Expect(shown, Message::Icon::Error);
    ExpectSummary("Import dokončen úspěšně!", 2, 0);
    EXPECT_EQ(ImportResult::End::Done, Run(2).end);
}

TEST_F(WakImport, WithoutTheDriver) {
    messages.AcceptAny();
    const ImportResult result = CarryOutImport([&](ImportCounts& counts) {
        CWakSource source(options, range,
                          std::make_unique<CSqlServerConnection>(CSqlServerConnection::Options{1, "no such driver"}));
        return RunImport(folder.store, source, options, progress, questions, counts);
    });
    EXPECT_EQ(ImportResult::End::Failed, result.end);
    ASSERT_EQ(1U, messages.Shown().size());
    EXPECT_TRUE(messages.Shown()[0].text.startsWith("Došlo k chybě COM č.0x80004003\n\n"));
}

TEST_F(WakImport, CancelledInTheMiddleKeepsWhatWasWritten) {
    server.Start();
    progress.onPosition = [&] {
        if (progress.lines.back() == QStringLiteral("position 33")) // of the first document's first line
            progress.cancelAt = progress.asked + 1;
    };
    ExpectSummary("Import byl přerušen!", 2, 1);
    EXPECT_EQ(ImportResult::End::Cancelled, Run().end);
    EXPECT_EQ("Č10|1|255000", folder.AskAll(Lines));
    EXPECT_EQ("closed", progress.lines.back());
    progress.onPosition = nullptr;
    progress.cancelAt = 0;
    RunToEnd(3, 2);
    EXPECT_EQ("Č10|1|255000 Č10|99|1 Č12|2|-30000", folder.AskAll(Lines));
}

TEST_F(WakImport, CancelIsNoticedWhileTheServerThinks) {
    for (const char* const statement : {"SET LOCK_TIMEOUT 1000", "SELECT * FROM pol_mj"}) {
        TdsServer slow;
        Fill(slow);
        slow.delayMilliseconds = 1000;
        slow.delayed = statement;
        slow.Start();
        options.server = slow.Name();
        progress.cancelAt = progress.asked + 3;
        progress.lines.clear();
        ExpectSummary("Import byl přerušen!", 0, 0);
        Run();
        EXPECT_EQ(3U, progress.lines.size()); // title, range, closed: no phase
    }
}

TEST_F(WakImport, KilledItLeavesWholeDocumentsAndCompletesLater) {
    constexpr int DocumentCount = 400;
    constexpr int LineCount = 5;
    options.existing = ExistingRecords::Keep;
    server.documents.rows.clear();
    for (int document = 0; document < DocumentCount; ++document) {
        for (int line = 0; line < LineCount; ++line)
            server.documents.rows.push_back({std::to_string(document), "PRO", "D" + std::to_string(document),
                                             "2023-11-11 00:00:00", "0", std::to_string(line), "1.5"});
    }
    folder.store.CloseDatabase();
    int steps[2];
    ASSERT_EQ(0, pipe(steps));
    // The child is made while this process has one thread; the line it opens waits until the server starts.
    const pid_t child = fork();
    if (child == 0) {
        progress.onPosition = [&] {
            usleep(15'000);
            if (write(steps[1], "", 1) != 1)
                _exit(1);
        };
        if (!folder.store.OpenDatabase())
            _exit(1);
        ImportCounts counts;
        CWakSource source(options, range);
        RunImport(folder.store, source, options, progress, questions, counts);
        _exit(0);
    }
    close(steps[1]);
    server.Start();
    // By then the second at whose end the import commits is over.
    char step = 0;
    for (int i = 0; i < 120; ++i)
        ASSERT_EQ(1, read(steps[0], &step, 1));
    kill(child, SIGKILL);
    close(steps[0]);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_TRUE(folder.store.OpenDatabase(true));
    const int kept = std::stoi(folder.Ask("SELECT COUNT(*) FROM Move"));
    EXPECT_GT(kept, 0);
    EXPECT_LT(kept, DocumentCount);
    const char* const broken = "SELECT COUNT(*) FROM Move WHERE (SELECT COUNT(*) FROM Move_Prod p WHERE p.move_id = "
                               "Move.move_id) <> 5";
    EXPECT_EQ("0", folder.Ask(broken));
    RunToEnd(0, DocumentCount - kept);
    EXPECT_EQ("0", folder.Ask(broken));
    EXPECT_EQ(std::to_string(DocumentCount * LineCount), folder.Ask("SELECT COUNT(*) FROM Move_Prod"));
}
