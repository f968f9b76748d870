#include "core/report/office/OfficeSpreadsheet.h"
#include "tests/support/OtherProgram.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/XlsFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <signal.h>

#include <chrono>
#include <optional>
#include <set>
#include <thread>

// Real LibreOffice throughout. What it saves is read back without it.

using namespace std::chrono_literals;

namespace {

constexpr std::uint32_t badIndex = 0x8002000B;
constexpr std::uint32_t serverDied = 0x80010007;
constexpr std::uint32_t timedOut = 0x8001011F;

/// A cell with its type: "text 007", "number 1.2345", "empty".
std::string CellOf(const CXlsFile& file, const QString& address) {
    const auto cell = file.Cell("1-1", address.toStdString());
    switch (cell.kind) {
    case CXlsFile::CCell::EKind::Text:
        return "text " + cell.text;
    case CXlsFile::CCell::EKind::Number:
        return "number " + QString::number(cell.number, 'f', QLocale::FloatingPointShortest).toStdString();
    default:
        return "empty";
    }
}

/// Also of a file that is gone by now, as those of processes are.
QByteArray BytesIfAny(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A folder of the test's own for the workbooks, the office's temporary files and its kept profile. The locale is the
/// one that serves the office worst.
class OfficeSpreadsheet : public testing::Test {
protected:
    OfficeSpreadsheet() {
        m_root = qEnvironmentVariable("KUVEL_TEST_OFFICE"); // a death test's second process shares the first one's
        if (m_root.isEmpty()) {
            m_folder.emplace("/tmp/kot-XXXXXX");
            m_root = m_folder->path();
            qputenv("KUVEL_TEST_OFFICE", QFile::encodeName(m_root));
        }
        QDir().mkpath(m_root + "/tmp");
        QDir().mkpath(m_root + "/Výkazy č. 1");
        qputenv("TMPDIR", QFile::encodeName(m_root + "/tmp"));
        qputenv("XDG_CACHE_HOME", QFile::encodeName(m_root + "/cache"));
        qputenv("LC_ALL", "C");
        qunsetenv("KUVEL_SOFFICE");
    }
    ~OfficeSpreadsheet() override { qunsetenv("KUVEL_TEST_OFFICE"); }

    QString ReportFolder() const { return m_root + "/Výkazy č. 1"; }
    QStringList ReportFiles() const {
        return QDir(ReportFolder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    /// A new copy of the sample workbook, as .XLS.
    QString Workbook(const char* name = "výkaz.XLS") const {
        const QString sample = m_root + "/office.xls";
        if (!QFile::exists(sample))
            QProcess::execute("soffice",
                              {"--headless", "-env:UserInstallation=file://" + m_root + "/maker", "--convert-to",
                               "xls:MS Excel 97", "--outdir", m_root, KUVEL_SOURCE_DIR "/tests/data/office.fods"});
        const QString copy = ReportFolder() + "/" + QString::fromUtf8(name);
        QFile::remove(copy);
        EXPECT_TRUE(QFile::copy(sample, copy));
        return copy;
    }

    /// The processes of the offices that this test has started.
    std::vector<pid_t> OfficeProcesses() const {
        std::vector<pid_t> found;
        const QByteArray mark = "TMPDIR=" + QFile::encodeName(m_root) + "/tmp/kuvel-";
        for (const QString& process : QDir("/proc").entryList({"[0-9]*"}, QDir::Dirs))
            if (BytesIfAny("/proc/" + process + "/environ").contains(mark))
                found.push_back(process.toInt());
        for (const QString& run : QDir(m_root + "/tmp").entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            m_runs.insert(run);
        return found;
    }
    void SignalOffice(int number, const char* program = "") const {
        for (pid_t process : OfficeProcesses())
            if (BytesIfAny(QString("/proc/%1/cmdline").arg(process)).contains(program))
                kill(process, number);
    }
    /// No process, folder or socket of an office, waiting a little when the office was not ours to wait for.
    void ExpectNothingLeft(const std::vector<pid_t>& processes, std::chrono::milliseconds wait = 0ms) const {
        const QDir temporary(m_root + "/tmp");
        const auto left = [&] {
            return !temporary.isEmpty() || !OfficeProcesses().empty() ||
                   std::any_of(processes.begin(), processes.end(), [](pid_t p) { return kill(p, 0) == 0; });
        };
        const auto deadline = std::chrono::steady_clock::now() + wait;
        while (left() && std::chrono::steady_clock::now() < deadline)
            std::this_thread::sleep_for(20ms);
        EXPECT_FALSE(left());
        for (const QString& run : m_runs)
            EXPECT_TRUE(QDir("/tmp").entryList({"OSL_PIPE_*" + run}, QDir::System).isEmpty());
    }

    QString m_root;

private:
    std::optional<QTemporaryDir> m_folder;
    mutable std::set<QString> m_runs; // the names of the run folders met
};

} // namespace

TEST_F(OfficeSpreadsheet, WhatIsWrittenIsWhatTheSavedFileHolds) {
    static constexpr const char* texts[] = {"=1+1",
                                            "'x",
                                            "007",
                                            "1/2",
                                            "1.2.2012",
                                            "TRUE",
                                            "1e5",
                                            "12%",
                                            "+420 123 456 789",
                                            "@a",
                                            " a ",
                                            "http://a.cz/",
                                            "Žluťoučký \"s.r.o.\" & <synové>",
                                            "€ – 𝄞"};
    const std::pair<std::int64_t, const char*> amounts[] = {{1, "0.0001"},
                                                            {-1, "-0.0001"},
                                                            {12345, "1.2345"},
                                                            {0, "0"},
                                                            {-987654, "-98.7654"},
                                                            {71, "0.0071"},
                                                            {5368709119999, "536870911.9999"},
                                                            {99999999999999, "9999999999.9999"}};
    const QString path = Workbook();
    auto office = LibreOfficeFactory()();
    ASSERT_TRUE(office);
    auto workbook = office->Open(path);
    auto sheet = workbook->Worksheet("1-1");
    sheet->Activate();
    int row = 0;
    for (const char* text : texts) // A1 is formatted as text, A2 held a number, A3 a formula
        sheet->SetText(QString("A%1:A%1").arg(++row), QString::fromUtf8(text));
    row = 0;
    for (const auto& [count, shown] : amounts)
        sheet->SetCurrency(QString("C%1:C%1").arg(++row), Currency::FromCount(count));
    sheet->SetInteger("D1:D1", -3);
    sheet->SetInteger("D2:D2", 7);
    sheet->SetText("D2:D2", "");
    sheet->SetText("D3:D3", "x");
    sheet->SetCurrency("D3:D3", Currency::Null());
    EXPECT_EQ(ReportFiles(), QStringList{"výkaz.XLS"}) << "a lock file beside the open workbook";
    workbook->Save();
    workbook->Close();

    const CXlsFile saved(path.toStdString());
    row = 0;
    for (const char* text : texts)
        EXPECT_EQ(CellOf(saved, QString("A%1").arg(++row)), std::string("text ") + text);
    row = 0;
    for (const auto& [count, shown] : amounts)
        EXPECT_EQ(CellOf(saved, QString("C%1").arg(++row)), std::string("number ") + shown);
    EXPECT_EQ(CellOf(saved, "D1"), "number -3");
    EXPECT_EQ(CellOf(saved, "D2"), "empty");
    EXPECT_EQ(CellOf(saved, "D3"), "empty");
    // FreeXL does not read formulas. The result of B1 lies in the file as a double of eight bytes.
    const double product = -4.5;
    EXPECT_TRUE(FileBytes(path).contains(QByteArray(reinterpret_cast<const char*>(&product), sizeof product)))
        << "the formula was not calculated again";

    auto again = office->Open(path);
    auto reread = again->Worksheet("1-1");
    row = 0;
    for (const char* text : texts)
        EXPECT_EQ(reread->GetText(QString("A%1:A%1").arg(++row)).toStdString(), text);
    EXPECT_EQ(reread->GetText("C3:C3"), "1.2345");
    // The last cell of the format with the longest text of the format, which is more than FreeXL can read.
    const QString longest(32767, QChar(u'č'));
    reread->SetText("IV65536:IV65536", longest);
    again->Save();
    EXPECT_EQ(office->Open(path)->Worksheet("1-1")->GetText("IV65536:IV65536"), longest);
    office->Quit();
    ExpectNothingLeft({});
    EXPECT_EQ(ReportFiles(), QStringList{"výkaz.XLS"});
}

TEST_F(OfficeSpreadsheet, CellsReadAsText) {
    auto office = LibreOfficeFactory()();
    ASSERT_TRUE(office);
    auto workbook = office->Open(Workbook());
    auto sheet = workbook->Worksheet("ÚVOD"); // names fold case, as the program has always met them
    const char* expected[] = {"2,10", "2.19", "1000000", "219", "2.11"};
    int row = 0;
    for (const char* text : expected)
        EXPECT_EQ(sheet->GetText(QString("A%1:A%1").arg(++row)).toStdString(), text);
    EXPECT_EQ(sheet->GetText("Z99"), "");
}

TEST_F(OfficeSpreadsheet, WhatCannotBeDoneRaisesAndTheOfficeGoesOn) {
    const QString path = Workbook();
    const QByteArray whole = FileBytes(path);
    auto office = LibreOfficeFactory()();
    ASSERT_TRUE(office);
    auto workbook = office->Open(path);
    auto sheet = workbook->Worksheet("1-1");
    auto locked = workbook->Worksheet("Zamčený");
    const auto open = [&](const QByteArray& content) {
        WriteFile(ReportFolder() + "/jiný.XLS", content);
        office->Open(ReportFolder() + "/jiný.XLS");
    };
    const std::tuple<const char*, std::uint32_t, std::function<void()>> cases[] = {
        {"missing sheet", badIndex, [&] { workbook->Worksheet("3-1"); }},
        {"two cells", badIndex, [&] { sheet->SetText("A1:B1", "x"); }},
        {"column that the format does not hold", badIndex, [&] { sheet->SetInteger("IW1:IW1", 1); }},
        {"row that the format does not hold", badIndex, [&] { sheet->SetInteger("A65537:A65537", 1); }},
        {"text that the format cuts off", ResultCode::Fail, [&] { sheet->SetText("A1", QString(32768, 'x')); }},
        {"invalid amount", ResultCode::TypeMismatch, [&] { sheet->SetCurrency("A1", Currency::Invalid()); }},
        {"error value", ResultCode::TypeMismatch, [&] { workbook->Worksheet("Úvod")->GetText("A6"); }},
        {"locked cell", ResultCode::Fail, [&] { locked->SetText("A1:A1", "x"); }},
        {"open cell of a protected sheet", 0, [&] { locked->SetText("B1:B1", "x"); }},
        {"missing file", ResultCode::Fail, [&] { office->Open(ReportFolder() + "/není.XLS"); }},
        {"folder", ResultCode::Fail, [&] { office->Open(ReportFolder()); }},
        {"empty file", ResultCode::Corrupt, [&] { open({}); }},
        {"half a workbook", ResultCode::Corrupt, [&] { open(whole.left(whole.size() / 2)); }},
        {"other compressed file", ResultCode::Corrupt, [&] { open("PK\3\4" + QByteArray(200, 'x')); }},
        {"saving where a folder has taken the place", ResultCode::Fail,
         [&] {
             QFile::remove(path);
             QDir().mkdir(path);
             workbook->Save();
         }},
        {"saving when the place is free again", 0,
         [&] {
             QDir().rmdir(path);
             workbook->Save();
         }},
        {"closing", 0, [&] { workbook->Close(); }},
        {"closing twice", 0, [&] { workbook->Close(); }},
        {"saving a closed workbook", ResultCode::ObjectClosed, [&] { workbook->Save(); }},
        {"cell of a closed workbook", ResultCode::Fail, [&] { sheet->SetText("A1", "x"); }},
    };
    for (const auto& [what, code, act] : cases)
        EXPECT_EQ(CodeOf(act), code) << what;
    EXPECT_TRUE(ReportFiles().filter(".~lock").isEmpty());
    EXPECT_EQ(ReportFiles().filter("výkaz").size(), 1) << "a half-written file was left";
}

TEST_F(OfficeSpreadsheet, AKilledOrHangingOfficeRaisesAndLeavesTheFileWhole) {
    const QString path = Workbook();
    const QByteArray before = FileBytes(path);
    const std::tuple<const char*, int, const char*, std::uint32_t, bool> cases[] = {
        {"killed while writing", SIGKILL, "soffice.bin", serverDied, false},
        {"killed before saving", SIGKILL, "soffice.bin", serverDied, true},
        {"hanging while writing", SIGSTOP, "", timedOut, false},
        {"hanging while saving", SIGSTOP, "", timedOut, true}};
    for (const auto& [what, signal, program, code, atSave] : cases) {
        SCOPED_TRACE(what);
        OfficeLimits limits;
        limits.call = 3s; // ample for a call on a busy machine
        auto office = LibreOfficeFactory(limits)();
        ASSERT_TRUE(office);
        auto workbook = office->Open(path);
        auto sheet = workbook->Worksheet("1-1");
        sheet->SetInteger("A1:A1", 1);
        const auto processes = OfficeProcesses();
        EXPECT_GE(processes.size(), 2U);
        const auto start = std::chrono::steady_clock::now();
        SignalOffice(signal, program);
        EXPECT_EQ(CodeOf([&] { atSave ? workbook->Save() : sheet->SetInteger("A2:A2", 1); }), code);
        EXPECT_LT(std::chrono::steady_clock::now() - start, 8s);
        ExpectNothingLeft(processes);
        EXPECT_EQ(CodeOf([&] { workbook->Save(); }), code) << "later calls must raise too";
        EXPECT_EQ(CodeOf([&] { workbook->Close(); }), code);
        office->Quit();
        EXPECT_EQ(FileBytes(path), before);
        EXPECT_EQ(ReportFiles(), QStringList{"výkaz.XLS"});
    }
}

TEST_F(OfficeSpreadsheet, AnOfficeThatHangsAtItsEndIsEnded) {
    OfficeLimits limits;
    limits.quit = 1s;
    auto office = LibreOfficeFactory(limits)();
    ASSERT_TRUE(office);
    const auto processes = OfficeProcesses();
    SignalOffice(SIGSTOP);
    const auto start = std::chrono::steady_clock::now();
    office->Quit();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 4s);
    ExpectNothingLeft(processes);
}

TEST_F(OfficeSpreadsheet, AProgramThatIsNoOfficeAnswersNull) {
    const QString script = m_root + "/soffice";
    // The office is null where the program does not exist.
    const std::pair<const char*, const char*> cases[] = {
        {"missing", nullptr},
        {"not executable", ""},
        {"ends at once", "#!/bin/sh\nexit 81\n"},
        {"never answers", "#!/bin/sh\nsleep 1000\n"},
        {"never answers and shuns its end", "#!/bin/sh\ntrap '' TERM HUP INT\nsleep 1000 &\nsetsid sleep 1000\n"}};
    qputenv("KUVEL_SOFFICE", QFile::encodeName(script));
    for (const auto& [what, office] : cases) {
        SCOPED_TRACE(what);
        QFile::remove(script);
        if (office) {
            WriteFile(script, office);
            QFile(script).setPermissions(*office ? QFile::ReadOwner | QFile::ExeOwner : QFile::ReadOwner);
        }
        OfficeLimits limits;
        limits.start = 500ms;
        const auto start = std::chrono::steady_clock::now();
        EXPECT_FALSE(LibreOfficeFactory(limits)());
        EXPECT_LT(std::chrono::steady_clock::now() - start, 3s);
        ExpectNothingLeft({});
    }
}

TEST_F(OfficeSpreadsheet, TwoRunsAtOnceDoNotMeet) {
    const QString path = Workbook();
    auto first = LibreOfficeFactory()();
    auto second = LibreOfficeFactory()();
    ASSERT_TRUE(first && second);
    auto workbook = first->Open(path);
    auto other = second->Open(Workbook("druhý.XLS"));
    second->Quit();
    workbook->Worksheet("1-1")->SetInteger("A1:A1", 1);
    workbook->Save();
    EXPECT_EQ(CellOf(CXlsFile(path.toStdString()), "A1"), "number 1");
    first.reset();
    ExpectNothingLeft({});
}

TEST_F(OfficeSpreadsheet, ADamagedProfileDoesNotStopTheNextRun) {
    QDir().mkpath(m_root + "/cache/kuvel/office/user");
    WriteFile(m_root + "/cache/kuvel/office/user/registrymodifications.xcu", "<oor:items");
    EXPECT_TRUE(LibreOfficeFactory()());
    // A run that did not end well leaves its mark; the profile is then made anew.
    WriteFile(m_root + "/cache/kuvel/office/user/stranger", "x");
    WriteFile(m_root + "/cache/kuvel/office.unsound", "");
    EXPECT_TRUE(LibreOfficeFactory()());
    EXPECT_FALSE(QFile::exists(m_root + "/cache/kuvel/office/user/stranger"));
}

TEST_F(OfficeSpreadsheet, TheOfficeDiesWithTheProgram) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            auto office = LibreOfficeFactory()();
            fputs(office && !OfficeProcesses().empty() ? "the office runs" : "no office", stderr);
            raise(SIGKILL);
        },
        testing::KilledBySignal(SIGKILL), "the office runs");
    ExpectNothingLeft({}, 5s);
}
