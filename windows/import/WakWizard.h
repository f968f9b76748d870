#pragma once

#include "windows/import/ImportWizard.h"
#include "windows/import/PageImpWAK.h"
#include "windows/import/PageImpWAKParam.h"

/// The wizard of the WAK INTRA import.
class CWakWizard : public CImportWizard<WakOptions> {
public:
    explicit CWakWizard(IProgressDoor& progress) : m_connection(Options(), progress) {}

    /// True when it was finished.
    bool Run(QWidget* parent) { return RunPages(parent, m_connection, m_parameters); }
    const WakDateRange& Range() const { return m_parameters.Range(); }

private:
    CPageImpWAK m_connection;
    CPageImpWAKParam m_parameters{Options()};
};
