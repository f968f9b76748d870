#include "core/base/Variant.h"

#include <cmath>
#include <limits>

namespace {

template <class... Ts>
struct Overload : Ts... {
    using Ts::operator()...;
};
template <class... Ts>
Overload(Ts...) -> Overload<Ts...>;

std::int32_t LongFromText(const QString& text) {
    const QByteArray latin = text.trimmed().toLatin1();
    const long long value = std::strtoll(latin.constData(), nullptr, 10);
    return static_cast<std::int32_t>(value);
}

Currency CurrencyFromDouble(double value) {
    const double count = std::nearbyint(value * Currency::One);
    if (!(std::fabs(count) < 9.2e18))
        return Currency::Invalid();
    return Currency::FromCount(static_cast<std::int64_t>(count));
}

std::int32_t LongFromDouble(double value) {
    const double whole = std::nearbyint(value);
    return std::fabs(whole) <= std::numeric_limits<std::int32_t>::max() ? static_cast<std::int32_t>(whole) : 0;
}

} // namespace

std::int32_t ToLong(const Variant& value) {
    return std::visit(Overload{[](std::monostate) { return std::int32_t{0}; },
                               [](std::int16_t v) { return std::int32_t{v}; }, [](std::int32_t v) { return v; },
                               [](float v) { return LongFromDouble(v); }, [](double v) { return LongFromDouble(v); },
                               [](const Currency& v) { return static_cast<std::int32_t>(v.count / Currency::One); },
                               [](const DateTime&) { return std::int32_t{0}; },
                               [](bool v) { return std::int32_t{v ? -1 : 0}; },
                               [](const QString& v) { return LongFromText(v); }},
                      value);
}

Currency ToCurrency(const Variant& value) {
    return std::visit(
        Overload{[](std::monostate) { return Currency::Null(); }, [](std::int16_t v) { return Currency::FromWhole(v); },
                 [](std::int32_t v) { return Currency::FromWhole(v); }, [](float v) { return CurrencyFromDouble(v); },
                 [](double v) { return CurrencyFromDouble(v); }, [](const Currency& v) { return v; },
                 [](const DateTime&) { return Currency::Invalid(); },
                 [](bool v) { return Currency::FromWhole(v ? -1 : 0); },
                 [](const QString& v) { return ParseCurrency(v); }},
        value);
}

bool ToBool(const Variant& value) {
    return std::visit(Overload{[](std::monostate) { return false; }, [](std::int16_t v) { return v != 0; },
                               [](std::int32_t v) { return v != 0; }, [](float v) { return v != 0; },
                               [](double v) { return v != 0; }, [](const Currency& v) { return v.count != 0; },
                               [](const DateTime&) { return false; }, [](bool v) { return v; },
                               [](const QString& v) { return LongFromText(v) != 0; }},
                      value);
}

DateTime ToDate(const Variant& value) {
    if (const auto* date = std::get_if<DateTime>(&value))
        return *date;
    return IsNull(value) ? DateTime::Null() : DateTime::Invalid();
}

QString FormatVariant(const Variant& value) {
    return std::visit(
        Overload{
            [](std::monostate) { return QString(); }, [](std::int16_t v) { return QString::number(v); },
            [](std::int32_t v) { return QString::number(v); },
            [](float v) { return QString::asprintf("%.1f", static_cast<double>(v)); },
            [](double v) { return QString::asprintf("%.2f", v); },
            [](const Currency& v) { return v.status == ValueStatus::Null ? QString() : FormatCurrency(v, 100, 'M'); },
            [](const DateTime& v) { return v.Status() == ValueStatus::Null ? QString() : FormatDate(v); },
            [](bool v) { return v ? QStringLiteral("ano") : QStringLiteral("ne"); },
            [](const QString& v) { return v; }},
        value);
}
