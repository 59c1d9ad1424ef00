#pragma once
#include <cstdint>
#include <string>

#include "base/Date.h"

namespace clb {

class WorkFolder;

/// Books of so many bank accounts over so many months. Every account has about as many transactions
/// in every month: 208, and 209 in each third one, so a month holds the same number whatever the
/// size of the books. Every month has a budget of 200 categories in 20 groups; each fifth account
/// is left out of it. Beside these accounts stands a purse that is the same in books of any size:
/// 5,000 transactions, as many a month, in the first two years.
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
/// A month of the ledger's last year, the whole ledger if it is shorter: turn 0 is the first of
/// them, and after the last one the first comes again.
Month LateLedgerMonth(LedgerSize size, std::int32_t turn);
/// The last month with transactions of the purse.
Month LastPurseMonth(LedgerSize size);

/// Makes a program folder with such books, unless this run made one before; returns its path. The
/// accounts' transactions come in turn, as the days go by. Throws std::runtime_error.
std::string DeliverLedger(const WorkFolder& work, LedgerSize size);

}  // namespace clb
