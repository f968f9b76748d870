#pragma once

#include "windows/import/PageImpWAK.h"
#include "windows/import/PageImpWAKParam.h"

/// The wizard of the WAK INTRA import. Its settings are read when it is made and stored when it goes, however it was
/// closed.
class CWakWizard {
public:
    CWakWizard();
    ~CWakWizard();
    CWakWizard(const CWakWizard&) = delete;
    CWakWizard& operator=(const CWakWizard&) = delete;

    /// True when it was finished.
    bool Run(QWidget* parent);
    const WakOptions& Options() const { return m_options; }
    const WakDateRange& Range() const { return m_parameters.Range(); }

private:
    WakOptions m_options;
    CPageImpWAK m_connection;
    CPageImpWAKParam m_parameters;
};
