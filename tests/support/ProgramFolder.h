#pragma once

#include "core/store/DataStore.h"

#include <QTemporaryDir>

#include <sys/resource.h>

/// A program folder of the test's own: `g_strAppDir` points to it while it lives. The clock is pinned to
/// 2 July 2012, 10:15:30.
class ProgramFolder {
public:
    ProgramFolder();
    ~ProgramFolder();
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    /// With a trailing separator.
    QString Path() const;
    QString File(const char* name) const { return Path() + QString::fromUtf8(name); }
    /// Puts the delivered empty database into it, and the templates when asked.
    void AddDatabase() const;
    void AddTemplates() const;

    /// Runs the engine's own SQL on the database, as another program would.
    void Sql(const std::string& sql) const { AskAll(sql); }
    /// The first column of the first row, as text; "null" for a null, "none" without a row.
    std::string Ask(const std::string& sql) const;
    /// All rows, fields separated by "|", rows by a blank.
    std::string AskAll(const std::string& sql) const;

private:
    QTemporaryDir m_folder;
    QString m_before;
    DoorUse<std::function<DateTime()>> m_clock;
};

/// A program folder with an open empty database.
struct StoreFolder {
    ProgramFolder folder;
    CDataStore store;

    StoreFolder();
    /// Beside the store.
    void Sql(const std::string& sql) const { folder.Sql(sql); }
    std::string Ask(const std::string& sql) const { return folder.Ask(sql); }
    std::string AskAll(const std::string& sql) const { return folder.AskAll(sql); }
};

/// While it lives, no file of this process grows past `bytes`, as on a disk that is nearly full.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

QByteArray FileBytes(const QString& path);
void WriteFile(const QString& path, const QByteArray& bytes);
