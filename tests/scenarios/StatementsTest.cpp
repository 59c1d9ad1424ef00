// The statements that views, rows and figures send to the data store, word for word.

#include <gmock/gmock.h>

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;

class StatementsTest : public Scenario {
protected:
    StatementsTest()
    {
        AddAccount("O'1", "Bank", "Checking");
        AddAccount("I'1", "Investment", "Broker");
        AddAccount("L'1", "Loan", "House");
        AddBudget("2006-3", "Kids' toys", "5", "Kids'");
        ShowAll();
    }

    std::vector<std::string> Sent()
    {
        std::vector<std::string> texts;
        for (const Json& event : EventsOf("execute"))
            texts.push_back(event["text"]);
        return texts;
    }
    /// The statements without those for the budget's figures, which a window reads whenever it
    /// paints.
    std::vector<std::string> SentForRows()
    {
        std::vector<std::string> texts;
        for (const std::string& text : Sent())
            if (text.find("TotActual") == std::string::npos &&
                text.find("CategoryGroup = ") == std::string::npos)
                texts.push_back(text);
        return texts;
    }
    std::vector<std::string> SentOnClick(const std::string& node)
    {
        Trace();
        Click(node);
        return SentForRows();
    }
};

TEST_F(StatementsTest, ThePlainViewsReadRowsAndTotals)
{
    EXPECT_THAT(SentOnClick("Net Worth"),
                ElementsAre("SELECT Description, Type, AccountID, OpeningBalance, (OpeningBalance "
                            "+ CurrentBalance) as TotBalance, Sequence FROM Account ORDER BY Type, "
                            "Description",
                            "SELECT SUM( OpeningBalance ) AS TotOpn, SUM( CurrentBalance ) AS "
                            "TotCur FROM Account"));
    EXPECT_THAT(SentOnClick("Bank"),
                ElementsAre("SELECT Description, AccountID, OpeningBalance, (OpeningBalance + "
                            "CurrentBalance) as TotBalance, Sequence, Type FROM Account WHERE Type "
                            "= 'Bank' ORDER BY Description",
                            "SELECT SUM( OpeningBalance ) AS TotOpn, SUM( CurrentBalance ) AS "
                            "TotCur FROM Account WHERE Type = 'Bank'"));
    EXPECT_THAT(
        SentOnClick("Broker"),
        ElementsAre("SELECT StockSymbol, StockName, PurchaseDate, Quantity, PurchasePrice, "
                    "LastPrice, Total, AccountID, Sequence FROM Investment WHERE AccountID = "
                    "'I''1' ORDER BY PurchaseDate",
                    "SELECT sum( Total ) AS TotAmount FROM Investment WHERE AccountID = 'I''1'"));
    EXPECT_THAT(SentOnClick("House"),
                ElementsAre("SELECT Description, OriginalAmount, PaidAmount, InterestRate, "
                            "AccountID, Sequence FROM Loan WHERE AccountID = 'L''1' ORDER BY "
                            "Description",
                            "SELECT SUM( OriginalAmount - PaidAmount ) AS TotAmount FROM Loan"));
}

TEST_F(StatementsTest, ARegisterReadsRowsBalanceAndCategories)
{
    EXPECT_THAT(SentOnClick("Checking"),
                ElementsAre("SELECT PostDate, Description, Amount, CheckID, Category, PayeeName AS "
                            "Notes, AccountID, Year, Period, FITID, Sequence, SubSequence FROM "
                            "Trans WHERE AccountID = 'O''1' AND Period = 3 AND Year = 2006 ORDER "
                            "BY PostDate DESC, Sequence DESC, SubSequence",
                            "SELECT OpeningBalance FROM Account WHERE AccountID = 'O''1'",
                            "SELECT SUM( Amount ) AS TotAmount FROM Trans WHERE AccountID = 'O''1' "
                            "AND ( Year < 2006 OR ( Year = 2006 AND Period <= 3) )",
                            "SELECT Category FROM Budget WHERE Budget.Year = 2006 AND Period = 3"));
}

TEST_F(StatementsTest, TheBudgetReadsRowsAndTotals)
{
    EXPECT_THAT(
        SentOnClick("Budget"),
        ElementsAre("SELECT Budget.Category, Budget.Amount, Budget.Sequence, Budget.Year, "
                    "Budget.Period, Budget.CategoryGroup FROM Budget WHERE Budget.Year = 2006 AND "
                    "Budget.Period = 3 ORDER BY Budget.CategoryGroup, Budget.Category",
                    "SELECT SUM( Amount ) AS TotAmount FROM Budget WHERE Year = 2006 AND Period = "
                    "3",
                    "SELECT SUM( Amount ) AS TotAmount FROM Account INNER JOIN Trans ON "
                    "Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE AND "
                    "Year = 2006 AND Period = 3"));
}

TEST_F(StatementsTest, ABudgetLinesFiguresAreThreeStatementsAndItsTipOne)
{
    Click("Budget");
    Trace();

    Grid();
    EXPECT_THAT(
        Sent(),
        IsSupersetOf(
            {"SELECT SUM( Amount ) AS TotActual FROM Account INNER JOIN Trans ON "
             "Account.AccountID = Trans.AccountID WHERE Account.BudgetInclude = TRUE AND "
             "Year = 2006 AND Period = 3 AND Category = 'Kids'' toys'",
             "SELECT SUM( Amount ) AS TotAmount FROM Budget WHERE Year = 2006 AND Period = "
             "3 AND CategoryGroup = 'Kids'''",
             "SELECT SUM( Trans.Amount ) AS TotAmount FROM Account INNER JOIN (Budget INNER "
             "JOIN Trans ON Budget.Category = Trans.Category AND Budget.Year = Trans.Year "
             "AND Budget.Period = Trans.Period) ON Account.AccountID = Trans.AccountID "
             "WHERE Account.BudgetInclude = TRUE AND Trans.Year = 2006 AND Trans.Period = 3 "
             "AND CategoryGroup = 'Kids'''"}));

    Tip(2, 1);
    EXPECT_THAT(Sent(),
                Contains("SELECT PostDate, Trans.Description, Amount FROM Account INNER JOIN "
                         "Trans ON Account.AccountID = Trans.AccountID WHERE "
                         "Account.BudgetInclude = TRUE AND Year = 2006 AND Period = 3 AND "
                         "Trans.Category = 'Kids'' toys'"));
}

TEST_F(StatementsTest, AnAccountsNumberIsComparedWithAllOthers)
{
    Edit(1, 1, "Current");
    Trace();
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().at(0),
              "SELECT COUNT( 1 ) AS [Count] FROM Account WHERE AccountID = 'O''1' "
              "AND Sequence <> 1");

    Edit("new", 1, "Wallet");
    Edit("new", 2, "Cash");
    Edit("new", 3, "C'1");
    Trace();
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().at(0), "SELECT COUNT( 1 ) AS [Count] FROM Account WHERE AccountID = 'C''1'");
}

TEST_F(StatementsTest, ASavedTransactionIsNumberedBudgetedAndSummedUp)
{
    Click("Checking");
    Edit("new", 5, "Kids' toys");
    Trace();

    EXPECT_TRUE(Save());

    const std::vector<std::string> sent = Sent();
    ASSERT_GE(sent.size(), 3U);
    EXPECT_EQ(sent[0], "SELECT MAX( Sequence ) AS NextSequence FROM Trans");
    EXPECT_EQ(sent[1],
              "SELECT Year, Period, Category, CategoryGroup, Amount FROM Budget WHERE "
              "Budget.Year = 2006 AND Budget.Period = 3 AND Budget.Category = 'Kids'' "
              "toys'");
    EXPECT_EQ(sent[2], "SELECT SUM( Amount ) AS TotAmount FROM Trans WHERE AccountID = 'O''1'");
}

TEST_F(StatementsTest, ADeletedBudgetLineFreesItsTransactions)
{
    AddTransaction("O'1", "2006-3", "-1", "Kids' toys");
    Click("Budget");
    Move(2, 1);
    AnswerBox("Yes");
    Trace();

    Menu("mnuE_Delete");

    const std::string condition = "Trans.Category = 'Kids'' toys' AND Year = 2006 AND Period = 3";
    const std::vector<std::string> sent = SentForRows();
    ASSERT_GE(sent.size(), 3U);
    EXPECT_EQ(sent[0], "SELECT COUNT( 1 ) AS [Count] FROM Trans WHERE " + condition);
    EXPECT_EQ(sent[1],
              "SELECT Year, Period, Category, CategoryGroup, Amount FROM Budget WHERE "
              "Budget.Year = 2006 AND Budget.Period = 3 AND Budget.Category = '(none)'");
    EXPECT_EQ(sent[2], "UPDATE Trans SET Category = '(none)' WHERE " + condition);
}

}  // namespace
}  // namespace clb
