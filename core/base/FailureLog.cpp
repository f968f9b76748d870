#include "core/base/FailureLog.h"

#include <QDateTime>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

Q_LOGGING_CATEGORY(FailureLog, "kuvel.failures", QtFatalMsg)

namespace {

std::FILE* g_file = nullptr;
QtMessageHandler g_otherMessages = nullptr;

void TakeMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (qstrcmp(context.category, FailureLog().categoryName()) != 0)
        return g_otherMessages(type, context, text);
    const QString line = QDateTime::currentDateTime().toString(Qt::ISODateWithMs) + QLatin1Char(' ') + text;
    std::fprintf(g_file, "%s\n", line.toUtf8().constData());
    std::fflush(g_file);
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsLetterOrDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Digits after one of these are part of a name, of a path or of a parameter.
bool IsBeforeName(char c) {
    return IsLetterOrDigit(c) || c == '_' || c == '/' || c == '?' || static_cast<unsigned char>(c) >= 0x80;
}

} // namespace

void StartFailureLog() {
    const char* const path = std::getenv("KUVEL_LOG");
    if (path == nullptr || *path == '\0' || g_file != nullptr)
        return;
    g_file = std::fopen(path, "ae");
    if (g_file == nullptr) {
        qWarning("KUVEL_LOG: %s cannot be written", path);
        return;
    }
    g_otherMessages = qInstallMessageHandler(TakeMessage);
    const_cast<QLoggingCategory&>(FailureLog()).setEnabled(QtWarningMsg, true);
}

std::string WithoutLiterals(std::string_view text) {
    std::string masked;
    for (std::size_t i = 0; i < text.size();) {
        const char c = text[i];
        if (c == '\'' || c == '"' || c == '#') {
            // A doubled quote is two literals side by side; one that is not closed hides all that follows.
            i = std::min(text.find(c, i + 1), text.size() - 1) + 1;
            masked += '?';
        } else if (IsDigit(c) && (i == 0 || !IsBeforeName(text[i - 1]))) {
            while (i < text.size() && (IsLetterOrDigit(text[i]) || text[i] == '.'))
                ++i;
            masked += '?';
        } else {
            masked += c;
            ++i;
        }
    }
    return masked;
}
