#include "core/import/SourceValue.h"

#include <QRegularExpression>

#include <limits>

namespace {

QString Utf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString Describe(const SourcePlace& place, const QString& value) {
    QString text = QStringLiteral("Tabulka \"%1\", záznam %2, ").arg(place.table).arg(place.record);
    if (!place.document.isEmpty())
        text += QStringLiteral("doklad \"") + place.document + QStringLiteral("\", ");
    text += QStringLiteral("pole \"") + place.field + QStringLiteral("\": ");
    return text + (value.trimmed().isEmpty()
                       ? QStringLiteral("není vyplněno.")
                       : QStringLiteral("hodnotu \"") + value + QStringLiteral("\" nelze přečíst."));
}

/// As the source has it: all digits of a number, and 1e300 not as a page of them.
QString Raw(const Variant& value) {
    if (const auto* number = std::get_if<double>(&value))
        return QString::number(*number, 'g', 15);
    if (const auto* number = std::get_if<float>(&value))
        return QString::number(static_cast<double>(*number), 'g', 7);
    if (const auto* number = std::get_if<Currency>(&value))
        return CurrencyText(*number);
    return FormatVariant(value);
}

bool IsEmpty(const Variant& value) {
    const auto* text = std::get_if<QString>(&value);
    return IsNull(value) || (text != nullptr && text->trimmed().isEmpty());
}

/// "20231005" or "2023-10-05", also with a time of day.
DateTime DayOfText(const QString& text) {
    static const QRegularExpression form(
        QStringLiteral("^(\\d{4})-?(\\d\\d)-?(\\d\\d)(?:[ T](\\d\\d:\\d\\d:\\d\\d)(?:\\.\\d*)?)?$"));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch())
        return DateTime::Invalid();
    const QString day = match.captured(1) + u'-' + match.captured(2) + u'-' + match.captured(3);
    return DateTime::FromStored((match.captured(4).isEmpty() ? day : day + u' ' + match.captured(4)).toStdString());
}

} // namespace

UnreadableValue::UnreadableValue(const SourcePlace& place, const QString& value)
    : ComError("read", (place.table + u'.' + place.field).toStdString(), ResultCode::TypeMismatch,
               Describe(place, value)),
      m_value(value) {}

void CSourceFields::Refuse(std::string_view field, const QString& value) const {
    throw UnreadableValue({m_table, Record(), m_document, Utf8(field)}, value);
}

Variant CSourceFields::Value(std::string_view field) const {
    try {
        return Read(field);
    } catch (const UnreadableValue& unreadable) {
        Refuse(field, unreadable.Value());
    }
}

std::int64_t CSourceFields::Whole(std::string_view field, std::optional<std::int64_t> whenEmpty) const {
    const Variant value = Value(field);
    if (whenEmpty && IsEmpty(value))
        return *whenEmpty;
    const Currency exact = ToCurrency(value);
    if (!exact.IsValid() || exact.count % Currency::One != 0)
        Refuse(field, Raw(value));
    return exact.count / Currency::One;
}

std::int32_t CSourceFields::Key(std::string_view field, std::optional<std::int32_t> whenEmpty) const {
    const std::int64_t number = Whole(field, whenEmpty);
    if (number < std::numeric_limits<std::int32_t>::min() || number > std::numeric_limits<std::int32_t>::max())
        Refuse(field, QString::number(number));
    return static_cast<std::int32_t>(number);
}

Variant CSourceFields::Text(std::string_view field) const {
    Variant value = Value(field);
    const auto* date = std::get_if<DateTime>(&value);
    const bool isNull = IsNull(value) || (date != nullptr && date->Status() == ValueStatus::Null);
    if (isNull || std::holds_alternative<QString>(value))
        return isNull ? Variant() : value;
    return FormatVariant(value);
}

Currency CSourceFields::Quantity(std::string_view field) const {
    const Variant value = Value(field);
    const Currency quantity = ToCurrency(value);
    if (quantity.status == ValueStatus::Invalid)
        Refuse(field, Raw(value));
    return quantity;
}

DateTime CSourceFields::Date(std::string_view field) const {
    const Variant value = Value(field);
    if (IsEmpty(value))
        return DateTime::Null();
    const auto* text = std::get_if<QString>(&value);
    const DateTime date = text != nullptr ? DayOfText(*text) : ToDate(value);
    if (date.Status() == ValueStatus::Invalid)
        Refuse(field, Raw(value));
    return date;
}

bool CSourceFields::Flag(std::string_view field) const {
    const Variant value = Value(field);
    const auto* text = std::get_if<QString>(&value);
    if (text == nullptr || IsEmpty(value))
        return text == nullptr && ToBool(value);
    const QString word = text->trimmed().toLower();
    if (word == u"true" || word == u"false")
        return word == u"true";
    const Currency number = ParseCurrency(word);
    if (!number.IsValid())
        Refuse(field, *text);
    return number.count != 0;
}
