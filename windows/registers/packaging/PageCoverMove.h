#pragma once

#include "core/rules/records/IssuedCover.h"
#include "windows/widgets/WizardSheet.h"

#include <memory>

class CDataStore;
class WeightLink;
struct CoverChoice;
namespace Ui {
class PageCoverMove;
}

/// "Zadejte množství": how many pieces of a cover went out; what else the cover is stands there to be read.
class CPageCoverMove : public CWizardPage {
    Q_OBJECT

public:
    explicit CPageCoverMove(CDataStore& store);
    ~CPageCoverMove() override;

    /// The cover that the page before chose, with the values that its use starts from.
    void SetCover(const CoverChoice& cover);
    void SetValues(const IssuedCover& values);
    /// After the page was finished.
    const IssuedCover& Values() const { return m_values; }

    void OnSetActive() override;
    bool OnWizardFinish() override;

private:
    void ShowCover();

    CDataStore& m_store;
    std::unique_ptr<Ui::PageCoverMove> m_ui;
    WeightLink* m_link;
    IssuedCover m_values;
};
