#include "ctl/Commands.h"
#include "ctl/Delivery.h"
#include "ctl/Terminal.h"

static bool Init(CTerminal&) {
    RequireNoDatabase();
    PlaceTemplates();
    PrintLine(PlaceEmptyDatabase());
    return true;
}

void AddInit(CLI::App& app, Action& action) {
    app.add_subcommand("init", "Puts the empty database and the missing report templates into the program folder")
        ->callback([&action] { action = Init; });
}
