#pragma once

#include "windows/widgets/WizardSheet.h"

#include <cstdint>

class CDataStore;
class RecordList;

/// "Vyberte výrobek": a product is chosen with Next.
class CPageProd : public CWizardPage {
    Q_OBJECT

public:
    explicit CPageProd(CDataStore& store);

    /// After Next.
    std::int32_t ChosenId() const { return m_chosenId; }

    /// Fills the list when the page is shown for the first time.
    void OnSetActive() override;
    bool OnWizardNext() override;
    QString Chosen() const override;

private:
    RecordList* m_products;
    bool m_filled = false;
    std::int32_t m_chosenId = -1;
};
