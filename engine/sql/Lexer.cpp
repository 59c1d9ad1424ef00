#include "engine/sql/Lexer.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/Numeric.h"
#include "base/Text.h"
#include "engine/storage/Refusals.h"

namespace clb {
namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
constexpr bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}
constexpr bool IsNameStart(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// Most of a query is names, so the characters of names are looked up in a table.
constexpr auto kInName = [] {
    std::array<bool, 256> inName{};
    for (std::size_t c = 0; c < inName.size(); ++c)
        inName[c] = IsNameStart(static_cast<char>(c)) || IsDigit(static_cast<char>(c));
    return inName;
}();

class Scanner {
public:
    explicit Scanner(std::string_view sql) : sql_(sql) {}

    LexedSql Run()
    {
        lexed_.tokens.reserve(sql_.size() / 4 + 4);
        lexed_.literals.reserve(8);
        for (;;) {
            while (at_ < sql_.size() && IsBlank(sql_[at_]))
                ++at_;
            if (at_ == sql_.size())
                break;
            Next();
        }
        lexed_.tokens.push_back({});
        return std::move(lexed_);
    }

private:
    [[nodiscard]] char Peek(std::size_t ahead = 0) const
    {
        return at_ + ahead < sql_.size() ? sql_[at_ + ahead] : '\0';
    }

    void Next()
    {
        const char c = Peek();
        if (IsNameStart(c))
            TakeName();
        else if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)) && !AfterName()))
            TakeNumber();
        else if (c == '\'' || c == '"')
            TakeText(c);
        else if (c == '#')
            TakeDate();
        else if (c == '[')
            TakeBracketed();
        else
            TakeSymbol();
    }

    /// In "Table.5" the ".5" after a name is not a number.
    [[nodiscard]] bool AfterName() const
    {
        return !lexed_.tokens.empty() && (lexed_.tokens.back().kind == TokenKind::Name ||
                                          lexed_.tokens.back().kind == TokenKind::QuotedName);
    }

    void Add(TokenKind kind, std::size_t from, std::size_t count)
    {
        lexed_.tokens.push_back({kind, sql_.substr(from, count), lexed_.literals.size()});
    }

    void TakeName()
    {
        const std::size_t from = at_;
        while (at_ < sql_.size() && kInName[static_cast<unsigned char>(sql_[at_])])
            ++at_;
        Add(TokenKind::Name, from, at_ - from);
    }

    void TakeNumber()
    {
        const std::size_t from = at_;
        SkipDigits();
        if (Peek() == '.') {
            ++at_;
            SkipDigits();
        }
        if ((Peek() == 'e' || Peek() == 'E') &&
            (IsDigit(Peek(1)) || ((Peek(1) == '-' || Peek(1) == '+') && IsDigit(Peek(2))))) {
            at_ += 2;
            SkipDigits();
        }
        if (IsNameStart(Peek()) || Peek() == '.')
            throw refuse::Syntax(sql_.substr(from, at_ + 1 - from));
        Add(TokenKind::Number, from, at_ - from);
        lexed_.literals.push_back(ReadNumber(sql_.substr(from, at_ - from)));
    }

    void SkipDigits()
    {
        while (IsDigit(Peek()))
            ++at_;
    }

    void TakeText(char quote)
    {
        const std::size_t from = ++at_;
        Literal literal;
        for (std::size_t begin = from;;) {
            const std::size_t end = sql_.find(quote, begin);
            if (end == std::string_view::npos)
                throw refuse::Syntax(sql_.substr(from - 1));
            literal.text.append(sql_, begin, end - begin);
            at_ = end + 1;
            if (Peek() != quote)
                break;
            literal.text.push_back(quote);
            begin = at_ + 1;
        }
        Add(TokenKind::Text, from, at_ - 1 - from);
        lexed_.literals.push_back(std::move(literal));
    }

    void TakeDate()
    {
        const std::size_t end = sql_.find('#', at_ + 1);
        const auto text = sql_.substr(at_, end == std::string_view::npos ? end : end + 1 - at_);
        if (end == std::string_view::npos)
            throw refuse::Syntax(text);
        const auto inner = Trim(text.substr(1, text.size() - 2));
        auto date = Date::FromIso(inner);
        if (!date)
            date = DateText::MonthDayYear(inner);
        if (!date)
            throw refuse::WrongSql("Syntax error in date '" + std::string(text) + "'.");
        Add(TokenKind::Date, at_ + 1, text.size() - 2);
        Literal literal;
        literal.kind = LiteralKind::Date;
        literal.date = *date;
        lexed_.literals.push_back(std::move(literal));
        at_ = end + 1;
    }

    void TakeBracketed()
    {
        const std::size_t end = sql_.find(']', at_);
        if (end == std::string_view::npos || end == at_ + 1)
            throw refuse::Syntax(sql_.substr(at_));
        Add(TokenKind::QuotedName, at_ + 1, end - at_ - 1);
        at_ = end + 1;
    }

    void TakeSymbol()
    {
        static constexpr std::string_view kSingle = "(),.*+-/&=<>;";
        const auto pair = sql_.substr(at_, 2);
        std::size_t count = 1;
        if (pair == "<=" || pair == ">=" || pair == "<>")
            count = 2;
        else if (kSingle.find(sql_[at_]) == std::string_view::npos)
            throw refuse::Syntax(sql_.substr(at_, 1));
        Add(TokenKind::Symbol, at_, count);
        at_ += count;
    }

    std::string_view sql_;
    std::size_t at_ = 0;
    LexedSql lexed_;
};

bool IsInteger32(std::string_view text)
{
    std::int32_t value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

char KindLetter(LiteralKind kind)
{
    switch (kind) {
        case LiteralKind::Text: return 't';
        case LiteralKind::Whole: return 'w';
        case LiteralKind::Exact: return 'e';
        case LiteralKind::Fine: return 'f';
        case LiteralKind::Date: return 'd';
    }
    return '?';
}

}  // namespace

Literal ReadNumber(std::string_view text)
{
    Literal literal;
    literal.text = text;
    const auto number = Numeric::Read(text);
    try {
        literal.number = number.value().ToDouble();
    } catch (const RuntimeError&) {
        throw refuse::Overflow();
    }
    const auto money = number->Truncate(4);
    literal.tooLarge = !money;
    literal.scaled = money ? money->whole : 0;
    if (IsInteger32(text))
        literal.kind = LiteralKind::Whole;
    else
        literal.kind = money && money->exact ? LiteralKind::Exact : LiteralKind::Fine;
    return literal;
}

LexedSql Lex(std::string_view sql)
{
    return Scanner(sql).Run();
}

std::string ShapeOf(const LexedSql& lexed)
{
    std::string shape;
    shape.reserve(lexed.tokens.size() * 8);
    bool verbatim = false;
    for (std::size_t i = 0; i < lexed.tokens.size(); ++i) {
        const Token& token = lexed.tokens[i];
        const bool literal = IsLiteral(token);
        const bool top = literal && i > 0 && IsWord(lexed.tokens[i - 1], "TOP");
        if (literal) {
            shape.push_back('?');
            shape.push_back(KindLetter(lexed.literals[token.literal].kind));
        } else {
            verbatim = verbatim || IsWord(token, "GROUP") || IsWord(token, "ORDER");
            if (token.kind == TokenKind::QuotedName)
                shape.push_back('[');
        }
        if (!literal || verbatim || top)
            shape.append(token.text);
        if (token.kind == TokenKind::QuotedName)
            shape.push_back(']');
        shape.push_back('\x1f');
    }
    return shape;
}

bool IsWord(const Token& token, std::string_view word)
{
    return token.kind == TokenKind::Name && token.text.size() == word.size() &&
           EqualsIgnoringCase(token.text, word);
}

}  // namespace clb
