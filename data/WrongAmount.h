#pragma once
#include <string>
#include <vector>

namespace clb {

class Connection;
class EngineError;

/// The amounts that a sum is made of.
struct SummedAmounts {
    std::string table;
    std::vector<std::string> columns;
    std::string condition;  ///< of the rows, as after WHERE; empty: all rows
    std::string account{};  ///< number of the account whose rows they are; empty: not of one
};

/// Throws the error that a sum ended with. If that is because a cell holds something that is not an
/// amount, the error's text names the first such cell: table, column, number, piece and account. If
/// the sum is too large, the text names the account, or else the table. Reads the table only for
/// the first.
[[noreturn]] void ThrowWithPlace(Connection& connection, const SummedAmounts& amounts,
                                 const EngineError& error);

}  // namespace clb
