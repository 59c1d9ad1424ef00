#include "views/Balances.h"

#include <map>
#include <set>

#include "data/clsDatabase.h"
#include "engine/EngineError.h"
#include "views/clsView.h"

namespace clb {
namespace {

using Sums = std::map<std::string, Money>;

/// Where the rows of one kind of account are, and what of them makes the balance.
struct RowTable {
    std::int32_t view;
    const char* table;
    const char* amount;
};

constexpr RowTable kTables[] = {{vwAccount, "Trans", "Amount"},
                                {vwInvestment, "Investment", "Total"},
                                {vwLoan, "Loan", "OriginalAmount - PaidAmount"}};

std::string SumOf(const RowTable& rows)
{
    return "SELECT AccountID, SUM( " + std::string(rows.amount) + " ) AS Total FROM " + rows.table;
}

/// Nothing when the account's own rows add up to too much.
std::optional<Money> SumOfOne(Connection& connection, const RowTable& rows,
                              const std::string& account)
{
    try {
        Recordset sum =
            connection.Execute(SumOf(rows) + " WHERE AccountID = '" +
                               clsDatabase::ToSqlString(account) + "' GROUP BY AccountID");
        return sum.Empty() ? Money() : ToMoney(sum.Get("Total"));
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::Overflow)
            throw;
        return std::nullopt;
    }
}

/// The sums of a table by account; nothing when some account's rows add up to too much.
std::optional<Sums> AllSums(Connection& connection, const RowTable& rows)
{
    try {
        Sums sums;
        Recordset groups = connection.Execute(SumOf(rows) + " GROUP BY AccountID");
        for (; !groups.AtEnd(); groups.MoveNext())
            if (!IsNull(groups.Get("AccountID")))
                sums[ToText(groups.Get("AccountID"))] = ToMoney(groups.Get("Total"));
        return sums;
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::Overflow)
            throw;
        return std::nullopt;
    }
}

/// The sums of one table, read when they are first asked for.
class TableSums {
public:
    std::optional<Money> Of(Connection& connection, const RowTable& rows,
                            const std::string& account)
    {
        if (!read_)
            sums_ = AllSums(connection, rows);
        read_ = true;
        if (!sums_)
            return SumOfOne(connection, rows, account);
        const auto found = sums_->find(account);
        return found == sums_->end() ? Money() : found->second;
    }

private:
    bool read_ = false;
    std::optional<Sums> sums_;
};

}  // namespace

void UpdateBalances(clsDatabase& database)
{
    Recordset accounts;
    database.Fill(accounts, "SELECT AccountID, Type FROM Account", true);
    for (; !accounts.AtEnd(); accounts.MoveNext()) {
        const Value& number = accounts.Get("AccountID");
        if (IsNull(number))
            continue;
        std::int32_t view = clsView::ViewFromAccountType(ToText(accounts.Get("Type")));
        std::string account = ToText(number);
        database.UpdateBalance(view, account);
    }
}

std::vector<OddBalance> OddBalances(clsDatabase& database)
{
    Connection& connection = database.Database();
    const Connection::Untraced untraced(connection);
    std::vector<OddBalance> odd;
    std::map<std::int32_t, TableSums> tables;
    std::set<std::string> seen;
    Recordset accounts =
        connection.Execute("SELECT AccountID, Description, Type, CurrentBalance FROM Account");
    for (; !accounts.AtEnd(); accounts.MoveNext()) {
        const std::int32_t view = clsView::ViewFromAccountType(ToText(accounts.Get("Type")));
        const Value& number = accounts.Get("AccountID");
        for (const RowTable& rows : kTables) {
            // Of two accounts with one number only the first is stored anew.
            if (rows.view != view || IsNull(number) || !seen.insert(ToText(number)).second)
                continue;
            const Value& balance = accounts.Get("CurrentBalance");
            const auto stored = IsNull(balance) ? std::nullopt : std::optional(ToMoney(balance));
            const auto sum = tables[view].Of(connection, rows, ToText(number));
            if (!stored || stored != sum)
                odd.push_back({ToText(number), ToText(accounts.Get("Description")), stored, sum});
        }
    }
    return odd;
}

}  // namespace clb
