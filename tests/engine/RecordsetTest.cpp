#include "EngineFixture.h"

namespace clb
{
namespace
{

using Lines = std::vector<std::string>;

class RecordsetTest : public EngineTest
{
protected:
    void AddBudget(const std::string& category, const std::string& amount)
    {
        Run("INSERT INTO Budget (Year, Period, Category, Amount) VALUES (2006, 1, '" + category +
            "', " + amount + ")");
    }
};

TEST_F(RecordsetTest, AnAddedRowIsSavedWithItsNumberAndBecomesCurrent)
{
    Recordset accounts =
        Opened("SELECT AccountID, Description, Sequence, CurrentBalance FROM Account");

    accounts.AddNew();
    accounts.Set("AccountID", std::string("100"));
    accounts.Update();

    EXPECT_EQ(accounts.RecordCount(), 1);
    EXPECT_EQ(accounts.Get("Sequence"), Value(std::int32_t{1}));
    EXPECT_EQ(accounts.Get("CurrentBalance"), Value(Money()));
    EXPECT_EQ(Rows("SELECT AccountID, Sequence FROM Account"), Lines{"100|1"});
}

TEST_F(RecordsetTest, AChangedRowIsSavedByMovingOn)
{
    AddBudget("Food", "1");
    AddBudget("Rent", "2");
    Recordset budget = Opened("SELECT Category, Amount FROM Budget");

    budget.Set("Amount", std::string("12.5"));
    budget.MoveNext();
    budget.Set("amount", Money::FromUnits(7));
    budget.Update();

    EXPECT_EQ(Rows("SELECT Category, Amount FROM Budget"), (Lines{"Food|12.5", "Rent|7"}));
}

TEST_F(RecordsetTest, ADeletedRowKeepsItsPlaceAndTheNextRowFollowsIt)
{
    for (const char* category : {"a", "b", "c"})
        AddBudget(category, "1");
    Recordset budget = Opened("SELECT Category FROM Budget");
    budget.MoveNext();

    budget.Delete();

    EXPECT_EQ(budget.RecordCount(), 2);
    EXPECT_EQ(ErrorOf([&] { budget.Get(0); }).Number(), engine_errors::NoCurrentRow);
    budget.MoveNext();
    EXPECT_EQ(budget.Get(0), Value(std::string("c")));
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), (Lines{"a", "c"}));
}

TEST_F(RecordsetTest, FindSeesRowsAddedThroughTheSet)
{
    AddBudget("Food", "1");
    Recordset budget = Opened("SELECT Category FROM Budget WHERE Category = 'Food'");
    budget.Find("Category = 'It''s'");
    EXPECT_TRUE(budget.AtEnd());

    budget.AddNew();
    budget.Set(0, std::string("It's"));
    budget.Update();
    budget.MoveFirst();
    budget.Find("Category = 'It''s'");

    EXPECT_FALSE(budget.AtEnd());
    EXPECT_EQ(budget.Position(), 1U);
}

}  // namespace
}  // namespace clb
