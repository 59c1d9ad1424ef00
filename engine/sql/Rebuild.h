// Changes the type of a column by rebuilding its table.
#pragma once
#include "engine/sql/Ast.h"
#include "engine/storage/Catalogue.h"
#include "engine/storage/Database.h"

namespace clb {

/// Returns a value as a literal of the storage's SQL, as a column of the type stores it. Throws
/// EngineError if the value does not fit the column.
std::string StoredLiteral(const Value& value, const ColumnType& type, std::string_view column);

/// Returns the column's default converted to another type, as the storage's SQL. Empty if it has
/// none.
std::string ConvertedDefault(const ColumnInfo& column, const ColumnType& type, Database& database);

/// Changes the type of one column and converts the value in every row. The rows keep their
/// identities and order. The table keeps its indices, triggers, defaults, keys and the state of its
/// counter. Throws EngineError if a value does not fit; the caller must roll back then.
void RebuildWithColumn(const TableInfo& table, const ColumnInfo& column, Database& database);

}  // namespace clb
