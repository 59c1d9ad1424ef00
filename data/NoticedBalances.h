// The list of balances that were found to be wrong.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"
#include "base/Money.h"

namespace clb {

class Connection;

/// An account whose stored balance is not the sum of its rows.
struct OddBalance {
    std::string accountID;
    std::string description;
    std::optional<Money> stored;  ///< nothing: no balance is stored
    std::optional<Money> sum;     ///< nothing: an amount cannot hold the sum
    /// What was stored if it was not an amount, in words: "2 raw bytes"; empty otherwise.
    std::string instead{};
};

/// The list of balances that did not match their rows when they were recomputed, or when the
/// program was started. An entry means that rows were changed or deleted outside the program. The
/// list is kept in the user's file until a person has taken note of it.
///
/// The table CvBalance is made with the first entry: At, AccountID, Stored, Total (both amounts may
/// be missing), NoticedBy ("import", "repair", "window" or "start"), TakenNoteOf (null until then),
/// StoredInstead (added to an older list that lacks it). No query is traced. All functions
/// throw EngineError.
namespace noticed_balances {

/// What was done when somebody noticed a balance, from the text in NoticedBy: "a repair worked the
/// balances out again".
std::string OccasionOf(std::string_view by);

/// Adds the balances to the list, in the pending group. An entry with the same account and amounts
/// that nobody has taken note of is not added again.
void Note(Connection& connection, const std::vector<OddBalance>& odd, const std::string& by,
          const Date& now);

/// Counts the entries that nobody has taken note of.
std::int32_t CountOpen(Connection& connection);

/// Marks every entry as taken note of, in the pending group; returns how many there were.
std::int32_t TakeNote(Connection& connection, const Date& now);

/// Changes the account number in an account's entries after the account's own number was changed,
/// as happens to its rows. Does nothing while another account still has the old number. Call it in
/// the same group.
void FollowAccount(Connection& connection, const std::string& from, const std::string& to);

}  // namespace noticed_balances
}  // namespace clb
