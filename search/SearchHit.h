// A found transaction, as a list shows it.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/Value.h"

namespace clb {

class Connection;

/// A found transaction: its cells as the views read them. A cell that is empty, or holds something
/// else than its column is for, is null here.
struct SearchHit {
    std::int64_t identity = 0;  ///< the row's, which the storage gives it
    Value sequence;             ///< Long: the transaction's number
    Value subSequence;          ///< Long: its piece
    Value account;              ///< Text: name of the account; null if there is no such account
    Value accountID;            ///< Text
    Value date;                 ///< Date: PostDate
    Value description;          ///< Text
    Value amount;               ///< Money
    Value category;             ///< Text
    Value notes;                ///< Text
    Value checkID;              ///< Text
    Value year;                 ///< Long: the month it is booked to
    Value period;               ///< Long
};

/// Reads the rows with these identities, in the order given. Rows that are gone are left out.
/// Throws EngineError.
[[nodiscard]] std::vector<SearchHit> ReadHits(Connection& connection,
                                              std::span<const std::int64_t> identities);

}  // namespace clb
