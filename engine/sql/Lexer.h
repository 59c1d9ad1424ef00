#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"

namespace clb {

/// What a literal is. A number's kind decides its type, so the kind is part of a statement's shape.
enum class LiteralKind : std::uint8_t {
    Text,
    Whole,  ///< whole number in 32 bits
    Exact,  ///< other number that money holds exactly
    Fine,   ///< number that money does not hold: finer than four decimals or out of range
    Date,
};

/// One literal of a statement, without its marks and its sign.
struct Literal {
    LiteralKind kind = LiteralKind::Text;
    std::string text;         ///< Text: doubled quotes made one. Numbers: as written.
    std::int64_t scaled = 0;  ///< Numbers: times 10,000, cut off; not set when tooLarge.
    bool tooLarge = false;    ///< Numbers: beyond the range of money.
    double number = 0;        ///< Numbers: as double.
    Date date;
};

enum class TokenKind : std::uint8_t { Name, QuotedName, Number, Text, Date, Symbol, End };

/// One token; its text is a view into the statement, without brackets or quotes.
struct Token {
    TokenKind kind = TokenKind::End;
    std::string_view text;
    std::size_t literal = 0;  ///< Number, Text, Date: index of its literal
};

/// A statement's tokens, closed by End, and its literals in order.
struct LexedStatement {
    std::vector<Token> tokens;
    std::vector<Literal> literals;
};

/// Throws EngineError for a lone quote or bracket, a text that is no date between "#" marks and
/// characters that belong to no statement. The tokens refer to sql, which must outlive them.
LexedStatement Lex(std::string_view sql);

/// The statement with its literals lifted out: equal for two statements that differ in literals of
/// the same kinds only. Literals that decide what is done (TOP, and all behind GROUP and ORDER)
/// stay in it.
std::string ShapeOf(const LexedStatement& lexed);

/// Whether the token has a literal.
inline bool IsLiteral(const Token& token)
{
    return token.kind == TokenKind::Number || token.kind == TokenKind::Text ||
           token.kind == TokenKind::Date;
}

/// Whether an unquoted name is this word (given in capitals), without regard to case.
bool IsWord(const Token& token, std::string_view word);

/// Reads a literal number, digits with a period and an exponent.
Literal ReadNumber(std::string_view text);

}  // namespace clb
