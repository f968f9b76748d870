#include "bench/plain/Plain.h"
#include "bench/support/BenchFolder.h"
#include "bench/support/Pairs.h"

#include "core/base/Messages.h"
#include "core/base/Progress.h"
#include "core/base/SqlText.h"
#include "core/rules/BulkRecompute.h"
#include "core/store/CommitGroup.h"

#include <cstdio>
#include <cstdlib>

namespace {

void Recompute() {
    CDataStore store;
    std::int64_t lines = 0;
    if (!store.OpenDatabase() || RecomputeAllIssues(store, SilentProgress(), lines) != BulkResult::Done)
        std::abort();
}

void PlainRecompute(const BenchFolder& folder) {
    sqlite3* db = plain_open(folder.Database().c_str());
    plain_recompute(db);
    plain_close(db);
}

void BulkRecomputation() {
    const BenchFolder folder;
    FillIssues(folder, Sized(100000));
    folder.Keep();
    Measure({"bulk-recomputation", 1.5, 5, [&] { folder.Restore(); }, Recompute, [&] { PlainRecompute(folder); }});
}

/// The cost of a line must not depend on how many there are.
void Growth() {
    double first = 0;
    for (const int lines : {10000, 100000, 1000000}) {
        const BenchFolder folder;
        FillIssues(folder, Sized(lines));
        const double perLine = Seconds(Recompute) / Sized(lines) * 1e6;
        first = first == 0 ? perLine : first;
        std::printf("growth bulk-recomputation %d lines: %.2f us a line, %.2f of the first\n", Sized(lines), perLine,
                    perLine / first);
    }
}

void RepeatedStatement() {
    const BenchFolder folder;
    FillIssues(folder, 1000);
    const int count = Sized(1000000);
    CDataStore store;
    store.OpenDatabase();
    const auto program = [&] {
        CCommitGroup group(store);
        for (int i = 0; i < count; ++i)
            store.ExecuteSQL(SqlText("DELETE FROM Move_Cover WHERE mvprod_id = %li", 1000000000 + i));
        group.Finish();
    };
    sqlite3* db = plain_open(folder.Database().c_str());
    Measure({"repeated-statement", 2, 7, nullptr, program, [&] { plain_repeat(db, count); }});
    plain_close(db);
}

void Keyset() {
    const BenchFolder folder;
    FillIssues(folder, Sized(1000000));
    const auto program = [] {
        CDataStore store;
        store.OpenDatabase();
        const RecordsetPtr issues = store.Query("SELECT * FROM Move ORDER BY move_num");
        for (int i = 0; i < 50; ++i, issues->MoveNext())
            for (const char* column : {"move_id", "move_num", "move_date", "move_type", "move_export"})
                FormatVariant(issues->get_Collect(column));
    };
    const auto plain = [&] {
        sqlite3* db = plain_open(folder.Database().c_str());
        plain_keyset(db);
        plain_close(db);
    };
    Measure({"keyset-open", 2, 5, nullptr, program, plain});
    const auto opened = [] {
        CDataStore store;
        store.OpenDatabase();
        store.Query("SELECT * FROM Move WHERE move_id = 1");
    };
    Report("keyset-memory", PeakMegabytes(program, opened), 50, "MB");
}

} // namespace

int main(int argc, char** argv) {
    ReadArguments(argc, argv);
    RepeatedStatement();
    Keyset();
    BulkRecomputation();
    Growth();
}
