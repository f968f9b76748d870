#pragma once

#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"
#include "windows/frame/KuvelDoc.h"
#include "windows/frame/MainFrame.h"

#include <QSettings>

/// A register that writes down what reaches it.
class CRecordedView : public CRegisterView {
public:
    CRecordedView(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent);

    void InitialUpdate() override { ++updates; }
    bool Handles(Command command) const override;
    void Run(Command command) override { ran.push_back(command); }
    void Receive(ViewMessage message) override { received.push_back(message); }
    void Tell(ViewMessage message) { TellOthers(message); }

    int updates = 0;
    std::vector<Command> ran;
    std::vector<ViewMessage> received;
};

/// A user whose bars and windows have never been moved, while it lives.
class FreshSettings {
public:
    FreshSettings();

private:
    QTemporaryDir m_folder;
};

/// The main window over an empty database, with registers that only write down.
struct FrameFolder {
    FreshSettings settings;
    StoreFolder f;
    ScriptedMessages messages;
    CKuvelDoc document{f.store};
    std::unique_ptr<CMainFrame> frame;

    FrameFolder() { Open(); }
    /// Closes the window, if one is open, and opens another one.
    void Open();
    CRecordedView& View() const { return static_cast<CRecordedView&>(*frame->RegisterArea().ActiveView()); }
};
