// What a statement holds in all, found out before any row is stored.
#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/MoneySum.h"
#include "statements/form/Statement.h"

namespace clb {

/// One account of a statement.
struct SurveyedAccount {
    StatementAccount account;
    StatementBalances balances;
    std::int64_t rows = 0;
    MoneySum sum;
};

/// Goes through a statement without keeping its rows: accounts in the order of the file, their
/// balances and sums, and what is left out.
class StatementSurvey : public IStatementSink {
public:
    /// An account is told from another by its number and currency.
    using Key = std::pair<std::string, std::string>;
    static Key KeyOf(const StatementAccount& account);

    [[nodiscard]] const std::vector<SurveyedAccount>& Accounts() const { return accounts_; }
    [[nodiscard]] const std::vector<LeftOutPart>& LeftOut() const { return leftOut_; }
    /// The account that rows belong to at the moment, among Accounts().
    [[nodiscard]] std::size_t Place() const { return current_; }
    /// Whether opening balance and rows make the closing balance, and no balance beside a row
    /// breaks the chain. Nothing if the file lacks them.
    static std::optional<bool> Balanced(const SurveyedAccount& account);

    // IStatementSink
    void BeginAccount(const StatementAccount& account) override;
    void EndAccount(const StatementBalances& balances) override;
    void Row(const StatementRow& row) override;
    void LeftOut(const LeftOutPart& part) override;

private:
    std::vector<SurveyedAccount> accounts_;
    std::map<Key, std::size_t> places_;
    std::vector<LeftOutPart> leftOut_;
    std::size_t current_ = 0;
};

}  // namespace clb
