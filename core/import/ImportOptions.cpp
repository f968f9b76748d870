#include "core/import/ImportOptions.h"

#include "core/base/AppDir.h"

namespace {

const QString MoneySection = QStringLiteral("Import");

bool ReadFlag(const CProfile& settings, const QString& section, const QString& key) {
    return settings.GetInt(section, key, 1) != 0;
}

QString FlagText(bool flag) {
    return QString::number(flag ? 1 : 0);
}

} // namespace

void ImportOptions::Read(const QString& section) {
    const CProfile settings(SettingsPath());
    products = ReadFlag(settings, section, QStringLiteral("Produkty"));
    documents = ReadFlag(settings, section, QStringLiteral("Vydaje"));
    const int policy = settings.GetInt(section, QStringLiteral("Existujici zaznamy"), 1);
    existing = policy >= 0 && policy <= 2 ? static_cast<ExistingRecords>(policy) : ExistingRecords::Keep;
}

CProfile::Entries ImportOptions::Entries() const {
    return {{QStringLiteral("Produkty"), FlagText(products)},
            {QStringLiteral("Vydaje"), FlagText(documents)},
            {QStringLiteral("Existujici zaznamy"), QString::number(static_cast<int>(existing))}};
}

void MoneyOptions::Read() {
    ImportOptions::Read(MoneySection);
    const CProfile settings(SettingsPath());
    setExport = ReadFlag(settings, MoneySection, QStringLiteral("Nastavovat Export"));
    lastYear = settings.GetString(MoneySection, QStringLiteral("Posledni rok"), {});
    domestic = settings.GetString(MoneySection, QStringLiteral("Neexportni zeme"), MoneyOptions().domestic);
}

std::error_code MoneyOptions::Write() const {
    CProfile::Entries entries = Entries();
    entries.push_back({QStringLiteral("Nastavovat Export"), FlagText(setExport)});
    entries.push_back({QStringLiteral("Neexportni zeme"), domestic});
    if (!lastYear.isEmpty())
        entries.push_back({QStringLiteral("Posledni rok"), lastYear});
    return CProfile(SettingsPath()).Write(MoneySection, entries);
}
