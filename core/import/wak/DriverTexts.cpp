#include "core/import/wak/DriverTexts.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr const char* NoTable = "Databáze neobsahuje, co se z ní má číst. Ověřte, že je to databáze systému WAK INTRA.";
constexpr const char* NoRight = "Uživatel nemá právo tato data číst. Požádejte o ně správce serveru.";
constexpr const char* NoLogin = "Server přihlášení odmítl. Zkontrolujte uživatele a heslo.";
constexpr const char* NewPassword = "Heslo už neplatí. Změňte je v nástroji serveru, pak import opakujte.";
constexpr const char* NoAnswer =
    "Server neodpovídá. Zkontrolujte jeho jméno a port, zda běží a zda je dostupný po síti.";
constexpr const char* LineLost = "Spojení se serverem se přerušilo. Opakujte import.";

/// The numbers of the server first: they say more than a state.
constexpr struct {
    int native;
    const char* meaning;
} Natives[] = {
    {208, NoTable},
    {229, NoRight},
    {230, NoRight},
    {916, NoRight},
    {1205, "Server dotaz ukončil, protože se střetl s jiným uživatelem. Opakujte import."},
    {1222, "Data má zamčena jiný uživatel systému WAK INTRA. Opakujte import později."},
    {2812, NoTable},
    {4060, "Databáze tohoto jména na serveru není, nebo do ní uživatel nesmí."},
    {18452, "Server tento způsob přihlášení nepřijímá. Zkontrolujte volbu autentikace."},
    {18456, NoLogin},
    {18470, "Přihlášení tohoto uživatele je na serveru zakázáno."},
    {18486, "Přihlášení tohoto uživatele je na serveru zamčeno."},
    {18487, NewPassword},
    {18488, NewPassword},
    {20003, NoAnswer},
    {20004, LineLost},
    {20006, LineLost},
    {20009, NoAnswer},
    {20012, "Jméno serveru nelze přeložit na adresu. Zkontrolujte je."},
    {20013, "Počítač tohoto jména v síti není. Zkontrolujte jméno serveru."},
    {20047, LineLost},
};

constexpr struct {
    const char* state;
    const char* meaning;
} States[] = {
    {"08001", NoAnswer}, {"08004", NoLogin},  {"08S01", LineLost}, {"28000", NoLogin},
    {"42S02", NoTable},  {"HYT00", NoAnswer}, {"HYT01", NoAnswer}, {"S1T00", NoAnswer},
};

} // namespace

QString MeaningOf(const QString& sqlState, int native) {
    const auto* number =
        std::find_if(std::begin(Natives), std::end(Natives), [&](const auto& row) { return row.native == native; });
    if (number != std::end(Natives))
        return QString::fromUtf8(number->meaning);
    const auto* state = std::find_if(std::begin(States), std::end(States),
                                     [&](const auto& row) { return sqlState == QLatin1String(row.state); });
    return state != std::end(States) ? QString::fromUtf8(state->meaning) : QString();
}
