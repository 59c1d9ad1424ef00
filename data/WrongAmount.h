// Finds the cell that keeps a sum from being made.
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
    std::string condition;  ///< selects the rows, as after WHERE; empty: all rows
    std::string account{};  ///< number of the account that the rows belong to; empty: of several
};

/// Throws the error that a sum ended with. If the cause is a cell that is not an amount, the
/// error's text names the first such cell: table, column, number, piece and account. If the sum is
/// too large, the text names the account or, without one, the table. Reads the table only to find a
/// wrong cell.
[[noreturn]] void ThrowWithPlace(Connection& connection, const SummedAmounts& amounts,
                                 const EngineError& error);

}  // namespace clb
