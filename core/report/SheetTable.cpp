#include "core/report/SheetTable.h"

#include "core/base/CodeLists.h"
#include "core/report/Figures.h"

const FigureSheet FigureSheets[FigureSheetCount] = {
    {"1-1", FigureSheet::Fill::Moves, false, false, Payment::Charged},
    {"1-2", FigureSheet::Fill::Moves, false, false, Payment::Prepaid},
    {"1-3", FigureSheet::Fill::Moves, false, false, Payment::Unpaid},
    {"1-4", FigureSheet::Fill::Moves, false, true},
    {"2-1", FigureSheet::Fill::Moves, true, false, Payment::Charged},
    {"2-2", FigureSheet::Fill::Moves, true, false, Payment::Prepaid},
    {"2-3", FigureSheet::Fill::Moves, true, false, Payment::Unpaid},
    {"2-4", FigureSheet::Fill::Moves, true, true},
    {"3-1", FigureSheet::Fill::Discards},
    {"4-1", FigureSheet::Fill::Stats},
};

void FillSheet(const FigureSheet& figures, const DateRange& period, CDataStore& store, IProgress& progress,
               IFigureSheet& sheet) {
    switch (figures.fill) {
    case FigureSheet::Fill::Moves:
        FillMoveFigures(store, progress, sheet,
                        {period.from, period.to, figures.reusable, figures.exported, figures.payment});
        break;
    case FigureSheet::Fill::Discards:
        FillDiscardFigures(store, progress, sheet, period.from, period.to);
        break;
    case FigureSheet::Fill::Stats:
        FillStatFigures(store, progress, sheet, period.from, period.to);
        break;
    }
}
