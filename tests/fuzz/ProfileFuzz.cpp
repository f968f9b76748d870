#include "core/base/CodePage.h"
#include "core/base/ProfileText.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

/// A settings file of any bytes, after a section, a key and a value, each of up to seven bytes and led by its length.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QByteArrayView rest(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto next = [&rest] {
        const qsizetype length = rest.isEmpty() ? 0 : qMin<qsizetype>(rest.front() & 7, rest.size() - 1);
        const QString text = DecodeWindows1250(rest.isEmpty() ? rest : rest.sliced(1, length));
        rest = rest.isEmpty() ? rest : rest.sliced(1 + length);
        return text;
    };
    const QString section = next();
    const QString key = next();
    const QString value = next();

    ProfileText text(rest.toByteArray());
    const QByteArray before = text.Bytes();
    if (!text.SetValue(section, key, value)) {
        return text.Bytes() == before ? 0 : (std::abort(), 0);
    }
    // What was written is read back, and finds its own line again.
    ProfileText again(text.Bytes());
    const auto ends = [](QChar c) { return c == u'\r' || c == u'\n' || c == u'\0'; };
    const QString expected(value.cbegin(), std::find_if(value.cbegin(), value.cend(), ends) - value.cbegin());
    if (again.Value(section, key) != expected || !again.SetValue(section, key, value) ||
        again.Bytes() != text.Bytes()) {
        std::abort();
    }
    return 0;
}
