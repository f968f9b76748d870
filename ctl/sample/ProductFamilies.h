#pragma once

#include "ctl/sample/SampleComposites.h"

#include <array>
#include <optional>
#include <vector>

/// Products that differ in brand and kind only and are packed alike.
struct ProductFamily {
    /// The first part of the catalogue number.
    const char* department;
    const char* name;
    std::array<const char*, 4> kinds;
    const char* size;
    const char* unit;
    /// How many make a carton or crate, in which they are usually issued.
    int carton;
    std::optional<CompositeKey> composite;
    /// Packed beside the composite, or alone without one.
    std::vector<PackRow> rows;
};

const std::vector<ProductFamily>& ProductFamilies();

/// The house brands; every family has each of its kinds under each brand.
inline constexpr std::array<const char*, 4> Brands = {"Jizerka", "Kudrnka", "Liduška", "Rokytka"};
