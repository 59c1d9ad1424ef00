// What a book holds of one transaction, and whether the reports of several programs explain it.
#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/Date.h"

namespace clb {

/// A row of a register. Amounts are in 1/10000 of a unit.
struct Piece {
    std::string account;
    std::string description;
    std::int64_t amount = 0;
    std::string category;
    std::string notes;
    Month month;
    std::string fitid;
    std::string date;

    bool operator==(const Piece&) const = default;
};

/// The pieces of a transaction by their SubSequence. A deleted transaction has none.
using Transaction = std::map<std::int32_t, Piece>;

std::string Describe(const Transaction& transaction);

enum class Cell { Amount, Category, Notes };

/// What one program reported about one piece of a transaction.
struct ReportedStep {
    enum class Kind {
        Split,    ///< `amount` went to a new piece
        Move,     ///< booked `direction` months later
        Type,     ///< typed `text` over what `cell` showed, not stored yet
        Save,     ///< stored what was typed
        Delete,   ///< deleted the piece
        Missing,  ///< reported that there is no such piece
        Refused,  ///< did nothing because another program has changed the piece
    };
    Kind kind = Kind::Missing;
    std::string program;  ///< its own steps happened in the order of the list
    std::int32_t piece = 0;
    // These describe a split. Values that were not reported are not checked.
    std::int64_t amount = 0;
    std::optional<std::int64_t> reportedFirst = std::nullopt;
    std::optional<std::int32_t> reportedPiece = std::nullopt;
    // These describe a move.
    std::int32_t direction = 0;
    std::optional<Month> reportedMonth = std::nullopt;
    // These describe typing and saving.
    Cell cell = Cell::Amount;
    std::string text = {};  ///< an amount as its number of 1/10000
    std::optional<bool> mine =
        std::nullopt;  ///< the answer, if the program asked whose change to keep
    /// The month in which a missing piece was looked for. Empty means any.
    std::optional<Month> shown = std::nullopt;
};

std::string Describe(const ReportedStep& step);

/// Whether some order of the steps leads from `before` to `after` and fits all that was reported.
/// The steps of one program keep their order.
bool Explains(const std::vector<ReportedStep>& steps, const Transaction& before,
              const Transaction& after);

}  // namespace clb
