#pragma once

#include "core/base/CodeLists.h"
#include "core/store/Recordset.h"

#include <QString>
#include <QStringList>

#include <array>
#include <functional>
#include <memory>
#include <string_view>

class CEngine;

/// The one owner of the database connection and of the seven code lists. Used from one thread.
class CDataStore {
public:
    CDataStore();
    /// Closes the database.
    ~CDataStore();
    CDataStore(const CDataStore&) = delete;
    CDataStore& operator=(const CDataStore&) = delete;

    /// Opens `g_strAppDir` + "Kuvel.mdb"; never creates it. False after "Nemohu otevřít databázi '%s'", whose second
    /// line says why: it is not there, in use, not ours, newer than the program, damaged or write-protected. With
    /// `checkIntegrity` the whole file is read, and damage anywhere counts as a file that cannot be opened.
    bool OpenDatabase(bool checkIntegrity = false);
    /// True also when nothing is open; false when a commit group or an edit was open, which is taken back.
    bool CloseDatabase();
    bool IsOpen() const;
    /// Closes the database, lets the engine give back unused space, and deletes the safety copy "KuvelTmp.MDB". False
    /// when there is no database, and after an error, which leaves the file as it was.
    bool CompactDatabase();

    /// Runs a statement that returns no rows and commits it. Raises ComError.
    void ExecuteSQL(std::string_view sql);
    /// Opens the handle's recordset on an SQL text or a table name, reusing the object it holds. True; raises ComError.
    bool OpenRecordset(RecordsetPtr& recordset, std::string_view source, CursorType cursor, LockType lock,
                       CommandType command);
    /// A query to read or update rows. Raises ComError.
    RecordsetPtr Query(std::string_view sql);
    /// A table to append rows to. Raises ComError.
    RecordsetPtr Table(std::string_view name);
    /// From the first record on; the caller tests end-of-file to learn whether one was found. Raises ComError.
    static bool FindFirst(const RecordsetPtr& recordset, std::string_view criterion);
    /// Zero-based. False, without moving, when `position` is negative or not below the record count. Raises ComError.
    static bool MoveToRecord(const RecordsetPtr& recordset, int position);

    const QStringList& Codes(CodeList list) const { return m_codeLists[static_cast<std::size_t>(list)]; }
    /// "???" for an index outside the list.
    QString CodeListText(CodeList list, int index) const;

    /// Raises ComError when nothing is open; so does the next.
    CEngine& Engine() const;
    /// For what must end a transaction after the database was closed, too.
    std::shared_ptr<CEngine> SharedEngine() const;

private:
    std::shared_ptr<CEngine> m_engine;
    std::array<QStringList, CodeListCount> m_codeLists;
};

extern CDataStore g_dataStore;
