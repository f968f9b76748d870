#include "ctl/sample/Definitions.h"

#include <algorithm>
#include <utility>

namespace {

using Rows = std::vector<PackRow>;

constexpr std::pair<CoverKey, CoverKey> Replacements[] = {
    {CoverKey::PetBottle15, CoverKey::PetBottle15Light}, {CoverKey::PetBottle05, CoverKey::PetBottle2},
    {CoverKey::Carton600, CoverKey::Carton400},          {CoverKey::PpStrap, CoverKey::PetStrap},
    {CoverKey::PlainPallet, CoverKey::ReturnablePallet}, {CoverKey::CleanerBottle, CoverKey::GelBottle},
};

int TypeOf(const PackRow& row) {
    return row.type >= 0 ? row.type : CoverOf(row.cover).type;
}

/// What the customer takes home, as against what the goods travel in.
bool IsSales(const PackRow& row) {
    return TypeOf(row) == Type::Sales;
}

void SetSalesPayment(Rows& rows, int payment) {
    for (PackRow& row : rows)
        if (IsSales(row))
            row.payment = payment;
}

void SetOrigin(Rows& rows, int origin) {
    for (PackRow& row : rows)
        if (IsSales(row))
            row.origin = origin;
}

void ReplaceCovers(Rows& rows) {
    for (PackRow& row : rows)
        for (const auto& [before, after] : Replacements)
            if (row.cover == before) {
                row.cover = after;
                break;
            }
}

/// What packs several products packs a third more of them.
void EnlargeCartons(Rows& rows) {
    for (PackRow& row : rows)
        if (row.products % 3 == 0)
            row.products += row.products / 3;
}

void Change(Rows& rows, CSequence& sequence) {
    switch (sequence.Between(0, 5)) {
    case 0:
        SetSalesPayment(rows, Payment::Prepaid);
        break;
    case 1:
        SetSalesPayment(rows, Payment::Charged);
        break;
    case 2:
        SetOrigin(rows, Origin::Imported);
        break;
    case 3:
        EnlargeCartons(rows);
        break;
    default:
        ReplaceCovers(rows);
        break;
    }
}

/// As the product came into the range: most packaging is charged, some was paid for by the supplier.
Rows FirstRows(const ProductFamily& family, CSequence& sequence) {
    Rows rows;
    if (family.composite)
        rows = CompositeOf(*family.composite).rows;
    rows.insert(rows.end(), family.rows.begin(), family.rows.end());
    const int payer = sequence.Between(1, 100);
    if (payer <= 15)
        SetSalesPayment(rows, Payment::Prepaid);
    else if (payer <= 27)
        SetSalesPayment(rows, Payment::Unpaid);
    if (sequence.Chance(20))
        SetOrigin(rows, sequence.Chance(50) ? Origin::MadeInland : Origin::BoughtInland);
    return rows;
}

DateTime FirstValidDay(CSequence& sequence) {
    const int drawn = sequence.Between(1, 100);
    if (drawn <= 80)
        return DateTime::FromDay(2009, 1, 1);
    if (drawn <= 92)
        return DateTime::FromDay(2008, 7, 1);
    return drawn <= 96 ? DateTime::FromDay(2009, 9, 1) : DateTime::FromDay(2010, 3, 1);
}

int DrawCount(CSequence& sequence) {
    const int drawn = sequence.Between(1, 100);
    return drawn <= 35 ? 1 : drawn <= 70 ? 2 : drawn <= 90 ? 3 : 4;
}

} // namespace

std::vector<PackDefinition> DrawDefinitions(const ProductFamily& family, CSequence& sequence) {
    std::vector<DateTime> changes = {DateTime::FromDay(2010, 7, 1),  DateTime::FromDay(2010, 10, 15),
                                     DateTime::FromDay(2011, 1, 1),  DateTime::FromDay(2011, 4, 18),
                                     DateTime::FromDay(2011, 10, 1), DateTime::FromDay(2012, 1, 1),
                                     DateTime::FromDay(2012, 5, 2)};
    std::vector<PackDefinition> definitions = {{FirstValidDay(sequence), FirstRows(family, sequence)}};
    for (int more = DrawCount(sequence) - 1; more > 0; --more) {
        // Leaves days enough for the definitions that follow.
        const int chosen = sequence.Between(0, static_cast<int>(changes.size()) - more);
        PackDefinition next{changes[static_cast<std::size_t>(chosen)], definitions.back().rows};
        changes.erase(changes.begin(), changes.begin() + chosen + 1);
        Change(next.rows, sequence);
        definitions.push_back(std::move(next));
    }
    return definitions;
}
