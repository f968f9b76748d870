#pragma once

#include "windows/widgets/HelpDoor.h"

class QPushButton;

/// Puts a button "Nápověda" right after this one, last in the order of Tab. It opens the guide at the context.
void AddHelpButton(QPushButton& beside, HelpContext context);
