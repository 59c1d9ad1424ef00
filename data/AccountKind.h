// The types of account, and which view shows the rows of each.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/IShownState.h"

namespace clb {

namespace account_type {
inline constexpr const char* kBank = "Bank";
inline constexpr const char* kCash = "Cash";
inline constexpr const char* kCreditCard = "Credit Card";
inline constexpr const char* kInvestment = "Investment";
inline constexpr const char* kLoan = "Loan";
}  // namespace account_type

/// A type of account as it is stored, and the view that shows its rows.
struct AccountKind {
    const char* type;
    std::int32_t view;
    bool importable;  ///< an import may make an account of it
};

/// All types, in the order in which the user sees them.
inline constexpr AccountKind kAccountKinds[] = {{account_type::kBank, vwAccount, true},
                                                {account_type::kCash, vwAccount, true},
                                                {account_type::kCreditCard, vwAccount, true},
                                                {account_type::kInvestment, vwInvestment, true},
                                                {account_type::kLoan, vwLoan, false}};

/// The view of an account's rows by the account's type, compared exactly; 0 for any other text.
constexpr std::int32_t ViewFromAccountType(std::string_view type)
{
    for (const AccountKind& kind : kAccountKinds)
        if (type == kind.type)
            return kind.view;
    return 0;
}

/// Whether accounts of this type hold transactions: bank, cash and credit card.
constexpr bool HasTransactions(std::string_view type)
{
    return ViewFromAccountType(type) == vwAccount;
}

/// The types that an import may give a new account.
inline std::vector<std::string> ImportableTypes()
{
    std::vector<std::string> types;
    for (const AccountKind& kind : kAccountKinds)
        if (kind.importable)
            types.emplace_back(kind.type);
    return types;
}

}  // namespace clb
