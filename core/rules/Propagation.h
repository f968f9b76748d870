#pragma once

#include "core/base/Door.h"

#include <cstdint>
#include <system_error>

class CDataStore;
struct CoverTerms;

/// Which copies follow when a cover or a packaging definition changes. On unless the user turned them off.
struct PropagationOptions {
    std::int32_t coversToComposites = 1;
    std::int32_t coversToPackaging = 1;
    std::int32_t coversToIssues = 1;
    std::int32_t packagingToIssues = 1;
};

/// The user's options: read once at start and written back at exit; in between only this holds them.
Door<PropagationOptions>& Options();

/// From section "Moznosti" of the settings file; a missing file or key is on.
PropagationOptions ReadPropagationOptions();
std::error_code WritePropagationOptions(const PropagationOptions& options);

/// Carries a cover's new terms into composites, packaging definitions and issued packaging, each as
/// the options say. Every row of the cover is overwritten, whatever its date. Raises ComError; what ran before stays.
void PropagateCover(CDataStore& store, const PropagationOptions& options, std::int32_t coverId,
                    const CoverTerms& terms);
