#include "engine/sql/Parser.h"

#include "engine/sql/ParserCore.h"

namespace clb {
namespace {

ParsedQuery ParseQuery(TokenReader& in)
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

ParsedQuery Parse(const LexedSql& lexed)
{
    TokenReader in(lexed);
    ParsedQuery query = ParseQuery(in);
    in.TakeSymbol(";");
    if (in.Peek().kind != TokenKind::End)
        in.Fail();
    return query;
}

}  // namespace clb
