#pragma once
#include "engine/Ast.h"
#include "engine/Lexer.h"

namespace clb {

/// One statement as a tree. Throws EngineError with the text where it does not go on; so for an
/// empty part and for anything behind the statement but one ";".
ParsedStatement Parse(const LexedStatement& lexed);

}  // namespace clb
