#pragma once

#include <string_view>

/// Equal but for the case of ASCII letters, as the names of tables and columns are.
bool SameName(std::string_view a, std::string_view b);
