#pragma once
// A running total of many amounts of money that is checked for its range only once, at the end.
#include <limits>
#include <optional>

#include "base/Money.h"
#include "base/RuntimeError.h"

namespace clb {

/// A sum of amounts. The running total may exceed the range of Money if the final total fits.
class MoneySum {
public:
    constexpr MoneySum() = default;
    constexpr explicit MoneySum(Money first) : scaled_(first.Scaled()) {}

    constexpr MoneySum& operator+=(Money amount)
    {
        scaled_ += amount.Scaled();
        return *this;
    }
    /// Throws Overflow() if Money cannot hold the sum.
    [[nodiscard]] Money Total() const
    {
        const auto total = TotalIfItFits();
        if (!total)
            throw Overflow();
        return *total;
    }
    /// Returns nothing if Money cannot hold the sum.
    [[nodiscard]] constexpr std::optional<Money> TotalIfItFits() const
    {
        using Range = std::numeric_limits<std::int64_t>;
        if (scaled_ < Range::min() || scaled_ > Range::max())
            return std::nullopt;
        return Money::FromScaled(static_cast<std::int64_t>(scaled_));
    }

private:
    __extension__ using Wide = __int128;
    Wide scaled_ = 0;
};

}  // namespace clb
