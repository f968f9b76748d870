#pragma once

#include "core/report/Quarter.h"

#include <QString>

#include <cstdint>

class CDataStore;
class IFigureSheet;
class IProgress;

/// One figure sheet of the form and what is written into it.
struct FigureSheet {
    enum class Fill { Moves, Discards, Stats };

    const char* name;
    Fill fill;
    bool reusable = false;
    bool exported = false;
    std::int32_t payment = -1;

    QString Name() const { return QString::fromLatin1(name); }
};

inline constexpr int FigureSheetCount = 10;
/// In the order in which they are filled.
extern const FigureSheet FigureSheets[FigureSheetCount];

/// Runs the sheet's fill for the period; raises what it raises.
void FillSheet(const FigureSheet& figures, const DateRange& period, CDataStore& store, IProgress& progress,
               IFigureSheet& sheet);
