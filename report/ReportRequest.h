#pragma once

#include "report/CompanyData.h"
#include "report/Quarter.h"

/// What the user asks a report for.
struct ReportRequest {
    Period period;
    /// A report that corrects an earlier one is not.
    bool regular = true;
    CompanyData company;
};
