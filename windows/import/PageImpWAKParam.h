#pragma once

#include "core/import/wak/WakOptions.h"
#include "windows/widgets/WizardSheet.h"

#include <memory>

namespace Ui {
class PageImpWAKParam;
}

/// "Parametry importu" of the WAK INTRA import. The days are those of the previous quarter until others are chosen.
class CPageImpWAKParam : public CWizardPage {
    Q_OBJECT

public:
    /// The options follow the controls and must outlive the page.
    explicit CPageImpWAKParam(WakOptions& options);
    ~CPageImpWAKParam() override;

    /// After Finish.
    const WakDateRange& Range() const { return m_range; }

    void OnSetActive() override;
    bool OnWizardFinish() override;

private:
    void EnableDates();

    std::unique_ptr<Ui::PageImpWAKParam> m_ui;
    WakOptions& m_options;
    WakDateRange m_range;
};
