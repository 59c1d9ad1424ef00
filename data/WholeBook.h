// Whether a database has all tables and columns of a book.
#pragma once
#include <string>

namespace clb {

class Connection;

/// Finds which of the five tables, or of the columns that the program needs, are missing from a
/// database. Returns the end of a sentence: "the tables Budget and Loan are missing", or "the table
/// _SchemaVersion names no version". Also finds a version that is older than the tables: the
/// program could not open such a book. Empty if nothing is missing. An older book may lack the
/// columns that a schema update adds. Additional tables and columns do not matter. Throws
/// RuntimeError if the database cannot be read.
std::string MissingFrom(Connection& book);

}  // namespace clb
