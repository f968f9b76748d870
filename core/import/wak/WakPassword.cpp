#include "core/import/wak/WakPassword.h"

#include "core/base/CodePage.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

constexpr std::array<std::uint8_t, LongestStoredPassword> Key = {0x5A, 0x13, 0xC7, 0xE2, 0x08, 0x9B, 0x44,
                                                                 0xF1, 0x6D, 0x20, 0xB8, 0x3E, 0x91, 0x07,
                                                                 0xCC, 0x5F, 0x72, 0xA9, 0x1D, 0x84};
constexpr qsizetype Digits = 2 * static_cast<qsizetype>(Key.size());

std::uint8_t SwapHalves(std::uint8_t byte) {
    return static_cast<std::uint8_t>(byte << 4 | byte >> 4);
}

} // namespace

QString ScrambleWakPassword(const QString& password) {
    if (password.isEmpty())
        return {};
    const QByteArray bytes = EncodeWindows1250(password).left(static_cast<qsizetype>(Key.size()));
    auto block = Key;
    for (qsizetype i = 0; i < bytes.size(); ++i)
        block[static_cast<std::size_t>(i)] ^= SwapHalves(static_cast<std::uint8_t>(bytes[i]));
    QString stored;
    for (std::size_t i = 0; i < block.size(); i += 2)
        stored += QString::asprintf("%04X", block[i] | block[i + 1] << 8);
    return stored;
}

QString UnscrambleWakPassword(const QString& stored) {
    if (stored.size() != Digits)
        return {};
    QByteArray bytes;
    for (std::size_t i = 0; i < Key.size(); i += 2) {
        const QStringView group = QStringView(stored).mid(2 * static_cast<qsizetype>(i), 4);
        // A number would be read past a blank or a sign, which is no digit here.
        if (!std::all_of(group.begin(), group.end(), [](QChar c) { return c < u'\x80' && std::isxdigit(c.unicode()); }))
            return {};
        const std::uint16_t number = group.toUShort(nullptr, 16);
        bytes.append(static_cast<char>(SwapHalves(static_cast<std::uint8_t>(number ^ Key[i]))));
        bytes.append(static_cast<char>(SwapHalves(static_cast<std::uint8_t>(number >> 8 ^ Key[i + 1]))));
    }
    const qsizetype end = bytes.indexOf('\0');
    return DecodeWindows1250(end < 0 ? bytes : bytes.left(end));
}
