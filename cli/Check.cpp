#include <algorithm>
#include <iostream>
#include <memory>

#include "check/DatabaseCheck.h"
#include "check/DatabaseRepair.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/Table.h"
#include "data/Backups.h"
#include "data/SchemaVersion.h"
#include "json/ValueJson.h"
#include "platform/SystemClock.h"

namespace clb {
namespace {

constexpr int kFound = 2;

struct CheckOptions : FolderOptions {
    bool repair = false;
    bool accept = false;
};

bool Has(const DatabaseReport& report, const char* kind)
{
    return std::any_of(report.findings.begin(), report.findings.end(),
                       [kind](const Finding& finding) { return finding.kind == kind; });
}

/// Whether the next start can bring the data up to date, judging by its version.
bool HasTrueVersion(const DatabaseReport& report)
{
    return std::none_of(report.findings.begin(), report.findings.end(),
                        [](const Finding& finding) { return finding.table == "_SchemaVersion"; });
}

std::string VersionText(const DatabaseReport& report)
{
    const std::int16_t version = report.schemaVersion;
    std::string text = "Schema version " + std::to_string(version);
    if (version > kSchemaVersion)
        return text + ": a later program's; this one knows version " +
               std::to_string(kSchemaVersion) + " and takes the file as it is";
    if (version < kSchemaVersion && HasTrueVersion(report))
        return text + ": the next start brings it to version " + std::to_string(kSchemaVersion);
    return text;
}

Json NumberOrNull(const std::optional<std::int64_t>& number)
{
    return number ? Json(*number) : Json();
}

Json ToJson(const Finding& finding)
{
    return {{"kind", finding.kind},
            {"table", finding.table},
            {"rows", finding.rows},
            {"text", finding.text},
            {"row", NumberOrNull(finding.row)},
            {"sequence", NumberOrNull(finding.sequence)},
            {"column", finding.column},
            {"meaning", finding.meaning},
            {"repairable", finding.repairable}};
}

Json ToJson(const RepairReport& repair)
{
    Json printed{{"balances", repair.balances},
                 {"numbers", repair.numbers},
                 {"schema", repair.schema},
                 {"budgetLines", repair.budgetLines}};
    if (repair.steps)
        printed["historySteps"] = *repair.steps;
    return printed;
}

void PrintJson(const DatabaseReport& report, const CheckOptions& options,
               const RepairReport& repair)
{
    Json findings = Json::array();
    for (const Finding& finding : report.findings)
        findings.push_back(ToJson(finding));
    Json printed{{"file", report.file},
                 {"schemaVersion", report.schemaVersion},
                 {"programVersion", kSchemaVersion},
                 {"findings", findings}};
    if (options.repair) {
        printed["repaired"] = repair.balances;
        printed["repairs"] = ToJson(repair);
        printed["backup"] = repair.backup.empty() ? Json() : Json(repair.backup);
    }
    if (options.accept)
        printed["accepted"] = repair.accepted;
    std::cout << ToLine(printed) << '\n';
}

void PrintRepair(const RepairReport& repair)
{
    if (!repair.backup.empty())
        std::cout << "The file before is kept as " << repair.backup << '\n';
    std::cout << "Balances stored anew: " << repair.balances << '\n';
    if (repair.numbers > 0)
        std::cout << "Rows with a new number: " << repair.numbers << '\n';
    if (repair.budgetLines > 0)
        std::cout << "Budget lines made: " << repair.budgetLines << '\n';
    if (repair.schema > 0)
        std::cout << "Indexes and triggers made: " << repair.schema << '\n';
    if (repair.steps)
        std::cout << "Steps dropped from the history: " << *repair.steps << '\n';
}

void Print(const DatabaseReport& report, const CheckOptions& options, const RepairReport& repair)
{
    std::cout << report.file << '\n';
    if (!Has(report, "damage"))
        std::cout << VersionText(report) << '\n';
    if (options.repair)
        PrintRepair(repair);
    if (options.accept)
        std::cout << "Noticed balances taken note of: " << repair.accepted << '\n';
    std::size_t number = 0;
    for (const Finding& finding : report.findings) {
        std::cout << ++number << ". " << Printable(finding.text) << '\n'
                  << "   " << finding.meaning << '\n';
        if (finding.repairable)
            std::cout << "   --repair mends it.\n";
        else if (options.repair)
            std::cout << "   --repair leaves it.\n";
    }
    if (number == 0)
        std::cout << "Everything is in order\n";
}

/// Adds a finding if the last daily backup failed. The window makes it, and may not be open now to
/// report it.
void FindBackup(DatabaseReport& report, const std::string& folder)
{
    if (const auto failure = Backups(folder).Failure())
        report.findings.push_back(
            {.kind = "backup",
             .text = failure->Text(),
             .meaning =
                 "If the data is lost now, what was entered since the last backup is gone."});
}

int RunCheck(const CheckOptions& options)
{
    const std::string folder = OpenFolder(options.home);
    const Date now = SystemClock().Now();
    RepairReport repair;
    if (options.repair)
        repair = RepairDatabase(folder, now, options.accept ? Noticed::Accept : Noticed::Keep);
    else if (options.accept)
        repair.accepted = AcceptBalances(folder, now);
    DatabaseReport report = CheckDatabase(folder);
    FindBackup(report, folder);
    if (options.json)
        PrintJson(report, options, repair);
    else
        Print(report, options, repair);
    return report.findings.empty() ? 0 : kFound;
}

}  // namespace

void AddCheck(CLI::App& app, int& exitCode)
{
    auto options = std::make_shared<CheckOptions>();
    Command command(app, "check",
                    "Check whether the database is in order; the exit code is 2 if it is not");
    command.Flag(
        "--repair", options->repair,
        "Repair what can be repaired exactly, after a backup: balances that differ from the "
        "sums of their rows, transaction numbers that occur twice, missing indexes and "
        "budget lines, a broken history");
    command.Flag(
        "--accept", options->accept,
        "Take note of the balances that did not fit their rows when they were stored anew; "
        "they are not listed any more");
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options, &exitCode] { exitCode = RunCheck(*options); });
}

}  // namespace clb
