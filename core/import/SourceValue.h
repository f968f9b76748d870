#pragma once

#include "core/base/ComError.h"
#include "core/base/Variant.h"

#include <optional>
#include <string_view>

/// Where a value stands in its source.
struct SourcePlace {
    QString table;
    /// From 1.
    std::int64_t record = 0;
    /// The number of the document that the record belongs to; empty when there is none.
    QString document;
    QString field;
};

/// A value that cannot be read as what it has to be. Its description names the place and the value.
class UnreadableValue : public ComError {
public:
    UnreadableValue(const SourcePlace& place, const QString& value);

    const QString& Value() const { return m_value; }

private:
    QString m_value;
};

/// The current record of a source, field by field, as what the program keeps of it: the one conversion of every import.
/// What is there is read whole or raises UnreadableValue; a field that is empty is a null.
class CSourceFields {
public:
    virtual ~CSourceFields() = default;

    /// A whole number that the database's keys can hold. An empty field is `whenEmpty`, without which it raises.
    std::int32_t Key(std::string_view field, std::optional<std::int32_t> whenEmpty = {}) const;
    /// A whole number that is not kept, so that it may be longer than a key.
    std::int64_t Whole(std::string_view field, std::optional<std::int64_t> whenEmpty = {}) const;
    /// A text or a null; numbers and days in the way they are shown.
    Variant Text(std::string_view field) const;
    /// To four decimals.
    Currency Quantity(std::string_view field) const;
    DateTime Date(std::string_view field) const;
    /// True for what is not nought; an empty field is false.
    bool Flag(std::string_view field) const;

    /// Named from here on in errors.
    void SetDocument(const QString& number) { m_document = number; }

protected:
    explicit CSourceFields(const QString& table) : m_table(table) {}

    /// A number that none of the types holds exactly comes as a text. Raises UnreadableValue, whose place is not
    /// looked at, and ComError.
    virtual Variant Read(std::string_view field) const = 0;
    /// From 1.
    virtual std::int64_t Record() const = 0;

private:
    Variant Value(std::string_view field) const;
    [[noreturn]] void Refuse(std::string_view field, const QString& value) const;

    QString m_table;
    QString m_document;
};
