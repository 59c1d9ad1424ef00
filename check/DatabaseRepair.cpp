#include "check/DatabaseRepair.h"

#include <unistd.h>

#include <algorithm>
#include <optional>

#include "check/DatabaseCheck.h"
#include "data/Backups.h"
#include "engine/rows/Connection.h"
#include "engine/rows/RawSql.h"
#include "engine/storage/EngineError.h"
#include "history/History.h"

namespace clb {
namespace {

/// One command on a database, which is a step of its history. Rolled back unless it is finished.
class OneCommand {
public:
    OneCommand(const std::string& folder, const Date& now, const std::string& name)
    {
        connection_.Open("Data Source=" + folder + "/db/clb.mdb");
        history_.emplace(
            connection_, [now] { return now; }, std::to_string(getpid()));
        history_->Begin(name);
        connection_.Lock();
    }
    ~OneCommand() { connection_.Abandon(); }
    OneCommand(const OneCommand&) = delete;
    OneCommand& operator=(const OneCommand&) = delete;

    Connection& Database() { return connection_; }
    void Finish() { connection_.Settle(); }

private:
    Connection connection_;
    std::optional<History> history_;
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
    // The step of this repair is written after this, when the command is settled.
    for (const std::string& sql : plan.history.sql)
        raw.Write(sql);
    RepairReport report{.balances = static_cast<std::int32_t>(plan.balances.size()),
                        .numbers = static_cast<std::int32_t>(plan.numbers.size()),
                        .schema = static_cast<std::int32_t>(plan.schema.size()),
                        .budgetLines = static_cast<std::int32_t>(plan.budgetLines.size())};
    if (!plan.history.sql.empty())
        report.steps = plan.history.steps;
    return report;
}

}  // namespace

RepairReport RepairDatabase(const std::string& folder, const Date& now, Noticed noticed)
{
    RepairReport report;
    if (IsRepairable(CheckDatabase(folder))) {
        const std::string backup = Backups(folder).Before("repair", now);
        OneCommand command(folder, now, "Repair");
        report = Apply(command.Database(), now);
        report.backup = backup;
        if (noticed == Noticed::Accept)
            report.accepted = noticed_balances::TakeNote(command.Database(), now);
        command.Finish();
    } else if (noticed == Noticed::Accept) {
        report.accepted = AcceptBalances(folder, now);
    }
    return report;
}

std::int32_t AcceptBalances(const std::string& folder, const Date& now)
{
    OneCommand command(folder, now, "Accept Balances");
    const std::int32_t accepted = noticed_balances::TakeNote(command.Database(), now);
    command.Finish();
    return accepted;
}

}  // namespace clb
