#include "core/base/Currency.h"

#include <cmath>
#include <limits>

namespace {

std::int64_t Narrow(__int128 value) {
    return static_cast<std::int64_t>(value);
}

} // namespace

bool IsInRange(WideCount count) {
    return count >= std::numeric_limits<std::int64_t>::min() && count <= std::numeric_limits<std::int64_t>::max();
}

WideCount RoundedProduct(std::int64_t a, std::int64_t b) {
    const WideCount product = static_cast<WideCount>(a) * b;
    WideCount quotient = product / Currency::One;
    const WideCount rest = product % Currency::One;
    const WideCount twice = 2 * (rest < 0 ? -rest : rest);
    if (twice > Currency::One || (twice == Currency::One && quotient % 2 != 0))
        quotient += product < 0 ? -1 : 1;
    return quotient;
}

Currency CurrencyMul(Currency a, Currency b) {
    return Currency::FromCount(Narrow(static_cast<__int128>(a.count) * b.count / Currency::One));
}

Currency CurrencyDiv(Currency a, Currency b) {
    if (b.count == 0)
        return Currency::FromCount(0);
    return Currency::FromCount(Narrow(static_cast<__int128>(a.count) * Currency::One / b.count));
}

bool CurrencyProductFits(Currency a, Currency b) {
    return IsInRange(RoundedProduct(a.count, b.count));
}

bool CurrencyDivFits(Currency a, Currency b) {
    return b.count == 0 || IsInRange(static_cast<WideCount>(a.count) * Currency::One / b.count);
}

Currency RoundCurrency(Currency value, std::int64_t unit, char mode) {
    if (unit == 0)
        return value;
    const __int128 v = value.count;
    const __int128 u = unit;
    __int128 rounded = v;
    switch (mode) {
    case 'D':
        rounded = v / u * u;
        break;
    case 'M':
        rounded = (v >= 0 ? v + u / 2 : v - u / 2) / u * u;
        break;
    case 'U':
        rounded = (v >= 0 && v % u != 0 ? v / u + 1 : v / u) * u;
        break;
    default:
        break;
    }
    return {Narrow(rounded), value.status};
}

QString FormatCurrency(Currency value, std::int64_t unit, char mode) {
    if (!value.IsValid())
        return QStringLiteral("-");
    const std::int64_t count = RoundCurrency(value, unit, mode).count;
    const std::uint64_t magnitude =
        count < 0 ? 0 - static_cast<std::uint64_t>(count) : static_cast<std::uint64_t>(count);
    QString text = QString::asprintf("%s%llu,%04llu", count < 0 ? "-" : "",
                                     static_cast<unsigned long long>(magnitude / Currency::One),
                                     static_cast<unsigned long long>(magnitude % Currency::One));
    if (unit >= Currency::One) {
        text.chop(5);
    } else {
        for (std::int64_t rest = unit; rest > 1; rest /= 10)
            text.chop(1);
    }
    return text;
}

Currency ParseCurrency(const QString& text) {
    bool negative = false;
    bool sawSign = false;
    bool sawDigit = false;
    bool sawSeparator = false;
    int decimals = 0;
    bool roundUp = false;
    __int128 count = 0;
    constexpr __int128 limit = std::numeric_limits<std::int64_t>::max();
    bool sawAnything = false;
    for (const QChar character : text) {
        if (character.isSpace())
            continue;
        sawAnything = true;
        if ((character == u'-' || character == u'+') && !sawSign && !sawDigit && !sawSeparator) {
            negative = character == u'-';
            sawSign = true;
        } else if ((character == u',' || character == u'.') && !sawSeparator) {
            sawSeparator = true;
        } else if (character >= u'0' && character <= u'9') {
            sawDigit = true;
            if (sawSeparator && ++decimals > 4) {
                roundUp = roundUp || (decimals == 5 && character >= u'5');
                continue;
            }
            count = count * 10 + (character.unicode() - u'0');
            if (count > limit)
                return Currency::Invalid();
        } else {
            return Currency::Invalid();
        }
    }
    if (!sawAnything)
        return Currency::Null();
    if (!sawDigit)
        return Currency::Invalid();
    for (; decimals < 4; ++decimals)
        count *= 10;
    count += roundUp ? 1 : 0;
    if (count > limit)
        return Currency::Invalid();
    return Currency::FromCount(Narrow(negative ? -count : count));
}

QString CurrencyText(Currency value) {
    if (!value.IsValid())
        return {};
    QString text = FormatCurrency(value, 1, 'D');
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char(',')))
        text.chop(1);
    return text;
}
