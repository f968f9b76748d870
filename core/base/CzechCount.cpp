#include "core/base/CzechCount.h"

QString GroupedNumber(std::int64_t number) {
    QString digits = QString::number(number);
    for (qsizetype at = digits.size() - 3; at > (number < 0 ? 1 : 0); at -= 3)
        digits.insert(at, QChar::Nbsp);
    return digits;
}

QString Counted(std::int64_t number, const CountedNoun& noun) {
    const char* const form = number == 1 ? noun.one : number >= 2 && number <= 4 ? noun.few : noun.many;
    return GroupedNumber(number) + QChar(QChar::Nbsp) + QString::fromUtf8(form);
}

QString InBefore(std::int64_t number) {
    // Only the word that is spoken first counts.
    while (number >= 1000)
        number /= 1000;
    const bool isHard = number >= 100 ? number < 500
                                      : (number >= 2 && number <= 4) || (number >= 12 && number <= 14) ||
                                            (number >= 20 && number <= 49);
    return isHard ? QStringLiteral("ve") : QStringLiteral("v");
}
