#include "core/report/SheetTable.h"

#include "core/base/CodeLists.h"
#include "core/report/Figures.h"

#include <algorithm>

const FigureSheet FigureSheets[FigureSheetCount] = {
    {"1-1", FigureSheet::Fill::Moves, {false, false, Payment::Charged}},
    {"1-2", FigureSheet::Fill::Moves, {false, false, Payment::Prepaid}},
    {"1-3", FigureSheet::Fill::Moves, {false, false, Payment::Unpaid}},
    {"1-4", FigureSheet::Fill::Moves, {false, true}},
    {"2-1", FigureSheet::Fill::Moves, {true, false, Payment::Charged}},
    {"2-2", FigureSheet::Fill::Moves, {true, false, Payment::Prepaid}},
    {"2-3", FigureSheet::Fill::Moves, {true, false, Payment::Unpaid}},
    {"2-4", FigureSheet::Fill::Moves, {true, true}},
    {"3-1", FigureSheet::Fill::Discards},
    {"4-1", FigureSheet::Fill::Stats},
};

const FigureSheet* FindFigureSheet(const QString& name) {
    const auto* found = std::find_if(std::begin(FigureSheets), std::end(FigureSheets),
                                     [&](const FigureSheet& sheet) { return sheet.Name() == name; });
    return found == std::end(FigureSheets) ? nullptr : found;
}

bool FigureSheet::Takes(const PackagingCodes& codes) const {
    switch (fill) {
    case Fill::Moves:
        return codes.reusable == filter.reusable && codes.exported == filter.exported &&
               (filter.exported || codes.payment == filter.payment);
    case Fill::Discards:
        return codes.reusable == true;
    case Fill::Stats:
        return codes.stat != Stat::NoPallet && codes.stat != PackagingCodes::NoCode;
    }
    return false;
}

FigureSheet::Group FigureSheet::GroupOf(const PackagingCodes& codes) const {
    if (fill == Fill::Stats)
        return {codes.stat, codes.reusable ? *codes.reusable : PackagingCodes::NoCode, 0};
    return {codes.material, codes.type, codes.share};
}

std::optional<CellPlace> FigureSheet::Place(Layout layout, const PackagingCodes& codes) const {
    if (fill == Fill::Stats)
        return PlaceStat(layout, codes.stat, codes.reusable);
    return PlaceMaterial(layout, fill == Fill::Discards || filter.reusable, codes.material, codes.type, codes.share);
}

bool FigureSheet::CanReach(Layout layout, CellPlace place) const {
    PackagingCodes codes;
    if (fill == Fill::Stats) {
        for (codes.stat = 0; codes.stat < Stat::Count; ++codes.stat)
            for (const std::optional<bool> reusable : {std::optional(false), std::optional(true)}) {
                codes.reusable = reusable;
                if (Place(layout, codes) == place)
                    return true;
            }
        return false;
    }
    for (codes.material = 0; codes.material < Material::Count; ++codes.material)
        for (codes.type = 0; codes.type < Type::Count; ++codes.type)
            for (codes.share = 0; codes.share < Origin::Count; ++codes.share)
                if (Place(layout, codes) == place)
                    return true;
    return false;
}

void FillSheet(const FigureSheet& figures, CQuarterTotals& totals, IProgress& progress, IFigureSheet& sheet) {
    switch (figures.fill) {
    case FigureSheet::Fill::Moves:
        FillMoveFigures(totals, progress, sheet, figures.filter);
        break;
    case FigureSheet::Fill::Discards:
        FillDiscardFigures(totals, progress, sheet);
        break;
    case FigureSheet::Fill::Stats:
        FillStatFigures(totals, progress, sheet);
        break;
    }
}
