#include "core/import/money/DriveMap.h"

#include <QDir>
#include <QFileInfo>

CDriveMap CDriveMap::FromEnvironment() {
    const QString drives = qEnvironmentVariable("KUVEL_DRIVES");
    if (!drives.isEmpty())
        return CDriveMap(drives);
    const QString prefix = qEnvironmentVariable("WINEPREFIX");
    return CDriveMap((prefix.isEmpty() ? QDir::homePath() + QStringLiteral("/.wine") : prefix) +
                     QStringLiteral("/dosdevices"));
}

QString FindInFolder(const QString& folder, const QString& name) {
    QString exact = folder + name;
    if (QFileInfo::exists(exact))
        return exact;
    for (const QString& entry : QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return folder + entry;
    return exact;
}

QString CDriveMap::Native(const QString& path) const {
    QString rest = path;
    QString folder = QStringLiteral("/");
    if (path.size() >= 2 && path[1] == u':') {
        folder = QDir(m_folder).absolutePath() + u'/';
        rest.replace(u'\\', u'/');
    } else if (!path.startsWith(u'/')) {
        return {};
    }
    for (const QString& name : rest.split(u'/', Qt::SkipEmptyParts))
        folder = FindInFolder(folder, name) + u'/';
    if (!path.endsWith(u'/') && !path.endsWith(u'\\'))
        folder.chop(1);
    return folder;
}
