#include "cli/ImportReport.h"

#include <algorithm>
#include <iostream>
#include <map>

#include "base/Text.h"
#include "cli/ImportJson.h"
#include "cli/Program.h"
#include "cli/Table.h"

namespace clb {
namespace {

std::string Counted(std::size_t count, const std::string& one, const std::string& many)
{
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

std::string TextOf(const std::optional<Money>& amount, const char* none)
{
    return amount ? amount->ToText() : none;
}

void WarnOfBalances(const ImportedFile& file, std::vector<std::string>& lines)
{
    for (const OddBalance& odd : file.balances)
        lines.push_back("account '" + odd.accountID + "' (" + odd.description +
                        "): the stored balance was " + TextOf(odd.stored, "missing") +
                        ", its rows added up to " + TextOf(odd.sum, "too much") +
                        "; \"clb check\" keeps it listed");
    if (!file.backup.empty())
        lines.push_back("the database as it was before is kept as " + file.backup);
}

std::string LineOf(const LeftOutPart& part)
{
    std::string line = "line " + std::to_string(part.line) + " left out: ";
    if (part.count > 1)
        line = Counted(part.count, "part", "parts") + " left out: ";
    line += ToText(part.reason);
    if (!part.text.empty())
        line += ": " + Printable(part.text);
    return line;
}

std::vector<std::string> Warnings(const ImportedFile& file)
{
    std::vector<std::string> lines;
    WarnOfBalances(file, lines);
    for (const LeftOutPart& part : file.statement.leftOut)
        lines.push_back(LineOf(part));
    for (const std::string& note : file.statement.notes)
        lines.push_back(Printable(note));
    return lines;
}

void PrintRows(const ImportedFile& file)
{
    Table table;
    for (const char* caption : {"Line", "Date", "Amount", "Text", "Identifier", ""})
        table.AddColumn(caption, caption == std::string_view("Amount"));
    for (const ShownRow& shown : file.rows)
        table.AddRow({std::to_string(shown.row.line), shown.row.date.ToIso(),
                      shown.row.amount.ToText(), Printable(TextOf(shown.row)), shown.identifier,
                      shown.state});
    table.Print(std::cout);
}

}  // namespace

std::int64_t ImportedFile::Added() const
{
    std::int64_t added = 0;
    for (const ImportedAccount& account : statement.accounts)
        added += account.added;
    return added;
}

std::int64_t ImportedFile::Known() const
{
    std::int64_t known = 0;
    for (const ImportedAccount& account : statement.accounts)
        known += account.known;
    return known;
}

bool ImportedFile::Refused() const
{
    return failed || accountMissing || !statement.refused.empty() || !statement.asked.empty();
}

bool ImportReport::AnyRefused() const
{
    return std::ranges::any_of(files_, &ImportedFile::Refused);
}

void ImportReport::PrintOne(bool json) const
{
    const ImportedFile& file = files_.front();
    std::cerr << (file.failed ? "clb: " : "") << file.messages;
    if (file.accountMissing)
        std::cerr << "The file's account is not known. Say which it is:\n"
                     "  --create NAME --type TYPE   makes a new account\n"
                     "  --map ACCOUNT               takes an existing one\n";
    else if (!file.failed && file.Refused())
        std::cerr << ReasonOf(file) << '\n';
    for (const std::string& warning : Warnings(file))
        std::cerr << "Warning: " << warning << '\n';
    if (json) {
        Json printed = ToJson(file, show_);
        printed["files"] = Json::array({printed});
        printed["dryRun"] = dryRun_;
        std::cout << ToLine(printed) << '\n';
        return;
    }
    if (show_)
        PrintRows(file);
    if (!file.Refused())
        std::cout << (dryRun_ ? "Would import " : "Imported ")
                  << Counted(static_cast<std::size_t>(file.Added()), "transaction", "transactions")
                  << '\n';
}

void ImportReport::PrintAll(bool json) const
{
    if (!json)
        return PrintTable();
    Json list = Json::array();
    for (const ImportedFile& file : files_)
        list.push_back(ToJson(file, show_));
    std::cout << ToLine({{"files", list}, {"dryRun", dryRun_}}) << '\n';
}

void ImportReport::PrintTable() const
{
    Table table;
    table.AddColumn("File", false);
    table.AddColumn("Added", true);
    table.AddColumn("Skipped", true);
    table.AddColumn("Refused", false);
    std::int64_t added = 0;
    std::int64_t skipped = 0;
    for (const ImportedFile& file : files_) {
        added += file.Added();
        skipped += file.Known();
        const std::vector<std::string> reason =
            Split(file.Refused() ? ReasonOf(file) : std::string(), '\n');
        table.AddRow({file.statement.source, std::to_string(file.Added()),
                      std::to_string(file.Known()), reason.front()});
        for (std::size_t n = 1; n < reason.size(); ++n)
            table.AddLine("  " + reason[n]);
        for (const std::string& warning : Warnings(file))
            table.AddLine("  Warning: " + warning);
    }
    table.Print(std::cout);
    if (show_)
        for (const ImportedFile& file : files_) {
            std::cout << '\n' << Printable(file.statement.source) << '\n';
            PrintRows(file);
        }
    const auto refused = std::ranges::count_if(files_, &ImportedFile::Refused);
    std::cout << Counted(files_.size(), "file", "files") << ": " << added << " added, " << skipped
              << " skipped, " << refused << " refused"
              << (dryRun_ ? "; a dry run, nothing was changed" : "") << '\n';
}

}  // namespace clb
