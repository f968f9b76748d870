#pragma once

#include "core/base/Currency.h"
#include "windows/widgets/WizardSheet.h"

#include <memory>

namespace Ui {
class PageQty;
}

/// "Zadejte množství": the issued quantity of a product, in its unit.
class CPageQty : public CWizardPage {
    Q_OBJECT

public:
    CPageQty();
    ~CPageQty() override;

    /// A quantity that is not valid becomes 1.
    void SetQuantity(Currency quantity);
    Currency Quantity() const;

    void OnSetActive() override;
    bool OnWizardFinish() override;

private:
    std::unique_ptr<Ui::PageQty> m_ui;
};
