#pragma once

#include "core/base/Variant.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// The field values of dBase and FoxPro records.
namespace dbf {

/// Without the blanks and zero bytes at its end.
std::string_view WithoutTail(std::string_view bytes);

/// The value of a field of this type from its bytes in the record; text and memo fields are not for here. None when the
/// bytes are no value of the type, or the type is unknown. Blank fields, and those of pictures, are null.
std::optional<Variant> ReadValue(char type, std::string_view bytes);

/// Where in the memo file the text of a memo field begins: digits, or four bytes. 0 is a field without a text; none
/// when the bytes are no number.
std::optional<std::uint32_t> ReadMemoBlock(std::string_view bytes);

/// The bytes of a field that cannot be read as its type, as a message shows them.
QString ShownBytes(char type, std::string_view bytes);

} // namespace dbf
