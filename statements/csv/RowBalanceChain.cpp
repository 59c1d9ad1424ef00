#include "statements/csv/RowBalanceChain.h"

#include <algorithm>

namespace clb {

void RowBalanceChain::Add(std::string_view account, std::optional<Money> amount,
                          std::optional<Money> balance, std::uint64_t currency)
{
    auto found = accounts_.find(account);
    if (found == accounts_.end())
        found = accounts_.emplace(account, Account{}).first;
    Account& at = found->second;
    const std::uint64_t own = amount ? static_cast<std::uint64_t>(amount->Scaled()) : 0;
    if (!balance) {
        at.between += own;
        return;
    }
    const auto now = static_cast<std::uint64_t>(balance->Scaled());
    if (at.started && amount)
        Compare(at, own, now, currency != at.currency);
    at = {true, now, own, 0, currency};
}

void RowBalanceChain::Compare(const Account& account, std::uint64_t own, std::uint64_t balance,
                              bool changes)
{
    const std::uint64_t change = balance - account.balance;
    const std::uint64_t withOwn = account.between + own;
    const std::uint64_t withEarlier = account.between + account.earlier;
    const std::array<bool, 4> fits = {change == withOwn, change == 0 - withEarlier,
                                      change == withEarlier, change == 0 - withOwn};
    if (std::all_of(fits.begin(), fits.end(), [](bool fit) { return fit; }))
        return;
    ++steps_;
    for (std::size_t i = 0; i < fits.size(); ++i)
        matches_[i] += fits[i] ? 1U : 0U;
    if (!changes || account.balance == 0 || balance == 0)
        return;
    ++changes_;
    for (std::size_t i = 0; i < fits.size(); ++i)
        joins_[i] += fits[i] ? 1U : 0U;
}

bool RowBalanceChain::JoinsCurrencies() const
{
    return changes_ > 0 && *std::max_element(joins_.begin(), joins_.end()) * 2 > changes_;
}

std::size_t RowBalanceChain::Most() const
{
    return *std::max_element(matches_.begin(), matches_.end());
}

std::vector<BalanceStep> RowBalanceChain::Fitting() const
{
    const std::size_t most = Most();
    if (most == 0 || (most < 2 && steps_ > 1) || most * 4 < steps_)
        return {};
    std::vector<BalanceStep> fitting;
    for (std::size_t i = 0; i < matches_.size(); ++i)
        if (matches_[i] == most || matches_[i] * 2 > most)
            fitting.push_back(static_cast<BalanceStep>(i));
    std::stable_sort(fitting.begin(), fitting.end(), [this](BalanceStep one, BalanceStep other) {
        return Matches(one) > Matches(other);
    });
    return fitting;
}

}  // namespace clb
