#pragma once

#include "core/base/Messages.h"
#include "core/base/Progress.h"

#include <QString>

/// The user asked for the end (Ctrl-C) of an operation that has no cancel of its own. Not a std::exception: whoever
/// cleans up after anything lets it go on or ends the operation, nobody reports it as an error.
class Interrupted {};

/// The doors of the core, on a terminal or without one: messages go to standard error as they stand, questions are
/// answered No, and long work shows a bar on standard error when that is a terminal. In use while it lives.
class CTerminal : public IMessageDoor, public IProgressDoor {
public:
    CTerminal();
    ~CTerminal() override;
    CTerminal(const CTerminal&) = delete;
    CTerminal& operator=(const CTerminal&) = delete;

    Message::Answer Show(const Message& message) override;
    /// While it is open, Ctrl-C (and a polite end from outside) presses Cancel; where there is no Cancel, the next
    /// change of the window raises Interrupted. A second one ends the program.
    std::unique_ptr<IProgress> Open(const QString& title, bool showCancel) override;

    /// How many messages were errors.
    int ErrorCount() const { return m_errors; }
    /// Also when whoever was interrupted took Interrupted for its own cue and ended quietly.
    bool WasInterrupted() const { return m_interrupted; }
    /// Raises Interrupted.
    [[noreturn]] void Interrupt();

    /// Replaces the bar by this line; nothing when there is no terminal.
    void ShowBar(const QString& line);
    void HideBar() { ShowBar({}); }

private:
    DoorUse<IMessageDoor*> m_use;
    bool m_isTerminal;
    bool m_barShown = false;
    int m_errors = 0;
    bool m_interrupted = false;
};

/// A line of the result, to standard output.
void PrintLine(const QString& line);
/// Raises Failure when the output did not reach its place.
void FlushOutput();
