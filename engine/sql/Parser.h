#pragma once
#include "engine/sql/Ast.h"
#include "engine/sql/Lexer.h"

namespace clb {

/// One statement as a tree. Throws EngineError with the text where it does not go on; so for an
/// empty part and for anything behind the statement but one ";".
ParsedStatement Parse(const LexedStatement& lexed);

}  // namespace clb
