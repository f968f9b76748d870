#include "windows/widgets/lists/RecordListModel.h"

#include "core/base/Messages.h"
#include "core/base/SqlText.h"
#include "core/store/DataStore.h"

#include <algorithm>

namespace {

/// Rows of a keyset that are remembered; many times what a screen shows.
constexpr int RememberedRows = 4096;

/// Painting comes at any time: the record that others work with stays the current one.
class KeptPosition {
public:
    explicit KeptPosition(CRecordset& records) : m_records(records), m_position(records.get_AbsolutePosition() - 1) {}
    ~KeptPosition() {
        try {
            m_records.MoveFirst();
            m_records.Move(m_position);
        } catch (const ComError&) {
            // Closed in the middle: there is no position to keep.
        }
    }
    KeptPosition(const KeptPosition&) = delete;
    KeptPosition& operator=(const KeptPosition&) = delete;

private:
    CRecordset& m_records;
    int m_position;
};

} // namespace

RecordListModel::RecordListModel(const CDataStore& store, std::vector<ListColumn> columns, const char* keyField,
                                 QObject* parent)
    : QAbstractTableModel(parent), m_store(store), m_columns(std::move(columns)), m_keyField(keyField),
      m_numbers(m_columns.size()) {}

void RecordListModel::Clear() {
    beginResetModel();
    m_rows = 0;
    m_records.reset();
    m_ids.clear();
    m_cells.clear();
    m_failed = false;
    endResetModel();
}

void RecordListModel::Show(const RecordsetPtr& records) {
    Clear();
    const int rows = records->get_RecordCount();
    beginResetModel();
    m_records = records;
    m_rows = rows;
    endResetModel();
}

void RecordListModel::Take(CRecordset& records) {
    Clear();
    beginResetModel();
    try {
        for (; !records.get_EOF(); records.MoveNext()) {
            const std::int32_t id = records.Long(m_keyField);
            m_cells.insert(m_rows, ReadCells(records));
            ++m_rows;
            m_ids.push_back(id);
        }
        records.Close();
    } catch (const ComError&) {
        endResetModel();
        throw;
    }
    endResetModel();
}

std::int32_t RecordListModel::Id(int row) const {
    return m_records ? static_cast<std::int32_t>(m_records->KeyAt(row)) : m_ids.at(static_cast<std::size_t>(row));
}

int RecordListModel::RowOf(std::int32_t id) const {
    if (!m_records) {
        const auto found = std::find(m_ids.begin(), m_ids.end(), id);
        return found == m_ids.end() ? -1 : static_cast<int>(found - m_ids.begin());
    }
    for (int row = 0; row < m_rows; ++row)
        if (m_records->KeyAt(row) == id)
            return row;
    return -1;
}

void RecordListModel::RefreshRow(int row) {
    if (row < 0 || row >= m_rows || !m_records)
        return;
    m_cells.remove(row);
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void RecordListModel::RefreshAllRows() {
    if (m_rows == 0 || !m_records)
        return;
    m_cells.clear();
    emit dataChanged(index(0, 0), index(m_rows - 1, columnCount() - 1));
}

void RecordListModel::RemoveRow(int row) {
    if (row < 0 || row >= m_rows)
        return;
    if (m_records)
        m_records->KeyAt(row);
    beginRemoveRows({}, row, row);
    if (m_records)
        m_records->Drop(row);
    else
        m_ids.erase(m_ids.begin() + row);
    --m_rows;
    QHash<int, Cells> cells;
    for (auto it = m_cells.cbegin(); it != m_cells.cend(); ++it)
        if (it.key() != row)
            cells.insert(it.key() < row ? it.key() : it.key() - 1, it.value());
    m_cells = cells;
    endRemoveRows();
}

int RecordListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int RecordListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant RecordListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= m_rows)
        return {};
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::TextAlignmentRole)
        return {};
    const Cells& cells = CellsOf(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (column >= cells.size())
        return {};
    if (role == Qt::DisplayRole)
        return cells[column].text;
    if (role == Qt::ToolTipRole)
        return cells[column].exact;
    return QVariant::fromValue((cells[column].kind == ListCell::Kind::Number ? Qt::AlignRight : Qt::AlignLeft) |
                               Qt::AlignVCenter);
}

QVariant RecordListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::DisplayRole)
        return m_columns[static_cast<std::size_t>(section)].header;
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue((m_numbers[static_cast<std::size_t>(section)] ? Qt::AlignRight : Qt::AlignLeft) |
                                   Qt::AlignVCenter);
    return {};
}

void RecordListModel::Look(int first, int end, const std::function<void(int column, const QString& text)>& each) const {
    const auto show = [&](const Cells& cells) {
        for (int column = 0; column < static_cast<int>(cells.size()); ++column)
            each(column, cells[static_cast<std::size_t>(column)].text);
    };
    if (!m_records) {
        for (int row = first; row < end; ++row)
            show(CellsOf(row));
        return;
    }
    try {
        const KeptPosition kept(*m_records);
        for (int row = first; row < end && CDataStore::MoveToRecord(m_records, row); ++row)
            show(ReadCells(*m_records));
    } catch (const ComError&) {
        // Painting tells of it, where the row is seen.
    }
}

ListCell::Kind RecordListModel::Kind(int row, int column) const {
    const Cells& cells = CellsOf(row);
    const auto at = static_cast<std::size_t>(column);
    return at < cells.size() ? cells[at].kind : ListCell::Kind::Other;
}

const RecordListModel::Cells& RecordListModel::CellsOf(int row) const {
    static const Cells Nothing;
    const auto found = m_cells.constFind(row);
    if (found != m_cells.cend())
        return *found;
    if (!m_records || m_failed)
        return Nothing;
    if (m_cells.size() >= RememberedRows)
        m_cells.clear();
    try {
        const KeptPosition kept(*m_records);
        CDataStore::MoveToRecord(m_records, row);
        return *m_cells.insert(row, ReadCells(*m_records));
    } catch (const ComError& error) {
        ReadFailed(error);
        return Nothing;
    }
}

RecordListModel::Cells RecordListModel::ReadCells(const CRecordset& record) const {
    Cells cells;
    cells.reserve(m_columns.size());
    for (const ListColumn& column : m_columns) {
        cells.push_back(column.text(m_store, record));
        if (cells.back().kind == ListCell::Kind::Number)
            m_numbers[cells.size() - 1] = true;
    }
    return cells;
}

/// A vanished record shows an empty row until it is located; while a backup or restore has the database closed, rows
/// not seen before are empty until the lists are told to reload. Anything else is shown once, after the painting.
void RecordListModel::ReadFailed(const ComError& error) const {
    if (error.Code() == ResultCode::NoCurrentRecord || error.Code() == ResultCode::ObjectClosed)
        return;
    m_failed = true;
    auto* self = const_cast<RecordListModel*>(this);
    QMetaObject::invokeMethod(
        self, [error] { ShowComError(error); }, Qt::QueuedConnection);
}
