#include "core/store/jet/Lexer.h"

#include "core/base/ComError.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace jet {

namespace {

enum CharClass : std::uint8_t { Other, Blank, NameChar, Digit };

constexpr std::array<std::uint8_t, 256> MakeClasses() {
    std::array<std::uint8_t, 256> classes{};
    for (int c = 0; c < 256; ++c) {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n')
            classes[c] = Blank;
        else if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_')
            classes[c] = NameChar;
        else if (c >= '0' && c <= '9')
            classes[c] = Digit;
    }
    return classes;
}

constexpr std::array<std::uint8_t, 256> Classes = MakeClasses();

CharClass ClassOf(char c) {
    return static_cast<CharClass>(Classes[static_cast<unsigned char>(c)]);
}

/// A literal stands for all of its kind. Plain texts are apart from others: they are compared by the engine's own rule,
/// which an index can serve.
char ShapeOfLiteral(const Token& token) {
    switch (token.kind) {
    case TokenKind::Integer:
        return '0';
    case TokenKind::Decimal:
        return '1';
    case TokenKind::Date:
        return '#';
    default:
        return IsAscii(token.text) ? '\'' : '`';
    }
}

} // namespace

void RaiseSyntax(std::string_view sql, const char* czechReason) {
    throw ComError("SQL", std::string(sql), ResultCode::ErrorsInCommand,
                   QStringLiteral("Chyba syntaxe v příkazu SQL: %1.").arg(QString::fromUtf8(czechReason)));
}

Lexer::Lexer(std::string_view sql) : m_sql(sql) {
    if (sql.find('\0') != std::string_view::npos)
        RaiseSyntax(sql, "neznámý znak");
}

Token Lexer::Delimited(TokenKind kind, char delimiter) {
    const std::size_t begin = ++m_at;
    while (true) {
        const std::size_t end = m_sql.find(delimiter, m_at);
        if (end == std::string_view::npos)
            RaiseSyntax(m_sql, kind == TokenKind::Date ? "neukončené datum" : "neukončený text");
        m_at = end + 1;
        const bool doubled = kind == TokenKind::Text && m_at < m_sql.size() && m_sql[m_at] == delimiter;
        if (doubled) {
            ++m_at;
            continue;
        }
        return {kind, m_sql.substr(begin, end - begin), kind == TokenKind::Quoted ? -1 : m_literals++};
    }
}

Token Lexer::Next() {
    while (m_at < m_sql.size() && ClassOf(m_sql[m_at]) == Blank)
        ++m_at;
    if (m_at == m_sql.size())
        return {};
    const std::size_t begin = m_at;
    const char c = m_sql[m_at];
    switch (ClassOf(c)) {
    case NameChar:
        while (m_at < m_sql.size() && ClassOf(m_sql[m_at]) >= NameChar)
            ++m_at;
        return {TokenKind::Name, m_sql.substr(begin, m_at - begin), -1};
    case Digit: {
        while (m_at < m_sql.size() && ClassOf(m_sql[m_at]) == Digit)
            ++m_at;
        TokenKind kind = TokenKind::Integer;
        if (m_at + 1 < m_sql.size() && m_sql[m_at] == '.' && ClassOf(m_sql[m_at + 1]) == Digit) {
            kind = TokenKind::Decimal;
            ++m_at;
            while (m_at < m_sql.size() && ClassOf(m_sql[m_at]) == Digit)
                ++m_at;
        }
        if (m_at < m_sql.size() && ClassOf(m_sql[m_at]) == NameChar)
            RaiseSyntax(m_sql, "číslo pokračuje písmenem");
        return {kind, m_sql.substr(begin, m_at - begin), m_literals++};
    }
    default:
        break;
    }
    switch (c) {
    case '\'':
        return Delimited(TokenKind::Text, '\'');
    case '#':
        return Delimited(TokenKind::Date, '#');
    case '"':
        return Delimited(TokenKind::Quoted, '"');
    case '<':
    case '>': {
        ++m_at;
        const bool two = m_at < m_sql.size() && (m_sql[m_at] == '=' || (c == '<' && m_sql[m_at] == '>'));
        m_at += two ? 1 : 0;
        return {TokenKind::Symbol, m_sql.substr(begin, m_at - begin), -1};
    }
    case '=':
    case '(':
    case ')':
    case ',':
    case '.':
    case '*':
    case '+':
    case '-':
    case ';':
        ++m_at;
        return {TokenKind::Symbol, m_sql.substr(begin, 1), -1};
    default:
        RaiseSyntax(m_sql, "neznámý znak");
    }
}

void Shape(std::string_view sql, std::string& shape, std::vector<Literal>& literals) {
    shape.clear();
    literals.clear();
    Lexer lexer(sql);
    for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
        if (token.literal >= 0) {
            shape += ShapeOfLiteral(token);
            literals.push_back({token.kind, token.text});
            continue;
        }
        // Kind and length first, so that no character of a token can be read as the end of it.
        char head[1 + sizeof(std::uint32_t)];
        const auto size = static_cast<std::uint32_t>(token.text.size());
        head[0] = token.kind == TokenKind::Name ? 'n' : token.kind == TokenKind::Quoted ? '"' : 's';
        std::memcpy(head + 1, &size, sizeof size);
        shape.append(head, sizeof head);
        shape += token.text;
    }
}

std::string Unquote(std::string_view text) {
    std::string value;
    value.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        value += text[i];
        if (text[i] == '\'')
            ++i;
    }
    return value;
}

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace jet
