#pragma once

#include "core/store/jet/Lexer.h"

#include <memory>
#include <string_view>
#include <vector>

namespace jet {

struct Select;

/// A node of an expression, as written; what it means is the translator's business.
struct Expression {
    enum class Kind {
        Literal,    // token
        Truth,      // truth
        Column,     // qualifier (may be empty), name
        Negate,     // operands[0]
        Arithmetic, // op: * + -
        Compare,    // op: = <> < <= > >=
        Like,       // operands[0] LIKE operands[1]
        In,         // operands[0] IN (select)
        IsNull,     // operands[0] IS NULL
        Not,        // operands[0]
        And,
        Or,
        Sum, // operands[0]
        CountAll,
        DateDiff, // days from operands[0] to operands[1]
    };
    Kind kind;
    Token token{};
    bool truth = false;
    std::string_view qualifier{};
    std::string_view name{};
    std::string_view op{};
    std::vector<std::unique_ptr<Expression>> operands{};
    std::unique_ptr<Select> select{};
};
using ExpressionPtr = std::unique_ptr<Expression>;

bool IsLiteral(const Expression& e, TokenKind kind);
/// A number as it is written, or the negative of one.
bool IsNumberLiteral(const Expression& e);
bool IsDecimal(const Expression& e);
bool HasAggregate(const Expression& e);
/// The comparison with its sides exchanged.
std::string_view Mirrored(std::string_view op);

struct SelectItem {
    bool star = false;
    std::string_view qualifier{}; // of the star
    ExpressionPtr value{};
    std::string_view alias{};
};

struct TableJoin {
    std::string_view table;
    ExpressionPtr on{}; // null for the first table
};

struct OrderItem {
    ExpressionPtr value;
    bool descending = false;
};

struct Select {
    std::vector<SelectItem> items;
    std::vector<TableJoin> from;
    ExpressionPtr where{};
    std::vector<ExpressionPtr> groupBy{};
    std::vector<OrderItem> orderBy{};
};

struct Assignment {
    std::string_view column;
    ExpressionPtr value;
};

/// One statement of the dialect.
struct Syntax {
    enum class Kind { Select, Update, Delete };
    Kind kind = Kind::Select;
    Select select{};          // Select
    std::string_view table{}; // Update, Delete
    std::vector<Assignment> assignments{};
    ExpressionPtr where{}; // Update, Delete
};

/// Reads the whole text as one statement; a final semicolon is allowed. Raises ComError with the text in it.
/// The result points into `sql`.
Syntax ParseStatement(std::string_view sql);

/// Reads the whole text as a condition, as `Find` takes it.
ExpressionPtr ParseCriterion(std::string_view criterion);

} // namespace jet
