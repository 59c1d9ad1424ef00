#include "data/RowRules.h"

#include "data/NoCategory.h"
#include "data/clsDatabase.h"

namespace clb {

RowRules::RowRules(clsDatabase& store, const IShownState& shown, ICurrentRow& row)
    : store_(store), shown_(shown), row_(row)
{
}

bool RowRules::IsBlank(std::int32_t column)
{
    return IsEmpty(row_.ColumnValue(column));
}

bool RowRules::Refuse(std::int32_t column, const char* message)
{
    column_ = column;
    message_ = message;
    return false;
}

bool RowRules::CheckAccountCells(const AccountColumns& columns)
{
    if (IsBlank(columns.description))
        return Refuse(columns.description, "Please enter an account description.");
    if (IsBlank(columns.accountID))
        return Refuse(columns.accountID, "Please enter an account #.");
    if (AccountTaken(columns))
        return Refuse(columns.accountID, "That account already exists.");
    return true;
}

bool RowRules::AccountTaken(const AccountColumns& columns)
{
    std::string condition = "AccountID = '" +
                            clsDatabase::ToSqlString(ToText(row_.ColumnValue(columns.accountID))) +
                            "'";
    const Value sequence = row_.ColumnValue(columns.sequence);
    if (!IsEmpty(sequence))
        condition += " AND Sequence <> " + ToText(sequence);
    return store_.RowExists("Account", condition);
}

bool RowRules::CheckAccount()
{
    if (!CheckAccountCells(kNetWorthAccount))
        return false;
    if (IsBlank(NetWorth::Type))
        return Refuse(NetWorth::Type, "Please enter an account type.");
    return true;
}

bool RowRules::CheckAccountOfType()
{
    if (!CheckAccountCells(kAccountTypeAccount))
        return false;
    row_.ColumnValue(AccountType::Type, shown_.AccountType());
    return true;
}

bool RowRules::CheckBudgetLine()
{
    if (IsBlank(Budget::Category))
        return Refuse(Budget::Category, "Please enter a category.");
    if (IsBlank(Budget::CategoryGroup))
        row_.ColumnValue(Budget::CategoryGroup, std::string(kNoCategory));
    row_.ColumnValue(Budget::Year, shown_.Year());
    row_.ColumnValue(Budget::Period, shown_.Period());
    return true;
}

bool RowRules::CompleteTransaction()
{
    if (IsBlank(Register::Sequence)) {
        row_.ColumnValue(Register::AccountID, shown_.AccountID());
        row_.ColumnValue(Register::Year, shown_.Year());
        row_.ColumnValue(Register::Period, shown_.Period());
        row_.ColumnValue(Register::Sequence, store_.GetNextSequence());
    }
    if (IsBlank(Register::Category))
        row_.ColumnValue(Register::Category, std::string(kNoCategory));
    Month month{shown_.Year(), shown_.Period()};
    // Another program may have moved the row to another month while the user typed into it.
    if (store_.RowsOutdated())
        month = {ToLong(row_.ColumnValue(Register::Year)),
                 ToLong(row_.ColumnValue(Register::Period))};
    store_.CreateBudgetEntry(ToText(row_.ColumnValue(Register::Category)), month.year, month.period,
                             kNoCategory, Money());
    return true;
}

bool RowRules::CompleteHolding()
{
    row_.ColumnValue(Holdings::AccountID, shown_.AccountID());
    return true;
}

bool RowRules::CompleteLoan()
{
    row_.ColumnValue(Loans::AccountID, shown_.AccountID());
    return true;
}

void RowRules::ReleaseCategory()
{
    const std::string condition =
        "Trans.Category = '" +
        clsDatabase::ToSqlString(ToText(row_.ColumnValue(Budget::Category))) +
        "' AND Year = " + std::to_string(shown_.Year()) +
        " AND Period = " + std::to_string(shown_.Period());
    if (!store_.RowExists("Trans", condition))
        return;
    store_.CreateBudgetEntry(kNoCategory, shown_.Year(), shown_.Period(), kNoCategory, Money());
    store_.Execute("UPDATE Trans SET Category = '" + std::string(kNoCategory) + "' WHERE " +
                   condition);
}

}  // namespace clb
