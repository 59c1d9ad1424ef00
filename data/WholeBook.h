#pragma once
#include <string>

namespace clb {

class Connection;

/// Which of the five tables, or of the columns that the program needs, a database lacks, as the end
/// of a sentence: "the tables Budget and Loan are missing", or "the table _SchemaVersion names no
/// version". Also a version that is older than the tables: the program could not open such a book.
/// Empty when nothing is missing. Columns that an update of the schema adds may be missing
/// from an older book; a later program's tables and columns do not matter. Throws RuntimeError when
/// the database cannot be read.
std::string MissingFrom(Connection& book);

}  // namespace clb
