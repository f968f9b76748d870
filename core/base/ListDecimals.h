#pragma once

#include <system_error>

/// Whether lists show amounts with all their four decimals instead of two: the user's own choice, off unless made.
bool FourDecimalsInLists();
/// Takes the choice from section "Zobrazeni" of the settings file; until then it is off.
void ReadListDecimals();
/// From now on and, where it can be written, from the next start on. Why it could not be written; no error if it was.
std::error_code KeepListDecimals(bool four);
