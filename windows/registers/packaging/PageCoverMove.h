#pragma once

#include "core/base/Currency.h"
#include "windows/widgets/WizardSheet.h"

#include <cstdint>
#include <memory>

class CDataStore;
class CRecordset;
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
    /// An issued cover as it is stored; a quantity that is not valid becomes 1. Raises ComError.
    void Read(const CRecordset& issued);
    /// In pieces, after the page was finished.
    Currency Quantity() const;
    /// The cover, its quantity and codes. Raises ComError.
    void Write(CRecordset& issued) const;

    void OnSetActive() override;
    bool OnWizardFinish() override;

private:
    void ShowCover();

    CDataStore& m_store;
    std::unique_ptr<Ui::PageCoverMove> m_ui;
    WeightLink* m_link;
    std::int32_t m_coverId = -1;
    std::int32_t m_type = -1;
    std::int32_t m_origin = -1;
    std::int32_t m_payment = -1;
};
