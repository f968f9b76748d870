#include "core/report/Quarter.h"

DateRange QuarterRange(int year, int quarter) {
    switch (quarter) {
    case 1:
        return {DateTime::FromDay(year, 1, 1), DateTime::FromDay(year, 3, 31)};
    case 2:
        return {DateTime::FromDay(year, 4, 1), DateTime::FromDay(year, 6, 30)};
    case 3:
        return {DateTime::FromDay(year, 7, 1), DateTime::FromDay(year, 9, 30)};
    default:
        return {DateTime::FromDay(year, 10, 1), DateTime::FromDay(year, 12, 31)};
    }
}

Period DefaultPeriod(const DateTime& today) {
    const int month = today.Month();
    const int quarter = (month + 9) % 12 / 3 + 1;
    return {month < 3 && quarter == 4 ? today.Year() - 1 : today.Year(), quarter};
}
