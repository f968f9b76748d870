#pragma once

#include "core/import/money/DriveMap.h"

#include <QString>

#include <optional>
#include <vector>

/// A year of an agenda: the names as Money shows them, the folders as paths of this machine with one separator at the
/// end.
struct MoneyYear {
    QString agendaName;
    QString agendaFolder;
    QString yearName;
    QString yearFolder;
};

/// The agendas and years of the Money S3 installation on this machine.
class CMoneyInstallation {
public:
    explicit CMoneyInstallation(const CDriveMap& drives) : m_drives(drives) {}

    /// The years found, ordered by the names of agenda and year; then those chosen by hand.
    const std::vector<MoneyYear>& Years() const { return m_years; }
    /// Lists them anew. A message, and an empty list, when no drive has an installation. An agenda whose name cannot be
    /// read is left out.
    void List();
    /// Takes the folder as a year folder. The index of its row, old or new; none after a message when it or the folder
    /// above it is not Money's.
    std::optional<std::size_t> ChooseFolder(const QString& folder);
    /// The row of a folder that was chosen in an earlier run, without messages; none when it is no longer Money's.
    std::optional<std::size_t> FindAgain(const QString& folder);

private:
    QString DataRoot() const;
    void Insert(MoneyYear year);
    /// The row of the year, old or new.
    std::size_t RowOf(const MoneyYear& year);

    CDriveMap m_drives;
    std::vector<MoneyYear> m_years;
};

/// The year of a year folder, given as for `CDriveMap::Native` or relative to the current folder, for an import without
/// windows; none after the messages of `ChooseFolder`. As in the list, a folder "Rok.*" needs no name.
std::optional<MoneyYear> MoneyYearOfFolder(const QString& folder);
