#pragma once

#include <QDialog>
#include <QList>

class CWizardSheet;
class QLabel;
class QPushButton;
class QStackedWidget;

/// A page of a sheet; its window title is the sheet's title while it is shown.
class CWizardPage : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// The page is about to be shown: it sets the sheet's buttons and the focus. As it stands: Next, or on the last
    /// page Finish.
    virtual void OnSetActive();
    /// False: stay on the page.
    virtual bool OnWizardNext() { return true; }
    virtual bool OnWizardFinish() { return true; }
    /// What is chosen on the page, for the pages after it to name; empty where there is no such thing.
    virtual QString Chosen() const { return {}; }

protected:
    CWizardSheet& Sheet() const { return *m_sheet; }

private:
    friend class CWizardSheet;
    CWizardSheet* m_sheet = nullptr;
};

/// A property sheet in wizard mode. A page alone in its sheet has an "OK" where the last of several has the finish
/// button.
class CWizardSheet : public QDialog {
    Q_OBJECT

public:
    enum class Ending { Next, Finish };

    explicit CWizardSheet(QWidget* parent);
    /// The pages belong to the caller and may outlive the sheet.
    ~CWizardSheet() override;

    void AddPage(CWizardPage& page);
    /// What the sheet is about, above its pages, with what was chosen on the pages before; nothing stands there without
    /// either.
    void SetSubject(const QString& subject);
    /// True when the sheet was ended by the finish button.
    bool Run();

    /// Back is enabled on every page but the first.
    void SetButtons(Ending ending);
    bool IsOnlyPage() const { return m_pages.size() == 1; }
    bool IsLast(const CWizardPage& page) const { return m_pages.back() == &page; }
    /// As if the button were pressed.
    void PressNext();
    void PressFinish();

private:
    void Show(int index);
    void ShowSubject();
    CWizardPage& Current() const { return *m_pages[m_current]; }

    QList<CWizardPage*> m_pages;
    int m_current = 0;
    QString m_about;
    QLabel* m_subject;
    QStackedWidget* m_stack;
    QPushButton* m_back;
    QPushButton* m_next;
    QPushButton* m_finish;
};
