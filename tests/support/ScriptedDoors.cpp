#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

ScriptedMessages::~ScriptedMessages() {
    for (const Expected& expected : m_expected)
        ADD_FAILURE() << "this message did not come: " << expected.message.text.toStdString();
}

void ScriptedMessages::Expect(const QString& text, Message::Icon icon) {
    m_expected.push_back({{text, icon, Message::Buttons::Ok}, Message::Answer::Ok});
}

void ScriptedMessages::ExpectQuestion(const QString& text, Message::Answer answer) {
    m_expected.push_back({{text, Message::Icon::Question, Message::Buttons::YesNo}, answer});
}

Message::Answer ScriptedMessages::Show(const Message& message) {
    m_shown.push_back(message);
    if (m_meanwhile) {
        const auto act = std::exchange(m_meanwhile, nullptr);
        act();
    }
    if (m_expected.empty()) {
        if (!m_acceptAny)
            ADD_FAILURE() << "a message that was not expected: " << message.text.toStdString();
        return message.buttons == Message::Buttons::Ok ? Message::Answer::Ok : m_anyAnswer;
    }
    const Expected expected = m_expected.front();
    m_expected.erase(m_expected.begin());
    EXPECT_EQ(expected.message.text.toStdString(), message.text.toStdString());
    EXPECT_EQ(static_cast<int>(expected.message.icon), static_cast<int>(message.icon)) << message.text.toStdString();
    EXPECT_EQ(static_cast<int>(expected.message.buttons), static_cast<int>(message.buttons))
        << message.text.toStdString();
    return expected.answer;
}

namespace {

class RecordedWindow : public IProgress {
public:
    explicit RecordedWindow(RecordedProgress& door) : m_door(door) {}
    ~RecordedWindow() override { m_door.lines.push_back(QStringLiteral("closed")); }
    void SetRange(int low, int high) override {
        m_door.lines.push_back(QStringLiteral("range %1 %2").arg(low).arg(high));
    }
    void SetPhaseText(const QString& text) override {
        m_door.lines.push_back(QStringLiteral("phase ") + text);
        if (m_door.onPhase)
            m_door.onPhase();
    }
    void SetDetailText(const QString& text) override { m_door.lines.push_back(QStringLiteral("detail ") + text); }
    void SetPosition(int position) override {
        m_door.lines.push_back(QStringLiteral("position %1").arg(position));
        if (m_door.onPosition)
            m_door.onPosition();
    }
    bool CancelRequested() override { return ++m_door.asked == m_door.cancelAt; }

private:
    RecordedProgress& m_door;
};

} // namespace

std::unique_ptr<IProgress> RecordedProgress::Open(const QString& title, bool showCancel) {
    lines.push_back(QStringLiteral("title ") + title + (showCancel ? QStringLiteral(" (cancel)") : QString()));
    return std::make_unique<RecordedWindow>(*this);
}
