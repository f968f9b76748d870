#include "core/base/Messages.h"

#include "core/base/AppDir.h"

#include <QStringDecoder>

#include <langinfo.h>
#include <locale.h>

#include <cstdio>
#include <cstring>

namespace {
class StandardErrorDoor : public IMessageDoor {
public:
    Message::Answer Show(const Message& message) override {
        for (const QString& line : {message.text, message.detail})
            if (!line.isEmpty())
                std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData());
        return message.buttons == Message::Buttons::YesNo ? Message::Answer::No : Message::Answer::Ok;
    }
};
} // namespace

Door<IMessageDoor*>& MessageDoor() {
    static StandardErrorDoor first;
    static Door<IMessageDoor*> door(&first);
    return door;
}

void ShowMessage(const QString& text, Message::Icon icon) {
    MessageDoor()->Show({text, icon, Message::Buttons::Ok});
}

static bool Ask(const QString& text, const QString& detail, Message::Answer preset) {
    return MessageDoor()->Show({text, Message::Icon::Question, Message::Buttons::YesNo, detail, preset}) ==
           Message::Answer::Yes;
}

bool AskYesNo(const QString& text, const QString& detail) {
    return Ask(text, detail, Message::Answer::Yes);
}

bool AskToLose(const QString& text, const QString& detail) {
    return Ask(text, detail, Message::Answer::No);
}

/// In the user's language, whether or not the program has set the process's locale; empty for an unknown code.
static QString SystemText(int code) {
    if (!strerrordesc_np(code)) {
        return {};
    }
    const locale_t users = newlocale(LC_CTYPE_MASK | LC_MESSAGES_MASK, "", nullptr);
    if (!users) {
        return QString::fromLatin1(strerrordesc_np(code));
    }
    QStringDecoder decoder(nl_langinfo_l(CODESET, users));
    const char* text = strerror_l(code, users);
    QString decoded = decoder.isValid() ? QString(decoder(text)) : QString::fromUtf8(text);
    freelocale(users);
    return decoded;
}

static QString OrUnknown(const QString& text) {
    return text.isEmpty() ? QStringLiteral("Neznámá chyba") : text.left(1000);
}

static QString Hexadecimal(std::uint32_t code) {
    return QString::asprintf("0x%08X", code);
}

/// `sentence` stands alone with the code; after a prefix, `label` stands before it.
static void ShowError(const QString& prefix, const QString& sentence, const QString& label, const QString& code,
                      const QString& text) {
    ShowMessage(prefix.isEmpty() ? sentence + code + QStringLiteral("\n\n") + text
                                 : prefix + QStringLiteral("\n\n") + label + code + QStringLiteral(". ") + text,
                Message::Icon::Error);
}

void ShowWin32Error(const std::error_code& error, const QString& prefix) {
    ShowError(prefix, QStringLiteral("Došlo k chybě č."), QStringLiteral("Chyba č."), QString::number(error.value()),
              OrUnknown(SystemText(error.value())));
}

void ShowSettingsError(const std::error_code& error) {
    if (error)
        ShowWin32Error(error, QStringLiteral("Nemohu zapsat soubor '%1'").arg(SettingsPath()));
}

void ShowHResultError(std::uint32_t code, const QString& text, const QString& prefix) {
    ShowError(prefix, QStringLiteral("Došlo k chybě č."), QStringLiteral("Chyba č."), Hexadecimal(code),
              OrUnknown(text));
}

void ShowComError(const ComError& error, const QString& prefix) {
    ShowError(prefix, QStringLiteral("Došlo k chybě COM č."), QStringLiteral("COM chyba č."), Hexadecimal(error.Code()),
              error.Description());
}
