#include "core/rules/FindRequest.h"

#include "core/base/CzechCount.h"
#include "core/base/SqlText.h"
#include "core/base/TextField.h"

std::string FindRequest::Criterion() const {
    if (const auto* code = std::get_if<std::int32_t>(&find))
        return SqlText("%s = %li", field, *code);
    if (const auto* yes = std::get_if<bool>(&find))
        return SqlText(*yes ? "%s = TRUE" : "%s = FALSE", field);
    return SqlText(partial ? "%s LIKE '%%%s%%'" : "%s = '%s'", field, std::get<QString>(find));
}

Variant FindRequest::Replaced(const Variant& current) const {
    const auto* text = std::get_if<QString>(&replace);
    if (text == nullptr)
        return replace;
    const QString line = OneLine(*text);
    const auto* part = std::get_if<QString>(&find);
    return partial && part != nullptr ? FormatVariant(current).replace(*part, line, Qt::CaseSensitive) : line;
}

FindArea AreaOf(const std::string& field) {
    const RecordField* const known = FindField(field);
    if (known == nullptr || !known->IsSearched())
        return {QString::fromStdString(field)};
    return {QString::fromUtf8(known->areaName != nullptr ? known->areaName : known->caption), known->kind,
            known->codes};
}

QString ReplacedAll::Text() const {
    QString text = QStringLiteral("Nahrazeno ") + GroupedNumber(replaced);
    if (unchanged > 0)
        text += QStringLiteral(", beze změny %1 (liší se velikost písmen)").arg(GroupedNumber(unchanged));
    return text;
}
