#pragma once

#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"
#include "windows/registers/RegisterView.h"

#include <QDate>
#include <QTest>

#include <functional>
#include <vector>

class QComboBox;
class RecordList;

inline QString Czech(const char* text) {
    return QString::fromUtf8(text);
}

/// The steps of a user inside modal dialogs: each step waits for its dialog to come up, acts on it, and closes it.
/// Fails the test when a dialog does not come, or when a step was left over.
class Steps {
public:
    using Step = std::function<void(QWidget& dialog)>;

    Steps();
    ~Steps();
    Steps(const Steps&) = delete;
    Steps& operator=(const Steps&) = delete;

    void Then(Step step) { m_steps.push_back(std::move(step)); }
    /// What is done with a dialog that no step waits for.
    void Otherwise(Step step) { m_otherwise = std::move(step); }

private:
    void Look();

    std::vector<Step> m_steps;
    Step m_otherwise;
    QWidget* m_current = nullptr;
    QObject m_alive;
    int m_waited = 0;
};

/// Writes down what a register tells the others.
class RecordedFrame : public IBroadcaster {
public:
    void Broadcast(ViewMessage message, CRegisterView* except) override {
        told.push_back(message);
        lastExcept = except;
    }

    void Say(const QString& text) override { said = text.toStdString(); }

    std::vector<ViewMessage> told;
    /// What was said last.
    std::string said;
    CRegisterView* lastExcept = nullptr;
};

template <class Child>
Child& Find(QWidget& parent, const char* name) {
    auto* child = parent.findChild<Child*>(QString::fromLatin1(name));
    if (child == nullptr)
        throw std::runtime_error(std::string("no control ") + name);
    return *child;
}

/// Replaces an edit's text, key by key.
void TypeText(QWidget& dialog, const char* edit, const char* text);
/// Chooses an item with the keys Home and Down.
void Pick(QWidget& dialog, const char* combo, int row);
void Click(QWidget& dialog, const char* button);
/// The name of the control that has, or will have, the dialog's focus.
std::string Focus(const QWidget& dialog);
/// A control's text: an edit's or a list's, a date's, "ano" or "ne" for a check.
std::string ShownBy(QWidget& dialog, const char* control);
/// The context menu that is up, "+" after what is enabled, "|" for a separator; it is closed.
std::string TakeMenu();
/// The list's cells, fields separated by "|", rows by "\n".
std::string Rows(const RecordList& list);
/// One column of the list, separated by ", ".
std::string Names(const RecordList& list, int column = 0);
/// Every row of every table but the scratch ones.
std::string AllRows(const StoreFolder& folder);
void ClickRow(RecordList& list, int row, Qt::KeyboardModifiers modifiers = {});
void DoubleClickRow(RecordList& list, int row);
void ClickHeader(RecordList& list, int column);

// What a user does in a dialog and looks at in it, to be written one after the other.

using Act = Steps::Step;

Act InTurn(std::vector<Act> acts);
Act Typed(const char* edit, const char* text);
Act Picked(const char* combo, int row);
Act Clicked(const char* button);
Act Pressed(Qt::Key key);
/// A day typed into a date edit, which keeps its time.
Act Dated(const char* date, const QDate& day);
/// A row of a list.
Act Chose(const char* list, int row);
/// A drop-down list without a choice.
Act Emptied(const char* combo);
Act ShowsTitle(const char* title);
Act ShowsFocus(const char* control);
Act Shows(const char* control, const char* text);
/// The edit's text is selected, and is this.
Act ShowsSelected(const char* edit, const char* text);
Act ShowsEnabled(std::vector<const char*> controls, bool enabled);
/// Presses the button: a warning with this text comes, the dialog stays, the focus goes to the control.
Act Refused(ScriptedMessages& messages, const char* button, const char* warning, const char* focus);

/// A dialog that is spoilt in one way, refused for it, and cancelled.
struct Refusal {
    const char* what;
    Act spoil;
    const char* warning;
    const char* focus;
};
