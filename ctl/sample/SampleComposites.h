#pragma once

#include "core/base/CodeLists.h"
#include "core/base/Currency.h"
#include "core/store/Recordset.h"
#include "ctl/sample/SampleCovers.h"

#include <vector>

/// One row of a packaging definition or composite: `pieces` of the cover go with `products` products. Type, origin and
/// payment are the cover's own unless they are given.
struct PackRow {
    CoverKey cover;
    int products = 1;
    std::int64_t pieces = Currency::One;
    /// The row applies only to quantities between these two; to all when both are 0.
    int from = 0;
    int to = 0;
    int type = -1;
    int origin = -1;
    int payment = -1;
};

enum class CompositeKey : std::uint8_t {
    PetLitreAndHalf,
    PetHalfLitre,
    BeerInCrates,
    PreserveJars,
    Wine,
    Shampoo,
    WashingGel,
    Cleaner,
    WashingPowder,
    Spray,
    FoodCans,
    DrinkCartons,
    Cups,
    DryFood,
    Paint,
    Count
};

struct SampleComposite {
    CompositeKey key;
    const char* name;
    const char* note;
    std::vector<PackRow> rows;
};

const SampleComposite& CompositeOf(CompositeKey key);

/// Raises ComError.
void AddSampleComposites(CDataStore& store, const CCoverIds& covers);

/// The columns that composites and packaging definitions share, into the new record of either.
void PutPackRow(CRecordset& record, const PackRow& row, const CCoverIds& covers);
