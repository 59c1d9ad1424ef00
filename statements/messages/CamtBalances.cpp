#include "statements/messages/CamtBalances.h"

#include "statements/messages/CamtNodes.h"

namespace clb {

void CamtBalances::Add(const CamtPart& part)
{
    const CamtTree tree(part.text);
    if (!tree.IsWhole())
        return;
    const CamtNode node = tree.Root();
    const CamtAmount amount = AmountOf(Child(node, "Amt"));
    const auto credit = IsCredit(TextAt(node, "CdtDbtInd"));
    if (currency_.empty())
        currency_ = amount.currency;
    if (!amount.amount || !credit)
        return;
    const Balance balance{*credit ? *amount.amount : -*amount.amount, DayOf(Child(node, "Dt"))};
    Keep(kinds_[amount.currency], TextAt(node, "Tp/CdOrPrtry/Cd", "Tp/Cd"), balance);
}

void CamtBalances::Keep(Kinds& kinds, const std::string& code, const Balance& balance) const
{
    if (code == "OPBD" && !kinds.opening)
        kinds.opening = balance;
    else if (code == "PRCD" && !kinds.previous)
        kinds.previous = balance;
    else if (code == "CLBD")
        kinds.closing = balance;
    else if (code == "ITAV" && kind_ == CamtKind::Report)
        kinds.available = balance;
    if (code != "ITBD")
        return;
    ++kinds.interims;
    if (!kinds.firstInterim)
        kinds.firstInterim = balance;
    kinds.lastInterim = balance;
}

StatementBalances CamtBalances::Chosen(const Kinds& kinds) const
{
    const bool page = kinds.interims > 1 || (kinds.closing && kind_ == CamtKind::Statement);
    const auto& opening = kinds.opening    ? kinds.opening
                          : kinds.previous ? kinds.previous
                          : page           ? kinds.firstInterim
                                           : kinds.opening;
    const auto& closing = kinds.closing       ? kinds.closing
                          : kinds.lastInterim ? kinds.lastInterim
                                              : kinds.available;
    StatementBalances balances;
    if (opening)
        balances.opening = opening->amount;
    if (closing) {
        balances.closing = closing->amount;
        balances.closingDate = closing->day;
    }
    return balances;
}

std::map<std::string, StatementBalances> CamtBalances::ByCurrency() const
{
    std::map<std::string, StatementBalances> balances;
    for (const auto& [currency, kinds] : kinds_)
        balances[currency] = Chosen(kinds);
    return balances;
}

}  // namespace clb
