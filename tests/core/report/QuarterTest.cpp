#include "core/report/Quarter.h"

#include <gtest/gtest.h>

namespace {

TEST(Quarters, AreThreeWholeMonths) {
    const std::tuple<int, const char*, const char*> cases[] = {{1, "2012-01-01 00:00:00", "2012-03-31 00:00:00"},
                                                               {2, "2012-04-01 00:00:00", "2012-06-30 00:00:00"},
                                                               {3, "2012-07-01 00:00:00", "2012-09-30 00:00:00"},
                                                               {4, "2012-10-01 00:00:00", "2012-12-31 00:00:00"},
                                                               {0, "2012-10-01 00:00:00", "2012-12-31 00:00:00"}};
    for (const auto& [quarter, from, to] : cases) {
        const DateRange range = QuarterRange(2012, quarter);
        EXPECT_EQ(from, range.from.Stored());
        EXPECT_EQ(to, range.to.Stored());
    }
}

TEST(DefaultPeriod, ProposesByTheMonth) {
    const Period expected[12] = {{2010, 4}, {2010, 4}, {2011, 1}, {2011, 1}, {2011, 1}, {2011, 2},
                                 {2011, 2}, {2011, 2}, {2011, 3}, {2011, 3}, {2011, 3}, {2011, 4}};
    for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(expected[month - 1], DefaultPeriod(DateTime::FromDay(2011, month, 15))) << month;
}

} // namespace
