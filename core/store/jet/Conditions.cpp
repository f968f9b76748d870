#include "core/store/jet/Conditions.h"

#include <utility>

namespace jet {

namespace {

using Kind = Expression::Kind;

} // namespace

std::string Conditions::OneComparison(const Expression& e, const Scope& scope) {
    const bool single = (e.kind == Kind::Compare || e.kind == Kind::Like) && e.operands[0]->kind == Kind::Column;
    if (!single)
        m_values.Fail("hledat lze jen podle jednoho porovnání");
    return Condition(e, scope);
}

std::string Conditions::FromWhere(const Select& select, const Scope& scope) {
    std::string sql;
    for (std::size_t i = 0; i < scope.size(); ++i) {
        sql += (i == 0 ? " FROM " : " JOIN ") + scope[i]->name;
        if (select.from[i].on)
            sql += " ON " + Condition(*select.from[i].on, Scope(scope.begin(), scope.begin() + i + 1));
    }
    if (select.where)
        sql += " WHERE " + Condition(*select.where, scope);
    return sql;
}

std::string Conditions::Condition(const Expression& e, const Scope& scope) {
    switch (e.kind) {
    case Kind::And:
    case Kind::Or:
        return "(" + Chain(e, scope) + ")";
    case Kind::Not: {
        const bool before = std::exchange(m_underNot, true);
        const std::string condition = Condition(*e.operands[0], scope);
        m_underNot = before;
        return "NOT (" + condition + ")";
    }
    case Kind::IsNull:
        return m_values.Value(*e.operands[0], scope).sql + " IS NULL";
    case Kind::Like: {
        const Typed text = m_values.Value(*e.operands[0], scope);
        if (text.type != ValueType::Text || !IsLiteral(*e.operands[1], TokenKind::Text))
            m_values.Fail("neslučitelné typy");
        return "kuvel_like(" + m_values.Value(*e.operands[1], scope).sql + ", " + text.sql + ")";
    }
    case Kind::In: {
        const Typed value = m_values.Value(*e.operands[0], scope);
        const Typed chosen = SubSelect(*e.select);
        if (value.type.value_or(ValueType::Long) != chosen.type.value_or(ValueType::Long))
            m_values.Fail("neslučitelné typy");
        return value.sql + (value.type == ValueType::Text ? " COLLATE kuvel_fold" : "") + " IN (" + chosen.sql + ")";
    }
    case Kind::Compare:
        return Compare(e, scope);
    case Kind::Truth:
        return e.truth ? "1" : "0";
    case Kind::Column: {
        const Typed value = m_values.Value(e, scope);
        if (value.type != ValueType::Boolean)
            m_values.Fail("neslučitelné typy");
        return value.sql;
    }
    default:
        m_values.Fail("hodnota není podmínka");
    }
}

std::string Conditions::Chain(const Expression& e, const Scope& scope) {
    const Expression& left = *e.operands[0];
    return (left.kind == e.kind ? Chain(left, scope) : Condition(left, scope)) +
           (e.kind == Kind::And ? " AND " : " OR ") + Condition(*e.operands[1], scope);
}

Typed Conditions::SubSelect(const Select& select) {
    const Scope scope = m_values.ScopeOf(select);
    if (select.items.size() != 1 || select.items[0].star || !select.orderBy.empty() || !select.groupBy.empty())
        m_values.Fail("vnořený dotaz musí vracet jedno pole");
    const bool underNot = std::exchange(m_underNot, false);
    const Typed value = m_values.Value(*select.items[0].value, scope);
    Typed whole{"SELECT " + value.sql + FromWhere(select, scope), value.type};
    m_underNot = underNot;
    return whole;
}

std::string Conditions::Compare(const Expression& e, const Scope& scope) {
    const Expression& left = *e.operands[0];
    const Expression& right = *e.operands[1];
    // A date that cannot be read meets neither a condition nor its opposite; a range would not know.
    if (left.kind == Kind::DateDiff && IsNumberLiteral(right) && !m_underNot)
        if (std::optional<std::string> range = DayRange(left, e.op, right, scope))
            return *range;
    if (right.kind == Kind::DateDiff && IsNumberLiteral(left) && !m_underNot)
        if (std::optional<std::string> range = DayRange(right, Mirrored(e.op), left, scope))
            return *range;
    const auto [a, b] = m_values.Pair(left, right, scope);
    if (a.type == ValueType::Date && b.type == ValueType::Date)
        return Moment(a.sql) + " " + std::string(e.op) + " " + Moment(b.sql);
    return a.sql + " " + std::string(e.op) + " " + b.sql + Collation(a, b, e);
}

std::string Conditions::Collation(const Typed& a, const Typed& b, const Expression& e) const {
    const bool fits = (a.IsNumber() && b.IsNumber() && (!a.type || !b.type)) || a.type == b.type;
    if (!fits)
        m_values.Fail("neslučitelné typy");
    if (a.type != ValueType::Text)
        return {};
    if (e.op != "=" && e.op != "<>")
        return " COLLATE kuvel_czech";
    const auto plain = [](const Expression& operand) {
        return IsLiteral(operand, TokenKind::Text) && IsAscii(operand.token.text);
    };
    return plain(*e.operands[0]) || plain(*e.operands[1]) ? " COLLATE NOCASE" : " COLLATE kuvel_fold";
}

std::optional<std::string> Conditions::DayRange(const Expression& difference, std::string_view op,
                                                const Expression& days, const Scope& scope) {
    const Expression& from = *difference.operands[0];
    const Expression& to = *difference.operands[1];
    const bool columnLast = IsLiteral(from, TokenKind::Date) && to.kind == Kind::Column;
    const bool columnFirst = from.kind == Kind::Column && IsLiteral(to, TokenKind::Date);
    if (!columnFirst && !columnLast)
        return std::nullopt;
    const Expression* number = &days;
    int sign = 1;
    for (; number->kind == Kind::Negate; number = number->operands[0].get())
        sign = -sign;
    if (number->token.kind != TokenKind::Integer)
        return std::nullopt;
    // column − date op n  is  column op date + n;  date − column op n  is  column (mirrored op) date − n.
    const std::string column = m_values.DateValue(columnLast ? to : from, scope);
    const Expression& date = columnLast ? from : to;
    if (columnFirst) {
        op = Mirrored(op);
        sign = -sign;
    }
    const auto start = [&](int shift) {
        return m_values.AddParameter(
            {Parameter::Kind::DayStart, date.token.literal, shift, number->token.literal, sign});
    };
    std::string range;
    if (op == "<>") {
        range = "(" + column + " < " + start(0) + " OR " + column + " >= " + start(1) + ")";
    } else {
        if (op != "<" && op != "<=")
            range = column + " >= " + start(op == ">" ? 1 : 0);
        range += op == "=" ? " AND " : "";
        if (op != ">" && op != ">=")
            range += column + " < " + start(op == "<" ? 0 : 1);
    }
    return "(" + range + " AND kuvel_isdate(" + column + "))";
}

} // namespace jet
