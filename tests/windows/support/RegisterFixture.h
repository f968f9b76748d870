#pragma once

#include "core/rules/Propagation.h"
#include "tests/windows/support/Driver.h"
#include "windows/widgets/IconButton.h"
#include "windows/widgets/lists/RecordList.h"

#include <gtest/gtest.h>

#include <memory>

/// A register in a window of its own, on rows of its own: three covers with discards; two composite covers; three
/// products, packed and issued; or two issues with items and covers.
struct OpenRegister {
    explicit OpenRegister(Command show);

    RecordList& List(const char* name) const { return Find<RecordList>(*view, name); }
    CIconButton& Button(Command command) const;
    bool FilterIsLatched() const { return Button(Command::ID_RECORD_FILTER).isChecked(); }
    /// Every list's rows.
    std::string ShownRows() const;
    void Execute(Command command) const { view->Run(command); }
    /// Runs the command and does this in its dialog.
    void Do(Command command, std::vector<Act> acts);
    /// In a dialog: does this in the one that its button opens.
    Act Opening(const char* button, std::vector<Act> acts);
    Act IsRefused(const char* button, const char* warning, const char* focus) {
        return Refused(messages, button, warning, focus);
    }
    /// Runs the command for each fault that its dialog refuses.
    void DoRefused(Command command, const char* button, const std::vector<Refusal>& refusals);
    void ExpectVanished() {
        messages.Expect(Czech("Záznam byl odstraněn jinou aplikací!"), Message::Icon::Information);
    }
    /// The store fails "DELETE ON Cover WHEN …" from here on.
    void Fault(const std::string& when) const;
    /// Runs this and expects one message of the store, from a fault.
    void ExpectError(const std::function<void()>& act);
    /// Nothing but this many notifications that packaging rows changed, each sent past the register itself.
    void ExpectTold(std::size_t times);

    StoreFolder folder;
    ScriptedMessages messages;
    RecordedFrame frame;
    std::unique_ptr<CRegisterView> view;
    Steps steps;
};

template <Command Show>
class RegisterTest : public testing::Test, protected OpenRegister {
protected:
    RegisterTest() : OpenRegister(Show) {}
};

/// On the page of covers: chooses a simple cover and goes on.
Act ChoseCover(int row);
/// Chooses a composite cover, which ends the sheet.
Act ChoseComposite(int row);
