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
    /// Accounts with transactions behind the first account; these go into the first one.
    std::size_t furtherAccounts = 0;
    /// Transactions without an identifier: all but an account's first one count as duplicates.
    std::size_t withoutIdentifier = 0;

    bool Nothing() const { return *this == LeftOut(); }
    bool operator==(const LeftOut&) const = default;
};

/// text: the whole file as it stands, before its line ends are repaired. markup: it is an OFX, QFX
/// or OFC file; a QIF file can lose lines only.
LeftOut CountLeftOut(std::string_view text, bool markup);

}  // namespace clb
