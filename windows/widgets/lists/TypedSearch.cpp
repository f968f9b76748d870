#include "windows/widgets/lists/TypedSearch.h"

#include "windows/widgets/lists/RecordListModel.h"

#include <QApplication>

#include <algorithm>

namespace {

/// What cannot be halved is read row by row, in a list of at most so many.
constexpr int WalkedRows = 20000;

/// Without case and without the accents that decide only between words otherwise equal; č, ř, š and ž are letters.
QString Folded(const QString& text) {
    static const QString accented = QStringLiteral("áäďéěëíňóöťúůüý");
    static const QString plain = QStringLiteral("aadeeeinootuuuy");
    QString folded = text.toLower();
    for (QChar& letter : folded)
        if (const qsizetype at = accented.indexOf(letter); at >= 0)
            letter = plain[at];
    return folded;
}

/// Different values that are looked at in a longer one.
constexpr int MostLeaps = 2000;

QString CellAt(const RecordListModel& rows, int row, int column) {
    return rows.data(rows.index(row, column), Qt::DisplayRole).toString();
}

/// The first row with another text in a column where equal ones stand together; the number of rows after the last.
int AfterEqualCells(const RecordListModel& rows, int row, int column) {
    const QString text = CellAt(rows, row, column);
    const int count = rows.rowCount();
    int equal = row;
    int other = row + 1;
    while (other < count && CellAt(rows, other, column) == text) {
        const int next = std::min(count, other + 2 * (other - equal));
        equal = other;
        other = next;
    }
    while (other - equal > 1) {
        const int middle = equal + (other - equal) / 2;
        (CellAt(rows, middle, column) == text ? equal : other) = middle;
    }
    return other;
}

} // namespace

CTypedSearch::CTypedSearch() : m_czech(QLocale(QLocale::Czech, QLocale::CzechRepublic)) {
    m_czech.setCaseSensitivity(Qt::CaseInsensitive);
}

int CTypedSearch::Type(const QString& letters, const RecordListModel& rows, const Order& order, int focused) {
    const int count = rows.rowCount();
    if (count == 0)
        return -1;
    const bool goesOn = m_since.isValid() && m_since.elapsed() < QApplication::keyboardInputInterval();
    const bool again = goesOn && m_typed == letters;
    m_typed = goesOn && !again ? m_typed + letters : letters;
    m_folded = Folded(m_typed);
    m_since.start();

    const int here = std::max(0, focused);
    const int from = again || !goesOn ? (focused + 1) % count : here;
    if (Begins(rows, from, order))
        return from;
    const int halved = Halve(rows, order);
    if (halved >= 0)
        return halved;
    return count <= WalkedRows ? Walk(rows, order, from) : Leap(rows, order);
}

bool CTypedSearch::Begins(const RecordListModel& rows, int row, const Order& order) const {
    return Folded(CellAt(rows, row, order.column)).startsWith(m_folded);
}

int CTypedSearch::Halve(const RecordListModel& rows, const Order& order) const {
    const int count = rows.rowCount();
    if (rows.Kind(count - 1, order.column) != ListCell::Kind::Words)
        return -1;
    const auto isBefore = [&](int row) {
        const QString cell = Folded(CellAt(rows, row, order.column));
        // "ch" is one letter, after "h".
        qsizetype size = m_folded.size();
        if (cell.size() > size && cell[size - 1] == u'c' && cell[size] == u'h')
            ++size;
        const int compared = m_czech.compare(cell.left(size), m_folded);
        return order.descending ? compared > 0 : compared < 0;
    };
    int low = 0;
    int high = count;
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (isBefore(middle))
            low = middle + 1;
        else
            high = middle;
    }
    return low < count && Begins(rows, low, order) ? low : -1;
}

int CTypedSearch::Walk(const RecordListModel& rows, const Order& order, int from) const {
    const int count = rows.rowCount();
    for (int i = 0; i < count; ++i)
        if (const int row = (from + i) % count; Begins(rows, row, order))
            return row;
    return -1;
}

int CTypedSearch::Leap(const RecordListModel& rows, const Order& order) const {
    int row = 0;
    for (int leaps = 0; leaps < MostLeaps && row < rows.rowCount(); ++leaps) {
        if (Begins(rows, row, order))
            return row;
        row = AfterEqualCells(rows, row, order.column);
    }
    return -1;
}
