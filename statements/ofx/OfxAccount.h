// The account and the balance of an OFX statement.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "statements/form/FileAmounts.h"
#include "statements/form/Statement.h"
#include "statements/ofx/OfxWalk.h"

namespace clb {

/// Returns the account that a statement is of. The cash of a brokerage account is a bank account,
/// because its rows are transactions.
[[nodiscard]] StatementAccount OfxAccountOf(const OfxFacts& facts);

/// Returns the code of ISO 4217 that a raw value means; empty for other texts.
[[nodiscard]] std::string OfxCurrency(std::string_view raw);

/// Returns the accounts of a file's statements. Accounts that have the same number but another
/// bank, branch or type get these added to the number, so that none is taken for another.
[[nodiscard]] std::vector<StatementAccount> OfxAccountsOf(const std::vector<OfxFacts>& statements);

/// Returns the closing balance, as far as it can be read exactly.
[[nodiscard]] StatementBalances OfxBalancesOf(const OfxFacts& facts, const FileAmounts& amounts,
                                              std::optional<char> decimal);

}  // namespace clb
