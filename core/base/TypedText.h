#pragma once

#include "core/base/Currency.h"
#include "core/base/DateTime.h"

/// What a user typed into a field, read as a whole: a value, or the sentence that says why there is none.
template <class Value>
struct Typed {
    Value value;
    /// Empty for a text that was read.
    QString refusal;

    bool IsRead() const { return refusal.isEmpty(); }
};

/// The years that a date may be typed in.
inline constexpr int FirstYear = 1900;
inline constexpr int LastYear = 2100;

/// A day as d.m.yyyy, d.m.yy, yyyy-mm-dd, ddmmyyyy or ddmmyy; between the parts ".", ",", "/", "-" or blanks. Two
/// digits are a year of 1950 to 2049. An empty text is refused too.
Typed<DateTime> ReadDate(const QString& text);

/// A number with at most four decimals after a comma or a point. Blanks, and that of the two which is not the decimal
/// one, may group the digits before it by three; a point that can be either is refused. The field's unit may follow.
/// Empty text is a null.
Typed<Currency> ReadNumber(const QString& text, const QString& unit = {});

/// Why pieces of this weight in kg are too many; empty when the weight of all is within a currency's range.
QString RefuseWeight(Currency pieces, Currency pieceWeight);
/// Why so many kg are too many pieces of this weight; empty when a currency holds their number.
QString RefusePieces(Currency weight, Currency pieceWeight);
