#include "windows/widgets/WizardSheet.h"

#include "windows/widgets/TypedEdit.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>

namespace {

/// Makes Tab go to the chosen one of each group, from where the arrows choose another; the toolkit sees to it only once
/// one of them has had the focus.
void LetTabFindChosen(const QWidget& page) {
    for (QRadioButton* const button : page.findChildren<QRadioButton*>())
        button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace

void CWizardPage::OnSetActive() {
    Sheet().SetButtons(Sheet().IsLast(*this) ? CWizardSheet::Ending::Finish : CWizardSheet::Ending::Next);
}

CWizardSheet::CWizardSheet(QWidget* parent) : QDialog(parent), m_subject(new QLabel), m_stack(new QStackedWidget) {
    m_subject->setObjectName(QStringLiteral("subject"));
    m_subject->setTextFormat(Qt::PlainText);
    QFont bold(m_subject->font());
    bold.setBold(true);
    m_subject->setFont(bold);
    // However long, it goes by the pages' width.
    m_subject->setWordWrap(true);
    m_subject->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_subject->hide();
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    auto* row = new QHBoxLayout;
    row->addStretch();
    const auto add = [&](const char* name, const QString& text) {
        auto* button = new QPushButton(text);
        button->setObjectName(QString::fromLatin1(name));
        row->addWidget(button);
        return button;
    };
    m_back = add("back", QStringLiteral("< &Zpět"));
    m_next = add("next", QStringLiteral("&Další >"));
    m_finish = add("finish", QStringLiteral("Dokončit"));
    QPushButton* cancel = add("cancel", QStringLiteral("Storno"));
    cancel->setAutoDefault(false);
    QPushButton* help = add("help", QStringLiteral("Nápověda"));
    help->setAutoDefault(false);
    m_back->setAutoDefault(false);

    auto* all = new QVBoxLayout(this);
    all->addWidget(m_subject);
    all->addWidget(m_stack);
    all->addWidget(line);
    all->addLayout(row);
    connect(m_back, &QPushButton::clicked, this, [this] { Show(m_current - 1); });
    connect(m_next, &QPushButton::clicked, this, &CWizardSheet::PressNext);
    connect(m_finish, &QPushButton::clicked, this, &CWizardSheet::PressFinish);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(help, &QPushButton::clicked, this, [this] {
        // What each page needs is known to the key.
        QKeyEvent key(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
        QCoreApplication::sendEvent(&Current(), &key);
    });
}

CWizardSheet::~CWizardSheet() {
    for (CWizardPage* page : m_pages) {
        m_stack->removeWidget(page);
        page->setParent(nullptr);
        page->m_sheet = nullptr;
    }
}

void CWizardSheet::AddPage(CWizardPage& page) {
    page.m_sheet = this;
    m_pages.append(&page);
    m_stack->addWidget(&page);
}

void CWizardSheet::SetSubject(const QString& subject) {
    m_about = subject;
    ShowSubject();
}

void CWizardSheet::ShowSubject() {
    QStringList subject{m_about};
    for (int before = 0; before < m_current; ++before)
        subject.append(m_pages[before]->Chosen());
    subject.removeAll(QString());
    m_subject->setText(subject.join(QStringLiteral(" – ")));
    m_subject->setVisible(!subject.empty());
}

bool CWizardSheet::Run() {
    m_back->setVisible(!IsOnlyPage());
    if (IsOnlyPage())
        m_finish->setText(QStringLiteral("OK"));
    Show(0);
    return exec() == Accepted;
}

void CWizardSheet::Show(int index) {
    m_current = index;
    ShowSubject();
    setWindowTitle(Current().windowTitle());
    m_stack->setCurrentWidget(&Current());
    m_back->setEnabled(index > 0);
    LetTabFindChosen(Current());
    Current().OnSetActive();
}

void CWizardSheet::SetButtons(Ending ending) {
    const bool finishes = ending == Ending::Finish;
    m_next->setVisible(!finishes);
    m_finish->setVisible(finishes);
    (finishes ? m_finish : m_next)->setDefault(true);
}

void CWizardSheet::PressNext() {
    if (m_next->isVisible() && CheckTyped(Current()) && Current().OnWizardNext())
        Show(m_current + 1);
}

void CWizardSheet::PressFinish() {
    if (m_finish->isVisible() && CheckTyped(Current()) && Current().OnWizardFinish())
        accept();
}
