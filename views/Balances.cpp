#include "views/Balances.h"

#include "data/clsDatabase.h"
#include "views/clsView.h"

namespace clb {

void UpdateBalances(clsDatabase& database)
{
    Recordset accounts;
    database.Fill(accounts, "SELECT AccountID, Type FROM Account", true);
    for (; !accounts.AtEnd(); accounts.MoveNext()) {
        const Value& number = accounts.Get("AccountID");
        if (IsNull(number))
            continue;
        std::int32_t view = clsView::ViewFromAccountType(ToText(accounts.Get("Type")));
        std::string account = ToText(number);
        database.UpdateBalance(view, account);
    }
}

}  // namespace clb
