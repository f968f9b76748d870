#include "core/report/FigureList.h"

#include "core/base/Progress.h"
#include "core/report/CellMap.h"
#include "core/report/Figures.h"
#include "core/report/IntroSheet.h"
#include "core/report/SheetTable.h"

std::vector<FigureCell> ListFigures(CDataStore& store, IProgress& progress, int year, int quarter,
                                    const QString& versionText) {
    TemplateVersion = VersionValue(NormalVersionText(versionText));
    CQuarterTotals totals(store, QuarterRange(year, quarter));
    std::vector<FigureCell> list;
    for (const FigureSheet& figures : FigureSheets) {
        progress.SetPhaseText(QStringLiteral("sešit ") + figures.Name());
        CCellMap cells;
        FillSheet(figures, totals, progress, cells);
        for (const auto& [place, tonnes] : cells.Cells())
            list.push_back({figures.Name(), CellText(place), tonnes});
    }
    return list;
}
