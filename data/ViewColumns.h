// The columns of each view, numbered from 1 in the order of the SELECT beside them.
//
// A SELECT names what is shown in braces: {year}, {period}, {account} and {type}. Columns after a
// SELECT's last one are calculated; the view adds them to the grid.
#pragma once
#include <cstdint>

namespace clb {

/// All accounts.
struct NetWorth {
    enum Column : std::int32_t {
        Description = 1,
        Type,
        AccountID,
        OpeningBalance,
        TotalBalance,
        Sequence
    };
    static constexpr const char* kRows =
        "SELECT Description, Type, AccountID, OpeningBalance, (OpeningBalance + CurrentBalance) as "
        "TotBalance, Sequence FROM Account ORDER BY Type, Description";
};

/// A month's budget lines.
struct Budget {
    enum Column : std::int32_t {
        Category = 1,
        Amount,
        Sequence,
        Year,
        Period,
        CategoryGroup,
        Actual,
        Difference
    };
    static constexpr const char* kRows =
        "SELECT Budget.Category, Budget.Amount, Budget.Sequence, Budget.Year, Budget.Period, "
        "Budget.CategoryGroup FROM Budget WHERE Budget.Year = {year} AND Budget.Period = {period} "
        "ORDER BY Budget.CategoryGroup, Budget.Category";
};

/// The accounts of one type.
struct AccountType {
    enum Column : std::int32_t {
        Description = 1,
        AccountID,
        OpeningBalance,
        TotalBalance,
        Sequence,
        Type
    };
    static constexpr const char* kRows =
        "SELECT Description, AccountID, OpeningBalance, (OpeningBalance + CurrentBalance) as "
        "TotBalance, Sequence, Type FROM Account WHERE Type = '{type}' ORDER BY Description";
};

/// An account's transactions of a month, newest first.
struct Register {
    enum Column : std::int32_t {
        PostDate = 1,
        Description,
        Amount,
        CheckID,
        Category,
        Notes,
        AccountID,
        Year,
        Period,
        Fitid,
        Sequence,
        SubSequence
    };
    static constexpr const char* kRows =
        "SELECT PostDate, Description, Amount, CheckID, Category, PayeeName AS Notes, AccountID, "
        "Year, Period, FITID, Sequence, SubSequence FROM Trans WHERE AccountID = '{account}' AND "
        "Period = {period} AND Year = {year} ORDER BY PostDate DESC, Sequence DESC, SubSequence";
};

/// An account's investments.
struct Holdings {
    enum Column : std::int32_t {
        StockSymbol = 1,
        StockName,
        PurchaseDate,
        Quantity,
        PurchasePrice,
        LastPrice,
        Total,
        AccountID,
        Sequence
    };
    static constexpr const char* kRows =
        "SELECT StockSymbol, StockName, PurchaseDate, Quantity, PurchasePrice, LastPrice, Total, "
        "AccountID, Sequence FROM Investment WHERE AccountID = '{account}' ORDER BY PurchaseDate";
};

/// An account's loans.
struct Loans {
    enum Column : std::int32_t {
        Description = 1,
        OriginalAmount,
        PaidAmount,
        InterestRate,
        AccountID,
        Sequence,
        Balance
    };
    static constexpr const char* kRows =
        "SELECT Description, OriginalAmount, PaidAmount, InterestRate, AccountID, Sequence FROM "
        "Loan WHERE AccountID = '{account}' ORDER BY Description";
};

/// The columns of an account's cells in a view that lists accounts.
struct AccountColumns {
    std::int32_t description;
    std::int32_t accountID;
    std::int32_t type;
    std::int32_t sequence;
};

inline constexpr AccountColumns kNetWorthAccount{NetWorth::Description, NetWorth::AccountID,
                                                 NetWorth::Type, NetWorth::Sequence};
inline constexpr AccountColumns kAccountTypeAccount{
    AccountType::Description, AccountType::AccountID, AccountType::Type, AccountType::Sequence};

}  // namespace clb
