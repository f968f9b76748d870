#include "store/Messages.h"
#include "store/Progress.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <functional>
#include <vector>

namespace {
class ScriptedDoor : public IMessageDoor {
public:
    Message::Answer Show(const Message& message) override {
        shown.push_back(message);
        return answer;
    }
    Message::Answer answer = Message::Answer::Ok;
    std::vector<Message> shown;
};

class MessageTexts : public testing::Test {
protected:
    void SetUp() override {
        setenv("LC_ALL", "C", 1);
        m_before = SetMessageDoor(&m_door);
    }
    void TearDown() override {
        SetMessageDoor(m_before);
        unsetenv("LC_ALL");
    }
    ScriptedDoor m_door;
    IMessageDoor* m_before = nullptr;
};
} // namespace

TEST_F(MessageTexts, ErrorsHaveTheirExactWords) {
    const ComError error("Execute", "SELECT", 0x80040E14, "Chyba %1 syntaxe.");
    const struct {
        std::function<void()> show;
        QString text;
    } cases[] = {
        {[] { ShowWin32Error(ENOENT); }, "Došlo k chybě č.2\n\nNo such file or directory"},
        {[] { ShowWin32Error(ENOSPC, "Záloha"); }, "Záloha\n\nChyba č.28. No space left on device"},
        {[] { ShowWin32Error(99999); }, "Došlo k chybě č.99999\n\nNeznámá chyba"},
        {[] { ShowWin32Error(-1, "%1"); }, "%1\n\nChyba č.-1. Neznámá chyba"},
        {[] { ShowHResultError(0x1A, "text"); }, "Došlo k chybě č.0x0000001A\n\ntext"},
        {[] { ShowHResultError(0x80004005, "text", "Předpona"); }, "Předpona\n\nChyba č.0x80004005. text"},
        {[] { ShowHResultError(0x80004005, {}); }, "Došlo k chybě č.0x80004005\n\nNeznámá chyba"},
        {[] { ShowHResultError(1, QString(1001, 'x')); }, "Došlo k chybě č.0x00000001\n\n" + QString(1000, 'x')},
        {[&] { ShowComError(error); }, "Došlo k chybě COM č.0x80040E14\n\nChyba %1 syntaxe."},
        {[&] { ShowComError(error, "Předpona"); }, "Předpona\n\nCOM chyba č.0x80040E14. Chyba %1 syntaxe."},
    };
    for (const auto& c : cases) {
        m_door.shown.clear();
        c.show();
        ASSERT_EQ(m_door.shown.size(), 1U);
        EXPECT_EQ(m_door.shown[0].text, c.text);
        EXPECT_EQ(m_door.shown[0].icon, Message::Icon::Error);
        EXPECT_EQ(m_door.shown[0].buttons, Message::Buttons::Ok);
    }
}

TEST_F(MessageTexts, OnlyYesProceeds) {
    for (const auto answer : {Message::Answer::Yes, Message::Answer::No, Message::Answer::Ok}) {
        m_door.answer = answer;
        EXPECT_EQ(AskYesNo("?"), answer == Message::Answer::Yes);
        EXPECT_EQ(m_door.shown.back().icon, Message::Icon::Question);
        EXPECT_EQ(m_door.shown.back().buttons, Message::Buttons::YesNo);
    }
}

TEST_F(MessageTexts, WithoutADoorTextGoesToStandardErrorAndQuestionsAreDeclined) {
    ScriptedDoor second;
    EXPECT_EQ(SetMessageDoor(&second), &m_door);
    EXPECT_EQ(SetMessageDoor(nullptr), &second);
    testing::internal::CaptureStderr();
    ShowWarning("Zadejte uživatele!");
    EXPECT_FALSE(AskYesNo("Přepsat?"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Zadejte uživatele!\nPřepsat?\n");
    EXPECT_TRUE(m_door.shown.empty());
}

TEST(SilentProgressDoor, SilentWindowIsNeverCancelled) {
    const auto window = SilentProgress().Open("Import", true);
    ASSERT_NE(window, nullptr);
    window->SetPosition(200);
    EXPECT_FALSE(window->CancelRequested());
}

TEST(ComErrorText, WhatNamesOperationTextAndCode) {
    const ComError error("Open", "Kuvel.mdb", ResultCode::Corrupt, "vadný soubor");
    EXPECT_STREQ(error.what(), "Open: vadný soubor (0x80070570): Kuvel.mdb");
}
