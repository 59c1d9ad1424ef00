// Recomputing the balances of all accounts.

#include "data/Balances.h"
#include "engine/storage/EngineError.h"
#include "tests/data/StoreFixture.h"

namespace clb {
namespace {

class BalancesTest : public StoreTest {};

TEST_F(BalancesTest, AnAccountWithTooLargeASumDoesNotPreventOtherBalances)
{
    AddAccount("1", "Bank");
    AddAccount("2", "Bank");
    AddTransaction(1, "1", "900000000000000", 2006, 3);
    AddTransaction(2, "1", "900000000000000", 2006, 3);
    AddTransaction(3, "2", "5", 2006, 3);

    EXPECT_THROW(UpdateBalances(Store()), EngineError);

    EXPECT_EQ(Rows("SELECT CurrentBalance FROM Account WHERE AccountID = '2'").front(), "5");
}

}  // namespace
}  // namespace clb
