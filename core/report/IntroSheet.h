#pragma once

#include "core/base/Currency.h"
#include "core/report/ReportRequest.h"

#include <QString>

#include <cstdint>

class IWorksheet;

/// A form version as cell A1 holds it, with the decimal commas turned into points.
QString NormalVersionText(QString cell);

/// What stands after the point counts as hundredths: "2.9" is 2.09, "2.10" is 2.10. 0 for what is no number.
Currency VersionValue(const QString& normalText);

/// A version with the layout that the quarter was reported in: the form with industrial packaging came with the second
/// quarter of 2004.
QString UsualVersion(Period period);

/// Whether a form of this version may report the period. `templateQuarter` is the quarter that the form is made for.
bool FitsPeriod(const QString& normalText, Period period, std::int32_t templateQuarter);

/// Reads the form's version into `TemplateVersion`; false when the form is not for the period. Raises ComError.
bool ReadIntroSheet(IWorksheet& sheet, Period period);

/// Writes the period, the kind of the report and the company. After `ReadIntroSheet`. Raises ComError.
void WriteIntroSheet(IWorksheet& sheet, const ReportRequest& request);
