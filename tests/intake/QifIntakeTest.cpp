// QIF files on their way into the book.

#include <gtest/gtest.h>

#include "tests/intake/ImportedBooks.h"

namespace clb {
namespace {

using Rows = std::vector<std::string>;

class QifIntakeTest : public testing::Test {
protected:
    QifIntakeTest() { books_.AddAccount("Checking", "Bank", "Checking"); }

    ImportedBooks books_;
};

/// Lists of categories and classes are the other program's; only what rows use gets a budget line.
TEST_F(QifIntakeTest, ListsAndOptionsLeaveNothingButTheCategoriesOfRows)
{
    EXPECT_EQ(books_.Added("!Option:AutoSwitch\n!Account\nNChecking\nTBank\n^\n!Clear:AutoSwitch\n"
                           "!Type:Cat\nNFood\nDGroceries\nE\nB100.00\n^\nNLiving:Rent\nE\n^\n"
                           "!Type:Class\nNHoliday\nDAway\n^\n!Option:MDY\n"
                           "!Option:AutoSwitch\n!Account\nNChecking\nTBank\n^\n!Type:Bank\n"
                           "D1/15/2024\nT-5.00\nPShop\nLFood/Holiday\n^\n"
                           "D1/16/2024\nT-6.00\nPInn\n^\n"),
              2);

    EXPECT_EQ(books_.Rows("SELECT Description, Category FROM Trans ORDER BY Sequence"),
              (Rows{"Shop|Food/Holiday", "Inn|(none)"}));
    EXPECT_EQ(books_.Rows("SELECT Category, Year, Period, Amount FROM Budget ORDER BY Category"),
              (Rows{"(none)|2024|1|0", "Food/Holiday|2024|1|0"}));
}

/// The balance is right with it, and it is no spending.
TEST_F(QifIntakeTest, AnOpeningBalanceIsARowWithoutACategory)
{
    EXPECT_EQ(books_.Added("!Account\nNChecking\n^\n!Type:Bank\nD1/15/2024\nT250.00\nCX\n"
                           "POpening Balance\nL[Checking]\n^\nD1/16/2024\nT-6.00\nPInn\n"
                           "L[Savings]\n^\n"),
              2);

    EXPECT_EQ(books_.Rows("SELECT Description, Amount, Category FROM Trans ORDER BY Sequence"),
              (Rows{"Opening Balance|250|(none)", "Inn|-6|[Savings]"}));
    EXPECT_EQ(books_.Rows("SELECT Category FROM Budget ORDER BY Category"),
              (Rows{"(none)", "[Savings]"}));
}

// Symptom: "The book did not take all rows of the statement."
TEST_F(QifIntakeTest, RowsGoIntoAnAccountWhateverItsName)
{
    const std::string name = "Max & <Moritz>  'joint'";
    books_.AddAccount(name, "Bank", "Joint");

    EXPECT_EQ(
        books_.Added("!Account\nN" + name + "\n^\n!Type:Bank\nD1/15/2024\nT250.00\nPPay\n^\n"), 1);

    EXPECT_EQ(books_.RowsOf("Max & <Moritz>  ''joint''").size(), 1U);
}

}  // namespace
}  // namespace clb
