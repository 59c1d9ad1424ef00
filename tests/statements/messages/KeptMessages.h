// Reads a text with a reader of messages and keeps what comes.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "statements/form/StatementReader.h"

namespace clb {

/// Everything that a reader brings, in its order.
struct KeptMessages : IStatementSink {
    struct Account {
        StatementAccount account;
        StatementBalances balances;
        std::vector<StatementRow> rows;
        bool ended = false;
    };
    std::vector<Account> accounts;
    std::vector<LeftOutPart> leftOut;

    void BeginAccount(const StatementAccount& account) override
    {
        accounts.push_back({account, {}, {}});
    }
    void EndAccount(const StatementBalances& balances) override
    {
        accounts.back().balances = balances;
        accounts.back().ended = true;
    }
    void Row(const StatementRow& row) override { accounts.back().rows.push_back(row); }
    void LeftOut(const LeftOutPart& part) override { leftOut.push_back(part); }

    [[nodiscard]] std::vector<StatementRow> Rows() const
    {
        std::vector<StatementRow> rows;
        for (const Account& account : accounts)
            rows.insert(rows.end(), account.rows.begin(), account.rows.end());
        return rows;
    }
    /// The reasons of what was left out, with the lines.
    [[nodiscard]] std::vector<std::pair<std::size_t, LeftOutReason>> Reasons() const
    {
        std::vector<std::pair<std::size_t, LeftOutReason>> reasons;
        for (const LeftOutPart& part : leftOut)
            reasons.emplace_back(part.line, part.reason);
        return reasons;
    }
};

inline KeptMessages Kept(const IStatementReader& reader)
{
    KeptMessages kept;
    reader.Read({}, kept);
    return kept;
}

}  // namespace clb
