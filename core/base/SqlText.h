#pragma once

#include "core/base/DateTime.h"

#include <QString>

#include <concepts>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

/// What fills a place of a format: a whole number or a text (kept as UTF-8; a text that is given must outlive the
/// call).
class FormatArgument {
public:
    template <std::integral T>
    FormatArgument(T number) : m_number(static_cast<long long>(number)), m_isNumber(true) {}
    template <class T>
    requires std::is_enum_v<T> FormatArgument(T code) : FormatArgument(static_cast<long long>(code)) {}
    FormatArgument(const char* text) : m_view(text) {}
    FormatArgument(std::string_view text) : m_view(text) {}
    FormatArgument(const std::string& text) : m_view(text) {}
    FormatArgument(const QString& text) : m_owned(text.toStdString()) {}

    bool IsNumber() const { return m_isNumber; }
    long long Number() const { return m_number; }
    std::string_view Text() const { return m_owned.empty() ? m_view : std::string_view(m_owned); }

private:
    std::string m_owned;
    std::string_view m_view;
    long long m_number = 0;
    bool m_isNumber = false;
};

/// Fills a printf-style format of the places %i, %li, %0Ni, %s and %%. Texts go in as they stand, nothing is doubled or
/// escaped. The format is UTF-8.
std::string FormatText(std::string_view format, std::initializer_list<FormatArgument> arguments);

template <class... Ts>
std::string SqlText(std::string_view format, const Ts&... arguments) {
    return FormatText(format, {FormatArgument(arguments)...});
}

/// The same for a message.
template <class... Ts>
QString MessageText(std::string_view format, const Ts&... arguments) {
    return QString::fromStdString(FormatText(format, {FormatArgument(arguments)...}));
}

/// "#3/31/2012#".
std::string SqlDay(const DateTime& day);
/// The condition that a date is within these days, both inclusive, whatever its time.
std::string SqlBetween(const char* field, const DateTime& from, const DateTime& to);
