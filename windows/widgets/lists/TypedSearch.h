#pragma once

#include <QCollator>
#include <QElapsedTimer>
#include <QString>

class RecordListModel;

/// Typed letters look for the next row whose cell of one column begins with them, accents and case aside. Letters that
/// follow soon are one word; the same letter again goes on to the next row.
class CTypedSearch {
public:
    CTypedSearch();

    /// The order of the list at hand.
    struct Order {
        int column;
        bool descending;
    };
    /// The row for these letters, from the focused one on; −1 when there is none.
    int Type(const QString& letters, const RecordListModel& rows, const Order& order, int focused);

private:
    bool Begins(const RecordListModel& rows, int row, const Order& order) const;
    /// By halving: the column holds words in the list's order.
    int Halve(const RecordListModel& rows, const Order& order) const;
    int Walk(const RecordListModel& rows, const Order& order, int from) const;
    /// From value to value of a column in whose order the list is.
    int Leap(const RecordListModel& rows, const Order& order) const;

    QCollator m_czech;
    QElapsedTimer m_since;
    QString m_typed;
    QString m_folded;
};
