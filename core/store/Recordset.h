#pragma once

#include "core/base/Variant.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class CEngine;
class CMatches;
class CRows;

enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
enum class LockType { ReadOnly = 1, Optimistic = 3 };
enum class CommandType { Text = 1, Table = 2 };

/// The rows of a query or table, with a current record, under the names that ADO gave to these operations.
///
/// A query on one table is a keyset: the keys are read in order when it is opened (eight bytes each), and each row is
/// read again when it is visited. A join is read whole when it is opened and cannot be changed. A table opened by its
/// name reads nothing before it is navigated. Every member raises ComError; a field of a row that has vanished raises
/// ResultCode::NoCurrentRecord. After an error, and after the database was closed, `Close` and destruction are safe.
class CRecordset {
public:
    explicit CRecordset(std::shared_ptr<CEngine> engine);
    ~CRecordset();
    CRecordset(const CRecordset&) = delete;
    CRecordset& operator=(const CRecordset&) = delete;

    /// Opens, or opens anew, on a query or a table name. The first row, if any, becomes the current record.
    void Open(std::shared_ptr<CEngine> engine, std::string_view source, CommandType type);
    /// Runs the query again.
    void Requery();
    void Close();
    bool get_State() const { return m_open; }

    bool get_EOF() const;
    int get_RecordCount() const;
    /// 1 for the first record; the record count + 1 at the end.
    int get_AbsolutePosition() const;
    /// At the end when there is no row.
    void MoveFirst();
    void MoveNext();
    /// Relative to the current record; a target beyond either end raises and leaves the position.
    void Move(int count);
    /// Searches forward, from the current record on, for the first that meets the condition; at the end when there is
    /// none. Keysets only. The values are those in the database now; a search that goes on from a match with the same
    /// condition reads the table again only when it can find something else.
    void Find(std::string_view criterion);

    /// Whether the current record is still in the database.
    bool IsThere() const;
    /// The key of the record at this position, counted from 0, without reading its row; also when the database was
    /// closed meanwhile. Keysets only.
    std::int64_t KeyAt(int position) const;
    /// Takes the record at this position, counted from 0, out of the set; the database is not touched. Keysets only.
    void Drop(int position);

    /// The field's value when the record was visited, or what was put since. The first of the columns of this name, in
    /// any case.
    Variant get_Collect(std::string_view column) const;
    /// A code-list index; −1 for null.
    std::int32_t Code(std::string_view column) const { return ToCode(get_Collect(column)); }
    std::int32_t Long(std::string_view column) const { return ToLong(get_Collect(column)); }
    /// Kept until `Update`; nothing is written before. A value that the column cannot hold raises.
    void put_Collect(std::string_view column, const Variant& value);
    /// Begins a new record, whose fields not put take the column's default.
    void AddNew();
    /// Writes and commits (inside a commit group: when that commits) what was put. A new record becomes the current
    /// one.
    void Update();
    /// Forgets what was put.
    void CancelUpdate();

private:
    struct Edit {
        int column;
        Variant value;
    };

    void NeedOpen() const;
    void NeedKeys() const;
    void NeedRecord() const;
    void NeedPosition(int position) const;
    void ReadCurrentRow() const;
    int ColumnIndex(std::string_view name) const;
    void Insert();
    void Change();

    std::shared_ptr<CEngine> m_engine;
    std::string m_source;
    CommandType m_type = CommandType::Text;
    std::unique_ptr<CRows> m_rows;
    std::unique_ptr<CMatches> m_matches;
    bool m_open = false;
    std::vector<Edit> m_edits;
    bool m_adding = false;
};

using RecordsetPtr = std::shared_ptr<CRecordset>;
