#include "core/base/DateTime.h"

#include <chrono>
#include <cstdio>
#include <ctime>

namespace {

constexpr std::int64_t SecondsPerDay = 86400;

std::chrono::year_month_day DayOf(std::int64_t seconds) {
    return std::chrono::floor<std::chrono::days>(std::chrono::sys_seconds(std::chrono::seconds(seconds)));
}

std::int64_t SecondOfDay(std::int64_t seconds) {
    const std::int64_t rest = seconds % SecondsPerDay;
    return rest < 0 ? rest + SecondsPerDay : rest;
}

bool ReadDigits(std::string_view text, std::size_t at, int digits, int& value) {
    value = 0;
    for (int i = 0; i < digits; ++i) {
        const char c = text[at + i];
        if (c < '0' || c > '9')
            return false;
        value = value * 10 + (c - '0');
    }
    return true;
}

DateTime LocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    // A leap second is shown as the second before it.
    return DateTime::FromDay(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                             local.tm_sec > 59 ? 59 : local.tm_sec);
}

} // namespace

DateTime DateTime::FromDay(int year, int month, int day, int hour, int minute, int second) {
    // A library's month and day are one byte each, and would take 257 for 1.
    if (month < 1 || month > 12 || day < 1 || day > 31 || hour < 0 || minute < 0 || second < 0)
        return Invalid();
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month), std::chrono::day(day)};
    if (year < 1 || year > 9999 || !date.ok() || hour > 23 || minute > 59 || second > 59)
        return Invalid();
    const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
    return FromSeconds(days * SecondsPerDay + hour * 3600L + minute * 60L + second);
}

DateTime DateTime::FromStored(std::string_view text) {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (text.size() != 10 && text.size() != 19)
        return Invalid();
    if (!ReadDigits(text, 0, 4, year) || text[4] != '-' || !ReadDigits(text, 5, 2, month) || text[7] != '-' ||
        !ReadDigits(text, 8, 2, day))
        return Invalid();
    if (text.size() == 19 && (text[10] != ' ' || !ReadDigits(text, 11, 2, hour) || text[13] != ':' ||
                              !ReadDigits(text, 14, 2, minute) || text[16] != ':' || !ReadDigits(text, 17, 2, second)))
        return Invalid();
    return FromDay(year, month, day, hour, minute, second);
}

DateTime DateTime::FromSeconds(std::int64_t secondsSince1970) {
    DateTime date;
    date.m_seconds = secondsSince1970;
    date.m_status = ValueStatus::Valid;
    return date;
}

DateTime DateTime::Null() {
    DateTime date;
    date.m_status = ValueStatus::Null;
    return date;
}

DateTime DateTime::Now() {
    return (*ClockDoor())();
}

DateTime DateTime::Today() {
    return Now().StartOfDay();
}

int DateTime::Year() const {
    return static_cast<int>(DayOf(m_seconds).year());
}
int DateTime::Month() const {
    return static_cast<int>(static_cast<unsigned>(DayOf(m_seconds).month()));
}
int DateTime::Day() const {
    return static_cast<int>(static_cast<unsigned>(DayOf(m_seconds).day()));
}
int DateTime::Hour() const {
    return static_cast<int>(SecondOfDay(m_seconds) / 3600);
}
int DateTime::Minute() const {
    return static_cast<int>(SecondOfDay(m_seconds) / 60 % 60);
}
int DateTime::Second() const {
    return static_cast<int>(SecondOfDay(m_seconds) % 60);
}

DateTime DateTime::StartOfDay() const {
    return IsValid() ? FromSeconds(m_seconds - SecondOfDay(m_seconds)) : *this;
}

DateTime DateTime::AddDays(int days) const {
    return IsValid() ? FromSeconds(m_seconds + days * SecondsPerDay) : *this;
}

std::string DateTime::Stored() const {
    if (!IsValid())
        return {};
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", Year(), Month(), Day(), Hour(), Minute(),
                  Second());
    return text;
}

Door<std::function<DateTime()>>& ClockDoor() {
    static Door<std::function<DateTime()>> door(&LocalTime);
    return door;
}

QString FormatDate(const DateTime& date) {
    if (!date.IsValid())
        return QStringLiteral("-.-.-");
    return QString::asprintf("%02i.%02i.%i", date.Day(), date.Month(), date.Year());
}
