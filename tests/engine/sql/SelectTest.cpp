// SELECT: order, joins and groups.
#include "tests/engine/EngineFixture.h"

namespace clb {
namespace {

using Lines = std::vector<std::string>;

class SelectTest : public EngineTest {
protected:
    void AddAccounts(const std::vector<std::string>& descriptions)
    {
        for (const std::string& description : descriptions)
            Run("INSERT INTO Account (Description) VALUES ('" + description + "')");
    }
    void AddTrans(const std::string& account, const std::string& category,
                  const std::string& amount)
    {
        Run("INSERT INTO Trans (AccountID, Category, Amount) VALUES ('" + account + "', '" +
            category + "', " + amount + ")");
    }
};

TEST_F(SelectTest, TextsAreOrderedAlphabeticallyIgnoringCase)
{
    AddAccounts({"b", "A", "a", "é", "B", "f", "Z", "a b"});

    EXPECT_EQ(Rows("SELECT Description FROM Account ORDER BY Description"),
              (Lines{"A", "a", "a b", "B", "b", "é", "f", "Z"}));
    EXPECT_EQ(Rows("SELECT Description FROM Account ORDER BY Description DESC"),
              (Lines{"Z", "f", "é", "b", "B", "a b", "a", "A"}));
}

TEST_F(SelectTest, TiesOfOneKeyAreDecidedByItsExactTextBeforeTheNextKey)
{
    RunAll({"INSERT INTO Budget (CategoryGroup, Category) VALUES ('living', 'a')",
            "INSERT INTO Budget (CategoryGroup, Category) VALUES ('Living', 'b')",
            "INSERT INTO Budget (CategoryGroup, Category) VALUES ('living', 'B')",
            "INSERT INTO Budget (CategoryGroup, Category) VALUES ('Living', 'A')"});

    EXPECT_EQ(Rows("SELECT CategoryGroup, Category FROM Budget ORDER BY CategoryGroup, Category"),
              (Lines{"Living|A", "Living|b", "living|a", "living|B"}));
}

TEST_F(SelectTest, EqualRowsAndUnorderedOnesComeAsTheyWereAdded)
{
    for (const char* category : {"c", "a", "b", "a"})
        AddTrans("1", category, "5");

    EXPECT_EQ(Rows("SELECT Category FROM Trans"), (Lines{"c", "a", "b", "a"}));
    EXPECT_EQ(Rows("SELECT Category FROM Trans WHERE AccountID = '1'"),
              (Lines{"c", "a", "b", "a"}));
    EXPECT_EQ(Rows("SELECT Category FROM Trans ORDER BY Amount"), (Lines{"c", "a", "b", "a"}));
}

TEST_F(SelectTest, NullsComeFirstAndYesBeforeNo)
{
    RunAll({"CREATE TABLE T (n LONG, y YESNO)", "INSERT INTO T VALUES (2, NO)",
            "INSERT INTO T VALUES (NULL, YES)", "INSERT INTO T VALUES (1, YES)"});

    EXPECT_EQ(Rows("SELECT n FROM T ORDER BY n"), (Lines{"-", "1", "2"}));
    EXPECT_EQ(Rows("SELECT n FROM T ORDER BY y, n"), (Lines{"-", "1", "2"}));
    EXPECT_EQ(Rows("SELECT n FROM T ORDER BY y DESC, n DESC"), (Lines{"2", "1", "-"}));
}

TEST_F(SelectTest, AnOrderMayNameAnAliasAnExpressionOrAPosition)
{
    for (const char* amount : {"3", "-5", "1"})
        AddTrans("1", "x", amount);

    EXPECT_EQ(Rows("SELECT -Amount AS Debit FROM Trans ORDER BY Debit"), (Lines{"-3", "-1", "5"}));
    EXPECT_EQ(Rows("SELECT Amount FROM Trans ORDER BY Abs(Amount) DESC"), (Lines{"-5", "3", "1"}));
    // A column of the table takes precedence over an alias of another field.
    EXPECT_EQ(Rows("SELECT -Amount AS Amount FROM Trans ORDER BY Amount"),
              (Lines{"5", "-1", "-3"}));
    EXPECT_EQ(Rows("SELECT Category, Amount FROM Trans ORDER BY 2"), (Lines{"x|-5", "x|1", "x|3"}));
}

TEST_F(SelectTest, ATruthValueIsNotAPosition)
{
    AddTrans("1", "b", "1");
    AddTrans("1", "a", "2");

    EXPECT_EQ(Rows("SELECT Category FROM Trans ORDER BY TRUE"), (Lines{"b", "a"}));
    EXPECT_EQ(Rows("SELECT SUM(Amount) FROM Trans GROUP BY TRUE"), Lines{"3"});
}

TEST_F(SelectTest, AnInnerJoinGivesTheRowsOfTheLastTableAsTheyWereAdded)
{
    RunAll({"INSERT INTO Account (AccountID, Description) VALUES ('2', 'two')",
            "INSERT INTO Account (AccountID, Description) VALUES ('1', 'one')"});
    AddTrans("1", "a", "1");
    AddTrans("2", "b", "2");
    AddTrans("1", "c", "3");
    AddTrans("9", "d", "4");

    EXPECT_EQ(Rows("SELECT Account.Description, Category FROM Account INNER JOIN Trans ON "
                   "Account.AccountID = Trans.AccountID"),
              (Lines{"one|a", "two|b", "one|c"}));
    EXPECT_EQ(
        Rows("SELECT a.Description, t.Category FROM Account AS a, Trans t WHERE a.AccountID = "
             "t.AccountID AND t.Amount > 1"),
        (Lines{"two|b", "one|c"}));
}

TEST_F(SelectTest, ALeftJoinKeepsRowsWithoutAPartner)
{
    RunAll({"INSERT INTO Account (AccountID) VALUES ('1')",
            "INSERT INTO Account (AccountID) VALUES ('2')",
            "INSERT INTO Budget (Category, Amount) VALUES ('a', 10)"});
    AddTrans("1", "a", "1");
    AddTrans("1", "b", "2");

    EXPECT_EQ(
        Rows("SELECT Account.AccountID, Trans.Category FROM Account LEFT JOIN Trans ON "
             "Account.AccountID = Trans.AccountID ORDER BY Account.AccountID, Trans.Category"),
        (Lines{"1|a", "1|b", "2|-"}));
    EXPECT_EQ(
        Rows("SELECT Account.AccountID, Trans.Category, Budget.Amount FROM (Account LEFT JOIN "
             "Trans ON Account.AccountID = Trans.AccountID) LEFT JOIN Budget ON "
             "Trans.Category = Budget.Category ORDER BY 1, 2"),
        (Lines{"1|a|10", "1|b|-", "2|-|-"}));
    EXPECT_EQ(Rows("SELECT Account.AccountID, Trans.Category FROM Account LEFT JOIN (Trans INNER "
                   "JOIN Budget ON Trans.Category = Budget.Category) ON Account.AccountID = "
                   "Trans.AccountID"),
              (Lines{"1|a", "2|-"}));
}

TEST_F(SelectTest, FieldsThatTwoTablesShareKeepTheirTablesName)
{
    EXPECT_EQ(FieldsOf("SELECT Trans.Description, Account.Description, Trans.Year FROM Account "
                       "INNER JOIN Trans ON Account.AccountID = Trans.AccountID"),
              "Trans.Description:text,Account.Description:text,Year:long");
    EXPECT_EQ(FieldsOf("SELECT Loan.* FROM Loan INNER JOIN Account ON Loan.AccountID = "
                       "Account.AccountID"),
              "Description:text,OriginalAmount:money,PaidAmount:money,InterestRate:single,"
              "AccountID:text,Sequence:long");
}

TEST_F(SelectTest, GroupsHaveTheirSums)
{
    AddTrans("1", "a", "1.5");
    AddTrans("1", "b", "2");
    AddTrans("2", "a", "4");

    EXPECT_EQ(Rows("SELECT Category, SUM(Amount) AS Total, COUNT(*) AS N FROM Trans GROUP BY "
                   "Category ORDER BY SUM(Amount)"),
              (Lines{"b|2|1", "a|5.5|2"}));
    EXPECT_EQ(Rows("SELECT Category FROM Trans GROUP BY Category HAVING COUNT(*) > 1"), Lines{"a"});
    EXPECT_EQ(
        Rows("SELECT AccountID & Category, SUM(Amount) FROM Trans WHERE AccountID = '1' GROUP "
             "BY AccountID, Category ORDER BY Category DESC"),
        (Lines{"1b|2", "1a|1.5"}));
    EXPECT_EQ(Rows("SELECT DISTINCT Category FROM Trans ORDER BY Category DESC"),
              (Lines{"b", "a"}));
}

TEST_F(SelectTest, AColumnOutsideTheGroupsIsRefused)
{
    for (const char* sql :
         {"SELECT Year, SUM(Amount) FROM Trans", "SELECT Year, SUM(Amount) + 1 FROM Trans",
          "SELECT Year, Nz(SUM(Amount)) FROM Trans",
          "SELECT Category, Year FROM Trans GROUP BY Category",
          "SELECT SUM(Amount) FROM Trans ORDER BY Year"}) {
        SCOPED_TRACE(sql);
        EXPECT_STREQ(ErrorOf([&] { Run(sql); }).what(),
                     "The expression 'Year' is neither part of an aggregate function nor of GROUP "
                     "BY.");
    }
    EXPECT_STREQ(ErrorOf([&] { Run("SELECT Year FROM Trans WHERE SUM(Amount) > 1"); }).what(),
                 "Cannot have an aggregate function here: 'SUM'.");
    EXPECT_STREQ(ErrorOf([&] { Run("SELECT SUM(MAX(Amount)) FROM Trans"); }).what(),
                 "Cannot have an aggregate function here: 'MAX'.");
}

}  // namespace
}  // namespace clb
