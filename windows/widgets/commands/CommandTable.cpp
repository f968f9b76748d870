#include "windows/widgets/commands/CommandTable.h"

#include "windows/widgets/IconButton.h"

#include <algorithm>
#include <iterator>

namespace {

using enum Command;
using enum CommandRow::Needs;

constexpr CommandRow Table[] = {
    {ID_REPORT, "Sestavit &výkaz", nullptr, "report", "Sestavit čtvrtletní výkaz", "Sestavit výkaz"},
    {ID_BACKUP, "Vytvoření záložní kopie dat", nullptr, "backup", "Zazálohovat data do zvoleného adresáře",
     "Zálohovat data"},
    {ID_RESTORE, "Obnovení ze záložní kopie dat", nullptr, "restore", "Obnovit data ze zvolené zálohy",
     "Obnovit data ze zálohy"},
    {ID_APP_EXIT, "&Konec", nullptr, nullptr, "Ukončit aplikaci", "Konec"},

    {ID_SHOW_COVERS, "&Kuvel", nullptr, "covers", "Zobrazit tabulku obalů", "Zobrazit kuvel"},
    {ID_SHOW_COMPOSITES, "&Složené kuvel", nullptr, "composites", "Zobrazit tabulku složených obalů",
     "Zobrazit složené kuvel"},
    {ID_SHOW_PRODUCTS, "Vý&robky", nullptr, "products", "Zobrazit tabulku produktů", "Zobrazit produkty"},
    {ID_SHOW_ISSUES, "&Výdaje", nullptr, "issues", "Zobrazit tabulku výdejů", "Zobrazit výdeje"},
    {ID_RECORD_REFRESH, "&Aktualizovat", "F5", nullptr, "Aktualizovat zobrazené záznamy", "Aktualizovat"},

    {ID_IMPORT_MONEY, "&Money S3", nullptr, "import-money", "Importovat data z programu Money S3",
     "Importovat z Money S3"},
    {ID_IMPORT_WAK, "&WAK INTRA", nullptr, "import-wak", "Importovat data z programu WAK INTRA",
     "Importovat z WAK INTRA"},
    {ID_IMPORT_EKONOM, nullptr, nullptr, nullptr, "Importovat data z programu Ekonom", "Importovat z Ekonomu"},
    {ID_RECOMPUTE_ISSUES, "Upravit kuvel ve výdejích podle definic balení...", nullptr, nullptr,
     "Upravit kuvel ve výdejích podle definic balení vydaných produktů", "Upravit kuvel ve výdejích"},

    {ID_RECORD_ADD, "&Přidat", "Ins", "add", "Přidat nový záznam", "Nový záznam"},
    {ID_RECORD_EDIT, "&Upravit", "Enter", "edit", "Upravit vybraný záznam", "Upravit záznam", Row},
    {ID_RECORD_DELETE, "&Odstranit", "Del", "delete", "Odstranit vybraný záznam", "Odstranit záznam", Row},
    {ID_DETAIL_ADD, "&Přidat", "Ctrl+Ins", "add", "Přidat nový záznam", "Nový záznam", Parent},
    {ID_DETAIL_EDIT, "&Upravit", "Ctrl+Enter", "edit", "Upravit vybraný záznam", "Upravit záznam", Row},
    {ID_DETAIL_DELETE, "&Odstranit", "Ctrl+Del", "delete", "Odstranit vybraný záznam", "Odstranit záznam", Row},
    {ID_SUBDETAIL_ADD, "&Přidat", "Alt+Ins", "add", "Přidat nový záznam", "Nový záznam", Parent},
    {ID_SUBDETAIL_EDIT, "&Upravit", "Alt+Enter", "edit", "Upravit vybraný záznam", "Upravit záznam", Row},
    {ID_SUBDETAIL_DELETE, "&Odstranit", "Alt+Del", "delete", "Odstranit vybraný záznam", "Odstranit záznam", Row},
    {ID_RECORD_FIND, "&Najít...", "Ctrl+F", "find", "Najít záznam podle zadaných kritérií", "Najít"},
    {ID_RECORD_REPLACE, "Na&hradit...", "Ctrl+H", nullptr, "Nahradit data v tabulce", "Nahradit"},
    {ID_RECORD_FILTER, "Fil&tr...", "Ctrl+T", "filter", "Nastavit/zrušit filtr pro zobrazení záznamů", "Filtr "},
    {ID_PROD_ASSIGN_COVERS, "Hromadně přiř&adit kuvel", nullptr, nullptr,
     "Hromadně přiřadit kuvel k vybraným produktům", "Přiřadit kuvel", Row},
    {ID_SORT_ASCENDING, nullptr, nullptr, nullptr, "Seřadit záznamy vzestupně podle vybraného sloupce",
     "Seřadit vzestupně"},
    {ID_SORT_DESCENDING, nullptr, nullptr, nullptr, "Seřadit záznamy sestupně podle vybraného sloupce",
     "Seřadit sestupně"},

    {ID_OPTIONS, "&Možnosti...", nullptr, nullptr, "Nastavit chování aplikace při změně záznamů",
     "Chování aplikace při změně záznamů"},
    {ID_VIEW_TABLES_BAR, "Panel &tabulek", nullptr, nullptr, "Zobrazit/skrýt panel tabulek", "Přepnout panel tabulek"},
    {ID_VIEW_TOOLS_BAR, "Panel &nástrojů", nullptr, nullptr, "Zobrazit/skrýt panel nástrojů",
     "Přepnout panel nástrojů"},
    {ID_VIEW_STATUS_BAR, "&Stavový řádek", nullptr, nullptr, "Zobrazit/skrýt stavový řádek", "Přepnout stavový řádek"},
    {ID_HELP, "Nápověda pro Kuvel", "F1", nullptr, "Zobrazit nápovědu k programu", "Nápověda"},
    {ID_APP_ABOUT, "O &aplikaci Kuvel...", nullptr, nullptr, "Zobrazit informace o programu, verzi, autorských právech",
     "O aplikaci"},
};

} // namespace

QIcon CommandRow::Icon() const {
    return icon == nullptr ? QIcon() : NamedIcon(icon);
}

QList<QKeySequence> CommandRow::Keys() const {
    if (keys == nullptr)
        return {};
    QString portable = QString::fromLatin1(keys);
    QList<QKeySequence> all{QKeySequence(portable, QKeySequence::PortableText)};
    if (portable.endsWith(QStringLiteral("Enter")))
        all.append(QKeySequence(portable.replace(QStringLiteral("Enter"), QStringLiteral("Return")),
                                QKeySequence::PortableText));
    return all;
}

std::span<const CommandRow> AllCommands() {
    return Table;
}

const CommandRow& RowOf(Command command) {
    return *std::find_if(std::begin(Table), std::end(Table),
                         [=](const CommandRow& row) { return row.command == command; });
}

CIconButton* MakeCommandButton(Command command, QWidget* parent) {
    const CommandRow& row = RowOf(command);
    auto* const button = new CIconButton(row.Icon(), parent);
    button->setObjectName(QStringLiteral("button%1").arg(static_cast<int>(command)));
    button->setToolTip(row.ToolTip());
    button->setAccessibleName(row.ToolTip().trimmed());
    return button;
}
