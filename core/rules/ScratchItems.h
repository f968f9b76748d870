#pragma once

#include <cstdint>

class CDataStore;

/// The scratch copy of one composite cover's items, on which its dialog works.
namespace ScratchItems {

/// Empties the scratch table and copies the composite's items into it; none for an id that there is not. Raises
/// ComError; what was copied before stays.
void Load(CDataStore& store, std::int32_t compositeId);
/// Appends the scratch rows to the composite's items, within the edit that is open. Raises ComError; what was copied
/// before stays.
void Store(CDataStore& store, std::int32_t compositeId);

} // namespace ScratchItems
