#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jet {

enum class TokenKind : std::uint8_t { End, Name, Integer, Decimal, Text, Date, Quoted, Symbol };

struct Token {
    TokenKind kind = TokenKind::End;
    /// The characters of the token; for Text, Date and Quoted those between the delimiters, as they stand.
    std::string_view text;
    /// Among the literals of the statement, in order of appearance; -1 for what is none.
    int literal = -1;
};

/// Splits one SQL text into tokens. Raises ComError with the whole text in it on a character outside the dialect and on
/// an unclosed literal.
class Lexer {
public:
    /// A NUL byte anywhere raises, since it would end the text for half of what reads it.
    explicit Lexer(std::string_view sql);
    Token Next();
    std::string_view Sql() const { return m_sql; }

private:
    Token Delimited(TokenKind kind, char delimiter);

    std::string_view m_sql;
    std::size_t m_at = 0;
    int m_literals = 0;
};

/// A literal lifted out of a statement.
struct Literal {
    TokenKind kind;
    std::string_view text;
};

/// The statement without its literals: equal for texts that differ only in them, so that one prepared statement serves
/// them all. The literals keep pointing into `sql`. Reuses the memory of its two results.
void Shape(std::string_view sql, std::string& shape, std::vector<Literal>& literals);

/// The value of a Text literal, whose quotes stand doubled inside.
std::string Unquote(std::string_view text);
bool IsAscii(std::string_view text);

[[noreturn]] void RaiseSyntax(std::string_view sql, const char* czechReason);

} // namespace jet
