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

/// Moves along the tokens. The parsers of the parts of an SQL text share one; the parser of search
/// criteria has its own.
class TokenReader {
public:
    explicit TokenReader(const LexedStatement& lexed) : lexed_(&lexed) {}

    [[nodiscard]] const Token& Peek(std::size_t ahead = 0) const;
    const Token& Next();
    [[nodiscard]] const Literal& LiteralOf(const Token& token) const
    {
        return lexed_->literals[token.literal];
    }

    /// Without regard to case; words are given in capitals.
    [[nodiscard]] bool AtWord(std::string_view word) const { return IsWord(Peek(), word); }
    [[nodiscard]] bool AtSymbol(std::string_view symbol, std::size_t ahead = 0) const;
    bool TakeWord(std::string_view word);
    bool TakeSymbol(std::string_view symbol);
    void ExpectWord(std::string_view word);
    void ExpectSymbol(std::string_view symbol);
    /// A name, in brackets or not a word of the language.
    [[nodiscard]] bool AtName(std::size_t ahead = 0) const;
    std::string ExpectName();
    /// "=", "<>", "<", "<=", ">" or ">="; nothing, and nothing taken, for anything else.
    std::optional<Operator> TakeComparison();
    std::optional<Operator> TakeOneOf(std::span<const OperatorSymbol> symbols);
    /// TRUE, YES, FALSE or NO; nothing, and nothing taken, for anything else.
    std::optional<bool> TakeTruth();
    /// A whole number from 0.
    std::int32_t ExpectCount();
    [[noreturn]] void Fail() const { throw refuse::Syntax(Peek().text); }

private:
    const LexedStatement* lexed_;
    std::size_t at_ = 0;
};

}  // namespace clb
