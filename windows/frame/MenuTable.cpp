#include "windows/frame/MenuTable.h"

namespace {

using enum Command;

constexpr MenuRow Menu[] = {
    {0, "&Soubor"},
    {1, "Sestavit &výkaz", ID_REPORT},
    {1, nullptr},
    {1, "&Zálohování"},
    {2, "Vytvoření záložní kopie dat", ID_BACKUP},
    {2, "Obnovení ze záložní kopie dat", ID_RESTORE},
    {1, nullptr},
    {1, "&Konec", ID_APP_EXIT},

    {0, "&Tabulky"},
    {1, "&Kuvel", ID_SHOW_COVERS},
    {1, "&Složené kuvel", ID_SHOW_COMPOSITES},
    {1, "Vý&robky", ID_SHOW_PRODUCTS},
    {1, "&Výdaje", ID_SHOW_ISSUES},
    {1, nullptr},
    {1, "&Aktualizovat", ID_RECORD_REFRESH},

    {0, "Zázna&my"},
    {1, "&Importovat z"},
    {2, "&Money S3", ID_IMPORT_MONEY},
    {2, "&WAK INTRA", ID_IMPORT_WAK},
    {1, "Upravit kuvel ve výdejích podle definic balení...", ID_RECOMPUTE_ISSUES},
    {1, nullptr},
    {1, "&Přidat", ID_RECORD_ADD},
    {1, "&Upravit", ID_RECORD_EDIT},
    {1, "&Odstranit", ID_RECORD_DELETE},
    {1, nullptr},
    {1, "&Najít...", ID_RECORD_FIND},
    {1, "Na&hradit...", ID_RECORD_REPLACE},
    {1, nullptr},
    {1, "Fil&tr...", ID_RECORD_FILTER},
    {1, nullptr},
    {1, "&Možnosti...", ID_OPTIONS},

    {0, "&Zobrazit"},
    {1, "Panel &tabulek", ID_VIEW_TABLES_BAR},
    {1, "Panel &nástrojů", ID_VIEW_TOOLS_BAR},
    {1, "&Stavový řádek", ID_VIEW_STATUS_BAR},

    {0, "&Nápověda"},
    {1, "Nápověda pro Kuvel", ID_HELP},
    {1, nullptr},
    {1, "O &aplikaci Kuvel...", ID_APP_ABOUT},
};

// Each Enter stands twice: once for the key pad's, which the menu shows by its short name.
constexpr Accelerator Keys[] = {
    {"Ctrl+F", ID_RECORD_FIND},
    {"Ctrl+H", ID_RECORD_REPLACE},
    {"Ctrl+T", ID_RECORD_FILTER},
    {"Del", ID_RECORD_DELETE},
    {"Ctrl+Del", ID_DETAIL_DELETE},
    {"Alt+Del", ID_SUBDETAIL_DELETE},
    {"F5", ID_RECORD_REFRESH},
    {"Ins", ID_RECORD_ADD},
    {"Ctrl+Ins", ID_DETAIL_ADD},
    {"Alt+Ins", ID_SUBDETAIL_ADD},
    {"Enter", ID_RECORD_EDIT},
    {"Return", ID_RECORD_EDIT},
    {"Ctrl+Enter", ID_DETAIL_EDIT},
    {"Ctrl+Return", ID_DETAIL_EDIT},
    {"Alt+Enter", ID_SUBDETAIL_EDIT},
    {"Alt+Return", ID_SUBDETAIL_EDIT},
    {"F1", ID_HELP},
};

constexpr BarRow Tables[] = {
    {ID_SHOW_COVERS, "covers"},
    {ID_SHOW_COMPOSITES, "composites"},
    {ID_SHOW_PRODUCTS, "products"},
    {ID_SHOW_ISSUES, "issues"},
};

constexpr BarRow Tools[] = {
    {ID_IMPORT_MONEY, "import-money"},
    {ID_IMPORT_WAK, "import-wak"},
    {},
    {ID_REPORT, "report"},
};

constexpr BarRow MenuIcons[] = {
    {ID_BACKUP, "backup"},        {ID_RESTORE, "restore"},  {ID_RECORD_ADD, "add"},       {ID_RECORD_EDIT, "edit"},
    {ID_RECORD_DELETE, "delete"}, {ID_RECORD_FIND, "find"}, {ID_RECORD_FILTER, "filter"},
};

} // namespace

std::span<const MenuRow> MainMenu() {
    return Menu;
}

std::span<const Accelerator> Accelerators() {
    return Keys;
}

std::span<const BarRow> TablesBar() {
    return Tables;
}

std::span<const BarRow> ToolsBar() {
    return Tools;
}

const char* CommandIcon(Command command) {
    for (const std::span<const BarRow> rows : {TablesBar(), ToolsBar(), std::span<const BarRow>(MenuIcons)})
        for (const BarRow& row : rows)
            if (row.command == command && row.icon != nullptr)
                return row.icon;
    return nullptr;
}
