#pragma once

#include "windows/widgets/lists/ColumnFit.h"
#include "windows/widgets/lists/RecordListModel.h"
#include "windows/widgets/lists/TypedSearch.h"

#include <QTableView>
#include <QTimer>

#include <string>

class RowDelegate;

/// A list of records: filled by an SQL text, sorted by its header, with the selection kept by id over a refill.
class RecordList : public QTableView {
    Q_OBJECT

public:
    /// For a fill: keep the id that is selected now, in a list that keeps its selection.
    static constexpr std::int32_t KeepSelection = -1;
    /// For a fill: no id, the list's fallback row is selected.
    static constexpr std::int32_t NoId = 0;

    RecordList(CDataStore& store, ListSpec spec, QWidget* parent);

    /// Fills the list from a query on one table, whose recordset stays open, and selects the row of the id. `sql` comes
    /// without its order when the header is clickable. False after an error, which was shown; when nothing could be
    /// read, the rows and the selection before it stay.
    bool FillKeeping(const std::string& sql, std::int32_t id);
    /// The same from a recordset that is closed after the fill. An empty text empties the list.
    bool Fill(const std::string& sql, std::int32_t id);

    /// −1 when there is none.
    int FocusedRow() const;
    /// The first selected row; −1 when there is none.
    int SelectedRow() const;
    /// In list order.
    std::vector<int> SelectedRows() const;
    int SelectedCount() const;
    std::int32_t Id(int row) const { return m_model->Id(row); }
    /// `NoId` when no row is selected.
    std::int32_t SelectedId() const;
    QString CellText(int row, int column) const;
    int RowCount() const { return m_model->rowCount(); }
    /// Scrolls to the row and makes it the only selected one, and the focused one.
    void SelectRow(int row);
    /// No row is selected or focused; the list stays where it is scrolled to.
    void DeselectAll();

    /// The open recordset of a list filled by `FillKeeping`; record i is row i. Raises ComError before the first fill.
    const RecordsetPtr& Records() const;
    void RefreshRow(int row) { m_model->RefreshRow(row); }
    void RefreshAllRows() { m_model->RefreshAllRows(); }
    /// Takes the row out of the list (and its record out of the recordset).
    void RemoveRow(int row);

    int SortColumn() const { return m_sortColumn; }
    /// Columns to fit contents and header; the last one takes what is left. The rows of a long list are read for it
    /// little by little, after it is shown, unless the user sizes a column meanwhile.
    void AutosizeColumns();
    /// What an empty list says in grey; nothing without it.
    void SetEmptyText(const QString& text);
    /// Typed letters look for a row by the column that the list is sorted by.
    void keyboardSearch(const QString& search) override;

signals:
    /// The user changed the selection (a fill does not tell).
    void rowsSelected();
    /// A header click; the owner fills the list again.
    void sortChanged();
    void rowDoubleClicked();
    /// A right click, at this point of the screen.
    void menuWanted(const QPoint& screen, bool onRow);
    /// The list became, or is no longer, the one that its window's keys go to.
    void focusChanged(bool focused);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    /// Shift+F10 opens the menu, Ctrl with a digit sorts by the column that stands at this place, or the other way
    /// round.
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& now, const QModelIndex& before) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void SetUpHeader();
    void WantMenuByKey();
    void SortBy(int column);
    std::string OrderedSql(const std::string& sql) const;
    template <class Show>
    bool FillBy(std::int32_t id, const Show& show);
    void SelectAfterFill(std::int32_t id);
    bool ShowToFit(int first, int end);
    void FitOn();
    void ApplyFit();
    int FittingWidth(int column) const;
    void StretchLastColumn();
    QRect RowRect(int row) const;

    CDataStore& m_store;
    ListSpec m_spec;
    RecordListModel* m_model;
    RowDelegate* m_delegate;
    RecordsetPtr m_records;
    int m_sortColumn;
    bool m_descending = false;
    bool m_filling = false;
    int m_lastColumnWidth = 0;
    CColumnFit m_fit;
    /// Rows whose texts the columns fit.
    int m_fitted = 0;
    QTimer m_fitTimer;
    bool m_fitting = false;
    CTypedSearch m_search;
    QString m_emptyText;
};
