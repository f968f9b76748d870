#include "core/store/backup/Backup.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/OtherProgram.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <cstring>
#include <sys/wait.h>
#include <unistd.h>

namespace {

QString Win32Error(int code) {
    return QStringLiteral("Došlo k chybě č.%1\n\n%2").arg(code).arg(QString::fromUtf8(std::strerror(code)));
}

/// A program folder whose database holds one mark, and what a backup or restore did besides.
struct Backups : testing::Test {
    StoreFolder f;
    ScriptedMessages messages;
    int reloads = 0;
    std::vector<int> ended;
    BackupActions actions{[this] { ++reloads; }, [this](int code) { ended.push_back(code); }};

    QString File(const char* name) const { return f.folder.File(name); }
    QString Database() const { return File("Kuvel.mdb"); }
    QString CannotOpen(const char* why = "Soubor není databází programu.") const {
        return QStringLiteral("Nemohu otevřít databázi '%1'\n%2").arg(Database(), QString::fromUtf8(why));
    }
    void Mark(int mark) const { f.Sql("DELETE FROM TmpID; INSERT INTO TmpID VALUES (" + std::to_string(mark) + ")"); }
    std::string Marks() const { return f.AskAll("SELECT id FROM TmpID"); }
    bool Backup(const QString& target) { return BackupDatabase(f.store, target, actions); }
    bool Restore(const QString& source) { return RestoreDatabase(f.store, source, actions); }
    QStringList Files() const {
        QStringList files = QDir(f.folder.Path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
        files.removeAll(QStringLiteral("Kuvel.mdb-journal"));
        return files;
    }
};

/// The data of a file that is not the live one.
std::string MarksIn(const QString& path) {
    ProgramFolder other;
    EXPECT_TRUE(QFile::copy(path, other.File("Kuvel.mdb")));
    return other.AskAll("SELECT id FROM TmpID");
}

} // namespace

TEST_F(Backups, DefaultNameHasTheWholeYear) {
    EXPECT_EQ(File("Zalohy/Zaloha20120702.mdb"), DefaultBackupPath());
}

TEST_F(Backups, BackupMakesMissingFoldersAndIsTheSameFile) {
    Mark(1);
    const QString target = File("a/b c/zaloha.mdb");
    EXPECT_TRUE(Backup(target));
    EXPECT_EQ(FileBytes(Database()), FileBytes(target));
    EXPECT_EQ(1, reloads);
    EXPECT_TRUE(f.store.IsOpen());
    EXPECT_EQ(QStringList(QStringLiteral("zaloha.mdb")), QDir(File("a/b c")).entryList(QDir::Files | QDir::Hidden));
}

TEST_F(Backups, AnExistingTargetIsAskedAbout) {
    const QString target = File("stara.mdb");
    const QString question = QStringLiteral("Soubor '%1' již existuje. Přejete si ho přepsat?").arg(target);
    WriteFile(target, "stara");
    messages.ExpectQuestion(question, Message::Answer::No);
    EXPECT_FALSE(Backup(target));
    EXPECT_EQ("stara", FileBytes(target));
    EXPECT_EQ(0, reloads);
    messages.ExpectQuestion(question, Message::Answer::Yes);
    EXPECT_TRUE(Backup(target));
    EXPECT_EQ(FileBytes(Database()), FileBytes(target));
}

TEST_F(Backups, ATargetThatCannotBeWrittenLeavesEverythingAsItWas) {
    Mark(7);
    QDir(f.folder.Path()).mkdir("slozka");
    ASSERT_TRUE(QFile::link(Database(), File("odkaz.mdb")));
    WriteFile(File("soubor"), "x");
    struct Row {
        QString target;
        bool asked;
        int error;
    };
    const Row rows[] = {
        {Database(), true, EBUSY},  {File("odkaz.mdb"), true, EBUSY},       {File("slozka"), false, EISDIR},
        {QString(), false, ENOENT}, {File("soubor/x.mdb"), false, ENOTDIR}, {File("nova/x.mdb/"), false, ENOENT},
    };
    const QStringList before = Files();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.target.toStdString());
        if (row.asked)
            messages.ExpectQuestion(QStringLiteral("Soubor '%1' již existuje. Přejete si ho přepsat?").arg(row.target),
                                    Message::Answer::Yes);
        messages.Expect(Win32Error(row.error), Message::Icon::Error);
        EXPECT_FALSE(Backup(row.target));
        EXPECT_TRUE(f.store.IsOpen());
        EXPECT_EQ("7", Marks());
        EXPECT_EQ(before, Files());
    }
    EXPECT_EQ(static_cast<int>(std::size(rows)), reloads);
}

TEST_F(Backups, ACopyThatDoesNotFitIsNotThere) {
    Mark(1);
    ASSERT_TRUE(Backup(File("plna.mdb")));
    const QByteArray backup = FileBytes(File("plna.mdb"));
    const QStringList before = Files();
    Mark(2);
    messages.ExpectQuestion(QStringLiteral("Soubor '%1' již existuje. Přejete si ho přepsat?").arg(File("plna.mdb")),
                            Message::Answer::Yes);
    messages.Expect(Win32Error(EFBIG), Message::Icon::Error);
    messages.Expect(Win32Error(EFBIG), Message::Icon::Error);
    {
        const SmallDisk disk(20000);
        EXPECT_FALSE(Backup(File("plna.mdb")));
        EXPECT_EQ(backup, FileBytes(File("plna.mdb")));
        EXPECT_FALSE(Restore(File("plna.mdb")));
    }
    EXPECT_EQ("2", Marks());
    EXPECT_EQ(before, Files());
}

TEST_F(Backups, ABackupIsWholeWhileAnotherProgramReads) {
    Mark(5);
    OtherProgram other(f.folder);
    other.Run("BEGIN; SELECT * FROM TmpID");
    EXPECT_TRUE(Backup(File("z.mdb")));
    EXPECT_EQ("5", MarksIn(File("z.mdb")));
}

TEST_F(Backups, ProcessEndsWhenTheDatabaseIsGoneAfterABackup) {
    messages.Expect(Win32Error(EISDIR), Message::Icon::Error);
    messages.Meanwhile([&] { QFile::remove(Database()); });
    messages.Expect(CannotOpen("Soubor neexistuje."), Message::Icon::Error);
    messages.Expect("Během zálohování došlo k chybě. Program bude ukončen!", Message::Icon::Warning);
    EXPECT_FALSE(Backup(f.folder.Path()));
    EXPECT_EQ(std::vector<int>{1}, ended);
    EXPECT_EQ(0, reloads);
}

TEST_F(Backups, RestoreBringsTheOldDataBackAndKeepsTheNew) {
    Mark(1);
    ASSERT_TRUE(Backup(File("z.mdb")));
    Mark(2);
    EXPECT_TRUE(Restore(File("z.mdb")));
    EXPECT_EQ("1", Marks());
    EXPECT_EQ("2", MarksIn(File("KuvelTmp.MDB")));
    EXPECT_EQ(2, reloads);
    EXPECT_TRUE(Restore(File("KuvelTmp.MDB"))); // taken back
    EXPECT_EQ("2", Marks());
    EXPECT_EQ("1", MarksIn(File("KuvelTmp.MDB")));
}

TEST_F(Backups, ARestoreWithoutASourceChangesNothing) {
    Mark(3);
    for (const QString& source : {File("neni.mdb"), f.folder.Path(), QString()}) {
        messages.Expect(QStringLiteral("Nemohu nalézt soubor '%1'!").arg(source), Message::Icon::Warning);
        EXPECT_FALSE(Restore(source));
    }
    EXPECT_EQ(0, reloads);
    EXPECT_FALSE(QFile::exists(File("KuvelTmp.MDB")));
    messages.Expect(Win32Error(EBUSY), Message::Icon::Error);
    EXPECT_FALSE(Restore(Database()));
    EXPECT_EQ("3", Marks());
    EXPECT_EQ(1, reloads);
}

TEST_F(Backups, ASourceThatIsNoDatabaseOfOursPutsTheOldDataBack) {
    Mark(9);
    const QByteArray whole = FileBytes(Database());
    QByteArray scratched = whole;
    scratched.replace(whole.size() / 2, 3000, QByteArray(3000, 'x'));
    QByteArray stranger = whole;
    stranger[71] = 'X'; // the application id
    const char* const foreign = "Soubor není databází programu.";
    const char* const damaged = "Soubor databáze je poškozen.";
    const std::pair<QByteArray, const char*> sources[] = {{"jen text", foreign},
                                                          {"", foreign},
                                                          {scratched, damaged},
                                                          {stranger, foreign},
                                                          {whole.first(whole.size() / 2), damaged}};
    for (const auto& [source, why] : sources) {
        SCOPED_TRACE(source.size());
        WriteFile(File("zaloha.mdb"), source);
        messages.Expect(CannotOpen(why), Message::Icon::Error);
        bool putBack = false;
        EXPECT_TRUE(RestoreDatabase(f.store, File("zaloha.mdb"), actions, &putBack));
        EXPECT_TRUE(putBack);
        EXPECT_EQ(whole, FileBytes(Database()));
        EXPECT_TRUE(f.store.IsOpen());
    }
    EXPECT_EQ(static_cast<int>(std::size(sources)), reloads);
    EXPECT_TRUE(ended.empty());
}

TEST_F(Backups, WithoutASafetyCopyOnlyAWholeDatabaseIsLetIn) {
    Mark(1);
    ASSERT_TRUE(Backup(File("z.mdb")));
    Mark(2);
    QDir(f.folder.Path()).mkdir("KuvelTmp.MDB");
    WriteFile(File("text.mdb"), "jen text");
    messages.Expect(Win32Error(EISDIR), Message::Icon::Error);
    EXPECT_FALSE(Restore(File("text.mdb")));
    EXPECT_EQ("2", Marks());
    EXPECT_TRUE(Restore(File("z.mdb")));
    EXPECT_EQ("1", Marks());
}

TEST_F(Backups, ProcessEndsWhenTheSafetyCopyIsGoneToo) {
    WriteFile(File("text.mdb"), "jen text");
    messages.Expect(CannotOpen(), Message::Icon::Error);
    messages.Meanwhile([&] { QFile::remove(File("KuvelTmp.MDB")); });
    messages.Expect(CannotOpen(), Message::Icon::Error);
    messages.Expect("Během obnovování zálohy došlo k chybě. Program bude ukončen!", Message::Icon::Warning);
    Restore(File("text.mdb"));
    EXPECT_EQ(std::vector<int>{1}, ended);
    EXPECT_EQ(0, reloads);
}

TEST_F(Backups, AJournalLeftByACrashIsNotAppliedToTheRestoredData) {
    f.Sql("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) INSERT INTO TmpID SELECT i "
          "FROM n");
    ASSERT_TRUE(Backup(File("z.mdb")));
    f.store.CloseDatabase();
    EXPECT_EQ("signal 9", InChild([&]() -> std::string {
                  OtherProgram other(f.folder);
                  // A cache of ten pages: the change reaches the file, its undoing the journal.
                  other.Run("PRAGMA cache_size = 10; BEGIN; UPDATE TmpID SET id = id + 1000000");
                  raise(SIGKILL);
                  return {};
              }));
    ASSERT_GT(QFileInfo(Database() + "-journal").size(), 0);
    EXPECT_TRUE(Restore(File("z.mdb")));
    EXPECT_EQ("20000|20000", f.AskAll("SELECT count(*), max(id) FROM TmpID"));
    EXPECT_EQ("ok", f.AskAll("PRAGMA integrity_check"));
}

TEST_F(Backups, AJournalOfALostDatabaseIsMovedAway) {
    Mark(1);
    ASSERT_TRUE(Backup(File("z.mdb")));
    f.store.CloseDatabase();
    QFile::remove(Database());
    WriteFile(File("Kuvel.mdb-journal"), "rows");
    EXPECT_TRUE(Restore(File("z.mdb")));
    EXPECT_EQ("rows", FileBytes(File("Kuvel.mdb-journal.old")));
    EXPECT_EQ("1", Marks());
}

TEST_F(Backups, AKillLeavesTheOldOrTheNewDataWhole) {
    const std::string fill = "DELETE FROM TmpID; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE "
                             "i < 40000) INSERT INTO TmpID SELECT i + ";
    f.Sql(fill + "0 FROM n");
    ASSERT_TRUE(Backup(File("a.mdb")));
    f.Sql(fill + "1000000 FROM n");
    ASSERT_TRUE(Backup(File("b.mdb")));
    f.store.CloseDatabase();

    for (int round = 0; round < 20; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            messages.AcceptAny();
            CDataStore store;
            for (;;) {
                RestoreDatabase(store, File("a.mdb"), actions);
                RestoreDatabase(store, File("b.mdb"), actions);
                QFile::remove(File("c.mdb"));
                BackupDatabase(store, File("c.mdb"), actions);
            }
        }
        usleep(1000 + 3000 * round);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        ASSERT_TRUE(f.store.OpenDatabase(true)) << round;
        const std::string marks = f.AskAll("SELECT count(*), min(id) FROM TmpID");
        EXPECT_TRUE(marks == "40000|1" || marks == "40000|1000001") << marks;
        f.store.CloseDatabase();
        if (QFile::exists(File("c.mdb"))) {
            EXPECT_EQ(FileBytes(File("b.mdb")), FileBytes(File("c.mdb")));
        }
    }
}
