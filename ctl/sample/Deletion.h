#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

class CDataStore;

/// Runs the statements, which find the keys in the table TmpID, and empties it again. Raises ComError.
void DeleteSelection(CDataStore& store, const std::vector<std::int32_t>& keys,
                     std::initializer_list<std::string_view> statements);
