#pragma once
#include <cstddef>
#include <string_view>

namespace clb {

/// What the rules of reading leave out of a statement without a word, or take otherwise than its
/// writer meant. Told beforehand from the text alone; nothing of it is an error.
struct LeftOut {
    /// Lines, but for empty ones, behind the first carriage return of a file whose first lines end
    /// in bare line feeds: the repair of line ends drops them.
    std::size_t linesBehindRepair = 0;
    /// Transactions behind an empty one, which ends the reading.
    std::size_t behindEmptyTransaction = 0;
    /// Transactions in front of the first account's number; all of a file that names no account.
    std::size_t beforeAccount = 0;
    /// Transactions that are not closed, or that stand within one.
    std::size_t notClosed = 0;
    /// Accounts with transactions behind the first account; these go into the first one.
    std::size_t furtherAccounts = 0;
    /// Transactions without an identifier: all but an account's first one count as duplicates.
    std::size_t withoutIdentifier = 0;

    [[nodiscard]] bool Nothing() const { return *this == LeftOut(); }
    bool operator==(const LeftOut&) const = default;
};

/// text: the whole file as it stands, before its line ends are repaired. markup: it is an OFX, QFX
/// or OFC file; a QIF file can lose lines only.
LeftOut CountLeftOut(std::string_view text, bool markup);

/// Lines that an earlier repair dropped when it made the text from the original that it kept; 0
/// when the text was not made from it.
std::size_t LinesRepairedAway(std::string_view text, std::string_view original);

}  // namespace clb
