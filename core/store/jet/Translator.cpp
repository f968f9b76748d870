#include "core/store/jet/Translator.h"

#include "core/store/jet/Syntax.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace jet {

namespace {

using Kind = Expression::Kind;

/// An expression in the engine's SQL and what it yields; no type for a literal that fits its neighbour.
struct Typed {
    std::string sql;
    std::optional<ValueType> type;
};

bool IsNumber(const Typed& value) {
    return !value.type || value.type == ValueType::Long || value.type == ValueType::Currency;
}

class Translator {
public:
    Translator(std::string_view sql, const Schema& schema) : m_sql(sql), m_schema(schema) {}

    Translation Statement() {
        const Syntax syntax = ParseStatement(m_sql);
        if (syntax.kind == Syntax::Kind::Select) {
            SelectStatement(syntax.select);
        } else {
            m_result.kind = Translation::Kind::Command;
            Scope scope{NeedTable(syntax.table)};
            m_result.table = scope[0]->name;
            if (syntax.kind == Syntax::Kind::Update) {
                m_result.sql = "UPDATE " + scope[0]->name + " SET ";
                for (const Assignment& assignment : syntax.assignments)
                    m_result.sql +=
                        (&assignment == &syntax.assignments.front() ? "" : ", ") + Assign(assignment, scope);
            } else {
                m_result.sql = "DELETE FROM " + scope[0]->name;
            }
            if (syntax.where)
                m_result.sql += " WHERE " + Condition(*syntax.where, scope);
        }
        return std::move(m_result);
    }

    Translation Criterion(const Table& table) {
        const ExpressionPtr condition = ParseCriterion(m_sql);
        m_result.kind = Translation::Kind::Rows;
        m_result.table = table.name;
        m_result.sql = "SELECT rowid FROM " + table.name + " WHERE " + Condition(*condition, Scope{&table});
        m_result.columns.push_back({"rowid", ValueType::Long, false});
        return std::move(m_result);
    }

private:
    using Scope = std::vector<const Table*>;

    [[noreturn]] void Fail(const char* reason) const { RaiseSyntax(m_sql, reason); }

    const Table* NeedTable(std::string_view name) const {
        const Table* table = m_schema.FindTable(name);
        if (table == nullptr)
            Fail("neznámá tabulka");
        return table;
    }

    Scope ScopeOf(const Select& select) const {
        Scope scope;
        for (const TableJoin& join : select.from) {
            if (FindInScope(scope, join.table) != nullptr)
                Fail("tabulka je uvedena dvakrát");
            scope.push_back(NeedTable(join.table));
        }
        return scope;
    }

    static const Table* FindInScope(const Scope& scope, std::string_view name) {
        const auto found =
            std::find_if(scope.begin(), scope.end(), [&](const Table* table) { return SameName(table->name, name); });
        return found == scope.end() ? nullptr : *found;
    }

    // -- SELECT --

    void SelectStatement(const Select& select) {
        const Scope scope = ScopeOf(select);
        const bool aggregate =
            !select.groupBy.empty() || std::any_of(select.items.begin(), select.items.end(),
                                                   [](auto& item) { return item.value && HasAggregate(*item.value); });
        if (aggregate)
            m_groups.emplace(GroupColumns(select, scope));
        const std::string items = Items(select, scope);
        const bool keyset = scope.size() == 1 && !aggregate && m_result.parameters.empty();
        if (keyset) {
            m_result.kind = Translation::Kind::Keyset;
            m_result.table = scope[0]->name;
            m_result.rowSql = "SELECT " + items + " FROM " + scope[0]->name + " WHERE rowid = ?1";
            const std::string tail = Tail(select, scope, true);
            m_result.sql = "SELECT rowid" + tail;
            m_result.aheadSql = "SELECT rowid, " + items + tail;
        } else {
            m_result.kind = Translation::Kind::Rows;
            m_result.sql = "SELECT " + items + Tail(select, scope, !aggregate && !select.orderBy.empty());
        }
    }

    std::string Items(const Select& select, const Scope& scope) {
        std::string items;
        const auto add = [&](const std::string& sql, std::string_view name, ValueType type, bool stored) {
            items += (items.empty() ? "" : ", ") + sql;
            m_result.columns.push_back({std::string(name), type, stored});
        };
        for (const SelectItem& item : select.items) {
            if (item.star) {
                if (!item.qualifier.empty() && FindInScope(scope, item.qualifier) == nullptr)
                    Fail("neznámá tabulka");
                if (m_groups)
                    Fail("pole není součástí seskupení");
                for (const Table* table : scope) {
                    if (!item.qualifier.empty() && !SameName(table->name, item.qualifier))
                        continue;
                    for (const Column& column : table->columns)
                        add(table->name + "." + column.name, column.name, column.type, true);
                }
                continue;
            }
            const Typed value = Value(*item.value, scope);
            const std::string_view name = !item.alias.empty() ? item.alias : item.value->name;
            add(value.sql, name, value.type.value_or(ValueType::Long),
                item.alias.empty() && item.value->kind == Kind::Column);
        }
        return items;
    }

    std::vector<std::string> GroupColumns(const Select& select, const Scope& scope) {
        std::vector<std::string> groups;
        for (const ExpressionPtr& group : select.groupBy) {
            if (group->kind != Kind::Column)
                Fail("seskupit lze jen podle pole");
            groups.push_back(Value(*group, scope).sql);
        }
        return groups;
    }

    /// A tie is broken by the row id, so that an order is the same each time.
    std::string Tail(const Select& select, const Scope& scope, bool breakTies) {
        std::string sql;
        std::optional<std::vector<std::string>> groups = std::exchange(m_groups, std::nullopt);
        for (std::size_t i = 0; i < scope.size(); ++i) {
            sql += (i == 0 ? " FROM " : " JOIN ") + scope[i]->name;
            if (select.from[i].on)
                sql += " ON " + Condition(*select.from[i].on, Scope(scope.begin(), scope.begin() + i + 1));
        }
        if (select.where)
            sql += " WHERE " + Condition(*select.where, scope);
        std::string separator = " GROUP BY ";
        for (const std::string& group : groups.value_or(std::vector<std::string>()))
            sql += std::exchange(separator, ", ") + group;
        m_groups = std::move(groups);
        separator = " ORDER BY ";
        for (const OrderItem& item : select.orderBy) {
            sql += std::exchange(separator, ", ") + OrderValue(Value(*item.value, scope));
            sql += item.descending ? " DESC" : "";
        }
        if (breakTies)
            sql += separator + scope[0]->name + ".rowid";
        return sql;
    }

    /// True is -1 to whoever sorts by it, so that it comes before false.
    std::string OrderValue(const Typed& value) const {
        if (!value.type)
            Fail("podle čísla nelze řadit");
        if (*value.type == ValueType::Text)
            return "kuvel_sortkey(" + value.sql + ")";
        return *value.type == ValueType::Boolean ? "-(" + value.sql + ")" : value.sql;
    }

    // -- values --

    std::string AddParameter(Parameter parameter) {
        m_result.parameters.push_back(parameter);
        return "?" + std::to_string(m_result.parameters.size());
    }

    /// A number beside a currency is meant in whole units.
    std::string Number(const Expression& e, bool scaled) {
        if (e.kind == Kind::Negate)
            return "(-" + Number(*e.operands[0], scaled) + ")"; // never "--", which opens a comment
        return AddParameter({scaled ? Parameter::Kind::Scaled : Parameter::Kind::Number, e.token.literal});
    }

    Typed ColumnValue(const Expression& e, const Scope& scope) {
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
        }
        if (!value.type)
            Fail("neznámé pole");
        if (m_groups && std::find(m_groups->begin(), m_groups->end(), value.sql) == m_groups->end())
            Fail("pole není součástí seskupení");
        return value;
    }

    Typed Value(const Expression& e, const Scope& scope) {
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
            return {"kuvel_datediff(" + DateValue(*e.operands[0], scope) + ", " + DateValue(*e.operands[1], scope) +
                        ")",
                    ValueType::Long};
        default:
            Fail("podmínka není hodnota");
        }
    }

    /// A number that stands for itself, not beside a currency.
    std::string Whole(const Expression& e) {
        if (IsDecimal(e))
            Fail("neslučitelné typy");
        return Number(e, false);
    }

    Typed Negated(const Typed& value) {
        if (value.type != ValueType::Long && value.type != ValueType::Currency)
            Fail("neslučitelné typy");
        return {"kuvel_exact(-(" + value.sql + "))", value.type};
    }

    void NeedAggregates() const {
        if (!m_groups)
            Fail("souhrn zde být nesmí");
    }

    std::string DateValue(const Expression& e, const Scope& scope) {
        const Typed value = Value(e, scope);
        if (value.type != ValueType::Date)
            Fail("neslučitelné typy");
        return value.sql;
    }

    Typed Arithmetic(const Expression& e, const Scope& scope) {
        const Expression& left = *e.operands[0];
        const Expression& right = *e.operands[1];
        const auto [a, b] = Pair(left, right, scope);
        if (!IsNumber(a) || !IsNumber(b))
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

    /// Both values of an operator; a number literal beside a currency becomes ten-thousandths.
    std::pair<Typed, Typed> Pair(const Expression& left, const Expression& right, const Scope& scope) {
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

    Typed Sum(const Expression& e, const Scope& scope) {
        NeedAggregates();
        const auto groups = std::exchange(m_groups, std::nullopt); // each row has every column
        const Typed sum = SumOfRows(e, scope);
        m_groups = groups;
        return sum;
    }

    Typed SumOfRows(const Expression& e, const Scope& scope) {
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

    // -- conditions --

    std::string Condition(const Expression& e, const Scope& scope) {
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
            return Value(*e.operands[0], scope).sql + " IS NULL";
        case Kind::Like: {
            const Typed text = Value(*e.operands[0], scope);
            if (text.type != ValueType::Text || !IsLiteral(*e.operands[1], TokenKind::Text))
                Fail("neslučitelné typy");
            return "kuvel_like(" + Value(*e.operands[1], scope).sql + ", " + text.sql + ")";
        }
        case Kind::In: {
            const Typed value = Value(*e.operands[0], scope);
            const Typed chosen = SubSelect(*e.select);
            if (value.type.value_or(ValueType::Long) != chosen.type.value_or(ValueType::Long))
                Fail("neslučitelné typy");
            return value.sql + (value.type == ValueType::Text ? " COLLATE kuvel_fold" : "") + " IN (" + chosen.sql +
                   ")";
        }
        case Kind::Compare:
            return Compare(e, scope);
        case Kind::Truth:
            return e.truth ? "1" : "0";
        case Kind::Column: {
            const Typed value = Value(e, scope);
            if (value.type != ValueType::Boolean)
                Fail("neslučitelné typy");
            return value.sql;
        }
        default:
            Fail("hodnota není podmínka");
        }
    }

    /// A row of ANDs (or ORs) without brackets, which would nest as deep as the row is long.
    std::string Chain(const Expression& e, const Scope& scope) {
        const Expression& left = *e.operands[0];
        return (left.kind == e.kind ? Chain(left, scope) : Condition(left, scope)) +
               (e.kind == Kind::And ? " AND " : " OR ") + Condition(*e.operands[1], scope);
    }

    /// The SELECT, with the type of its one column.
    Typed SubSelect(const Select& select) {
        const Scope scope = ScopeOf(select);
        if (select.items.size() != 1 || select.items[0].star || !select.orderBy.empty() || !select.groupBy.empty())
            Fail("vnořený dotaz musí vracet jedno pole");
        const bool underNot = std::exchange(m_underNot, false);
        const Typed value = Value(*select.items[0].value, scope);
        const Typed whole{"SELECT " + value.sql + Tail(select, scope, false), value.type};
        m_underNot = underNot;
        return whole;
    }

    std::string Compare(const Expression& e, const Scope& scope) {
        const Expression& left = *e.operands[0];
        const Expression& right = *e.operands[1];
        // A date that cannot be read meets neither a condition nor its opposite; a range would not know.
        if (left.kind == Kind::DateDiff && IsNumberLiteral(right) && !m_underNot)
            if (std::optional<std::string> range = DayRange(left, e.op, right, scope))
                return *range;
        if (right.kind == Kind::DateDiff && IsNumberLiteral(left) && !m_underNot)
            if (std::optional<std::string> range = DayRange(right, Mirrored(e.op), left, scope))
                return *range;
        const auto [a, b] = Pair(left, right, scope);
        return a.sql + " " + std::string(e.op) + " " + b.sql + Collation(a, b, e);
    }

    /// Text is compared without regard to case; a plain text by the engine's own rule, so that an index serves.
    std::string Collation(const Typed& a, const Typed& b, const Expression& e) const {
        const bool fits = (IsNumber(a) && IsNumber(b) && (!a.type || !b.type)) || a.type == b.type;
        if (!fits)
            Fail("neslučitelné typy");
        if (a.type != ValueType::Text)
            return {};
        if (e.op != "=" && e.op != "<>")
            return " COLLATE kuvel_czech";
        const auto plain = [](const Expression& operand) {
            return IsLiteral(operand, TokenKind::Text) && IsAscii(operand.token.text);
        };
        return plain(*e.operands[0]) || plain(*e.operands[1]) ? " COLLATE NOCASE" : " COLLATE kuvel_fold";
    }

    /// DATEDIFF("d", …) compared with a number of days, as a range on the bare column, so that an index on it serves.
    /// None when it is not a difference of one column and one date.
    std::optional<std::string> DayRange(const Expression& difference, std::string_view op, const Expression& days,
                                        const Scope& scope) {
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
        const std::string column = DateValue(columnLast ? to : from, scope);
        const Expression& date = columnLast ? from : to;
        if (columnFirst) {
            op = Mirrored(op);
            sign = -sign;
        }
        const auto start = [&](int shift) {
            return AddParameter({Parameter::Kind::DayStart, date.token.literal, shift, number->token.literal, sign});
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

    std::string Assign(const Assignment& assignment, const Scope& scope) {
        const Column* column = scope[0]->FindColumn(assignment.column);
        if (column == nullptr)
            Fail("neznámé pole");
        std::string value;
        if (IsNumberLiteral(*assignment.value)) {
            const bool isCurrency = column->type == ValueType::Currency;
            if (!isCurrency && (column->type != ValueType::Long || IsDecimal(*assignment.value)))
                Fail("neslučitelné typy");
            value = "kuvel_exact(" + Number(*assignment.value, isCurrency) + ")";
        } else {
            const Typed typed = Value(*assignment.value, scope);
            if (typed.type && typed.type != column->type)
                Fail("neslučitelné typy");
            value = typed.sql;
        }
        return column->name + " = " + value;
    }

    std::string_view m_sql;
    const Schema& m_schema;
    Translation m_result;
    /// The columns that a query with totals may name outside of them; none in a query, or a place, without totals.
    std::optional<std::vector<std::string>> m_groups;
    bool m_underNot = false;
};

} // namespace

Translation Translate(std::string_view sql, const Schema& schema) {
    return Translator(sql, schema).Statement();
}

Translation TranslateCriterion(std::string_view criterion, const Table& table, const Schema& schema) {
    return Translator(criterion, schema).Criterion(table);
}

} // namespace jet
