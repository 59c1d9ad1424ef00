#include "cli/ImportReport.h"

#include <algorithm>
#include <iostream>

#include "base/Text.h"
#include "cli/Table.h"
#include "json/ValueJson.h"

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

std::vector<std::string> Warnings(const ImportedFile& file)
{
    const Omissions& leftOut = file.leftOut;
    std::vector<std::string> lines;
    WarnOfBalances(file, lines);
    if (leftOut.linesAfterRepair > 0)
        lines.push_back(Counted(leftOut.linesAfterRepair, "line", "lines") +
                        " left out: mixed line ends, the repair keeps the file up to its first "
                        "carriage return" +
                        (file.original.empty() ? "" : "; all of it is in " + file.original));
    if (leftOut.afterEmptyTransaction > 0)
        lines.push_back(Counted(leftOut.afterEmptyTransaction, "transaction", "transactions") +
                        " left out after an empty transaction, where reading stops");
    if (leftOut.beforeAccount > 0)
        lines.push_back(Counted(leftOut.beforeAccount, "transaction", "transactions") +
                        " left out before the file's first account number");
    if (leftOut.notClosed > 0)
        lines.push_back(Counted(leftOut.notClosed, "transaction", "transactions") +
                        " left out: not closed, or inside one that is not");
    if (leftOut.furtherAccounts > 0)
        lines.push_back(Counted(leftOut.furtherAccounts, "further account", "further accounts") +
                        ": all transactions go into the file's first account");
    if (leftOut.withoutIdentifier > 0)
        lines.push_back(
            Counted(leftOut.withoutIdentifier, "transaction", "transactions") +
            " without an identifier: all but an account's first one count as duplicates");
    return lines;
}

/// Why the file was refused, in lines.
std::string Reason(const ImportedFile& file)
{
    if (file.accountMissing && file.messages.empty())
        return "The file's account is not known: --create, --map or --qif-account names one.";
    return file.messages.substr(0, file.messages.find_last_not_of('\n') + 1);
}

Json AmountOrNull(const std::optional<Money>& amount)
{
    return amount ? Json(amount->ToText()) : Json();
}

Json BalancesOf(const ImportedFile& file)
{
    Json balances = Json::array();
    for (const OddBalance& odd : file.balances)
        balances.push_back({{"account", odd.accountID},
                            {"name", odd.description},
                            {"stored", AmountOrNull(odd.stored)},
                            {"sum", AmountOrNull(odd.sum)}});
    return balances;
}

Json ToJson(const ImportedFile& file)
{
    Json json = {{"file", file.file}, {"imported", file.added}, {"skipped", file.skipped}};
    json["refused"] = file.refused ? Json(Reason(file)) : Json();
    json["leftOut"] = {{"linesBehindRepair", file.leftOut.linesAfterRepair},
                       {"behindEmptyTransaction", file.leftOut.afterEmptyTransaction},
                       {"beforeAccount", file.leftOut.beforeAccount},
                       {"notClosed", file.leftOut.notClosed},
                       {"furtherAccounts", file.leftOut.furtherAccounts},
                       {"withoutIdentifier", file.leftOut.withoutIdentifier}};
    json["balances"] = BalancesOf(file);
    json["backup"] = file.backup.empty() ? Json() : Json(file.backup);
    return json;
}

}  // namespace

bool ImportReport::AnyRefused() const
{
    return std::ranges::any_of(files_, &ImportedFile::refused);
}

void ImportReport::PrintOne(bool json) const
{
    const ImportedFile& file = files_.front();
    std::cerr << (file.failed ? "clb: " : "") << file.messages;
    if (file.accountMissing)
        std::cerr << "The file's account is not known. Say which it is:\n"
                     "  --create NAME --type TYPE   makes a new account\n"
                     "  --map ACCOUNT               takes an existing one\n";
    for (const std::string& warning : Warnings(file))
        std::cerr << "Warning: " << warning << '\n';
    if (json)
        std::cout << ToLine(ToJson(file)) << '\n';
    else if (!file.failed && !file.accountMissing)
        std::cout << (dryRun_ ? "Would import " : "Imported ")
                  << Counted(static_cast<std::size_t>(file.added), "transaction", "transactions")
                  << '\n';
}

void ImportReport::PrintAll(bool json) const
{
    if (!json)
        return PrintTable();
    Json list = Json::array();
    for (const ImportedFile& file : files_)
        list.push_back(ToJson(file));
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
        added += file.added;
        skipped += file.skipped;
        const std::vector<std::string> reason = Split(file.refused ? Reason(file) : "", '\n');
        table.AddRow(
            {file.file, std::to_string(file.added), std::to_string(file.skipped), reason.front()});
        for (std::size_t n = 1; n < reason.size(); ++n)
            table.AddLine("  " + reason[n]);
        for (const std::string& warning : Warnings(file))
            table.AddLine("  Warning: " + warning);
    }
    table.Print(std::cout);
    const auto refused = std::ranges::count_if(files_, &ImportedFile::refused);
    std::cout << Counted(files_.size(), "file", "files") << ": " << added << " added, " << skipped
              << " skipped, " << refused << " refused"
              << (dryRun_ ? "; a dry run, nothing was changed" : "") << '\n';
}

}  // namespace clb
