#pragma once

#include "core/report/Placement.h"
#include "core/report/Spreadsheet.h"

#include <map>

/// A figure sheet that only remembers its cells, in the order of rows, then columns.
class CCellMap : public IFigureSheet {
public:
    void SetCurrency(const QString& range, Currency value) override;
    const std::map<CellPlace, Currency>& Cells() const { return m_cells; }

private:
    std::map<CellPlace, Currency> m_cells;
};
