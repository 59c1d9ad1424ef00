// The figures of the budget view that are calculated while it is drawn.

#include <gtest/gtest.h>

#include <functional>

#include "data/ViewColumns.h"
#include "engine/storage/Database.h"
#include "engine/storage/EngineError.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

std::string ErrorOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const EngineError& error) {
        return error.what();
    }
    return "no error";
}

// Symptom: "A cell that is calculated with holds something other than the number its column is
// for."
TEST(BudgetFiguresTest, ACellThatIsNotAnAmountIsNamed)
{
    Books books;
    books.AddAccount("B-1", "Bank", "Checking");
    books.Execute(
        "INSERT INTO Trans (Sequence, AccountID, Amount, Category, Year, Period) VALUES (5, 'B-1', "
        "100, 'Food', 2006, 3)");
    books.Execute(
        "INSERT INTO Budget (Category, CategoryGroup, Amount, Year, Period) VALUES ('Food', "
        "'Living', 50, 2006, 3)");
    books.window.View().View(vwBudget);
    books.window.Settle();
    {
        Database another;
        another.OpenExisting(books.folder.Path("db/clb.mdb"));
        another.Run("UPDATE Trans SET Amount = '12,50 EUR'");
    }
    CVGrid& grid = books.window.Grid;
    const std::string message =
        "Trans.Amount of number 5, piece 0 (account 'B-1') holds the text '12,50 EUR', which is "
        "not an amount.";

    int looked = 0;
    for (std::size_t row = 1; row <= grid.Rows().Count(); ++row) {
        if (grid.Rows().Kind(row) == GridRowKind::Data) {
            EXPECT_EQ(ErrorOf([&] { grid.CellValue(row, Budget::Actual); }), message);
            ++looked;
        } else if (grid.Rows().Kind(row) == GridRowKind::GroupFooter) {
            EXPECT_EQ(ErrorOf([&] { grid.FooterText(row); }), message);
            ++looked;
        }
    }
    EXPECT_EQ(looked, 2);
}

}  // namespace
}  // namespace clb
