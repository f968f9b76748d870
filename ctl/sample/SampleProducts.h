#pragma once

#include "ctl/sample/SampleCovers.h"
#include "ctl/sample/Sequence.h"

#include <vector>

class CDataStore;

struct SampleProduct {
    std::int32_t id;
    /// How many make a carton.
    int carton;
    /// Issued by weight, so in fractions too.
    bool byWeight;
};

struct SampleProducts {
    /// 400, each with one to four dated definitions.
    std::vector<SampleProduct> current;
    /// Sold off in the first two years and deleted afterwards, see `DeleteOldProducts`.
    std::vector<SampleProduct> discontinued;
};

/// Raises ComError.
SampleProducts AddSampleProducts(CDataStore& store, const CCoverIds& covers, CSequence& sequence);
/// Flags them and drops their definitions, as the register does; what was issued keeps its packaging. Raises ComError.
void DeleteOldProducts(CDataStore& store, const SampleProducts& products);
