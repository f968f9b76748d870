#pragma once

#include "windows/widgets/commands/Commands.h"

#include <functional>

class QMenu;
class QWidget;

/// The submenus of the context-menu resource.
enum class ContextMenu { RecMain, Rec2, Rec3, RecProd, Rec1 };

struct MenuState {
    /// The click was on a row of the list.
    bool onRow = false;
    /// The list above has a selected row (second and third lists; true for the others).
    bool hasParent = true;
};

/// The menu, with what the state does not allow and what `handles` refuses greyed; a chosen item runs its command.
QMenu* MakeContextMenu(ContextMenu menu, const MenuState& state, const std::function<bool(Command)>& handles,
                       const std::function<void(Command)>& run, QWidget* parent);
