#pragma once

#include "core/base/ComError.h"
#include "core/store/Recordset.h"
#include "windows/widgets/lists/ListColumn.h"

#include <QAbstractTableModel>
#include <QHash>

/// The rows of a list. Row i is record i of the recordset, and its item data is the record's key.
///
/// A keyset kept open is read row by row, as rows are painted, so that its length costs only the keys; what was read is
/// remembered (for the rows last seen), so that a row shows what it held when it was first painted. A recordset that is
/// taken is read whole and closed.
class RecordListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    RecordListModel(const CDataStore& store, std::vector<ListColumn> columns, const char* keyField, QObject* parent);

    void Clear();
    /// Shows the rows of a keyset, which stays open. Raises ComError.
    void Show(const RecordsetPtr& records);
    /// Copies all rows and closes the recordset. Raises ComError; the rows read before stay.
    void Take(CRecordset& records);

    std::int32_t Id(int row) const;
    /// The current place of a record; −1 when the list does not have it. Raises ComError.
    int RowOf(std::int32_t id) const;
    /// Reads the row again when it is painted next.
    void RefreshRow(int row);
    void RefreshAllRows();
    /// Takes a row out of the list and of its keyset. Raises ComError when the keyset was closed meanwhile.
    void RemoveRow(int row);

    /// The cells of rows from `first` up to `end`, without remembering them; stops at a row that cannot be read.
    void Look(int first, int end, const std::function<void(int column, const QString& text)>& each) const;
    /// What the columns of the row hold.
    ListCell::Kind Kind(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    using Cells = std::vector<ListCell>;

    /// Empty for a row that cannot be read.
    const Cells& CellsOf(int row) const;
    Cells ReadCells(const CRecordset& record) const;
    void ReadFailed(const ComError& error) const;

    const CDataStore& m_store;
    std::vector<ListColumn> m_columns;
    const char* m_keyField;
    int m_rows = 0;
    /// Set while a keyset is shown.
    RecordsetPtr m_records;
    std::vector<std::int32_t> m_ids;
    mutable QHash<int, Cells> m_cells;
    /// Columns that were seen to hold numbers.
    mutable std::vector<bool> m_numbers;
    mutable bool m_failed = false;
};
