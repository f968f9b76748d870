#pragma once

#include "windows/import/PageImpS3.h"
#include "windows/import/PageImpS3Param.h"

/// The wizard of the Money S3 import. Its settings are read when it is made and stored when it goes, however it was
/// closed; so it must live as long as the import, which changes them too.
class CMoneyWizard {
public:
    CMoneyWizard();
    ~CMoneyWizard();
    CMoneyWizard(const CMoneyWizard&) = delete;
    CMoneyWizard& operator=(const CMoneyWizard&) = delete;

    /// True when it was finished.
    bool Run(QWidget* parent);
    const MoneyYear& Year() const { return m_years.Year(); }
    MoneyOptions& Options() { return m_options; }

private:
    MoneyOptions m_options;
    CPageImpS3 m_years;
    CPageImpS3Param m_parameters;
};
