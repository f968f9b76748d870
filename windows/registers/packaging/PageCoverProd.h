#pragma once

#include "core/rules/records/PackagingRule.h"
#include "windows/widgets/WizardSheet.h"

#include <memory>

class CDataStore;
class WeightLink;
struct CoverChoice;
namespace Ui {
class PageCoverProd;
}

/// "Údaje balení": the values of one packaging row.
class CPageCoverProd : public CWizardPage {
    Q_OBJECT

public:
    explicit CPageCoverProd(CDataStore& store);
    ~CPageCoverProd() override;

    /// Quantities that are not valid become their defaults.
    void SetRule(const PackagingRule& rule);
    /// The cover and its values, as the page before chose them; the quantities stay.
    void SetCover(const CoverChoice& cover);
    /// After the page was finished.
    const PackagingRule& Rule() const { return m_rule; }

    void OnSetActive() override;
    bool OnWizardFinish() override;

private:
    void EnableRange();

    CDataStore& m_store;
    std::unique_ptr<Ui::PageCoverProd> m_ui;
    WeightLink* m_link;
    PackagingRule m_rule;
};
