#pragma once

#include "store/DataStore.h"

#include <QTemporaryDir>

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

private:
    QTemporaryDir m_folder;
    QString m_before;
};

/// A program folder with an open empty database.
struct StoreFolder {
    ProgramFolder folder;
    CDataStore store;

    StoreFolder();
    /// Runs the engine's own SQL beside the store, as another program would.
    void Sql(const char* sql) const;
    /// The first column of the first row, as text; "null" for a null, "none" without a row.
    std::string Ask(const char* sql) const;
    /// All rows, fields separated by "|", rows by a blank.
    std::string AskAll(const char* sql) const;
};

QByteArray FileBytes(const QString& path);
void WriteFile(const QString& path, const QByteArray& bytes);
