// Reads a table of text in a test.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "statements/csv/CsvReader.h"

namespace clb {

/// Keeps what a reader reads.
struct KeptStatement : IStatementSink {
    struct Account {
        StatementAccount account;
        StatementBalances balances;
        std::vector<StatementRow> rows;
    };
    std::vector<Account> accounts;
    std::vector<LeftOutPart> leftOut;

    void BeginAccount(const StatementAccount& account) override
    {
        for (current_ = 0; current_ < accounts.size(); ++current_)
            if (accounts[current_].account.number == account.number &&
                accounts[current_].account.currency == account.currency)
                return;
        accounts.push_back({account, {}, {}});
    }
    void EndAccount(const StatementBalances& balances) override
    {
        accounts.at(current_).balances = balances;
    }
    void Row(const StatementRow& row) override { accounts.at(current_).rows.push_back(row); }
    void LeftOut(const LeftOutPart& part) override { leftOut.push_back(part); }

private:
    std::size_t current_ = 0;
};

inline KeptStatement Kept(std::string_view text, const StatementAnswers& answers = {})
{
    KeptStatement kept;
    ReadCsv(text)->Read(answers, kept);
    return kept;
}

/// The keys of the questions that the text leaves open, each with a space after it.
inline std::string Asked(std::string_view text, const StatementAnswers& answers = {})
{
    std::string asked;
    for (const OpenQuestion& question : ReadCsv(text)->Open(answers))
        asked += std::string(KeyOf(question.question)) + " ";
    return asked;
}

/// All rows as "date amount", one a line, in the order of the file; "asked ..." if something is
/// open.
inline std::string Rows(std::string_view text, const StatementAnswers& answers = {})
{
    std::string rows;
    const std::string asked = Asked(text, answers);
    if (!asked.empty())
        return "asked " + asked;
    for (const auto& account : Kept(text, answers).accounts)
        for (const StatementRow& row : account.rows)
            rows += row.date.ToIso() + " " + row.amount.ToText() + "\n";
    return rows;
}

}  // namespace clb
