#include "core/base/ListDecimals.h"

#include "core/base/AppDir.h"
#include "core/base/Profile.h"

namespace {

const QString Section = QStringLiteral("Zobrazeni");
const QString Key = QStringLiteral("Ctyri desetinna mista v seznamech");

bool g_fourDecimals = false;

} // namespace

bool FourDecimalsInLists() {
    return g_fourDecimals;
}

void ReadListDecimals() {
    g_fourDecimals = CProfile(SettingsPath()).GetInt(Section, Key, 0) != 0;
}

std::error_code KeepListDecimals(bool four) {
    // The settings file of a user who leaves this alone stays without it.
    if (four == g_fourDecimals)
        return {};
    g_fourDecimals = four;
    return CProfile(SettingsPath()).Write(Section, {{Key, QString::number(four ? 1 : 0)}});
}
