#include "app/BalanceWatch.h"

#include "data/Balances.h"
#include "data/NoticedBalances.h"
#include "data/clsDatabase.h"
#include "engine/storage/EngineError.h"

namespace clb {
namespace {

/// Returns nothing if a cell is not an amount. The sum that follows the change reports that error.
std::vector<OddBalance> IfOdd(Connection& connection, const std::string& accountID)
{
    try {
        if (const auto odd = OddBalanceOf(connection, accountID))
            return {*odd};
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::TypeMismatch)
            throw;
    }
    return {};
}

}  // namespace

bool BalanceWatch::Check(clsDatabase& database, const std::string& accountID, const Date& now)
{
    const std::uint64_t writes = database.WritesElsewhere();
    if (looked_ && account_ == accountID && writes_ == writes)
        return false;
    const std::vector<OddBalance> odd = IfOdd(database.Database(), accountID);
    noticed_balances::Note(database.Database(), odd, "window", now);
    account_ = accountID;
    writes_ = writes;
    looked_ = true;
    return !odd.empty();
}

void NoteOddBalances(const std::string& folder, const Date& now)
{
    Connection connection;
    connection.Open("Data Source=" + folder + "/db/clb.mdb");
    // If another program saves a row between two reads, a correct balance may seem not to fit.
    const std::vector<OddBalance> suspects = OddBalances(connection);
    if (suspects.empty())
        return;
    connection.Lock();
    for (const OddBalance& suspect : suspects)
        noticed_balances::Note(connection, IfOdd(connection, suspect.accountID), "start", now);
    connection.Settle();
}

}  // namespace clb
