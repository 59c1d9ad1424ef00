#pragma once
#include <cstdint>
#include <string>

#include "base/Date.h"

namespace clb {

/// What a repair has done.
struct RepairReport {
    std::string backup{};          ///< the copy that was made before; empty when nothing was done
    std::int32_t balances = 0;     ///< stored anew
    std::int32_t numbers = 0;      ///< rows of Trans that have another number now
    std::int32_t schema = 0;       ///< indexes and triggers made
    std::int32_t budgetLines = 0;  ///< made, with an amount of 0, for categories in use
};

/// Repairs what can be repaired exactly, in one commit: balances (those that did not fit go to the
/// list of noticed ones), transaction numbers that stand twice, missing indexes and triggers, and
/// missing budget lines of categories in use. Makes a backup first. A damaged file stays as it is.
/// Throws EngineError, with nothing changed.
RepairReport RepairDatabase(const std::string& folder, const Date& now);

/// Takes note of the noticed balances; returns how many there were. Throws EngineError.
std::int32_t AcceptBalances(const std::string& folder, const Date& now);

}  // namespace clb
