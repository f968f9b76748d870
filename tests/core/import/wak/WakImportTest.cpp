#include "core/import/wak/WakImport.h"
#include "core/import/Import.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"
#include "tests/support/TdsServer.h"

#include <gtest/gtest.h>

namespace {

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

    Answer Ask(const OverwriteQuestion& question) override {
        asked.append(question.text);
        EXPECT_LE(asked.size(), static_cast<qsizetype>(answers.size())) << question.text.toStdString();
        return asked.size() <= static_cast<qsizetype>(answers.size())
                   ? answers[static_cast<std::size_t>(asked.size() - 1)]
                   : Answer::No;
    }
};

/// Cannot make the n-th recordset.
struct FailingConnection : CSqlServerConnection {
    bool OpenRecordset(SqlServerRowsPtr& rows, std::string_view source, SourceType type,
                       const std::vector<std::string>& columns, const std::function<void()>& alive) override {
        return --nth != 0 && CSqlServerConnection::OpenRecordset(rows, source, type, columns, alive);
    }
    int nth = 0;
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
            auto connection = std::make_unique<FailingConnection>();
            connection->nth = failingRecordset;
            CWakSource source(options, range, std::move(connection));
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

TEST_F(WakImport, AsksAboutWhatIsThere) {
    server.Start();
    RunToEnd(3, 2);
    const std::string before = folder.AskAll(Products) + folder.AskAll(Documents) + folder.AskAll(Lines);
    folder.Sql("UPDATE Product SET prod_name = 'jinak', deleted = prod_scrid = 2 WHERE prod_scrid < 3;"
               "UPDATE Move SET move_type = 0");
    options.existing = ExistingRecords::Ask;
    questions.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
    RunToEnd(2, 2); // the deleted product comes back unasked
    EXPECT_EQ(
        (QStringList{"Produkt \"Žluťoučký kůň, kat.č. ŽK-1\" byl již z WAK importován. Přejete si jej aktualizovat?",
                     "Doklad \"Č10\" byl již z Money importován. Přejete si jej aktualizovat?",
                     "Doklad \"Č12\" byl již z Money importován. Přejete si jej aktualizovat?"}),
        questions.asked);
    EXPECT_EQ(before, folder.AskAll(Products) + folder.AskAll(Documents) + folder.AskAll(Lines));
}

TEST_F(WakImport, SaysWhatFailedAndKeepsWhatWasWritten) {
    const auto error = [](std::size_t after, int number, const char* text) {
        return [=](TdsServer& s) {
            s.documents.fault = TdsTable::Fault::Error;
            s.documents.faultAfter = after;
            s.documents.errorNumber = number;
            s.documents.errorText = text;
        };
    };
    const std::tuple<const char*, std::function<void(TdsServer&)>, const char*, const char*, int, int> rows[] = {
        {"no routine", error(0, 2812, "Could not find stored procedure 'DoklSkl_Pre'."), "80040E14",
         "Could not find stored procedure 'DoklSkl_Pre'.\nDatabáze neobsahuje, co se z ní má číst. Ověřte, že je to "
         "databáze "
         "systému WAK INTRA.",
         2, 0},
        {"locked", error(3, 1222, "Lock request time out period exceeded."), "80040E31",
         "Lock request time out period exceeded.\nData má zamčena jiný uživatel systému WAK INTRA. Opakujte import "
         "později.",
         2, 0},
        {"no key", [](TdsServer& s) { s.documents.rows[4][5].reset(); }, "80020005",
         "Tabulka \"DoklSkl_Pre\", záznam 5, doklad \"Č12\", pole \"nPol\": není vyplněno.", 3, 1},
        {"no number",
         [](TdsServer& s) {
             s.documents.columns[6].type = "varchar";
             s.documents.rows[1][6] = "abc";
         },
         "80020005",
         "Tabulka \"DoklSkl_Pre\", záznam 2, doklad \"Č10\", pole \"MnoPol\": hodnotu \"abc\" nelze přečíst.", 2, 0},
        {"no number of ours",
         [](TdsServer& s) {
             s.documents.columns[6].type = "float";
             s.documents.rows[4][6] = "1e30";
         },
         "80020005",
         "Tabulka \"DoklSkl_Pre\", záznam 5, doklad \"Č12\", pole \"MnoPol\": hodnotu \"1e+30\" nelze přečíst.", 3, 1},
        {"half a document",
         [](TdsServer& s) {
             s.documents.columns[0].type = "float";
             s.documents.rows[0][0] = "1.5";
         },
         "80020005", "Tabulka \"DoklSkl_Pre\", záznam 1, pole \"nDoklSkl\": hodnotu \"1.5\" nelze přečíst.", 2, 0},
        {"key too long",
         [](TdsServer& s) {
             s.products.columns[0].type = "bigint";
             s.products.rows[1][0] = "4294967297";
         },
         "80020005", "Tabulka \"pol_mj\", záznam 2, pole \"nPol\": hodnotu \"4294967297\" nelze přečíst.", 1, 0},
        {"no column", [](TdsServer& s) { s.products.columns[2].name = "KodPol"; }, "800A0CC1",
         "Položku nelze v kolekci nalézt: IdePol", 0, 0},
    };
    for (const auto& [name, spoil, code, text, products, documents] : rows) {
        SCOPED_TRACE(name);
        folder.Sql("DELETE FROM Product; DELETE FROM Move; DELETE FROM Move_Prod");
        TdsServer spoiled;
        Fill(spoiled);
        spoil(spoiled);
        spoiled.Start();
        options.server = spoiled.Name();
        ExpectError(code, text);
        ExpectSummary("Během importu došlo k chybě!", products, documents);
        EXPECT_EQ(ImportResult::End::Failed, Run().end);
        EXPECT_EQ(std::to_string(products), folder.Ask("SELECT COUNT(*) FROM Product"));
        EXPECT_EQ(std::to_string(documents), folder.Ask("SELECT COUNT(*) FROM Move"));
    }
}

TEST_F(WakImport, ADocumentsNumberMayBeLongerThanAKey) {
    server.documents.columns[0].type = "bigint";
    server.documents.rows.erase(server.documents.rows.begin() + 2);
    for (std::size_t i = 0; i < server.documents.rows.size(); ++i)
        server.documents.rows[i][0] = i < 2 ? "9999999999" : "1410065407"; // the same in its lower 32 bits
    server.Start();
    RunToEnd(3, 2);
    EXPECT_EQ("Č10|1|255000 Č10|99|1 Č11|1|10000 Č11|2|-30000 Č11|2|10000", folder.AskAll(Lines));
}

TEST_F(WakImport, WithoutTheRecordsetObject) {
    server.Start();
    EXPECT_TRUE(Run(1).IsSilent());
    ExpectSummary("Import dokončen úspěšně!", 2, 0);
    EXPECT_EQ(ImportResult::End::Done, Run(2).end);
}

TEST_F(WakImport, CancelledInTheMiddleOfADocumentEndsAfterIt) {
    server.Start();
    progress.onPosition = [&] {
        if (progress.lines.back() == QStringLiteral("position 33")) // of the first document's first line
            progress.cancelAt = progress.asked + 1;
    };
    ExpectSummary("Import byl přerušen!", 3, 1);
    EXPECT_EQ(ImportResult::End::Cancelled, Run().end);
    EXPECT_EQ("Č10|1|255000 Č10|99|1", folder.AskAll(Lines));
    EXPECT_EQ("closed", progress.lines.back());
    progress.onPosition = nullptr;
    progress.cancelAt = 0;
    options.existing = ExistingRecords::Keep;
    RunToEnd(0, 1);
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
