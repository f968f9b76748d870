#include "bench/plain/Plain.h"
#include "bench/support/BenchFolder.h"
#include "bench/support/MoneyTables.h"
#include "bench/support/Pairs.h"

#include "core/import/money/MoneyImport.h"
#include "core/store/DataStore.h"
#include "windows/frame/doors/ProgressDlg.h"
#include "windows/frame/doors/ProgressDoor.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>
#include <cstdlib>

namespace {

/// What an earlier import and the work since then have left: every product with two rows of packaging, every document.
const char* const Packaging =
    "INSERT INTO Prod_CoverDT (prod_id, dt_from) SELECT prod_id, '2011-01-01 00:00:00' FROM Product;"
    "INSERT INTO Prod_Cover (dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cover_type, cover_org, cover_pay) "
    "SELECT dt_id, 1 + (dt_id + k) % 100, 10000, 100000, 1, k, 1, 1 FROM Prod_CoverDT, (SELECT 0 AS k UNION ALL SELECT "
    "1)";

class ImportRun {
public:
    explicit ImportRun(const QString& folder) : m_year{{}, folder + u'/', {}, folder + u'/'} {
        m_options.existing = ExistingRecords::Overwrite;
        m_store.OpenDatabase();
    }
    bool Run(IProgressDoor& progress = SilentProgress()) {
        CMoneySource source(m_year, m_options);
        return RunImport(m_store, source, m_options, progress, NobodyToAsk(), counts);
    }

    ImportCounts counts;

private:
    MoneyYear m_year;
    MoneyOptions m_options;
    CDataStore m_store;
};

void Require(bool holds) {
    if (!holds)
        std::abort();
}

/// What the import wrote, as one text.
std::string Rows(const BenchFolder& folder) {
    sqlite3* db = plain_open(folder.Database().c_str());
    std::string rows;
    for (const char* const sql :
         {"SELECT * FROM Product", "SELECT * FROM Move", "SELECT * FROM Move_Prod", "SELECT * FROM Move_Cover"}) {
        sqlite3_stmt* statement = plain_prepare(db, sql);
        while (sqlite3_step(statement) == SQLITE_ROW)
            for (int column = 0; column < sqlite3_column_count(statement); ++column)
                if (const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column)))
                    rows.append(text).push_back('|');
        sqlite3_finalize(statement);
    }
    plain_close(db);
    return rows;
}

/// How long the import leaves the window without a turn of its events.
class Heartbeat {
public:
    Heartbeat() {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { Beat(); });
        m_timer.start(0);
        m_since.start();
    }
    double LongestMilliseconds() const { return m_longest; }

private:
    void Beat() {
        m_longest = std::max(m_longest, static_cast<double>(m_since.nsecsElapsed()) / 1e6), m_since.restart();
    }

    QTimer m_timer;
    QElapsedTimer m_since;
    double m_longest = 0;
};

void WindowStaysAlive(const BenchFolder& database, const QString& tables) {
    database.Restore();
    QMainWindow frame;
    frame.show();
    CProgressDoor door(frame);
    {
        const Heartbeat heart;
        Require(ImportRun(tables).Run(door));
        Report("import-window-gap", heart.LongestMilliseconds(), 200, "ms");
    }
    // Cancel is pressed at a moment of the second phase that has nothing to do with its steps.
    std::vector<double> waits;
    for (int delay = 0; delay < 9; ++delay) {
        database.Restore();
        QElapsedTimer pressed;
        ImportRun run(tables);
        QTimer press;
        QObject::connect(&press, &QTimer::timeout, [&] {
            const auto* dialog = frame.findChild<CProgressDlg*>();
            if (dialog == nullptr || pressed.isValid() || dialog->findChild<QProgressBar*>()->value() < 20 + 17 * delay)
                return;
            pressed.start();
            dialog->findChild<QPushButton*>(QStringLiteral("cancel"))->click();
        });
        press.start(7);
        try {
            run.Run(door);
            std::abort();
        } catch (const ImportCancelled&) {
            waits.push_back(static_cast<double>(pressed.nsecsElapsed()) / 1e6);
        }
    }
    Report("import-cancel", *std::max_element(waits.begin(), waits.end()), 200, "ms");
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const QApplication app(argc, argv);
    ReadArguments(argc, argv);
    const int cards = Sized(50000);
    const int documents = Sized(40000);
    const int lines = Sized(200000);
    const QTemporaryDir tables;
    WriteMoneyTables(tables.path(), cards, documents, lines);
    const auto program = [&] {
        ImportRun run(tables.path());
        Require(run.Run() && run.counts.products == cards && run.counts.documents == documents);
    };
    const BenchFolder database;
    const auto plain = [&] {
        sqlite3* db = plain_open(database.Database().c_str());
        Require(plain_import(db, tables.path().toUtf8().constData()) == lines);
        plain_close(db);
    };
    database.Keep();
    double bytes = 0;
    for (const QFileInfo& table : QDir(tables.path()).entryInfoList(QDir::Files))
        bytes += static_cast<double>(table.size());
    // First: what the program frees later would hide what it needs.
    const double peak = PeakMegabytes(program, [&] { ImportRun run(tables.path()); });
    Report("import-memory", peak * 1024 * 1024 / bytes, 3, "times the tables");
    Measure({"import-first", 2, 5, [&] { database.Restore(); }, program, plain});
    WindowStaysAlive(database, tables.path());
    database.Restore();
    program();
    database.Sql(Packaging);
    database.Keep();
    Measure({"import-again", 2, 5, [&] { database.Restore(); }, program, plain});
    database.Restore();
    program();
    const std::string written = Rows(database);
    database.Restore();
    plain();
    Require(written == Rows(database));
}
