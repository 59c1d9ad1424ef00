#pragma once

namespace clb {

class Database;

/// The text of the storage's error for a whole number that does not fit.
inline constexpr const char* kIntegerOverflow = "integer overflow";

/// Gives the database the functions and the collation that written statements use at run time:
/// checked money and whole-number arithmetic, conversions, text pieces, alphabetical order. None of
/// them may stand in a stored schema, so that every tool can read the file.
///
///   clb_alpha                       collation: alphabetical whatever the case
///   clb_add(a, b) clb_subtract(a, b) clb_negate(a)   scaled money; overflow is an error
///   clb_multiply(a, b)              two scaled amounts, half to even at the fourth decimal
///   clb_times(a, n)                 scaled money times a number
///   clb_sum(n)                      aggregate: exact sum of whole numbers or scaled money; only
///   the
///                                   whole must fit; null without any
///   clb_exact(n)                    n, an error unless it is stored as a whole number
///   clb_long(n)                     n, an error beyond 32 bits
///   clb_divide(a, b)                double; division by zero is an error
///   clb_convert(x, from, to, width, column)   between column types, given as numbers of FieldType
///   clb_left(t, n) clb_right(t, n) clb_mid(t, from, n)   characters, from 1; a large n: to the end
///   clb_round(x, decimals, type)    half to even
void RegisterFunctions(Database& database);

}  // namespace clb
