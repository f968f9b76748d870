#include "core/report/IntroSheet.h"

#include "core/base/Variant.h"
#include "core/report/Figures.h"
#include "core/report/Spreadsheet.h"

#include <limits>

namespace {

/// From this version on the form is made for one quarter and says which.
constexpr std::int64_t VersionWithQuarter = 21100;
/// From this version on the form asks for the address that invoices go to, and the company's cells have moved.
constexpr std::int64_t VersionWithInvoiceMail = 20200;

constexpr std::int64_t Always = std::numeric_limits<std::int64_t>::min();
constexpr int AnyYear = std::numeric_limits<int>::max();

/// A form fits when its text, or else its value, and the period meet one line.
struct Acceptance {
    const char* text;
    std::int64_t atLeast;
    int firstYear;
    int lastYear;
    int firstQuarter;
    int lastQuarter;
    bool onlyItsQuarter = false;
};

constexpr Acceptance Acceptances[] = {
    {"1.4", 0, 2003, 2003, 1, 4},       {"1.5", 0, 2004, 2004, 1, 1},
    {"2.0", 0, 2004, 2004, 2, 4},       {"2.1", 0, 2005, 2005, 1, 4},
    {"2.2", 0, 2006, 2006, 1, 1},       {"2.3", 0, 2006, 2006, 2, 2},
    {"2.4", 0, 2006, AnyYear, 1, 4},    {"2.5", 0, 2007, 2007, 1, 4},
    {"2.6", 0, 2008, 2008, 1, 2},       {"2.7", 0, 2008, 2008, 1, 4},
    {"2.8", 0, 2009, 2009, 1, 1},       {"2.9", 0, 2009, 2009, 2, 2},
    {"2.10", 0, 2009, 2009, 3, 4},      {"2.11", 0, 2010, 2010, 1, 1},
    {nullptr, 21101, 2010, 2010, 2, 4}, // above 2.11
    {nullptr, 21500, 2011, 2011, 1, 4}, {nullptr, 21900, 2012, 2012, 1, 4, true},
};

struct CompanyCell {
    const char* range;
    QString CompanyData::*field;
    std::int64_t fromVersion;
    std::int64_t beforeVersion;
};

constexpr std::int64_t Ever = std::numeric_limits<std::int64_t>::max();

constexpr CompanyCell CompanyCells[] = {
    {"D7:D7", &CompanyData::name, Always, Ever},
    {"D9:D9", &CompanyData::office, Always, Ever},
    {"C11:C11", &CompanyData::companyNumber, Always, VersionWithInvoiceMail},
    {"F11:F11", &CompanyData::taxNumber, Always, VersionWithInvoiceMail},
    {"F13:F13", &CompanyData::schemeId, Always, VersionWithInvoiceMail},
    {"D17:D17", &CompanyData::contactPerson, Always, VersionWithInvoiceMail},
    {"C18:C18", &CompanyData::telephone, Always, VersionWithInvoiceMail},
    {"C19:C19", &CompanyData::fax, Always, VersionWithInvoiceMail},
    {"C20:C20", &CompanyData::mail, Always, VersionWithInvoiceMail},
    {"E11:E11", &CompanyData::invoiceMail, VersionWithInvoiceMail, Ever},
    {"C13:C13", &CompanyData::companyNumber, VersionWithInvoiceMail, Ever},
    {"F13:F13", &CompanyData::taxNumber, VersionWithInvoiceMail, Ever},
    {"F15:F15", &CompanyData::schemeId, VersionWithInvoiceMail, Ever},
    {"D19:D19", &CompanyData::contactPerson, VersionWithInvoiceMail, Ever},
    {"C20:C20", &CompanyData::telephone, VersionWithInvoiceMail, Ever},
    {"C21:C21", &CompanyData::fax, VersionWithInvoiceMail, Ever},
    {"C22:C22", &CompanyData::mail, VersionWithInvoiceMail, Ever},
};

QString QuarterRangeText() {
    return QStringLiteral("D4:D4");
}

} // namespace

QString NormalVersionText(QString cell) {
    return cell.replace(u',', u'.');
}

Currency VersionValue(const QString& text) {
    const qsizetype point = text.indexOf(u'.');
    if (point < 0)
        return Currency::FromWhole(ToLong(text));
    const std::int64_t hundredths = ToLong(text.mid(point + 1));
    return Currency::FromCount(ToLong(text.left(point)) * Currency::One + hundredths * (Currency::One / 100));
}

QString UsualVersion(Period period) {
    const bool old = period.year < 2004 || (period.year == 2004 && period.quarter == 1);
    return old ? QStringLiteral("1.4") : QStringLiteral("2.0");
}

bool FitsPeriod(const QString& text, Period period, std::int32_t templateQuarter) {
    const std::int64_t version = VersionValue(text).count;
    for (const Acceptance& line : Acceptances) {
        const bool isVersion = line.text ? text == QLatin1StringView(line.text) : version >= line.atLeast;
        if (isVersion && period.year >= line.firstYear && period.year <= line.lastYear &&
            period.quarter >= line.firstQuarter && period.quarter <= line.lastQuarter &&
            (!line.onlyItsQuarter || period.quarter == templateQuarter))
            return true;
    }
    return false;
}

bool ReadIntroSheet(IWorksheet& sheet, Period period) {
    const QString version = NormalVersionText(sheet.GetText(QStringLiteral("A1:A1")));
    TemplateVersion = VersionValue(version);
    const std::int32_t templateQuarter =
        TemplateVersion.count < VersionWithQuarter ? period.quarter : ToLong(sheet.GetText(QuarterRangeText()));
    return FitsPeriod(version, period, templateQuarter);
}

void WriteIntroSheet(IWorksheet& sheet, const ReportRequest& request) {
    if (TemplateVersion.count < VersionWithQuarter)
        sheet.SetInteger(QuarterRangeText(), request.period.quarter);
    if (!request.regular)
        sheet.SetText(QStringLiteral("D5:D5"), QStringLiteral("opravný"));
    for (const CompanyCell& cell : CompanyCells)
        if (TemplateVersion.count >= cell.fromVersion && TemplateVersion.count < cell.beforeVersion)
            sheet.SetText(QString::fromLatin1(cell.range), request.company.*cell.field);
}
