#pragma once

#include "core/report/CompanyData.h"
#include "core/report/Quarter.h"

/// What the user asks a report for.
struct ReportRequest {
    Period period;
    /// A report that corrects an earlier one is not.
    bool regular = true;
    CompanyData company;
};
