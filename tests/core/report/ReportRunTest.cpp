#include "core/report/ReportRun.h"

#include "core/base/AppDir.h"
#include "core/base/SqlText.h"
#include "core/report/TemplateFile.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <new>

namespace {

/// A spreadsheet that answers as told and writes down what it is asked: "open", "activate 1-1", "D4:D4=3", "save",
/// "close", "quit".
struct Office {
    enum class Start { Works, None, Raises };

    Start start = Start::Works;
    QString version = QStringLiteral("2.19");
    QString quarter = QStringLiteral("3");
    QStringList absent;
    /// Names of sheets that it does not have, as an office says it that knows no empty answer.
    QStringList rejected;
    /// The first step that begins so fails.
    QString failAt;
    bool failsOtherwise = false;
    /// From then on everything fails, as when the application is gone.
    bool isGone = false;
    bool diesAtFailure = false;
    QStringList log;
    QString path;

    void Do(const QString& step) {
        log << step;
        if (isGone)
            Fail();
        if (!failAt.isEmpty() && step.startsWith(failAt)) {
            isGone = diesAtFailure;
            failAt.clear();
            if (failsOtherwise)
                throw std::bad_alloc();
            Fail();
        }
    }
    [[noreturn]] static void Fail() { throw ComError("office", {}, ResultCode::Fail, QStringLiteral("broken")); }
};

class FakeSheet : public IWorksheet {
public:
    FakeSheet(Office& office, const QString& name) : m_office(office), m_name(name) {}
    void Activate() override { m_office.Do(QStringLiteral("activate ") + m_name); }
    QString GetText(const QString& range) override {
        return range == u"A1:A1" ? m_office.version : range == u"D4:D4" ? m_office.quarter : QString();
    }
    void SetText(const QString& range, const QString& text) override {
        m_office.Do(range + QStringLiteral("='") + text + u'\'');
    }
    void SetInteger(const QString& range, std::int32_t value) override {
        m_office.Do(range + u'=' + QString::number(value));
    }
    void SetCurrency(const QString& range, Currency value) override {
        m_office.Do(range + u'=' + FormatCurrency(value, 1, 'D'));
    }

private:
    Office& m_office;
    QString m_name;
};

class FakeBook : public IWorkbook {
public:
    explicit FakeBook(Office& office) : m_office(office) {}
    std::unique_ptr<IWorksheet> Worksheet(const QString& name) override {
        m_office.Do(QStringLiteral("sheet ") + name);
        m_office.log.removeLast();
        if (m_office.rejected.contains(name))
            throw ComError("sheet", name.toStdString(), NoSuchSheet, QStringLiteral("no such sheet"));
        return m_office.absent.contains(name) ? nullptr : std::make_unique<FakeSheet>(m_office, name);
    }
    void Save() override {
        m_office.Do(QStringLiteral("save"));
        WriteFile(m_office.path, "filled");
    }
    void Close() override { m_office.Do(QStringLiteral("close")); }

private:
    Office& m_office;
};

class FakeSpreadsheet : public ISpreadsheet {
public:
    explicit FakeSpreadsheet(Office& office) : m_office(office) {}
    std::unique_ptr<IWorkbook> Open(const QString& path) override {
        m_office.Do(QStringLiteral("open"));
        m_office.path = path;
        if (!QFile::exists(path))
            throw ComError("open", path.toStdString(), ResultCode::Fail, QStringLiteral("no such file"));
        return std::make_unique<FakeBook>(m_office);
    }
    void Quit() override { m_office.Do(QStringLiteral("quit")); }

private:
    Office& m_office;
};

SpreadsheetFactory Starting(Office& office) {
    return [&]() -> std::unique_ptr<ISpreadsheet> {
        if (office.start == Office::Start::Raises)
            Office::Fail();
        return office.start == Office::Start::None ? nullptr : std::make_unique<FakeSpreadsheet>(office);
    };
}

/// A company with one figure on sheet 1-1 and one on 3-1 in the third quarter of 2012, and the year's template.
struct ReportFolderTest : StoreFolder {
    Office office;
    RecordedProgress progress;
    ReportRequest request{{2012, 3}, true, {}};

    ReportFolderTest() {
        Sql("INSERT INTO Cover (cover_id, cover_mat, cover_type, cover_weight, cover_reusable) VALUES "
            "(1, 7, 2, 10000000, 0), (2, 0, 2, 10000000, 1);"
            "INSERT INTO Move (move_id, move_date, move_export) VALUES (1, '2012-09-30', 0);"
            "INSERT INTO Move_Cover (move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay) VALUES "
            "(1, 1, 12345, 2, 2, 1);"
            "INSERT INTO CoverDiscard (cover_id, disc_date, disc_qty, disc_type) VALUES (2, '2012-07-01', 30000, 0)");
        WriteFile(folder.File("vykaz2012.tpl"), "template");
    }

    QString Run() { return RunReport(store, progress, Starting(office), request); }
    /// What the report folder holds: "name=content".
    QString Reports() const {
        QStringList files;
        for (const QString& name : QDir(ReportFolder()).entryList(QDir::Files | QDir::Hidden))
            files << name + u'=' + QString::fromUtf8(FileBytes(ReportFolder() + u'/' + name));
        return files.join(u' ');
    }
    QString Filled(const char* text) const { return MessageText(text, g_strAppDir); }
};

TEST(ReportRun, FillsSavesAndCloses) {
    ReportFolderTest test;
    ScriptedMessages messages;
    test.request.company.name = QStringLiteral("=1+1");
    test.request.company.invoiceMail = QStringLiteral("faktury@obaly.cz");
    EXPECT_EQ(test.folder.File("Vykazy/ctvrtletni_vykaz_o_produkci_obalu070201.XLS"), test.Run());
    EXPECT_EQ(QStringLiteral("ctvrtletni_vykaz_o_produkci_obalu070201.XLS=filled"), test.Reports());
    EXPECT_EQ("open|activate Úvod|D7:D7='=1+1'|D9:D9=''|E11:E11='faktury@obaly.cz'|C13:C13=''|F13:F13=''|F15:F15=''|"
              "D19:D19=''|C20:C20=''|C21:C21=''|C22:C22=''|"
              "activate 1-1|C25:C25=1,2345|activate 1-2|activate 1-3|activate 1-4|activate 2-1|activate 2-2|"
              "activate 2-3|activate 2-4|activate 3-1|D32:D32=3,0000|activate 4-1|activate Úvod|save|close|quit",
              test.office.log.join(u'|').toStdString());
    EXPECT_EQ("title Sestavení výkazu|range 0 200|phase Spouštím excel|phase sešit Úvod|phase sešit 1-1|position 0|"
              "detail 1 z 1|position 200|phase sešit 1-2|phase sešit 1-3|phase sešit 1-4|phase sešit 2-1|"
              "phase sešit 2-2|phase sešit 2-3|phase sešit 2-4|phase sešit 3-1|position 0|detail 1 z 1|position 200|"
              "phase sešit 4-1|closed",
              QStringList(test.progress.lines.begin(), test.progress.lines.end()).join(u'|').toStdString());
}

TEST(ReportRun, GoesOnWithoutAFigureSheetAndLeavesASavedReport) {
    ReportFolderTest test;
    ScriptedMessages messages;
    test.office.absent = QStringList{QStringLiteral("1-3"), QStringLiteral("3-1")};
    test.office.failAt = QStringLiteral("close");
    EXPECT_FALSE(test.Run().isEmpty());
    EXPECT_TRUE(test.office.log.contains("C25:C25=1,2345"));
    EXPECT_FALSE(test.office.log.contains("D32:D32=3,0000"));
    EXPECT_TRUE(test.office.log.contains("activate 4-1"));
    EXPECT_EQ("quit", test.office.log.last().toStdString());
    EXPECT_EQ(QStringLiteral("ctvrtletni_vykaz_o_produkci_obalu070201.XLS=filled"), test.Reports());
}

constexpr const char* Broken = "Došlo k chybě COM č.0x80004005\n\nbroken";

struct FailureCase {
    const char* name;
    void (*script)(ReportFolderTest& test);
    const char* message; // %s is the program folder; empty for none
    Message::Icon icon;
    const char* log; // what the spreadsheet was asked at the end
    const char* remains = "";
};

constexpr auto Error = Message::Icon::Error;
constexpr auto Warning = Message::Icon::Warning;

const FailureCase Failures[] = {
    {"NoTemplate", [](ReportFolderTest& t) { QFile::remove(t.folder.File("vykaz2012.tpl")); },
     "Nemohu najít soubor s předlohou výkazu \"%svykaz2012.tpl_3\"", Warning, ""},
    {"FolderIsAFile", [](ReportFolderTest& t) { WriteFile(t.folder.File("Vykazy"), "x"); },
     "Nemohu vytvořit soubor \"%sVykazy/ctvrtletni_vykaz_o_produkci_obalu070201.XLS\"!", Error, ""},
    {"TemplateIsAFolder", [](ReportFolderTest& t) { QDir().mkpath(t.folder.File("vykaz2012_2.tpl")); },
     "Nemohu vytvořit soubor \"%sVykazy/ctvrtletni_vykaz_o_produkci_obalu070201.XLS\"!", Error, ""},
    {"NoSpreadsheet", [](ReportFolderTest& t) { t.office.start = Office::Start::None; },
     "Na tomto počítači pravděpodobně nemáte nainstalován Excel!", Error, "",
     "ctvrtletni_vykaz_o_produkci_obalu070201.XLS=template"},
    {"StartRaises", [](ReportFolderTest& t) { t.office.start = Office::Start::Raises; }, Broken, Error, ""},
    {"CannotOpen", [](ReportFolderTest& t) { t.office.failAt = "open"; }, Broken, Error, "open|quit"},
    {"NoIntroduction", [](ReportFolderTest& t) { t.office.absent << "Úvod"; },
     "Soubor '%svykaz2012.tpl' neobsahuje předlohu výkazu", Warning, "open|close|quit"},
    {"IntroductionMissing", [](ReportFolderTest& t) { t.office.rejected << "Úvod"; },
     "Soubor '%svykaz2012.tpl' neobsahuje předlohu výkazu", Warning, "open|close|quit"},
    {"FigureSheetMissing", [](ReportFolderTest& t) { t.office.rejected << "3-1"; },
     "Došlo k chybě COM č.0x8002000B\n\nno such sheet", Error, "activate 2-4|close|quit"},
    {"IntroductionRejected", [](ReportFolderTest& t) { t.office.failAt = "sheet Úvod"; }, Broken, Error,
     "open|sheet Úvod|close|quit"},
    {"OtherQuarter", [](ReportFolderTest& t) { t.office.quarter = "2"; },
     "Soubor '%svykaz2012.tpl'\nneobsahuje předlohu výkazu pro 3. čtvrtletí 2012!", Warning,
     "open|activate Úvod|close|quit"},
    {"IntroductionCell", [](ReportFolderTest& t) { t.office.failAt = "F15"; }, Broken, Error, "F15:F15=''|close|quit"},
    {"FigureCell", [](ReportFolderTest& t) { t.office.failAt = "C25"; }, Broken, Error, "C25:C25=1,2345|close|quit"},
    {"CannotActivate", [](ReportFolderTest& t) { t.office.failAt = "activate 2-4"; }, Broken, Error,
     "activate 2-4|close|quit"},
    {"CannotSave", [](ReportFolderTest& t) { t.office.failAt = "save"; }, Broken, Error, "save|close|quit"},
    {"SpreadsheetDies",
     [](ReportFolderTest& t) {
         t.office.failAt = QStringLiteral("activate 1-4");
         t.office.diesAtFailure = true;
     },
     Broken, Error, "activate 1-4|close|quit"},
    {"AnotherException",
     [](ReportFolderTest& t) {
         t.office.failAt = QStringLiteral("activate 1-4");
         t.office.failsOtherwise = true;
     },
     "", Error, "activate 1-4|close|quit"},
    {"Database", [](ReportFolderTest& t) { t.store.CloseDatabase(); },
     "Došlo k chybě COM č.0x800A0E78\n\nDatabáze není otevřena.", Error, "activate 1-1|close|quit"},
};

TEST(ReportRun, AFailureIsShownAndCleanedUp) {
    for (const FailureCase& c : Failures) {
        SCOPED_TRACE(c.name);
        ReportFolderTest test;
        ScriptedMessages messages;
        c.script(test);
        const QString text = QString::fromUtf8(c.message);
        if (!text.isEmpty())
            messages.Expect(text.contains(u"%s") ? test.Filled(c.message) : text, c.icon);
        QString atMessage = c.remains;
        messages.Meanwhile([&] { atMessage = test.Reports(); });
        EXPECT_EQ("", test.Run().toStdString());
        EXPECT_EQ(c.remains, test.Reports().toStdString());
        EXPECT_EQ(c.remains, atMessage.toStdString());
        const QString log = test.office.log.join(u'|');
        EXPECT_TRUE(*c.log == '\0' ? log.isEmpty() : log.endsWith(c.log)) << log.toStdString();
        EXPECT_TRUE(test.progress.lines.empty() || test.progress.lines.back() == "closed");
    }
}

TEST(ReportRun, SaysWhenTheDaysNamesAreTaken) {
    ReportFolderTest test;
    ScriptedMessages messages;
    QDir().mkpath(ReportFolder());
    for (int n = 1; n <= 99; ++n)
        WriteFile(ReportFolder() + MessageText("/ctvrtletni_vykaz_o_produkci_obalu0702%02i.XLS", n), "old");
    messages.Expect(MessageText("Došlo k chybě COM č.0x80004005\n\nVšech 99 názvů výkazů pro dnešní den je použito. "
                                "Odstraňte nebo přesuňte starší výkazy ze složky '%s'.",
                                ReportFolder()),
                    Message::Icon::Error);
    EXPECT_EQ("", test.Run().toStdString());
    EXPECT_EQ("quit", test.office.log.join(u'|').toStdString());
    EXPECT_EQ(99, test.Reports().count("=old"));
}

} // namespace
