// The functions that compiled queries call inside the storage.
#pragma once

namespace clb {

class Database;

/// The message of the storage's error for a whole number that does not fit.
inline constexpr const char* kIntegerOverflow = "integer overflow";

/// Registers the functions and the collation that compiled queries use: checked arithmetic of money
/// and whole numbers, conversions, parts of texts, alphabetical order. A stored schema may not use
/// them, so that every tool can read the file.
///
///   clb_alpha                       collation: alphabetical whatever the case
///   clb_add(a, b) clb_subtract(a, b) clb_negate(a)   scaled money; overflow is an error
///   clb_multiply(a, b)              two scaled amounts, half to even at the fourth decimal
///   clb_times(a, n)                 scaled money times a number
///   clb_sum(n)                      aggregate: exact sum of whole numbers or scaled money; only
///                                   the total must fit; null without any value
///   clb_exact(n)                    n, an error unless it is stored as a whole number
///   clb_long(n)                     n, an error beyond 32 bits
///   clb_divide(a, b)                double; division by zero is an error
///   clb_convert(x, from, to, width, column)   between column types, given as numbers of FieldType
///   clb_left(t, n) clb_right(t, n) clb_mid(t, from, n)   characters, from 1; a large n: to the end
///   clb_round(x, decimals, type)    half to even
void RegisterFunctions(Database& database);

}  // namespace clb
