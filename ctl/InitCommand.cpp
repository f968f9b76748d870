#include "core/base/AppDir.h"
#include "ctl/Commands.h"
#include "ctl/Delivery.h"
#include "ctl/Terminal.h"

static bool Init(CTerminal&) {
    RequireNoDatabase();
    PlaceTemplates();
    const QString database = g_strAppDir + QStringLiteral("Kuvel.mdb");
    PlaceFile(DeliveryFolder() + QStringLiteral("database/Kuvel.mdb"), database);
    PrintLine(database);
    return true;
}

void AddInit(CLI::App& app, Action& action) {
    app.add_subcommand("init", "Puts the empty database and the missing report templates into the program folder")
        ->callback([&action] { action = Init; });
}
