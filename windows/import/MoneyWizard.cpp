#include "windows/import/MoneyWizard.h"

#include "core/base/Messages.h"
#include "windows/import/PageImport.h"

#include <cerrno>

namespace {

MoneyOptions StoredOptions() {
    MoneyOptions options;
    options.Read();
    return options;
}

} // namespace

CMoneyWizard::CMoneyWizard() : m_options(StoredOptions()), m_parameters(m_options) {}

CMoneyWizard::~CMoneyWizard() {
    if (!m_options.Write())
        ShowWin32Error(errno);
}

bool CMoneyWizard::Run(QWidget* parent) {
    return RunImportPages(parent, m_years, m_parameters);
}
