#pragma once

#include "core/report/ReportRequest.h"
#include "core/report/Spreadsheet.h"

#include <QString>

class CDataStore;
class IProgressDoor;

/// Makes the report of a quarter: a copy of its template in the report folder, filled and saved through the
/// spreadsheet, which is closed again. Answers the workbook's path; empty after a failure, which was shown. Then no
/// workbook remains, except the unfilled copy when the spreadsheet could not be started. Raises nothing.
QString RunReport(CDataStore& store, IProgressDoor& progress, const SpreadsheetFactory& startSpreadsheet,
                  const ReportRequest& request);
