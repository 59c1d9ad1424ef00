// Checking and completing the grid's current row, and what follows a deletion.

#include "data/clsDatabase.h"

namespace clb {

bool clsDatabase::DeleteRow(bool gridRow)
{
    Lock();
    const std::int32_t view = shown_.View();
    if (!gridRow) {
        if (view == vwAccount || view == vwInvestment || view == vwLoan)
            Execute("DELETE FROM Account WHERE AccountID = '" + ShownAccount() + "'");
        return true;
    }
    RequireShownRow();
    if (view != vwBudget)
        return true;
    const std::string condition = "Trans.Category = '" + ToSqlString(ToText(row_.ColumnValue(1))) +
                                  "' AND Year = " + std::to_string(shown_.Year()) +
                                  " AND Period = " + std::to_string(shown_.Period());
    if (!RowExists("Trans", condition))
        return true;
    CreateBudgetEntry("(none)", shown_.Year(), shown_.Period(), "(none)", Money());
    Execute("UPDATE Trans SET Category = '(none)' WHERE " + condition);
    return true;
}

bool clsDatabase::ValidRow(std::int32_t& errorColumn, std::string& errorMessage)
{
    Lock();
    switch (shown_.View()) {
        case vwNetWorth: return ValidNetWorthRow(errorColumn, errorMessage);
        case vwBudget: return ValidBudgetRow(errorColumn, errorMessage);
        case vwAccountType: return ValidAccountRow(errorColumn, errorMessage);
        case vwAccount: CompleteTransaction(); return true;
        case vwInvestment: row_.ColumnValue(8, shown_.AccountID()); return true;
        case vwLoan: row_.ColumnValue(5, shown_.AccountID()); return true;
        default: return true;
    }
}

bool clsDatabase::ValidAccountCells(std::int32_t accountColumn, std::int32_t sequenceColumn,
                                    std::int32_t& errorColumn, std::string& errorMessage)
{
    const auto refuse = [&](std::int32_t column, const char* message) {
        errorColumn = column;
        errorMessage = message;
        return false;
    };
    if (IsEmpty(row_.ColumnValue(1)))
        return refuse(1, "Please enter an account description.");
    if (IsEmpty(row_.ColumnValue(accountColumn)))
        return refuse(accountColumn, "Please enter an account #.");
    if (AccountTaken(accountColumn, sequenceColumn))
        return refuse(accountColumn, "That account already exists.");
    return true;
}

bool clsDatabase::AccountTaken(std::int32_t accountColumn, std::int32_t sequenceColumn)
{
    std::string condition =
        "AccountID = '" + ToSqlString(ToText(row_.ColumnValue(accountColumn))) + "'";
    const Value sequence = row_.ColumnValue(sequenceColumn);
    if (!IsEmpty(sequence))
        condition += " AND Sequence <> " + ToText(sequence);
    return RowExists("Account", condition);
}

bool clsDatabase::ValidNetWorthRow(std::int32_t& errorColumn, std::string& errorMessage)
{
    if (!ValidAccountCells(3, 6, errorColumn, errorMessage))
        return false;
    if (!IsEmpty(row_.ColumnValue(2)))
        return true;
    errorColumn = 2;
    errorMessage = "Please enter an account type.";
    return false;
}

bool clsDatabase::ValidAccountRow(std::int32_t& errorColumn, std::string& errorMessage)
{
    if (!ValidAccountCells(2, 5, errorColumn, errorMessage))
        return false;
    row_.ColumnValue(6, shown_.AccountType());
    return true;
}

bool clsDatabase::ValidBudgetRow(std::int32_t& errorColumn, std::string& errorMessage)
{
    if (IsEmpty(row_.ColumnValue(1))) {
        errorColumn = 1;
        errorMessage = "Please enter a category.";
        return false;
    }
    if (IsEmpty(row_.ColumnValue(6)))
        row_.ColumnValue(6, std::string("(none)"));
    row_.ColumnValue(4, shown_.Year());
    row_.ColumnValue(5, shown_.Period());
    return true;
}

void clsDatabase::CompleteTransaction()
{
    if (IsEmpty(row_.ColumnValue(11))) {
        row_.ColumnValue(7, shown_.AccountID());
        row_.ColumnValue(8, shown_.Year());
        row_.ColumnValue(9, shown_.Period());
        row_.ColumnValue(11, GetNextSequence());
    }
    if (IsEmpty(row_.ColumnValue(5)))
        row_.ColumnValue(5, std::string("(none)"));
    Month month{shown_.Year(), shown_.Period()};
    // Another program may have moved the row to another month while it was typed into.
    if (RowsOutdated())
        month = {ToLong(row_.ColumnValue(8)), ToLong(row_.ColumnValue(9))};
    CreateBudgetEntry(ToText(row_.ColumnValue(5)), month.year, month.period, "(none)", Money());
}

}  // namespace clb
