#pragma once
#include "base/Date.h"

#include <cstdint>
#include <string>

namespace clb {

/// Books of so many bank accounts over so many years. Every account has about as many transactions
/// in every month: 208, and 209 in each third one, so a month holds the same number whatever the
/// size of the books. 20 accounts over 20 years are 1,000,000 transactions, 2 over 2 are 10,000.
struct LedgerSize {
    std::int32_t accounts = 0;
    std::int32_t years = 0;
};

/// The number of an account, from 0.
std::string LedgerAccount(std::int32_t account);
/// The first of a ledger's months.
Month FirstLedgerMonth();

/// Fills the delivered empty database with such books; the accounts' transactions come in turn, as
/// the days go by. Throws std::runtime_error.
void FillLedger(const std::string& databasePath, LedgerSize size);

}  // namespace clb
