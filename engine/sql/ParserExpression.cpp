#include <algorithm>
#include <optional>
#include <utility>

#include "base/Text.h"
#include "engine/sql/ParserCore.h"

namespace clb {
namespace {

/// Deeper expressions are rejected, so that no query can exhaust the stack.
constexpr int kDeepest = 400;

ExpressionPtr Make(ExpressionKind kind)
{
    auto expression = std::make_unique<Expression>();
    expression->kind = kind;
    return expression;
}

void Adopt(Expression& parent, ExpressionPtr operand)
{
    parent.depth = std::max(parent.depth, operand->depth + 1);
    if (parent.depth > kDeepest)
        throw refuse::WrongSql("The expression is too complex.");
    parent.operands.push_back(std::move(operand));
}

ExpressionPtr MakeBinary(Operator operation, ExpressionPtr left, ExpressionPtr right)
{
    auto expression = Make(ExpressionKind::Binary);
    expression->operation = operation;
    Adopt(*expression, std::move(left));
    Adopt(*expression, std::move(right));
    return expression;
}

struct FunctionName {
    std::string_view name;
    Function function;
    std::size_t fewest;
    std::size_t most;
};

constexpr FunctionName kFunctionNames[] = {
    {"SUM", Function::Sum, 1, 1},       {"COUNT", Function::Count, 1, 1},
    {"MIN", Function::Min, 1, 1},       {"MAX", Function::Max, 1, 1},
    {"AVG", Function::Avg, 1, 1},       {"YEAR", Function::Year, 1, 1},
    {"MONTH", Function::Month, 1, 1},   {"DAY", Function::Day, 1, 1},
    {"LEN", Function::Len, 1, 1},       {"LEFT", Function::Left, 2, 2},
    {"RIGHT", Function::Right, 2, 2},   {"MID", Function::Mid, 2, 3},
    {"UCASE", Function::UCase, 1, 1},   {"LCASE", Function::LCase, 1, 1},
    {"TRIM", Function::Trim, 1, 1},     {"LTRIM", Function::LTrim, 1, 1},
    {"RTRIM", Function::RTrim, 1, 1},   {"ABS", Function::Abs, 1, 1},
    {"ROUND", Function::Round, 1, 2},   {"IIF", Function::IIf, 3, 3},
    {"ISNULL", Function::IsNull, 1, 1}, {"NZ", Function::Nz, 1, 2},
    {"CSTR", Function::CStr, 1, 1},     {"CLNG", Function::CLng, 1, 1},
    {"CCUR", Function::CCur, 1, 1},     {"CDBL", Function::CDbl, 1, 1},
};

class ExpressionParser {
public:
    explicit ExpressionParser(TokenReader& in) : in_(in) {}

    ExpressionPtr Disjunction()
    {
        const Nesting nesting(*this);
        ExpressionPtr left = Conjunction();
        while (in_.TakeWord("OR"))
            left = MakeBinary(Operator::Or, std::move(left), Conjunction());
        return left;
    }

private:
    /// Counts how deeply the parser has called itself.
    class Nesting {
    public:
        explicit Nesting(ExpressionParser& parser) : parser_(parser)
        {
            if (++parser_.nesting_ > kDeepest)
                throw refuse::WrongSql("The expression is too complex.");
        }
        ~Nesting() { --parser_.nesting_; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;

    private:
        ExpressionParser& parser_;
    };

    ExpressionPtr Conjunction()
    {
        ExpressionPtr left = Negation();
        while (in_.TakeWord("AND"))
            left = MakeBinary(Operator::And, std::move(left), Negation());
        return left;
    }

    ExpressionPtr Negation()
    {
        if (!in_.TakeWord("NOT"))
            return Comparison();
        const Nesting nesting(*this);
        auto expression = Make(ExpressionKind::Not);
        Adopt(*expression, Negation());
        return expression;
    }

    ExpressionPtr Comparison()
    {
        ExpressionPtr left = Concatenation();
        for (;;) {
            if (const auto operation = in_.TakeComparison())
                left = MakeBinary(*operation, std::move(left), Concatenation());
            else if (AtPredicate())
                left = Predicate(std::move(left));
            else
                return left;
        }
    }

    [[nodiscard]] bool AtPredicate() const
    {
        const Token& token = in_.Peek(in_.AtWord("NOT") ? 1 : 0);
        return in_.AtWord("IS") || IsWord(token, "IN") || IsWord(token, "LIKE") ||
               IsWord(token, "BETWEEN");
    }

    ExpressionPtr Predicate(ExpressionPtr left)
    {
        if (in_.TakeWord("IS"))
            return NullTest(std::move(left));
        const bool negated = in_.TakeWord("NOT");
        auto expression = Make(ExpressionKind::Like);
        expression->negated = negated;
        Adopt(*expression, std::move(left));
        if (in_.TakeWord("IN")) {
            expression->kind = ExpressionKind::In;
            in_.ExpectSymbol("(");
            do
                Adopt(*expression, Disjunction());
            while (in_.TakeSymbol(","));
            in_.ExpectSymbol(")");
        } else if (in_.TakeWord("BETWEEN")) {
            expression->kind = ExpressionKind::Between;
            Adopt(*expression, Concatenation());
            in_.ExpectWord("AND");
            Adopt(*expression, Concatenation());
        } else {
            in_.ExpectWord("LIKE");
            Adopt(*expression, Concatenation());
        }
        return expression;
    }

    ExpressionPtr NullTest(ExpressionPtr operand)
    {
        auto expression = Make(ExpressionKind::NullTest);
        expression->negated = in_.TakeWord("NOT");
        in_.ExpectWord("NULL");
        Adopt(*expression, std::move(operand));
        return expression;
    }

    ExpressionPtr Concatenation()
    {
        ExpressionPtr left = Sum();
        while (in_.TakeSymbol("&"))
            left = MakeBinary(Operator::Concatenate, std::move(left), Sum());
        return left;
    }

    ExpressionPtr Sum()
    {
        static constexpr OperatorSymbol kSigns[] = {{"+", Operator::Add},
                                                    {"-", Operator::Subtract}};
        ExpressionPtr left = Product();
        while (const auto operation = in_.TakeOneOf(kSigns))
            left = MakeBinary(*operation, std::move(left), Product());
        return left;
    }

    ExpressionPtr Product()
    {
        static constexpr OperatorSymbol kSigns[] = {{"*", Operator::Multiply},
                                                    {"/", Operator::Divide}};
        ExpressionPtr left = Signed();
        while (const auto operation = in_.TakeOneOf(kSigns))
            left = MakeBinary(*operation, std::move(left), Signed());
        return left;
    }

    ExpressionPtr Signed()
    {
        if (in_.TakeSymbol("+"))
            return Signed();
        if (!in_.TakeSymbol("-"))
            return Operand();
        const Nesting nesting(*this);
        ExpressionPtr operand = Signed();
        if (IsNumberLiteral(*operand)) {
            operand->negated = !operand->negated;
            return operand;
        }
        auto expression = Make(ExpressionKind::Negate);
        Adopt(*expression, std::move(operand));
        return expression;
    }

    ExpressionPtr Operand()
    {
        const Token& token = in_.Peek();
        if (in_.TakeSymbol("(")) {
            ExpressionPtr inner = Disjunction();
            in_.ExpectSymbol(")");
            return inner;
        }
        if (IsLiteral(token))
            return TakeLiteral();
        if (AtCall())
            return TakeCall();
        if (in_.AtName())
            return TakeColumn();
        return TakeWordValue();
    }

    /// LEFT and RIGHT are reserved words and functions.
    [[nodiscard]] bool AtCall() const
    {
        const bool name = in_.AtName() || in_.AtWord("LEFT") || in_.AtWord("RIGHT");
        return name && in_.Peek().kind == TokenKind::Name && in_.AtSymbol("(", 1);
    }

    ExpressionPtr TakeLiteral()
    {
        const Token& token = in_.Next();
        auto expression = Make(ExpressionKind::Literal);
        expression->literal = token.literal;
        expression->literalKind = in_.LiteralOf(token).kind;
        return expression;
    }

    ExpressionPtr TakeWordValue()
    {
        if (in_.TakeWord("NULL"))
            return Make(ExpressionKind::NullValue);
        const auto truth = in_.TakeTruth();
        if (!truth)
            in_.Fail();
        auto expression = Make(ExpressionKind::Truth);
        expression->truth = *truth;
        return expression;
    }

    ExpressionPtr TakeColumn()
    {
        auto expression = Make(ExpressionKind::Column);
        expression->name = in_.ExpectName();
        if (in_.TakeSymbol(".")) {
            expression->qualifier = std::move(expression->name);
            expression->name = in_.ExpectName();
        }
        return expression;
    }

    ExpressionPtr TakeCall()
    {
        const std::string_view name = in_.Next().text;
        const auto* const entry =
            std::find_if(std::begin(kFunctionNames), std::end(kFunctionNames),
                         [&](auto& known) { return EqualsIgnoringCase(name, known.name); });
        if (entry == std::end(kFunctionNames))
            throw refuse::NoSuchFunction(name);
        auto expression = Make(ExpressionKind::Call);
        expression->function = entry->function;
        expression->name = name;
        in_.ExpectSymbol("(");
        if (entry->function == Function::Count && in_.TakeSymbol("*")) {
            in_.ExpectSymbol(")");
            return expression;
        }
        do
            Adopt(*expression, Disjunction());
        while (in_.TakeSymbol(","));
        in_.ExpectSymbol(")");
        if (expression->operands.size() < entry->fewest ||
            expression->operands.size() > entry->most)
            throw refuse::NoSuchFunction(name);
        return expression;
    }

    TokenReader& in_;
    int nesting_ = 0;
};

}  // namespace

ExpressionPtr ParseExpression(TokenReader& in)
{
    return ExpressionParser(in).Disjunction();
}

}  // namespace clb
