#include "cli/ImportReport.h"

#include <algorithm>
#include <iostream>
#include <map>

#include "base/Text.h"
#include "cli/ImportJson.h"
#include "cli/Program.h"
#include "cli/Table.h"
#include "intake/StatementJson.h"

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

std::string LineOf(const OtherFile& other)
{
    return Printable(other.path + ": " + other.why);
}

std::vector<std::string> Warnings(const ImportedFile& file)
{
    std::vector<std::string> lines;
    WarnOfBalances(file, lines);
    for (const LeftOutPart& part : file.statement.leftOut)
        if (!IsUnreadable(part))
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
                      shown.row.amount.ToText(), Printable(TextOf(shown.row)),
                      Printable(shown.identifier), StateOf(shown)});
    table.Print(std::cout);
}

/// What the file leaves open, how its rows are shown, and which option of the command answers it.
void PrintQuestions(const ImportedFile& file)
{
    if (file.statement.asked.empty())
        return;
    Table table;
    for (const char* caption : {"Question", "Options", "Shown as", "Answer with"})
        table.AddColumn(caption, false);
    for (const OpenQuestion& open : file.statement.asked) {
        std::string options;
        for (const std::string& option : open.options)
            options += (options.empty() ? "" : ", ") + option;
        table.AddRow({KeyOf(open.question), Printable(options), Printable(open.proposed),
                      OptionOf(open.question)});
    }
    std::cout << '\n';
    table.Print(std::cout);
}

void PrintShown(const ImportedFile& file)
{
    PrintRows(file);
    PrintQuestions(file);
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

bool ImportedFile::Unreadable() const
{
    return std::ranges::any_of(statement.leftOut, IsUnreadable);
}

bool ImportedFile::Refused() const
{
    return failed || refused || accountMissing || !statement.refused.empty() ||
           !statement.asked.empty() || Unreadable();
}

bool ImportReport::AnyRefused() const
{
    return std::ranges::any_of(files_, &ImportedFile::Refused);
}

void ImportReport::PrintOne(bool json) const
{
    const ImportedFile& file = files_.front();
    const bool imported = !file.refused && file.statement.refused.empty() &&
                          file.statement.asked.empty() && !file.statement.kind.empty();
    std::cerr << (file.failed ? "clb: " : "") << file.messages;
    if (file.accountMissing)
        std::cerr << "The file's account is not known. Say which it is:\n"
                     "  --create NAME --type TYPE   makes a new account\n"
                     "  --map ACCOUNT               takes an existing one\n";
    else if (const std::string reason = ReasonInFile(file); !reason.empty())
        std::cerr << reason << '\n';
    for (const std::string& warning : Warnings(file))
        std::cerr << "Warning: " << warning << '\n';
    for (const OtherFile& other : others_)
        std::cerr << "Warning: " << LineOf(other) << '\n';
    if (json) {
        Json printed = ToJson(file, show_);
        printed["files"] = Json::array({printed});
        printed["others"] = ToJson(others_);
        printed["dryRun"] = dryRun_;
        std::cout << ToLine(printed) << '\n';
        return;
    }
    if (show_)
        PrintShown(file);
    if (imported && !file.failed)
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
    std::cout << ToLine({{"files", list}, {"others", ToJson(others_)}, {"dryRun", dryRun_}})
              << '\n';
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
            PrintShown(file);
        }
    for (const OtherFile& other : others_)
        std::cout << "Not a statement: " << LineOf(other) << '\n';
    const auto refused = std::ranges::count_if(files_, &ImportedFile::Refused);
    std::cout << Counted(files_.size(), "file", "files") << ": " << added << " added, " << skipped
              << " skipped, " << refused << " refused"
              << (dryRun_ ? "; a dry run, nothing was changed" : "") << '\n';
}

}  // namespace clb
