#pragma once

#include <QIdentityProxyModel>

/// The files of a file dialog with their dates in the program's language; the toolkit writes them in the system's.
class CCzechFiles : public QIdentityProxyModel {
    Q_OBJECT

public:
    using QIdentityProxyModel::QIdentityProxyModel;
    QVariant data(const QModelIndex& index, int role) const override;
};
