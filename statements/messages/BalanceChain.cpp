#include "statements/messages/BalanceChain.h"

namespace clb {

void BalanceChain::Add(const StatementBalances& balances)
{
    if (count_++ == 0) {
        first_ = balances;
    } else {
        forward_ = forward_ && balances.opening && balances.opening == last_.closing;
        backward_ = backward_ && balances.closing && balances.closing == last_.opening;
    }
    last_ = balances;
}

StatementBalances BalanceChain::Whole() const
{
    if (count_ > 1 && backward_ && !forward_)
        return {last_.opening, first_.closing, first_.closingDate};
    return {first_.opening, last_.closing, last_.closingDate};
}

}  // namespace clb
