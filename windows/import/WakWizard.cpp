#include "windows/import/WakWizard.h"

#include "core/base/Messages.h"
#include "windows/import/PageImport.h"

namespace {

WakOptions StoredOptions() {
    WakOptions options;
    options.Read();
    return options;
}

} // namespace

CWakWizard::CWakWizard() : m_options(StoredOptions()), m_connection(m_options), m_parameters(m_options) {}

CWakWizard::~CWakWizard() {
    ShowSettingsError(m_options.Write());
}

bool CWakWizard::Run(QWidget* parent) {
    return RunImportPages(parent, m_connection, m_parameters);
}
