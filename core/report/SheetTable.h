#pragma once

#include "core/report/PackagingRows.h"
#include "core/report/Placement.h"

#include <QString>

#include <array>
#include <cstdint>

class CQuarterTotals;
class IFigureSheet;
class IProgress;

/// Which issued packaging a sheet holds. Covers that do not say whether they are reusable are on none.
struct ReportFilter {
    bool reusable = false;
    bool exported = false;
    /// Only for packaging that was not exported.
    std::int32_t payment = -1;
};

/// One figure sheet of the form and what is written into it.
struct FigureSheet {
    enum class Fill { Moves, Discards, Stats };

    const char* name;
    Fill fill;
    ReportFilter filter = {};

    QString Name() const { return QString::fromLatin1(name); }
    PackagingSource Source() const {
        return fill == Fill::Discards ? PackagingSource::Discarded : PackagingSource::Issued;
    }
    /// Whether packaging of these codes, from the sheet's source, is counted on the sheet.
    bool Takes(const PackagingCodes& codes) const;
    /// The codes by which the sheet tells apart what it counts.
    using Group = std::array<std::int64_t, 3>;
    Group GroupOf(const PackagingCodes& codes) const;
    /// The cell of packaging that the sheet takes; nothing when the form has none for it.
    std::optional<CellPlace> Place(Layout layout, const PackagingCodes& codes) const;
    /// Whether there are codes that the sheet takes and has this cell for.
    bool CanReach(Layout layout, CellPlace place) const;
};

inline constexpr int FigureSheetCount = 10;
/// In the order in which they are filled.
extern const FigureSheet FigureSheets[FigureSheetCount];
/// Null when the form has no such sheet.
const FigureSheet* FindFigureSheet(const QString& name);

/// Runs the sheet's fill; raises what it raises.
void FillSheet(const FigureSheet& figures, CQuarterTotals& totals, IProgress& progress, IFigureSheet& sheet);
