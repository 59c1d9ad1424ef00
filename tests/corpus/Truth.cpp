#include "tests/corpus/Truth.h"

#include <algorithm>
#include <cctype>
#include <fstream>

namespace clb {
namespace {

std::string Squeezed(const std::string& text)
{
    std::string squeezed;
    for (const char c : text)
        if (std::isspace(static_cast<unsigned char>(c)) == 0)
            squeezed += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return squeezed;
}

bool HasWords(const nlohmann::json& row, const StatementRow& got)
{
    if (!row.contains("text") || row["text"].empty())
        return true;
    const std::string text = Squeezed(got.name + " " + got.text);
    return std::any_of(row["text"].begin(), row["text"].end(), [&text](const auto& word) {
        return text.find(Squeezed(word.template get<std::string>())) != std::string::npos;
    });
}

bool HasDate(const nlohmann::json& row, const std::string& date)
{
    const nlohmann::json& others = row.value("alt_dates", nlohmann::json::array());
    return row.value("date", "") == date ||
           std::find(others.begin(), others.end(), date) != others.end();
}

/// A row may be there: "optional" is a reason or true.
bool IsOptional(const nlohmann::json& row)
{
    const auto optional = row.find("optional");
    return optional != row.end() && !optional->is_null() && *optional != false;
}

std::string Described(const StatementRow& row)
{
    return row.date.ToIso().substr(0, 10) + " " + row.amount.ToText() + " " + row.name + " | " +
           row.text;
}

}  // namespace

void ReadStatement::BeginAccount(const StatementAccount& account)
{
    for (current_ = 0; current_ < accounts.size(); ++current_) {
        const StatementAccount& known = accounts[current_].account;
        if (known.number == account.number && known.name == account.name &&
            known.currency == account.currency)
            return;
    }
    accounts.push_back({account, {}, {}});
}

void ReadStatement::EndAccount(const StatementBalances& balances)
{
    Account& account = accounts.at(current_);
    if (!account.balances.opening)
        account.balances.opening = balances.opening;
    account.balances.closing = balances.closing;
}

void ReadStatement::Row(const StatementRow& row)
{
    accounts.at(current_).rows.push_back(row);
}

void ReadStatement::LeftOut(const LeftOutPart& part)
{
    leftOut.push_back(part);
}

nlohmann::json ReadTruth(const std::vector<std::string>& paths)
{
    nlohmann::json truth = nlohmann::json::object();
    for (const std::string& path : paths) {
        std::ifstream file(path);
        truth.update(nlohmann::json::parse(file));
    }
    return truth;
}

std::vector<std::string> Differences(const nlohmann::json& truth, const ReadStatement& read)
{
    std::vector<StatementRow> left;
    for (const auto& account : read.accounts)
        left.insert(left.end(), account.rows.begin(), account.rows.end());
    std::vector<nlohmann::json> wanted;
    for (const auto& account : truth["accounts"])
        for (const auto& row : account["rows"])
            wanted.push_back(row);
    std::stable_sort(wanted.begin(), wanted.end(), [](const auto& one, const auto& other) {
        return !IsOptional(one) && IsOptional(other);
    });
    std::vector<std::string> differences;
    for (const auto& row : wanted) {
        const Money amount = Money::Parse(row["amount"].get<std::string>());
        // The best of those with date and amount: the one with the words.
        auto found = left.end();
        for (auto got = left.begin(); got != left.end(); ++got)
            if (got->amount == amount && HasDate(row, got->date.ToIso().substr(0, 10)) &&
                (found == left.end() || (!HasWords(row, *found) && HasWords(row, *got))))
                found = got;
        if (found == left.end()) {
            if (!IsOptional(row))
                differences.push_back("missing: " + row.dump());
            continue;
        }
        if (!HasWords(row, *found))
            differences.push_back("words: " + row.dump() + " read as " + Described(*found));
        left.erase(found);
    }
    for (const StatementRow& row : left)
        differences.push_back("too many: " + Described(row));
    return differences;
}

}  // namespace clb
