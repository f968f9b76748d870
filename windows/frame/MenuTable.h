#pragma once

#include "windows/widgets/commands/Commands.h"

#include <span>

/// A row of the main menu, top to bottom.
struct MenuRow {
    /// 0 for a menu of the bar, 1 for what stands in it, 2 for what stands in a submenu.
    int depth;
    /// Null for a separator.
    const char* text;
    /// None for a menu.
    Command command{};
};

struct Accelerator {
    /// In portable form, "Ctrl+Ins".
    const char* keys;
    Command command;
};

/// A button of a bar; none is a separator.
struct BarRow {
    Command command{};
    const char* icon = nullptr;
};

std::span<const MenuRow> MainMenu();
/// The first keys of a command stand in the menu.
std::span<const Accelerator> Accelerators();
std::span<const BarRow> TablesBar();
std::span<const BarRow> ToolsBar();
/// The icon of a menu item by its name in the resources; null for an item without one.
const char* CommandIcon(Command command);
