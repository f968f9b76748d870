#include "windows/import/PageImpS3.h"

#include "core/base/FileDoor.h"
#include "ui_PageImpS3.h"
#include "windows/widgets/Refuse.h"
#include "windows/widgets/WaitCursor.h"

#include <QDir>
#include <QHeaderView>
#include <QKeyEvent>

CPageImpS3::CPageImpS3(MoneyOptions& options)
    : m_ui(std::make_unique<Ui::PageImpS3>()), m_installation(CDriveMap::FromEnvironment()), m_options(options) {
    m_ui->setupUi(this);
    QHeaderView& header = *m_ui->agendaList->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
    header.setSectionResizeMode(1, QHeaderView::Interactive);
    header.resizeSection(1, std::max(80, fontMetrics().horizontalAdvance(QStringLiteral("<není> 0000"))));
    // It can be copied, but shall not look like a field.
    QPalette palette = m_ui->yearFolder->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    m_ui->yearFolder->setPalette(palette);
    m_ui->agendaList->installEventFilter(this);
    m_ui->yearFolder->installEventFilter(this);
    connect(m_ui->agendaList, &QTreeWidget::itemSelectionChanged, this, &CPageImpS3::ShowSelected);
    connect(m_ui->browseButton, &QPushButton::clicked, this, &CPageImpS3::Browse);
}

CPageImpS3::~CPageImpS3() = default;

void CPageImpS3::OnSetActive() {
    Sheet().SetButtons(CWizardSheet::Ending::Next);
    if (!m_listed)
        FillList();
    m_listed = true;
    m_ui->agendaList->setFocus();
}

void CPageImpS3::FillList() {
    const WaitCursor wait;
    m_installation.List();
    for (const MoneyYear& year : m_installation.Years())
        AppendRow(year);
    if (const std::optional<std::size_t> row = m_installation.FindAgain(m_options.lastYear))
        SelectRow(*row);
}

void CPageImpS3::AppendRow(const MoneyYear& year) {
    new QTreeWidgetItem(m_ui->agendaList, {year.agendaName, year.yearName});
}

int CPageImpS3::SelectedRow() const {
    const QList<QTreeWidgetItem*> selected = m_ui->agendaList->selectedItems();
    return selected.isEmpty() ? -1 : m_ui->agendaList->indexOfTopLevelItem(selected.front());
}

void CPageImpS3::ShowSelected() {
    const int row = SelectedRow();
    m_shownFolder = row < 0
                        ? QString()
                        : QDir::toNativeSeparators(m_installation.Years()[static_cast<std::size_t>(row)].yearFolder);
    m_ui->yearFolder->setToolTip(m_shownFolder);
    ShowFolder();
}

void CPageImpS3::ShowFolder() {
    QLineEdit& edit = *m_ui->yearFolder;
    // The room that the field keeps around its text.
    const int room = edit.width() - edit.fontMetrics().averageCharWidth() * 2;
    edit.setText(edit.hasFocus() ? m_shownFolder : edit.fontMetrics().elidedText(m_shownFolder, Qt::ElideMiddle, room));
    edit.setCursorPosition(0);
}

void CPageImpS3::Browse() {
    const QString folder = FileDoor()->ChooseFolder({windowTitle(), m_shownFolder, {}, {}});
    if (folder.isEmpty())
        return;
    if (const std::optional<std::size_t> row = m_installation.ChooseFolder(QDir::fromNativeSeparators(folder))) {
        SelectRow(*row);
        m_ui->agendaList->setFocus();
    }
}

void CPageImpS3::SelectRow(std::size_t row) {
    if (row == static_cast<std::size_t>(m_ui->agendaList->topLevelItemCount()))
        AppendRow(m_installation.Years()[row]);
    QTreeWidgetItem* const item = m_ui->agendaList->topLevelItem(static_cast<int>(row));
    m_ui->agendaList->setCurrentItem(item);
    m_ui->agendaList->scrollToItem(item);
}

bool CPageImpS3::OnWizardNext() {
    const int row = SelectedRow();
    if (row < 0)
        return Refuse(*m_ui->agendaList, "Není vybrána agenda!");
    m_year = m_installation.Years()[static_cast<std::size_t>(row)];
    m_options.lastYear = QDir::toNativeSeparators(m_year.yearFolder);
    return true;
}

bool CPageImpS3::eventFilter(QObject* object, QEvent* event) {
    if (object == m_ui->agendaList && event->type() == QEvent::KeyPress && SelectsFirstRow(*event))
        return true;
    const bool handled = CWizardPage::eventFilter(object, event);
    if (object == m_ui->yearFolder &&
        (event->type() == QEvent::Resize || event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut))
        ShowFolder();
    return handled;
}

bool CPageImpS3::SelectsFirstRow(const QEvent& event) {
    if (SelectedRow() >= 0 || m_ui->agendaList->topLevelItemCount() == 0)
        return false;
    switch (static_cast<const QKeyEvent&>(event).key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_Space:
        m_ui->agendaList->setCurrentItem(m_ui->agendaList->topLevelItem(0));
        return true;
    default:
        return false;
    }
}
