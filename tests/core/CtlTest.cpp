#include "ctl/sample/SampleCompany.h"
#include "report/CompanyData.h"
#include "tests/core/XlsFile.h"
#include "tests/support/Kuvelctl.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>

#include <csignal>
#include <functional>
#include <map>

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
    const QStringList pieces = pattern.split(u'*');
    qsizetype at = 0;
    for (const QString& piece : pieces) {
        at = text.indexOf(piece, at);
        if (at < 0)
            return false;
        at += piece.size();
    }
    return text.startsWith(pieces.front()) && text.endsWith(pieces.back());
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

/// Runs the engine's own SQL on a database; the first column of the first row.
long long Ask(const QString& path, const std::string& sql) {
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(SQLITE_OK,
              sqlite3_open_v2(QFile::encodeName(path).constData(), &database, SQLITE_OPEN_READWRITE, nullptr));
    const char* rest = sql.c_str();
    long long answer = -1;
    while (*rest != '\0') {
        EXPECT_EQ(SQLITE_OK, sqlite3_prepare_v2(database, rest, -1, &statement, &rest)) << sqlite3_errmsg(database);
        if (sqlite3_step(statement) == SQLITE_ROW)
            answer = sqlite3_column_int64(statement, 0);
        sqlite3_finalize(statement);
    }
    sqlite3_close(database);
    return answer;
}

TEST(Kuvelctl, TakesNoWrongUsage) {
    struct {
        const char* arguments; // separated by "|"
        const char* error;
    } const rows[] = {
        {"", "a command is missing; allowed: * one of init, demo, recompute, figures, *check*"},
        {"figure", "unknown command 'figure'; allowed: * one of init, demo, recompute, figures, *"},
        {"--fast", "unknown option '--fast'; allowed: *"},
        {"--home", "--home: 1 required * missing; *"},
        {"--home||init", "--home: is empty; *"},
        {"init|demo", "*demo; usage: kuvelctl init [--home DIR]"},
        {"init|--force", "*--force; usage: kuvelctl init *"},
        {"figures", "YEAR is required; usage: kuvelctl figures YEAR QUARTER [--template-version V] "
                    "[--format csv|json] [--home DIR]"},
        {"figures|2012", "QUARTER is required; *"},
        {"figures|2012|0", "QUARTER must be 1 to 4; *"},
        {"figures|2012|5", "QUARTER must be 1 to 4; *"},
        {"figures|2012|-1", "QUARTER must be 1 to 4; *"},
        {"figures|2012|II", "QUARTER must be 1 to 4; *"},
        {"figures|2012|0x2", "QUARTER must be 1 to 4; *"},
        {"figures|1999|1", "YEAR must be 2000 to 2012; *"},
        {"figures|2013|1", "YEAR must be 2000 to 2012; *"},
        {"figures|99999999999999999999|1", "YEAR must be 2000 to 2012; *"},
        {"figures|2012|1|2", "*: 2; usage: *"},
        {"figures|2012|1|--format|xml", "--format: xml not in {csv,json}; *"},
        {"figures|2012|1|--corrective", "*--corrective; usage: *"},
        {"recompute|--product", "--product: 1 required * missing; usage: kuvelctl recompute [--product ID] *"},
        {"recompute|--product|0", "--product must be 1 to 2147483647; *"},
        {"recompute|--product|1.5", "--product must be 1 to 2147483647; *"},
    };
    const ProgramFolder folder;
    const CKuvelctl program(folder.Path());
    for (const auto& row : rows) {
        const QString arguments = QString::fromLatin1(row.arguments);
        const CtlResult result = program.RunBare(arguments.isEmpty() ? QStringList() : arguments.split(u'|'));
        EXPECT_EQ(2, result.exitCode) << row.arguments;
        EXPECT_EQ("", result.output.toStdString()) << row.arguments;
        EXPECT_TRUE(Matches(result.errors, QStringLiteral("kuvelctl: ") + QString::fromLatin1(row.error) + u'\n'))
            << row.arguments << ": " << result.errors.toStdString();
        EXPECT_EQ(1, result.errors.count(u'\n')) << row.arguments;
    }
    EXPECT_TRUE(Contents(folder.Path()).empty());
}

TEST(Kuvelctl, TellsWhatItIs) {
    const ProgramFolder folder;
    const CKuvelctl program(folder.Path());
    const CtlResult version = program.RunBare({QStringLiteral("--version")});
    EXPECT_EQ(0, version.exitCode);
    EXPECT_EQ("kuvelctl 1.0.0\n", version.output.toStdString());
    for (const char* arguments : {"--help", "figures --help", "recompute --help"}) {
        const CtlResult help = program.RunBare(QString::fromLatin1(arguments).split(u' '));
        EXPECT_EQ(0, help.exitCode) << arguments;
        EXPECT_LT(100, help.output.size()) << arguments;
        EXPECT_EQ("", help.errors.toStdString()) << arguments;
    }
}

TEST(Kuvelctl, InitPutsTheDatabaseAndMissingTemplates) {
    const ProgramFolder folder;
    const QString home = folder.Path() + QStringLiteral("nová složka/Kuvel");
    const CKuvelctl program(folder.Path());
    const QStringList arguments{QStringLiteral("--home"), QStringLiteral("nová složka/Kuvel"), QStringLiteral("init")};
    ASSERT_TRUE(QDir().mkpath(home));
    WriteFile(home + QStringLiteral("/vykaz2012_1.tpl"), "mine");

    CtlResult result = program.RunBare(arguments);
    EXPECT_EQ(0, result.exitCode) << result.errors.toStdString();
    EXPECT_EQ(home + QStringLiteral("/Kuvel.mdb\n"), result.output);
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
    struct {
        const char* name;
        std::function<void(ProgramFolder&, CKuvelctl&)> prepare;
        const char* error;
    } const rows[] = {
        {"AFileIsThere", file("Kuvel.mdb", ""), "'%1Kuvel.mdb' is there already; nothing was changed"},
        {"AFolderIsThere", [](ProgramFolder& folder, CKuvelctl&) { QDir().mkdir(folder.File("Kuvel.mdb")); },
         "'%1Kuvel.mdb' is there already; nothing was changed"},
        {"ALinkIsThere",
         [](ProgramFolder& folder, CKuvelctl&) {
             QFile::link(QStringLiteral("/nowhere/Kuvel.mdb"), folder.File("Kuvel.mdb"));
         },
         "'%1Kuvel.mdb' is there already; nothing was changed"},
        {"AJournalIsLeft", file("Kuvel.mdb-journal", "rows"),
         "'%1Kuvel.mdb-journal' belongs to a database that is gone; move it away first"},
        {"DiskIsFull", [](ProgramFolder&, CKuvelctl& program) { program.FillDiskAfter(10'000); },
         "cannot create '%1*': No space left on device"},
    };
    for (const auto& row : rows) {
        for (const char* command : {"init", "demo"}) {
            ProgramFolder folder;
            CKuvelctl program(folder.Path());
            row.prepare(folder, program);
            const std::map<QString, QByteArray> before = Contents(folder.Path());
            const CtlResult result = program.Run(QString::fromLatin1(command));
            EXPECT_EQ(1, result.exitCode) << row.name << command;
            EXPECT_EQ("", result.output.toStdString()) << row.name << command;
            const QString wanted = QStringLiteral("kuvelctl: ") + QString::fromLatin1(row.error) + u'\n';
            EXPECT_TRUE(Matches(result.errors, wanted.arg(folder.Path())))
                << row.name << command << ": " << result.errors.toStdString();
            EXPECT_EQ(before, Contents(folder.Path())) << row.name << command;
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
        const CtlResult result = program.Run(QStringLiteral("demo"));
        done = result.exitCode == 0;
        EXPECT_EQ(done, QFile::exists(folder.File("Kuvel.mdb"))) << bytes;
        EXPECT_EQ(done, result.errors.isEmpty()) << bytes << result.errors.toStdString();
        for (const auto& [name, content] : Contents(folder.Path()))
            EXPECT_TRUE(name.endsWith(QStringLiteral(".tpl")) || name == QStringLiteral("kuvel.ini") ||
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
    ASSERT_TRUE(WriteCompanyData(own));
    const CtlResult demo = program.Run(QStringLiteral("demo"));
    EXPECT_EQ(0, demo.exitCode) << demo.errors.toStdString();
    EXPECT_EQ(folder.File("Kuvel.mdb") + u'\n', demo.output);
    EXPECT_EQ(own.name, ReadCompanyData().name);
    EXPECT_EQ("", ReadCompanyData().office.toStdString());
    const CtlResult check = program.Run(QStringLiteral("check"));
    EXPECT_EQ(0, check.exitCode);
    EXPECT_EQ("ok\n", check.output.toStdString());
    EXPECT_EQ(9000, Ask(folder.File("Kuvel.mdb"), "SELECT count(*) FROM Move_Prod"));
}

TEST(Kuvelctl, ReportsWhatTheCheckFinds) {
    const ProgramFolder folder;
    folder.AddDatabase();
    Ask(folder.File("Kuvel.mdb"), "INSERT INTO Move_Prod VALUES (3, 8, 9, 10000)");
    const CtlResult check = CKuvelctl(folder.Path()).Run(QStringLiteral("check"));
    EXPECT_EQ(1, check.exitCode);
    EXPECT_EQ("Move_Prod 3: move_id 8 is not in Move\nMove_Prod 3: prod_id 9 is not in Product\n",
              check.output.toStdString());
    EXPECT_EQ("", check.errors.toStdString());
}

TEST(Kuvelctl, PrintsFiguresInBothFormats) {
    const ProgramFolder folder;
    folder.AddDatabase();
    Ask(folder.File("Kuvel.mdb"),
        "INSERT INTO Cover VALUES (1, 'Paleta', 0, 12345678, 2, 2, 1, 0, 0, '', 0), (2, 'Klec', 3, 4900, 3, 0, 1, 0, "
        "0, "
        "'', 0);"
        "INSERT INTO Move VALUES (1, 'DL1', '2012-06-30 00:00:00', 0, 0, NULL);"
        "INSERT INTO Move_Cover VALUES (1, 1, 1, 1, 10000, 2, 2, 1), (2, 1, 1, 2, 10000, 3, 0, 1)");
    struct {
        const char* arguments;
        const char* output;
    } const rows[] = {
        {"2012 2", "sheet,cell,tonnes\n1-1,M27,0.0004\n1-1,C33,1.2345\n"},
        {"2012 2 --format csv --template-version 2,19", "sheet,cell,tonnes\n1-1,M27,0.0004\n1-1,C33,1.2345\n"},
        {"2012 2 --template-version 1.5", "sheet,cell,tonnes\n1-1,C32,1.2345\n"},
        {"2012 2 --format json", "[\n{\"sheet\": \"1-1\", \"cell\": \"M27\", \"tonnes\": \"0.0004\"},\n"
                                 "{\"sheet\": \"1-1\", \"cell\": \"C33\", \"tonnes\": \"1.2345\"}\n]\n"},
        {"2012 3", "sheet,cell,tonnes\n"},
        {"2012 3 --format json", "[]\n"},
    };
    CKuvelctl program(folder.Path());
    program.SetVariable(QStringLiteral("LC_ALL"), QStringLiteral("cs_CZ.UTF-8"));
    for (const auto& row : rows) {
        const CtlResult result = program.Run(QStringLiteral("figures ") + QString::fromLatin1(row.arguments));
        EXPECT_EQ(0, result.exitCode) << row.arguments;
        EXPECT_EQ(row.output, result.output.toStdString()) << row.arguments;
        EXPECT_EQ("", result.errors.toStdString()) << row.arguments;
    }
    // The old form has no industrial packaging; it was in use until the first quarter of 2004.
    Ask(folder.File("Kuvel.mdb"), "UPDATE Move SET move_date = '2004-03-31 00:00:00'");
    EXPECT_EQ("sheet,cell,tonnes\n1-1,C32,1.2345\n",
              program.Run(QStringLiteral("figures 2004 1")).output.toStdString());
}

TEST(Kuvelctl, HomeBeatsTheVariable) {
    const ProgramFolder folder;
    QDir().mkdir(folder.File("a"));
    QDir().mkdir(folder.File("b"));
    CKuvelctl program(folder.Path());
    program.SetVariable(QStringLiteral("KUVEL_HOME"), QStringLiteral("a"));
    EXPECT_EQ(0, program.RunBare({QStringLiteral("init")}).exitCode);
    EXPECT_TRUE(QFile::exists(folder.File("a/Kuvel.mdb")));
    EXPECT_EQ(0, program.RunBare({QStringLiteral("init"), QStringLiteral("--home"), QStringLiteral("b")}).exitCode);
    EXPECT_TRUE(QFile::exists(folder.File("b/Kuvel.mdb")));
}

struct BadDatabase {
    const char* name;
    std::function<void(ProgramFolder&, CKuvelctl&)> prepare;
};

void PutDatabase(ProgramFolder& folder, const std::function<QByteArray(QByteArray)>& change) {
    WriteFile(folder.File("Kuvel.mdb"), change(FileBytes(QStringLiteral(KUVEL_BIN_DIR "/database/Kuvel.mdb"))));
}

TEST(Kuvelctl, ADatabaseThatCannotBeOpenedStaysAsItIs) {
    const BadDatabase rows[] = {
        {"None", [](ProgramFolder&, CKuvelctl&) {}},
        {"Folder", [](ProgramFolder& folder, CKuvelctl&) { QDir().mkdir(folder.File("Kuvel.mdb")); }},
        {"Foreign",
         [](ProgramFolder& folder, CKuvelctl&) {
             PutDatabase(folder, [](QByteArray bytes) { return bytes.replace(68, 4, "Mine"); });
         }},
        {"Truncated",
         [](ProgramFolder& folder, CKuvelctl&) {
             PutDatabase(folder, [](const QByteArray& bytes) { return bytes.left(bytes.size() / 2); });
         }},
        {"CutInThePageOfTheHeader",
         [](ProgramFolder& folder, CKuvelctl&) {
             PutDatabase(folder, [](const QByteArray& bytes) { return bytes.left(700); });
         }},
        {"Empty", [](ProgramFolder& folder,
                     CKuvelctl&) { PutDatabase(folder, [](const QByteArray&) { return QByteArray(); }); }},
        {"Text",
         [](ProgramFolder& folder, CKuvelctl&) {
             PutDatabase(folder, [](const QByteArray&) { return QByteArray("obaly\n").repeated(1000); });
         }},
        {"ReadOnlyFolder",
         [](ProgramFolder& folder, CKuvelctl& program) {
             folder.AddDatabase();
             QFile::setPermissions(folder.Path(), QFile::ReadOwner | QFile::ExeOwner);
             program.BindByPermissions();
         }},
        {"ReadOnlyFile",
         [](ProgramFolder& folder, CKuvelctl& program) {
             folder.AddDatabase();
             QFile::setPermissions(folder.File("Kuvel.mdb"), QFile::ReadOwner);
             program.BindByPermissions();
         }},
    };
    for (const BadDatabase& row : rows) {
        ProgramFolder folder;
        CKuvelctl program(folder.Path());
        row.prepare(folder, program);
        const auto before = Contents(folder.Path());
        for (const char* command : {"recompute", "figures 2012 2", "check", "report 2012 2"}) {
            const CtlResult result = program.Run(QString::fromLatin1(command));
            EXPECT_EQ(1, result.exitCode) << row.name << " " << command;
            EXPECT_EQ("", result.output.toStdString()) << row.name << " " << command;
            EXPECT_EQ("Nemohu otevřít databázi '" + folder.File("Kuvel.mdb").toStdString() + "'\n",
                      result.errors.toStdString())
                << row.name << " " << command;
            EXPECT_EQ(before, Contents(folder.Path())) << row.name << " " << command;
        }
        QFile::setPermissions(folder.Path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

TEST(Kuvelctl, ALockedDatabaseStaysAsItIs) {
    const ProgramFolder folder;
    folder.AddDatabase();
    const auto before = Contents(folder.Path());
    sqlite3* holder = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(QFile::encodeName(folder.File("Kuvel.mdb")).constData(), &holder));
    ASSERT_EQ(SQLITE_OK, sqlite3_exec(holder, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr));
    const CtlResult result = CKuvelctl(folder.Path()).Run(QStringLiteral("recompute"));
    // Reading the file here while it is held would drop the lock.
    sqlite3_close(holder);
    EXPECT_EQ(1, result.exitCode);
    EXPECT_EQ("Nemohu otevřít databázi '" + folder.File("Kuvel.mdb").toStdString() + "'\n",
              result.errors.toStdString());
    EXPECT_EQ(before, Contents(folder.Path()));
}

TEST(Kuvelctl, AWriterElsewhereStopsTheRecomputation) {
    const CompanyFolder folder;
    sqlite3* writer = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(QFile::encodeName(folder.File("Kuvel.mdb")).constData(), &writer));
    ASSERT_EQ(SQLITE_OK, sqlite3_exec(writer, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr));
    const CtlResult result = CKuvelctl(folder.Path()).Run(QStringLiteral("recompute"));
    sqlite3_close(writer);
    EXPECT_EQ(1, result.exitCode);
    EXPECT_EQ("0 lines\n", result.output.toStdString());
    EXPECT_EQ("Došlo k chybě COM č.0x80070021\n\nDatabázi právě používá jiná aplikace.\n", result.errors.toStdString());
}

TEST(Kuvelctl, RecomputesOneProduct) {
    const CompanyFolder folder;
    const QString database = folder.File("Kuvel.mdb");
    const CKuvelctl program(folder.Path());
    Ask(database, "DELETE FROM Move_Cover");
    const long long lines = Ask(database, "SELECT count(*) FROM Move_Prod WHERE prod_id = 5");
    const CtlResult result = program.Run(QStringLiteral("recompute --product 5"));
    EXPECT_EQ(0, result.exitCode);
    EXPECT_EQ(std::to_string(lines) + " lines\n", result.output.toStdString());
    EXPECT_EQ(1, Ask(database, "SELECT count(DISTINCT prod_id) = 1 AND min(prod_id) = 5 FROM Move_Cover JOIN Move_Prod "
                               "USING (mvprod_id)"));
    const CtlResult unknown = program.Run(QStringLiteral("recompute --product 5000"));
    EXPECT_EQ(1, unknown.exitCode);
    EXPECT_EQ("kuvelctl: there is no product 5000\n", unknown.errors.toStdString());
}

TEST(Kuvelctl, ReportEndsWithThePathOfTheWorkbook) {
    const CompanyFolder folder;
    folder.AddTemplates();
    ASSERT_TRUE(WriteCompanyData(SampleCompanyData()));
    const CKuvelctl program(folder.Path());
    QString path;
    for (const char* arguments : {"report 2012 2", "report 2012 2 --corrective"}) {
        const CtlResult result = program.Run(QString::fromLatin1(arguments));
        EXPECT_EQ(0, result.exitCode) << result.errors.toStdString();
        EXPECT_EQ("", result.errors.toStdString());
        path = result.output.trimmed().section(u'\n', -1);
        EXPECT_TRUE(Matches(path, folder.Path() + QStringLiteral("Vykazy/ctvrtletni_vykaz_o_produkci_obalu*.XLS")))
            << path.toStdString();
    }
    const CXlsFile workbook(path.toStdString());
    EXPECT_EQ("opravný", workbook.Text("Úvod", "D5"));
    EXPECT_EQ(SampleCompanyData().name.toStdString(), workbook.Text("Úvod", "D7"));
    // The workbook and the list of figures are the same.
    const QStringList figures =
        program.Run(QStringLiteral("figures 2012 2")).output.split(u'\n', Qt::SkipEmptyParts).mid(1);
    EXPECT_LT(150, figures.size());
    for (const QString& line : figures) {
        const QStringList fields = line.split(u',');
        EXPECT_EQ(fields[2].toDouble(), workbook.Cell(fields[0].toStdString(), fields[1].toStdString()).number)
            << line.toStdString();
    }
    const CtlResult none = program.Run(QStringLiteral("report 2001 3"));
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
    program.Prepare(process, {QStringLiteral("--home"), folder.Path(), QStringLiteral("report"), QStringLiteral("2012"),
                              QStringLiteral("2")});
    process.start();
    ASSERT_TRUE(process.waitForStarted());
    const QDir reports(folder.Path() + QStringLiteral("Vykazy"));
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
    program.Prepare(process, {QStringLiteral("--home"), folder.Path(), QStringLiteral("figures"),
                              QStringLiteral("2012"), QStringLiteral("2")});
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
    terminal.setProgram(QStringLiteral("script"));
    terminal.setArguments(
        {QStringLiteral("-qec"),
         QStringLiteral("'%1' --home '%2' recompute").arg(QStringLiteral(KUVEL_BIN_DIR "/kuvelctl"), folder.Path()),
         QStringLiteral("/dev/null")});
    const CtlResult shown = CKuvelctl::Finish(terminal);
    EXPECT_EQ(0, shown.exitCode);
    EXPECT_TRUE(shown.output.contains(QStringLiteral("Aktualizuji kuvel u vydaných produktů 8956 z 9000")));
    EXPECT_TRUE(shown.output.endsWith(QStringLiteral("\r\x1b[K9000 lines\r\n")))
        << shown.output.right(60).toStdString();
    const CtlResult piped = program.Run(QStringLiteral("recompute"));
    EXPECT_EQ("9000 lines\n", piped.output.toStdString());
    EXPECT_EQ("", piped.errors.toStdString());
}

/// A recomputation that is broken off. Before it all packaging is wrong by one ten-thousandth, so that a line is either
/// old (wrong), or new (right), or torn.
class BrokenOff : public testing::Test {
protected:
    BrokenOff() : m_database(m_folder.File("Kuvel.mdb")), m_right(m_folder.File("right.mdb")) {
        EXPECT_TRUE(QFile::copy(m_database, m_right));
        Ask(m_database, "UPDATE Move_Cover SET mvcover_qty = mvcover_qty + 1");
        m_program.Prepare(m_process, {QStringLiteral("--home"), m_folder.Path(), QStringLiteral("recompute")});
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
        const std::string attach = "ATTACH '" + m_right.toStdString() + "' AS r; ";
        // Rows of a line that are right, that are old, and that it should have.
        const std::string lines =
            "SELECT l.mvprod_id AS line, (SELECT count(*) FROM r.Move_Cover AS c WHERE c.mvprod_id = l.mvprod_id) AS "
            "due, (SELECT count(*) FROM Move_Cover AS c WHERE c.mvprod_id = l.mvprod_id) AS present, "
            "(SELECT count(*) FROM Move_Cover AS c JOIN r.Move_Cover AS d ON d.mvprod_id = c.mvprod_id AND d.cover_id "
            "= "
            "c.cover_id AND d.mvcover_qty = c.mvcover_qty WHERE c.mvprod_id = l.mvprod_id) AS fresh FROM Move_Prod AS "
            "l "
            "JOIN Product AS p ON p.prod_id = l.prod_id WHERE p.deleted = 0";
        EXPECT_EQ(0, Ask(m_database, attach + "SELECT count(*) FROM (" + lines +
                                         ") WHERE present <> due OR (fresh <> 0 AND fresh < due)"));
        EXPECT_EQ(0, CKuvelctl(m_folder.Path()).Run(QStringLiteral("check")).exitCode);
        return Ask(m_database, attach + "SELECT count(*) FROM (" + lines + ") WHERE due > 0 AND fresh >= due");
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
    EXPECT_TRUE(output.endsWith(QStringLiteral(" lines\n"))) << output.toStdString();
    const long long lines = output.section(u' ', 0, 0).toLongLong();
    EXPECT_LT(0, lines);
    EXPECT_GT(9000, lines);
    EXPECT_LT(0, NewLines());
}

TEST_F(BrokenOff, AFullDiskLeavesWholeLines) {
    m_program.FillDiskAfter(2'000'000);
    const CtlResult result = m_program.Run(QStringLiteral("recompute"));
    EXPECT_EQ(1, result.exitCode);
    EXPECT_TRUE(
        result.errors.startsWith(QStringLiteral("Došlo k chybě COM č.0x80070070\n\nNa disku není dost místa.\n")))
        << result.errors.toStdString();
    const long long lines = NewLines();
    EXPECT_LT(0, lines);
    EXPECT_GT(8900, lines);
}

} // namespace
