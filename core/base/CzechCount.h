#pragma once

#include <QString>

#include <cstdint>

/// "3 991": digits in groups of three, with blanks that do not break.
QString GroupedNumber(std::int64_t number);

/// The forms of a noun beside a number: "obal", "obaly", "obalů".
struct CountedNoun {
    const char* one;
    const char* few;
    const char* many;
};
/// "1 obal", "2 obaly", "5 obalů".
QString Counted(std::int64_t number, const CountedNoun& noun);

/// The preposition before a number as it is spoken: "v 9", "ve 4", "ve 25".
QString InBefore(std::int64_t number);
