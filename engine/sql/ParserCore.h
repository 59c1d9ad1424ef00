// The parsers of the parts of an SQL text.
#pragma once
#include "engine/sql/Ast.h"
#include "engine/sql/TokenReader.h"

namespace clb {

/// Expressions: OR, AND, NOT, comparison, "&", plus and minus, times and divided by, sign, operand;
/// each binds closer than the one before.
ExpressionPtr ParseExpression(TokenReader& in);

SelectStatement ParseSelect(TokenReader& in);
InsertStatement ParseInsert(TokenReader& in);
UpdateStatement ParseUpdate(TokenReader& in);
DeleteStatement ParseDelete(TokenReader& in);
/// CREATE, DROP and ALTER.
DdlStatement ParseDdl(TokenReader& in);

}  // namespace clb
