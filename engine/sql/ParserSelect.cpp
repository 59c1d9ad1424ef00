#include <utility>

#include "engine/sql/ParserCore.h"

namespace clb {
namespace {

/// How deeply FROM may nest parentheses.
constexpr int kDeepestJoin = 32;

std::unique_ptr<TableExpression> ParseJoins(TokenReader& in, std::size_t& sources, int depth);

std::unique_ptr<TableExpression> ParseTable(TokenReader& in, std::size_t& sources, int depth)
{
    if (in.TakeSymbol("(")) {
        if (depth > kDeepestJoin)
            throw refuse::WrongSql("The expression is too complex.");
        auto inner = ParseJoins(in, sources, depth + 1);
        in.ExpectSymbol(")");
        return inner;
    }
    auto table = std::make_unique<TableExpression>();
    table->table = in.ExpectName();
    table->alias = table->table;
    if (in.TakeWord("AS") || in.AtName())
        table->alias = in.ExpectName();
    table->source = sources++;
    return table;
}

std::unique_ptr<TableExpression> ParseJoins(TokenReader& in, std::size_t& sources, int depth)
{
    auto left = ParseTable(in, sources, depth);
    while (in.AtWord("INNER") || in.AtWord("LEFT") || in.AtWord("JOIN")) {
        auto join = std::make_unique<TableExpression>();
        if (in.TakeWord("LEFT")) {
            in.TakeWord("OUTER");
            join->join = JoinKind::Left;
        } else {
            in.TakeWord("INNER");
        }
        in.ExpectWord("JOIN");
        join->left = std::move(left);
        join->right = ParseTable(in, sources, depth);
        in.ExpectWord("ON");
        join->on = ParseExpression(in);
        left = std::move(join);
    }
    return left;
}

/// Tables separated by commas are joined without a condition.
std::unique_ptr<TableExpression> ParseFrom(TokenReader& in)
{
    std::size_t sources = 0;
    auto left = ParseJoins(in, sources, 0);
    while (in.TakeSymbol(",")) {
        auto join = std::make_unique<TableExpression>();
        join->left = std::move(left);
        join->right = ParseJoins(in, sources, 0);
        left = std::move(join);
    }
    return left;
}

SelectItem ParseItem(TokenReader& in)
{
    SelectItem item;
    if (in.TakeSymbol("*")) {
        item.star = true;
        return item;
    }
    if (in.AtName() && in.AtSymbol(".", 1) && in.AtSymbol("*", 2)) {
        item.star = true;
        item.qualifier = in.ExpectName();
        in.ExpectSymbol(".");
        in.ExpectSymbol("*");
        return item;
    }
    item.expression = ParseExpression(in);
    if (in.TakeWord("AS"))
        item.alias = in.ExpectName();
    return item;
}

OrderItem ParseOrderItem(TokenReader& in)
{
    OrderItem item;
    const bool position =
        in.Peek().kind == TokenKind::Number &&
        (in.Peek(1).kind == TokenKind::End || in.AtSymbol(",", 1) || in.AtSymbol(";", 1) ||
         IsWord(in.Peek(1), "ASC") || IsWord(in.Peek(1), "DESC"));
    if (position)
        item.position = static_cast<std::size_t>(in.ExpectCount());
    else
        item.expression = ParseExpression(in);
    item.descending = in.TakeWord("DESC");
    if (!item.descending)
        in.TakeWord("ASC");
    return item;
}

}  // namespace

SelectQuery ParseSelect(TokenReader& in)
{
    SelectQuery select;
    in.ExpectWord("SELECT");
    select.distinct = in.TakeWord("DISTINCT");
    if (!select.distinct)
        in.TakeWord("ALL");
    if (in.AtWord("TOP") && in.Peek(1).kind == TokenKind::Number) {
        in.Next();
        select.top = in.ExpectCount();
    }
    do
        select.items.push_back(ParseItem(in));
    while (in.TakeSymbol(","));
    in.ExpectWord("FROM");
    select.from = ParseFrom(in);
    if (in.TakeWord("WHERE"))
        select.where = ParseExpression(in);
    if (in.TakeWord("GROUP")) {
        in.ExpectWord("BY");
        do
            select.groupBy.push_back(ParseExpression(in));
        while (in.TakeSymbol(","));
    }
    if (in.TakeWord("HAVING"))
        select.having = ParseExpression(in);
    if (in.TakeWord("ORDER")) {
        in.ExpectWord("BY");
        do
            select.orderBy.push_back(ParseOrderItem(in));
        while (in.TakeSymbol(","));
    }
    return select;
}

}  // namespace clb
