#pragma once

#include "core/import/ImportOptions.h"
#include "windows/widgets/WizardSheet.h"

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

/// Runs the page of the source and the page of the parameters as a wizard. True when it was finished.
bool RunImportPages(QWidget* parent, CWizardPage& source, CWizardPage& parameters);
