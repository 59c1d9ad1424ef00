// Reads the tokens of an SQL text in order.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "engine/sql/Ast.h"
#include "engine/sql/Lexer.h"
#include "engine/storage/Refusals.h"

namespace clb {

struct OperatorSymbol {
    std::string_view symbol;
    Operator operation;
};

/// Moves along the tokens. The parsers of the parts of a query share one reader.
class TokenReader {
public:
    explicit TokenReader(const LexedSql& lexed) : lexed_(&lexed) {}

    [[nodiscard]] const Token& Peek(std::size_t ahead = 0) const;
    const Token& Next();
    [[nodiscard]] const Literal& LiteralOf(const Token& token) const
    {
        return lexed_->literals[token.literal];
    }

    /// Words match in any case. They are given in capitals.
    [[nodiscard]] bool AtWord(std::string_view word) const { return IsWord(Peek(), word); }
    [[nodiscard]] bool AtSymbol(std::string_view symbol, std::size_t ahead = 0) const;
    bool TakeWord(std::string_view word);
    bool TakeSymbol(std::string_view symbol);
    void ExpectWord(std::string_view word);
    void ExpectSymbol(std::string_view symbol);
    /// Whether a name follows: in brackets, or not a reserved word.
    [[nodiscard]] bool AtName(std::size_t ahead = 0) const;
    std::string ExpectName();
    /// Takes "=", "<>", "<", "<=", ">" or ">=". Otherwise takes and returns nothing.
    std::optional<Operator> TakeComparison();
    std::optional<Operator> TakeOneOf(std::span<const OperatorSymbol> symbols);
    /// Takes TRUE, YES, FALSE or NO. Otherwise takes and returns nothing.
    std::optional<bool> TakeTruth();
    /// Takes a whole number that is not negative.
    std::int32_t ExpectCount();
    [[noreturn]] void Fail() const { throw refuse::Syntax(Peek().text); }

private:
    const LexedSql* lexed_;
    std::size_t at_ = 0;
};

}  // namespace clb
