#pragma once

#include "tests/support/MoneyTables.h"

#include <QTemporaryDir>

#include <map>
#include <vector>

/// A made-up Money S3 installation: a folder of drives, which KUVEL_DRIVES names while it lives.
class MoneyFolder {
public:
    MoneyFolder();
    ~MoneyFolder();
    MoneyFolder(const MoneyFolder&) = delete;
    MoneyFolder& operator=(const MoneyFolder&) = delete;

    /// A path below the folder of drives, "c:/Money/Data/".
    QString Path(const QString& path) const { return m_folder.path() + QLatin1Char('/') + path; }
    /// Writes a file, in Windows-1250, and makes the folders above it.
    void Write(const QString& path, const QString& text) const;
    void WriteTable(const QString& path, const DbfBytes& table) const;
    /// Setup.ini and MonS3.ini of an installation whose data is in `dataRoot` ("D:\Data").
    void Install(char drive, const QString& dataRoot) const;
    /// An agenda or a year with its name in an ini file.
    void AddAgenda(const QString& folder, const QString& name) const;
    void AddYear(const QString& folder, const QString& name) const;

private:
    QTemporaryDir m_folder;
    QByteArray m_before;
};
