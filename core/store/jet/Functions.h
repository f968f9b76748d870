#pragma once

#include "core/store/sqlite/Sqlite.h"

namespace jet {

/// Registers what translated statements call:
///   kuvel_mul(a, b)          the product of two currencies, exact, rounded to the nearest ten-thousandth, ties to
///                            even; a floating-point number, read as an invalid currency, where it leaves their range
///   kuvel_sum_mul(a, b)      the sum of such products; an error where one, or the sum, leaves the range
///   kuvel_exact(n)           the whole number itself; an error for what the engine could not keep as one
///   kuvel_like(pattern, t)   LIKE with % and _, without regard to case, accents respected
///   kuvel_sortkey(t)         the Czech sort key of a text
///   kuvel_isdate(t)          whether a stored date can be read
///   kuvel_datediff(a, b)     the days from a to b; null when either cannot be read
/// and the collations kuvel_czech (Czech order, without regard to case) and kuvel_fold (equality without regard to
/// case). No index and no schema may use them, so that any SQLite tool can open the file.
void RegisterFunctions(sqlite3* database);

} // namespace jet
