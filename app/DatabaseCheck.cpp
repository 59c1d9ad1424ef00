#include "app/DatabaseCheck.h"

#include "data/SchemaVersion.h"
#include "data/clsDatabase.h"
#include "engine/Backup.h"
#include "engine/EngineError.h"
#include "views/Balances.h"
#include "views/clsView.h"

namespace clb {
namespace {

std::string Quoted(const std::string& text)
{
    return "'" + text + "'";
}

std::string Counted(std::int32_t rows)
{
    return std::to_string(rows) + (rows == 1 ? " row" : " rows");
}

/// "number 5" or "numbers 5 to 17", of a group that selects its First and Last number.
std::string Numbers(const Recordset& group)
{
    const std::string first = ToText(group.Get("First"));
    const std::string last = ToText(group.Get("Last"));
    return first == last ? "number " + first : "numbers " + first + " to " + last;
}

/// "2006-03", and "2006-13" for a month that is none.
std::string MonthOf(const Recordset& row)
{
    const std::string period = ToText(row.Get("Period"));
    return ToText(row.Get("Year")) + "-" + (period.size() == 1 ? "0" : "") + period;
}

/// The numbers of the grouped rows, for Numbers.
std::string CountsOf(const std::string& table)
{
    return "COUNT(*) AS Found, MIN(" + table + ".Sequence) AS First, MAX(" + table +
           ".Sequence) AS Last";
}

class Check {
public:
    explicit Check(const std::string& file) { report_.file = file; }

    DatabaseReport Run()
    {
        connection_.Open("Data Source=" + report_.file);
        for (const std::string& fault : FaultsOf(report_.file))
            Add("damage", "", "The file is damaged: " + fault + ".", 0);
        if (!report_.findings.empty())
            return report_;
        report_.schemaVersion = SchemaVersionOf(connection_).value_or(0);
        for (const char* table : {"Trans", "Investment", "Loan"})
            FindOrphans(table);
        FindBalances();
        FindCategories();
        for (const char* table : {"Trans", "Budget"})
            FindMonths(table);
        return report_;
    }

private:
    void Add(const char* kind, const std::string& table, const std::string& text, std::int32_t rows)
    {
        report_.findings.push_back({kind, table, text, rows});
    }
    Recordset Select(const std::string& sql) { return connection_.Execute(sql); }

    void FindOrphans(const std::string& table)
    {
        Recordset groups =
            Select("SELECT " + table + ".AccountID, " + CountsOf(table) + " FROM " + table +
                   " LEFT JOIN Account ON " + table +
                   ".AccountID = Account.AccountID WHERE Account.Sequence IS NULL GROUP BY " +
                   table + ".AccountID");
        for (; !groups.AtEnd(); groups.MoveNext()) {
            const std::int32_t rows = ToLong(groups.Get("Found"));
            Add("orphan", table,
                table + ": " + Counted(rows) + " (" + Numbers(groups) + ") of the account " +
                    Quoted(ToText(groups.Get("AccountID"))) + ", which does not exist.",
                rows);
        }
    }
    Value SumOf(const std::string& account, std::int32_t view)
    {
        const std::string condition =
            " WHERE AccountID = '" + clsDatabase::ToSqlString(account) + "'";
        if (view == vwAccount)
            return Select("SELECT SUM(Amount) AS Total FROM Trans" + condition).Get(0);
        if (view == vwInvestment)
            return Select("SELECT SUM(Total) AS Total FROM Investment" + condition).Get(0);
        return Select("SELECT SUM(OriginalAmount - PaidAmount) AS Total FROM Loan" + condition)
            .Get(0);
    }
    void FindBalances()
    {
        Recordset accounts =
            Select("SELECT AccountID, Description, Type, CurrentBalance FROM Account");
        for (; !accounts.AtEnd(); accounts.MoveNext()) {
            const std::int32_t view = clsView::ViewFromAccountType(ToText(accounts.Get("Type")));
            if (view != 0)
                CompareBalance(accounts, view);
        }
    }
    void CompareBalance(const Recordset& account, std::int32_t view)
    {
        const std::string number = ToText(account.Get("AccountID"));
        const std::string name = "Account " + Quoted(number) + " (" +
                                 ToText(account.Get("Description")) + "): the stored balance is ";
        const Value& stored = account.Get("CurrentBalance");
        const std::string balance = IsNull(stored) ? "missing" : ToMoney(stored).ToText();
        try {
            const Money sum = ToMoney(SumOf(number, view));
            if (IsNull(stored) || ToMoney(stored) != sum)
                Add("balance", "Account",
                    name + balance + ", its rows add up to " + sum.ToText() + ".", 1);
        } catch (const EngineError& error) {
            if (error.Number() != engine_errors::Overflow)
                throw;
            Add("balance", "Account", name + balance + ", its rows add up to too much.", 1);
        }
    }
    void FindCategories()
    {
        Recordset groups =
            Select("SELECT Trans.Year, Trans.Period, Trans.Category, " + CountsOf("Trans") +
                   " FROM Trans LEFT JOIN Budget ON Trans.Year = Budget.Year AND Trans.Period = "
                   "Budget.Period AND Trans.Category = Budget.Category WHERE Budget.Sequence IS "
                   "NULL GROUP BY Trans.Year, Trans.Period, Trans.Category ORDER BY Trans.Year, "
                   "Trans.Period, Trans.Category");
        for (; !groups.AtEnd(); groups.MoveNext()) {
            const std::int32_t rows = ToLong(groups.Get("Found"));
            Add("category", "Trans",
                "Trans: " + Counted(rows) + " (" + Numbers(groups) + ") with the category " +
                    Quoted(ToText(groups.Get("Category"))) + ", which has no budget line in " +
                    MonthOf(groups) + ".",
                rows);
        }
    }
    void FindMonths(const std::string& table)
    {
        Recordset rows =
            Select("SELECT Sequence, Year, Period FROM " + table +
                   " WHERE Period < 1 OR Period > 12 OR Period IS NULL OR Year < 1000 OR Year > "
                   "9999 OR Year IS NULL ORDER BY Sequence");
        for (; !rows.AtEnd(); rows.MoveNext())
            Add("month", table,
                table + ": number " + ToText(rows.Get("Sequence")) + " is booked to " +
                    MonthOf(rows) + ", which is no month.",
                1);
    }

    DatabaseReport report_;
    Connection connection_;
};

/// Nothing is shown: every balance is asked for by its account.
struct NothingShown : IShownState, ICurrentRow {
    std::int32_t View() const override { return 0; }
    std::int32_t Period() const override { return 1; }
    std::int32_t Year() const override { return 2000; }
    const std::string& AccountType() const override { return none; }
    const std::string& AccountID() const override { return none; }
    Value ColumnValue(std::int32_t) override { return Null(); }
    void ColumnValue(std::int32_t, const Value&) override {}

    std::string none;
};

std::vector<Value> StoredBalances(clsDatabase& data)
{
    Recordset accounts;
    data.Fill(accounts, "SELECT CurrentBalance FROM Account ORDER BY [Sequence]", true);
    std::vector<Value> balances;
    for (; !accounts.AtEnd(); accounts.MoveNext())
        balances.push_back(accounts.Get(0));
    return balances;
}

}  // namespace

DatabaseReport CheckDatabase(const std::string& folder)
{
    return Check(folder + "/db/clb.mdb").Run();
}

std::int32_t RepairBalances(const std::string& folder)
{
    NothingShown shown;
    clsDatabase data(folder, shown, shown);
    const std::vector<Value> before = StoredBalances(data);
    UpdateBalances(data);
    const std::vector<Value> after = StoredBalances(data);
    std::int32_t changed = 0;
    for (std::size_t n = 0; n < after.size(); ++n)
        changed += before[n] == after[n] ? 0 : 1;
    data.Database().Settle();
    return changed;
}

}  // namespace clb
