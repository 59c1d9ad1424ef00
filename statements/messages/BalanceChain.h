// Balances of an account over the statements of a file.
#pragma once
#include <cstddef>

#include "statements/form/Statement.h"

namespace clb {

/// Joins the balances of an account's statements, in the order of the file, to those before its
/// first and after its last row. Statements may be in the order of time or against it.
class BalanceChain {
public:
    void Add(const StatementBalances& balances);
    [[nodiscard]] StatementBalances Whole() const;

private:
    StatementBalances first_{};
    StatementBalances last_{};
    std::size_t count_ = 0;
    bool forward_ = true;   ///< each opening is the closing of the statement before
    bool backward_ = true;  ///< each closing is the opening of the statement before
};

}  // namespace clb
