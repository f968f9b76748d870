#include "core/base/CzechCount.h"

#include <gtest/gtest.h>

namespace {

TEST(CzechCounts, NounsAndPrepositionsFollowTheNumber) {
    const struct {
        std::int64_t number;
        const char* text;
    } cases[] = {{0, "v 0 obalů"},        {1, "v 1 obal"},          {2, "ve 2 obaly"},
                 {4, "ve 4 obaly"},       {5, "v 5 obalů"},         {12, "ve 12 obalů"},
                 {15, "v 15 obalů"},      {22, "ve 22 obalů"},      {50, "v 50 obalů"},
                 {100, "ve 100 obalů"},   {367, "ve 367 obalů"},    {999, "v 999 obalů"},
                 {1000, "v 1 000 obalů"}, {3991, "ve 3 991 obalů"}, {1234567, "v 1 234 567 obalů"}};
    for (const auto& each : cases) {
        QString text = InBefore(each.number) + u' ' + Counted(each.number, {"obal", "obaly", "obalů"});
        EXPECT_EQ(each.text, text.replace(QChar::Nbsp, u' ').toStdString());
    }
}

} // namespace
