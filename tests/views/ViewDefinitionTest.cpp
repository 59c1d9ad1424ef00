// Every view's definition fits the rows that the data store gives it.

#include <gtest/gtest.h>

#include "tests/support/Books.h"
#include "views/ViewDefinition.h"

namespace clb {
namespace {

class ViewDefinitionTest : public testing::TestWithParam<std::int32_t> {
protected:
    ViewDefinitionTest()
    {
        books_.AddAccount("10", "Bank", "Checking");
        books_.window.View().AccountID("10");
        books_.window.View().AccountType("Bank");
    }

    Books books_;
};

TEST_P(ViewDefinitionTest, NamesEveryColumnOnceInTheOrderOfItsNumbers)
{
    books_.window.View().View(GetParam());

    std::int32_t column = 0;
    for (const ViewColumn& defined : books_.window.View().Definition().columns)
        EXPECT_EQ(defined.column, ++column);
    EXPECT_EQ(column, books_.window.Grid.Columns().Count());
}

TEST_P(ViewDefinitionTest, ItsShownColumnsTakeTheGridsWholeWidthAtMost)
{
    double parts = 0;
    for (const ViewColumn& column : DefinitionOf(GetParam()).columns)
        if (!column.hidden)
            parts += column.part;

    EXPECT_GT(parts, 0.5);
    EXPECT_LE(parts, 1.0);
}

INSTANTIATE_TEST_SUITE_P(Views, ViewDefinitionTest,
                         testing::Values(vwNetWorth, vwBudget, vwAccountType, vwAccount,
                                         vwInvestment, vwLoan));

TEST(NoViewTest, ANumberThatIsNotAViewHasNothing)
{
    EXPECT_TRUE(DefinitionOf(0).columns.empty());
    EXPECT_TRUE(DefinitionOf(7).columns.empty());
}

}  // namespace
}  // namespace clb
