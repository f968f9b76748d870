#include "core/rules/FindRequest.h"

#include "core/base/SqlText.h"

namespace {

using Kind = FindArea::Kind;

constexpr struct {
    const char* field;
    const char* name;
    Kind kind = Kind::Text;
    CodeList codes{};
} Areas[] = {
    {"cover_name", "Název"},
    {"cover_mat", "Materiál", Kind::Code, CodeList::CoverMaterial},
    {"cover_type", "Typ", Kind::Code, CodeList::CoverType},
    {"cover_org", "Původ", Kind::Code, CodeList::CoverOrigin},
    {"cover_pay", "Platba", Kind::Code, CodeList::CoverPayment},
    {"cover_reusable", "Opakovaně používaný", Kind::YesNo},
    {"ccover_name", "Název"},
    {"ccover_note", "Poznámka"},
    {"prod_name", "Název"},
    {"prod_katalog", "Kat. č."},
    {"prod_unit", "Jednotka"},
    {"move_num", "Číslo dokumentu"},
    {"move_type", "Typ", Kind::Code, CodeList::MoveType},
    {"move_export", "Export", Kind::YesNo},
};

} // namespace

std::string FindRequest::Criterion() const {
    if (const auto* code = std::get_if<std::int32_t>(&find))
        return SqlText("%s = %li", field, *code);
    if (const auto* yes = std::get_if<bool>(&find))
        return SqlText(*yes ? "%s = TRUE" : "%s = FALSE", field);
    return SqlText(partial ? "%s LIKE '%%%s%%'" : "%s = '%s'", field, std::get<QString>(find));
}

Variant FindRequest::Replaced(const Variant& current) const {
    const auto* part = std::get_if<QString>(&find);
    if (!partial || part == nullptr)
        return replace;
    return FormatVariant(current).replace(*part, std::get<QString>(replace), Qt::CaseSensitive);
}

FindArea AreaOf(const std::string& field) {
    const QString name = QString::fromStdString(field);
    for (const auto& area : Areas)
        if (name.compare(QLatin1String(area.field), Qt::CaseInsensitive) == 0)
            return {QString::fromUtf8(area.name), area.kind, area.codes};
    return {name};
}
