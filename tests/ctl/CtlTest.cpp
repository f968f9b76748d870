#include "core/report/CompanyData.h"
#include "ctl/sample/SampleCompany.h"
#include "tests/support/Kuvelctl.h"
#include "tests/support/OtherProgram.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/XlsFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <csignal>
#include <functional>
#include <optional>
#include <tuple>

namespace {

/// A program folder with the sample company, closed.
struct CompanyFolder : ProgramFolder {
    CompanyFolder() {
        AddDatabase();
        CDataStore store;
        EXPECT_TRUE(store.OpenDatabase());
        FillSampleCompany(store);
    }
};

/// In the pattern "*" stands for any text.
bool Matches(const QString& text, const QString& pattern) {
    const QString expression = QRegularExpression::escape(pattern).replace("\\*", ".*");
    return QRegularExpression("\\A" + expression + "\\z", QRegularExpression::DotMatchesEverythingOption)
        .match(text)
        .hasMatch();
}

/// Every file of a folder with its bytes; folders end in a slash.
std::map<QString, QByteArray> Contents(const QString& folder) {
    std::map<QString, QByteArray> contents;
    const QDir dir(folder);
    for (const QFileInfo& entry : dir.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)) {
        if (entry.isDir())
            contents[entry.fileName() + u'/'] = {};
        else
            contents[entry.fileName()] = FileBytes(entry.filePath());
    }
    return contents;
}

TEST(Kuvelctl, TakesNoWrongUsage) {
    // given: separated by "|"
    const std::pair<const char*, const char*> rows[] = {
        {"", "a command is missing; allowed: * one of init, demo, recompute, figures, *check*"},
        {"figure", "unknown command 'figure'; allowed: * one of init, demo, recompute, figures, *"},
        {"--fast", "unknown option '--fast'; allowed: *"},
        {"--home", "--home: 1 required * missing; *"},
        {"--home||init", "--home: is empty; *"},
        {"init|demo", "*demo; usage: kuvelctl init [--home DIR]"},
        {"figures", "YEAR is required; usage: kuvelctl figures YEAR QUARTER [--template-version V] "
                    "[--format csv|json] [--home DIR]"},
        {"figures|2012|0", "QUARTER must be 1 to 4; *"},
        {"figures|2012|0x2", "QUARTER must be 1 to 4; *"},
        {"figures|2013|1", "YEAR must be 2000 to 2012; *"},
        {"figures|2012|1|2", "*: 2; usage: *"},
        {"figures|2012|1|--format|xml", "--format: xml not in {csv,json}; *"},
        {"recompute|--product", "--product: 1 required * missing; usage: kuvelctl recompute [--product ID] *"},
        {"recompute|--product|1.5", "--product must be 1 to 2147483647; *"},
    };
    const ProgramFolder folder;
    const CKuvelctl program(folder.Path());
    for (const auto& [given, error] : rows) {
        SCOPED_TRACE(given);
        const QString arguments = given;
        const CtlResult result = program.RunBare(arguments.isEmpty() ? QStringList() : arguments.split(u'|'));
        EXPECT_EQ(2, result.exitCode);
        EXPECT_EQ("", result.output.toStdString());
        EXPECT_TRUE(Matches(result.errors, QStringLiteral("kuvelctl: ") + error + u'\n'))
            << result.errors.toStdString();
        EXPECT_EQ(1, result.errors.count(u'\n'));
    }
    EXPECT_TRUE(Contents(folder.Path()).empty());
}

TEST(Kuvelctl, TellsWhatItIs) {
    const ProgramFolder folder;
    const CKuvelctl program(folder.Path());
    EXPECT_EQ("kuvelctl 1.0.0\n", program.RunBare({"--version"}).output.toStdString());
    const CtlResult help = program.RunBare({"figures", "--help"});
    EXPECT_EQ(0, help.exitCode);
    EXPECT_TRUE(help.output.contains("QUARTER"));
    EXPECT_EQ("", help.errors.toStdString());
}

TEST(Kuvelctl, InitPutsTheDatabaseAndMissingTemplates) {
    const ProgramFolder folder;
    const QString home = folder.Path() + "nová složka/Kuvel";
    const CKuvelctl program(folder.Path());
    const QStringList arguments{"--home", "nová složka/Kuvel", "init"};
    ASSERT_TRUE(QDir().mkpath(home));
    WriteFile(home + "/vykaz2012_1.tpl", "mine");

    CtlResult result = program.RunBare(arguments);
    EXPECT_EQ(0, result.exitCode) << result.errors.toStdString();
    EXPECT_EQ(home + "/Kuvel.mdb\n", result.output);
    EXPECT_EQ("", result.errors.toStdString());
    std::map<QString, QByteArray> contents = Contents(home);
    EXPECT_EQ("mine", contents[QStringLiteral("vykaz2012_1.tpl")].toStdString());
    EXPECT_EQ(FileBytes(QStringLiteral(KUVEL_BIN_DIR "/database/Kuvel.mdb")), contents[QStringLiteral("Kuvel.mdb")]);
    const QStringList templates = QDir(QStringLiteral(KUVEL_BIN_DIR "/templates")).entryList({QStringLiteral("*.tpl")});
    EXPECT_EQ(static_cast<std::size_t>(templates.size()) + 1, contents.size());

    result = program.RunBare(arguments);
    EXPECT_EQ(1, result.exitCode);
    EXPECT_EQ(QStringLiteral("kuvelctl: '%1/Kuvel.mdb' is there already; nothing was changed\n").arg(home),
              result.errors);
    EXPECT_EQ(contents, Contents(home));
}

TEST(Kuvelctl, InitAndDemoLeaveNothingHalfDone) {
    const auto file = [](const char* name, const char* bytes) {
        return [=](ProgramFolder& folder, CKuvelctl&) { WriteFile(folder.File(name), bytes); };
    };
    const std::tuple<const char*, std::function<void(ProgramFolder&, CKuvelctl&)>, const char*> rows[] = {
        {"AFileIsThere", file("Kuvel.mdb", ""), "'%1Kuvel.mdb' is there already; nothing was changed"},
        {"ALinkIsThere",
         [](ProgramFolder& folder, CKuvelctl&) { QFile::link("/nowhere/Kuvel.mdb", folder.File("Kuvel.mdb")); },
         "'%1Kuvel.mdb' is there already; nothing was changed"},
        {"AJournalIsLeft", file("Kuvel.mdb-journal", "rows"),
         "'%1Kuvel.mdb-journal' belongs to a database that is gone; move it away first"},
        {"DiskIsFull", [](ProgramFolder&, CKuvelctl& program) { program.FillDiskAfter(10'000); },
         "cannot create '%1*': No space left on device"},
    };
    for (const auto& [name, prepare, error] : rows) {
        for (const char* command : {"init", "demo"}) {
            ProgramFolder folder;
            CKuvelctl program(folder.Path());
            prepare(folder, program);
            const std::map<QString, QByteArray> before = Contents(folder.Path());
            SCOPED_TRACE(std::string(name) + " " + command);
            const CtlResult result = program.Run(command);
            EXPECT_EQ(1, result.exitCode);
            EXPECT_EQ("", result.output.toStdString());
            const QString wanted = QStringLiteral("kuvelctl: ") + error + u'\n';
            EXPECT_TRUE(Matches(result.errors, wanted.arg(folder.Path()))) << result.errors.toStdString();
            EXPECT_EQ(before, Contents(folder.Path()));
        }
    }
}

TEST(Kuvelctl, ADemoThatDoesNotFitIsNotThere) {
    // From the first template on until the whole of it fits.
    bool done = false;
    for (long long bytes = 400'000; !done && bytes < 30'000'000; bytes *= 2) {
        const ProgramFolder folder;
        CKuvelctl program(folder.Path());
        program.FillDiskAfter(bytes);
        const CtlResult result = program.Run("demo");
        done = result.exitCode == 0;
        EXPECT_EQ(done, QFile::exists(folder.File("Kuvel.mdb"))) << bytes;
        EXPECT_EQ(done, result.errors.isEmpty()) << bytes << result.errors.toStdString();
        for (const auto& [name, content] : Contents(folder.Path()))
            EXPECT_TRUE(name.endsWith(".tpl") || name == QStringLiteral("kuvel.ini") ||
                        (done && name == QStringLiteral("Kuvel.mdb")))
                << bytes << ": " << name.toStdString();
    }
    EXPECT_TRUE(done);
}

TEST(Kuvelctl, DemoGivesAWholeCompanyAndLeavesCompanyData) {
    const ProgramFolder folder;
    const CKuvelctl program(folder.Path());
    CompanyData own;
    own.name = QStringLiteral("Vlastní firma");
    ASSERT_FALSE(WriteCompanyData(own));
    const CtlResult demo = program.Run("demo");
    EXPECT_EQ(0, demo.exitCode) << demo.errors.toStdString();
    EXPECT_EQ(folder.File("Kuvel.mdb") + u'\n', demo.output);
    EXPECT_EQ(own.name, ReadCompanyData().name);
    EXPECT_EQ("", ReadCompanyData().office.toStdString());
    const CtlResult check = program.Run("check");
    EXPECT_EQ(0, check.exitCode);
    EXPECT_EQ("ok\n", check.output.toStdString());
    EXPECT_EQ("9000", folder.Ask("SELECT count(*) FROM Move_Prod"));
}

TEST(Kuvelctl, ReportsWhatTheCheckFinds) {
    const ProgramFolder folder;
    folder.AddDatabase();
    folder.Sql("INSERT INTO Move_Prod VALUES (3, 8, 9, 10000)");
    const CtlResult check = CKuvelctl(folder.Path()).Run("check");
    EXPECT_EQ(1, check.exitCode);
    EXPECT_EQ("Move_Prod 3: move_id 8 is not in Move\nMove_Prod 3: prod_id 9 is not in Product\n",
              check.output.toStdString());
    EXPECT_EQ("", check.errors.toStdString());
}

TEST(Kuvelctl, PrintsFiguresInBothFormats) {
    const ProgramFolder folder;
    folder.AddDatabase();
    folder.Sql("INSERT INTO Cover VALUES (1, 'Paleta', 0, 12345678, 2, 2, 1, 0, 0, '', 0), "
               "(2, 'Klec', 3, 4900, 3, 0, 1, 0, 0, '', 0);"
               "INSERT INTO Move VALUES (1, 'DL1', '2012-06-30 00:00:00', 0, 0, NULL);"
               "INSERT INTO Move_Cover VALUES (1, 1, 1, 1, 10000, 2, 2, 1), "
               "(2, 1, 1, 2, 10000, 3, 0, 1)");
    const std::pair<const char*, const char*> rows[] = {
        {"2012 2", "sheet,cell,tonnes\n1-1,M27,0.0004\n1-1,C33,1.2345\n"},
        {"2012 2 --template-version 1.5", "sheet,cell,tonnes\n1-1,C32,1.2345\n"},
        {"2012 2 --format json", "[\n{\"sheet\": \"1-1\", \"cell\": \"M27\", \"tonnes\": \"0.0004\"},\n"
                                 "{\"sheet\": \"1-1\", \"cell\": \"C33\", \"tonnes\": \"1.2345\"}\n]\n"},
        {"2012 3 --format json", "[]\n"},
    };
    CKuvelctl program(folder.Path());
    program.SetVariable("LC_ALL", "cs_CZ.UTF-8");
    for (const auto& [given, output] : rows) {
        const CtlResult result = program.Run(QStringLiteral("figures ") + given);
        EXPECT_EQ(0, result.exitCode) << given;
        EXPECT_EQ(output, result.output.toStdString()) << given;
        EXPECT_EQ("", result.errors.toStdString()) << given;
    }
    // The old form has no industrial packaging; it was in use until the first quarter of 2004.
    folder.Sql("UPDATE Move SET move_date = '2004-03-31 00:00:00'");
    EXPECT_EQ("sheet,cell,tonnes\n1-1,C32,1.2345\n", program.Run("figures 2004 1").output.toStdString());
}

TEST(Kuvelctl, HomeBeatsTheVariable) {
    const ProgramFolder folder;
    QDir().mkdir(folder.File("a"));
    QDir().mkdir(folder.File("b"));
    CKuvelctl program(folder.Path());
    program.SetVariable("KUVEL_HOME", "a");
    EXPECT_EQ(0, program.RunBare({"init"}).exitCode);
    EXPECT_TRUE(QFile::exists(folder.File("a/Kuvel.mdb")));
    EXPECT_EQ(0, program.RunBare({"init", "--home", "b"}).exitCode);
    EXPECT_TRUE(QFile::exists(folder.File("b/Kuvel.mdb")));
}

TEST(Kuvelctl, ADatabaseThatCannotBeOpenedStaysAsItIs) {
    const ProgramFolder folder;
    WriteFile(folder.File("Kuvel.mdb"), "obaly");
    for (const char* command : {"recompute", "figures 2012 2", "check", "report 2012 2"}) {
        const CtlResult result = CKuvelctl(folder.Path()).Run(command);
        EXPECT_EQ(1, result.exitCode) << command;
        EXPECT_EQ("", result.output.toStdString()) << command;
        EXPECT_EQ("Nemohu otevřít databázi '" + folder.File("Kuvel.mdb") + "'\nSoubor není databází programu.\n",
                  result.errors)
            << command;
        EXPECT_EQ("obaly", FileBytes(folder.File("Kuvel.mdb"))) << command;
    }
}

TEST(Kuvelctl, SaysWhyTheDatabaseCannotBeOpened) {
    const std::tuple<const char*, std::function<void(const ProgramFolder&)>, const char*> cases[] = {
        {"missing", [](const ProgramFolder& f) { QFile::remove(f.File("Kuvel.mdb")); }, "Soubor neexistuje."},
        {"in use", [](const ProgramFolder&) {}, "Databázi právě používá jiná aplikace."},
        {"damaged", [](const ProgramFolder& f) { QFile::resize(f.File("Kuvel.mdb"), 5000); },
         "Soubor databáze je poškozen."},
        {"newer", [](const ProgramFolder& f) { f.Sql("PRAGMA user_version = 2"); },
         "Databáze je z novější verze programu, než je tato."},
        {"a stranger's", [](const ProgramFolder& f) { f.Sql("PRAGMA application_id = 1"); },
         "Soubor není databází programu."},
    };
    for (const auto& [fault, spoil, why] : cases) {
        const ProgramFolder folder;
        folder.AddDatabase();
        std::optional<OtherProgram> other;
        if (std::string(fault) == "in use")
            other.emplace(folder).Run("BEGIN EXCLUSIVE");
        spoil(folder);
        const CtlResult result = CKuvelctl(folder.Path()).Run("figures 2012 2");
        EXPECT_EQ(1, result.exitCode) << fault;
        EXPECT_EQ("Nemohu otevřít databázi '" + folder.File("Kuvel.mdb") + "'\n" + QString::fromUtf8(why) + "\n",
                  result.errors)
            << fault;
    }
}

TEST(Kuvelctl, RecomputesOneProduct) {
    const CompanyFolder folder;
    const CKuvelctl program(folder.Path());
    folder.Sql("DELETE FROM Move_Cover");
    const std::string lines = folder.Ask("SELECT count(*) FROM Move_Prod WHERE prod_id = 5");
    const CtlResult result = program.Run("recompute --product 5");
    EXPECT_EQ(0, result.exitCode);
    EXPECT_EQ(lines + " lines\n", result.output.toStdString());
    EXPECT_EQ("5", folder.AskAll("SELECT DISTINCT prod_id FROM Move_Cover JOIN Move_Prod USING (mvprod_id)"));
    // A product that is gone may have lines.
    folder.Sql("DELETE FROM Product WHERE prod_id = 5");
    EXPECT_EQ(lines + " lines\n", program.Run("recompute --product 5").output.toStdString());
    const CtlResult unknown = program.Run("recompute --product 5000");
    EXPECT_EQ(1, unknown.exitCode);
    EXPECT_EQ("kuvelctl: there is no product 5000\n", unknown.errors.toStdString());
}

TEST(Kuvelctl, ReportEndsWithThePathOfTheWorkbook) {
    const CompanyFolder folder;
    folder.AddTemplates();
    ASSERT_FALSE(WriteCompanyData(SampleCompanyData()));
    const CKuvelctl program(folder.Path());
    const CtlResult result = program.Run("report 2012 2 --corrective");
    EXPECT_EQ(0, result.exitCode);
    EXPECT_EQ("", result.errors.toStdString());
    const QString path = result.output.trimmed().section(u'\n', -1);
    EXPECT_TRUE(Matches(path, folder.Path() + "Vykazy/ctvrtletni_vykaz_o_produkci_obalu*.XLS")) << path.toStdString();
    const CXlsFile workbook(path.toStdString());
    EXPECT_EQ("opravný", workbook.Text("Úvod", "D5"));
    EXPECT_EQ(SampleCompanyData().name.toStdString(), workbook.Text("Úvod", "D7"));
    const CtlResult none = program.Run("report 2001 3");
    EXPECT_EQ(1, none.exitCode);
    EXPECT_EQ(QStringLiteral("Nemohu najít soubor s předlohou výkazu \"%1vykaz2001.tpl_3\"\n")
                  .arg(folder.Path())
                  .toStdString(),
              none.errors.toStdString());
}

TEST(Kuvelctl, CtrlCInTheReportLeavesNoWorkbook) {
    const CompanyFolder folder;
    folder.AddTemplates();
    const CKuvelctl program(folder.Path());
    QProcess process;
    program.Prepare(process, {"--home", folder.Path(), "report", "2012", "2"});
    process.start();
    ASSERT_TRUE(process.waitForStarted());
    const QDir reports(folder.Path() + "Vykazy");
    for (int i = 0; i < 10'000 && reports.isEmpty(); ++i)
        ASSERT_FALSE(process.waitForFinished(1)) << "ended before it could be stopped";
    kill(static_cast<pid_t>(process.processId()), SIGINT);
    ASSERT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(1, process.exitCode());
    EXPECT_EQ("kuvelctl: interrupted\n", process.readAllStandardError().toStdString());
    EXPECT_TRUE(reports.isEmpty());
}

TEST(Kuvelctl, SaysWhenTheResultWasLost) {
    const CompanyFolder folder;
    const CKuvelctl program(folder.Path());
    QProcess process;
    program.Prepare(process, {"--home", folder.Path(), "figures", "2012", "2"});
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    const CtlResult result = CKuvelctl::Finish(process);
    EXPECT_EQ(1, result.exitCode);
    EXPECT_EQ("kuvelctl: cannot write the result: No space left on device\n", result.errors.toStdString());
}

TEST(Kuvelctl, ShowsABarOnATerminalOnly) {
    const CompanyFolder folder;
    const CKuvelctl program(folder.Path());
    QProcess terminal;
    program.Prepare(terminal, {});
    terminal.setProgram("script");
    terminal.setArguments(
        {"-qec", "'" KUVEL_BIN_DIR "/kuvelctl' --home '" + folder.Path() + "' recompute", "/dev/null"});
    const CtlResult shown = CKuvelctl::Finish(terminal);
    EXPECT_EQ(0, shown.exitCode);
    EXPECT_TRUE(shown.output.contains("Aktualizuji kuvel u vydaných produktů 8956 z 9000"));
    EXPECT_TRUE(shown.output.endsWith("\r\x1b[K9000 lines\r\n")) << shown.output.right(60).toStdString();
    const CtlResult piped = program.Run("recompute");
    EXPECT_EQ("9000 lines\n", piped.output.toStdString());
    EXPECT_EQ("", piped.errors.toStdString());
}

/// A recomputation that is broken off. Before it all packaging is wrong by one ten-thousandth, so that a line is either
/// old (wrong), or new (right), or torn.
class BrokenOff : public testing::Test {
protected:
    BrokenOff() : m_database(m_folder.File("Kuvel.mdb")), m_right(m_folder.File("right.mdb")) {
        EXPECT_TRUE(QFile::copy(m_database, m_right));
        m_folder.Sql("UPDATE Move_Cover SET mvcover_qty = mvcover_qty + 1");
        m_program.Prepare(m_process, {"--home", m_folder.Path(), "recompute"});
    }

    /// Waits until the recomputation has committed something, then sends it the signal.
    void StartAndSend(int signal) {
        const QDateTime before = Written();
        m_process.start();
        ASSERT_TRUE(m_process.waitForStarted());
        for (int i = 0; i < 20'000 && Written() == before; ++i)
            ASSERT_FALSE(m_process.waitForFinished(1)) << "ended before it could be stopped";
        kill(static_cast<pid_t>(m_process.processId()), signal);
        ASSERT_TRUE(m_process.waitForFinished());
    }

    /// The number of new lines; fails on a torn one and on a damaged file.
    long long NewLines() const {
        // Of each line the rows that it should have, that it has, and that are right.
        const std::string lines =
            "ATTACH '" + m_right.toStdString() +
            "' AS r; CREATE TEMP VIEW lines AS SELECT (SELECT count(*) FROM r.Move_Cover AS c WHERE c.mvprod_id = "
            "l.mvprod_id) AS due, (SELECT count(*) FROM Move_Cover AS c WHERE c.mvprod_id = l.mvprod_id) AS present, "
            "(SELECT count(*) FROM Move_Cover AS c JOIN r.Move_Cover AS d USING (mvprod_id, cover_id, mvcover_qty) "
            "WHERE c.mvprod_id = l.mvprod_id) AS fresh FROM Move_Prod AS l JOIN Product USING (prod_id) WHERE deleted "
            "= 0; SELECT count(*) FROM lines WHERE ";
        EXPECT_EQ("0", m_folder.Ask(lines + "present <> due OR (fresh <> 0 AND fresh < due)"));
        EXPECT_EQ(0, CKuvelctl(m_folder.Path()).Run("check").exitCode);
        return std::stoll(m_folder.Ask(lines + "due > 0 AND fresh >= due"));
    }

    QDateTime Written() const { return QFileInfo(m_database).lastModified(); }

    CompanyFolder m_folder;
    QString m_database;
    QString m_right;
    CKuvelctl m_program{m_folder.Path()};
    QProcess m_process;
};

TEST_F(BrokenOff, AKillLeavesWholeLines) {
    StartAndSend(SIGKILL);
    EXPECT_GT(8900, NewLines());
}

TEST_F(BrokenOff, CtrlCIsACancel) {
    StartAndSend(SIGINT);
    EXPECT_EQ(1, m_process.exitCode());
    EXPECT_EQ(QProcess::NormalExit, m_process.exitStatus());
    EXPECT_EQ("Aktualizace byla přerušena!\n", QString::fromUtf8(m_process.readAllStandardError()).toStdString());
    const QString output = QString::fromUtf8(m_process.readAllStandardOutput());
    EXPECT_TRUE(output.endsWith(" lines\n")) << output.toStdString();
    const long long lines = output.section(u' ', 0, 0).toLongLong();
    EXPECT_LT(0, lines);
    EXPECT_GT(9000, lines);
    EXPECT_LT(0, NewLines());
}

TEST_F(BrokenOff, AFullDiskLeavesWholeLines) {
    m_program.FillDiskAfter(2'000'000);
    const CtlResult result = m_program.Run("recompute");
    EXPECT_EQ(1, result.exitCode);
    EXPECT_TRUE(result.errors.startsWith("Došlo k chybě COM č.0x80070070\n\nNa disku není dost místa.\n"))
        << result.errors.toStdString();
    const long long lines = NewLines();
    EXPECT_LT(0, lines);
    EXPECT_GT(8900, lines);
}

} // namespace
