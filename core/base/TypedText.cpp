#include "core/base/TypedText.h"

#include "core/base/SqlText.h"

#include <QRegularExpression>
#include <QStringList>

#include <chrono>
#include <limits>
#include <optional>

namespace {

constexpr int MostShown = 40;
constexpr int MostDecimals = 4;
constexpr int FirstShortYear = 1950;

/// A text that was typed, as a message shows it.
QString Shown(const QString& text) {
    return text.size() <= MostShown ? text : text.left(MostShown) + QStringLiteral("…");
}

QString HighestNumber() {
    return CurrencyText(Currency::FromCount(std::numeric_limits<std::int64_t>::max()));
}

QRegularExpressionMatch Whole(const QString& text, const char* pattern) {
    return QRegularExpression(QRegularExpression::anchoredPattern(QLatin1String(pattern))).match(text);
}

int FullYear(const QString& digits) {
    const int year = digits.toInt();
    if (digits.size() > 2)
        return year;
    const int century = FirstShortYear / 100 * 100;
    return year >= FirstShortYear % 100 ? century + year : century + 100 + year;
}

QString MonthName(int month) {
    static const QStringList Names = {
        QStringLiteral("leden"),  QStringLiteral("únor"),   QStringLiteral("březen"),   QStringLiteral("duben"),
        QStringLiteral("květen"), QStringLiteral("červen"), QStringLiteral("červenec"), QStringLiteral("srpen"),
        QStringLiteral("září"),   QStringLiteral("říjen"),  QStringLiteral("listopad"), QStringLiteral("prosinec")};
    return Names.at(month - 1);
}

int DaysOfMonth(int year, int month) {
    using namespace std::chrono;
    const year_month_day_last last{std::chrono::year(year) / month / std::chrono::last};
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

Typed<DateTime> ReadDay(const QString& text, int year, int month, int day) {
    if (year < FirstYear || year > LastYear)
        return {{}, MessageText("Rok v datu \"%s\" musí být od %i do %i.", text, FirstYear, LastYear)};
    if (month < 1 || month > 12)
        return {{}, MessageText("Datum \"%s\" neexistuje: měsíc musí být od 1 do 12.", text)};
    const int days = DaysOfMonth(year, month);
    if (day < 1 || day > days)
        return {{},
                MessageText("Datum \"%s\" neexistuje: %s %i má dny od 1 do %i.", text, MonthName(month), year, days)};
    return {DateTime::FromDay(year, month, day), {}};
}

/// The number's parts, without the marks of its groups.
struct Digits {
    QString whole;
    QString decimals;
};

std::optional<Digits> Divide(const QString& number) {
    // Groups divided by blanks; by points before a comma; by commas before a point. One mark alone is the decimal one.
    for (const char* form : {"(\\d+|\\d{1,3}(?: \\d{3})+|)(?:[.,](\\d*))?", "(\\d{1,3}(?:\\.\\d{3})+)(?:,(\\d*))?",
                             "(\\d{1,3}(?:,\\d{3})+)(?:\\.(\\d*))?"}) {
        const QRegularExpressionMatch match = Whole(number, form);
        if (!match.hasMatch())
            continue;
        Digits digits{match.captured(1), match.captured(2)};
        digits.whole.remove(QLatin1Char(' ')).remove(QLatin1Char('.')).remove(QLatin1Char(','));
        if (digits.whole.isEmpty() && digits.decimals.isEmpty())
            return std::nullopt;
        return digits;
    }
    return std::nullopt;
}

QString WithoutUnit(const QString& text, const QString& unit) {
    const bool carries = !unit.isEmpty() && text.endsWith(unit, Qt::CaseInsensitive);
    return carries ? text.chopped(unit.size()).trimmed() : text;
}

} // namespace

Typed<DateTime> ReadDate(const QString& text) {
    const QString typed = text.simplified();
    if (typed.isEmpty())
        return {{}, QStringLiteral("Není zadáno datum!")};
    QRegularExpressionMatch match = Whole(typed, "(\\d{4})(?: ?[.,/-] ?| )(\\d{1,2})(?: ?[.,/-] ?| )(\\d{1,2})");
    if (match.hasMatch())
        return ReadDay(typed, match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
    match = Whole(typed, "(\\d{1,2})(?: ?[.,/-] ?| )(\\d{1,2})(?: ?[.,/-] ?| )(\\d{2,4})");
    if (!match.hasMatch())
        match = Whole(typed, "(\\d{2})(\\d{2})(\\d{4}|\\d{2})");
    if (match.hasMatch())
        return ReadDay(typed, FullYear(match.captured(3)), match.captured(2).toInt(), match.captured(1).toInt());
    return {{},
            MessageText("Datum \"%s\" nelze přečíst. Zadejte den, měsíc a rok, například 31.12.2012.", Shown(typed))};
}

Typed<Currency> ReadNumber(const QString& text, const QString& unit) {
    const QString typed = text.simplified();
    if (typed.isEmpty())
        return {Currency::Null(), {}};
    const QRegularExpressionMatch match = Whole(WithoutUnit(typed, unit), "([-+\\x{2212}]?) ?(\\S.*)");
    const QString sign =
        match.captured(1).isEmpty() || match.captured(1) == QLatin1String("+") ? QString() : QStringLiteral("-");
    const QString number = match.captured(2);
    // A thousand and a bit, or a bit more than one: a wrong guess would be a thousand times off.
    if (Whole(number, "[1-9]\\d{0,2}\\.\\d{3}").hasMatch()) {
        QString comma = number;
        QString none = number;
        return {Currency::Invalid(), MessageText("Číslo \"%s\" lze číst dvojím způsobem. Zadejte %s, nebo %s.", typed,
                                                 sign + comma.replace(QLatin1Char('.'), QLatin1Char(',')),
                                                 sign + none.remove(QLatin1Char('.')))};
    }
    const std::optional<Digits> digits = Divide(number);
    if (!digits)
        return {Currency::Invalid(),
                MessageText("Číslo \"%s\" nelze přečíst. Zadejte jen číslice, například 1234,5.", Shown(typed))};
    if (digits->decimals.size() > MostDecimals)
        return {Currency::Invalid(), MessageText("Číslo \"%s\" má více než čtyři desetinná místa.", Shown(typed))};
    const Currency value = ParseCurrency(sign + digits->whole + QLatin1Char(',') + digits->decimals);
    if (!value.IsValid())
        return {value,
                MessageText("Číslo \"%s\" je mimo rozsah, nejvýše lze zadat %s.", Shown(typed), HighestNumber())};
    return {value, {}};
}

QString RefuseWeight(Currency pieces, Currency pieceWeight) {
    if (pieces.count <= 0 || CurrencyProductFits(pieces, pieceWeight))
        return {};
    return MessageText("Hmotnost %s ks po %s kg je mimo rozsah, nejvýše lze zadat %s kg.", CurrencyText(pieces),
                       CurrencyText(pieceWeight), HighestNumber());
}

QString RefusePieces(Currency weight, Currency pieceWeight) {
    if (weight.count <= 0 || CurrencyDivFits(weight, pieceWeight))
        return {};
    return MessageText("Počet kusů po %s kg v %s kg je mimo rozsah, nejvýše lze zadat %s ks.",
                       CurrencyText(pieceWeight), CurrencyText(weight), HighestNumber());
}
