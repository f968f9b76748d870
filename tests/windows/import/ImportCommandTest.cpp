#include "core/base/AppDir.h"
#include "core/base/CodePage.h"
#include "core/import/wak/WakOptions.h"
#include "tests/support/Kuvelctl.h"
#include "tests/support/MemoryMoneyTable.h"
#include "tests/support/MoneyFolder.h"
#include "tests/support/TdsServer.h"
#include "tests/windows/support/Driver.h"
#include "tests/windows/support/FrameFolder.h"
#include "windows/frame/FrameCommands.h"
#include "windows/frame/doors/Desktop.h"
#include "windows/frame/doors/ProgressDlg.h"
#include "windows/frame/doors/ProgressDoor.h"
#include "windows/widgets/DisabledWindow.h"

#include <gtest/gtest.h>

namespace {

const QString Year = QStringLiteral("d:/Data/Agenda.001/Rok.2012");

/// Products with packaging, some of them imported before.
const char* const Packaging =
    "INSERT INTO Product (prod_id, prod_name, prod_source, prod_scrid, deleted) VALUES (1, 'starý', 1, 1, 0),"
    "(2, 'smazaný', 1, 2, 1), (3, 'starý', 2, 1, 0), (4, 'smazaný', 2, 2, 1);"
    "INSERT INTO Prod_CoverDT SELECT prod_id, prod_id, '2012-01-01 00:00:00' FROM Product;"
    "INSERT INTO Prod_Cover SELECT NULL, prod_id, 5, 10000, 20000, 1, 0, 0, 1, 1, 1 FROM Product";

QString Summary(const char* status, int products, int documents) {
    return QStringLiteral("%1\n\nNaimportováno:\n   Produktů ~ %2\n   Dokladů ~ %3")
        .arg(QString::fromUtf8(status))
        .arg(products)
        .arg(documents);
}

/// What is done twice in a row: the answers in the window, what `kuvelctl` is told (null for nothing), and
/// what the summaries count.
struct Policy {
    const char* radio;
    std::vector<const char*> first;
    std::vector<const char*> second;
    const char* existing;
    int products[2];
    int documents[2];
};

/// The main window with its commands, beside a second company that the command-line program works on.
struct Imports : testing::Test {
    StoreFolder other;
    FrameFolder window;
    CProgressDoor progress{*window.frame};

    Imports() {
        SetUpDesktop();
        InstallFrameCommands(*window.frame, progress);
        window.f.Sql(Packaging);
        other.Sql(Packaging);
    }

    /// The wizard, with this done on its second page, then one answer after the other to its questions.
    void Import(Command command, const std::function<void(QWidget&)>& source,
                const std::function<void(QWidget&)>& parameters, const std::vector<const char*>& answers = {}) {
        Steps steps;
        steps.Then([&](QWidget& sheet) {
            source(sheet);
            Click(sheet, "next");
            parameters(sheet);
            Click(sheet, "finish");
        });
        for (const char* const answer : answers)
            steps.Then([answer](QWidget& question) { Click(question, answer); });
        window.frame->Action(command)->trigger();
    }
    void ExpectSummary(const QString& text) { window.messages.Expect(text, Message::Icon::Information); }
    std::vector<ViewMessage> TakeNews() const { return std::exchange(window.View().received, {}); }

    /// Imports twice in a row, each time in the window and, into the second company, by `kuvelctl`; both write the
    /// same.
    void ExpectSame(Command command, const std::function<void(QWidget&)>& source, const std::vector<Policy>& policies,
                    const std::function<CtlResult(const char* existing)>& run) {
        for (const Policy& policy : policies) {
            SCOPED_TRACE(policy.radio);
            for (const StoreFolder* folder : {&window.f, &other}) {
                folder->Sql("DELETE FROM Move; DELETE FROM Move_Prod; DELETE FROM Move_Cover; DELETE FROM Product;"
                            "DELETE FROM Prod_Cover; DELETE FROM Prod_CoverDT");
                folder->Sql(Packaging);
            }
            TakeNews();
            for (const int time : {0, 1}) {
                const QString summary =
                    Summary("Import dokončen úspěšně!", policy.products[time], policy.documents[time]);
                ExpectSummary(summary);
                Import(
                    command, source, [&](QWidget& sheet) { Click(sheet, policy.radio); },
                    time == 0 ? policy.first : policy.second);
                std::vector<ViewMessage> news;
                if (policy.products[time] > 0)
                    news.push_back(ViewMessage::WM_PRODUCTS_CHANGED);
                if (policy.documents[time] > 0)
                    news.push_back(ViewMessage::WM_MOVES_CHANGED);
                EXPECT_EQ(news, TakeNews());
                if (policy.existing == nullptr)
                    continue;
                EXPECT_EQ(summary + u'\n', run(policy.existing).output);
                EXPECT_EQ(AllRows(other), AllRows(window.f));
            }
        }
    }
};

struct MoneyImports : Imports {
    MoneyFolder money;

    MoneyImports() {
        money.Install('d', QStringLiteral("D:\\Data"));
        money.AddAgenda("d:/Data/Agenda.001", "Firma");
        money.AddYear(Year, "2012");
        DbfBytes cards = StockCards();
        cards.rows = {DbfRow({"1", "Kůň", "K-1", "ks"}), DbfRow({"2", "Čaj", "K-2", "kg"}),
                      DbfRow({"3", "Řepa", "K-3", "t"})};
        money.WriteTable("d:/Data/Agenda.001/SKKMKART.DAT", cards);
        DbfBytes documents = StockDocuments();
        documents.rows = {DbfRow({"1", "V1", "20120401", "V", "Slovensko"}), DbfRow({"2", "D2", "20120402", "d", "ČR"}),
                          DbfRow({"3", "X3", "20120403", "X", ""})};
        money.WriteTable(Year + "/SKSEZDOK.DAT", documents);
        DbfBytes invoices = Invoices();
        invoices.rows = {DbfRow({"1", "F1", "20120404", "0", "F", ""}), DbfRow({"2", "F2", "20120405", "1", "F", ""})};
        money.WriteTable(Year + "/VFAKTURY.DAT", invoices);
        DbfBytes lines = StockLines();
        lines.rows = {DbfRow({"V", "1", "1", "9", "Z řádku", "L", "m", "1.5"}),
                      DbfRow({"S", "2", "2", "2", "x", "x", "x", "-3"}),
                      DbfRow({"S", "1", "1", "1", "x", "x", "x", "25"}),
                      DbfRow({"S", "2", "1", "1", "x", "x", "x", "0.0001"}),
                      DbfRow({"S", "3", "1", "1", "x", "x", "x", "1"}),
                      DbfRow({"V", "2", "1", "1", "x", "x", "x", "1"})};
        money.WriteTable(Year + "/SKSEZPOL.DAT", lines);
    }

    static void ChooseYear(QWidget& sheet) { QTest::keyClick(&Find<QTreeWidget>(sheet, "agendaList"), Qt::Key_Down); }
};

TEST_F(MoneyImports, BothWaysWriteTheSame) {
    CKuvelctl program(other.folder.Path());
    program.SetVariable("KUVEL_DRIVES", money.Path({}));
    ExpectSame(Command::ID_IMPORT_MONEY, ChooseYear,
               {{"overwriteRadio", {}, {}, "overwrite", {4, 3}, {3, 3}},
                {"keepRadio", {}, {}, "keep", {3, 0}, {3, 0}},
                {"askRadio", {"yesButton"}, {"yesToAllButton", "yesToAllButton"}, "overwrite", {4, 3}, {3, 3}},
                {"askRadio", {"noButton"}, {"noToAllButton", "noToAllButton"}, "keep", {3, 0}, {3, 0}}},
               [&](const char* existing) {
                   return program.RunBare({"--home", other.folder.Path(), "import", "money",
                                           QStringLiteral("D:\\Data\\Agenda.001\\Rok.2012"), "--existing",
                                           QString::fromLatin1(existing)});
               });
    EXPECT_EQ("4|3", window.f.AskAll("SELECT (SELECT count(*) FROM Move_Prod), count(*) FROM Move_Cover"));
    // The document phase turns the countries to upper case, and so they are stored.
    EXPECT_TRUE(DecodeWindows1250(FileBytes(window.f.folder.File("kuvel.ini")))
                    .contains(QStringLiteral("Neexportni zeme=;ČESKÁ REPUBLIKA ;ČR\r\n")));
}

TEST_F(MoneyImports, WithoutItsComponentNoWizardComes) {
    MemoryMoney component;
    component.objects = 0;
    window.messages.Expect(QStringLiteral("File doesn't exist!\nmon2kdbe.dll"), Message::Icon::Error);
    window.messages.Expect(QStringLiteral("Nemohu najít komponentu Money (mon2kdbe.dll)!"), Message::Icon::Error);
    window.frame->Action(Command::ID_IMPORT_MONEY)->trigger();
    EXPECT_FALSE(QFile::exists(window.f.folder.File("kuvel.ini")));
}

TEST_F(MoneyImports, WhatEndsWithoutASummaryTellsNobody) {
    const std::string before = AllRows(window.f);
    {
        Steps steps;
        steps.Then([](QWidget& sheet) { QTest::keyClick(&sheet, Qt::Key_Escape); });
        window.frame->Action(Command::ID_IMPORT_MONEY)->trigger();
    }
    QFile::remove(money.Path("d:/Data/Agenda.001/SKKMKART.DAT"));
    window.messages.Expect(
        QStringLiteral("Nemohu otevřít tabulku Money \"%1\"").arg(money.Path("d:/Data/Agenda.001/SKKMKART.DAT")),
        Message::Icon::Error);
    Import(Command::ID_IMPORT_MONEY, ChooseYear, [](QWidget& sheet) { Click(sheet, "askRadio"); });
    EXPECT_TRUE(TakeNews().empty());
    EXPECT_EQ(before, AllRows(window.f));
    EXPECT_TRUE(FileBytes(window.f.folder.File("kuvel.ini")).contains("Existujici zaznamy=2"));
    EXPECT_TRUE(window.frame->isEnabled());
}

TEST_F(MoneyImports, TheOtherSystemsCommandDoesNothing) {
    ExpectSummary(Summary("Import dokončen úspěšně!", 0, 0));
    window.frame->RunCommand(Command::ID_IMPORT_EKONOM);
    EXPECT_TRUE(TakeNews().empty());
}

TEST_F(MoneyImports, CancelKeepsWhatWasWrittenAndSaysHowMuch) {
    constexpr int Documents = 4000;
    constexpr int LinesOfOne = 5;
    DbfBytes documents = StockDocuments();
    DbfBytes lines = StockLines();
    for (int document = 1; document <= Documents; ++document) {
        const QString number = QString::number(document);
        documents.rows.push_back(DbfRow({number, "V" + number, "20120401", "V", ""}));
        for (int line = 1; line <= LinesOfOne; ++line)
            lines.rows.push_back(DbfRow({"S", number, QString::number(line), "1", "x", "x", "x", "1"}));
    }
    money.WriteTable(Year + "/SKSEZDOK.DAT", documents);
    money.WriteTable(Year + "/SKSEZPOL.DAT", lines);
    bool pressed = false;
    int events = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        ++events;
        auto* const dialog = window.frame->findChild<CProgressDlg*>();
        if (dialog == nullptr || Find<QProgressBar>(*dialog, "progressBar").value() < 20 ||
            Find<QLabel>(*dialog, "phaseLabel").text() != QStringLiteral("Importuji skladové pohyby"))
            return;
        EXPECT_FALSE(CDisabledWindow::TakesInput(*window.frame));
        pressed = true;
        timer.stop();
        Click(*dialog, "cancel");
    });
    timer.start(0);
    window.messages.AcceptAny();
    Import(Command::ID_IMPORT_MONEY, ChooseYear, [](QWidget& sheet) { Click(sheet, "productsCheck"); });
    EXPECT_TRUE(pressed);
    EXPECT_GE(events, 20); // one each time the bar moves, at the least

    const int kept = std::stoi(window.f.Ask("SELECT count(*) FROM Move"));
    EXPECT_GT(kept, 0);
    EXPECT_LT(kept, Documents);
    ASSERT_EQ(1U, window.messages.Shown().size());
    EXPECT_EQ(Summary("Import byl přerušen!", 0, kept), window.messages.Shown()[0].text);
    EXPECT_EQ(std::vector{ViewMessage::WM_MOVES_CHANGED}, TakeNews());
    EXPECT_EQ("0", window.f.Ask("SELECT count(*) FROM Move_Prod WHERE mvprod_id NOT IN (SELECT mvprod_id FROM "
                                "Move_Cover)"));
    EXPECT_TRUE(window.frame->isEnabled());
}

TEST_F(MoneyImports, TheProgressWindowStaysBehindAQuestion) {
    Steps steps;
    steps.Then([](QWidget& sheet) {
        ChooseYear(sheet);
        Click(sheet, "next");
        Click(sheet, "askRadio");
        Click(sheet, "finish");
    });
    steps.Then([this](QWidget& question) {
        QTest::qWait(CProgressDlg::ShowDelay + 100);
        EXPECT_FALSE(window.frame->findChild<CProgressDlg*>()->isVisible());
        EXPECT_EQ("Produkt \"Kůň, kat.č. K-1\" byl již z Money importován. Přejete si jej aktualizovat?",
                  Find<QLabel>(question, "questionLabel").text().toStdString());
        EXPECT_TRUE(question.isEnabled());
        QTest::keyClick(&question, Qt::Key_Escape);
    });
    ExpectSummary(Summary("Import dokončen úspěšně!", 3, 3));
    window.frame->Action(Command::ID_IMPORT_MONEY)->trigger();
    EXPECT_EQ("starý", window.f.Ask("SELECT prod_name FROM Product WHERE prod_id = 1"));
}

struct WakImports : Imports {
    TdsServer server;

    WakImports() {
        server.products.columns = {
            {"nPol", "int"}, {"NazPol", "nvarchar"}, {"IdePol", "varchar"}, {"IdeMJ", "varchar"}};
        server.products.rows = {{"1", "Kůň", "K-1", "ks"}, {"2", "Čaj", "K-2", "kg"}, {"3", "Řepa", {}, {}}};
        server.documents.columns = {{"nDoklSkl", "int"},       {"IdeTypuDoklSkl", "varchar"},
                                    {"IdeDoklSkl", "varchar"}, {"DatDoklSkl", "datetime"},
                                    {"TypStatu", "bit"},       {"nPol", "int"},
                                    {"MnoPol", "money"}};
        server.documents.rows = {{"1", "PRO", "D1", "2012-04-29 00:00:00", "0", "1", "2"},
                                 {"1", "PRO", "D1", "2012-04-29 00:00:00", "0", "2", "0.5"},
                                 {"2", "VYD", "D2", "2012-04-29 00:00:00", "0", "1", "2"},
                                 {"3", "pro", "D3", "2012-05-29 12:30:00", "1", "99", "7"}};
        server.Start();
    }
    void Connect(QWidget& sheet) const {
        TypeText(sheet, "serverEdit", server.Name().toUtf8().constData());
        TypeText(sheet, "databaseEdit", "wak");
        TypeText(sheet, "passwordEdit", "heslo");
    }
};

TEST_F(WakImports, BothWaysWriteTheSame) {
    WakOptions options;
    options.server = server.Name();
    options.database = "wak";
    options.password = "heslo";
    {
        const QString before = std::exchange(g_strAppDir, other.folder.Path());
        ASSERT_FALSE(options.Write());
        g_strAppDir = before;
    }
    ExpectSame(
        Command::ID_IMPORT_WAK, [this](QWidget& sheet) { Connect(sheet); },
        {{"overwriteRadio", {}, {}, "overwrite", {4, 3}, {2, 2}},
         {"keepRadio", {}, {}, "keep", {3, 0}, {2, 0}},
         {"askRadio", {"noButton"}, {"yesToAllButton", "noToAllButton"}, nullptr, {3, 3}, {2, 0}}},
        [&](const char* existing) {
            return CKuvelctl(other.folder.Path())
                .RunBare({"--home", other.folder.Path(), "import", "wak", "--existing", QString::fromLatin1(existing),
                          "--from", "2012-04-01", "--to", "2012-06-30"});
        });
    EXPECT_EQ("EXEC DoklSkl_Pre '20120401', '20120630'", server.TakeStatements().back());
    EXPECT_EQ("3", window.f.Ask("SELECT count(*) FROM Move_Prod"));
}

TEST_F(WakImports, ALoginThatFailsEndsWithoutASummary) {
    server.password = QStringLiteral("jiné");
    window.messages.AcceptAny();
    Import(
        Command::ID_IMPORT_WAK, [this](QWidget& sheet) { Connect(sheet); }, [](QWidget&) {});
    ASSERT_EQ(1U, window.messages.Shown().size());
    EXPECT_TRUE(window.messages.Shown()[0].text.startsWith(
        QStringLiteral("Nemohu otevřít databázi 'wak' na serveru '%1'").arg(server.Name())));
    EXPECT_TRUE(TakeNews().empty());
    EXPECT_TRUE(window.frame->isEnabled());
}

} // namespace
