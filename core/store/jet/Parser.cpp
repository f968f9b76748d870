#include "core/base/SameName.h"
#include "core/store/jet/Schema.h"
#include "core/store/jet/Syntax.h"

#include <algorithm>
#include <array>

namespace jet {

namespace {

/// How deep the rules below may nest. A statement of the program needs fifteen; the engine's parser bears a hundred
/// open brackets and operators.
constexpr int DeepestNesting = 40;
/// Operators without brackets nest too, one in the other; a statement of the program has some fifty nodes.
constexpr int MostNodes = 1000;

constexpr std::array<std::string_view, 20> Keywords = {"SELECT", "FROM", "WHERE", "GROUP", "ORDER", "BY",  "INNER",
                                                       "JOIN",   "ON",   "AS",    "AND",   "OR",    "NOT", "IN",
                                                       "LIKE",   "IS",   "ASC",   "DESC",  "SET",   "NULL"};

class Parser {
public:
    explicit Parser(std::string_view sql) : m_lexer(sql), m_token(m_lexer.Next()) {}

    Syntax Statement() {
        Syntax syntax;
        if (TakeKeyword("SELECT")) {
            syntax.kind = Syntax::Kind::Select;
            syntax.select = SelectBody();
        } else if (TakeKeyword("UPDATE")) {
            syntax.kind = Syntax::Kind::Update;
            syntax.table = Name();
            NeedKeyword("SET");
            do {
                const std::string_view column = Name();
                NeedSymbol("=");
                syntax.assignments.push_back({column, Additive()});
            } while (TakeSymbol(","));
            syntax.where = OptionalWhere();
        } else if (TakeKeyword("DELETE")) {
            syntax.kind = Syntax::Kind::Delete;
            NeedKeyword("FROM");
            syntax.table = Name();
            syntax.where = OptionalWhere();
        } else {
            Fail("očekáván příkaz SELECT, UPDATE nebo DELETE");
        }
        TakeSymbol(";");
        NeedEnd();
        return syntax;
    }

    ExpressionPtr Criterion() {
        ExpressionPtr condition = Condition();
        NeedEnd();
        return condition;
    }

private:
    /// Keeps a hostile nesting from exhausting the stack.
    class Nesting {
    public:
        explicit Nesting(Parser& parser) : m_parser(parser) {
            if (++m_parser.m_depth > DeepestNesting)
                m_parser.Fail("příliš mnoho závorek");
        }
        ~Nesting() { --m_parser.m_depth; }

    private:
        Parser& m_parser;
    };

    [[noreturn]] void Fail(const char* reason) { RaiseSyntax(m_lexer.Sql(), reason); }

    Token Take() {
        const Token token = m_token;
        m_token = m_lexer.Next();
        return token;
    }
    bool IsKeyword(std::string_view word) const {
        return m_token.kind == TokenKind::Name && SameName(m_token.text, word);
    }
    bool IsSymbol(std::string_view symbol) const { return m_token.kind == TokenKind::Symbol && m_token.text == symbol; }
    bool TakeKeyword(std::string_view word) {
        const bool found = IsKeyword(word);
        if (found)
            Take();
        return found;
    }
    bool TakeSymbol(std::string_view symbol) {
        const bool found = IsSymbol(symbol);
        if (found)
            Take();
        return found;
    }
    void NeedKeyword(std::string_view word) {
        if (!TakeKeyword(word))
            Fail("chybějící klíčové slovo");
    }
    void NeedSymbol(std::string_view symbol) {
        if (!TakeSymbol(symbol))
            Fail("chybějící operátor");
    }
    void NeedEnd() {
        if (m_token.kind != TokenKind::End)
            Fail("za koncem příkazu následuje další text");
    }
    std::string_view Name() {
        if (m_token.kind != TokenKind::Name ||
            std::any_of(Keywords.begin(), Keywords.end(), [&](auto word) { return IsKeyword(word); }))
            Fail("očekáván název");
        return Take().text;
    }

    ExpressionPtr Node(Expression::Kind kind, ExpressionPtr first = {}, ExpressionPtr second = {}) {
        if (++m_nodes > MostNodes)
            Fail("příliš složitý příkaz");
        auto node = std::make_unique<Expression>();
        node->kind = kind;
        if (first)
            node->operands.push_back(std::move(first));
        if (second)
            node->operands.push_back(std::move(second));
        return node;
    }

    Select SelectBody() {
        const Nesting nesting(*this);
        Select select;
        do {
            select.items.push_back(Item());
        } while (TakeSymbol(","));
        NeedKeyword("FROM");
        From(select.from);
        select.where = OptionalWhere();
        if (TakeKeyword("GROUP")) {
            NeedKeyword("BY");
            do {
                select.groupBy.push_back(Additive());
            } while (TakeSymbol(","));
        }
        if (TakeKeyword("ORDER")) {
            NeedKeyword("BY");
            do {
                OrderItem item{Additive(), false};
                if (!TakeKeyword("ASC"))
                    item.descending = TakeKeyword("DESC");
                select.orderBy.push_back(std::move(item));
            } while (TakeSymbol(","));
        }
        return select;
    }

    SelectItem Item() {
        SelectItem item;
        if (TakeSymbol("*")) {
            item.star = true;
            return item;
        }
        item.value = Additive();
        if (item.value->kind == Expression::Kind::Column && item.value->name.empty()) {
            item.star = true;
            item.qualifier = item.value->qualifier;
            item.value.reset();
        } else if (TakeKeyword("AS")) {
            item.alias = Name();
        }
        return item;
    }

    /// Joins are inner ones throughout, so that the brackets around them carry no meaning.
    void From(std::vector<TableJoin>& from) {
        const Nesting nesting(*this);
        if (TakeSymbol("(")) {
            From(from);
            NeedSymbol(")");
        } else {
            from.push_back({Name(), {}});
        }
        while (TakeKeyword("INNER")) {
            NeedKeyword("JOIN");
            const std::string_view table = Name();
            NeedKeyword("ON");
            from.push_back({table, Condition()});
        }
    }

    ExpressionPtr OptionalWhere() { return TakeKeyword("WHERE") ? Condition() : nullptr; }

    ExpressionPtr Condition() {
        const Nesting nesting(*this);
        ExpressionPtr left = Conjunction();
        while (TakeKeyword("OR"))
            left = Node(Expression::Kind::Or, std::move(left), Conjunction());
        return left;
    }

    ExpressionPtr Conjunction() {
        ExpressionPtr left = Negation();
        while (TakeKeyword("AND"))
            left = Node(Expression::Kind::And, std::move(left), Negation());
        return left;
    }

    ExpressionPtr Negation() {
        const Nesting nesting(*this);
        return TakeKeyword("NOT") ? Node(Expression::Kind::Not, Negation()) : Predicate();
    }

    ExpressionPtr Predicate() {
        ExpressionPtr left = Additive();
        if (m_token.kind == TokenKind::Symbol) {
            for (const std::string_view op : {"=", "<>", "<=", ">=", "<", ">"}) {
                if (m_token.text != op)
                    continue;
                Take();
                ExpressionPtr node = Node(Expression::Kind::Compare, std::move(left), Additive());
                node->op = op;
                return node;
            }
            return left;
        }
        if (TakeKeyword("IS")) {
            const bool negated = TakeKeyword("NOT");
            NeedKeyword("NULL");
            return Negated(negated, Node(Expression::Kind::IsNull, std::move(left)));
        }
        const bool negated = TakeKeyword("NOT");
        if (TakeKeyword("LIKE"))
            return Negated(negated, Node(Expression::Kind::Like, std::move(left), Additive()));
        if (TakeKeyword("IN")) {
            NeedSymbol("(");
            NeedKeyword("SELECT");
            ExpressionPtr node = Node(Expression::Kind::In, std::move(left));
            node->select = std::make_unique<Select>(SelectBody());
            NeedSymbol(")");
            return Negated(negated, std::move(node));
        }
        if (negated)
            Fail("chybějící operátor");
        return left;
    }

    ExpressionPtr Negated(bool negated, ExpressionPtr node) {
        return negated ? Node(Expression::Kind::Not, std::move(node)) : std::move(node);
    }

    ExpressionPtr Additive() {
        ExpressionPtr left = Product();
        while (IsSymbol("+") || IsSymbol("-")) {
            const std::string_view op = Take().text;
            left = Node(Expression::Kind::Arithmetic, std::move(left), Product());
            left->op = op;
        }
        return left;
    }

    ExpressionPtr Product() {
        ExpressionPtr left = Unary();
        while (IsSymbol("*")) {
            const std::string_view op = Take().text;
            left = Node(Expression::Kind::Arithmetic, std::move(left), Unary());
            left->op = op;
        }
        return left;
    }

    ExpressionPtr Unary() {
        const Nesting nesting(*this);
        return TakeSymbol("-") ? Node(Expression::Kind::Negate, Unary()) : Primary();
    }

    ExpressionPtr Primary() {
        switch (m_token.kind) {
        case TokenKind::Integer:
        case TokenKind::Decimal:
        case TokenKind::Text:
        case TokenKind::Date: {
            ExpressionPtr node = Node(Expression::Kind::Literal);
            node->token = Take();
            return node;
        }
        case TokenKind::Symbol: {
            NeedSymbol("(");
            ExpressionPtr inner = Condition();
            NeedSymbol(")");
            return inner;
        }
        case TokenKind::Name:
            return Named();
        default:
            Fail("neúplný výraz");
        }
    }

    ExpressionPtr Named() {
        if (IsKeyword("TRUE") || IsKeyword("FALSE")) {
            ExpressionPtr node = Node(Expression::Kind::Truth);
            node->truth = IsKeyword("TRUE");
            Take();
            return node;
        }
        const std::string_view name = Name();
        if (TakeSymbol("(")) {
            ExpressionPtr node = Call(name);
            NeedSymbol(")");
            return node;
        }
        ExpressionPtr node = Node(Expression::Kind::Column);
        node->name = name;
        if (TakeSymbol(".")) {
            node->qualifier = name;
            node->name = TakeSymbol("*") ? std::string_view() : Name();
        }
        return node;
    }

    ExpressionPtr Call(std::string_view name) {
        if (SameName(name, "Sum"))
            return Node(Expression::Kind::Sum, Additive());
        if (SameName(name, "Count")) {
            NeedSymbol("*");
            return Node(Expression::Kind::CountAll);
        }
        if (SameName(name, "DATEDIFF")) {
            if (m_token.kind != TokenKind::Quoted || !SameName(m_token.text, "d"))
                Fail("DATEDIFF počítá jen dny");
            Take();
            NeedSymbol(",");
            ExpressionPtr from = Additive();
            NeedSymbol(",");
            return Node(Expression::Kind::DateDiff, std::move(from), Additive());
        }
        Fail("neznámá funkce");
    }

    Lexer m_lexer;
    Token m_token;
    int m_depth = 0;
    int m_nodes = 0;
};

} // namespace

Syntax ParseStatement(std::string_view sql) {
    return Parser(sql).Statement();
}

ExpressionPtr ParseCriterion(std::string_view criterion) {
    return Parser(criterion).Criterion();
}

} // namespace jet
