#pragma once

#include "core/store/jet/Values.h"

namespace jet {

/// Translates the conditions of one statement, and the tables that they stand with. Members raise ComError.
class Conditions {
public:
    explicit Conditions(Values& values) : m_values(values) {}

    std::string Condition(const Expression& e, const Scope& scope);
    /// The single comparison of a column that a search takes; anything else is refused, so that a text searched for is
    /// never a condition of its own.
    std::string OneComparison(const Expression& e, const Scope& scope);
    /// " FROM … WHERE …" of the SELECT.
    std::string FromWhere(const Select& select, const Scope& scope);

private:
    /// A row of ANDs (or ORs) without brackets, which would nest as deep as the row is long.
    std::string Chain(const Expression& e, const Scope& scope);
    /// The SELECT, with the type of its one column.
    Typed SubSelect(const Select& select);
    std::string Compare(const Expression& e, const Scope& scope);
    /// Text is compared without regard to case; a plain text by the engine's own rule, so that an index serves.
    std::string Collation(const Typed& a, const Typed& b, const Expression& e) const;
    /// DATEDIFF("d", …) compared with a number of days, as a range on the bare column, so that an index on it serves.
    /// None when it is not a difference of one column and one date.
    std::optional<std::string> DayRange(const Expression& difference, std::string_view op, const Expression& days,
                                        const Scope& scope);

    Values& m_values;
    bool m_underNot = false;
};

} // namespace jet
