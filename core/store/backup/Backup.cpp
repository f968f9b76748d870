#include "core/store/backup/Backup.h"

#include "core/base/AppDir.h"
#include "core/base/DateTime.h"
#include "core/base/Messages.h"
#include "core/base/Shared.h"
#include "core/base/SqlText.h"
#include "core/store/DataStore.h"
#include "core/store/Engine.h"
#include "core/store/backup/FileCopy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdlib>
#include <tuple>

namespace {

bool Close(CDataStore& store) {
    if (store.CloseDatabase())
        return true;
    ShowWarning(QStringLiteral("Nepodařilo se vytvoři uzavřít právě používanou databázi!"));
    return false;
}

/// The part before the last separator, unless that stands at the very beginning or the very end.
void CreateFolderOf(const QString& path) {
    const qsizetype separator = path.lastIndexOf(QDir::separator());
    if (separator > 0 && separator < path.size() - 1)
        CreateDirectoryPath(path.first(separator));
}

void Finish(CDataStore& store, const BackupActions& actions, const char* fatal) {
    if (!store.IsOpen()) {
        ShowWarning(QString::fromUtf8(fatal));
        actions.endProcess(1);
        return;
    }
    actions.reloadViews();
}

bool IsWholeDatabase(const QString& path) {
    try {
        CEngine(QFile::encodeName(path).toStdString(), true).Close();
        return true;
    } catch (const ComError&) {
        return false;
    }
}

bool IsSameFile(const QString& a, const QString& b) {
    const QString file = QFileInfo(a).canonicalFilePath();
    return !file.isEmpty() && file == QFileInfo(b).canonicalFilePath();
}

/// `kept` is set when the old database lies in the safety copy. Without one there is no way back from a source that
/// cannot be opened, so only a whole database is let in then.
std::error_code Replace(const QString& source, bool& kept) {
    const std::error_code error = CopyFileWhole(DatabasePath(), SafetyCopyPath());
    kept = !error;
    return kept || IsWholeDatabase(source) ? CopyFileWhole(source, DatabasePath()) : error;
}

/// The source may be the last safety copy itself, which the next one overwrites: it is brought aside first.
std::error_code ReplaceDatabase(const QString& source, bool& kept) {
    if (!IsSameFile(source, SafetyCopyPath()))
        return Replace(source, kept);
    const QString aside = DatabasePath() + QStringLiteral(".aside");
    std::error_code error = CopyFileWhole(source, aside);
    if (!error)
        error = Replace(aside, kept);
    QFile::remove(aside);
    return error;
}

} // namespace

void EndProcess(int exitCode) {
    std::_Exit(exitCode);
}

QString DefaultBackupPath() {
    const DateTime today = DateTime::Today();
    return MessageText("%sZalohy%sZaloha%02i%02i%02i.mdb", g_strAppDir, QString(QDir::separator()), today.Year(),
                       today.Month(), today.Day());
}

bool BackupDatabase(CDataStore& store, const QString& target, const BackupActions& actions) {
    if (QFileInfo(target).isFile() &&
        !AskToLose(MessageText("Soubor '%s' již existuje. Přejete si ho přepsat?", target)))
        return false;
    CreateFolderOf(target);
    if (!Close(store))
        return false;
    const std::error_code error = CopyFileWhole(DatabasePath(), target);
    if (error)
        ShowWin32Error(error);
    store.OpenDatabase();
    Finish(store, actions, "Během zálohování došlo k chybě. Program bude ukončen!");
    return !error;
}

bool RestoreDatabase(CDataStore& store, const QString& source, const BackupActions& actions, bool* putBack) {
    if (!QFileInfo(source).isFile()) {
        ShowWarning(MessageText("Nemohu nalézt soubor '%s'!", source));
        return false;
    }
    if (!Close(store))
        return false;
    bool kept = false;
    const std::error_code error = ReplaceDatabase(source, kept);
    if (error)
        ShowWin32Error(error);
    const bool done = !error;
    const bool opened = store.OpenDatabase(done);
    if (putBack != nullptr)
        *putBack = done && !opened;
    if (!opened) {
        // A copy that fails leaves the database unchanged; a safety copy of an earlier restore must not replace it.
        // Whether that went well, the opening below tells.
        if (done && kept)
            std::ignore = CopyFileWhole(SafetyCopyPath(), DatabasePath());
        store.OpenDatabase();
    }
    Finish(store, actions, "Během obnovování zálohy došlo k chybě. Program bude ukončen!");
    return done;
}
