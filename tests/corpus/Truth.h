// What must come of the files of a folder, and the comparison with what a reader reads.
#pragma once
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "statements/form/Statement.h"

namespace clb {

/// Keeps what a reader reads.
struct ReadStatement : IStatementSink {
    struct Account {
        StatementAccount account;
        StatementBalances balances;
        std::vector<StatementRow> rows;
    };
    std::vector<Account> accounts;
    std::vector<LeftOutPart> leftOut;

    void BeginAccount(const StatementAccount& account) override;
    void EndAccount(const StatementBalances& balances) override;
    void Row(const StatementRow& row) override;
    void LeftOut(const LeftOutPart& part) override;

private:
    std::size_t current_ = 0;
};

/// Reads the truth of a folder's files: an object by file name. It may be in several files.
nlohmann::json ReadTruth(const std::vector<std::string>& paths);

/// How the rows differ from the truth of their file, a line each; empty if they agree. Every row
/// that must be there is there once with one of its dates, its amount and its words, and nothing
/// else is there.
std::vector<std::string> Differences(const nlohmann::json& truth, const ReadStatement& read);

}  // namespace clb
