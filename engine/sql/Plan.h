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

/// Values for a statement's parameters, in order.
using BoundValues = std::vector<Value>;

/// A compiled statement: checked, written in the storage's SQL and prepared. All statements of one
/// shape share one plan; only their bound values differ.
struct Plan {
    enum class Kind { Select, Write, Ddl };

    Kind kind = Kind::Write;
    Statement statement;
    std::vector<Parameter> parameters;

    /// The table whose counter numbers the rows that an INSERT, or this result set, adds; empty
    /// where there is no counter, or the INSERT gives the number.
    std::string numberedTable;

    // Of a SELECT.
    std::vector<Field> fields;
    std::vector<Field> readOnlyFields;  ///< the same, none of them updatable
    /// Per field its column in the one table; its name is empty for an expression.
    std::vector<ColumnInfo> columns;
    bool plain = false;         ///< no field is an expression
    bool carriesRowId = false;  ///< one table: behind the fields stands the row's identity
    bool updatable = false;
    std::string table;
    bool triggers = false;
    std::string readerSql;  ///< reads one row by its identity
    /// Reads the rows from one identity to another in order, their identities behind the fields.
    std::string stretchSql;
    int readerRowParameter = 0;  ///< of both; that of the last row is the next
    /// The identities of the rows alone, where no more than these need be put in order; takes the
    /// statement's parameters. Empty otherwise.
    std::string identitiesSql;

    // Of CREATE, DROP and ALTER, which run only once.
    std::unique_ptr<DdlStatement> ddl;

    // Prepared when first needed; the set of fields written is a bit for each.
    Statement reader;
    Statement stretch;
    Statement identities;
    std::map<std::vector<bool>, Statement> inserts;
    std::map<std::vector<bool>, Statement> updates;
    Statement remove;
};

}  // namespace clb
