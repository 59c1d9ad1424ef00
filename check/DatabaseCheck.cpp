#include "check/DatabaseCheck.h"

#include <set>

#include "base/Text.h"
#include "check/CheckCounters.h"
#include "check/CheckSchema.h"
#include "data/AccountKind.h"
#include "data/StoredView.h"
#include "engine/rows/RawSql.h"
#include "engine/storage/DatabaseCopy.h"
#include "engine/storage/EngineError.h"

namespace clb {
namespace {

std::string Quoted(std::string_view text)
{
    return "'" + std::string(text) + "'";
}

constexpr const char* kTooMuch =
    "The sum is more than an amount can be, so the balance is not stored anew. Put in the right "
    "amounts.";

std::int32_t Count(std::int64_t rows)
{
    return static_cast<std::int32_t>(rows);
}

/// Whether a budget line can be made for it, as saving a row does.
bool CanHaveLine(const BudgetPlace& place)
{
    constexpr std::size_t kWidth = 50;
    const auto& category = std::get<2>(place);
    return IsMonth(place) && category && !category->empty() && IsValidUtf8(*category) &&
           Length(*category) <= kWidth;
}

/// The declaration of the list of balances that did not fit their rows, as the program makes it.
const TableInfo& NoticedList()
{
    static const TableInfo list = [] {
        TableInfo made;
        made.name = "CvBalance";
        for (const auto& [name, type] : std::initializer_list<std::pair<const char*, FieldType>>{
                 {"At", FieldType::Date},
                 {"AccountID", FieldType::Text},
                 {"Stored", FieldType::Money},
                 {"Total", FieldType::Money},
                 {"NoticedBy", FieldType::Text},
                 {"TakenNoteOf", FieldType::Date},
                 {"StoredInstead", FieldType::Text}}) {
            made.columns.emplace_back();
            made.columns.back().name = name;
            made.columns.back().type.type = type;
        }
        return made;
    }();
    return list;
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
        // The file is so damaged that the storage gives up.
        faults.emplace_back("it cannot be read to its end");
    }
    if (faults == std::vector<std::string>{"ok"})
        return;
    for (const std::string& fault : faults)
        findings.Add(Damage("The file is damaged: " + fault + "."));
}

}  // namespace

/// A step that fails must not prevent the others.
template <typename Step>
void DatabaseCheck::Try(const std::string& table, Step step)
{
    try {
        step();
    } catch (const EngineError& error) {
        if (error.Trouble() == FileTrouble::Locked)
            throw;
        // A missing column is reported already.
        const std::string text = table + " cannot be read to its end: " + error.what();
        if ((error.Trouble() != FileTrouble::None || !findings_.Has("column", table)) &&
            reported_.insert(text).second)
            findings_.Add(Damage(text));
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
    for (const std::string& table : OwnTables())
        Try(table, [&] { FindUsedUpNumbers(raw_, table, findings_); });
    Try("Account", [&] { ReadAccounts(); });
    for (const char* table : {"Trans", "Investment", "Loan"})
        FindOrphans(table);
    FindBalances();
    Try("CvBalance", [&] { FindNoticed(); });
    FindCategories();
    findings_.Append(months_);
    Try("The schema", [&] { schema.FindHelpers(findings_); });
    plan_.schema = schema.Missing();
    Try("The history", [&] { plan_.history = CheckHistory(raw_, findings_).Repair(); });
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
            const bool stored = row.KindOf(4) == RawSql::Kind::Integer;
            Account account{row.Integer(0),
                            std::string(row.Text(1)),
                            std::string(row.Text(2)),
                            ViewFromAccountType(row.Text(3)),
                            stored,
                            row.Integer(4),
                            stored || row.IsNull(4) ? std::string() : row.Describe(4)};
            const auto [same, fresh] = first.emplace(account.number, account.row);
            const auto add = [&](const std::string& text, const char* meaning = "") {
                findings_.Add({.kind = "account",
                               .table = "Account",
                               .text = text,
                               .rows = 1,
                               .row = account.row,
                               .sequence = account.row,
                               .column = "AccountID",
                               .meaning = meaning});
            };
            if (account.number.empty())
                add("Account: number " + std::to_string(account.row) + " (" + account.description +
                        ") has no account number.",
                    "It can have no rows, and its balance is not kept. Give it a number in the "
                    "view Net Worth.");
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
    // If the list of accounts cannot be read, every row would be reported.
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
        // If two accounts have the same number, the balance of the first is kept.
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
        return;  // reported with the cells already
    const auto stored =
        account.stored ? std::optional(Money::FromScaled(account.balance)) : std::nullopt;
    const auto total = sum.Total();
    if (total && stored == total)
        return;
    const std::string balance = stored                    ? stored->ToText()
                                : account.instead.empty() ? "missing"
                                                          : "not an amount";
    findings_.Add({.kind = "balance",
                   .table = "Account",
                   .text = "Account " + Quoted(account.number) + " (" + account.description +
                           "): the stored balance is " + balance + ", its rows add up to " +
                           (total ? total->ToText() : "too much") + ".",
                   .rows = 1,
                   .row = account.row,
                   .sequence = account.row,
                   .column = "CurrentBalance",
                   .meaning = total ? "" : kTooMuch,
                   .repairable = total.has_value()});
    if (total)
        plan_.balances.push_back(
            {account.row, {account.number, account.description, stored, total, account.instead}});
}

/// Adds a finding for what is missing in the list.
bool DatabaseCheck::IsNoticedList(const TableInfo& list)
{
    const TableInfo& expected = NoticedList();
    const auto missing = std::find_if(
        expected.columns.begin(), expected.columns.end(), [&](const ColumnInfo& column) {
            // StoredInstead was added later.
            return column.name != "StoredInstead" && list.Find(column.name) == nullptr;
        });
    if (missing == expected.columns.end())
        return true;
    findings_.Add({.kind = "column",
                   .table = list.name,
                   .text = "The column " + list.name + "." + missing->name + " is missing.",
                   .column = missing->name,
                   .meaning = "Balances that do not fit their rows cannot be listed. Another "
                              "program has made or changed this table."});
    return false;
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
    const TableInfo* const list = raw_.Find("CvBalance");
    if (!list || !IsNoticedList(*list))
        return;
    CheckRows(raw_, NoticedList(), findings_).Run();
    raw_.Select(std::string("SELECT rowid, At, AccountID, Stored, Total, NoticedBy, ") +
                    (list->Find("StoredInstead") ? "StoredInstead" : "NULL") +
                    " FROM CvBalance WHERE TakenNoteOf IS NULL ORDER BY rowid",
                [this](const RawSql::Row& row) {
                    const auto amount = [&](int at, const char* none) {
                        return row.KindOf(at) == RawSql::Kind::Integer
                                   ? Money::FromScaled(row.Integer(at)).ToText()
                               : row.IsNull(at) ? std::string(none)
                                                : "not an amount";
                    };
                    const std::string day(row.Text(1).substr(0, 10));
                    const std::string when = Date::FromIso(day) ? "on " + day : "on an unknown day";
                    const std::string number(row.Text(2));
                    findings_.Add(
                        {.kind = "noticed",
                         .table = "CvBalance",
                         .text = "Account " + Quoted(number) + " (" + DescriptionOf(number) +
                                 "): when " + noticed_balances::OccasionOf(row.Text(5)) + " " +
                                 when + ", the stored balance was " +
                                 (row.IsNull(6) ? amount(3, "missing") : std::string(row.Text(6))) +
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

namespace {

/// Quotes a text for a shell.
std::string ShellWord(const std::string& text)
{
    return "'" + Replace(text, "'", "'\\''") + "'";
}

void AddAdvice(std::vector<Finding>& findings, const std::string& folder)
{
    for (Finding& finding : findings)
        if (!finding.query.empty())
            finding.meaning += " Put in the right value: clb sql " + ShellWord(folder) + " \"" +
                               finding.query + "\"";
}

}  // namespace

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
        AddAdvice(report.findings, folder);
        if (damaged)
            for (Finding& finding : report.findings)
                finding.repairable = false;
    } catch (const EngineError& error) {
        // The storage does not report a newer file format as an error of the file.
        if (error.Trouble() != FileTrouble::Damaged && error.Trouble() != FileTrouble::None)
            throw;
        findings.Add(Damage("The file is damaged: it is no database, or cannot be read at all."));
        report.findings = findings.Take();
    }
    return report;
}

}  // namespace clb
