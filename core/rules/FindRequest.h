#pragma once

#include "core/base/Variant.h"
#include "core/rules/Fields.h"

#include <cstdint>
#include <string>

enum class FindMode : std::uint8_t { FindNext = 0, Replace = 1, ReplaceAll = 2 };

/// What the find-and-replace window asks of a register: a value of one field, and what to put in its place.
struct FindRequest {
    FindMode mode = FindMode::FindNext;
    std::string field;
    /// Text, code (32-bit integer) or yes/no, by the field's kind.
    Variant find;
    /// Of the same kind; for the two modes that replace.
    Variant replace;
    /// Of a text field any part may match, and only that part is replaced.
    bool partial = false;

    /// The records that match, as the store searches for them; texts go in as they were typed.
    std::string Criterion() const;
    /// What a matching field holds after the replacement.
    Variant Replaced(const Variant& current) const;
};

/// What replacing all came to.
struct ReplacedAll {
    std::int64_t replaced = 0;
    /// Records that were found, but only in another case, so that they were written as they were.
    std::int64_t unchanged = 0;

    QString Text() const;
};

/// A field that can be searched, as the user sees it.
struct FindArea {
    /// Text, Code or YesNo.
    using Kind = RecordField::Kind;

    QString name;
    Kind kind = Kind::Text;
    CodeList codes{};
};

/// A field that is not known, or not searched, is a text under its own name.
FindArea AreaOf(const std::string& field);
