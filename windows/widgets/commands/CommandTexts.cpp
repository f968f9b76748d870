#include "windows/widgets/commands/CommandTexts.h"

#include <algorithm>
#include <iterator>

namespace {

struct CommandText {
    Command command;
    /// Up to the line break the prompt, after it the tool tip.
    const char* text;
};

using enum Command;

constexpr CommandText Texts[] = {
    {ID_REPORT, "Sestavit čtvrtletní výkaz\nSestavit výkaz"},
    {ID_BACKUP, "Zazálohovat data do zvoleného adresáře\nZálohovat data"},
    {ID_RESTORE, "Obnovit data ze zvolené zálohy\nObnovit data ze zálohy"},
    {ID_APP_EXIT, "Ukončit aplikaci\nKonec"},
    {ID_SHOW_COVERS, "Zobrazit tabulku obalů\nZobrazit kuvel"},
    {ID_SHOW_COMPOSITES, "Zobrazit tabulku složených obalů\nZobrazit složené kuvel"},
    {ID_SHOW_PRODUCTS, "Zobrazit tabulku produktů\nZobrazit produkty"},
    {ID_SHOW_ISSUES, "Zobrazit tabulku výdejů\nZobrazit výdeje"},
    {ID_RECORD_REFRESH, "Aktualizovat zobrazené záznamy\nAktualizovat"},
    {ID_IMPORT_MONEY, "Importovat data z programu Money S3\nImportovat z Money S3"},
    {ID_IMPORT_WAK, "Importovat data z programu WAK INTRA\nImportovat z WAK INTRA"},
    {ID_IMPORT_EKONOM, "Importovat data z programu Ekonom\nImportovat z Ekonomu"},
    {ID_RECOMPUTE_ISSUES,
     "Upravit kuvel ve výdejích podle definic balení vydaných produktů\nUpravit kuvel ve výdejích"},
    {ID_RECORD_ADD, "Přidat nový záznam\nNový záznam"},
    {ID_RECORD_EDIT, "Upravit vybraný záznam\nUpravit záznam"},
    {ID_RECORD_DELETE, "Odstranit vybraný záznam\nOdstranit záznam"},
    {ID_DETAIL_ADD, "Přidat nový záznam\nNový záznam"},
    {ID_DETAIL_EDIT, "Upravit vybraný záznam\nUpravit záznam"},
    {ID_DETAIL_DELETE, "Odstranit vybraný záznam\nOdstranit záznam"},
    {ID_SUBDETAIL_ADD, "Přidat nový záznam\nNový záznam"},
    {ID_SUBDETAIL_EDIT, "Upravit vybraný záznam\nUpravit záznam"},
    {ID_SUBDETAIL_DELETE, "Odstranit vybraný záznam\nOdstranit záznam"},
    {ID_RECORD_FIND, "Najít záznam podle zadaných kritérií\nNajít"},
    {ID_RECORD_REPLACE, "Nahradit data v tabulce\nNahradit"},
    {ID_RECORD_FILTER, "Nastavit/zrušit filtr pro zobrazení záznamů\nFiltr "},
    {ID_PROD_ASSIGN_COVERS, "Hromadně přiřadit kuvel k vybraným produktům\nPřiřadit kuvel"},
    {ID_SORT_ASCENDING, "Seřadit záznamy vzestupně podle vybraného sloupce\nSeřadit vzestupně"},
    {ID_SORT_DESCENDING, "Seřadit záznamy sestupně podle vybraného sloupce\nSeřadit sestupně"},
    {ID_OPTIONS, "Nastavit chování aplikace při změně záznamů\nChování aplikace při změně záznamů"},
    {ID_VIEW_TABLES_BAR, "Zobrazit/skrýt panel tabulek\nPřepnout panel tabulek"},
    {ID_VIEW_TOOLS_BAR, "Zobrazit/skrýt panel nástrojů\nPřepnout panel nástrojů"},
    {ID_VIEW_STATUS_BAR, "Zobrazit/skrýt stavový řádek\nPřepnout stavový řádek"},
    {ID_HELP, "Zobrazit nápovědu k programu\nNápověda"},
    {ID_APP_ABOUT, "Zobrazit informace o programu, verzi, autorských právech\nO aplikaci"},
};

QString TextOf(Command command) {
    const auto found =
        std::find_if(std::begin(Texts), std::end(Texts), [=](const CommandText& t) { return t.command == command; });
    return found == std::end(Texts) ? QString() : QString::fromUtf8(found->text);
}

} // namespace

QString CommandPrompt(Command command) {
    return TextOf(command).section(u'\n', 0, 0);
}

QString CommandToolTip(Command command) {
    return TextOf(command).section(u'\n', 1);
}
