#pragma once

#include "windows/widgets/commands/Commands.h"

#include <span>

/// A row of the main menu, top to bottom.
struct MenuRow {
    /// 0 for a menu of the bar, 1 for what stands in it, 2 for what stands in a submenu.
    int depth;
    /// None for a menu or a separator.
    Command command{};
    /// Of a menu; null for a command, whose text stands with it, and for a separator.
    const char* text = nullptr;
};

/// Where the commands stand; no command is a separator.
std::span<const MenuRow> MainMenu();
std::span<const Command> TablesBar();
std::span<const Command> ToolsBar();
