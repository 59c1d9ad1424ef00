// Repairs a database.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "base/Date.h"

namespace clb {

/// What happens to the noticed balances.
enum class Noticed { Keep, Accept };

/// What a repair has done.
struct RepairReport {
    std::string backup{};          ///< the copy made before the repair; empty if nothing was done
    std::int32_t balances = 0;     ///< balances stored again
    std::int32_t numbers = 0;      ///< rows of Trans with a new number
    std::int32_t schema = 0;       ///< indexes and triggers made
    std::int32_t budgetLines = 0;  ///< made, with an amount of 0, for categories in use
    /// Steps dropped from the history. Nothing if it was sound.
    std::optional<std::int32_t> steps{};
    std::int32_t accepted = 0;  ///< noticed balances marked as acknowledged
};

/// Repairs what can be repaired exactly, in one commit: balances (wrong ones are added to the list
/// of noticed balances), transaction numbers that are used twice, missing indexes and triggers,
/// missing budget lines of used categories, and a broken history, which loses steps. Makes a backup
/// first. A damaged file stays as it is. It is a step of the history, like the acceptance of
/// noticed balances that may go with it. Throws EngineError and changes nothing then.
RepairReport RepairDatabase(const std::string& folder, const Date& now,
                            Noticed noticed = Noticed::Keep);

/// Marks the noticed balances as acknowledged and returns their number. A step of the history.
/// Throws EngineError.
std::int32_t AcceptBalances(const std::string& folder, const Date& now);

}  // namespace clb
