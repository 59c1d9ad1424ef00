// The empty database that is delivered with the program.
#pragma once
#include <string_view>

namespace clb {

/// The bytes of the database file that a new program folder starts with. Made at build time from
/// schema.sql and embedded.
std::string_view EmptyDatabase();

}  // namespace clb
