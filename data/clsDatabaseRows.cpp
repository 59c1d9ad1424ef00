// The rows of the shown view: reading, checking, deleting and summing them.

#include "data/RowRules.h"
#include "data/StoredView.h"
#include "data/ViewTotals.h"
#include "data/clsDatabase.h"

namespace clb {

Recordset& clsDatabase::GetRows()
{
    const std::string sql = RowsQuery(shown_);
    if (rows_.IsOpen())
        rows_.Close();
    RowsRead();
    rows_.Open(sql, connection_, CursorKind::Keyset, LockKind::Pessimistic);
    return rows_;
}

bool clsDatabase::DeleteRow(bool gridRow)
{
    Lock();
    const StoredView* view = StoredViewOf(shown_.View());
    if (!gridRow) {
        if (view && view->activity)
            Execute("DELETE FROM Account WHERE AccountID = '" + ToSqlString(shown_.AccountID()) +
                    "'");
        return true;
    }
    RequireShownRow();
    if (view && view->followDeletion)
        (RowRules(*this, shown_, row_).*view->followDeletion)();
    return true;
}

bool clsDatabase::ValidRow(std::int32_t& errorColumn, std::string& errorMessage)
{
    Lock();
    const StoredView* view = StoredViewOf(shown_.View());
    RowRules rules(*this, shown_, row_);
    if (!view || (rules.*view->complete)())
        return true;
    errorColumn = rules.Column();
    errorMessage = rules.Message();
    return false;
}

void clsDatabase::CalcTotals(Money& first, Money& second)
{
    if (const StoredView* view = StoredViewOf(shown_.View()))
        (ViewTotals(*this, shown_).*view->totals)(first, second);
}

void clsDatabase::UpdateBalance(std::int32_t& view, std::string& accountID)
{
    if (view == -1)
        view = shown_.View();
    if (accountID.empty())
        accountID = shown_.AccountID();
    const Activity* activity = ActivityOf(view);
    if (!activity)
        return;
    Lock();
    const std::string condition = "AccountID = '" + ToSqlString(accountID) + "'";
    const Money sum = Sum(std::string("SELECT ") + activity->sum + " AS TotAmount FROM " +
                              activity->table + " WHERE " + condition,
                          "TotAmount", AmountsOf(*activity, condition, accountID));
    Recordset balance;
    balance.Open("SELECT CurrentBalance FROM Account WHERE " + condition, connection_,
                 CursorKind::Keyset, LockKind::Pessimistic);
    balance.Set("CurrentBalance", sum);
    balance.Update();
}

}  // namespace clb
