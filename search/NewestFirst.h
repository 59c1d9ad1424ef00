// The order in which found transactions are listed.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

#include "search/RowBits.h"

namespace clb {

class TransactionTexts;

/// The rows of TransactionTexts, the newest first (see TransactionTexts::IsBefore).
class NewestFirst {
public:
    /// Makes the order, unless it is made.
    void Make(const TransactionTexts& texts);
    void Forget() { rows_.clear(); }
    /// Puts a row that was just added into the order, if it is made.
    void Insert(const TransactionTexts& texts, std::size_t row);
    /// The identities of rows, the newest first, at most so many.
    [[nodiscard]] std::vector<std::int64_t> Of(const TransactionTexts& texts, const RowBits& rows,
                                               std::size_t most) const;

private:
    void SortByDay(const TransactionTexts& texts);
    void SortDays(const TransactionTexts& texts);

    std::vector<std::uint32_t> rows_;
};

}  // namespace clb
