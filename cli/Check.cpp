#include "app/DatabaseCheck.h"
#include "automation/ValueJson.h"
#include "cli/Commands.h"
#include "cli/Options.h"
#include "cli/Table.h"
#include "data/Backups.h"
#include "data/SchemaVersion.h"
#include "platform/SystemClock.h"

#include <algorithm>
#include <iostream>
#include <memory>

namespace clb {
namespace {

constexpr int kFound = 2;

struct CheckOptions : FolderOptions {
    bool repair = false;
};

std::string VersionText(std::int16_t version)
{
    const std::string text = "Schema version " + std::to_string(version);
    if (version > kSchemaVersion)
        return text + ": a later program's; this one knows version " +
               std::to_string(kSchemaVersion) + " and takes the file as it is";
    if (version < kSchemaVersion)
        return text + ": the next start brings it to version " + std::to_string(kSchemaVersion);
    return text;
}

void PrintJson(const DatabaseReport& report, const CheckOptions& options, std::int32_t repaired)
{
    Json findings = Json::array();
    for (const Finding& finding : report.findings)
        findings.push_back({{"kind", finding.kind},
                            {"table", finding.table},
                            {"rows", finding.rows},
                            {"text", finding.text}});
    Json printed{{"file", report.file},
                 {"schemaVersion", report.schemaVersion},
                 {"programVersion", kSchemaVersion},
                 {"findings", findings}};
    if (options.repair)
        printed["repaired"] = repaired;
    std::cout << ToLine(printed) << '\n';
}

bool Has(const DatabaseReport& report, const char* kind)
{
    return std::any_of(report.findings.begin(), report.findings.end(),
                       [kind](const Finding& finding) { return finding.kind == kind; });
}

void Print(const DatabaseReport& report, const CheckOptions& options, std::int32_t repaired)
{
    std::cout << report.file << '\n';
    if (!Has(report, "damage"))
        std::cout << VersionText(report.schemaVersion) << '\n';
    if (options.repair)
        std::cout << "Balances stored anew: " << repaired << '\n';
    std::size_t number = 0;
    for (const Finding& finding : report.findings)
        std::cout << ++number << ". " << Printable(finding.text) << '\n';
    if (number == 0)
        std::cout << "Everything is in order\n";
}

/// A daily backup that fails is made by a window that nobody may have open now.
void FindBackup(DatabaseReport& report, const std::string& folder)
{
    if (const auto failure = Backups(folder).Failure())
        report.findings.push_back({"backup", "", failure->Text(), 0});
}

int RunCheck(const CheckOptions& options)
{
    const std::string folder = OpenFolder(options.home);
    DatabaseReport report = CheckDatabase(folder);
    std::int32_t repaired = 0;
    if (options.repair && Has(report, "balance")) {
        Backups(folder).BeforeUpgrade(SystemClock().Now());
        repaired = RepairBalances(folder);
        report = CheckDatabase(folder);
    }
    FindBackup(report, folder);
    if (options.json)
        PrintJson(report, options, repaired);
    else
        Print(report, options, repaired);
    return report.findings.empty() ? 0 : kFound;
}

}  // namespace

void AddCheck(CLI::App& app, int& exitCode)
{
    auto options = std::make_shared<CheckOptions>();
    Command command(app, "check",
                    "Look whether the database is in order; the exit code is 2 when it is not");
    command.Flag("--repair", options->repair,
                 "Store balances anew that differ from the sums of their rows");
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options, &exitCode] { exitCode = RunCheck(*options); });
}

}  // namespace clb
