#pragma once

#include "core/import/ImportOptions.h"
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
    /// The options keep the year chosen last and must outlive the page.
    explicit CPageImpS3(MoneyOptions& options);
    ~CPageImpS3() override;

    /// After Next.
    const MoneyYear& Year() const { return m_year; }

    /// Lists the installation's years when the page is shown for the first time, and selects the one chosen last.
    void OnSetActive() override;
    bool OnWizardNext() override;
    /// The first key in the list, where nothing is selected yet, selects its first row. The folder is cut in its middle
    /// to the width that there is, except while it has the focus, to be copied.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void FillList();
    void AppendRow(const MoneyYear& year);
    void SelectRow(std::size_t row);
    bool SelectsFirstRow(const QEvent& event);
    int SelectedRow() const;
    void ShowSelected();
    void ShowFolder();
    void Browse();

    std::unique_ptr<Ui::PageImpS3> m_ui;
    CMoneyInstallation m_installation;
    MoneyOptions& m_options;
    bool m_listed = false;
    QString m_shownFolder;
    MoneyYear m_year;
};
