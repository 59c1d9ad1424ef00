#include "intake/StatementSurvey.h"

#include "base/RuntimeError.h"

namespace clb {

StatementSurvey::Key StatementSurvey::KeyOf(const StatementAccount& account)
{
    return {account.number.empty() ? account.name : account.number, account.currency};
}

std::optional<bool> StatementSurvey::Balanced(const SurveyedAccount& account)
{
    if (!account.balances.breaks.empty())
        return false;
    if (!account.balances.opening || !account.balances.closing)
        return std::nullopt;
    try {
        return *account.balances.opening + account.sum.Total() == *account.balances.closing;
    } catch (const RuntimeError&) {
        return false;
    }
}

void StatementSurvey::BeginAccount(const StatementAccount& account)
{
    const auto [place, isNew] = places_.try_emplace(KeyOf(account), accounts_.size());
    if (isNew)
        accounts_.push_back({account, {}, 0, {}});
    current_ = place->second;
}

void StatementSurvey::EndAccount(const StatementBalances& balances)
{
    StatementBalances& all = accounts_.at(current_).balances;
    if (!all.opening)
        all.opening = balances.opening;
    if (balances.closing) {
        all.closing = balances.closing;
        all.closingDate = balances.closingDate;
    }
    all.breaks.insert(all.breaks.end(), balances.breaks.begin(), balances.breaks.end());
}

void StatementSurvey::Row(const StatementRow& row)
{
    SurveyedAccount& account = accounts_.at(current_);
    ++account.rows;
    account.sum += row.amount;
}

void StatementSurvey::LeftOut(const LeftOutPart& part)
{
    leftOut_.push_back(part);
}

}  // namespace clb
