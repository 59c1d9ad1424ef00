// Translates SELECT into the storage's SQL.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "engine/sql/Ast.h"
#include "engine/sql/ExpressionWriter.h"
#include "engine/sql/Plan.h"

namespace clb {

/// A checked SELECT and its translation, not yet prepared.
struct CompiledSelect {
    std::unique_ptr<Plan> plan;
    std::string sql;
};

CompiledSelect CompileSelect(SelectQuery& select, Catalogue& catalogue);

/// Appends the SELECT to the writer. Its fields are converted for the columns, in order. Throws
/// EngineError if their numbers differ.
void WriteSelectFor(const std::vector<const ColumnInfo*>& columns, SelectQuery& select,
                    Catalogue& catalogue, ExpressionWriter& writer);

/// Throws EngineError if the column can store no value of this kind, such as a date in a number
/// column.
void RequireStorable(const Expression& value, const ColumnInfo& column);

}  // namespace clb
