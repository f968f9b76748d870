#pragma once

#include "windows/import/ImportWizard.h"
#include "windows/import/PageImpS3.h"
#include "windows/import/PageImpS3Param.h"

/// The wizard of the Money S3 import.
class CMoneyWizard : public CImportWizard<MoneyOptions> {
public:
    /// True when it was finished.
    bool Run(QWidget* parent) { return RunPages(parent, m_years, m_parameters); }
    const MoneyYear& Year() const { return m_years.Year(); }

private:
    CPageImpS3 m_years{Options()};
    CPageImpS3Param m_parameters{Options()};
};
