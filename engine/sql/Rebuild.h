#pragma once
#include "engine/sql/Ast.h"
#include "engine/storage/Catalogue.h"
#include "engine/storage/Database.h"

namespace clb {

/// A value as a literal of the storage's SQL, in the form in which a column of the type holds it.
/// Throws EngineError when the column does not take it.
std::string StoredLiteral(const Value& value, const ColumnType& type, std::string_view column);

/// The column's default in the form of another type, as the storage's SQL; empty where it has none.
std::string ConvertedDefault(const ColumnInfo& column, const ColumnType& type, Database& database);

/// Gives one column another type, converting every row's value; rows keep their identity and order,
/// the table its indices, triggers, defaults, keys and the counter's state. Throws EngineError when
/// a value does not fit; the caller restores what was.
void RebuildWithColumn(const TableInfo& table, const ColumnInfo& column, Database& database);

}  // namespace clb
