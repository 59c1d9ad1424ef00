// The parsers of the parts of a query.
#pragma once
#include "engine/sql/Ast.h"
#include "engine/sql/TokenReader.h"

namespace clb {

/// Parses an expression. From the loosest to the tightest binding: OR, AND, NOT, comparison, "&",
/// plus and minus, times and divided by, sign, operand.
ExpressionPtr ParseExpression(TokenReader& in);

SelectQuery ParseSelect(TokenReader& in);
InsertQuery ParseInsert(TokenReader& in);
UpdateQuery ParseUpdate(TokenReader& in);
DeleteQuery ParseDelete(TokenReader& in);
/// CREATE, DROP and ALTER.
DdlQuery ParseDdl(TokenReader& in);

}  // namespace clb
