#include "data/Balances.h"

#include <exception>
#include <map>
#include <set>

#include "data/AccountKind.h"
#include "data/StoredView.h"
#include "data/clsDatabase.h"
#include "engine/storage/EngineError.h"

namespace clb {
namespace {

constexpr std::int32_t kFewAccounts = 50;

using Sums = std::map<std::string, Money>;

std::string SumOf(const Activity& activity)
{
    return std::string(activity.sum) + " AS Total FROM " + activity.table;
}

/// One account's sum; nothing if an amount cannot hold it.
std::optional<Money> SumOfOne(Connection& connection, const Activity& activity,
                              const std::string& account)
{
    const std::string condition = "AccountID = '" + clsDatabase::ToSqlString(account) + "'";
    try {
        Recordset sum = connection.Execute("SELECT " + SumOf(activity) + " WHERE " + condition);
        return IsNull(sum.Get("Total")) ? Money() : ToMoney(sum.Get("Total"));
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::Overflow)
            ThrowWithPlace(connection, AmountsOf(activity, condition), error);
        return std::nullopt;
    }
}

/// The sums of a table by account; nothing if an amount cannot hold one of them.
std::optional<Sums> AllSums(Connection& connection, const Activity& activity)
{
    try {
        Sums sums;
        Recordset groups =
            connection.Execute("SELECT AccountID, " + SumOf(activity) + " GROUP BY AccountID");
        for (; !groups.AtEnd(); groups.MoveNext())
            if (!IsNull(groups.Get("AccountID")))
                sums[ToText(groups.Get("AccountID"))] = ToMoney(groups.Get("Total"));
        return sums;
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::Overflow)
            ThrowWithPlace(connection, AmountsOf(activity, {}), error);
        return std::nullopt;
    }
}

/// The sums of one table. For a few accounts each sum is read on its own, which takes two thirds of
/// the time of a grouped sum; for many accounts all are read together at the first request.
class TableSums {
public:
    explicit TableSums(bool together) : together_(together) {}

    std::optional<Money> Of(Connection& connection, const Activity& activity,
                            const std::string& account)
    {
        if (together_)
            sums_ = AllSums(connection, activity);
        together_ = false;
        if (!sums_)
            return SumOfOne(connection, activity, account);
        const auto found = sums_->find(account);
        return found == sums_->end() ? Money() : found->second;
    }

private:
    bool together_;
    std::optional<Sums> sums_;
};

constexpr const char* kAccounts =
    "SELECT AccountID, Description, Type, CurrentBalance FROM Account";

/// The rows of the current account; nullptr if its type has none.
const Activity* CurrentActivity(const Recordset& accounts)
{
    return ActivityOf(ViewFromAccountType(ToText(accounts.Get("Type"))));
}

/// The current account, unless the sum of its rows is its balance.
std::optional<OddBalance> IfOdd(const Recordset& accounts, const std::optional<Money>& sum)
{
    const Value& balance = accounts.Get("CurrentBalance");
    const auto stored = IsNull(balance) ? std::nullopt : std::optional(ToMoney(balance));
    if (stored && stored == sum)
        return std::nullopt;
    return OddBalance{ToText(accounts.Get("AccountID")), ToText(accounts.Get("Description")),
                      stored, sum};
}

}  // namespace

void UpdateBalances(clsDatabase& database)
{
    Recordset accounts;
    database.Fill(accounts, "SELECT AccountID, Type FROM Account", true);
    std::exception_ptr overflow;
    for (; !accounts.AtEnd(); accounts.MoveNext()) {
        const Value& number = accounts.Get("AccountID");
        if (IsNull(number))
            continue;
        std::int32_t view = ViewFromAccountType(ToText(accounts.Get("Type")));
        std::string account = ToText(number);
        try {
            database.UpdateBalance(view, account);
        } catch (const EngineError& error) {
            if (error.Number() != engine_errors::Overflow)
                throw;
            overflow = std::current_exception();
        }
    }
    if (overflow)
        std::rethrow_exception(overflow);
}

std::vector<OddBalance> OddBalances(Connection& connection)
{
    const Connection::Untraced untraced(connection);
    std::vector<OddBalance> odd;
    std::set<std::string> seen;
    Recordset accounts = connection.Execute(kAccounts);
    std::map<const Activity*, TableSums> tables;
    for (; !accounts.AtEnd(); accounts.MoveNext()) {
        const Activity* const activity = CurrentActivity(accounts);
        const Value& number = accounts.Get("AccountID");
        // Of two accounts with the same number only the first is recomputed.
        if (activity == nullptr || IsNull(number) || !seen.insert(ToText(number)).second)
            continue;
        TableSums& sums =
            tables.try_emplace(activity, accounts.RecordCount() > kFewAccounts).first->second;
        const auto sum = sums.Of(connection, *activity, ToText(number));
        if (auto balance = IfOdd(accounts, sum))
            odd.push_back(std::move(*balance));
    }
    return odd;
}

std::optional<OddBalance> OddBalanceOf(Connection& connection, const std::string& accountID)
{
    const Connection::Untraced untraced(connection);
    Recordset account = connection.Execute(std::string(kAccounts) + " WHERE AccountID = '" +
                                           clsDatabase::ToSqlString(accountID) + "'");
    const Activity* const activity = account.Empty() ? nullptr : CurrentActivity(account);
    return activity ? IfOdd(account, SumOfOne(connection, *activity, accountID)) : std::nullopt;
}

}  // namespace clb
