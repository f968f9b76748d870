#include "core/import/ImportOptions.h"

#include "core/base/AppDir.h"
#include "core/base/Profile.h"

namespace {

const QString MoneySection = QStringLiteral("Import");

bool ReadFlag(const CProfile& settings, const QString& section, const QString& key) {
    return settings.GetInt(section, key, 1) != 0;
}

} // namespace

void ImportOptions::Read(const QString& section) {
    const CProfile settings(SettingsPath());
    products = ReadFlag(settings, section, QStringLiteral("Produkty"));
    documents = ReadFlag(settings, section, QStringLiteral("Vydaje"));
    const int policy = settings.GetInt(section, QStringLiteral("Existujici zaznamy"), 1);
    existing = policy >= 0 && policy <= 2 ? static_cast<ExistingRecords>(policy) : ExistingRecords::Keep;
}

bool ImportOptions::Write(const QString& section) const {
    CProfile settings(SettingsPath());
    return settings.WriteString(section, QStringLiteral("Produkty"), QString::number(products ? 1 : 0)) &&
           settings.WriteString(section, QStringLiteral("Vydaje"), QString::number(documents ? 1 : 0)) &&
           settings.WriteString(section, QStringLiteral("Existujici zaznamy"),
                                QString::number(static_cast<int>(existing)));
}

void MoneyOptions::Read() {
    ImportOptions::Read(MoneySection);
    const CProfile settings(SettingsPath());
    setExport = ReadFlag(settings, MoneySection, QStringLiteral("Nastavovat Export"));
    domestic = settings.GetString(MoneySection, QStringLiteral("Neexportni zeme"), MoneyOptions().domestic);
}

bool MoneyOptions::Write() const {
    CProfile settings(SettingsPath());
    return ImportOptions::Write(MoneySection) &&
           settings.WriteString(MoneySection, QStringLiteral("Nastavovat Export"),
                                QString::number(setExport ? 1 : 0)) &&
           settings.WriteString(MoneySection, QStringLiteral("Neexportni zeme"), domestic);
}
