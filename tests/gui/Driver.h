#pragma once

#include "registers/RegisterView.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

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

private:
    void Look();

    std::vector<Step> m_steps;
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

    std::vector<ViewMessage> told;
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
/// The list's cells, fields separated by "|", rows by "\n".
std::string Rows(const RecordList& list);
/// The first column of the list, separated by ", ".
std::string Names(const RecordList& list);
void ClickRow(RecordList& list, int row, Qt::KeyboardModifiers modifiers = {});
void DoubleClickRow(RecordList& list, int row);
void ClickHeader(RecordList& list, int column);
