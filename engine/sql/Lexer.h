// Divides an SQL text into tokens and literals.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"

namespace clb {

/// The kind of a literal. The kind of a number decides its type, so it is part of a query's shape.
enum class LiteralKind : std::uint8_t {
    Text,
    Whole,  ///< whole number that fits in 32 bits
    Exact,  ///< other number that money holds exactly
    Fine,   ///< number that money does not hold: finer than four decimals or out of range
    Date,
};

/// One literal of a query, without quotes and sign.
struct Literal {
    LiteralKind kind = LiteralKind::Text;
    std::string text;         ///< Text: doubled quotes reduced to one. Numbers: as written.
    std::int64_t scaled = 0;  ///< Numbers: times 10,000, cut off; 0 if tooLarge.
    bool tooLarge = false;    ///< Numbers: beyond the range of money.
    double number = 0;        ///< Numbers: as double.
    Date date;
};

enum class TokenKind : std::uint8_t { Name, QuotedName, Number, Text, Date, Symbol, End };

/// One token. Its text is a view into the SQL text, without brackets or quotes.
struct Token {
    TokenKind kind = TokenKind::End;
    std::string_view text;
    std::size_t literal = 0;  ///< Number, Text, Date: index of its literal
};

/// The tokens of a query, with End as the last, and its literals in order.
struct LexedSql {
    std::vector<Token> tokens;
    std::vector<Literal> literals;
};

/// Throws EngineError for an unclosed quote or bracket, an invalid date between "#" marks, and
/// characters that the dialect does not have. The tokens refer to sql, which must outlive them.
LexedSql Lex(std::string_view sql);

/// The query without its literals: equal for two queries that differ only in literals of the same
/// kinds. Literals that decide what is done (TOP, and all after GROUP and ORDER) stay in it.
std::string ShapeOf(const LexedSql& lexed);

/// Whether the token is a literal.
inline bool IsLiteral(const Token& token)
{
    return token.kind == TokenKind::Number || token.kind == TokenKind::Text ||
           token.kind == TokenKind::Date;
}

/// Whether the token is this word in any case, not in brackets. The word is given in capitals.
bool IsWord(const Token& token, std::string_view word);

/// Reads a number: digits, optionally with a period and an exponent.
Literal ReadNumber(std::string_view text);

}  // namespace clb
