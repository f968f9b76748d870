#include "windows/widgets/HelpDoor.h"

#include <utility>

static HelpDoor g_helpDoor;

void OpenHelp(HelpContext context) {
    if (g_helpDoor)
        g_helpDoor(context);
}

HelpDoor SetHelpDoor(HelpDoor door) {
    return std::exchange(g_helpDoor, std::move(door));
}
