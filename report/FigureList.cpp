#include "report/FigureList.h"

#include "report/CellMap.h"
#include "report/Figures.h"
#include "report/IntroSheet.h"
#include "report/SheetTable.h"
#include "store/Progress.h"

std::vector<FigureCell> ListFigures(CDataStore& store, IProgress& progress, int year, int quarter,
                                    const QString& versionText) {
    TemplateVersion = VersionValue(NormalVersionText(versionText));
    const DateRange period = QuarterRange(year, quarter);
    std::vector<FigureCell> list;
    for (const FigureSheet& figures : FigureSheets) {
        progress.SetPhaseText(QStringLiteral("sešit ") + figures.Name());
        CCellMap cells;
        FillSheet(figures, period, store, progress, cells);
        for (const auto& [place, tonnes] : cells.Cells())
            list.push_back({figures.Name(), CellText(place), tonnes});
    }
    return list;
}
