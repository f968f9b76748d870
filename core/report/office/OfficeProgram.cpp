#include "core/report/office/OfficeProgram.h"

#include <QDir>
#include <QStandardPaths>

/// Where the office lies that is not on the path: the distribution's, and those that its maker's packages install.
static QStringList OfficeFolders() {
    QStringList folders{QStringLiteral("/usr/lib/libreoffice/program"),
                        QStringLiteral("/usr/lib64/libreoffice/program")};
    const QDir own(QStringLiteral("/opt"));
    for (const QString& name : own.entryList({QStringLiteral("libreoffice*")}, QDir::Dirs, QDir::Name | QDir::Reversed))
        folders.append(own.filePath(name) + QStringLiteral("/program"));
    return folders;
}

QString FindOffice() {
    if (const QString named = qEnvironmentVariable("KUVEL_SOFFICE"); !named.isEmpty())
        return QStandardPaths::findExecutable(named);
    const QString name = QStringLiteral("soffice");
    const QString onPath = QStandardPaths::findExecutable(name);
    return onPath.isEmpty() ? QStandardPaths::findExecutable(name, OfficeFolders()) : onPath;
}
