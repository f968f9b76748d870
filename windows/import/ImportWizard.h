#pragma once

#include "core/base/Messages.h"
#include "windows/widgets/WizardSheet.h"

/// What the wizards of the imports share: two pages, and settings that are read when the wizard is made.
template <typename OptionsOf>
class CImportWizard {
public:
    CImportWizard(const CImportWizard&) = delete;
    CImportWizard& operator=(const CImportWizard&) = delete;

    OptionsOf& Options() { return m_options; }
    /// After the wizard, however it was closed, and after the import, which may change them too. Settings that cannot
    /// be written are told.
    void StoreOptions() { ShowSettingsError(m_options.Write()); }

protected:
    CImportWizard() { m_options.Read(); }
    ~CImportWizard() = default;

    /// True when it was finished.
    static bool RunPages(QWidget* parent, CWizardPage& source, CWizardPage& parameters) {
        CWizardSheet sheet(parent);
        sheet.setObjectName(QStringLiteral("importWizard"));
        sheet.AddPage(source);
        sheet.AddPage(parameters);
        return sheet.Run();
    }

private:
    OptionsOf m_options;
};
