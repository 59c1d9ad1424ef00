// The commands that change the books or export them.

#include "tests/cli/CommandFixture.h"

namespace clb {
namespace {

class ChangesTest : public CommandFixture {
protected:
    ChangesTest()
    {
        Run("new " + Books());
        AddAccount("B-1", "Checking", "Bank");
        AddAccount("V-1", "Visa", "Credit Card");
        AddAccount("I-1", "Broker", "Investment");
        AddTransaction(7, "2006, 1", "-100");
        AddTransaction(8, "2006, 3", "-9");
    }

    void AddAccount(const std::string& id, const std::string& description, const std::string& type)
    {
        Sql("INSERT INTO Account (AccountID, Description, Type) VALUES ('" + id + "', '" +
            description + "', '" + type + "')");
    }
    void AddTransaction(int number, const std::string& month, const std::string& amount)
    {
        Sql("INSERT INTO Trans (Sequence, AccountID, PostDate, Description, Amount, Category, "
            "Year, Period, FITID) VALUES (" +
            std::to_string(number) + ", 'B-1', #2006-01-15#, 'Shop', " + amount + ", 'Food', " +
            month + ", 'f" + std::to_string(number) + "')");
    }
    void AddBudget(const std::string& month, const std::string& category)
    {
        Sql("INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES (" + month +
            ", '" + category + "', 'Household', 300)");
    }
    std::string Pieces()
    {
        return Sql(
            "SELECT SubSequence, Amount, Description FROM Trans WHERE Sequence = 7 ORDER BY "
            "SubSequence");
    }
};

TEST_F(ChangesTest, ARegisterPrintsTheNumbersThatSplitAndMoveTake)
{
    EXPECT_EQ(Run("register Checking --month 2006-03 --numbers" + Home()), 0);
    EXPECT_NE(Out().find("Sequence  SubSequence\n"), std::string::npos) << Out();
    EXPECT_NE(Out().find("8            0\n"), std::string::npos) << Out();

    EXPECT_EQ(Run("register Checking --month 2006-03 --numbers --json" + Home()), 0);
    const Json row = Json::parse(Out())["rows"][0];
    EXPECT_EQ(row["Sequence"], 8);
    EXPECT_EQ(row["SubSequence"], 0);

    EXPECT_EQ(Run("register Broker --numbers" + Home()), 0);
    EXPECT_EQ(Out().find("Sequence"), std::string::npos);
}

TEST_F(ChangesTest, ASplitUsesHalfOrTheGivenAmount)
{
    EXPECT_EQ(Run("split 7 -30" + Home()), 0);
    EXPECT_EQ(Out(), "Split transaction 7: -70 stays in piece 0, -30 goes to piece 1\n");

    EXPECT_EQ(Run("split 7 --piece 1 --json" + Home()), 0);
    EXPECT_EQ(Out(), R"json({"number":7,"pieces":[{"piece":1,"Description":"Shop (split #1)",)json"
                     R"json("Amount":"-15"},{"piece":2,"Description":)json"
                     R"json("Shop (split #1) (split #2)","Amount":"-15"}]})json"
                     "\n");
    EXPECT_EQ(Pieces(), R"json([[0,"-70","Shop"],[1,"-15","Shop (split #1)"],)json"
                        R"json([2,"-15","Shop (split #1) (split #2)"]])json");
}

TEST_F(ChangesTest, ASplitThatFailsSaysWhyAndChangesNothing)
{
    EXPECT_EQ(Run("split 7 much" + Home()), 1);
    EXPECT_EQ(Err(), "clb: This is not an amount: much\n");
    EXPECT_EQ(Run("split 9" + Home()), 1);
    EXPECT_EQ(Err(), "clb: There is no transaction 9.\n");
    EXPECT_EQ(Run("split 7 --piece 3" + Home()), 1);
    EXPECT_EQ(Err(), "clb: There is no transaction 7, piece 3.\n");
    Sql("UPDATE Trans SET AccountID = 'I-1' WHERE Sequence = 8");
    EXPECT_EQ(Run("split 8" + Home()), 1);
    EXPECT_EQ(Err(), "clb: The account Broker has no register.\n");
    EXPECT_EQ(Run("split seven" + Home()), 2);

    EXPECT_EQ(Sql("SELECT Sequence, SubSequence, Amount FROM Trans ORDER BY Sequence"),
              R"([[7,0,"-100"],[8,0,"-9"]])");
}

TEST_F(ChangesTest, AMoveBooksToTheMonthBeforeOrAfterAcrossTheYearsEnd)
{
    EXPECT_EQ(Run("move 7 --by -1" + Home()), 0);
    EXPECT_EQ(Out(), "Moved transaction 7 to 2005-12\n");
    EXPECT_EQ(Sql("SELECT Year, Period, PostDate FROM Trans WHERE Sequence = 7"),
              R"([[2005,12,"2006-01-15"]])");
    EXPECT_EQ(Sql("SELECT Year, Period, Category FROM Budget"), R"([[2005,12,"Food"]])");

    EXPECT_EQ(Run("move 7 --by +1 --json" + Home()), 0);
    EXPECT_EQ(Out(), R"({"number":7,"piece":0,"year":2006,"period":1})"
                     "\n");
}

TEST_F(ChangesTest, OnlyTheNamedPieceMoves)
{
    Run("split 7 -30" + Home());

    EXPECT_EQ(Run("move 7 --piece 1 --by 1" + Home()), 0);

    EXPECT_EQ(Sql("SELECT SubSequence, Period FROM Trans WHERE Sequence = 7 ORDER BY SubSequence"),
              "[[0,1],[1,2]]");
}

TEST_F(ChangesTest, AMoveIsByOneMonthAndNeedsATransaction)
{
    EXPECT_EQ(Run("move 7" + Home()), 2);
    EXPECT_EQ(Run("move 7 --by 2" + Home()), 2);
    EXPECT_EQ(Run("move 9 --by 1" + Home()), 1);
    EXPECT_EQ(Err(), "clb: There is no transaction 9.\n");
    EXPECT_EQ(Sql("SELECT Period FROM Trans ORDER BY Sequence"), "[[1],[3]]");
}

TEST_F(ChangesTest, ABudgetIsCopiedFromTheMonthBefore)
{
    AddBudget("2005, 12", "Food");
    AddBudget("2006, 1", "Travel");

    EXPECT_EQ(Run("copy-budget 2006-01" + Home()), 0);
    EXPECT_EQ(Out(), "Copied 1 budget line from 2005-12 to 2006-01\n");
    EXPECT_EQ(Sql("SELECT Category, CategoryGroup, Amount FROM Budget WHERE Year = 2006 ORDER BY "
                  "Category"),
              R"json([["(none)","(none)","0"],["Food","Household","300"]])json");

    EXPECT_EQ(Run("copy-budget 2006-02 --json" + Home()), 0);
    EXPECT_EQ(Out(), R"({"from":"2006-01","to":"2006-02","copied":2})"
                     "\n");
}

TEST_F(ChangesTest, AMonthAfterOneWithoutBudgetKeepsItsLines)
{
    AddBudget("2006, 3", "Food");

    EXPECT_EQ(Run("copy-budget 2006-03" + Home()), 1);

    EXPECT_EQ(Err(), "clb: There is no budget to copy in 2006-02.\n");
    EXPECT_EQ(Sql("SELECT Category FROM Budget"), R"([["Food"]])");
    EXPECT_EQ(Run("copy-budget March" + Home()), 2);
}

TEST_F(ChangesTest, AnExportHoldsAllTransactionsOfTheAccount)
{
    const std::string file = "'" + folder.Path("out.ofx") + "'";

    EXPECT_EQ(Run("export Checking " + file + Home()), 0);

    EXPECT_EQ(Out(), "Exported 2 transactions\n");
    EXPECT_EQ(Err(),
              "Not coming back: The file holds no categories: 2 transactions\n"
              "Not coming back: Booked to another month than that of the date, which comes "
              "back: 1 transaction\n");
    const std::string text = folder.Read("out.ofx");
    EXPECT_TRUE(text.starts_with("OFXHEADER:100\r\n"));
    EXPECT_NE(text.find("<ACCTID>B-1<"), std::string::npos);
    EXPECT_NE(text.find("<FITID>f7<"), std::string::npos);
    EXPECT_NE(text.find("<BALAMT>-109<"), std::string::npos);
}

TEST_F(ChangesTest, AnExistingFileIsReplacedOnlyWhenAskedTo)
{
    const std::string file = " '" + folder.Write("out.ofx", "mine") + "'";

    EXPECT_EQ(Run("export B-1" + file + Home()), 1);
    EXPECT_EQ(Err(), "clb: File already exists: " + folder.Path("out.ofx") + "\n");
    EXPECT_EQ(folder.Read("out.ofx"), "mine");

    EXPECT_EQ(Run("export B-1" + file + " --replace --json" + Home()), 0);
    EXPECT_EQ(Json::parse(Out())["exported"], 2);
    EXPECT_TRUE(folder.Read("out.ofx").starts_with("OFXHEADER:100\r\n"));
}

TEST_F(ChangesTest, WhatCannotBeExportedIsRefusedAndWritesNothing)
{
    const std::string file = " '" + folder.Path("out.ofx") + "'";

    EXPECT_EQ(Run("export Broker" + file + Home()), 1);
    EXPECT_EQ(Err(),
              "clb: Broker is not exported: only accounts of the types Bank, Cash and Credit Card "
              "are.\n");
    EXPECT_EQ(Run("export Nobody" + file + Home()), 1);
    EXPECT_EQ(Err(), "clb: No such account: Nobody\n");
    EXPECT_EQ(Run("export Checking '" + folder.Path("none/out.ofx") + "'" + Home()), 1);
    EXPECT_NE(Err(), "");
    EXPECT_EQ(Run("export Checking ''" + Home()), 2);
    EXPECT_FALSE(folder.Holds("out.ofx"));
}

TEST_F(ChangesTest, OptionsAreShownAndSet)
{
    EXPECT_EQ(Run("options" + Home()), 0);
    EXPECT_EQ(Out(),
              "Bank web site: (none)\n\n"
              "Account #  Description  In the budget\n"
              "---------  -----------  -------------\n"
              "B-1        Checking     yes\n"
              "V-1        Visa         yes\n");
    EXPECT_FALSE(folder.Holds("books/cvlb.ini"));

    EXPECT_EQ(
        Run("options --bank-url https://bank.example/ --no-count Visa --no-count B-1" + Home()), 0);
    EXPECT_EQ(Run("options --count Checking --json" + Home()), 0);
    EXPECT_EQ(Out(), R"({"bankUrl":"https://bank.example/","accounts":[{"AccountID":"B-1",)"
                     R"("Description":"Checking","BudgetInclude":true},{"AccountID":"V-1",)"
                     R"("Description":"Visa","BudgetInclude":false}]})"
                     "\n");
    EXPECT_EQ(Sql("SELECT AccountID, BudgetInclude FROM Account ORDER BY AccountID"),
              R"([["B-1",true],["I-1",true],["V-1",false]])");
    EXPECT_EQ(folder.Read("books/cvlb.ini"), "[Settings]\r\nBankUrl=https://bank.example/\r\n");

    EXPECT_EQ(Run("options --bank-url ''" + Home()), 0);
    EXPECT_TRUE(Out().starts_with("Bank web site: (none)\n"));
}

TEST_F(ChangesTest, OptionsThatCannotBeSetAreRefusedAndNothingIsSet)
{
    EXPECT_EQ(Run("options --no-count Visa --count Broker" + Home()), 1);
    EXPECT_EQ(Err(),
              "clb: Broker never counts in the budget: only accounts of the types Bank, Cash and "
              "Credit Card do.\n");
    EXPECT_EQ(Run("options --no-count Nobody" + Home()), 1);
    EXPECT_EQ(Err(), "clb: No such account: Nobody\n");
    EXPECT_EQ(Run("options --no-count Visa --count V-1" + Home()), 1);
    EXPECT_EQ(Err(), "clb: The account V-1 can only count or not count.\n");
    EXPECT_EQ(Run("options --no-count Visa --bank-url " + std::string(100, 'x') + Home()), 1);
    EXPECT_EQ(Err(), "clb: The address has more than 99 characters.\n");

    EXPECT_EQ(Sql("SELECT AccountID FROM Account WHERE BudgetInclude = FALSE"), "[]");
    EXPECT_FALSE(folder.Holds("books/cvlb.ini"));
}

TEST_F(ChangesTest, AnAddressThatCouldNotBeStoredIsReported)
{
    std::filesystem::create_directory(folder.Path("books/cvlb.ini"));

    EXPECT_EQ(Run("options --bank-url https://bank.example/" + Home()), 1);
    EXPECT_TRUE(Err().starts_with("clb: The address was not stored.")) << Err();
    EXPECT_EQ(Out(), "");
}

TEST_F(ChangesTest, TheHelpListsEveryCommand)
{
    EXPECT_EQ(Run("--help"), 0);
    for (const char* command : {"export", "split", "move", "copy-budget", "options"})
        EXPECT_NE(Out().find("\n  " + std::string(command) + " "), std::string::npos) << command;
}

}  // namespace
}  // namespace clb
