#include "bench/plain/Plain.h"
#include "bench/support/BenchFolder.h"
#include "bench/support/Pairs.h"

#include "core/base/Messages.h"
#include "core/rules/FindRequest.h"
#include "core/store/DataStore.h"
#include "windows/frame/doors/Desktop.h"
#include "windows/registers/covers/ViewCover.h"
#include "windows/widgets/Beep.h"
#include "windows/widgets/lists/RecordList.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <optional>
#include <vector>

namespace {

class NoFrame : public IBroadcaster {
public:
    void Broadcast(ViewMessage, CRegisterView*) override {}
};

class YesDoor : public IMessageDoor {
public:
    Message::Answer Show(const Message& message) override {
        return message.buttons == Message::Buttons::YesNo ? Message::Answer::Yes : Message::Answer::Ok;
    }
};

/// The covers register in a window of the usual size, painted once.
struct ShownRegister {
    CDataStore store;
    NoFrame frame;
    std::unique_ptr<CViewCover> view;

    ShownRegister() {
        store.OpenDatabase();
        view = std::make_unique<CViewCover>(store, frame);
        view->resize(1000, 600);
        view->InitialUpdate();
        view->show();
        view->grab();
    }
    void Ask(FindMode mode, const QString& find, bool partial, const QString& replace = {}) const {
        view->FindReplace({mode, "cover_name", find, replace, partial});
    }
    RecordList& Covers() const { return *view->findChild<RecordList*>(QStringLiteral("covers")); }
};

void FillCovers(const BenchFolder& folder, int count) {
    folder.Sql("WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(count) +
               ") INSERT INTO Cover SELECT i, 'Obal č. ' || (i * 7919 % 1000003), i % 30, 100 + i % 5000, i % 4, "
               "i % 3, i % 3, i % 5 = 0, 0, '', 0 FROM n;"
               "INSERT INTO CoverDiscard (cover_id, disc_date, disc_qty, disc_type) SELECT cover_id, "
               "'2012-01-01 00:00:00', 10000, 0 FROM Cover WHERE cover_id % 10 = 0");
}

void Plain(const BenchFolder& folder, const std::function<void(sqlite3*)>& work) {
    sqlite3* db = plain_open(folder.Database().c_str());
    work(db);
    plain_close(db);
}

void ShowMillion() {
    const BenchFolder folder;
    FillCovers(folder, Sized(1000000));
    Measure({"register-first-paint", 2, 5, nullptr, [] { ShownRegister(); },
             [&] { Plain(folder, [](sqlite3* db) { plain_covers(db); }); }});

    const ShownRegister shown;
    QScrollBar* bar = shown.Covers().verticalScrollBar();
    std::vector<double> pages;
    for (int page = 1; page <= 101; ++page)
        pages.push_back(Seconds([&] {
                            bar->setValue(page * 977 * bar->pageStep() % std::max(1, bar->maximum()));
                            shown.Covers().grab();
                        }) *
                        1000);
    std::sort(pages.begin(), pages.end());
    Report("register-scroll-page", pages[pages.size() / 2], 16, "ms");
}

void DeleteMany() {
    const BenchFolder folder;
    FillCovers(folder, Sized(100000));
    folder.Keep();
    const int count = Sized(10000);
    const auto program = [&] {
        const ShownRegister shown;
        QItemSelection rows(shown.Covers().model()->index(0, 0),
                            shown.Covers().model()->index(count - 1, shown.Covers().model()->columnCount() - 1));
        shown.Covers().selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
        shown.view->Run(Command::ID_RECORD_DELETE);
    };
    const auto plain = [&](sqlite3* db) {
        plain_covers(db);
        plain_delete_covers(db, count);
    };
    // Both open the list, delete, and open it again.
    Measure({"register-delete", 2, 5, [&] { folder.Restore(); }, program, [&] { Plain(folder, plain); }});
}

void FindLast() {
    const BenchFolder folder;
    FillCovers(folder, Sized(1000000));
    const ShownRegister shown;
    const int last = shown.Covers().RowCount() - 1;
    const QString name = shown.Covers().CellText(last, 0);
    const QString part = name.mid(2);
    for (const bool partial : {false, true}) {
        const QString text = partial ? part : name;
        // What was found last is not searched for again; another text in between makes it a search of its own.
        const auto prepare = [&] { shown.Ask(FindMode::FindNext, QStringLiteral("nothing"), false); };
        const auto program = [&] {
            shown.Ask(FindMode::FindNext, text, partial);
            if (shown.Covers().SelectedRow() != last)
                std::abort();
        };
        const auto plain = [&](sqlite3* db) { plain_find(db, text.toUtf8().constData(), partial ? 1 : 0); };
        Measure(
            {partial ? "find-last-part" : "find-last-whole", 2, 7, prepare, program, [&] { Plain(folder, plain); }});
    }
}

void ReplaceMany() {
    const BenchFolder folder;
    FillCovers(folder, Sized(100000));
    folder.Keep();
    std::optional<ShownRegister> shown;
    const auto prepare = [&] {
        shown.reset();
        folder.Restore();
        shown.emplace();
    };
    const auto program = [&] {
        shown->Ask(FindMode::ReplaceAll, QStringLiteral("Obal"), true, QStringLiteral("Kus"));
        if (!shown->Covers().CellText(0, 0).startsWith(QStringLiteral("Kus")))
            std::abort();
    };
    prepare();
    std::vector<std::int64_t> covers;
    for (int row = 0; row < shown->Covers().RowCount(); ++row)
        covers.push_back(shown->Covers().Id(row));
    // In the order of the list too, so that each commit has the same rows.
    const auto plain = [&](sqlite3* db) { plain_replace(db, covers.data(), covers.size(), "Obal", "Kus"); };
    Measure({"replace-all", 2, 7, prepare, program, [&] { Plain(folder, plain); }});

    // The longest time that the window did not look at what the desktop wants of it.
    prepare();
    QElapsedTimer since;
    qint64 longest = 0;
    QTimer looked;
    QObject::connect(&looked, &QTimer::timeout, [&] { longest = std::max(longest, since.restart()); });
    looked.start(0);
    since.start();
    program();
    longest = std::max(longest, since.elapsed());
    Report("replace-all-longest-pause", static_cast<double>(longest), 200, "ms");
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    ReadArguments(argc, argv);
    const QApplication app(argc, argv);
    SetUpDesktop();
    YesDoor yes;
    const DoorUse asked(MessageDoor(), &yes);
    const DoorUse quiet(BeepDoor(), [] {});
    ShowMillion();
    DeleteMany();
    FindLast();
    ReplaceMany();
}
