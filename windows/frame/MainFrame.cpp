#include "windows/frame/MainFrame.h"

#include "windows/frame/KuvelDoc.h"
#include "windows/frame/MenuTable.h"
#include "windows/frame/StatusPanes.h"
#include "windows/widgets/DisabledWindow.h"
#include "windows/widgets/Guarded.h"
#include "windows/widgets/ScreenFit.h"
#include "windows/widgets/commands/CommandTable.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr int LayoutVersion = 1;
/// Milliseconds that the status bar keeps what a register says.
constexpr int SaidFor = 30000;

QString Key(const char* name) {
    return QStringLiteral("Kuvel/%1").arg(QString::fromLatin1(name));
}

} // namespace

CMainFrame::CMainFrame(CKuvelDoc& doc, std::span<const RegisterEntry> registers)
    : m_doc(doc), m_registers(new CRegisterArea(doc.Store(), registers, this)) {
    setObjectName(QStringLiteral("mainFrame"));
    setWindowTitle(QStringLiteral("Kuvel"));
    setMinimumSize(FittingSize(*this, {600, 400}));
    setContextMenuPolicy(Qt::NoContextMenu);
    setCentralWidget(m_registers);
    CreateActions();
    CreateMenus();
    m_tablesBar = CreateBar("tablesBar", QStringLiteral("Panel tabulek"), TablesBar());
    m_toolsBar = CreateBar("toolsBar", QStringLiteral("Panel nástrojů"), ToolsBar());
    m_statusPanes = new CStatusPanes(*statusBar());
    CreateHandlers();
    connect(m_registers, &CRegisterArea::Said, this,
            [this](const QString& text) { statusBar()->showMessage(text, SaidFor); });
    connect(m_registers, &CRegisterArea::Switched, this, &CMainFrame::UpdateCommands);
    resize(FittingSize(*this, {1280, 800}));
    RestoreLayout();
    if (!registers.empty())
        m_registers->Show(registers.front().show);
    UpdateCommands();
}

CMainFrame::~CMainFrame() = default;

void CMainFrame::CreateActions() {
    for (const CommandRow& row : AllCommands()) {
        auto* const action = new QAction(row.Icon(), row.Text(), this);
        action->setObjectName(QStringLiteral("command%1").arg(static_cast<int>(row.command)));
        action->setStatusTip(row.Prompt());
        action->setToolTip(row.ToolTip());
        action->setMenuRole(QAction::NoRole);
        action->setShortcuts(row.Keys());
        connect(action, &QAction::triggered, this, [this, command = row.command] { RunCommand(command); });
        addAction(action);
        m_actions[row.command] = action;
    }
    for (const Command command :
         {Command::ID_VIEW_TABLES_BAR, Command::ID_VIEW_TOOLS_BAR, Command::ID_VIEW_STATUS_BAR, Command::ID_SHOW_COVERS,
          Command::ID_SHOW_COMPOSITES, Command::ID_SHOW_PRODUCTS, Command::ID_SHOW_ISSUES})
        m_actions[command]->setCheckable(true);
}

void CMainFrame::CreateMenus() {
    QMenu* menus[2] = {};
    for (const MenuRow& row : MainMenu()) {
        if (row.command != Command{}) {
            menus[row.depth - 1]->addAction(m_actions[row.command]);
        } else if (row.text == nullptr) {
            menus[row.depth - 1]->addSeparator();
        } else {
            const QString text = QString::fromUtf8(row.text);
            QMenu*& menu = menus[row.depth];
            menu = row.depth == 0 ? menuBar()->addMenu(text) : menus[row.depth - 1]->addMenu(text);
            connect(menu, &QMenu::aboutToShow, this, &CMainFrame::UpdateCommands);
        }
    }
}

QToolBar* CMainFrame::CreateBar(const char* name, const QString& title, std::span<const Command> commands) {
    QToolBar* const bar = addToolBar(title);
    bar->setObjectName(QString::fromLatin1(name));
    for (const Command command : commands) {
        if (command == Command{}) {
            bar->addSeparator();
            continue;
        }
        QAction* const action = m_actions[command];
        bar->addAction(action);
        QWidget* const button = bar->widgetForAction(action);
        button->setObjectName(QStringLiteral("button%1").arg(static_cast<int>(command)));
        button->setAccessibleName(action->toolTip());
    }
    return bar;
}

void CMainFrame::CreateHandlers() {
    const auto toggle = [this](Command command, QWidget* bar) {
        SetHandler(command, [bar] { bar->setVisible(bar->isHidden()); });
    };
    toggle(Command::ID_VIEW_TABLES_BAR, m_tablesBar);
    toggle(Command::ID_VIEW_TOOLS_BAR, m_toolsBar);
    toggle(Command::ID_VIEW_STATUS_BAR, statusBar());
    SetHandler(Command::ID_APP_EXIT, [this] { close(); });
}

void CMainFrame::SetHandler(Command command, Handler handler) {
    m_handlers[command] = std::move(handler);
    UpdateCommands();
}

QAction* CMainFrame::Action(Command command) const {
    const auto found = m_actions.find(command);
    return found == m_actions.end() ? nullptr : found->second;
}

bool CMainFrame::IsCommandEnabled(Command command) const {
    const CRegisterView* const view = m_registers->ActiveView();
    return m_registers->Knows(command) || m_handlers.contains(command) || (view != nullptr && view->Handles(command));
}

bool CMainFrame::IsCommandChecked(Command command) const {
    switch (command) {
    case Command::ID_VIEW_TABLES_BAR:
        return !m_tablesBar->isHidden();
    case Command::ID_VIEW_TOOLS_BAR:
        return !m_toolsBar->isHidden();
    case Command::ID_VIEW_STATUS_BAR:
        return !statusBar()->isHidden();
    default:
        return m_registers->ActiveView() != nullptr && m_registers->ActiveCommand() == command;
    }
}

void CMainFrame::UpdateCommands() {
    for (const auto& [command, action] : m_actions) {
        action->setEnabled(IsCommandEnabled(command));
        if (action->isCheckable())
            action->setChecked(IsCommandChecked(command));
    }
}

void CMainFrame::RunCommand(Command command) {
    // A long operation disables the window, but its key strokes may still be on their way.
    if (!CDisabledWindow::TakesInput(*this) || !IsCommandEnabled(command))
        return;
    const bool wasActive = isActiveWindow();
    Guarded([=, this] {
        if (m_registers->Knows(command))
            m_registers->Show(command);
        else if (const auto handler = m_handlers.find(command); handler != m_handlers.end())
            handler->second();
        else
            m_registers->ActiveView()->Run(command);
    });
    UpdateCommands();
    // When a box and the dialog under it close at once, some desktops leave no window active.
    if (wasActive && isVisible() && QApplication::activeWindow() == nullptr)
        activateWindow();
}

void CMainFrame::BringForward() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    if (QWidget* const dialog = QApplication::activeModalWidget()) {
        dialog->raise();
        dialog->activateWindow();
    }
}

void CMainFrame::RestoreLayout() {
    const QSettings settings;
    restoreGeometry(settings.value(Key("geometry")).toByteArray());
    restoreState(settings.value(Key("bars")).toByteArray(), LayoutVersion);
    statusBar()->setVisible(settings.value(Key("statusBar"), true).toBool());
}

void CMainFrame::SaveLayout() const {
    QSettings settings;
    settings.setValue(Key("geometry"), saveGeometry());
    settings.setValue(Key("bars"), saveState(LayoutVersion));
    settings.setValue(Key("statusBar"), !statusBar()->isHidden());
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    // A window manager may ask a disabled window to close too.
    if (!CDisabledWindow::TakesInput(*this)) {
        event->ignore();
        return;
    }
    SaveLayout();
    event->accept();
    emit Closed();
}
