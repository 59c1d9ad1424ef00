// Makes large books for the benchmarks.
#pragma once
#include <cstdint>
#include <string>

#include "base/Date.h"

namespace clb {

class WorkFolder;

/// The size of generated books: a number of bank accounts and a number of months. Every account has
/// about as many transactions in every month: 208, and 209 in each third one. So a month holds the
/// same number whatever the size of the books. Every month has a budget of 200 categories in 20
/// groups; each fifth account does not count in it. There is also a purse that is the same in books
/// of any size: 5,000 transactions, spread evenly over the first two years.
struct LedgerSize {
    std::int32_t accounts = 0;
    std::int32_t months = 0;
};
inline constexpr LedgerSize kLargeLedger{20, 240};  ///< 1,000,000 transactions and the purse
inline constexpr LedgerSize kSmallLedger{2, 24};    ///< 10,000 transactions and the purse

/// The number of an account, from 0.
std::string LedgerAccount(std::int32_t account);
/// The number of the purse.
std::string LedgerPurse();
/// A month of the ledger's last year, or of the whole ledger if that is shorter. Turn 0 is the
/// first of these months; after the last one the first comes again.
Month LateLedgerMonth(LedgerSize size, std::int32_t turn);
/// The last month with transactions of the purse.
Month LastPurseMonth(LedgerSize size);

/// Makes a program folder with such books, unless this run has made one already; returns its path.
/// The accounts' transactions alternate, in the order of their days. Throws std::runtime_error.
std::string DeliverLedger(const WorkFolder& work, LedgerSize size);

}  // namespace clb
