#include "core/rules/Fields.h"

#include <QLatin1String>

namespace {

using enum RecordField::Kind;

constexpr RecordField Fields[] = {
    {"cover_name", "Název"},
    {"cover_mat", "Materiál", Code, CodeList::CoverMaterial},
    {"cover_weight", "Hmotnost [kg]", Value},
    {"cover_type", "Typ", Code, CodeList::CoverType},
    {"cover_org", "Původ", Code, CodeList::CoverOrigin},
    {"cover_pay", "Platba", Code, CodeList::CoverPayment},
    {"cover_reusable", "Opakovaně používaný", YesNo},
    {"disc_date", "Datum", Value},
    {"disc_type", "Typ", Code, CodeList::DiscardType},
    {"ccover_name", "Název"},
    {"ccover_note", "Poznámka"},
    {"cp_qtyprod", "Počet výr.", Value},
    {"cp_usefrom", "Použít od", RangeEnd},
    {"cp_useto", "Použít do", RangeEnd},
    {"prod_name", "Název"},
    {"prod_katalog", "Kat. č."},
    {"prod_unit", "Jednotka"},
    {"dt_from", "Platné od", Value},
    {"move_num", "Číslo", Text, {}, "Číslo dokumentu"},
    {"move_date", "Datum", Value},
    {"move_type", "Typ", Code, CodeList::MoveType},
    {"move_export", "Export", YesNo},
    {"mvprod_qty", "Množství", Value},
    // The weight of all pieces of a row.
    {"totWeight", "Hmotnost [kg]", Value},
};

} // namespace

const RecordField* FindField(std::string_view name) {
    const QLatin1String wanted(name.data(), static_cast<qsizetype>(name.size()));
    for (const RecordField& field : Fields)
        if (wanted.compare(QLatin1String(field.name), Qt::CaseInsensitive) == 0)
            return &field;
    return nullptr;
}
