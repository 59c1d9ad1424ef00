// Collects what a reader of statements reads.
#pragma once
#include <string>
#include <vector>

#include "statements/form/StatementReader.h"

namespace clb {

/// Keeps everything in the order in which it comes, accounts that continue once.
struct CollectedStatement : IStatementSink {
    struct Account {
        StatementAccount account;
        StatementBalances balances{};
        std::vector<StatementRow> rows{};
    };
    std::vector<Account> accounts;
    std::vector<LeftOutPart> leftOut;

    void BeginAccount(const StatementAccount& account) override
    {
        for (current_ = 0; current_ < accounts.size(); ++current_) {
            const StatementAccount& known = accounts[current_].account;
            if (known.number == account.number && known.bank == account.bank &&
                known.name == account.name && known.currency == account.currency)
                return;
        }
        accounts.push_back({account});
    }
    void EndAccount(const StatementBalances& balances) override
    {
        accounts.at(current_).balances = balances;
    }
    void Row(const StatementRow& row) override { accounts.at(current_).rows.push_back(row); }
    void LeftOut(const LeftOutPart& part) override { leftOut.push_back(part); }

    /// The rows of all accounts as "2024-01-31 -12.5 name | text".
    [[nodiscard]] std::vector<std::string> Rows() const
    {
        std::vector<std::string> rows;
        for (const Account& account : accounts)
            for (const StatementRow& row : account.rows)
                rows.push_back(row.date.ToIso() + " " + row.amount.ToText() + " " + row.name +
                               (row.text.empty() ? "" : " | " + row.text));
        return rows;
    }
    /// What is left out as "line 3: it has no date that can be read (text)".
    [[nodiscard]] std::vector<std::string> Omissions() const
    {
        std::vector<std::string> omissions;
        for (const LeftOutPart& part : leftOut)
            omissions.push_back("line " + std::to_string(part.line) + ": " + ToText(part.reason) +
                                " (" + part.text +
                                (part.count == 1 ? ")" : ") x" + std::to_string(part.count)));
        return omissions;
    }

private:
    std::size_t current_ = 0;
};

/// Reads a statement with these answers.
inline CollectedStatement Collect(const IStatementReader& reader,
                                  const StatementAnswers& answers = {})
{
    CollectedStatement collected;
    reader.Read(answers, collected);
    return collected;
}

/// The keys of the questions that remain.
inline std::vector<std::string> Asked(const IStatementReader& reader,
                                      const StatementAnswers& answers = {})
{
    std::vector<std::string> keys;
    for (const OpenQuestion& question : reader.Open(answers))
        keys.emplace_back(KeyOf(question.question));
    return keys;
}

}  // namespace clb
