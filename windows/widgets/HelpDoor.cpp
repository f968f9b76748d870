#include "windows/widgets/HelpDoor.h"

Door<std::function<void(HelpContext)>>& HelpDoor() {
    static Door<std::function<void(HelpContext)>> door([](HelpContext) {});
    return door;
}

void OpenHelp(HelpContext context) {
    (*HelpDoor())(context);
}
