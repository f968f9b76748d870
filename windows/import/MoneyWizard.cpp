#include "windows/import/MoneyWizard.h"

#include "core/base/Messages.h"
#include "windows/import/PageImport.h"

namespace {

MoneyOptions StoredOptions() {
    MoneyOptions options;
    options.Read();
    return options;
}

} // namespace

CMoneyWizard::CMoneyWizard() : m_options(StoredOptions()), m_parameters(m_options) {}

CMoneyWizard::~CMoneyWizard() {
    ShowSettingsError(m_options.Write());
}

bool CMoneyWizard::Run(QWidget* parent) {
    return RunImportPages(parent, m_years, m_parameters);
}
