#pragma once
#include "engine/sql/Ast.h"
#include "engine/storage/Catalogue.h"
#include "engine/storage/Database.h"

namespace clb {

/// Changes the schema: the new one or, when it throws EngineError, the old one, never a part. Must
/// run inside the pending group; the catalogue is out of date afterwards.
void ApplyDdl(const DdlStatement& ddl, Catalogue& catalogue, Database& database);

}  // namespace clb
