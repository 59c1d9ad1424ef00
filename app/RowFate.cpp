#include "app/RowFate.h"

#include "data/clsDatabase.h"
#include "engine/rows/RawSql.h"

namespace clb {
namespace {

const char* TableOf(std::int32_t view)
{
    switch (view) {
        case vwBudget: return "Budget";
        case vwAccount: return "Trans";
        case vwInvestment: return "Investment";
        case vwLoan: return "Loan";
        default: return "Account";
    }
}

/// The column by which the view chooses the row and that is looked at first; the other one of a
/// register is the month.
const char* PlaceOf(std::int32_t view)
{
    switch (view) {
        case vwBudget: return "NULL";
        case vwNetWorth:
        case vwAccountType: return "Type";
        default: return "AccountID";
    }
}

}  // namespace

std::string FateOf(const GridSpot& spot, const std::string& row, clsDatabase& database,
                   const IShownState& shown)
{
    const std::int32_t view = shown.View();
    std::string fate = "deleted " + row;
    RawSql(database.Database())
        .Select(std::string("SELECT Sequence, ") + PlaceOf(view) + " FROM " + TableOf(view) +
                    " WHERE rowid = " + std::to_string(spot.identity),
                [&](const RawSql::Row& stored) {
                    if (std::string(stored.Text(0)) != ToText(spot.key))
                        fate = "deleted " + row + " or given it another number";
                    else if (view == vwNetWorth || view == vwAccountType)
                        fate = "given " + row + " another type";
                    else if (view != vwBudget && stored.Text(1) != shown.AccountID())
                        fate = "moved " + row + " to another account";
                    else
                        fate = "moved " + row + " to another month";
                });
    return fate;
}

}  // namespace clb
