#pragma once

#include "windows/widgets/lists/ListColumn.h"

/// A list of packaging rows, of a product's definition or of a composite cover.
ListSpec PackagingRows(const char* objectName, const char* keyField);
