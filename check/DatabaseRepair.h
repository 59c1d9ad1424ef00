// Repairs a database.
#pragma once
#include <cstdint>
#include <string>

#include "base/Date.h"

namespace clb {

/// What a repair has done.
struct RepairReport {
    std::string backup{};          ///< the copy made before the repair; empty if nothing was done
    std::int32_t balances = 0;     ///< balances stored again
    std::int32_t numbers = 0;      ///< rows of Trans with a new number
    std::int32_t schema = 0;       ///< indexes and triggers made
    std::int32_t budgetLines = 0;  ///< made, with an amount of 0, for categories in use
};

/// Repairs what can be repaired exactly, in one commit: balances (wrong ones are added to the list
/// of noticed balances), transaction numbers that are used twice, missing indexes and triggers, and
/// missing budget lines of used categories. Makes a backup first. A damaged file stays as it is.
/// Throws EngineError and changes nothing then.
RepairReport RepairDatabase(const std::string& folder, const Date& now);

/// Marks the noticed balances as acknowledged and returns their number. Throws EngineError.
std::int32_t AcceptBalances(const std::string& folder, const Date& now);

}  // namespace clb
