#include "core/store/jet/Translator.h"

#include "core/base/SameName.h"
#include "core/store/jet/Conditions.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace jet {

namespace {

using Kind = Expression::Kind;

/// Translates one statement: its shape, with the values and conditions that fill it.
class Translator {
public:
    Translator(std::string_view sql, const Schema& schema) : m_sql(sql), m_values(sql, schema, m_result.parameters) {}

    Translation Statement() {
        const Syntax syntax = ParseStatement(m_sql);
        if (syntax.kind == Syntax::Kind::Select) {
            SelectStatement(syntax.select);
        } else {
            m_result.kind = Translation::Kind::Command;
            Scope scope{m_values.NeedTable(syntax.table)};
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
                m_result.sql += " WHERE " + m_conditions.Condition(*syntax.where, scope);
        }
        return std::move(m_result);
    }

    Translation Criterion(const Table& table) {
        const ExpressionPtr condition = ParseCriterion(m_sql);
        m_result.kind = Translation::Kind::Rows;
        m_result.table = table.name;
        m_result.sql =
            "SELECT rowid FROM " + table.name + " WHERE " + m_conditions.OneComparison(*condition, Scope{&table});
        m_result.columns.push_back({"rowid", ValueType::Long, false});
        return std::move(m_result);
    }

private:
    void SelectStatement(const Select& select) {
        const Scope scope = m_values.ScopeOf(select);
        const bool aggregate =
            !select.groupBy.empty() || std::any_of(select.items.begin(), select.items.end(),
                                                   [](auto& item) { return item.value && HasAggregate(*item.value); });
        if (aggregate)
            m_values.PutGroups(GroupColumns(select, scope));
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
                    m_values.Fail("neznámá tabulka");
                if (m_values.HasGroups())
                    m_values.Fail("pole není součástí seskupení");
                for (const Table* table : scope) {
                    if (!item.qualifier.empty() && !SameName(table->name, item.qualifier))
                        continue;
                    for (const Column& column : table->columns)
                        add(table->name + "." + column.name, column.name, column.type, true);
                }
                continue;
            }
            const Typed value = m_values.Value(*item.value, scope);
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
                m_values.Fail("seskupit lze jen podle pole");
            groups.push_back(m_values.Value(*group, scope).sql);
        }
        return groups;
    }

    /// A tie is broken by the row id, so that an order is the same each time.
    std::string Tail(const Select& select, const Scope& scope, bool breakTies) {
        Values::Groups groups = m_values.PutGroups(std::nullopt);
        std::string sql = m_conditions.FromWhere(select, scope);
        std::string separator = " GROUP BY ";
        for (const std::string& group : groups.value_or(std::vector<std::string>()))
            sql += std::exchange(separator, ", ") + group;
        m_values.PutGroups(std::move(groups));
        separator = " ORDER BY ";
        for (const OrderItem& item : select.orderBy) {
            sql += std::exchange(separator, ", ") + OrderValue(m_values.Value(*item.value, scope));
            sql += item.descending ? " DESC" : "";
        }
        if (breakTies)
            sql += separator + scope[0]->name + ".rowid";
        return sql;
    }

    /// True is -1 to whoever sorts by it, so that it comes before false.
    std::string OrderValue(const Typed& value) const {
        if (!value.type)
            m_values.Fail("podle čísla nelze řadit");
        switch (*value.type) {
        case ValueType::Text:
            return "kuvel_sortkey(" + value.sql + ")";
        case ValueType::Boolean:
            return "-" + value.sql;
        case ValueType::Date:
            return Moment(value.sql);
        default:
            return value.sql;
        }
    }

    std::string Assign(const Assignment& assignment, const Scope& scope) {
        const Column* column = scope[0]->FindColumn(assignment.column);
        if (column == nullptr)
            m_values.Fail("neznámé pole");
        std::string value;
        if (IsNumberLiteral(*assignment.value)) {
            const bool isCurrency = column->type == ValueType::Currency;
            if (!isCurrency && (column->type != ValueType::Long || IsDecimal(*assignment.value)))
                m_values.Fail("neslučitelné typy");
            value = "kuvel_exact(" + m_values.Number(*assignment.value, isCurrency) + ")";
        } else {
            const Typed typed = m_values.Value(*assignment.value, scope);
            if (typed.type && typed.type != column->type)
                m_values.Fail("neslučitelné typy");
            value = typed.sql;
        }
        return column->name + " = " + value;
    }

    std::string_view m_sql;
    Translation m_result;
    Values m_values;
    Conditions m_conditions{m_values};
};

} // namespace

Translation Translate(std::string_view sql, const Schema& schema) {
    return Translator(sql, schema).Statement();
}

Translation TranslateCriterion(std::string_view criterion, const Table& table, const Schema& schema) {
    return Translator(criterion, schema).Criterion(table);
}

} // namespace jet
