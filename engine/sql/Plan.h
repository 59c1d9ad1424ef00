// A compiled query.
#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/sql/Ast.h"
#include "engine/sql/Field.h"
#include "engine/sql/Parameter.h"
#include "engine/storage/Catalogue.h"
#include "engine/storage/Database.h"

namespace clb {

/// The values of a query's parameters, in order.
using BoundValues = std::vector<Value>;

/// A compiled query: checked, translated into the storage's SQL and prepared. All queries of one
/// shape share one plan. Only their bound values differ.
struct Plan {
    enum class Kind { Select, Write, Ddl };

    Kind kind = Kind::Write;
    Query query;
    std::vector<Parameter> parameters;

    /// The table whose counter numbers the rows that an INSERT, or this result set, adds. Empty if
    /// there is no counter or the INSERT gives the number.
    std::string numberedTable;

    // Of a SELECT.
    std::vector<Field> fields;
    std::vector<Field> readOnlyFields;  ///< the same, none of them updatable
    /// For each field its column in the only table. The name is empty for an expression.
    std::vector<ColumnInfo> columns;
    bool plain = false;         ///< no field is an expression
    bool carriesRowId = false;  ///< only one table: the row's identity follows the fields
    bool updatable = false;
    std::string table;
    bool triggers = false;
    std::string readerSql;  ///< reads one row by its identity
    /// Reads the rows from one identity to another in order. Their identities follow the fields.
    std::string stretchSql;
    int readerRowParameter = 0;  ///< of both; the parameter for the last row is the next one
    /// Reads only the identities of the rows, if the order needs nothing else. Takes the query's
    /// parameters. Empty otherwise.
    std::string identitiesSql;

    // Of CREATE, DROP and ALTER, which run only once.
    std::unique_ptr<DdlQuery> ddl;

    // Prepared when first needed. The key has a bit for each field: whether it is written.
    Query reader;
    Query stretch;
    Query identities;
    std::map<std::vector<bool>, Query> inserts;
    std::map<std::vector<bool>, Query> updates;
    Query remove;
};

}  // namespace clb
