// Whether a column of balances fits the amounts, and in which order and sign.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Money.h"

namespace clb {

/// How each balance follows from the one in the row before.
enum class BalanceStep : std::uint8_t {
    PlusOwn,       ///< plus the row's own amount: after the row, oldest first
    MinusEarlier,  ///< less the amount of the row before: after the row, newest first
    PlusEarlier,   ///< plus the amount of the row before
    MinusOwn       ///< less the row's own amount
};

/// Follows the balances of a file, account by account. Rows without a balance count towards the
/// next one.
class RowBalanceChain {
public:
    /// Takes a row. Without an amount it only sets the balance anew. currency: of the row, any
    /// number that tells currencies apart.
    void Add(std::string_view account, std::optional<Money> amount, std::optional<Money> balance,
             std::uint64_t currency = 0);

    [[nodiscard]] std::size_t Steps() const { return steps_; }
    [[nodiscard]] std::size_t Matches(BalanceStep step) const
    {
        return matches_[static_cast<std::size_t>(step)];
    }
    /// The steps that the balances take: more than one if the amounts cannot tell them apart, none
    /// if the balances do not follow from the amounts.
    [[nodiscard]] std::vector<BalanceStep> Fitting() const;
    /// Number of rows that fit the best step.
    [[nodiscard]] std::size_t Most() const;
    /// Whether the balance goes on from one currency to the next: it is that of one account. From
    /// zero and to zero every balance goes on.
    [[nodiscard]] bool JoinsCurrencies() const;

private:
    /// Sums wrap round: they are only compared.
    struct Account {
        bool started = false;
        std::uint64_t balance = 0;
        std::uint64_t earlier = 0;  ///< amount of the row with the last balance
        std::uint64_t between = 0;  ///< amounts of the rows since
        std::uint64_t currency = 0;
    };
    void Compare(const Account& account, std::uint64_t own, std::uint64_t balance, bool changes);

    std::map<std::string, Account, std::less<>> accounts_;
    std::array<std::size_t, 4> matches_{};
    std::size_t steps_ = 0;
    std::array<std::size_t, 4> joins_{};  ///< matches where the currency changes
    std::size_t changes_ = 0;
};

}  // namespace clb
