#pragma once

#include "windows/frame/RegisterArea.h"

#include <QMainWindow>

#include <functional>
#include <map>

class CKuvelDoc;
class CStatusPanes;
class QAction;
class QMenu;
class QToolBar;

/// The main window: menus, bars and the register that is shown.
class CMainFrame : public QMainWindow {
    Q_OBJECT

public:
    using Handler = std::function<void()>;

    explicit CMainFrame(CKuvelDoc& doc, std::span<const RegisterEntry> registers = Registers());
    ~CMainFrame() override;

    /// What the command does; until it is set, the command is disabled.
    void SetHandler(Command command, Handler handler);
    /// Nothing happens for a command that is disabled. An error of the store is shown.
    void RunCommand(Command command);
    bool IsCommandEnabled(Command command) const;
    bool IsCommandChecked(Command command) const;
    QAction* Action(Command command) const;

    CKuvelDoc& Document() const { return m_doc; }
    CRegisterArea& RegisterArea() const { return *m_registers; }
    /// Comes to the front where it stands, with the modal dialog over it.
    void BringForward();

signals:
    void Closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void CreateActions();
    void CreateMenus();
    QToolBar* CreateBar(const char* name, const QString& title, std::span<const Command> commands);
    void CreateHandlers();
    void UpdateCommands();
    void RestoreLayout();
    void SaveLayout() const;

    CKuvelDoc& m_doc;
    CRegisterArea* m_registers;
    CStatusPanes* m_statusPanes = nullptr;
    QToolBar* m_tablesBar = nullptr;
    QToolBar* m_toolsBar = nullptr;
    std::map<Command, QAction*> m_actions;
    std::map<Command, Handler> m_handlers;
};
