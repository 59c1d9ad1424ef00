#include "statements/messages/AccountSwitch.h"

#include <utility>

namespace clb {

AccountSwitch::AccountSwitch(IStatementSink& sink, Balances balances)
    : sink_(sink), balances_(std::move(balances))
{
}

void AccountSwitch::To(std::size_t number, const StatementAccount& account)
{
    if (current_ == number)
        return;
    End();
    sink_.BeginAccount(account);
    current_ = number;
}

void AccountSwitch::End()
{
    if (current_)
        sink_.EndAccount(balances_(*current_));
    current_.reset();
}

}  // namespace clb
