#pragma once

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

/// UTF-8 texts one after the other, each found by its place: four bytes and the characters, without a block of memory
/// of its own. Lists of a million rows hold theirs so.
class CPackedTexts {
public:
    /// Answers the place of the text.
    std::int64_t Add(std::string_view text);
    /// Valid until a text is added.
    std::string_view At(std::int64_t place) const;
    QString Text(std::int64_t place) const;
    void Clear() { m_bytes.clear(); }

private:
    std::string m_bytes;
};
