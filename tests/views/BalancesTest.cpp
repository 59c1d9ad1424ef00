// Balances that are stored anew for all accounts.

#include "views/Balances.h"

#include <gtest/gtest.h>

#include "engine/EngineError.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

TEST(BalancesTest, AnAccountThatAddsUpToTooMuchKeepsNoOtherFromItsBalance)
{
    Books books;
    books.AddAccount("1", "Bank", "Too much");
    books.AddAccount("2", "Bank", "Plain");
    for (const char* account : {"1", "1"})
        books.Execute(std::string("INSERT INTO Trans (AccountID, Amount) VALUES ('") + account +
                      "', 900000000000000)");
    books.Execute("INSERT INTO Trans (AccountID, Amount) VALUES ('2', 5)");

    EXPECT_THROW(UpdateBalances(books.window.Data()), EngineError);

    EXPECT_EQ(books.One("SELECT CurrentBalance FROM Account WHERE AccountID = '2'"), "5");
}

}  // namespace
}  // namespace clb
