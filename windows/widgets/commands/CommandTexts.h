#pragma once

#include "windows/widgets/commands/Commands.h"

#include <QString>

/// What the status bar says while the command is pointed at, and what its tool tip says. Both are empty for a command
/// that has none.
QString CommandPrompt(Command command);
QString CommandToolTip(Command command);
