#pragma once

#include "core/base/Currency.h"
#include "core/base/DateTime.h"

#include <QString>

#include <cstdint>
#include <variant>

/// A field's value on its way between the database and the program.
/// `std::monostate` is null; the small integer and the two floats come only from import sources.
using Variant =
    std::variant<std::monostate, std::int16_t, std::int32_t, float, double, Currency, DateTime, bool, QString>;

inline bool IsNull(const Variant& value) {
    return std::holds_alternative<std::monostate>(value);
}

/// Null reads as 0; a text as the whole number it starts with, or 0.
std::int32_t ToLong(const Variant& value);
/// A code-list index: null reads as −1, which is in no list.
inline std::int32_t ToCode(const Variant& value) {
    return IsNull(value) ? -1 : ToLong(value);
}
/// Null and what is no number read as a currency that is not valid, with the count 0.
Currency ToCurrency(const Variant& value);
/// Null reads as false, numbers as "not nought".
bool ToBool(const Variant& value);
/// Null reads as a null date, what is no date as an invalid one.
DateTime ToDate(const Variant& value);

/// The text that lists, pages and messages show: "" for null, whole numbers, two decimals for quantities ("12,35"),
/// "05.07.2012", "ano" or "ne", the text itself.
QString FormatVariant(const Variant& value);
