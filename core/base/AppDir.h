#pragma once

#include <QString>

/// The program folder, an absolute path with a trailing separator. Every file of the program is named by appending to
/// it; empty until `SetAppDir`.
extern QString g_strAppDir;

/// A relative folder is taken from the current one; the separator is added. The folder need not exist.
void SetAppDir(const QString& folder);

/// The folder that the environment variable KUVEL_HOME names, otherwise the folder of the running executable. Needs no
/// application object.
QString DefaultAppDir();

inline constexpr QLatin1StringView DatabaseName{"Kuvel.mdb"};
/// The database in the program folder.
QString DatabasePath();
/// What a restore keeps of the data that it replaces, `KuvelTmp.MDB` in the program folder.
QString SafetyCopyPath();
/// The settings file, `kuvel.ini` in the program folder.
QString SettingsPath();
