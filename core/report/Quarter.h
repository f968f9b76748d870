#pragma once

#include "core/base/DateTime.h"

/// Both days inclusive, at 00:00:00.
struct DateRange {
    DateTime from;
    DateTime to;
};

/// The years that the form is of.
inline constexpr int FirstFormYear = 2000;
inline constexpr int LastFormYear = 2012;

/// A quarter that is not 1, 2 or 3 counts as the fourth.
DateRange QuarterRange(int year, int quarter);

struct Period {
    int year = 0;
    int quarter = 0;

    friend bool operator==(const Period&, const Period&) = default;
};

/// The quarter to propose on this day: the last one that has ended, except that a quarter's third month already
/// proposes the running one.
Period DefaultPeriod(const DateTime& today);
