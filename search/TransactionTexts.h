// The transactions of a book in memory, in the form in which they are searched.
#pragma once
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Money.h"
#include "search/RepeatedTexts.h"
#include "search/RowBits.h"
#include "search/SearchQuery.h"

namespace clb {

/// What a search compares of one transaction. The texts are borrowed.
struct SearchedRow {
    std::int64_t identity = 0;  ///< the row's, which the storage gives it
    std::string_view description;
    std::string_view notes;
    std::string_view checkNumber;
    std::string_view category;
    std::optional<std::string_view> account;  ///< its number
    std::optional<std::int64_t> amount;       ///< in 1/10000 of a unit
    bool wrongAmount = false;                 ///< the cell holds something else than an amount
    std::optional<std::int32_t> day;          ///< as Date counts days
    std::int32_t sequence = 0;                ///< number of the transaction
    std::int32_t piece = 0;                   ///< and of its piece
};

/// Transactions, numbered in the order in which they were added; numbers of removed ones are not
/// used again. Some 50 bytes each beside the texts.
class TransactionTexts {
public:
    /// Makes room for so many rows.
    void Reserve(std::size_t rows);
    void Add(const SearchedRow& row);
    /// Removes a row if it is there. The room it takes stays until everything is made anew.
    void Remove(std::int64_t identity);
    /// From now on only these accounts have names: number and name of each.
    void NameAccounts(const std::vector<std::pair<std::string, std::string>>& accounts);

    /// Rows that were added, removed ones included.
    [[nodiscard]] std::size_t Rows() const { return identities_.size(); }
    /// The rows that were not removed.
    [[nodiscard]] const RowBits& Present() const { return present_; }
    [[nodiscard]] std::size_t Removed() const { return removed_; }
    [[nodiscard]] std::int64_t IdentityOf(std::size_t row) const { return identities_[row]; }

    /// The rows with a folded word in a field, removed ones perhaps included. among: other rows
    /// need not be looked at; null: there are no such rows.
    [[nodiscard]] RowBits WithWord(std::string_view word, SearchField field,
                                   const RowBits* among) const;
    [[nodiscard]] RowBits WithAmount(const std::vector<AmountRange>& ranges) const;
    [[nodiscard]] RowBits WithDay(const DayRange& days) const;
    /// The sum of the rows' amounts. Nothing if Money cannot hold it, or if one of the cells holds
    /// something else than an amount.
    [[nodiscard]] std::optional<Money> SumOf(const RowBits& rows) const;

    /// Whether a row comes before another one in a list, the newest first: the later day, then the
    /// larger number, then the smaller piece, as in a register. Rows without a date come last.
    [[nodiscard]] bool IsBefore(std::size_t row, std::size_t other) const
    {
        if (days_[row] != days_[other])
            return days_[row] > days_[other];
        return IsBeforeOfDay(row, other);
    }
    /// The same for rows of one day.
    [[nodiscard]] bool IsBeforeOfDay(std::size_t row, std::size_t other) const
    {
        if (sequences_[row] != sequences_[other])
            return sequences_[row] > sequences_[other];
        if (pieces_[row] != pieces_[other])
            return pieces_[row] < pieces_[other];
        return identities_[row] > identities_[other];
    }
    static constexpr std::int32_t kNoDay = std::numeric_limits<std::int32_t>::min();
    [[nodiscard]] std::int32_t DayOf(std::size_t row) const { return days_[row]; }

private:
    class Scan;

    [[nodiscard]] std::size_t RowOf(std::int64_t identity) const;

    // The folded description, notes and cheque number of each row, kDivider after each.
    static constexpr char kDivider = '\x1f';
    std::string texts_;
    std::vector<std::size_t> ends_;  ///< where the texts of each row end
    std::vector<std::int64_t> identities_;
    std::vector<std::int64_t> amounts_;  ///< 0 if there is none
    std::vector<std::int32_t> days_;     ///< kNoDay if there is none
    std::vector<std::int32_t> sequences_;
    std::vector<std::int32_t> pieces_;
    std::vector<std::uint32_t> accountOf_;   ///< number among accounts_, or kNoAccount
    std::vector<std::uint32_t> categoryOf_;  ///< number among categories_
    static constexpr std::uint32_t kNoAccount = std::numeric_limits<std::uint32_t>::max();
    RepeatedTexts accounts_;
    RepeatedTexts categories_;
    RowBits present_;
    RowBits withAmount_;
    RowBits wrongAmount_;
    std::size_t removed_ = 0;
    std::size_t inOrder_ = 0;  ///< so many rows at the beginning have growing identities
    std::unordered_map<std::int64_t, std::size_t> others_;  ///< rows after them, by identity
};

}  // namespace clb
