#pragma once

#include "core/base/Currency.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>

/// What a figure is written into. Ranges are addresses such as "D11:D11". Raises ComError.
class IFigureSheet {
public:
    virtual ~IFigureSheet() = default;
    /// Arrives as a number, exact to four decimals.
    virtual void SetCurrency(const QString& range, Currency value) = 0;
};

/// One sheet of the report workbook. Everything here raises ComError.
class IWorksheet : public IFigureSheet {
public:
    virtual void Activate() = 0;
    /// The cell's content as text (a number as its shortest text with a point, so 2.19 reads "2.19").
    virtual QString GetText(const QString& range) = 0;
    /// Arrives as text, whatever it looks like ("=1+1", "'x", "007"); an empty text empties the cell.
    virtual void SetText(const QString& range, const QString& text) = 0;
    virtual void SetInteger(const QString& range, std::int32_t value) = 0;
};

inline constexpr std::uint32_t NoSuchSheet = 0x8002000B; // DISP_E_BADINDEX

class IWorkbook {
public:
    virtual ~IWorkbook() = default;
    /// Null when the answer is no worksheet; raises when the spreadsheet rejects the name (with NoSuchSheet when the
    /// workbook has no sheet of that name).
    virtual std::unique_ptr<IWorksheet> Worksheet(const QString& name) = 0;
    /// The file on disk is the old one or the whole new one, never a part.
    virtual void Save() = 0;
    /// Without saving.
    virtual void Close() = 0;
};

/// The spreadsheet application of one report run. Destroying it leaves no process behind.
class ISpreadsheet {
public:
    virtual ~ISpreadsheet() = default;
    virtual std::unique_ptr<IWorkbook> Open(const QString& path) = 0;
    virtual void Quit() = 0;
};

/// Starts the application; null when it cannot be created.
using SpreadsheetFactory = std::function<std::unique_ptr<ISpreadsheet>()>;
