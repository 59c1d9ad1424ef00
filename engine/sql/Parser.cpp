#include "engine/sql/Parser.h"

#include "engine/sql/ParserCore.h"

namespace clb {
namespace {

ParsedStatement ParseStatement(TokenReader& in)
{
    if (in.AtWord("SELECT"))
        return ParseSelect(in);
    if (in.AtWord("INSERT"))
        return ParseInsert(in);
    if (in.AtWord("UPDATE"))
        return ParseUpdate(in);
    if (in.AtWord("DELETE"))
        return ParseDelete(in);
    return ParseDdl(in);
}

}  // namespace

ParsedStatement Parse(const LexedStatement& lexed)
{
    TokenReader in(lexed);
    ParsedStatement statement = ParseStatement(in);
    in.TakeSymbol(";");
    if (in.Peek().kind != TokenKind::End)
        in.Fail();
    return statement;
}

}  // namespace clb
