#include "app/DatabaseCheck.h"

#include <set>

#include "app/CheckSchema.h"
#include "base/Text.h"
#include "data/AccountKind.h"
#include "data/StoredView.h"
#include "engine/Backup.h"
#include "engine/EngineError.h"
#include "engine/RawSql.h"

namespace clb {
namespace {

std::string Quoted(std::string_view text)
{
    return "'" + std::string(text) + "'";
}

std::int32_t Count(std::int64_t rows)
{
    return static_cast<std::int32_t>(rows);
}

/// Whether a budget line can be made of it just as saving a row makes one.
bool CanHaveLine(const BudgetPlace& place)
{
    constexpr std::size_t kWidth = 50;
    const auto& category = std::get<2>(place);
    return IsMonth(place) && category && !category->empty() && IsValidUtf8(*category) &&
           Length(*category) <= kWidth;
}

Finding Damage(const std::string& text)
{
    return {.kind = "damage", .text = text};
}

void FindDamage(RawSql& raw, FindingList& findings)
{
    std::vector<std::string> faults;
    try {
        raw.Select("PRAGMA integrity_check",
                   [&](const RawSql::Row& row) { faults.push_back(FaultIn(row.Text(0))); });
    } catch (const EngineError& error) {
        if (error.Trouble() == FileTrouble::Locked)
            throw;
        // So much is wrong that the storage gives up.
        faults.emplace_back("it cannot be read to its end");
    }
    if (faults == std::vector<std::string>{"ok"})
        return;
    for (const std::string& fault : faults)
        findings.Add(Damage("The file is damaged: " + fault + "."));
}

}  // namespace

/// One step that cannot be done must not keep the others from being done.
template <typename Step>
void DatabaseCheck::Try(const std::string& table, Step step)
{
    try {
        step();
    } catch (const EngineError& error) {
        if (error.Trouble() == FileTrouble::Locked)
            throw;
        // A missing column is told already.
        if (error.Trouble() != FileTrouble::None || !findings_.Has("column", table))
            findings_.Add(Damage(table + " cannot be read to its end: " + error.what()));
    }
}

DatabaseCheck::DatabaseCheck(RawSql& raw) : raw_(raw)
{
    CheckSchema schema(raw);
    Try("The schema", [&] { version_ = schema.Version(findings_); });
    Try("The schema", [&] { schema.FindColumns(version_, findings_); });
    for (const std::string& table : OwnTables())
        Try(table, [&] { Scan(table, *schema.Expected(table)); });
    if (places_.contains("Trans"))
        Try("Trans", [&] { plan_.numbers = CheckNumbers(raw_, findings_).NewNumbers(); });
    Try("Account", [&] { ReadAccounts(); });
    for (const char* table : {"Trans", "Investment", "Loan"})
        FindOrphans(table);
    FindBalances();
    Try("CvBalance", [&] { FindNoticed(); });
    FindCategories();
    findings_.Append(months_);
    Try("The schema", [&] { schema.FindHelpers(findings_); });
    plan_.schema = schema.Missing();
}

void DatabaseCheck::Scan(const std::string& table, const TableInfo& expected)
{
    CheckRows rows(raw_, expected, findings_);
    try {
        rows.Run();
    } catch (...) {
        months_.Append(rows.Months());
        throw;
    }
    months_.Append(rows.Months());
    if (!raw_.Find(table))
        return;
    rows_[table] = rows.ByAccount();
    places_[table] = rows.ByPlace();
}

void DatabaseCheck::ReadAccounts()
{
    if (!raw_.Find("Account"))
        return;
    std::map<std::string, std::int64_t> first;
    raw_.Select(
        "SELECT rowid, AccountID, Description, Type, CurrentBalance FROM Account ORDER BY rowid",
        [&](const RawSql::Row& row) {
            Account account{row.Integer(0),
                            std::string(row.Text(1)),
                            std::string(row.Text(2)),
                            ViewFromAccountType(row.Text(3)),
                            !row.IsNull(4),
                            row.KindOf(4) == RawSql::Kind::Integer,
                            row.Integer(4)};
            const auto [same, fresh] = first.emplace(account.number, account.row);
            const auto add = [&](const std::string& text) {
                findings_.Add({.kind = "account",
                               .table = "Account",
                               .text = text,
                               .rows = 1,
                               .row = account.row,
                               .sequence = account.row,
                               .column = "AccountID"});
            };
            if (account.number.empty())
                add("Account: number " + std::to_string(account.row) + " (" + account.description +
                    ") has no account number.");
            else if (!fresh)
                add("Account: the numbers " + std::to_string(same->second) + " and " +
                    std::to_string(account.row) + " have the same account number " +
                    Quoted(account.number) + ".");
            if (account.view == 0)
                findings_.Add(
                    {.kind = "account",
                     .table = "Account",
                     .text = "Account: number " + std::to_string(account.row) + " (" +
                             account.description + ") has the type " +
                             Quoted(std::string(row.Text(3))) + ", which is none of the program's.",
                     .rows = 1,
                     .row = account.row,
                     .sequence = account.row,
                     .column = "Type",
                     .meaning = "The account cannot be shown and its balance is not kept. "
                                "Choose its type anew in the view Net Worth."});
            if (!row.IsNull(1))
                accounts_.push_back(std::move(account));
        });
}

void DatabaseCheck::FindOrphans(const std::string& table)
{
    std::set<std::string_view> known;
    for (const Account& account : accounts_)
        known.insert(account.number);
    const auto read = rows_.find(table);
    // With an unreadable list of accounts every row would seem to be one.
    if (read == rows_.end() || !rows_.contains("Account"))
        return;
    for (const auto& [number, rows] : read->second)
        if (!number || !known.contains(*number))
            findings_.Add({.kind = "orphan",
                           .table = table,
                           .text = table + ": " + CountedRows(rows.count) + " (" + rows.Numbers() +
                                   ") of the account " + Quoted(number.value_or("")) +
                                   ", which does not exist.",
                           .rows = Count(rows.count),
                           .row = rows.row,
                           .sequence = rows.first});
}

void DatabaseCheck::FindBalances()
{
    std::set<std::string_view> seen;
    for (const Account& account : accounts_)
        // Of two accounts with one number the first one's balance is kept.
        if (account.view != 0 && seen.insert(account.number).second)
            CompareBalance(account);
}

void DatabaseCheck::CompareBalance(const Account& account)
{
    const auto table = rows_.find(ActivityOf(account.view)->table);
    if (table == rows_.end())
        return;
    const auto rows = table->second.find(account.number);
    const RowSum sum = rows == table->second.end() ? RowSum() : rows->second.sum;
    if (sum.Spoilt())
        return;  // told as cells
    const auto stored = account.stored && account.readable
                            ? std::optional(Money::FromScaled(account.balance))
                            : std::nullopt;
    const auto total = sum.Total();
    if (total && stored == total)
        return;
    const std::string balance = stored           ? stored->ToText()
                                : account.stored ? "not an amount"
                                                 : "missing";
    findings_.Add({.kind = "balance",
                   .table = "Account",
                   .text = "Account " + Quoted(account.number) + " (" + account.description +
                           "): the stored balance is " + balance + ", its rows add up to " +
                           (total ? total->ToText() : "too much") + ".",
                   .rows = 1,
                   .row = account.row,
                   .sequence = account.row,
                   .column = "CurrentBalance",
                   .repairable = total.has_value()});
    if (total)
        plan_.balances.push_back(
            {account.row, {account.number, account.description, stored, total}});
}

std::string DatabaseCheck::DescriptionOf(const std::string& number) const
{
    for (const Account& account : accounts_)
        if (account.number == number)
            return account.description;
    return "which does not exist";
}

void DatabaseCheck::FindNoticed()
{
    if (!raw_.Find("CvBalance"))
        return;
    raw_.Select(
        "SELECT rowid, At, AccountID, Stored, Total, NoticedBy FROM CvBalance WHERE TakenNoteOf IS "
        "NULL ORDER BY rowid",
        [this](const RawSql::Row& row) {
            const auto amount = [&](int at, const char* none) {
                return row.KindOf(at) == RawSql::Kind::Integer
                           ? Money::FromScaled(row.Integer(at)).ToText()
                           : std::string(none);
            };
            const std::string number(row.Text(2));
            findings_.Add({.kind = "noticed",
                           .table = "CvBalance",
                           .text = "Account " + Quoted(number) + " (" + DescriptionOf(number) +
                                   "): when " +
                                   (row.Text(5) == "repair" ? "a repair" : "an import") +
                                   " worked the balances out again on " +
                                   std::string(row.Text(1).substr(0, 10)) +
                                   ", the stored balance was " + amount(3, "missing") +
                                   " and its rows added up to " + amount(4, "too much") + ".",
                           .rows = 1,
                           .row = row.Integer(0)});
        });
}

void DatabaseCheck::FindCategories()
{
    const auto used = places_.find("Trans");
    const auto lines = places_.find("Budget");
    if (used == places_.end() || lines == places_.end())
        return;
    for (const auto& [place, rows] : used->second) {
        const auto& [year, period, category] = place;
        // An empty cell equals nothing, not even another one.
        const bool comparable = year && period && category;
        if (!comparable || !lines->second.contains(place))
            AddCategory(place, rows);
    }
}

void DatabaseCheck::AddCategory(const BudgetPlace& place, const RowGroup& rows)
{
    const bool repairable = CanHaveLine(place);
    const std::string category = std::get<2>(place).value_or("");
    findings_.Add({.kind = "category",
                   .table = "Trans",
                   .text = "Trans: " + CountedRows(rows.count) + " (" + rows.Numbers() +
                           ") with the category " + Quoted(category) +
                           ", which has no budget line in " + MonthText(place) + ".",
                   .rows = Count(rows.count),
                   .row = rows.row,
                   .sequence = rows.first,
                   .column = "Category",
                   .repairable = repairable});
    if (repairable)
        plan_.budgetLines.push_back({static_cast<std::int32_t>(*std::get<0>(place)),
                                     static_cast<std::int32_t>(*std::get<1>(place)), category});
}

DatabaseReport CheckDatabase(const std::string& folder)
{
    DatabaseReport report;
    report.file = folder + "/db/clb.mdb";
    FindingList findings;
    try {
        RawSql raw(report.file);
        FindDamage(raw, findings);
        raw.Hold();
        DatabaseCheck check(raw);
        report.schemaVersion = check.SchemaVersion();
        findings.Append(check.Findings());
        const bool damaged = findings.Has("damage", "");
        report.findings = findings.Take();
        if (damaged)
            for (Finding& finding : report.findings)
                finding.repairable = false;
    } catch (const EngineError& error) {
        // A file of a later storage's format is none of the storage's troubles with files.
        if (error.Trouble() != FileTrouble::Damaged && error.Trouble() != FileTrouble::None)
            throw;
        findings.Add(Damage("The file is damaged: it is no database, or cannot be read at all."));
        report.findings = findings.Take();
    }
    return report;
}

}  // namespace clb
