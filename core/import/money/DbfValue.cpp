#include "core/import/money/DbfValue.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <limits>

namespace dbf {

namespace {

using Result = std::optional<Variant>;

std::string_view Trimmed(std::string_view bytes) {
    bytes = WithoutTail(bytes);
    const std::size_t begin = bytes.find_first_not_of(' ');
    return begin == std::string_view::npos ? std::string_view() : bytes.substr(begin);
}

template <class T>
bool Parse(std::string_view text, T& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

/// Exact to four decimals; what is beyond them is rounded half away from zero.
std::optional<Currency> ReadDecimal(std::string_view text) {
    const bool negative = text.starts_with('-');
    const std::string_view digits = text.substr(negative ? 1 : 0);
    const std::size_t point = std::min(digits.find_first_of(".,"), digits.size());
    const std::string_view whole = digits.substr(0, point);
    const std::string_view fraction = digits.substr(std::min(point + 1, digits.size()));
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (whole.size() + fraction.size() == 0 || !std::all_of(whole.begin(), whole.end(), isDigit) ||
        !std::all_of(fraction.begin(), fraction.end(), isDigit))
        return std::nullopt;
    std::string count(whole);
    for (std::size_t i = 0; i < 4; ++i)
        count += i < fraction.size() ? fraction[i] : '0';
    std::int64_t number = 0;
    if (!Parse(count, number))
        return std::nullopt;
    if (fraction.size() > 4 && fraction[4] >= '5') {
        if (number == std::numeric_limits<std::int64_t>::max())
            return std::nullopt;
        ++number;
    }
    return Currency::FromCount(negative ? -number : number);
}

/// Whole numbers that 32 bits cannot hold stay text, digit for digit: as a currency they would gain decimals.
Result ReadWhole(std::string_view text) {
    std::int32_t number = 0;
    if (Parse(text, number))
        return number;
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    if (digits.empty() || !std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

Result ReadNumber(std::string_view bytes) {
    std::string_view text = Trimmed(bytes);
    if (text.empty())
        return Variant();
    if (text.starts_with('+'))
        text.remove_prefix(1);
    if (text.find_first_of("eE") != std::string_view::npos) {
        double number = 0;
        if (!Parse(text, number) || !ToCurrency(number).IsValid())
            return std::nullopt;
        return number;
    }
    if (text.find_first_of(".,") == std::string_view::npos)
        return ReadWhole(text);
    if (const std::optional<Currency> number = ReadDecimal(text))
        return *number;
    return std::nullopt;
}

Result Valid(const DateTime& date) {
    return date.IsValid() ? Result(date) : std::nullopt;
}

/// "20120701".
Result ReadDate(std::string_view bytes) {
    const std::string_view text = Trimmed(bytes);
    if (text.empty() || text == "00000000")
        return DateTime::Null();
    int year = 0;
    int month = 0;
    int day = 0;
    if (text.size() != 8 || !Parse(text.substr(0, 4), year) || !Parse(text.substr(4, 2), month) ||
        !Parse(text.substr(6, 2), day))
        return std::nullopt;
    return Valid(DateTime::FromDay(year, month, day));
}

Result ReadLogical(std::string_view bytes) {
    constexpr std::string_view True = "TtYy";
    constexpr std::string_view False = "FfNn";
    constexpr std::string_view NotSet("? \0", 3);
    if (True.find(bytes.front()) != std::string_view::npos)
        return true;
    if (False.find(bytes.front()) != std::string_view::npos)
        return false;
    return NotSet.find(bytes.front()) != std::string_view::npos ? Result(Variant()) : std::nullopt;
}

/// The binary fields have their low byte first.
template <class T>
T ReadBinary(std::string_view bytes) {
    T number = 0;
    for (std::size_t i = sizeof(T); i-- > 0;)
        number = static_cast<T>(number << 8 | static_cast<unsigned char>(bytes[i]));
    return number;
}

/// A day counted as astronomers do, then the milliseconds of the day.
Result ReadDateTime(std::string_view bytes) {
    const std::int64_t day = static_cast<std::int32_t>(ReadBinary<std::uint32_t>(bytes));
    const std::int64_t milliseconds = static_cast<std::int32_t>(ReadBinary<std::uint32_t>(bytes.substr(4)));
    constexpr std::int64_t DayOf1970 = 2440588;
    constexpr std::int64_t SecondsOfDay = 86400;
    if (day == 0)
        return DateTime::Null();
    return Valid(DateTime::FromSeconds((day - DayOf1970) * SecondsOfDay + (milliseconds + 500) / 1000));
}

Result ReadDouble(std::string_view bytes) {
    const double number = std::bit_cast<double>(ReadBinary<std::uint64_t>(bytes));
    if (!ToCurrency(number).IsValid())
        return std::nullopt;
    return number;
}

} // namespace

std::string_view WithoutTail(std::string_view bytes) {
    while (!bytes.empty() && (bytes.back() == ' ' || bytes.back() == '\0'))
        bytes.remove_suffix(1);
    return bytes;
}

std::optional<Variant> ReadValue(char type, std::string_view bytes) {
    switch (type) {
    case 'N':
    case 'F':
        return ReadNumber(bytes);
    case 'D':
        return ReadDate(bytes);
    case 'L':
        return ReadLogical(bytes);
    case 'I':
        return bytes.size() == 4 ? Result(static_cast<std::int32_t>(ReadBinary<std::uint32_t>(bytes))) : Result();
    case 'Y':
        return bytes.size() == 8
                   ? Result(Currency::FromCount(static_cast<std::int64_t>(ReadBinary<std::uint64_t>(bytes))))
                   : Result();
    case 'T':
        return bytes.size() == 8 ? ReadDateTime(bytes) : Result();
    case 'B':
        return bytes.size() == 8 ? ReadDouble(bytes) : Result();
    case 'G':
    case 'P':
        return Variant();
    default:
        return std::nullopt;
    }
}

std::optional<std::uint32_t> ReadMemoBlock(std::string_view bytes) {
    if (bytes.size() == 4)
        return ReadBinary<std::uint32_t>(bytes);
    const std::string_view digits = Trimmed(bytes);
    std::uint32_t block = 0;
    if (!digits.empty() && !Parse(digits, block))
        return std::nullopt;
    return block;
}

QString ShownBytes(char type, std::string_view bytes) {
    constexpr std::string_view Binary = "IYTB";
    const bool isBinary = Binary.find(type) != std::string_view::npos || (type == 'M' && bytes.size() == 4);
    const QByteArray raw(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return isBinary ? QStringLiteral("0x") + QString::fromLatin1(raw.toHex()) : QString::fromLatin1(raw).trimmed();
}

} // namespace dbf
