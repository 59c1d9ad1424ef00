#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace clb {

/// One thing that is wrong in a database, or several rows with the same.
struct Finding {
    /// "damage", "orphan", "balance", "category" or "month"; "clb check" adds "backup".
    std::string kind;
    std::string table;  ///< empty for damage and backup
    std::string text;   ///< what and where, a sentence
    std::int32_t rows = 0;
};

struct DatabaseReport {
    std::string file;
    std::int16_t schemaVersion = 0;  ///< 0: the file has never had one
    std::vector<Finding> findings;
};

/// Looks for what the program keeps in order: the file itself, rows of accounts that do not exist,
/// stored balances against the sums of their rows, categories without a budget line in their month,
/// months that are none. Changes nothing, the schema included; of a damaged file only the damage is
/// told. Throws EngineError when the file cannot be opened.
DatabaseReport CheckDatabase(const std::string& folder);

/// Stores every account's balance anew; returns how many it changed. Brings an older schema up to
/// date. Throws EngineError.
std::int32_t RepairBalances(const std::string& folder);

}  // namespace clb
