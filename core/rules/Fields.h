#pragma once

#include "core/base/CodeLists.h"

#include <string_view>

/// A field of the tables, or of a query over them, as lists and the find window show it.
struct RecordField {
    enum class Kind {
        Text,
        Code,
        YesNo,
        /// A number or a date, which is shown but not searched for.
        Value,
        /// A quantity that counts only in a packaging row that does not apply always.
        RangeEnd,
    };

    const char* name;
    /// Over its column.
    const char* caption;
    Kind kind = Kind::Text;
    /// Of a code.
    CodeList codes{};
    /// In the find window, where that differs.
    const char* areaName = nullptr;

    bool IsSearched() const { return kind == Kind::Text || kind == Kind::Code || kind == Kind::YesNo; }
};

/// Null for a field that is not known. Names are compared without regard to case.
const RecordField* FindField(std::string_view name);
