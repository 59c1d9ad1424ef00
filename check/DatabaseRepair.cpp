#include "check/DatabaseRepair.h"

#include <algorithm>

#include "check/DatabaseCheck.h"
#include "data/Backups.h"
#include "engine/rows/Connection.h"
#include "engine/rows/RawSql.h"
#include "engine/storage/EngineError.h"

namespace clb {
namespace {

/// Rolls back what was not settled.
class Undivided {
public:
    explicit Undivided(Connection& connection) : connection_(connection) { connection.Lock(); }
    ~Undivided() { connection_.Abandon(); }
    Undivided(const Undivided&) = delete;
    Undivided& operator=(const Undivided&) = delete;

private:
    Connection& connection_;
};

bool IsRepairable(const DatabaseReport& report)
{
    return std::ranges::any_of(report.findings, &Finding::repairable);
}

void StoreBalances(RawSql& raw, const std::vector<RepairPlan::Balance>& balances)
{
    for (const RepairPlan::Balance& balance : balances)
        raw.Write(
            "UPDATE Account SET CurrentBalance = ?1 WHERE rowid = " + std::to_string(balance.row),
            {*balance.odd.sum});
}

void NumberRows(RawSql& raw, const std::vector<NewNumber>& numbers)
{
    for (const NewNumber& number : numbers)
        raw.Write("UPDATE Trans SET Sequence = ?1 WHERE rowid = " + std::to_string(number.row),
                  {number.number});
}

void MakeBudgetLines(RawSql& raw, const std::vector<RepairPlan::BudgetLine>& lines)
{
    for (const RepairPlan::BudgetLine& line : lines)
        raw.Write(
            "INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES (?1, ?2, "
            "?3, '(none)', 0)",
            {line.year, line.period, line.category});
}

RepairReport Apply(Connection& connection, const Date& now)
{
    RawSql raw(connection);
    // Checked again inside the lock, because another program may have written since the first
    // check.
    DatabaseCheck check(raw);
    if (check.Findings().Has("damage", ""))
        return {};
    const RepairPlan& plan = check.Plan();
    std::vector<OddBalance> odd;
    for (const RepairPlan::Balance& balance : plan.balances)
        odd.push_back(balance.odd);
    noticed_balances::Note(connection, odd, "repair", now);
    StoreBalances(raw, plan.balances);
    NumberRows(raw, plan.numbers);
    MakeBudgetLines(raw, plan.budgetLines);
    for (const std::string& sql : plan.schema)
        raw.Write(sql);
    return {.balances = static_cast<std::int32_t>(plan.balances.size()),
            .numbers = static_cast<std::int32_t>(plan.numbers.size()),
            .schema = static_cast<std::int32_t>(plan.schema.size()),
            .budgetLines = static_cast<std::int32_t>(plan.budgetLines.size())};
}

}  // namespace

RepairReport RepairDatabase(const std::string& folder, const Date& now)
{
    if (!IsRepairable(CheckDatabase(folder)))
        return {};
    const std::string backup = Backups(folder).Before("repair", now);
    Connection connection;
    connection.Open("Data Source=" + folder + "/db/clb.mdb");
    const Undivided command(connection);
    RepairReport report = Apply(connection, now);
    report.backup = backup;
    connection.Settle();
    return report;
}

std::int32_t AcceptBalances(const std::string& folder, const Date& now)
{
    Connection connection;
    connection.Open("Data Source=" + folder + "/db/clb.mdb");
    const Undivided command(connection);
    const std::int32_t accepted = noticed_balances::TakeNote(connection, now);
    connection.Settle();
    return accepted;
}

}  // namespace clb
