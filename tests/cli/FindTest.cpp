// clb find: what it prints, and its exit codes.
#include <gmock/gmock.h>

#include "CommandFixture.h"

namespace clb {
namespace {

using ::testing::HasSubstr;

class FindTest : public CommandFixture {
protected:
    FindTest()
    {
        EXPECT_EQ(Run("new " + Books()), 0);
        Sql("INSERT INTO Account (AccountID, Description, Type) VALUES ('C1', 'Checking', 'Bank')");
        Add("1, 0, 'C1', #2026-03-05#, 'Corner Grocery', -1012.5, 'Food', 'weekly', '77'");
        Add("2, 1, 'C1', #2026-03-07#, 'Station Café', -4, 'Food', '', NULL");
        Add("3, 0, 'gone', NULL, 'Old Grocery', NULL, '', NULL, ''");
    }
    void Add(const std::string& values)
    {
        Sql("INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Description, Amount, "
            "Category, PayeeName, CheckID, Year, Period) VALUES (" +
            values + ", 2026, 3)");
    }
    std::string Find(const std::string& words)
    {
        EXPECT_EQ(Run("find" + Home() + " " + words), 0) << Err();
        return Out();
    }
};

TEST_F(FindTest, TheTableHasTheNewestFirstAndCountAndSum)
{
    EXPECT_EQ(Find("food"),
              "Date        Account   Description        Amount  Check #  Category  Notes\n"
              "----------  --------  --------------  ---------  -------  --------  ------\n"
              "2026-03-07  Checking  Station Café        -4.00           Food\n"
              "2026-03-05  Checking  Corner Grocery  -1,012.50  77       Food      weekly\n"
              "2 transactions, sum -1,016.50\n");
    EXPECT_EQ(Find("nothing"), "0 transactions, sum 0.00\n");
    EXPECT_THAT(Find("cafe"), HasSubstr("\n1 transaction, sum -4.00\n"));
    EXPECT_THAT(Find("food --limit 1"),
                HasSubstr("\n2 transactions, sum -1,016.50; the newest 1 are listed\n"));
}

TEST_F(FindTest, TheJsonHasTheHitsAndCountAndSumOfAll)
{
    EXPECT_EQ(Find("--json --limit 1 food"),
              R"({"hits":[{"sequence":2,"subSequence":1,"account":"Checking","accountID":"C1",)"
              R"("date":"2026-03-07","description":"Station Café","amount":"-4",)"
              R"("category":"Food","notes":"","checkID":null,"year":2026,"period":3}],)"
              R"("count":2,"sum":"-1016.5"})"
              "\n");
    EXPECT_EQ(Find("--json old"),
              R"({"hits":[{"sequence":3,"subSequence":0,"account":null,"accountID":"gone",)"
              R"("date":null,"description":"Old Grocery","amount":null,"category":"",)"
              R"("notes":null,"checkID":"","year":2026,"period":3}],"count":1,"sum":"0"})"
              "\n");
    EXPECT_EQ(Find("--json nothing"), "{\"hits\":[],\"count\":0,\"sum\":\"0\"}\n");
}

TEST_F(FindTest, WordsAreJoinedAndThoseWithADashComeLast)
{
    EXPECT_THAT(Find("\"payee:corner grocery\""), HasSubstr("\n1 transaction, "));
    EXPECT_THAT(Find("'\"corner' 'grocery\"' '>1,000'"), HasSubstr("\n1 transaction, "));
    EXPECT_THAT(Find("grocery -- -old"), HasSubstr("\n1 transaction, sum -1,012.50\n"));
    EXPECT_THAT(Find("-- -old -cafe"), HasSubstr("\n1 transaction, sum -1,012.50\n"));
    EXPECT_THAT(Find("-- -4"), HasSubstr("\n1 transaction, sum -4.00\n"));
}

TEST_F(FindTest, NothingToFindIsWrongUsage)
{
    EXPECT_EQ(Run("find" + Home()), 2);
    EXPECT_EQ(Run("find" + Home() + " ''"), 2);
    EXPECT_EQ(Err(), "WORDS: there is nothing to find in them\n");
    EXPECT_EQ(Run("find" + Home() + " account:"), 2);
    EXPECT_EQ(Run("find" + Home() + " x --limit 0"), 2);
}

/// Another program may have stored them. The amounts of the others are still of use.
TEST_F(FindTest, AnAmountThatIsNoneLeavesTheHitsWithoutASum)
{
    Sql("UPDATE Trans SET Amount = 900000000000000");

    EXPECT_THAT(Find("food"), HasSubstr("2 transactions, which have no sum: "));
    EXPECT_THAT(Find("food --json"), HasSubstr("\"count\":2,\"sum\":null}"));
}

}  // namespace
}  // namespace clb
