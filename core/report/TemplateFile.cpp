#include "core/report/TemplateFile.h"

#include "core/base/AppDir.h"
#include "core/base/SqlText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

/// From this year on the forms were published quarter by quarter, each good for those that follow.
constexpr int FirstYearOfQuarterForms = 2009;

bool IsTaken(const QDir& folder, const QString& name) {
    // Hidden and system files count too: a dangling link would also stop the copy.
    return !folder.entryList({name, name + QStringLiteral(".*")}, QDir::AllEntries | QDir::Hidden | QDir::System)
                .isEmpty();
}

} // namespace

QString YearTemplate(int year) {
    return MessageText("%svykaz%4i.tpl", g_strAppDir, year);
}

QString FindTemplate(Period period) {
    const int lastQuarter = period.year >= FirstYearOfQuarterForms ? 1 : period.quarter;
    for (int quarter = period.quarter; quarter >= lastQuarter; --quarter) {
        QString path = MessageText("%svykaz%4i_%i.tpl", g_strAppDir, period.year, quarter);
        if (QFileInfo::exists(path))
            return path;
    }
    const QString path = YearTemplate(period.year);
    return QFileInfo::exists(path) ? path : QString();
}

QString ReportFolder() {
    return g_strAppDir + QStringLiteral("Vykazy");
}

OutputName NextOutputName(const DateTime& today) {
    const QDir folder(ReportFolder());
    QString name;
    for (int n = 1; n <= NamesOfDay; ++n) {
        name = MessageText("ctvrtletni_vykaz_o_produkci_obalu%02i%02i%02i", today.Month(), today.Day(), n);
        if (!IsTaken(folder, name))
            return {folder.filePath(name + QStringLiteral(".XLS")), true};
    }
    return {folder.filePath(name + QStringLiteral(".*")), false};
}

bool CopyToNewFile(const QString& source, const QString& target) {
    QFile from(source);
    QFile to(target);
    if (!from.open(QIODevice::ReadOnly) || !to.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return false;
    const QByteArray bytes = from.readAll();
    if (from.error() == QFileDevice::NoError && to.write(bytes) == bytes.size())
        return true;
    to.remove();
    return false;
}
