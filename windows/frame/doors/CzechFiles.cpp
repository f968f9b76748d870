#include "windows/frame/doors/CzechFiles.h"

#include <QDateTime>
#include <QFileSystemModel>

static constexpr int ModifiedColumn = 3;

QVariant CCzechFiles::data(const QModelIndex& index, int role) const {
    const auto* const files = qobject_cast<const QFileSystemModel*>(sourceModel());
    if (files == nullptr || index.column() != ModifiedColumn || role != Qt::DisplayRole)
        return QIdentityProxyModel::data(index, role);
    return QLocale().toString(files->lastModified(mapToSource(index)), QStringLiteral("d. MMMM yyyy H:mm"));
}
