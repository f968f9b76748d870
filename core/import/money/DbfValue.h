#pragma once

#include "core/base/Variant.h"

#include <optional>
#include <string_view>

/// The field values of dBase and FoxPro records.
namespace dbf {

/// Without the blanks and zero bytes at its end.
std::string_view WithoutTail(std::string_view bytes);

/// The value of a field of this type from its bytes in the record; a text field is not for here. None when the bytes
/// are no value of the type, or the type is unknown. Blank fields and memo fields are null.
std::optional<Variant> ReadValue(char type, std::string_view bytes);

} // namespace dbf
