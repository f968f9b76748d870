#pragma once

#include "core/report/Spreadsheet.h"

#include <chrono>

/// How long the office may take before it counts as hanging and is ended.
struct OfficeLimits {
    std::chrono::milliseconds start = std::chrono::seconds(60);
    /// One call: opening a file, writing a cell, saving.
    std::chrono::milliseconds call = std::chrono::seconds(60);
    std::chrono::milliseconds quit = std::chrono::seconds(10);
};

/// LibreOffice Calc, started for one run without windows, with a profile of its own, and ended with the object. The
/// factory's answer is null when no office is installed or it does not start within its limit.
///
/// What it writes are Excel 97 workbooks. The file is never open in the office: it works on copies, so that no lock
/// file lies beside the workbook and `Save` replaces it in one step. Macros never run, links are not updated. Writing
/// into a locked cell of a protected sheet raises. When the office dies or hangs, the call under way raises and so does
/// every later one; the file then holds what the last `Save` wrote.
SpreadsheetFactory LibreOfficeFactory(OfficeLimits limits = {});
