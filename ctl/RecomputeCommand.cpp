#include "core/base/SqlText.h"
#include "core/rules/BulkRecompute.h"
#include "core/store/DataStore.h"
#include "ctl/Commands.h"
#include "ctl/Failure.h"
#include "ctl/Terminal.h"

#include <limits>
#include <memory>

namespace {

/// Lines of a product that is gone can be computed as well.
void RequireProduct(std::int32_t product) {
    if (g_dataStore.Query(SqlText("SELECT * FROM Product WHERE prod_id = %li", product))->get_EOF() &&
        g_dataStore.Query(SqlText("SELECT * FROM Move_Prod WHERE prod_id = %li", product))->get_EOF())
        throw Failure(QStringLiteral("there is no product %1").arg(product));
}

bool Recompute(std::int32_t product, CTerminal& terminal) {
    if (product != 0)
        RequireProduct(product);
    std::int64_t lines = 0;
    const BulkResult result = product != 0 ? RecomputeIssuesOfProduct(g_dataStore, product, terminal, lines)
                                           : RecomputeAllIssues(g_dataStore, terminal, lines);
    // Also after a cancel or an error: these lines are done and stay.
    PrintLine(QStringLiteral("%1 lines").arg(lines));
    return result == BulkResult::Done;
}

} // namespace

void AddRecompute(CLI::App& app, Action& action) {
    CLI::App* command = app.add_subcommand("recompute", "Computes the packaging of every issue line anew");
    const auto product = std::make_shared<int>(0);
    AddNumber(*command, "--product", *product, 1, std::numeric_limits<int>::max(), "Only the lines of this product")
        ->option_text("ID");
    command->callback([product, &action] {
        action = [product](CTerminal& terminal) { return OpenStore() && Recompute(*product, terminal); };
    });
}
