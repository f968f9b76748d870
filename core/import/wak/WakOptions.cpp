#include "core/import/wak/WakOptions.h"

#include "core/base/AppDir.h"
#include "core/base/Profile.h"
#include "core/import/wak/WakPassword.h"

namespace {

const QString Section = QStringLiteral("ImportWAK");
const QString ServerKey = QStringLiteral("Server");
const QString DatabaseKey = QStringLiteral("Databaze");
const QString WindowsKey = QStringLiteral("Autentikace");
const QString UserKey = QStringLiteral("Uzivatel");
const QString PasswordKey = QStringLiteral("Heslo");
const QString StorePasswordKey = QStringLiteral("Ukladat heslo");

DateTime EndOfDay(const DateTime& date) {
    return DateTime::FromDay(date.Year(), date.Month(), date.Day(), 23, 59, 59);
}

} // namespace

void WakOptions::Read() {
    ImportOptions::Read(Section);
    const WakOptions defaults;
    const CProfile settings(SettingsPath());
    server = settings.GetString(Section, ServerKey, defaults.server);
    database = settings.GetString(Section, DatabaseKey, defaults.database);
    windows = settings.GetInt(Section, WindowsKey, 0) == 1;
    user = settings.GetString(Section, UserKey, defaults.user);
    storePassword = settings.GetInt(Section, StorePasswordKey, 1) != 0;
    password = UnscrambleWakPassword(settings.GetString(Section, PasswordKey, {}));
}

std::error_code WakOptions::Write() const {
    CProfile::Entries entries{{ServerKey, server},
                              {DatabaseKey, database},
                              {WindowsKey, QString::number(windows ? 1 : 0)},
                              {UserKey, user},
                              {PasswordKey, storePassword ? ScrambleWakPassword(password) : QString()},
                              {StorePasswordKey, QString::number(storePassword ? 1 : 0)}};
    const CProfile::Entries common = Entries();
    entries.insert(entries.end(), common.begin(), common.end());
    return CProfile(SettingsPath()).Write(Section, entries);
}

WakDateRange WakDateRange::PreviousQuarter(const DateTime& today) {
    const int firstMonth = (today.Month() - 1) / 3 * 3 + 1;
    const DateTime to = DateTime::FromDay(today.Year(), firstMonth, 1, 23, 59, 59).AddDays(-1);
    return {DateTime::FromDay(to.Year(), (to.Month() + 10) % 12, 1), to};
}

QString WakPasswordNote(const WakOptions& options) {
    if (options.windows)
        return {};
    QStringList notes;
    if (options.password.contains(u'"'))
        notes.append(QStringLiteral("Uvozovky v hesle zapište dvakrát."));
    if (options.storePassword && options.password.size() > LongestStoredPassword)
        notes.append(QStringLiteral("Uloží se jen prvních %1 znaků hesla.").arg(LongestStoredPassword));
    return notes.join(u'\n');
}

std::optional<WakComplaint> CheckWakConnection(WakOptions& options) {
    options.server = options.server.trimmed();
    if (options.server.isEmpty())
        return WakComplaint{QStringLiteral("Zadejte server!"), WakComplaint::Field::Server};
    options.database = options.database.trimmed();
    if (options.database.isEmpty())
        return WakComplaint{QStringLiteral("Zadejte databázi!"), WakComplaint::Field::Database};
    if (options.windows)
        return std::nullopt;
    options.user = options.user.trimmed();
    if (options.user.isEmpty())
        return WakComplaint{QStringLiteral("Zadejte uživatele!"), WakComplaint::Field::User};
    return std::nullopt;
}

std::optional<QString> CheckWakParameters(const ImportOptions& options, WakDateRange& range) {
    if (!options.products && !options.documents)
        return QStringLiteral("Není vybrán import produktů ani dokladů!");
    if (!options.documents)
        return std::nullopt;
    range = {range.from.StartOfDay(), EndOfDay(range.to)};
    if (range.to < range.from)
        return QStringLiteral("Datum od nesmí být větší než datum do!");
    return std::nullopt;
}
