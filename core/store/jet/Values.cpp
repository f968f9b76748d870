#include "core/store/jet/Values.h"

#include "core/base/SameName.h"

#include <algorithm>

namespace jet {

namespace {

using Kind = Expression::Kind;

} // namespace

const Table* FindInScope(const Scope& scope, std::string_view name) {
    const auto found =
        std::find_if(scope.begin(), scope.end(), [&](const Table* table) { return SameName(table->name, name); });
    return found == scope.end() ? nullptr : *found;
}

std::string Moment(const std::string& sql) {
    return "substr(" + sql + " || ' 00:00:00', 1, 19)";
}

const Table* Values::NeedTable(std::string_view name) const {
    const Table* table = m_schema.FindTable(name);
    if (table == nullptr)
        Fail("neznámá tabulka");
    return table;
}

Scope Values::ScopeOf(const Select& select) const {
    Scope scope;
    for (const TableJoin& join : select.from) {
        if (FindInScope(scope, join.table) != nullptr)
            Fail("tabulka je uvedena dvakrát");
        scope.push_back(NeedTable(join.table));
    }
    return scope;
}

std::string Values::AddParameter(Parameter parameter) {
    m_parameters.push_back(parameter);
    return "?" + std::to_string(m_parameters.size());
}

std::string Values::Number(const Expression& e, bool scaled) {
    if (e.kind == Kind::Negate)
        return "(-" + Number(*e.operands[0], scaled) + ")"; // never "--", which opens a comment
    return AddParameter({scaled ? Parameter::Kind::Scaled : Parameter::Kind::Number, e.token.literal});
}

Typed Values::ColumnValue(const Expression& e, const Scope& scope) {
    Typed value;
    for (const Table* table : scope) {
        if (!e.qualifier.empty() && !SameName(table->name, e.qualifier))
            continue;
        const Column* column = table->FindColumn(e.name);
        if (column == nullptr)
            continue;
        if (value.type)
            Fail("název pole není jednoznačný");
        value = {table->name + "." + column->name, column->type};
        // Whatever another tool has stored, true is what is not 0.
        if (column->type == ValueType::Boolean)
            value.sql = "(" + value.sql + " <> 0)";
    }
    if (!value.type)
        Fail("neznámé pole");
    if (m_groups && std::find(m_groups->begin(), m_groups->end(), value.sql) == m_groups->end())
        Fail("pole není součástí seskupení");
    return value;
}

Typed Values::Value(const Expression& e, const Scope& scope) {
    switch (e.kind) {
    case Kind::Column:
        if (e.name.empty())
            Fail("hvězdička není hodnota");
        return ColumnValue(e, scope);
    case Kind::Literal:
        switch (e.token.kind) {
        case TokenKind::Text:
            return {AddParameter({Parameter::Kind::Text, e.token.literal}), ValueType::Text};
        case TokenKind::Date:
            return {AddParameter({Parameter::Kind::Date, e.token.literal}), ValueType::Date};
        default:
            return {Whole(e), std::nullopt};
        }
    case Kind::Truth:
        return {e.truth ? "1" : "0", ValueType::Boolean};
    case Kind::Negate:
        if (IsNumberLiteral(e))
            return {Whole(e), std::nullopt};
        return Negated(Value(*e.operands[0], scope));
    case Kind::Arithmetic:
        return Arithmetic(e, scope);
    case Kind::Sum:
        return Sum(*e.operands[0], scope);
    case Kind::CountAll:
        NeedAggregates();
        return {"count(*)", ValueType::Long};
    case Kind::DateDiff:
        return {"kuvel_datediff(" + DateValue(*e.operands[0], scope) + ", " + DateValue(*e.operands[1], scope) + ")",
                ValueType::Long};
    default:
        Fail("podmínka není hodnota");
    }
}

std::string Values::Whole(const Expression& e) {
    if (IsDecimal(e))
        Fail("neslučitelné typy");
    return Number(e, false);
}

Typed Values::Negated(const Typed& value) {
    if (value.type != ValueType::Long && value.type != ValueType::Currency)
        Fail("neslučitelné typy");
    return {"kuvel_exact(-(" + value.sql + "))", value.type};
}

void Values::NeedAggregates() const {
    if (!m_groups)
        Fail("souhrn zde být nesmí");
}

std::string Values::DateValue(const Expression& e, const Scope& scope) {
    const Typed value = Value(e, scope);
    if (value.type != ValueType::Date)
        Fail("neslučitelné typy");
    return value.sql;
}

Typed Values::Arithmetic(const Expression& e, const Scope& scope) {
    const Expression& left = *e.operands[0];
    const Expression& right = *e.operands[1];
    const auto [a, b] = Pair(left, right, scope);
    if (!a.IsNumber() || !b.IsNumber())
        Fail("neslučitelné typy");
    const bool bothCurrency = a.type == ValueType::Currency && b.type == ValueType::Currency;
    if (e.op == "*" && bothCurrency)
        return {"kuvel_mul(" + a.sql + ", " + b.sql + ")", ValueType::Currency};
    const bool anyCurrency = a.type == ValueType::Currency || b.type == ValueType::Currency;
    if ((anyCurrency && !bothCurrency) || (!anyCurrency && (IsDecimal(left) || IsDecimal(right))))
        Fail("neslučitelné typy");
    return {"kuvel_exact(" + a.sql + " " + std::string(e.op) + " " + b.sql + ")",
            anyCurrency ? ValueType::Currency : ValueType::Long};
}

std::pair<Typed, Typed> Values::Pair(const Expression& left, const Expression& right, const Scope& scope) {
    if (IsNumberLiteral(left) && !IsNumberLiteral(right)) {
        const Typed b = Value(right, scope);
        const bool scaled = b.type == ValueType::Currency;
        return {{Number(left, scaled), scaled ? b.type : std::nullopt}, b};
    }
    const Typed a = Value(left, scope);
    if (IsNumberLiteral(right)) {
        const bool scaled = a.type == ValueType::Currency;
        return {a, {Number(right, scaled), scaled ? a.type : std::nullopt}};
    }
    return {a, Value(right, scope)};
}

Typed Values::Sum(const Expression& e, const Scope& scope) {
    NeedAggregates();
    Groups groups = PutGroups(std::nullopt); // each row has every column
    Typed sum = SumOfRows(e, scope);
    m_groups = std::move(groups);
    return sum;
}

Typed Values::SumOfRows(const Expression& e, const Scope& scope) {
    if (e.kind == Kind::Arithmetic && e.op == "*") {
        const Typed a = Value(*e.operands[0], scope);
        const Typed b = Value(*e.operands[1], scope);
        if (a.type == ValueType::Currency && b.type == ValueType::Currency)
            return {"kuvel_sum_mul(" + a.sql + ", " + b.sql + ")", ValueType::Currency};
        Fail("neslučitelné typy");
    }
    const Typed value = Value(e, scope);
    if (value.type != ValueType::Currency && value.type != ValueType::Long)
        Fail("neslučitelné typy");
    return {"sum(" + value.sql + ")", value.type};
}

} // namespace jet
