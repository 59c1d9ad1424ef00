#pragma once
#include <memory>
#include <string>
#include <vector>

#include "engine/sql/Ast.h"
#include "engine/sql/ExpressionWriter.h"
#include "engine/sql/Plan.h"

namespace clb {

/// A checked SELECT and its text, not yet prepared.
struct CompiledSelect {
    std::unique_ptr<Plan> plan;
    std::string sql;
};

CompiledSelect CompileSelect(SelectStatement& select, Catalogue& catalogue);

/// Writes the SELECT behind what stands in the writer; its fields are converted for the columns,
/// one each. Throws EngineError when their number differs.
void WriteSelectFor(const std::vector<const ColumnInfo*>& columns, SelectStatement& select,
                    Catalogue& catalogue, ExpressionWriter& writer);

/// Throws EngineError when no value of this kind can be stored in the column: a date is no number.
void RequireStorable(const Expression& value, const ColumnInfo& column);

}  // namespace clb
