#pragma once

#include "core/base/Currency.h"
#include "core/report/QuarterTotals.h"
#include "core/report/SheetTable.h"

class IFigureSheet;
class IProgress;

/// The form's version, set before any fill; the fills tell the layout by it.
extern Currency TemplateVersion;

Layout CurrentLayout();

/// Each writes the totals of the period, in tonnes cut to four decimals, into the cells that the form has for them;
/// other cells stay. The progress window's second line and its bar (0 to 200) follow the groups of the sheet. A
/// ComError of the database or the sheet ends the fill; what was written stays. So does a total that no currency holds:
/// it is raised before the sheet's first cell, naming the record where one alone is too large.
void FillMoveFigures(CQuarterTotals& totals, IProgress& progress, IFigureSheet& sheet, ReportFilter filter);
void FillDiscardFigures(CQuarterTotals& totals, IProgress& progress, IFigureSheet& sheet);
void FillStatFigures(CQuarterTotals& totals, IProgress& progress, IFigureSheet& sheet);
