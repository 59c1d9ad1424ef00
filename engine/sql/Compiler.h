// From an SQL text to a prepared query.
#pragma once
#include <memory>

#include "engine/sql/Plan.h"

namespace clb {

/// Parses, checks, translates and prepares one query. Throws EngineError before anything has run.
std::unique_ptr<Plan> Compile(const LexedSql& lexed, Catalogue& catalogue, Database& database);

}  // namespace clb
