#pragma once

#include <functional>

/// The pages that a "Nápověda" button or key may ask for.
enum class HelpContext { Contents = 0, Cover = 3, CompositeCover = 13 };

using HelpDoor = std::function<void(HelpContext)>;

/// The one door to the user's guide; what opens it is set by the main window. Until then nothing happens.
void OpenHelp(HelpContext context);
/// Returns the door that was in use before.
HelpDoor SetHelpDoor(HelpDoor door);
