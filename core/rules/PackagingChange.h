#pragma once

#include "core/rules/ChosenPackaging.h"

#include <vector>

class IProgress;
struct PropagationOptions;

/// What follows any change of a product's packaging definitions, in the same edit: where the options say so, the
/// packaging of the product's issues is computed anew. Raises ComError.
void PackagingChanged(CDataStore& store, const PropagationOptions& options, std::int32_t prodId, IProgress& progress);

/// `AddPackagingRows` to a definition of the product, with `PackagingChanged`, as one edit. Raises ComError; the rows
/// added before it stay, and the change was carried on for them.
void AddPackaging(CDataStore& store, const PropagationOptions& options, std::int32_t prodId, std::int32_t dtId,
                  const ChosenPackaging& chosen, IProgress& progress);

/// Adds the packaging to each product's definition of this day, which it begins where there is none, with
/// `PackagingChanged`; each product whole. A cancel ends it between two products. Raises ComError; the products before
/// it, and the rows of its own, stay.
void AssignPackaging(CDataStore& store, const PropagationOptions& options, const std::vector<std::int32_t>& products,
                     const DateTime& from, const ChosenPackaging& chosen, IProgress& progress);
