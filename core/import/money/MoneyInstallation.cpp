#include "core/import/money/MoneyInstallation.h"

#include "core/base/ComError.h"
#include "core/base/Messages.h"
#include "core/base/Profile.h"
#include "core/base/Shared.h"
#include "core/base/SqlText.h"
#include "core/import/money/MoneyTable.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

/// The texts of foreign ini files are read into a buffer of 260.
constexpr int MaxText = 259;

const QString Unnamed = QStringLiteral("<není>");

/// Where a folder keeps its name: in an ini file or, when that is missing, in a table. The table's spelling of the
/// section is its own.
struct NamePlace {
    QString iniFile;
    QString iniSection;
    QString tableFile;
    QString tableSection;
    QString key;
    const char* refusal;
};

const NamePlace AgendaName = {QStringLiteral("Agenda.ini"), QStringLiteral("Údaje o firmě"),
                              QStringLiteral("Agenda.dat"), QStringLiteral("Údaje o firme"),
                              QStringLiteral("Název"),      "Adresář \"%s\" neobsahuje informace o agendě Money!"};
const NamePlace YearName = {QStringLiteral("Rok.ini"),    QStringLiteral("Global"),
                            QStringLiteral("Rok.dat"),    QStringLiteral("Global"),
                            QStringLiteral("Účetní rok"), "Adresář \"%s\" neobsahuje informace o účetním roce Money!"};

bool IsSeparator(QChar c) {
    return c == u'/' || c == u'\\';
}

/// With exactly one separator at its end.
QString Normalised(QString folder) {
    while (!folder.isEmpty() && (folder.back().isSpace() || IsSeparator(folder.back())))
        folder.chop(1);
    return folder + u'/';
}

/// A table that is not Money's after all counts as one that cannot be opened: one odd folder must not hide the others.
bool ReadSetting(const QString& path, const NamePlace& place, bool showMessages, QString& name) {
    try {
        MoneyTablePtr table;
        if (!OpenMoneyTable(table, path, showMessages))
            return false;
        table->SetCurrentIndex("Section1+Variable");
        table->MoveFirst();
        if (table->SeekKeys({place.tableSection, place.key}) == IMoneyTable::Found)
            name = FormatVariant(table->FieldValue("Value"));
        return true;
    } catch (const ComError& error) {
        if (showMessages)
            ShowComError(error);
        return false;
    }
}

bool ReadName(const QString& folder, const NamePlace& place, bool showMessages, QString& name) {
    name = Unnamed;
    const QString ini = FindInFolder(folder, place.iniFile);
    if (QFileInfo(ini).isFile()) {
        name = CProfile(ini).GetString(place.iniSection, place.key, Unnamed, MaxText);
        return true;
    }
    const QString table = FindInFolder(folder, place.tableFile);
    if (QFileInfo(table).isFile())
        return ReadSetting(table, place, showMessages, name);
    if (showMessages)
        ShowWarning(MessageText(place.refusal, folder));
    return false;
}

/// "Agenda.001" for "Agenda", and the like.
bool IsNamed(const QString& entry, const QString& name) {
    return entry.compare(name, Qt::CaseInsensitive) == 0 || entry.startsWith(name + u'.', Qt::CaseInsensitive);
}

/// The folders "Agenda.001" and the like, by their names, with a separator at the end.
QStringList FoldersOf(const QString& folder, const QString& name) {
    QStringList folders;
    for (const QString& entry :
         QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase))
        if (IsNamed(entry, name))
            folders.append(folder + entry + u'/');
    return folders;
}

QString SortKey(const MoneyYear& year) {
    return UpperCzech(year.agendaName + year.yearName);
}

/// Up to and including the separator before the last name; empty when there is none.
QString FolderAbove(const QString& folder) {
    return folder.left(folder.lastIndexOf(u'/', folder.size() - 2) + 1);
}

const QString YearFolders = QStringLiteral("Rok");

/// Whether the list of an agenda shows this folder, also without a name.
bool IsListed(const QString& folder) {
    return QFileInfo(folder).isDir() && IsNamed(folder.chopped(1).section(u'/', -1), YearFolders);
}

/// None, after a message when they are on, when it or the folder above it is not Money's.
std::optional<MoneyYear> ReadYear(const QString& folder, bool needsName, bool showMessages) {
    MoneyYear year;
    year.yearFolder = Normalised(folder);
    needsName = needsName || !IsListed(year.yearFolder);
    if (!ReadName(year.yearFolder, YearName, showMessages && needsName, year.yearName) && needsName)
        return std::nullopt;
    year.agendaFolder = FolderAbove(year.yearFolder);
    if (year.agendaFolder.isEmpty()) {
        if (showMessages)
            ShowWarning(MessageText(AgendaName.refusal, year.yearFolder));
        return std::nullopt;
    }
    return ReadName(year.agendaFolder, AgendaName, showMessages, year.agendaName) ? std::optional(year) : std::nullopt;
}

} // namespace

QString CMoneyInstallation::DataRoot() const {
    for (char16_t drive = u'C'; drive <= u'Z'; ++drive) {
        const QString setup = m_drives.Native(
            QChar(drive) + QStringLiteral(":\\Program Files\\CIGLER SOFTWARE\\Common Files\\Setup.ini"));
        if (!QFileInfo(setup).isFile())
            continue;
        const QString program =
            CProfile(setup).GetString(QStringLiteral("InstParams"), QStringLiteral("LocalPath"), {}, MaxText);
        const CProfile settings(m_drives.Native(program + QStringLiteral("\\MonS3.ini")));
        return Normalised(m_drives.Native(
            settings.GetString(QStringLiteral("Directory"), QStringLiteral("DataRoot"), {}, MaxText).trimmed()));
    }
    ShowMessage(QStringLiteral("Na tomto počítači pravděpodobně nejsou nainstalovány MoneyS3."));
    return {};
}

void CMoneyInstallation::List() {
    m_years.clear();
    const QString root = DataRoot();
    // An installation that names no data folder has no agendas; the machine's root is not searched for them.
    if (root.size() < 2)
        return;
    for (const QString& agendaFolder : FoldersOf(root, QStringLiteral("Agenda"))) {
        MoneyYear year;
        year.agendaFolder = agendaFolder;
        if (!ReadName(agendaFolder, AgendaName, false, year.agendaName))
            continue;
        for (const QString& yearFolder : FoldersOf(agendaFolder, YearFolders)) {
            year.yearFolder = yearFolder;
            ReadName(yearFolder, YearName, false, year.yearName);
            Insert(year);
        }
    }
}

void CMoneyInstallation::Insert(MoneyYear year) {
    const auto place =
        std::upper_bound(m_years.begin(), m_years.end(), SortKey(year),
                         [](const QString& key, const MoneyYear& other) { return key < SortKey(other); });
    m_years.insert(place, std::move(year));
}

std::size_t CMoneyInstallation::RowOf(const MoneyYear& year) {
    const auto sameFolder = [&year](const MoneyYear& other) {
        return other.yearFolder.compare(year.yearFolder, Qt::CaseInsensitive) == 0;
    };
    const auto found = std::find_if(m_years.begin(), m_years.end(), sameFolder);
    const auto row = static_cast<std::size_t>(found - m_years.begin());
    if (found == m_years.end())
        m_years.push_back(year);
    return row;
}

std::optional<std::size_t> CMoneyInstallation::ChooseFolder(const QString& folder) {
    const std::optional<MoneyYear> year = ReadYear(folder, true, true);
    return year ? std::optional(RowOf(*year)) : std::nullopt;
}

std::optional<std::size_t> CMoneyInstallation::FindAgain(const QString& folder) {
    const std::optional<MoneyYear> year = ReadYear(QDir::fromNativeSeparators(folder), false, false);
    return year ? std::optional(RowOf(*year)) : std::nullopt;
}

std::optional<MoneyYear> MoneyYearOfFolder(const QString& folder) {
    const CDriveMap drives = CDriveMap::FromEnvironment();
    const bool hasDrive = folder.size() >= 2 && folder[1] == u':';
    return ReadYear(drives.Native(hasDrive ? folder : QDir::cleanPath(QDir::current().absoluteFilePath(folder))), false,
                    true);
}
