#include "engine/sql/TokenReader.h"

#include <algorithm>
#include <array>

namespace clb {
namespace {

/// Words that are names only in brackets.
constexpr std::array<std::string_view, 44> kReserved = {
    "ADD",    "ALL",    "ALTER", "AND",      "AS",     "ASC",    "BETWEEN", "BY",    "COLUMN",
    "CREATE", "DELETE", "DESC",  "DISTINCT", "DROP",   "FALSE",  "FROM",    "GROUP", "HAVING",
    "IN",     "INDEX",  "INNER", "INSERT",   "INTO",   "IS",     "JOIN",    "LEFT",  "LIKE",
    "NO",     "NOT",    "NULL",  "ON",       "OR",     "ORDER",  "OUTER",   "RIGHT", "SELECT",
    "SET",    "TABLE",  "TRUE",  "UNION",    "UPDATE", "VALUES", "WHERE",   "YES"};

bool IsReserved(const Token& token)
{
    return std::any_of(kReserved.begin(), kReserved.end(),
                       [&](std::string_view word) { return IsWord(token, word); });
}

constexpr std::array<OperatorSymbol, 6> kComparisons = {{
    {"=", Operator::Equal},
    {"<>", Operator::NotEqual},
    {"<", Operator::Less},
    {"<=", Operator::LessEqual},
    {">", Operator::Greater},
    {">=", Operator::GreaterEqual},
}};

}  // namespace

const Token& TokenReader::Peek(std::size_t ahead) const
{
    return lexed_->tokens[std::min(at_ + ahead, lexed_->tokens.size() - 1)];
}

const Token& TokenReader::Next()
{
    const Token& token = Peek();
    if (token.kind != TokenKind::End)
        ++at_;
    return token;
}

bool TokenReader::AtSymbol(std::string_view symbol, std::size_t ahead) const
{
    const Token& token = Peek(ahead);
    return token.kind == TokenKind::Symbol && token.text == symbol;
}

bool TokenReader::TakeWord(std::string_view word)
{
    if (!AtWord(word))
        return false;
    Next();
    return true;
}

bool TokenReader::TakeSymbol(std::string_view symbol)
{
    if (!AtSymbol(symbol))
        return false;
    Next();
    return true;
}

void TokenReader::ExpectWord(std::string_view word)
{
    if (!TakeWord(word))
        Fail();
}

void TokenReader::ExpectSymbol(std::string_view symbol)
{
    if (!TakeSymbol(symbol))
        Fail();
}

bool TokenReader::AtName(std::size_t ahead) const
{
    const Token& token = Peek(ahead);
    return token.kind == TokenKind::QuotedName ||
           (token.kind == TokenKind::Name && !IsReserved(token));
}

std::string TokenReader::ExpectName()
{
    if (!AtName())
        Fail();
    return std::string(Next().text);
}

std::optional<Operator> TokenReader::TakeOneOf(std::span<const OperatorSymbol> symbols)
{
    for (const OperatorSymbol& entry : symbols)
        if (TakeSymbol(entry.symbol))
            return entry.operation;
    return std::nullopt;
}

std::optional<Operator> TokenReader::TakeComparison()
{
    return TakeOneOf(kComparisons);
}

std::optional<bool> TokenReader::TakeTruth()
{
    const bool yes = AtWord("TRUE") || AtWord("YES");
    if (!yes && !AtWord("FALSE") && !AtWord("NO"))
        return std::nullopt;
    Next();
    return yes;
}

std::int32_t TokenReader::ExpectCount()
{
    const Token& token = Peek();
    if (token.kind != TokenKind::Number || LiteralOf(token).kind != LiteralKind::Whole)
        Fail();
    return static_cast<std::int32_t>(LiteralOf(Next()).number);
}

}  // namespace clb
