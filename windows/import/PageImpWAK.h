#pragma once

#include "core/import/wak/WakOptions.h"
#include "windows/widgets/WizardSheet.h"

#include <memory>

namespace Ui {
class PageImpWAK;
}

/// "Připojení k databázi WAK ": where the database is, and the login to it.
class CPageImpWAK : public CWizardPage {
    Q_OBJECT

public:
    /// The options follow the controls and must outlive the page.
    explicit CPageImpWAK(WakOptions& options);
    ~CPageImpWAK() override;

    void OnSetActive() override;
    bool OnWizardNext() override { return Check(); }

private:
    /// Warns of what is missing; trims what is not.
    bool Check();
    void EnableLogin();
    void TestConnection();

    std::unique_ptr<Ui::PageImpWAK> m_ui;
    WakOptions& m_options;
};
