#pragma once

#include "core/base/Currency.h"
#include "core/base/DateTime.h"
#include "windows/widgets/WizardSheet.h"

#include <memory>

class CDataStore;
class CRecordset;
class WeightLink;
namespace Ui {
class PageDisc;
}

/// "Vyřazení obalu": one discard of a cover.
class CPageDisc : public CWizardPage {
    Q_OBJECT

public:
    CPageDisc(CDataStore& store, std::int32_t coverId);
    ~CPageDisc() override;

    /// Raises ComError.
    void Read(const CRecordset& discard);
    /// Everything but the cover. Raises ComError.
    void Write(CRecordset& discard) const;

    void OnSetActive() override;
    bool OnWizardFinish() override;

private:
    CDataStore& m_store;
    std::unique_ptr<Ui::PageDisc> m_ui;
    WeightLink* m_link;
    std::int32_t m_coverId;
};
