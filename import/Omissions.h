// The parts of a statement that an import silently omits.
#pragma once
#include <cstddef>
#include <string_view>

namespace clb {

/// Counts of what the import's rules omit from a statement without a message, or read differently
/// from what its writer meant. Found in the text alone, before the import. None of it is an error.
struct Omissions {
    /// Lines, except empty ones, after the first carriage return of a file whose first lines end in
    /// bare line feeds. The repair of line ends drops them.
    std::size_t linesAfterRepair = 0;
    /// Transactions after an empty one, which ends the import.
    std::size_t afterEmptyTransaction = 0;
    /// Transactions before the first account number; all transactions if the file has no account
    /// number.
    std::size_t beforeAccount = 0;
    /// Transactions that are not closed, or that are inside another one.
    std::size_t notClosed = 0;
    /// Accounts with transactions after the first account. These transactions go into the first
    /// account.
    std::size_t furtherAccounts = 0;
    /// Transactions without an identifier. All but an account's first one count as duplicates.
    std::size_t withoutIdentifier = 0;

    [[nodiscard]] bool None() const { return *this == Omissions(); }
    bool operator==(const Omissions&) const = default;
};

/// Counts the omissions of a file. `text` is the whole file before its line ends are repaired.
/// `markup` is true for an OFX, QFX or OFC file; from a QIF file only lines can be omitted.
[[nodiscard]] Omissions CountOmissions(std::string_view text, bool markup);

}  // namespace clb
