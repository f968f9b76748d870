#pragma once

#include "core/base/Currency.h"
#include "core/base/DateTime.h"
#include "core/report/Placement.h"

#include <QString>

#include <cstdint>
#include <vector>

class CDataStore;
struct DateRange;
struct FigureSheet;

/// One packaging row or discard behind a figure.
struct ExplanationRow {
    /// `Move_Cover.mvcover_id`, or `CoverDiscard.disc_id`.
    std::int64_t key = 0;
    /// The issue; 0 for a discard, which has no document, product or catalogue number either.
    std::int64_t issue = 0;
    QString document;
    DateTime date;
    QString product;
    QString catalogue;
    QString cover;
    /// Null where the record has none: such a row adds nothing.
    Currency pieces;
    Currency kilogramsEach;
    Currency kilograms;
};

/// The rows of the period that the sheet counts in this cell, ordered by day, document and key. They come from the same
/// scan and the same placement as the figures: the sum of their kilograms, in tonnes cut to four decimals, is the
/// figure. Empty where the report writes no figure. Raises ComError, also for a row that no currency holds.
std::vector<ExplanationRow> ExplainFigure(CDataStore& store, const DateRange& period, Layout layout,
                                          const FigureSheet& sheet, CellPlace place);
