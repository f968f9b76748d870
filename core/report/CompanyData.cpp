#include "core/report/CompanyData.h"

#include "core/base/AppDir.h"
#include "core/base/Profile.h"

namespace {

struct SettingsKey {
    const char* key;
    QString CompanyData::*field;
};

constexpr SettingsKey Keys[] = {
    {"KontaktniOsoba", &CompanyData::contactPerson},
    {"DIC", &CompanyData::taxNumber},
    {"ICO", &CompanyData::companyNumber},
    {"Fax", &CompanyData::fax},
    {"Tel", &CompanyData::telephone},
    {"Nazev", &CompanyData::name},
    {"Mail", &CompanyData::mail},
    {"Sidlo", &CompanyData::office},
    {"EKOKOM_ID", &CompanyData::schemeId},
    {"MailInv", &CompanyData::invoiceMail},
};

QString Section() {
    return QStringLiteral("Spolecnost");
}

} // namespace

CompanyData ReadCompanyData() {
    const CProfile profile(SettingsPath());
    CompanyData company;
    for (const SettingsKey& entry : Keys)
        company.*entry.field = profile.GetString(Section(), QString::fromLatin1(entry.key), {}, 1000);
    return company;
}

std::error_code WriteCompanyData(const CompanyData& company) {
    CProfile::Entries entries;
    for (const SettingsKey& entry : Keys)
        entries.push_back({QString::fromLatin1(entry.key), company.*entry.field});
    return CProfile(SettingsPath()).Write(Section(), entries);
}
