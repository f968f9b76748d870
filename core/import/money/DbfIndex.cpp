#include "core/import/money/DbfIndex.h"

#include "core/base/ComError.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

constexpr std::size_t AliveRows = 10'000;

std::size_t KeySize(const DbfField& field) {
    switch (field.type) {
    case 'C':
        return static_cast<std::size_t>(field.width) * sizeof(char16_t);
    case 'N':
    case 'F':
    case 'I':
    case 'Y':
    case 'B':
    case 'D':
    case 'T':
    case 'L':
        return sizeof(std::int64_t);
    default:
        throw ComError("dbf", field.name, ResultCode::TypeMismatch,
                       QStringLiteral("Podle pole \"%1\" nelze řadit.").arg(QString::fromStdString(field.name)));
    }
}

void AppendNumber(std::string& key, std::int64_t number) {
    // The sign bit turned over makes the bytes compare as the numbers do.
    const std::uint64_t bits = static_cast<std::uint64_t>(number) ^ (std::uint64_t{1} << 63);
    for (int shift = 56; shift >= 0; shift -= 8)
        key += static_cast<char>(bits >> shift);
}

/// Nothing for a number that cannot be compared exactly.
std::optional<std::int64_t> NumberOf(const DbfField& field, const Variant& value) {
    constexpr std::int64_t Blank = std::numeric_limits<std::int64_t>::min();
    if (field.type == 'L')
        return IsNull(value) ? Blank : ToBool(value);
    if (field.type == 'D' || field.type == 'T') {
        const DateTime date = ToDate(value);
        return date.IsValid() ? date.SecondsSince1970() : Blank;
    }
    const Currency number = ToCurrency(value);
    if (number.status == ValueStatus::Invalid)
        return std::nullopt;
    return number.IsValid() ? number.count : Blank;
}

/// False for a value that the field cannot have: a text longer than it, a number beyond all others.
bool AppendKey(std::string& key, const DbfField& field, const Variant& value) {
    if (field.type != 'C') {
        const std::optional<std::int64_t> number = NumberOf(field, value);
        if (number)
            AppendNumber(key, *number);
        return number.has_value();
    }
    const QString text = FormatVariant(value);
    if (text.size() > field.width)
        return false;
    for (const QChar c : text) {
        key += static_cast<char>(c.unicode() >> 8);
        key += static_cast<char>(c.unicode() & 0xFF);
    }
    key.append(static_cast<std::size_t>(field.width - text.size()) * sizeof(char16_t), '\0');
    return true;
}

} // namespace

CDbfIndex::CDbfIndex(const CDbfFile& file, std::string_view expression, const std::function<void()>& alive)
    : m_expression(expression) {
    for (std::size_t begin = 0; begin <= expression.size();) {
        const std::size_t end = std::min(expression.find('+', begin), expression.size());
        m_fields.push_back(file.Field(expression.substr(begin, end - begin)));
        m_keySize += KeySize(m_fields.back());
        begin = end + 1;
    }
    m_keys.reserve(m_keySize * file.Count());
    for (std::size_t row = 0; row < file.Count(); ++row) {
        if (alive && row % AliveRows == AliveRows - 1)
            alive();
        for (const DbfField& field : m_fields)
            if (const Variant value = file.Value(row, field); !AppendKey(m_keys, field, value))
                throw UnreadableValue(file.Place(row, field), FormatVariant(value));
    }
    m_order.resize(file.Count());
    std::iota(m_order.begin(), m_order.end(), 0U);
    std::stable_sort(m_order.begin(), m_order.end(),
                     [this](std::uint32_t a, std::uint32_t b) { return Key(a) < Key(b); });
}

std::optional<std::size_t> CDbfIndex::Find(const std::vector<Variant>& values) const {
    if (values.empty() || values.size() > m_fields.size())
        throw ComError("dbf", m_expression, ResultCode::TypeMismatch,
                       QStringLiteral("Počet hodnot klíče neodpovídá indexu."));
    std::string key;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (!AppendKey(key, m_fields[i], values[i]))
            return std::nullopt;
    const auto found =
        std::lower_bound(m_order.begin(), m_order.end(), key,
                         [this](std::uint32_t row, const std::string& sought) { return Key(row) < sought; });
    if (found == m_order.end() || !Key(*found).starts_with(key))
        return std::nullopt;
    return static_cast<std::size_t>(found - m_order.begin());
}
