#pragma once

#include "core/base/Currency.h"
#include "core/report/Quarter.h"

#include <cstdint>

class CDataStore;
class IFigureSheet;
class IProgress;

/// Which issued packaging a sheet holds. Covers that do not say whether they are reusable are on none.
struct ReportFilter {
    DateTime from;
    DateTime to;
    bool reusable = false;
    bool exported = false;
    /// Only for packaging that was not exported.
    std::int32_t payment = -1;
};

/// The form's version, set before any fill; the fills tell the layout by it.
extern Currency TemplateVersion;

/// Each runs one query over the quarter and writes its totals, in tonnes cut to four decimals, into the cells that the
/// form has for them; other cells stay. The progress window's second line and its bar (0 to 200) follow the rows of the
/// answer. A ComError of the database or the sheet ends the fill; what was written stays.
void FillMoveFigures(CDataStore& store, IProgress& progress, IFigureSheet& sheet, ReportFilter filter);
void FillDiscardFigures(CDataStore& store, IProgress& progress, IFigureSheet& sheet, DateTime from, DateTime to);
void FillStatFigures(CDataStore& store, IProgress& progress, IFigureSheet& sheet, DateTime from, DateTime to);
