// Changes of tables and indices.
#pragma once
#include "engine/sql/Ast.h"
#include "engine/storage/Catalogue.h"
#include "engine/storage/Database.h"

namespace clb {

/// Changes the schema completely or, if it throws EngineError, not at all. Must run inside the
/// pending group. Afterwards the catalogue is out of date.
void ApplyDdl(const DdlQuery& ddl, Catalogue& catalogue, Database& database);

}  // namespace clb
