#pragma once

#include "windows/frame/RegisterTable.h"

#include <QStackedWidget>

#include <vector>

/// The client area of the main window: the registers created so far, one of which is shown.
class CRegisterArea : public QStackedWidget, public IBroadcaster {
    Q_OBJECT

public:
    CRegisterArea(CDataStore& store, std::span<const RegisterEntry> registers, QWidget* parent);

    /// Creates the register on first use. Nothing happens when it is the one shown, or is not in the table.
    void Show(Command command);
    CRegisterView* ActiveView() const;
    /// The command that shows the active register.
    Command ActiveCommand() const { return m_active; }
    /// True for a command that shows a register.
    bool Knows(Command command) const;
    void Broadcast(ViewMessage message, CRegisterView* except) override;
    IProgressDoor& Progress() override { return *m_progress; }
    void Say(const QString& text) override { emit Said(text); }
    /// Until it is set, long work shows nothing.
    void SetProgress(IProgressDoor& progress) { m_progress = &progress; }

signals:
    void Switched();
    void Said(const QString& text);

private:
    struct CreatedView {
        Command show;
        CRegisterView* view;
    };
    CRegisterView* Find(Command command) const;
    CRegisterView* Create(Command command);

    CDataStore& m_store;
    std::span<const RegisterEntry> m_registers;
    std::vector<CreatedView> m_created;
    Command m_active{};
    IProgressDoor* m_progress = &SilentProgress();
};
