// Parses a query.
#pragma once
#include "engine/sql/Ast.h"
#include "engine/sql/Lexer.h"

namespace clb {

/// Parses one query. Throws EngineError with the text where parsing stopped, also for an empty
/// query and for anything after the query except one ";".
ParsedQuery Parse(const LexedSql& lexed);

}  // namespace clb
