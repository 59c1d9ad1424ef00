#include <iostream>
#include <limits>
#include <memory>

#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/Program.h"
#include "cli/Table.h"
#include "json/ValueJson.h"
#include "search/TransactionFinder.h"

namespace clb {
namespace {

struct FindOptions : FolderOptions {
    std::vector<std::string> words;
    std::int64_t limit = std::numeric_limits<std::int64_t>::max();
};

std::string Joined(const std::vector<std::string>& words)
{
    std::string joined;
    for (const std::string& word : words)
        joined += (joined.empty() ? "" : " ") + word;
    return joined;
}

Json HitJson(const SearchHit& hit)
{
    return {{"sequence", ToJson(hit.sequence)}, {"subSequence", ToJson(hit.subSequence)},
            {"account", ToJson(hit.account)},   {"accountID", ToJson(hit.accountID)},
            {"date", ToJson(hit.date)},         {"description", ToJson(hit.description)},
            {"amount", ToJson(hit.amount)},     {"category", ToJson(hit.category)},
            {"notes", ToJson(hit.notes)},       {"checkID", ToJson(hit.checkID)},
            {"year", ToJson(hit.year)},         {"period", ToJson(hit.period)}};
}

void PrintJson(const FoundTransactions& found, const std::vector<SearchHit>& hits)
{
    Json list = Json::array();
    for (const SearchHit& hit : hits)
        list.push_back(HitJson(hit));
    const Json sum = found.sum ? Json(found.sum->ToText()) : Json();
    std::cout << ToLine({{"hits", list}, {"count", found.count}, {"sum", sum}}) << '\n';
}

std::string AmountText(const Value& amount)
{
    const auto* const money = std::get_if<Money>(&amount);
    return money == nullptr ? std::string() : money->Grouped();
}

/// "2 transactions, sum -12.50", and how many of them are listed if not all are.
std::string CountLine(const FoundTransactions& found, std::size_t listed)
{
    const std::string count = std::to_string(found.count);
    std::string line = count + (found.count == 1 ? " transaction" : " transactions");
    line += found.sum ? ", sum " + found.sum->Grouped()
                      : std::string(
                            ", which have no sum: an amount is not a number, or the sum is "
                            "too large");
    if (listed < found.count)
        line += "; the newest " + std::to_string(listed) + " are listed";
    return line;
}

void PrintTable(const FoundTransactions& found, const std::vector<SearchHit>& hits)
{
    Table table;
    for (const char* caption : {"Date", "Account", "Description"})
        table.AddColumn(caption, false);
    table.AddColumn("Amount", true);
    for (const char* caption : {"Check #", "Category", "Notes"})
        table.AddColumn(caption, false);
    for (const SearchHit& hit : hits)
        table.AddRow({ToText(hit.date), ToText(hit.account), ToText(hit.description),
                      AmountText(hit.amount), ToText(hit.checkID), ToText(hit.category),
                      ToText(hit.notes)});
    if (!hits.empty())
        table.Print(std::cout);
    std::cout << CountLine(found, hits.size()) << '\n';
}

void PrintFound(const FindOptions& options, const SearchQuery& query)
{
    NoForms forms;
    Program program(OpenFolder(options.home), forms);
    Connection& connection = program.Window().Data().Database();
    TransactionFinder finder(connection);
    const ReadGroup group(connection);  // all that is read is of one moment
    const FoundTransactions found = finder.Find(query, static_cast<std::size_t>(options.limit));
    (options.json ? PrintJson : PrintTable)(found, finder.Read(found.rows));
}

}  // namespace

void AddFind(CLI::App& app, int& exitCode)
{
    auto options = std::make_shared<FindOptions>();
    Command command(app, "find", "Find transactions in all accounts and months, the newest first");
    command
        .Take("WORDS", options->words,
              "What to find: words, amounts (49.90, >100, 12..15), dates (2026, 2026-03), "
              "account: category: payee: notes: before a word; after --, -word for without")
        .Required();
    command.Take("--limit", options->limit, "How many to list (default: all)").Positive();
    AddHome(command, *options);
    AddJson(command, *options);
    command.Run([options, &exitCode] {
        const SearchQuery query(Joined(options->words));
        if (!query.Empty())
            return PrintFound(*options, query);
        std::cerr << "WORDS: there is nothing to find in them\n";
        exitCode = 2;
    });
}

}  // namespace clb
