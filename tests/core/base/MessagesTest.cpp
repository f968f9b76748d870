#include "core/base/Messages.h"
#include "core/base/AppDir.h"
#include "core/base/SystemError.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <cstdlib>

TEST(MessageTexts, ErrorsHaveTheirExactWords) {
    const ComError error("Execute", "SELECT", 0x80040E14, "Chyba %1 syntaxe.");
    const std::pair<std::function<void()>, QString> cases[] = {
        {[] { ShowWin32Error(SystemError(ENOENT)); }, "Došlo k chybě č.2\n\nNo such file or directory"},
        {[] { ShowWin32Error(SystemError(ENOSPC), "Záloha"); }, "Záloha\n\nChyba č.28. No space left on device"},
        {[] { ShowWin32Error(SystemError(99999)); }, "Došlo k chybě č.99999\n\nNeznámá chyba"},
        {[] { ShowSettingsError(SystemError(EISDIR)); },
         "Nemohu zapsat soubor '" + SettingsPath() + "'\n\nChyba č.21. Is a directory"},
        {[] { ShowHResultError(0x1A, "text"); }, "Došlo k chybě č.0x0000001A\n\ntext"},
        {[] { ShowHResultError(0x80004005, "text", "Předpona"); }, "Předpona\n\nChyba č.0x80004005. text"},
        {[] { ShowHResultError(0x80004005, {}); }, "Došlo k chybě č.0x80004005\n\nNeznámá chyba"},
        {[] { ShowHResultError(1, QString(1001, 'x')); }, "Došlo k chybě č.0x00000001\n\n" + QString(1000, 'x')},
        {[&] { ShowComError(error); }, "Došlo k chybě COM č.0x80040E14\n\nChyba %1 syntaxe."},
        {[&] { ShowComError(error, "Předpona"); }, "Předpona\n\nCOM chyba č.0x80040E14. Chyba %1 syntaxe."},
    };
    setenv("LC_ALL", "C", 1);
    for (const auto& [show, text] : cases) {
        ScriptedMessages messages;
        messages.Expect(text, Message::Icon::Error);
        show();
    }
    unsetenv("LC_ALL");
}

TEST(MessageTexts, OnlyYesProceeds) {
    for (const auto answer : {Message::Answer::Yes, Message::Answer::No, Message::Answer::Ok}) {
        ScriptedMessages messages;
        messages.ExpectQuestion("?", answer);
        EXPECT_EQ(AskYesNo("?"), answer == Message::Answer::Yes);
    }
}

TEST(MessageTexts, WithoutADoorTextGoesToStandardErrorAndQuestionsAreDeclined) {
    testing::internal::CaptureStderr();
    ShowWarning("Zadejte uživatele!");
    EXPECT_FALSE(AskYesNo("Přepsat?"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Zadejte uživatele!\nPřepsat?\n");
}

TEST(ComErrorText, WhatNamesOperationTextAndCode) {
    const ComError error("Open", "Kuvel.mdb", ResultCode::Corrupt, "vadný soubor");
    EXPECT_STREQ(error.what(), "Open: vadný soubor (0x80070570): Kuvel.mdb");
}
