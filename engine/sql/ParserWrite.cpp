#include <utility>

#include "engine/sql/ParserCore.h"

namespace clb {

InsertQuery ParseInsert(TokenReader& in)
{
    InsertQuery insert;
    in.ExpectWord("INSERT");
    in.ExpectWord("INTO");
    insert.table = in.ExpectName();
    if (in.TakeSymbol("(")) {
        do
            insert.columns.push_back(in.ExpectName());
        while (in.TakeSymbol(","));
        in.ExpectSymbol(")");
    }
    if (in.AtWord("SELECT")) {
        insert.select = std::make_unique<SelectQuery>(ParseSelect(in));
        return insert;
    }
    in.ExpectWord("VALUES");
    in.ExpectSymbol("(");
    do
        insert.values.push_back(ParseExpression(in));
    while (in.TakeSymbol(","));
    in.ExpectSymbol(")");
    return insert;
}

UpdateQuery ParseUpdate(TokenReader& in)
{
    UpdateQuery update;
    in.ExpectWord("UPDATE");
    update.table = in.ExpectName();
    in.ExpectWord("SET");
    do {
        UpdateQuery::Assignment assignment;
        assignment.column = in.ExpectName();
        if (in.TakeSymbol(".")) {
            assignment.qualifier = std::move(assignment.column);
            assignment.column = in.ExpectName();
        }
        in.ExpectSymbol("=");
        assignment.value = ParseExpression(in);
        update.assignments.push_back(std::move(assignment));
    } while (in.TakeSymbol(","));
    if (in.TakeWord("WHERE"))
        update.where = ParseExpression(in);
    return update;
}

DeleteQuery ParseDelete(TokenReader& in)
{
    DeleteQuery remove;
    in.ExpectWord("DELETE");
    in.TakeSymbol("*");
    in.ExpectWord("FROM");
    remove.table = in.ExpectName();
    if (in.TakeWord("WHERE"))
        remove.where = ParseExpression(in);
    return remove;
}

}  // namespace clb
