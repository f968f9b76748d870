#pragma once

#include "core/base/DateTime.h"
#include "windows/widgets/WizardSheet.h"

#include <memory>

namespace Ui {
class PageDateRange;
}

/// "Zadejte časovou platnost": the day from which a packaging is valid, first today.
class CPageDateRange : public CWizardPage {
    Q_OBJECT

public:
    CPageDateRange();
    ~CPageDateRange() override;

    DateTime Date() const;
    void OnSetActive() override;

private:
    std::unique_ptr<Ui::PageDateRange> m_ui;
};
