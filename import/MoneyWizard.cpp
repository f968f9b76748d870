#include "import/MoneyWizard.h"

#include "import/PageImport.h"
#include "store/Messages.h"

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
