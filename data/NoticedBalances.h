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
    std::optional<Money> stored;  ///< nothing: the account has none
    std::optional<Money> sum;     ///< nothing: its rows add up to more than an amount can be
    /// What was stored if it was not an amount, in words: "2 raw bytes"; empty otherwise.
    std::string instead{};
};

/// The list of balances that did not fit their rows when something stored them anew, or when the
/// program was started. It says that rows were changed or deleted behind the program's back, and is
/// kept in the user's file until a person has taken note.
///
/// The table CvBalance is made with the first entry: At, AccountID, Stored, Total (both amounts may
/// be missing), NoticedBy ("import", "repair", "window" or "start"), TakenNoteOf (empty until
/// then), StoredInstead (added to an older list that lacks it). No statement is traced. All throw
/// EngineError.
namespace noticed_balances {

/// What was done when somebody noticed a balance, by what NoticedBy holds: "a repair worked the
/// balances out again".
std::string OccasionOf(std::string_view by);

/// Adds the balances to the list, in the pending group. What stands there already with the same
/// account and figures, and nobody has taken note of, is not added again.
void Note(Connection& connection, const std::vector<OddBalance>& odd, const std::string& by,
          const Date& now);

/// How many entries nobody has taken note of.
std::int32_t CountOpen(Connection& connection);

/// Marks every entry as taken note of, in the pending group; returns how many there were.
std::int32_t TakeNote(Connection& connection, const Date& now);

/// Lets the entries of an account follow its changed number, as its rows do: not while another
/// account still has the old one. To be called after the change, in its group.
void FollowAccount(Connection& connection, const std::string& from, const std::string& to);

}  // namespace noticed_balances
}  // namespace clb
