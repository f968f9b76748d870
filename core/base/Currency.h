#pragma once

#include <QString>

#include <cstdint>

enum class ValueStatus : std::uint8_t { Valid, Invalid, Null };

/// A fixed-point number with four decimals: a count of ten-thousandths with a validity status.
/// A value that is not valid has the count 0, so that arithmetic on a null is arithmetic on nought.
struct Currency {
    std::int64_t count = 0;
    ValueStatus status = ValueStatus::Valid;

    static constexpr std::int64_t One = 10000;

    static constexpr Currency FromCount(std::int64_t tenThousandths) { return {tenThousandths, ValueStatus::Valid}; }
    static constexpr Currency FromWhole(std::int64_t whole) { return {whole * One, ValueStatus::Valid}; }
    static constexpr Currency Null() { return {0, ValueStatus::Null}; }
    static constexpr Currency Invalid() { return {0, ValueStatus::Invalid}; }

    constexpr bool IsValid() const { return status == ValueStatus::Valid; }
    friend constexpr bool operator==(const Currency&, const Currency&) = default;
};

/// a × b, truncated toward zero. The counts are multiplied exactly (the intermediate may pass 64 bits).
Currency CurrencyMul(Currency a, Currency b);
/// a ÷ b, truncated toward zero; 0 when b is 0.
Currency CurrencyDiv(Currency a, Currency b);

/// A count of ten-thousandths that may leave the range of a currency.
using WideCount = __int128;
/// Whether a currency holds it.
bool IsInRange(WideCount count);
/// The engine's product of two counts: exact, then rounded to the nearest ten-thousandth, ties to even.
WideCount RoundedProduct(std::int64_t a, std::int64_t b);
/// Whether a currency holds a × b as the database computes it.
bool CurrencyProductFits(Currency a, Currency b);
/// Whether a currency holds a ÷ b.
bool CurrencyDivFits(Currency a, Currency b);

/// The value rounded to a multiple of `unit` ten-thousandths. Modes: 'D' toward zero, 'M' half away from zero,
/// 'U' toward plus infinity for positive values and toward zero for negative ones; any other mode, and the unit 0,
/// leave the value as it is.
Currency RoundCurrency(Currency value, std::int64_t unit, char mode);

/// The value as "12,35": rounded as `RoundCurrency` does, a decimal comma, no thousands separators, as many decimals as
/// the unit has (unit 100: two). "-" for a value that is not valid.
QString FormatCurrency(Currency value, std::int64_t unit, char mode);

/// A number as a user types it: comma or point, blanks (also no-break ones) between the digits allowed. More than four
/// decimals are rounded half away from zero. Empty text is a null, anything unreadable or out of range is invalid.
Currency ParseCurrency(const QString& text);

/// The value as an edit shows it: a decimal comma, every decimal that is not nought, nothing for a value that is not
/// valid. Nothing is rounded, so that what is read back is what was shown.
QString CurrencyText(Currency value);
