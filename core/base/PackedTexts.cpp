#include "core/base/PackedTexts.h"

#include <cstring>

std::int64_t CPackedTexts::Add(std::string_view text) {
    const auto place = static_cast<std::int64_t>(m_bytes.size());
    const auto size = static_cast<std::uint32_t>(text.size());
    m_bytes.append(reinterpret_cast<const char*>(&size), sizeof size);
    m_bytes.append(text);
    return place;
}

std::string_view CPackedTexts::At(std::int64_t place) const {
    std::uint32_t size = 0;
    std::memcpy(&size, m_bytes.data() + place, sizeof size);
    return {m_bytes.data() + place + sizeof size, size};
}

QString CPackedTexts::Text(std::int64_t place) const {
    const std::string_view text = At(place);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
