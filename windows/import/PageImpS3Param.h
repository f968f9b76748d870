#pragma once

#include "core/import/ImportOptions.h"
#include "windows/widgets/WizardSheet.h"

#include <memory>

namespace Ui {
class PageImpS3Param;
}

/// "Parametry importu" of the Money S3 import.
class CPageImpS3Param : public CWizardPage {
    Q_OBJECT

public:
    /// The options follow the controls and must outlive the page.
    explicit CPageImpS3Param(MoneyOptions& options);
    ~CPageImpS3Param() override;

    void OnSetActive() override;
    bool OnWizardFinish() override;

private:
    void EnableControls();

    std::unique_ptr<Ui::PageImpS3Param> m_ui;
    MoneyOptions& m_options;
};
