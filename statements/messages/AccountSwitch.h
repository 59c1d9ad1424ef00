// Brings rows to the sink, each in its account.
#pragma once
#include <functional>
#include <optional>

#include "statements/form/Statement.h"

namespace clb {

/// Tells the sink which account the rows that follow belong to. Statements of one account that
/// follow each other become one.
class AccountSwitch {
public:
    using Balances = std::function<StatementBalances(std::size_t account)>;
    /// The sink is borrowed. The second argument returns an account's balances over the whole file.
    AccountSwitch(IStatementSink& sink, Balances balances);
    /// Accounts are the same if their numbers are.
    void To(std::size_t number, const StatementAccount& account);
    void End();

private:
    IStatementSink& sink_;
    Balances balances_;
    std::optional<std::size_t> current_{};
};

}  // namespace clb
