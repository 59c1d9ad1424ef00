#pragma once
#include <memory>

#include "engine/sql/Plan.h"

namespace clb {

/// Parses, checks, writes and prepares one statement. Throws EngineError; nothing has run then.
std::unique_ptr<Plan> Compile(const LexedStatement& lexed, Catalogue& catalogue,
                              Database& database);

}  // namespace clb
