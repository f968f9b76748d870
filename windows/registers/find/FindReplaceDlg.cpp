#include "windows/registers/find/FindReplaceDlg.h"

#include "ui_FindReplaceDlg.h"
#include "windows/registers/find/FindOwner.h"
#include "windows/widgets/HelpButton.h"
#include "windows/widgets/Refuse.h"

#include <QCollator>
#include <QShortcut>
#include <QTabBar>
#include <QWindow>

#include <algorithm>

namespace {

constexpr int FindTab = 0;
constexpr int ReplaceTab = 1;

struct Choice {
    QString text;
    int value;
};

/// In the order of their texts.
std::vector<Choice> Choices(const FindArea& area) {
    std::vector<Choice> choices;
    if (area.kind == FindArea::Kind::Code) {
        const QStringList texts = MakeCodeList(area.codes);
        for (int code = 0; code < texts.size(); ++code)
            choices.push_back({texts[code], code});
    } else if (area.kind == FindArea::Kind::YesNo) {
        for (const bool value : {true, false})
            choices.push_back({FormatVariant(value), value});
    }
    QCollator czech(QLocale(QLocale::Czech, QLocale::CzechRepublic));
    czech.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(choices.begin(), choices.end(),
                     [&](const Choice& a, const Choice& b) { return czech.compare(a.text, b.text) < 0; });
    return choices;
}

/// The entry whose text stands in the combo, chosen or typed; −1 when there is none.
int ChosenEntry(const QComboBox& combo) {
    return combo.findText(combo.currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive);
}

Variant ValueOf(const QComboBox& combo, FindArea::Kind kind) {
    const int value = combo.itemData(ChosenEntry(combo)).toInt();
    switch (kind) {
    case FindArea::Kind::Code:
        return std::int32_t{value};
    case FindArea::Kind::YesNo:
        return value != 0;
    default:
        return combo.currentText();
    }
}

} // namespace

QPointer<CFindReplaceDlg>& CFindReplaceDlg::Window() {
    static QPointer<CFindReplaceDlg> window;
    return window;
}

bool CFindReplaceDlg::FindAgain(CFindOwner& owner) {
    CFindReplaceDlg* const window = Window();
    if (window == nullptr || window->m_owner != &owner || !window->m_asked)
        return false;
    window->m_request.mode = FindMode::FindNext;
    owner.FindReplace(window->m_request);
    return true;
}

void CFindReplaceDlg::Open(CFindOwner& owner, const std::string& field, FindMode mode) {
    QPointer<CFindReplaceDlg>& window = Window();
    if (window == nullptr)
        window = new CFindReplaceDlg(owner.window());
    window->OpenOn(owner, field, mode);
}

CFindReplaceDlg::CFindReplaceDlg(QWidget* window) : QDialog(window), m_ui(std::make_unique<Ui::FindReplaceDlg>()) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->cancel, HelpContext::FindReplace);
    m_ui->tabs->setExpanding(false);
    m_ui->tabs->addTab(QStringLiteral("Najít"));
    m_ui->tabs->addTab(QStringLiteral("Nahradit"));
    // The other buttons keep their places.
    for (QWidget* button : {m_ui->replace, m_ui->replaceAll}) {
        QSizePolicy policy = button->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        button->setSizePolicy(policy);
    }
    // With everything shown: the window does not grow when the mode changes.
    setMinimumSize(sizeHint());
    connect(m_ui->tabs, &QTabBar::currentChanged, this,
            [this](int tab) { ShowMode(tab == ReplaceTab ? FindMode::Replace : FindMode::FindNext); });
    connect(m_ui->area, &QComboBox::currentIndexChanged, this, &CFindReplaceDlg::OnAreaChanged);
    connect(m_ui->findNext, &QPushButton::clicked, this, [this] { OnRequest(FindMode::FindNext); });
    connect(m_ui->replace, &QPushButton::clicked, this, [this] { OnRequest(FindMode::Replace); });
    connect(m_ui->replaceAll, &QPushButton::clicked, this, [this] { OnRequest(FindMode::ReplaceAll); });
    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, m_ui->findNext, &QPushButton::click);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
}

CFindReplaceDlg::~CFindReplaceDlg() = default;

void CFindReplaceDlg::OpenOn(CFindOwner& owner, const std::string& field, FindMode mode) {
    if (m_owner != &owner) {
        if (m_owner != nullptr)
            m_owner->removeEventFilter(this);
        m_asked = false;
        owner.installEventFilter(this);
    }
    m_owner = &owner;
    m_ui->registerName->setText(QStringLiteral("Tabulka: ") + owner.FindName().trimmed());
    EnableButtons();
    FillAreas(field);
    ShowMode(mode);
    m_ui->find->setFocus();
    // Where the user left it: a window that is shown again would be placed anew, by the toolkit and by the desktop.
    if (isHidden() && windowHandle() != nullptr) {
        setAttribute(Qt::WA_Moved);
        windowHandle()->setFramePosition(pos());
    }
    show();
    raise();
    activateWindow();
}

/// While another register is shown, nothing is searched or replaced behind the user's back.
void CFindReplaceDlg::EnableButtons() {
    const bool shown = m_owner != nullptr && !m_owner->isHidden();
    for (QWidget* button : {m_ui->findNext, m_ui->replace, m_ui->replaceAll})
        button->setEnabled(shown);
}

bool CFindReplaceDlg::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_owner && (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent))
        EnableButtons();
    return QDialog::eventFilter(watched, event);
}

std::vector<std::string> CFindReplaceDlg::Fields() const {
    return m_owner != nullptr ? m_owner->FindFields() : std::vector<std::string>();
}

std::string CFindReplaceDlg::ChosenField() const {
    const std::vector<std::string> fields = Fields();
    const QVariant index = m_ui->area->currentData();
    return index.isValid() && index.toUInt() < fields.size() ? fields[index.toUInt()] : std::string();
}

void CFindReplaceDlg::FillAreas(const std::string& field) {
    const QSignalBlocker still(m_ui->area);
    m_ui->area->clear();
    const std::vector<std::string> fields = Fields();
    for (int index = 0; index < static_cast<int>(fields.size()); ++index)
        m_ui->area->addItem(AreaOf(fields[static_cast<std::size_t>(index)]).name, index);
    const auto chosen = std::find(fields.begin(), fields.end(), field);
    m_ui->area->setCurrentIndex(chosen == fields.end() ? -1 : static_cast<int>(chosen - fields.begin()));
    OnAreaChanged();
}

void CFindReplaceDlg::OnAreaChanged() {
    const std::vector<Choice> choices = Choices(AreaOf(ChosenField()));
    for (QComboBox* combo : {m_ui->find, m_ui->replaceWith}) {
        combo->clear();
        for (const Choice& choice : choices)
            combo->addItem(choice.text, choice.value);
        combo->setCurrentIndex(-1);
        combo->clearEditText();
    }
}

void CFindReplaceDlg::ShowMode(FindMode mode) {
    const bool replacing = mode != FindMode::FindNext;
    for (QWidget* control :
         std::initializer_list<QWidget*>{m_ui->replaceLabel, m_ui->replaceWith, m_ui->replace, m_ui->replaceAll})
        control->setVisible(replacing);
    m_ui->tabs->setCurrentIndex(replacing ? ReplaceTab : FindTab);
}

void CFindReplaceDlg::OnRequest(FindMode mode) {
    if (!TakeRequest(mode))
        return;
    m_asked = true;
    m_owner->FindReplace(m_request);
}

bool CFindReplaceDlg::TakeRequest(FindMode mode) {
    QComboBox& find = *m_ui->find;
    QComboBox& replaceWith = *m_ui->replaceWith;
    const bool replacing = mode != FindMode::FindNext;
    m_request.mode = mode;
    m_request.partial = m_ui->partial->isChecked();
    if (find.currentText().isEmpty())
        return Refuse(find, "Není zadána výchozí hodnota!");
    if (replacing && replaceWith.currentText() == find.currentText())
        return Refuse(replaceWith, "Nová hodnota je stejná jako stará hodnota!");
    if (m_ui->area->currentIndex() < 0)
        return Refuse(*m_ui->area, "Vyberte oblast hledání!");
    m_request.field = ChosenField();
    if (m_request.field.empty()) {
        FillAreas({});
        return false;
    }
    const FindArea::Kind kind = AreaOf(m_request.field).kind;
    if (kind != FindArea::Kind::Text) {
        if (ChosenEntry(find) < 0)
            return Refuse(find, "Není vybrána výchozí hodnota!");
        if (replacing && ChosenEntry(replaceWith) < 0)
            return Refuse(replaceWith, "Není vybrána nová hodnota!");
    }
    m_request.find = ValueOf(find, kind);
    m_request.replace = ValueOf(replaceWith, kind);
    return true;
}
