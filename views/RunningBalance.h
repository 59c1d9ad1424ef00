// The balance of an account after each of its shown transactions.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/Money.h"

namespace clb {

class GridRows;

/// Computes the balances from the balance at the end of the shown month, backwards. Reads only the
/// rows that are shown, once, when the first balance is asked for; all sums are exact.
class RunningBalance {
public:
    /// Sets the balance after the last transaction of the shown rows, and forgets the others. Call
    /// it whenever the rows may have changed.
    void EndsWith(Money balance);
    /// The balance after the transaction in a displayed row of a register. Nothing for other rows,
    /// and if an amount or a sum is not one.
    std::optional<Money> After(const GridRows& rows, std::size_t row);

private:
    void Compute(const GridRows& rows);

    Money last_;
    std::uint64_t generation_ = 0;
    bool known_ = false;
    std::vector<Money> after_;  // by row of the source; empty if they cannot be computed
};

}  // namespace clb
