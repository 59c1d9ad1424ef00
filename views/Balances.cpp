#include "views/Balances.h"

#include <exception>
#include <map>
#include <set>
#include <vector>

#include "data/WrongAmount.h"
#include "data/clsDatabase.h"
#include "engine/EngineError.h"
#include "views/clsView.h"

namespace clb {
namespace {

constexpr std::int32_t kFewAccounts = 50;

using Sums = std::map<std::string, Money>;

/// Where the rows of one kind of account are, and what of them makes the balance.
struct RowTable {
    std::int32_t view;
    const char* table;
    const char* amount;
    std::vector<std::string> columns;
};

const std::vector<RowTable>& Tables()
{
    static const std::vector<RowTable> tables = {
        {vwAccount, "Trans", "Amount", {"Amount"}},
        {vwInvestment, "Investment", "Total", {"Total"}},
        {vwLoan, "Loan", "OriginalAmount - PaidAmount", {"OriginalAmount", "PaidAmount"}}};
    return tables;
}

std::string SumOf(const RowTable& rows)
{
    return "SUM( " + std::string(rows.amount) + " ) AS Total FROM " + rows.table;
}

/// Nothing when the account's own rows add up to too much.
std::optional<Money> SumOfOne(Connection& connection, const RowTable& rows,
                              const std::string& account)
{
    const std::string condition = "AccountID = '" + clsDatabase::ToSqlString(account) + "'";
    try {
        Recordset sum = connection.Execute("SELECT " + SumOf(rows) + " WHERE " + condition);
        return IsNull(sum.Get("Total")) ? Money() : ToMoney(sum.Get("Total"));
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::Overflow)
            ThrowWithPlace(connection, {rows.table, rows.columns, condition}, error);
        return std::nullopt;
    }
}

/// The sums of a table by account; nothing when some account's rows add up to too much.
std::optional<Sums> AllSums(Connection& connection, const RowTable& rows)
{
    try {
        Sums sums;
        Recordset groups =
            connection.Execute("SELECT AccountID, " + SumOf(rows) + " GROUP BY AccountID");
        for (; !groups.AtEnd(); groups.MoveNext())
            if (!IsNull(groups.Get("AccountID")))
                sums[ToText(groups.Get("AccountID"))] = ToMoney(groups.Get("Total"));
        return sums;
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::Overflow)
            ThrowWithPlace(connection, {rows.table, rows.columns, {}}, error);
        return std::nullopt;
    }
}

/// The sums of one table. Those of a few accounts are asked for one by one, which takes two
/// thirds of a grouped sum; those of many are read together when the first is asked for.
class TableSums {
public:
    explicit TableSums(bool together) : together_(together) {}

    std::optional<Money> Of(Connection& connection, const RowTable& rows,
                            const std::string& account)
    {
        if (together_)
            sums_ = AllSums(connection, rows);
        together_ = false;
        if (!sums_)
            return SumOfOne(connection, rows, account);
        const auto found = sums_->find(account);
        return found == sums_->end() ? Money() : found->second;
    }

private:
    bool together_;
    std::optional<Sums> sums_;
};

constexpr const char* kAccounts =
    "SELECT AccountID, Description, Type, CurrentBalance FROM Account";

/// Where the rows of the current account are; null if its type has none.
const RowTable* TableOf(const Recordset& accounts)
{
    const std::int32_t view = clsView::ViewFromAccountType(ToText(accounts.Get("Type")));
    for (const RowTable& rows : Tables())
        if (rows.view == view)
            return &rows;
    return nullptr;
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
        std::int32_t view = clsView::ViewFromAccountType(ToText(accounts.Get("Type")));
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
    const TableSums none(accounts.RecordCount() > kFewAccounts);
    std::map<std::int32_t, TableSums> tables = {
        {vwAccount, none}, {vwInvestment, none}, {vwLoan, none}};
    for (; !accounts.AtEnd(); accounts.MoveNext()) {
        const Value& number = accounts.Get("AccountID");
        const RowTable* const rows = TableOf(accounts);
        // Of two accounts with one number only the first is stored anew.
        if (!rows || IsNull(number) || !seen.insert(ToText(number)).second)
            continue;
        const auto sum = tables.at(rows->view).Of(connection, *rows, ToText(number));
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
    const RowTable* const rows = account.Empty() ? nullptr : TableOf(account);
    return rows ? IfOdd(account, SumOfOne(connection, *rows, accountID)) : std::nullopt;
}

}  // namespace clb
