#include "app/RowFate.h"

#include "data/StoredView.h"
#include "data/clsDatabase.h"
#include "engine/rows/RawSql.h"
#include "views/clsView.h"

namespace clb {
namespace {

/// What was done to a row that is still stored with its number. `accountID` is the account that it
/// has now.
std::string Moved(std::string_view accountID, const std::string& row, const clsView& view)
{
    if (view.Definition().accounts)
        return "given " + row + " another type";
    if (view.Definition().ofAccount && accountID != view.AccountID())
        return "moved " + row + " to another account";
    return "moved " + row + " to another month";
}

}  // namespace

std::string FateOf(const GridSpot& spot, const std::string& row, clsDatabase& database,
                   const clsView& view)
{
    std::string fate = "deleted " + row;
    const StoredView* const stored = StoredViewOf(view.View());
    if (!stored)
        return fate;
    const char* const account = view.Definition().ofAccount ? "AccountID" : "NULL";
    RawSql(database.Database())
        .Select(std::string("SELECT Sequence, ") + account + " FROM " + stored->table +
                    " WHERE rowid = " + std::to_string(spot.identity),
                [&](const RawSql::Row& now) {
                    fate = now.Text(0) == ToText(spot.key)
                               ? Moved(now.Text(1), row, view)
                               : "deleted " + row + " or given it another number";
                });
    return fate;
}

}  // namespace clb
