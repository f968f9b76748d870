#include "windows/frame/doors/FileDialogDoor.h"

#include "windows/frame/doors/ActiveWindow.h"
#include "windows/frame/doors/CzechFiles.h"
#include "windows/widgets/ScreenFit.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QSplitter>
#include <QTreeView>

namespace {

constexpr int PlacesWidth = 140;

/// Only where the desktop has no dialog of its own.
void SetUpList(QFileDialog& dialog) {
    auto* const list = dialog.findChild<QTreeView*>();
    if (list == nullptr)
        return;
    dialog.setProxyModel(new CCzechFiles(&dialog));
    list->header()->setStretchLastSection(false);
    for (int column = 1; column < list->header()->count(); ++column)
        list->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    dialog.resize(FittingSize(dialog, dialog.sizeHint().expandedTo({800, 480})));
    // The toolkit leaves the places less than their names need.
    if (auto* const sides = dialog.findChild<QSplitter*>())
        sides->setSizes({PlacesWidth, dialog.width() - PlacesWidth});
}

QString Ask(const IFileDoor::Request& request, QFileDialog::AcceptMode mode, QFileDialog::FileMode fileMode) {
    QFileDialog dialog(ActiveWindow(), request.title);
    dialog.setObjectName(QStringLiteral("fileDialog"));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(fileMode);
    dialog.setOption(QFileDialog::ShowDirsOnly, fileMode == QFileDialog::Directory);
    // Whoever writes the file asks before it is overwritten.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (!request.filter.isEmpty())
        dialog.setNameFilter(request.filter);
    dialog.setDefaultSuffix(request.defaultExtension);
    SetUpList(dialog);
    const QFileInfo path(request.path);
    if (path.isDir()) {
        dialog.setDirectory(path.absoluteFilePath());
    } else if (!request.path.isEmpty()) {
        if (path.dir().exists())
            dialog.setDirectory(path.absolutePath());
        dialog.selectFile(path.fileName());
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst());
}

} // namespace

QString CFileDialogDoor::OpenFile(const Request& request) {
    return Ask(request, QFileDialog::AcceptOpen, QFileDialog::ExistingFile);
}

QString CFileDialogDoor::SaveFile(const Request& request) {
    return Ask(request, QFileDialog::AcceptSave, QFileDialog::AnyFile);
}

QString CFileDialogDoor::ChooseFolder(const Request& request) {
    return Ask(request, QFileDialog::AcceptOpen, QFileDialog::Directory);
}
