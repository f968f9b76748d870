#pragma once

#include "core/base/Progress.h"
#include "windows/registers/find/FindOwner.h"
#include "windows/widgets/commands/Commands.h"

class CDataStore;
class CRegisterView;

/// What other parts of the program tell a register.
enum class ViewMessage {
    WM_PRODUCTS_CHANGED, // products were added or changed by an import
    WM_MOVES_CHANGED,    // issues were added or changed by an import
    WM_COVERS_CHANGED,   // packaging rows were changed
    Refresh,             // reload everything, as F5 does
};

/// The frame, as a register sees it.
class IBroadcaster {
public:
    virtual ~IBroadcaster() = default;
    /// Reaches the active view and every other created view once each, but never `except`.
    virtual void Broadcast(ViewMessage message, CRegisterView* except) = 0;
    /// Where long work of a register shows how far it is.
    virtual IProgressDoor& Progress() { return SilentProgress(); }
    /// Tells the user something that asks for no answer.
    virtual void Say(const QString&) {}
};

/// A register: created on first use, kept, and told apart by the command that shows it.
class CRegisterView : public CFindOwner {
    Q_OBJECT

public:
    CRegisterView(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent);

    /// Creates the columns and fills the lists; called once, after construction.
    virtual void InitialUpdate() = 0;
    /// A command that the shown register does not handle is disabled.
    virtual bool Handles(Command command) const = 0;
    virtual void Run(Command command) = 0;
    /// A message that the register does not know is ignored.
    virtual void Receive(ViewMessage message) = 0;

protected:
    CDataStore& Store() const { return m_store; }
    IProgressDoor& Progress() const { return m_broadcaster.Progress(); }
    void Say(const QString& text) {
        if (!text.isEmpty())
            m_broadcaster.Say(text);
    }
    void TellOthers(ViewMessage message) { m_broadcaster.Broadcast(message, this); }

private:
    CDataStore& m_store;
    IBroadcaster& m_broadcaster;
};
