// Currencies, dates, and the texts that show and make them.

#include "core/base/SqlText.h"
#include "core/base/Variant.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace {

Currency C(std::int64_t count) {
    return Currency::FromCount(count);
}

constexpr std::int64_t Most = INT64_MAX;
constexpr std::int64_t Least = INT64_MIN;

} // namespace

TEST(CurrencyArithmetic, TruncatesTowardZero) {
    const std::tuple<std::int64_t, std::int64_t, std::int64_t, std::int64_t> cases[] = {
        {25000, 20000, 50000, 12500},
        {-10000, 30000, -30000, -3333},
        {20000, 30000, 60000, 6666},
        {15000, 1, 1, 150000000},
        {12345, 0, 0, 0},                                                     // no error
        {900000000000000000, 30000, 2700000000000000000, 300000000000000000}, // the intermediate passes 64 bits
        {Most, 10000, Most, Most},
        {Least, 10000, Least, Least},
    };
    for (const auto& [a, b, product, quotient] : cases) {
        EXPECT_EQ(C(product), CurrencyMul(C(a), C(b))) << a << " * " << b;
        EXPECT_EQ(C(quotient), CurrencyDiv(C(a), C(b))) << a << " / " << b;
    }
    // A value that is not valid counts as nought, and the result is valid.
    EXPECT_EQ(C(0), CurrencyMul(Currency::Null(), C(10000)));
    EXPECT_EQ(C(0), CurrencyDiv(C(10000), Currency::Invalid()));
}

TEST(CurrencyRounding, HasThreeModesAndShowsThem) {
    const std::tuple<std::int64_t, std::int64_t, char, std::int64_t, const char*> cases[] = {
        {12345, 100, 'M', 12300, "1,23"},
        {12350, 100, 'M', 12400, "1,24"},
        {-12350, 100, 'M', -12400, "-1,24"},
        {-49, 100, 'M', 0, "0,00"}, // never -0,00
        {-50, 100, 'M', -100, "-0,01"},
        {12345, 100, 'D', 12300, "1,23"},
        {12301, 100, 'U', 12400, "1,24"},
        {-15000, 10000, 'U', -10000, "-1"},
        {15000, 10000, 'U', 20000, "2"},
        {15000, 10000, 'M', 20000, "2"},
        {12345, 10, 'M', 12350, "1,235"},
        {7, 1, 'D', 7, "0,0007"},
        {12345, 0, 'M', 12345, "1,2345"},
        {12345, 100, 'X', 12345, "1,23"}, // shown cut, as it is not rounded
        {123450000, 100000, 'D', 123400000, "12340"},
        {10000000000, 100, 'M', 10000000000, "1000000,00"}, // no separators
        {Least, 100, 'D', -9223372036854775800, "-922337203685477,58"},
    };
    for (const auto& [count, unit, mode, rounded, shown] : cases) {
        EXPECT_EQ(rounded, RoundCurrency(C(count), unit, mode).count) << count << mode << unit;
        EXPECT_EQ(shown, FormatCurrency(C(count), unit, mode).toStdString()) << count << mode << unit;
    }
    EXPECT_EQ("-", FormatCurrency(Currency::Null(), 100, 'M'));
    EXPECT_EQ("-", FormatCurrency(Currency::Invalid(), 100, 'M'));
    EXPECT_EQ(Currency::Null(), RoundCurrency(Currency::Null(), 100, 'U'));
}

TEST(CurrencyText, IsReadAsUsersTypeIt) {
    // expected: with four decimals; "null", "!"
    const std::pair<const char*, const char*> cases[] = {{"12,35", "12,3500"},
                                                         {"12.35", "12,3500"},
                                                         {"1 234,5", "1234,5000"},
                                                         {"1\u00A0234,5", "1234,5000"},
                                                         {"  +7  ", "7,0000"},
                                                         {"- 7", "-7,0000"},
                                                         {"-0,00005", "-0,0001"},
                                                         {"0,00004999", "0,0000"},
                                                         {"0,00014", "0,0001"},
                                                         {",5", "0,5000"},
                                                         {"5,", "5,0000"},
                                                         {"922337203685477,58074", "922337203685477,5807"},
                                                         {"922337203685477,58075", "!"},
                                                         {"99999999999999999999999999999999999999999999", "!"},
                                                         {"  \t", "null"},
                                                         {"abc", "!"},
                                                         {"1,2,3", "!"},
                                                         {"1.234,5", "!"},
                                                         {"--5", "!"},
                                                         {"5-", "!"},
                                                         {"-", "!"},
                                                         {"1e3", "!"},
                                                         {"٣", "!"}};
    for (const auto& [text, expected] : cases) {
        const Currency value = ParseCurrency(QString::fromUtf8(text));
        const std::string read = value.status == ValueStatus::Null ? "null"
                                 : !value.IsValid()                ? "!"
                                                                   : FormatCurrency(value, 1, 'D').toStdString();
        EXPECT_EQ(expected, read) << text;
    }
}

TEST(DateTimes, AreDaysOfTheCalendar) {
    // stored: "" for an invalid one
    const std::tuple<int, int, int, int, int, int, const char*, const char*> cases[] = {
        {2012, 7, 5, 0, 0, 0, "2012-07-05 00:00:00", "05.07.2012"},
        {2012, 2, 29, 23, 59, 59, "2012-02-29 23:59:59", "29.02.2012"},
        {1969, 12, 31, 12, 0, 1, "1969-12-31 12:00:01", "31.12.1969"},
        {1, 1, 1, 0, 0, 0, "0001-01-01 00:00:00", "01.01.1"},
        {9999, 12, 31, 23, 59, 59, "9999-12-31 23:59:59", "31.12.9999"},
        {1900, 2, 29, 0, 0, 0, "", "-.-.-"},
        {2012, 4, 31, 0, 0, 0, "", "-.-.-"},
        {2012, 13, 1, 0, 0, 0, "", "-.-.-"},
        {2012, 0, 1, 0, 0, 0, "", "-.-.-"},
        {2012, 1, 0, 0, 0, 0, "", "-.-.-"},
        {2012, 1, 257, 0, 0, 0, "", "-.-.-"},
        {0, 1, 1, 0, 0, 0, "", "-.-.-"},
        {10000, 1, 1, 0, 0, 0, "", "-.-.-"},
        {2012, 1, 1, 24, 0, 0, "", "-.-.-"},
        {2012, 1, 1, 0, 60, 0, "", "-.-.-"},
        {2012, 1, 1, 0, 0, 60, "", "-.-.-"},
    };
    for (const auto& [y, m, d, h, min, s, stored, shown] : cases) {
        const DateTime date = DateTime::FromDay(y, m, d, h, min, s);
        EXPECT_EQ(stored, date.Stored());
        EXPECT_EQ(shown, FormatDate(date).toStdString());
        EXPECT_EQ(*stored != 0, date.IsValid()) << y << "-" << m << "-" << d;
        if (date.IsValid()) {
            EXPECT_EQ(date, DateTime::FromStored(stored));
            EXPECT_EQ(DateTime::FromDay(y, m, d), date.StartOfDay());
        }
    }
    EXPECT_EQ(DateTime::FromDay(2012, 7, 5), DateTime::FromStored("2012-07-05"));
    for (const char* text :
         {"", "2012-7-5", "05.07.2012", "2012/07/05", "2012-07/05", "2012-07-05 10:00", "2012-07-05T10:00:00",
          "2012-07-05 10-00:00", "2012-07-05 10:00-00", "2012-07-05 25:00:00", "-012-07-05", "2012-0x-05", "2012-07-0x",
          "2012-07-05 1x:00:00", "2012-07-05 10:0x:00", "2012-07-05 10:00:0x"})
        EXPECT_FALSE(DateTime::FromStored(text).IsValid()) << text;
    EXPECT_EQ(DateTime::FromDay(2012, 3, 1, 5), DateTime::FromDay(2012, 2, 28, 5).AddDays(2));
    EXPECT_EQ(DateTime::FromDay(1969, 12, 30), DateTime::FromDay(1970, 1, 1).AddDays(-2));
    EXPECT_EQ(DateTime::FromDay(1969, 12, 31), DateTime::FromDay(1969, 12, 31, 1).StartOfDay());
    EXPECT_TRUE(DateTime::FromDay(2012, 7, 5) < DateTime::FromDay(2012, 7, 5, 0, 0, 1));
    EXPECT_FALSE(DateTime::Null() == DateTime::Invalid());
    EXPECT_FALSE(DateTime::Invalid().AddDays(1).IsValid());
    EXPECT_FALSE(DateTime::FromSeconds(0) == DateTime::Invalid());
}

TEST(FieldValues, AreShownByTheirType) {
    const std::pair<Variant, const char*> cases[] = {
        {Variant(), ""},
        {std::int16_t{-32768}, "-32768"},
        {std::int32_t{INT32_MIN}, "-2147483648"},
        {1.26F, "1.3"},
        {2.5, "2.50"},
        {C(123456), "12,35"},
        {C(-5000), "-0,50"},
        {Currency::Null(), ""},
        {Currency::Invalid(), "-"},
        {DateTime::FromDay(2012, 7, 5, 23, 59, 59), "05.07.2012"},
        {DateTime::Null(), ""},
        {DateTime::Invalid(), "-.-.-"},
        {true, "ano"},
        {false, "ne"},
        {QStringLiteral("%s d'Or"), "%s d'Or"},
    };
    for (const auto& [value, shown] : cases)
        EXPECT_EQ(shown, FormatVariant(value).toStdString());
}

TEST(FieldValues, AreReadAsOtherTypes) {
    // asCurrency: "null", "!"
    const std::tuple<Variant, std::int32_t, std::int32_t, const char*, bool> cases[] = {
        {Variant(), 0, -1, "null", false},
        {std::int32_t{-7}, -7, -7, "-7,0000", true},
        {std::int16_t{7}, 7, 7, "7,0000", true},
        {2.5, 2, 2, "2,5000", true},
        {1e300, 0, 0, "!", true},
        {std::nan(""), 0, 0, "!", true},
        {0.00005, 0, 0, "0,0000", true},
        {C(-15000), -1, -1, "-1,5000", true},
        {true, -1, -1, "-1,0000", true},
        {false, 0, 0, "0,0000", false},
        {QStringLiteral("12,5"), 12, 12, "12,5000", true},
        {QStringLiteral("abc"), 0, 0, "!", false},
        {QString(), 0, 0, "null", false},
        {DateTime::FromDay(2012, 7, 5), 0, 0, "!", false},
    };
    for (const auto& [value, asLong, asCode, asCurrency, asBool] : cases) {
        const std::string name = FormatVariant(value).toStdString();
        EXPECT_EQ(asLong, ToLong(value)) << name;
        EXPECT_EQ(asCode, ToCode(value)) << name;
        const Currency currency = ToCurrency(value);
        EXPECT_EQ(asCurrency, currency.status == ValueStatus::Null ? "null"
                              : !currency.IsValid()                ? "!"
                                                                   : FormatCurrency(currency, 1, 'D').toStdString())
            << name;
        EXPECT_EQ(asBool, ToBool(value)) << name;
    }
    EXPECT_EQ(ValueStatus::Null, ToDate(Variant()).Status());
    EXPECT_EQ(ValueStatus::Invalid, ToDate(QStringLiteral("2012-07-05")).Status());
}

TEST(SqlTexts, AreFilledWithoutEscaping) {
    const QString name = QStringLiteral("čaj 100%s");
    EXPECT_EQ("cover_id = -5", SqlText("cover_id = %li", -5));
    EXPECT_EQ("#7/5/2012#", SqlText("#%i/%i/%i#", 7, 5, 2012));
    EXPECT_EQ("(n LIKE '%čaj 100%s%') AND x", SqlText("(n LIKE '%%%s%%') AND x", name));
    EXPECT_EQ("name = ''", SqlText("%s = '%s'", "name", QString()));
    EXPECT_EQ("deleted = TRUE", SqlText("%s = TRUE", std::string("deleted")));
    EXPECT_EQ("05.07.0012 9223372036854775807", SqlText("%02i.%02i.%04i %li", 5, 7, 12, Most));
    EXPECT_EQ("-05", SqlText("%03i", -5)) << "a sign counts in the width";
}
