#include "core/base/AppDir.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QString g_strAppDir;

void SetAppDir(const QString& folder) {
    g_strAppDir = QDir(folder).absolutePath();
    if (!g_strAppDir.endsWith(u'/')) {
        g_strAppDir += u'/';
    }
}

QString DefaultAppDir() {
    if (QString home = qEnvironmentVariable("KUVEL_HOME"); !home.isEmpty()) {
        return home;
    }
    const QString executable = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget();
    return executable.isEmpty() ? QCoreApplication::applicationDirPath() : QFileInfo(executable).path();
}

QString DatabasePath() {
    return g_strAppDir + DatabaseName;
}

QString SafetyCopyPath() {
    return g_strAppDir + QStringLiteral("KuvelTmp.MDB");
}

QString SettingsPath() {
    return g_strAppDir + QStringLiteral("kuvel.ini");
}
