#include "bench/plain/Plain.h"
#include "bench/support/BenchFolder.h"
#include "bench/support/Pairs.h"

#include "core/base/Progress.h"
#include "core/report/FigureList.h"
#include "core/store/DataStore.h"

#include <cstdlib>

namespace {

/// 1,250,000 issue lines over ten years carry 5,000,000 packaging rows.
constexpr int Lines = 1250000;

} // namespace

int main(int argc, char** argv) {
    ReadArguments(argc, argv);
    const BenchFolder folder;
    FillIssues(folder, Sized(Lines));
    CDataStore store;
    store.OpenDatabase();
    sqlite3* db = plain_open(folder.Database().c_str());
    const std::unique_ptr<IProgress> progress = SilentProgress().Open({}, false);
    const auto program = [&] {
        if (ListFigures(store, *progress, 2010, 2, QStringLiteral("2.12")).empty())
            std::abort();
    };
    Measure({"quarter-figures", 1.3, 9, nullptr, program, [&] { plain_figures(db, "2010-04-01", "2010-07-01"); }});
    plain_close(db);
}
