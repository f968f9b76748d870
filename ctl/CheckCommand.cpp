#include "core/store/DataStore.h"
#include "ctl/Commands.h"
#include "ctl/DatabaseCheck.h"
#include "ctl/Terminal.h"

static bool Check(CTerminal&) {
    if (!OpenStore())
        return false;
    const std::int64_t findings = CheckDatabase(g_dataStore, PrintLine);
    if (findings == 0)
        PrintLine(QStringLiteral("ok"));
    return findings == 0;
}

void AddCheck(CLI::App& app, Action& action) {
    app.add_subcommand("check", "Lists what is wrong in the database file and between its records")
        ->callback([&action] { action = Check; });
}
