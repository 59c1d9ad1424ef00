// Saves an edited row without the program.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "base/Date.h"
#include "bench/Bare.h"

namespace clb {

/// The reference of saving an edited row: the statements, prepared once, in one transaction of the
/// storage.
class BareSaving {
public:
    /// Borrows the database. The register is that of the account and month.
    BareSaving(BareDatabase& database, std::string account, Month month);

    [[nodiscard]] std::size_t Rows() const { return rows_.size(); }
    /// Changes the amount of a row, counted from 0 in the register's order, and makes that durable.
    /// The account's balance and the balance at the end of the month follow. Returns the latter.
    /// Amounts are in 1/10000 units.
    std::int64_t Save(std::size_t row, std::int64_t amount);

private:
    std::string account_;
    std::vector<std::int64_t> rows_;  // row ids
    BareStatement begin_;
    BareStatement update_;
    BareStatement sum_;
    BareStatement store_;
    BareStatement opening_;
    BareStatement past_;
    BareStatement commit_;
};

}  // namespace clb
