#pragma once

#include "core/import/ImportOptions.h"

#include <array>

class QCheckBox;
class QRadioButton;

/// What the parameter pages of both imports have.
struct ImportControls {
    QCheckBox& products;
    QCheckBox& issues;
    /// In the order of the policies.
    std::array<QRadioButton*, 3> existing;
};

/// Shows the options; from then on they follow the controls.
void BindImportOptions(const ImportControls& controls, ImportOptions& options);
