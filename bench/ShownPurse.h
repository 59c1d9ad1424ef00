// The window with the register of the purse.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/Money.h"
#include "bench/Cost.h"
#include "bench/Ledger.h"
#include "cli/Program.h"

namespace clb {

/// Returns another amount each time.
Money AmountOf(std::int32_t turn);

/// The program's window, showing the purse's register. An account with more transactions would only
/// add to the sums, which both sides make in the same way.
class ShownPurse {
public:
    ShownPurse(const std::string& folder, LedgerSize size);

    std::size_t Rows();
    /// Types another amount into a row, counted from 0, leaves the row and waits until it is
    /// durable. Throws std::runtime_error if the row is refused.
    Cost Save(std::size_t row, Money amount);
    const std::string& Balance();
    /// From now on nothing is recorded in the history.
    void WithoutHistory();

private:
    NoForms forms_;
    Program program_;
};

}  // namespace clb
