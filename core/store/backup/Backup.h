#pragma once

#include <QString>

#include <functional>

class CDataStore;

/// What a backup or a restore does besides the files.
struct BackupActions {
    /// Every register fills its lists anew: their recordsets ended with the connection.
    std::function<void()> reloadViews;
    /// Ends the process at once, without the normal exit steps. `EndProcess` unless a test says otherwise.
    std::function<void(int exitCode)> endProcess;
};

/// Never returns.
void EndProcess(int exitCode);

/// "Zalohy/Zaloha20120702.mdb" in the program folder, for today.
QString DefaultBackupPath();

/// Copies the database to the target; its folders are made, an existing file is asked about. The connection is closed
/// meanwhile and open again afterwards. False when the user declined and after a failure, which was shown: then the old
/// target is as it was.
bool BackupDatabase(CDataStore& store, const QString& target, const BackupActions& actions);

/// Copies the source over the database, which is kept as "KuvelTmp.MDB". A source that is no database of ours, or a
/// damaged one, is shown ("Nemohu otevřít databázi '%s'") and the old data put back; that counts as done. `putBack` is
/// told of it. False after a failure, which was shown; then the database is as it was.
bool RestoreDatabase(CDataStore& store, const QString& source, const BackupActions& actions, bool* putBack = nullptr);
