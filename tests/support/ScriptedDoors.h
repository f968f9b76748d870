#pragma once

#include "core/base/Messages.h"
#include "core/base/Progress.h"

#include <functional>
#include <vector>

/// Answers the messages that a test expects, in order, and fails the test on one that it did not, and on one that did
/// not come. In use while it lives.
class ScriptedMessages : public IMessageDoor {
public:
    ~ScriptedMessages() override;

    /// An OK box with exactly this text.
    void Expect(const QString& text, Message::Icon icon);
    void ExpectQuestion(const QString& text, Message::Answer answer);
    /// Run while the next message is shown, before it is answered.
    void Meanwhile(std::function<void()> act) { m_meanwhile = std::move(act); }
    /// Accepts any message from here on, and collects them; questions are answered so.
    void AcceptAny(Message::Answer answer = Message::Answer::No) {
        m_acceptAny = true;
        m_anyAnswer = answer;
    }
    const std::vector<Message>& Shown() const { return m_shown; }

    Message::Answer Show(const Message& message) override;

private:
    struct Expected {
        Message message;
        Message::Answer answer;
    };
    std::vector<Expected> m_expected;
    std::vector<Message> m_shown;
    std::function<void()> m_meanwhile;
    bool m_acceptAny = false;
    Message::Answer m_anyAnswer = Message::Answer::No;
    DoorUse<IMessageDoor*> m_use{MessageDoor(), this};
};

/// Writes down what a progress window is told: "title …", "phase …", "detail …", "position …", "closed".
class RecordedProgress : public IProgressDoor {
public:
    std::unique_ptr<IProgress> Open(const QString& title, bool showCancel) override;

    std::vector<QString> lines;
    /// Cancel answers true when asked for the n-th time, counted from 1; 0 is never.
    int cancelAt = 0;
    int asked = 0;
    /// Run each time the position moves.
    std::function<void()> onPosition;
    /// Run each time a phase begins.
    std::function<void()> onPhase;
};
