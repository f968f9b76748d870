#pragma once

#include "core/rules/records/DiscardValues.h"
#include "windows/widgets/WizardSheet.h"

#include <memory>

class CDataStore;
class WeightLink;
namespace Ui {
class PageDisc;
}

/// "Vyřazení obalu": one discard of a cover.
class CPageDisc : public CWizardPage {
    Q_OBJECT

public:
    explicit CPageDisc(CDataStore& store);
    ~CPageDisc() override;

    void SetValues(const DiscardValues& values);
    /// After the page was finished.
    const DiscardValues& Values() const { return m_values; }

    void OnSetActive() override;
    bool OnWizardFinish() override;

private:
    CDataStore& m_store;
    std::unique_ptr<Ui::PageDisc> m_ui;
    WeightLink* m_link;
    DiscardValues m_values;
};
