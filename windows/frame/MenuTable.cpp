#include "windows/frame/MenuTable.h"

namespace {

using enum Command;

constexpr Command None{};

constexpr MenuRow Menu[] = {
    {0, None, "&Soubor"},
    {1, ID_REPORT},
    {1},
    {1, None, "&Zálohování"},
    {2, ID_BACKUP},
    {2, ID_RESTORE},
    {1},
    {1, ID_APP_EXIT},

    {0, None, "&Tabulky"},
    {1, ID_SHOW_COVERS},
    {1, ID_SHOW_COMPOSITES},
    {1, ID_SHOW_PRODUCTS},
    {1, ID_SHOW_ISSUES},
    {1},
    {1, ID_RECORD_REFRESH},

    {0, None, "Zázna&my"},
    {1, None, "&Importovat z"},
    {2, ID_IMPORT_MONEY},
    {2, ID_IMPORT_WAK},
    {1, ID_RECOMPUTE_ISSUES},
    {1},
    {1, ID_RECORD_ADD},
    {1, ID_RECORD_EDIT},
    {1, ID_RECORD_DELETE},
    {1},
    {1, ID_RECORD_FIND},
    {1, ID_RECORD_REPLACE},
    {1},
    {1, ID_RECORD_FILTER},
    {1},
    {1, ID_OPTIONS},

    {0, None, "&Zobrazit"},
    {1, ID_VIEW_TABLES_BAR},
    {1, ID_VIEW_TOOLS_BAR},
    {1, ID_VIEW_STATUS_BAR},

    {0, None, "&Nápověda"},
    {1, ID_HELP},
    {1},
    {1, ID_APP_ABOUT},
};

constexpr Command Tables[] = {ID_SHOW_COVERS, ID_SHOW_COMPOSITES, ID_SHOW_PRODUCTS, ID_SHOW_ISSUES};
constexpr Command Tools[] = {ID_IMPORT_MONEY, ID_IMPORT_WAK, None, ID_REPORT};

} // namespace

std::span<const MenuRow> MainMenu() {
    return Menu;
}

std::span<const Command> TablesBar() {
    return Tables;
}

std::span<const Command> ToolsBar() {
    return Tools;
}
