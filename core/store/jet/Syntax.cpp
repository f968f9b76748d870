#include "core/store/jet/Syntax.h"

#include <algorithm>

namespace jet {

using Kind = Expression::Kind;

bool IsNumberLiteral(const Expression& e) {
    if (e.kind == Kind::Negate)
        return IsNumberLiteral(*e.operands[0]);
    return e.kind == Kind::Literal && (e.token.kind == TokenKind::Integer || e.token.kind == TokenKind::Decimal);
}

bool IsDecimal(const Expression& e) {
    return e.kind == Kind::Negate ? IsDecimal(*e.operands[0])
                                  : e.kind == Kind::Literal && e.token.kind == TokenKind::Decimal;
}

bool HasAggregate(const Expression& e) {
    return e.kind == Kind::Sum || e.kind == Kind::CountAll ||
           std::any_of(e.operands.begin(), e.operands.end(),
                       [](const auto& operand) { return HasAggregate(*operand); });
}

bool IsLiteral(const Expression& e, TokenKind kind) {
    return e.kind == Kind::Literal && e.token.kind == kind;
}

std::string_view Mirrored(std::string_view op) {
    if (op == "<")
        return ">";
    if (op == ">")
        return "<";
    if (op == "<=")
        return ">=";
    return op == ">=" ? "<=" : op;
}

} // namespace jet
