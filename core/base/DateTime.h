#pragma once

#include "core/base/Currency.h"
#include "core/base/Door.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// A day with a time of day, to the second, and a validity status. Years 1 to 9999 of the Gregorian calendar.
class DateTime {
public:
    DateTime() = default;

    /// Invalid when there is no such day or time.
    static DateTime FromDay(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
    /// "YYYY-MM-DD HH:MM:SS" or "YYYY-MM-DD", as the database holds it; anything else is invalid.
    static DateTime FromStored(std::string_view text);
    static DateTime FromSeconds(std::int64_t secondsSince1970);
    static DateTime Null();
    static DateTime Invalid() { return {}; }
    /// What the clock says.
    static DateTime Now();
    static DateTime Today();

    bool IsValid() const { return m_status == ValueStatus::Valid; }
    ValueStatus Status() const { return m_status; }
    int Year() const;
    int Month() const;
    int Day() const;
    int Hour() const;
    int Minute() const;
    int Second() const;
    /// The same day at 00:00:00.
    DateTime StartOfDay() const;
    DateTime AddDays(int days) const;
    std::int64_t SecondsSince1970() const { return m_seconds; }
    /// "YYYY-MM-DD HH:MM:SS"; empty for a date that is not valid.
    std::string Stored() const;

    /// Compares day and time of day; the status counts, a date that is not valid equals only its like.
    friend bool operator==(const DateTime&, const DateTime&) = default;
    friend bool operator<(const DateTime& a, const DateTime& b) { return a.m_seconds < b.m_seconds; }

private:
    std::int64_t m_seconds = 0;
    ValueStatus m_status = ValueStatus::Invalid;
};

/// The clock: local time until another one is put in.
Door<std::function<DateTime()>>& ClockDoor();

/// "05.07.2012"; "-.-.-" for a date that is not valid.
QString FormatDate(const DateTime& date);
