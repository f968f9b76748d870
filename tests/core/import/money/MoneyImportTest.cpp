#include "core/import/money/MoneyImport.h"
#include "core/base/ComError.h"
#include "core/import/money/MoneyTable.h"
#include "tests/support/MemoryMoneyTable.h"
#include "tests/support/MoneyFolder.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <QProcess>

namespace {

using End = ImportResult::End;

QString Czech(const char* text) {
    return QString::fromUtf8(text);
}

/// The import from Money's component, as the test's memory plays it.
struct MoneyPhases : testing::Test, StoreFolder {
    ScriptedMessages messages;
    MemoryMoney money;
    MoneyOptions options;
    RecordedProgress progress;

    MoneyPhases() {
        money.tables["SKKMKART.DAT"].columns = {"Cislo", "Popis", "Katalog", "MJ"};
        money.tables["SKSEZDOK.DAT"].columns = {"CDokladu", "CisloDokla", "Datum", "Typ", "A_Stat"};
        money.tables["VFAKTURY.DAT"].columns = {"Cislo", "Doklad", "DatSkPoh", "Storno", "FlagDel", "O_Stat"};
        money.tables["SKSEZPOL.DAT"].columns = {"TypDokladu", "CDokladu", "CKmenKarty", "Nazev",
                                                "Katalog",    "MJ",       "PocetMJ"};
    }
    static DateTime Day() { return DateTime::FromDay(2012, 5, 1); }
    void AddCard(int number, const char* name) {
        money.tables["SKKMKART.DAT"].rows.push_back({number, Czech(name), Czech("K"), Czech("ks")});
    }
    void AddDocument(int number, const char* text, const char* kind, const char* country = "") {
        money.tables["SKSEZDOK.DAT"].rows.push_back({number, Czech(text), Day(), Czech(kind), Czech(country)});
    }
    void AddInvoice(int number, const char* text, const Variant& storno = 0, const Variant& deleted = false,
                    const char* country = "") {
        money.tables["VFAKTURY.DAT"].rows.push_back({number, Czech(text), Day(), storno, deleted, Czech(country)});
    }
    void AddLine(const char* kind, int document, int card = 1) {
        money.tables["SKSEZPOL.DAT"].rows.push_back(
            {Czech(kind), document, card, Czech("Z řádku"), Czech("L"), Czech("m"), Currency::FromCount(15001)});
    }
    ImportResult Run() {
        return CarryOutImport([this](ImportCounts& counts) {
            CMoneySource source({{}, "/agenda/", {}, "/agenda/rok/"}, options);
            return RunImport(store, source, options, progress, NobodyToAsk(), counts);
        });
    }
};

TEST_F(MoneyPhases, EachKindOfDocumentHasItsType) {
    // Kind of the line, its document, number and type of the issue ("none" when it is not imported).
    const std::tuple<const char*, std::function<void()>, const char*> cases[] = {
        {"S", [&] { AddDocument(7, "D", "V"); }, "D|3"},
        {"s", [&] { AddDocument(7, "D", "v"); }, "D|3"},
        {"S", [&] { AddDocument(7, "D", "d"); }, "D|0"},
        {"S", [&] { AddDocument(7, "D", "P"); }, "D|2"},
        {"S", [&] { AddDocument(7, "D", "X"); }, ""},
        {"S", [&] { AddDocument(8, "D", "V"); }, ""},
        {"V", [&] { AddInvoice(7, "F"); }, "F|1"},
        {"V", [&] { AddInvoice(7, "F", 1); }, ""},
        {"V", [&] { AddInvoice(7, "F", Currency::FromCount(1)); }, ""},
        {"V", [&] { AddInvoice(7, "F", 0, true); }, ""},
        {"V", [&] { AddInvoice(7, "F", Variant(), Variant()); }, "F|1"},
        {"V", [&] { AddDocument(7, "D", "V"); }, ""},
        {"X", [&] { AddDocument(7, "D", "V"); }, ""},
    };
    for (const auto& [kind, document, move] : cases) {
        Sql("DELETE FROM Move; DELETE FROM Move_Prod");
        for (auto& [name, table] : money.tables)
            table.rows.clear();
        AddLine(kind, 7);
        document();
        EXPECT_EQ(End::Done, Run().end);
        EXPECT_EQ(move, AskAll("SELECT move_num, move_type FROM Move")) << kind;
        EXPECT_EQ(*move == '\0' ? "0" : "1", Ask("SELECT count(*) FROM Move_Prod")) << kind;
    }
}

TEST_F(MoneyPhases, TheCountrySaysWhatIsAnExport) {
    const char* usual = ";Česká republika ;ČR";
    const std::tuple<const char*, bool, const char*, const char*> cases[] = {
        {usual, true, "  česká republika ", "0"},
        {usual, true, "", "0"},
        {usual, true, "Slovensko", "1"},
        {usual, true, "Ceska republika", "1"},
        {usual, false, "Slovensko", "0"},
        {"CZ;", true, "cz", "0"},
        {"CZ;", true, "", "1"},
        {"", true, "", "1"},
        {";", true, "", "0"},
    };
    for (const auto& [domestic, setExport, country, isExport] : cases) {
        Sql("DELETE FROM Move");
        for (auto& [name, table] : money.tables)
            table.rows.clear();
        AddLine("S", 1);
        AddDocument(1, "D", "V", country);
        AddLine("V", 1);
        AddInvoice(1, "F", 0, false, country);
        options.domestic = Czech(domestic);
        options.setExport = setExport;
        EXPECT_EQ(End::Done, Run().end);
        const std::string both = std::string(isExport) + " " + isExport;
        EXPECT_EQ(both, AskAll("SELECT move_export FROM Move")) << domestic << " " << country;
    }
}

TEST_F(MoneyPhases, TheDomesticNamesTurnToUpperCase) {
    AddLine("X", 1);
    options.documents = false;
    Run();
    EXPECT_EQ(";Česká republika ;ČR", options.domestic.toStdString());
    options.documents = true;
    options.setExport = false;
    Run();
    EXPECT_EQ(";ČESKÁ REPUBLIKA ;ČR", options.domestic.toStdString());
}

TEST_F(MoneyPhases, ATableThatCannotBeHadEndsItsPhase) {
    // The missing table; null where the object cannot be made.
    const std::tuple<const char*, int, QString, QString, End, int> cases[] = {
        {"SKKMKART.DAT", -1, {}, "Nemohu otevřít tabulku Money \"/agenda/SKKMKART.DAT\"", End::Nothing, 0},
        {"SKSEZPOL.DAT", -1, {}, "Nemohu otevřít tabulku Money \"/agenda/rok/SKSEZPOL.DAT\"", End::Done, 1},
        {"VFAKTURY.DAT", -1, {}, "Nemohu otevřít tabulku Money \"/agenda/rok/VFAKTURY.DAT\"", End::Done, 1},
        {nullptr, 0, "Není.", "Nemohu otevřít tabulku Money \"/agenda/SKKMKART.DAT\"\nNení.", End::Nothing, 0},
        {nullptr, 2, {}, "Nemohu otevřít tabulku Money \"/agenda/rok/SKSEZDOK.DAT\"\nNeznámá chyba", End::Done, 1},
    };
    AddCard(1, "a");
    AddLine("S", 1);
    const auto tables = money.tables;
    for (const auto& [missing, objects, refusal, message, end, phases] : cases) {
        money.tables = tables;
        if (missing != nullptr)
            money.tables.erase(QString::fromUtf8(missing));
        money.objects = objects;
        money.refusal = refusal;
        progress.lines.clear();
        messages.Expect(message, Message::Icon::Error);
        EXPECT_EQ(end, Run().end);
        const auto isPhase = [](const QString& line) { return line.startsWith("phase "); };
        EXPECT_EQ(phases, std::count_if(progress.lines.begin(), progress.lines.end(), isPhase));
    }
}

TEST_F(MoneyPhases, WhatCannotBeReadEndsTheImportAndNamesItsPlace) {
    using Rows = std::vector<std::vector<Variant>>;
    // A line of which it cannot be told whether it belongs to D1 leaves D1 out.
    const std::tuple<const char*, std::function<void(Rows&)>, const char*, const char*> cases[] = {
        {"SKKMKART.DAT", [](Rows& rows) { rows[1][0] = Czech("x"); },
         "Tabulka \"SKKMKART.DAT\", záznam 2, pole \"Cislo\": hodnotu \"x\" nelze přečíst.", "1+0"},
        {"SKSEZPOL.DAT", [](Rows& rows) { rows[2][1] = Currency::FromCount(15000); },
         "Tabulka \"SKSEZPOL.DAT\", záznam 3, pole \"CDokladu\": hodnotu \"1,5\" nelze přečíst.", "2+0"},
        {"SKSEZPOL.DAT", [](Rows& rows) { rows[1][6] = Czech("abc"); },
         "Tabulka \"SKSEZPOL.DAT\", záznam 2, doklad \"D1\", pole \"PocetMJ\": hodnotu \"abc\" nelze přečíst.", "2+0"},
        {"SKSEZPOL.DAT", [](Rows& rows) { rows[2][2] = 1.5; },
         "Tabulka \"SKSEZPOL.DAT\", záznam 3, doklad \"D2\", pole \"CKmenKarty\": hodnotu \"1.5\" nelze přečíst.",
         "2+1"},
        {"SKSEZDOK.DAT", [](Rows& rows) { rows[1][2] = Czech("31.2.2012"); },
         "Tabulka \"SKSEZDOK.DAT\", záznam 2, doklad \"D2\", pole \"Datum\": hodnotu \"31.2.2012\" nelze přečíst.",
         "2+1"},
    };
    AddCard(1, "a");
    AddCard(2, "b");
    AddDocument(1, "D1", "V");
    AddDocument(2, "D2", "V");
    for (const int document : {1, 1, 2})
        AddLine("S", document);
    const auto tables = money.tables;
    for (const auto& [table, spoil, text, counted] : cases) {
        Sql("DELETE FROM Move; DELETE FROM Move_Prod; DELETE FROM Product");
        money.tables = tables;
        spoil(money.tables[QString::fromUtf8(table)].rows);
        messages.Expect(QStringLiteral("Došlo k chybě COM č.0x80020005\n\n") + QString::fromUtf8(text),
                        Message::Icon::Error);
        const ImportResult result = Run();
        EXPECT_EQ(End::Failed, result.end);
        EXPECT_EQ(counted, std::to_string(result.counts.products) + "+" + std::to_string(result.counts.documents));
        EXPECT_EQ(result.counts.documents == 0 ? "0" : "2", Ask("SELECT count(*) FROM Move_Prod")) << text;
    }
}

TEST_F(MoneyPhases, EmptyTablesShowNoPhase) {
    EXPECT_EQ(End::Done, Run().end);
    EXPECT_EQ("title Import dat z Money S3 (cancel)|range 0 200|closed",
              QStringList(progress.lines.begin(), progress.lines.end()).join(u'|').toStdString());
    AddCard(1, "a");
    Run();
    EXPECT_EQ("phase Importuji kmenové karty", progress.lines[5].toStdString());
}

TEST_F(MoneyPhases, AComponentThatIsNotThereIsRegisteredOnce) {
    EXPECT_TRUE(MoneyComponentReady());
    money.objects = 0;
    messages.Expect("File doesn't exist!\nmon2kdbe.dll", Message::Icon::Error);
    messages.Expect("Nemohu najít komponentu Money (mon2kdbe.dll)!", Message::Icon::Error);
    EXPECT_FALSE(MoneyComponentReady());
    // Registering may help.
    messages.Expect("File doesn't exist!\nmon2kdbe.dll", Message::Icon::Error);
    messages.Meanwhile([&] { money.objects = -1; });
    EXPECT_TRUE(MoneyComponentReady());
}

/// A year in files, its cards marked with this code page and named by memos.
struct MoneyFiles : testing::Test, StoreFolder {
    MoneyFolder money;
    ScriptedMessages messages;

    void WriteCards(unsigned char mark, const QByteArray& memo) {
        DbfBytes cards{{{"Cislo", 'N', 10}, {"Popis", 'M', 10}, {"Katalog", 'C', 20}, {"MJ", 'C', 10}}, {}, {}};
        cards.rows = {{"1", "1", "K\x91", "ks"}};
        cards.kind = 0x83;
        cards.codePageMark = mark;
        money.WriteTable("d:/Agenda.1/SKKMKART.DAT", cards);
        WriteFile(money.Path("d:/Agenda.1/SKKMKART.DBT"), QByteArray(512, '\0') + memo + '\x1A');
    }
    ImportResult Run() {
        return CarryOutImport([this](ImportCounts& counts) {
            MoneyOptions options;
            options.documents = false;
            CMoneySource source({{}, money.Path("d:/Agenda.1/"), {}, money.Path("d:/Agenda.1/Rok.1/")}, options);
            return RunImport(store, source, options, SilentProgress(), NobodyToAsk(), counts);
        });
    }
};

TEST_F(MoneyFiles, NamesComeFromMemosInTheCodePageOfTheTable) {
    WriteCards(0x68, "\x87"
                     "aj\r\nsypan\x98");
    EXPECT_EQ(End::Done, Run().end);
    EXPECT_EQ("čaj sypaný|Kž|ks", AskAll("SELECT prod_name, prod_katalog, prod_unit FROM Product"));
}

TEST_F(MoneyFiles, WrongLettersAreRefused) {
    WriteCards(0xEE, "x");
    messages.Expect(QStringLiteral("Došlo k chybě COM č.0x80004005\n\nTabulka \"%1\" je v kódové stránce, kterou "
                                   "program nezná (LDID/238).")
                        .arg(money.Path("d:/Agenda.1/SKKMKART.DAT")),
                    Message::Icon::Error);
    EXPECT_EQ(End::Failed, Run().end);
    EXPECT_EQ("0", Ask("SELECT count(*) FROM Product"));
}

/// Writes the tables with an office, from CSV with the field types in the headings.
void WriteByOffice(const MoneyFolder& money, const std::map<QString, QString>& tables) {
    const QString folder = money.Path("office");
    QStringList arguments{"--headless",
                          "-env:UserInstallation=file://" + folder + "/profile",
                          "--infilter=CSV:44,34,76,1",
                          "--convert-to",
                          "dbf:dBase:33",
                          "--outdir",
                          folder + "/out"};
    for (const auto& [path, text] : tables) {
        const QString name = path.section('/', -1).replace(".DAT", ".csv");
        money.Write("office/" + name, {});
        WriteFile(folder + '/' + name, text.toUtf8());
        arguments.append(folder + '/' + name);
    }
    QProcess office;
    office.setProcessChannelMode(QProcess::MergedChannels);
    office.start("soffice", arguments);
    ASSERT_TRUE(office.waitForFinished(60000)) << "soffice does not end";
    for (const auto& [path, text] : tables) {
        const QString written = folder + "/out/" + path.section('/', -1).replace(".DAT", ".dbf");
        money.Write(path, {});
        WriteFile(money.Path(path), FileBytes(written));
    }
    EXPECT_EQ(0, office.exitCode()) << office.readAll().constData();
}

/// A company of two agendas; the tables of one of its years are written by a program that is not ours.
struct MoneyImport : testing::Test, StoreFolder {
    MoneyFolder money;
    ScriptedMessages messages;
    MoneyOptions options;

    MoneyImport() {
        money.Install('d', "D:\\Data\\");
        money.AddAgenda("d:/Data/Agenda.001", "Kuvel & syn");
        money.AddYear("d:/Data/Agenda.001/Rok.2012", "2012");
    }
    std::string Import(ExistingRecords policy) {
        const ImportResult result = CarryOutImport([&](ImportCounts& counts) {
            options.existing = policy;
            const std::optional<MoneyYear> year = MoneyYearOfFolder("D:\\data\\agenda.001\\ROK.2012");
            CMoneySource source(year.value(), options);
            return RunImport(store, source, options, SilentProgress(), NobodyToAsk(), counts);
        });
        EXPECT_EQ(End::Done, result.end);
        return std::to_string(result.counts.products) + "+" + std::to_string(result.counts.documents);
    }
};

TEST_F(MoneyImport, TakesOverAYearWrittenByAnotherProgram) {
    WriteByOffice(money,
                  {{"d:/Data/Agenda.001/SKKMKART.DAT", "\"CISLO,N,10,0\",\"POPIS,C,40\",\"KATALOG,C,20\",\"MJ,C,10\"\n"
                                                       "11,Žluťoučký kůň,EAN 1,ks\n"
                                                       "12,\"Šroub \"\"M6\"\", dlouhý\",ŠR-6,bal\n"},
                   {"d:/Data/Agenda.001/Rok.2012/SKSEZDOK.DAT",
                    "\"CDOKLADU,N,10,0\",\"CISLODOKLA,C,10\",\"DATUM,D\",\"TYP,C,1\",\"A_STAT,C,30\"\n"
                    "5,V0005,2012-04-01,v,Česká republika\n"
                    "3,D0003,2012-04-02,D,Slovensko\n"
                    "4,?0004,2012-04-02,X,\n"},
                   {"d:/Data/Agenda.001/Rok.2012/VFAKTURY.DAT",
                    "\"CISLO,N,10,0\",\"DOKLAD,C,10\",\"DATSKPOH,D\",\"STORNO,N,2,0\",\"FLAGDEL,L\",\"O_STAT,C,30\"\n"
                    "5,F0005,2012-04-30,0,FALSE,Německo\n"
                    "6,F0006,2012-04-30,1,FALSE,\n"
                    "7,F0007,2012-04-30,0,TRUE,\n"},
                   {"d:/Data/Agenda.001/Rok.2012/SKSEZPOL.DAT",
                    "\"TYPDOKLADU,C,1\",\"CDOKLADU,N,10,0\",\"CISLOPOLOZ,N,6,0\",\"CKMENKARTY,N,10,0\",\"NAZEV,C,40\","
                    "\"KATALOG,C,20\",\"MJ,C,10\",\"POCETMJ,N,16,4\"\n"
                    "S,5,2,12,x,x,x,0.0001\n"
                    "V,5,1,99,Řezaná tyč,TYČ,m,1234567.8901\n"
                    "S,3,1,11,x,x,x,-2.5\n"
                    "S,5,1,11,x,x,x,10\n"
                    "S,4,1,98,x,x,x,1\n"
                    "V,6,1,98,x,x,x,1\n"
                    "V,7,1,98,x,x,x,1\n"
                    "V,8,1,98,x,x,x,1\n"}});
    const auto expected = [this](const char* name) {
        EXPECT_EQ(std::string("11|") + name + "|EAN 1|ks 12|Šroub \"M6\", dlouhý|ŠR-6|bal 99|Řezaná tyč|TYČ|m",
                  AskAll("SELECT prod_scrid, prod_name, prod_katalog, prod_unit FROM Product"));
        EXPECT_EQ("D0003|2012-04-02 00:00:00|0|1|11|-25000 V0005|2012-04-01 00:00:00|3|0|11|100000 "
                  "V0005|2012-04-01 00:00:00|3|0|12|1 F0005|2012-04-30 00:00:00|1|1|99|12345678901",
                  AskAll("SELECT move_num, move_date, move_type, move_export, prod_scrid, mvprod_qty FROM Move "
                         "JOIN Move_Prod USING (move_id) JOIN Product USING (prod_id) ORDER BY mvprod_id"));
    };
    EXPECT_EQ("3+3", Import(ExistingRecords::Keep));
    expected("Žluťoučký kůň");
    Sql("UPDATE Product SET prod_name = 'by hand' WHERE prod_scrid = 11");
    EXPECT_EQ("0+0", Import(ExistingRecords::Keep));
    expected("by hand");
    EXPECT_EQ("0+0", Import(ExistingRecords::Ask));
    expected("by hand");
    EXPECT_EQ("2+3", Import(ExistingRecords::Overwrite));
    expected("Žluťoučký kůň");
    EXPECT_EQ("2+3", Import(ExistingRecords::Overwrite));
    expected("Žluťoučký kůň");
    EXPECT_EQ("1 2 3", AskAll("SELECT move_id FROM Move ORDER BY move_id"));
}

} // namespace
