#pragma once

#include "core/base/Progress.h"
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
    /// The options follow the controls; both must outlive the page. The test runs under a progress window.
    CPageImpWAK(WakOptions& options, IProgressDoor& progress);
    ~CPageImpWAK() override;

    void OnSetActive() override;
    bool OnWizardNext() override { return Check(); }

private:
    /// Warns of what is missing; trims what is not.
    bool Check();
    void EnableLogin();
    /// Warns beside the password of what will not arrive as it was typed.
    void NotePassword();
    void TestConnection();
    /// False after a message or a cancel.
    bool Connects();

    std::unique_ptr<Ui::PageImpWAK> m_ui;
    WakOptions& m_options;
    IProgressDoor& m_progress;
};
