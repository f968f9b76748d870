#include "report/Quarter.h"

#include <gtest/gtest.h>

namespace {

struct RangeCase {
    int quarter;
    const char* from;
    const char* to;
};

class Quarters : public testing::TestWithParam<RangeCase> {};

TEST_P(Quarters, AreThreeWholeMonths) {
    const DateRange range = QuarterRange(2012, GetParam().quarter);
    EXPECT_EQ(GetParam().from, range.from.Stored());
    EXPECT_EQ(GetParam().to, range.to.Stored());
}

INSTANTIATE_TEST_SUITE_P(Report, Quarters,
                         testing::Values(RangeCase{1, "2012-01-01 00:00:00", "2012-03-31 00:00:00"},
                                         RangeCase{2, "2012-04-01 00:00:00", "2012-06-30 00:00:00"},
                                         RangeCase{3, "2012-07-01 00:00:00", "2012-09-30 00:00:00"},
                                         RangeCase{4, "2012-10-01 00:00:00", "2012-12-31 00:00:00"},
                                         RangeCase{0, "2012-10-01 00:00:00", "2012-12-31 00:00:00"},
                                         RangeCase{5, "2012-10-01 00:00:00", "2012-12-31 00:00:00"}));

TEST(DefaultPeriod, ProposesByTheMonth) {
    const Period expected[12] = {{2010, 4}, {2010, 4}, {2011, 1}, {2011, 1}, {2011, 1}, {2011, 2},
                                 {2011, 2}, {2011, 2}, {2011, 3}, {2011, 3}, {2011, 3}, {2011, 4}};
    for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(expected[month - 1], DefaultPeriod(DateTime::FromDay(2011, month, 15))) << month;
}

} // namespace
