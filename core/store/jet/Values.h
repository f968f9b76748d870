#pragma once

#include "core/store/jet/Syntax.h"
#include "core/store/jet/Translator.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jet {

/// An expression in the engine's SQL and what it yields; no type for a literal that fits its neighbour.
struct Typed {
    std::string sql;
    std::optional<ValueType> type;

    bool IsNumber() const { return !type || type == ValueType::Long || type == ValueType::Currency; }
};

/// The tables whose columns a place in a statement may name, in the order of FROM.
using Scope = std::vector<const Table*>;
const Table* FindInScope(const Scope& scope, std::string_view name);

/// Two dates of one moment have one text: a stored day without a time is midnight.
std::string Moment(const std::string& sql);

/// Translates the values of one statement, whose literals become parameters of its translation. Members raise ComError
/// for what the dialect, the schema or the types do not know.
class Values {
public:
    /// The columns that a query with totals may name outside of them; none in a query, or a place, without totals.
    using Groups = std::optional<std::vector<std::string>>;

    Values(std::string_view sql, const Schema& schema, std::vector<Parameter>& parameters)
        : m_sql(sql), m_schema(schema), m_parameters(parameters) {}

    [[noreturn]] void Fail(const char* reason) const { RaiseSyntax(m_sql, reason); }
    const Table* NeedTable(std::string_view name) const;
    Scope ScopeOf(const Select& select) const;

    bool HasGroups() const { return m_groups.has_value(); }
    /// Answers those before.
    Groups PutGroups(Groups groups) { return std::exchange(m_groups, std::move(groups)); }

    std::string AddParameter(Parameter parameter);
    /// A number beside a currency is meant in whole units.
    std::string Number(const Expression& e, bool scaled);
    Typed Value(const Expression& e, const Scope& scope);
    std::string DateValue(const Expression& e, const Scope& scope);
    /// Both values of an operator; a number literal beside a currency becomes ten-thousandths.
    std::pair<Typed, Typed> Pair(const Expression& left, const Expression& right, const Scope& scope);

private:
    Typed ColumnValue(const Expression& e, const Scope& scope);
    /// A number that stands for itself, not beside a currency.
    std::string Whole(const Expression& e);
    Typed Negated(const Typed& value);
    void NeedAggregates() const;
    Typed Arithmetic(const Expression& e, const Scope& scope);
    Typed Sum(const Expression& e, const Scope& scope);
    Typed SumOfRows(const Expression& e, const Scope& scope);

    std::string_view m_sql;
    const Schema& m_schema;
    std::vector<Parameter>& m_parameters;
    Groups m_groups;
};

} // namespace jet
