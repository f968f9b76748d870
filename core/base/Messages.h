#pragma once

#include "core/base/ComError.h"
#include "core/base/Door.h"

#include <QString>

#include <cstdint>
#include <system_error>

/// A modal message box, as the core asks for it.
struct Message {
    enum class Icon { None, Error, Question, Warning, Information };
    enum class Buttons { Ok, YesNo };
    enum class Answer { Ok, Yes, No };

    QString text;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    /// What stands below the text: of what it speaks.
    QString detail{};
    /// The answer of the Enter key.
    Answer preset = Answer::Yes;
};

/// The one door through which the core, and every window, shows a message box.
class IMessageDoor {
public:
    virtual ~IMessageDoor() = default;
    /// Shows the message and waits for the answer. Closing a Yes/No box without an answer is No.
    virtual Message::Answer Show(const Message& message) = 0;
};

/// Until something is put in, messages go to standard error and questions are answered No.
Door<IMessageDoor*>& MessageDoor();

void ShowMessage(const QString& text, Message::Icon icon = Message::Icon::None);
inline void ShowWarning(const QString& text) {
    ShowMessage(text, Message::Icon::Warning);
}
/// True only for Yes.
bool AskYesNo(const QString& text, const QString& detail = {});
/// The same before something is lost: Enter answers No.
bool AskToLose(const QString& text, const QString& detail = {});

/// For a failed file operation. A prefix replaces the leading sentence.
void ShowWin32Error(const std::error_code& error, const QString& prefix = {});
/// For settings that could not be kept: names the settings file. Nothing is shown when there is no error.
void ShowSettingsError(const std::error_code& error);
/// For an object that cannot be created, and for a connection that cannot be opened.
void ShowHResultError(std::uint32_t code, const QString& text, const QString& prefix = {});
/// For every error that an operation caught.
void ShowComError(const ComError& error, const QString& prefix = {});
