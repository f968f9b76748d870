#pragma once

#include "core/import/money/MoneyInstallation.h"
#include "windows/widgets/WizardSheet.h"

#include <memory>

namespace Ui {
class PageImpS3;
}

/// "Vyberte účetní rok Money": an agenda's year is chosen from the list or as a folder.
class CPageImpS3 : public CWizardPage {
    Q_OBJECT

public:
    CPageImpS3();
    ~CPageImpS3() override;

    /// After Next.
    const MoneyYear& Year() const { return m_year; }

    /// Lists the installation's years when the page is shown for the first time.
    void OnSetActive() override;
    bool OnWizardNext() override;
    /// The first key in the list, where nothing is selected yet, selects its first row.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void FillList();
    void AppendRow(const MoneyYear& year);
    int SelectedRow() const;
    void ShowSelected();
    void Browse();

    std::unique_ptr<Ui::PageImpS3> m_ui;
    CMoneyInstallation m_installation;
    bool m_listed = false;
    MoneyYear m_year;
};
