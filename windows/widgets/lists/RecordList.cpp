#include "windows/widgets/lists/RecordList.h"

#include "core/store/DataStore.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/WaitCursor.h"
#include "windows/widgets/lists/RowDelegate.h"

#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace {

/// Rows that the columns fit before a list is painted first; reading a million for it would take many seconds.
constexpr int FittedAtOnce = 200;
/// The others are read in slices of this many milliseconds, with pauses, and so many rows before a look at the clock.
constexpr int FitSlice = 4;
constexpr int FitPause = 5;
constexpr int FitStep = 64;
constexpr int CellPadding = 12;
constexpr int SortMarkWidth = 16;
constexpr int EmptyTextMargin = 16;

/// Up for ascending, as the users' other programs draw it, whatever the style thinks.
class SortHeader : public QHeaderView {
public:
    explicit SortHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override {
        QHeaderView::initStyleOptionForIndex(option, section);
        if (option->sortIndicator != QStyleOptionHeader::None)
            option->sortIndicator =
                sortIndicatorOrder() == Qt::AscendingOrder ? QStyleOptionHeader::SortUp : QStyleOptionHeader::SortDown;
    }
};

/// Redrawing is suspended while it lives.
class NoRedraw {
public:
    explicit NoRedraw(QWidget& widget) : m_widget(widget) { m_widget.setUpdatesEnabled(false); }
    ~NoRedraw() { m_widget.setUpdatesEnabled(true); }
    NoRedraw(const NoRedraw&) = delete;
    NoRedraw& operator=(const NoRedraw&) = delete;

private:
    QWidget& m_widget;
};

} // namespace

RecordList::RecordList(CDataStore& store, ListSpec spec, QWidget* parent)
    : QTableView(parent), m_store(store), m_spec(std::move(spec)),
      m_model(new RecordListModel(store, m_spec.columns, m_spec.keyField, this)), m_delegate(new RowDelegate(this)),
      m_sortColumn(m_spec.sortColumn) {
    setObjectName(m_spec.objectName);
    setHorizontalHeader(new SortHeader(this));
    setModel(m_model);
    setItemDelegate(m_delegate);
    setSelectionBehavior(SelectRows);
    setSelectionMode(m_spec.multiSelection ? ExtendedSelection : SingleSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(m_spec.grid);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    SetUpHeader();
    connect(&m_fitTimer, &QTimer::timeout, this, &RecordList::FitOn);
    connect(this, &QAbstractItemView::doubleClicked, this, &RecordList::rowDoubleClicked);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_filling)
            emit rowsSelected();
    });
}

void RecordList::SetUpHeader() {
    QHeaderView* header = horizontalHeader();
    header->setSectionsMovable(m_spec.grid);
    header->setSectionsClickable(m_spec.clickableHeader);
    header->setHighlightSections(false);
    header->setMinimumSectionSize(24);
    connect(header, &QHeaderView::sectionResized, this, [this] {
        if (!m_fitting)
            m_fitted = RowCount();
    });
    if (m_spec.clickableHeader)
        connect(header, &QHeaderView::sectionClicked, this, &RecordList::SortBy);
}

void RecordList::SortBy(int column) {
    m_descending = column == m_sortColumn && !m_descending;
    m_sortColumn = column;
    emit sortChanged();
}

std::string RecordList::OrderedSql(const std::string& sql) const {
    if (!m_spec.clickableHeader)
        return sql;
    const char* field = m_spec.columns[static_cast<std::size_t>(m_sortColumn)].sortField;
    return sql + " ORDER BY " + (field != nullptr ? field : m_spec.defaultSort) + (m_descending ? " DESC" : "");
}

template <class Show>
bool RecordList::FillBy(std::int32_t id, const Show& show) {
    const QScopedValueRollback filling(m_filling, true);
    const bool filled = Guarded([&] {
        if (id == KeepSelection)
            id = m_spec.keepsSelection ? SelectedId() : NoId;
        show();
    });
    SelectAfterFill(id);
    return filled;
}

bool RecordList::FillKeeping(const std::string& sql, std::int32_t id) {
    const WaitCursor wait;
    const NoRedraw still(*this);
    RecordsetPtr records;
    if (!Guarded([&] {
            m_store.OpenRecordset(records, OrderedSql(sql), CursorType::Keyset, LockType::Optimistic,
                                  CommandType::Text);
        }))
        return false;
    return FillBy(id, [&] {
        m_records = records;
        m_model->Show(m_records);
    });
}

bool RecordList::Fill(const std::string& sql, std::int32_t id) {
    const WaitCursor wait;
    const NoRedraw still(*this);
    return FillBy(id, [&] {
        m_model->Clear();
        if (!sql.empty())
            m_model->Take(*m_store.Query(OrderedSql(sql)));
    });
}

void RecordList::SelectAfterFill(std::int32_t id) {
    int row = -1;
    Guarded([&] { row = id > NoId ? m_model->RowOf(id) : -1; });
    if (row < 0 && RowCount() > 0 && m_spec.fallback != ListSpec::Fallback::None)
        row = m_spec.fallback == ListSpec::Fallback::Last ? RowCount() - 1 : 0;
    if (row >= 0)
        SelectRow(row);
    if (m_spec.clickableHeader) {
        horizontalHeader()->setSortIndicatorShown(true);
        horizontalHeader()->setSortIndicator(m_sortColumn, m_descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    }
    AutosizeColumns();
}

int RecordList::FocusedRow() const {
    return currentIndex().isValid() ? currentIndex().row() : -1;
}

std::vector<int> RecordList::SelectedRows() const {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

int RecordList::SelectedRow() const {
    int first = -1;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        if (first < 0 || range.top() < first)
            first = range.top();
    return first;
}

int RecordList::SelectedCount() const {
    const QItemSelection selection = selectionModel()->selection();
    return selection.size() == 1 ? selection.front().height() : static_cast<int>(SelectedRows().size());
}

std::int32_t RecordList::SelectedId() const {
    const int row = SelectedRow();
    return row < 0 ? NoId : Id(row);
}

QString RecordList::CellText(int row, int column) const {
    return m_model->data(m_model->index(row, column), Qt::DisplayRole).toString();
}

void RecordList::SelectRow(int row) {
    const QModelIndex index = m_model->index(row, std::max(0, currentIndex().column()));
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    const int column = horizontalScrollBar()->value();
    scrollTo(index);
    horizontalScrollBar()->setValue(column);
}

void RecordList::DeselectAll() {
    selectionModel()->clear();
}

const RecordsetPtr& RecordList::Records() const {
    if (!m_records)
        throw ComError("recordset", {}, ResultCode::ObjectClosed, QStringLiteral("Sada záznamů není otevřena."));
    return m_records;
}

/// The focus goes where the selection goes: to the row that takes the place of the one removed, or to the last.
void RecordList::RemoveRow(int row) {
    const bool wasSelected = selectionModel()->isRowSelected(row, {});
    {
        const QScopedValueRollback filling(m_filling, true);
        Guarded([&] { m_model->RemoveRow(row); });
    }
    if (!wasSelected || SelectedRow() >= 0)
        return;
    if (RowCount() > 0)
        SelectRow(std::min(row, RowCount() - 1));
    else
        emit rowsSelected();
}

bool RecordList::ShowToFit(int first, int end) {
    bool wider = false;
    m_model->Look(first, end, [&](int column, const QString& text) { wider |= m_fit.Show(column, text); });
    return wider;
}

int RecordList::FittingWidth(int column) const {
    const QString caption = m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    int width = horizontalHeader()->fontMetrics().horizontalAdvance(caption) + CellPadding;
    if (m_spec.clickableHeader && column == m_sortColumn)
        width += SortMarkWidth;
    return std::max(width, m_delegate->TextWidth(m_fit.Widest(column), font()) + CellPadding);
}

void RecordList::AutosizeColumns() {
    m_fit.Begin(m_model->columnCount(), font());
    m_fitted = std::min(RowCount(), FittedAtOnce);
    ShowToFit(0, m_fitted);
    ApplyFit();
    m_fitTimer.start(FitPause);
}

void RecordList::FitOn() {
    if (m_fitted >= RowCount() || !isVisible()) {
        m_fitTimer.stop();
        return;
    }
    bool wider = false;
    QElapsedTimer slice;
    for (slice.start(); m_fitted < RowCount() && slice.elapsed() < FitSlice;) {
        const int end = std::min(RowCount(), m_fitted + FitStep);
        wider |= ShowToFit(m_fitted, end);
        m_fitted = end;
    }
    if (wider)
        ApplyFit();
}

void RecordList::ApplyFit() {
    const QScopedValueRollback fitting(m_fitting, true);
    const int last = m_model->columnCount() - 1;
    for (int column = 0; column < last; ++column)
        setColumnWidth(column, FittingWidth(column));
    m_lastColumnWidth = FittingWidth(last);
    StretchLastColumn();
}

void RecordList::StretchLastColumn() {
    const QScopedValueRollback fitting(m_fitting, true);
    const int last = m_model->columnCount() - 1;
    int others = 0;
    for (int column = 0; column < last; ++column)
        others += columnWidth(column);
    setColumnWidth(last, std::max(m_lastColumnWidth, viewport()->width() - others));
}

void RecordList::SetEmptyText(const QString& text) {
    m_emptyText = text;
    viewport()->update();
}

void RecordList::keyboardSearch(const QString& search) {
    const int row = m_search.Type(search, *m_model, {m_sortColumn, m_descending}, FocusedRow());
    if (row >= 0)
        SelectRow(row);
}

void RecordList::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    m_fitTimer.start(FitPause);
}

void RecordList::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    emit focusChanged(true);
}

void RecordList::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    emit focusChanged(window()->focusWidget() == this);
}

QRect RecordList::RowRect(int row) const {
    return {-horizontalHeader()->offset(), rowViewportPosition(row), horizontalHeader()->length(), rowHeight(row)};
}

void RecordList::currentChanged(const QModelIndex& now, const QModelIndex& before) {
    QTableView::currentChanged(now, before);
    for (const QModelIndex& index : {now, before})
        if (index.isValid())
            viewport()->update(RowRect(index.row()));
}

void RecordList::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (RowCount() == 0 && !m_emptyText.isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        const QRect room = viewport()->rect().adjusted(EmptyTextMargin, EmptyTextMargin, -EmptyTextMargin, 0);
        painter.drawText(room, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_emptyText);
    } else if (hasFocus() && currentIndex().isValid()) {
        QPainter painter(viewport());
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect =
            RowRect(currentIndex().row()).intersected(viewport()->rect().adjusted(0, -rowHeight(0), 0, rowHeight(0)));
        focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
        const bool selected = selectionModel()->isRowSelected(currentIndex().row(), {});
        focus.backgroundColor = palette().color(selected ? QPalette::Highlight : QPalette::Base);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

void RecordList::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    StretchLastColumn();
}

void RecordList::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Mouse) {
        emit menuWanted(event->globalPos(), indexAt(event->pos()).isValid());
        return;
    }
    WantMenuByKey();
}

/// At the focused row.
void RecordList::WantMenuByKey() {
    const QRect row = visualRect(currentIndex());
    emit menuWanted(viewport()->mapToGlobal(row.isValid() ? row.bottomLeft() : QPoint()), row.isValid());
}

void RecordList::keyPressEvent(QKeyEvent* event) {
    const int place = event->key() - Qt::Key_1;
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        WantMenuByKey();
    } else if ((event->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier && m_spec.clickableHeader &&
               place >= 0 && place < m_model->columnCount()) {
        SortBy(horizontalHeader()->logicalIndex(place));
    } else {
        QTableView::keyPressEvent(event);
    }
}

/// Home and End go to the first and last row, as in any list; the columns are no cells to walk through.
QModelIndex RecordList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    // Taking the focus looks for the next cell: a row made current there, but not selected, would be skipped by Down.
    if (action == MoveNext && !currentIndex().isValid())
        return {};
    const int column = std::max(0, currentIndex().column());
    if (action == MoveHome && RowCount() > 0)
        return m_model->index(0, column);
    if (action == MoveEnd && RowCount() > 0)
        return m_model->index(RowCount() - 1, column);
    return QTableView::moveCursor(action, modifiers);
}
