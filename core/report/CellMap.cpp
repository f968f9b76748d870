#include "core/report/CellMap.h"

void CCellMap::SetCurrency(const QString& range, Currency value) {
    const qsizetype end = range.indexOf(u':');
    const CellPlace place{range.mid(1, end - 1).toInt(), range.at(0).unicode() - u'A'};
    m_cells[place] = value;
}
