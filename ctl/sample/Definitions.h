#pragma once

#include "core/base/DateTime.h"
#include "ctl/sample/ProductFamilies.h"
#include "ctl/sample/Sequence.h"

#include <vector>

struct PackDefinition {
    DateTime from;
    std::vector<PackRow> rows;
};

/// One to four definitions of a product of this family, each a small change of the one before: a lighter bottle, larger
/// cartons, another supplier, packaging paid for in advance.
std::vector<PackDefinition> DrawDefinitions(const ProductFamily& family, CSequence& sequence);
