#pragma once

#include <QString>

/// Where the drives of another system's paths are: a folder that holds "c:", "d:" and so on, links or folders. Folder
/// and file names are found in any case, as on the system that the paths come from.
class CDriveMap {
public:
    explicit CDriveMap(const QString& folder) : m_folder(folder) {}

    /// The folder that KUVEL_DRIVES names; otherwise the drives of the Wine prefix in WINEPREFIX or in ~/.wine.
    static CDriveMap FromEnvironment();

    /// "C:\Folder\File" as a path of this machine. From the first name that is not there the rest stays as it is
    /// written. A path of this machine stays what it is, except for the case of its names; a network path is nowhere.
    QString Native(const QString& path) const;

private:
    QString m_folder;
};

/// The path of the entry of this name; where there are several, the one of this very case comes first. A name that is
/// not there is appended as it is. The folder ends with a separator.
QString FindInFolder(const QString& folder, const QString& name);
