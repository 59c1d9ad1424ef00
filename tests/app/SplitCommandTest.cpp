// The command that splits the register's current row.

#include <gtest/gtest.h>

#include "tests/support/Books.h"
#include "views/NodeTag.h"

namespace clb {
namespace {

// The dialog shows the stored amount, not the one in edit. The two amounts of the dialog are
// stored.
TEST(SplitCommandTest, AnAmountInEditIsSavedAndReplacedByTheSplit)
{
    Books books;
    books.AddAccount("B-1", "Bank", "Checking");
    books.Execute(
        "INSERT INTO Trans (Sequence, AccountID, PostDate, Description, Amount, Category, Year, "
        "Period) VALUES (1, 'B-1', #2006-03-05#, 'Shop', 100, '(none)', 2006, 3)");
    books.window.View().BuildTree();
    books.window.PressNode(
        books.window.View().FindTreeNodeByTag(node_tag::OfAccount(vwAccount, "B-1")));
    GridComponent& grid = books.window.Grid;
    books.window.window.Focus(grid);
    grid.MoveTo(1, 3);
    grid.BeginEdit(0);
    grid.EditText("80");
    books.modal.steps.push_back([](Form& form) {
        dynamic_cast<TextBox&>(*form.Find("txtNew")).Text("30");
        form.DefaultButton()->Press();
    });

    books.window.menus.Find("mnuE_Split")->Press();

    EXPECT_EQ(books.Rows("SELECT Amount FROM Trans ORDER BY SubSequence"),
              (std::vector<std::string>{"70", "30"}));
}

// Symptom: "Overflow".
TEST(SplitCommandTest, APieceWithTheLargestNumberCannotBeSplit)
{
    Books books;
    books.AddAccount("B-1", "Bank", "Checking");
    books.Execute(
        "INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Description, Amount, "
        "Category, Year, Period) VALUES (7, 2147483647, 'B-1', #2006-03-05#, 'Shop', 100, "
        "'(none)', 2006, 3)");
    books.window.View().BuildTree();
    books.window.PressNode(
        books.window.View().FindTreeNodeByTag(node_tag::OfAccount(vwAccount, "B-1")));
    books.window.window.Focus(books.window.Grid);
    books.window.Grid.MoveTo(1, 1);
    books.modal.steps.push_back([](Form& form) { form.DefaultButton()->Press(); });

    std::string message;
    try {
        books.window.menus.Find("mnuE_Split")->Press();
    } catch (const RuntimeError& error) {
        message = error.what();
    }

    EXPECT_EQ(message,
              "No number is left for a new piece of transaction 7: one of its pieces has the "
              "largest already.");
    EXPECT_EQ(books.Rows("SELECT Amount FROM Trans"), std::vector<std::string>{"100"});
}

}  // namespace
}  // namespace clb
