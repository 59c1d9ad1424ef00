// The program clb as a user calls it.

#include <cstdlib>

#include "tests/cli/CommandFixture.h"

namespace clb {
namespace {

using CommandsTest = CommandFixture;

TEST_F(CommandsTest, NewMakesAFolderOnce)
{
    EXPECT_EQ(Run("new " + Books()), 0);
    EXPECT_EQ(Out(), "Made " + folder.Path("books/db/clb.mdb") + "\n");

    EXPECT_EQ(Run("new " + Books()), 1);
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Err(), "clb: File already exists: " + folder.Path("books/db/clb.mdb") + "\n");
}

TEST_F(CommandsTest, ANewFolderHoldsTheManual)
{
    Run("new " + Books());
    Run("demo '" + folder.Path("household") + "'");

    for (const char* made : {"books", "household"}) {
        const std::string page = folder.Read(std::string(made) + "/Help/index.html");
        EXPECT_NE(page.find("<title>Corvane Ledgerbook"), std::string::npos) << made;
    }
}

TEST_F(CommandsTest, SqlPrintsOneObject)
{
    Run("new " + Books());

    EXPECT_EQ(Run("sql " + Books() + " 'SELECT Sequence FROM Loan'"), 0);
    EXPECT_EQ(Out(), R"({"ok":true,"fields":[{"name":"Sequence","type":"long"}],"rows":[]})"
                     "\n");

    EXPECT_EQ(Run("sql " + Books() + " 'SELECT * FROM Nowhere'"), 1);
    EXPECT_EQ(Json::parse(Out())["error"]["number"], static_cast<std::int32_t>(0x80040E37));
    EXPECT_EQ(Run("sql '" + folder.Path("none") + "' 'SELECT * FROM Loan'"), 1);
    EXPECT_EQ(Json::parse(Out())["ok"], false);
}

TEST_F(CommandsTest, WrongUsageHasItsOwnExitCode)
{
    EXPECT_EQ(Run(""), 2);
    EXPECT_EQ(Run("dance"), 2);
    EXPECT_EQ(Run("register x --month 2006-13"), 2);
    EXPECT_EQ(Run("automate --now yesterday"), 2);
    EXPECT_EQ(Run("new ''"), 2);
    EXPECT_EQ(Run("import x --type Bank"), 2);
    EXPECT_EQ(Out(), "");
    EXPECT_NE(Err(), "");
    EXPECT_EQ(Run("--help"), 0);
    EXPECT_NE(Out().find("import"), std::string::npos);
}

TEST_F(CommandsTest, ImportIntoAnUnknownAccountNamesTheOptions)
{
    Run("new " + Books());

    EXPECT_EQ(Run("import " + Statement("12-34", "-45.50") + Home()), 1);

    EXPECT_EQ(Out(), "");
    EXPECT_NE(Err().find("--create NAME --type TYPE"), std::string::npos);
    EXPECT_NE(Err().find("--map ACCOUNT"), std::string::npos);
    EXPECT_EQ(Sql("SELECT * FROM Account"), "[]");
}

TEST_F(CommandsTest, ImportMakesTheAccountAndAddsATransactionOnce)
{
    Run("new " + Books());

    EXPECT_EQ(Run("import " + Statement("12-34", "-45.50") + " --create Visa --type 'Credit Card'" +
                  Home()),
              0);
    EXPECT_EQ(Out(), "Imported 1 transaction\n");
    EXPECT_EQ(Sql("SELECT AccountID, Description, Type, CurrentBalance FROM Account"),
              R"([["12-34","Visa","Credit Card","-45.5"]])");

    EXPECT_EQ(Run("import " + Statement("12-34", "-45.50") + " --json" + Home()), 0);
    EXPECT_EQ(Json::parse(Out())["imported"], 0);
}

TEST_F(CommandsTest, ImportMapsToAnAccountByNumberOrDescription)
{
    Run("new " + Books());
    Sql("INSERT INTO Account (AccountID, Description, Type) VALUES ('B-1', 'Checking', 'Bank')");

    EXPECT_EQ(Run("import " + Statement("12-34", "-1") + " --map B-1" + Home()), 0);
    EXPECT_EQ(Sql("SELECT AccountID FROM Account"), R"([["12-34"]])");
    EXPECT_EQ(Run("import " + Statement("56-78", "-1") + " --map Checking" + Home()), 0);
    EXPECT_EQ(Sql("SELECT AccountID FROM Account"), R"([["56-78"]])");

    EXPECT_EQ(Run("import " + Statement("90", "-1") + " --map Nobody" + Home()), 1);
    EXPECT_EQ(Err(), "clb: No such account: Nobody\n");
}

TEST_F(CommandsTest, BadFilesAreRefusedWithTheProgramsMessage)
{
    Run("new " + Books());

    EXPECT_EQ(Run("import '" + folder.Write("x.ofx", "no statement\r\n") + "'" + Home()), 1);
    EXPECT_EQ(Err(), "Invalid file format.\nThe file holds no table with dates and amounts.\n");

    EXPECT_EQ(Run("import " + Statement("12-34", "much") + " --create Visa" + Home()), 1);
    EXPECT_EQ(Err(),
              "Invalid data was found while importing:\n"
              "line 6 left out: it has no amount that can be read exactly: 20060305 much Shop\n");

    EXPECT_EQ(Run("import '" + folder.Path("none.ofx") + "'" + Home()), 1);
    EXPECT_NE(Err(), "");
}

TEST_F(CommandsTest, AccountsAndNetWorthAreTables)
{
    Run("new " + Books());
    Sql("INSERT INTO Account (AccountID, Description, Type, OpeningBalance) VALUES "
        "('B-1', 'Checking', 'Bank', 1234.5)");

    EXPECT_EQ(Run("accounts" + Home()), 0);
    EXPECT_EQ(Out(),
              "Description  Type  Account #  Opening Balance  Current Balance\n"
              "-----------  ----  ---------  ---------------  ---------------\n"
              "Checking     Bank  B-1               1,234.50         1,234.50\n");
    EXPECT_EQ(Run("networth --json" + Home()), 0);
    EXPECT_EQ(Out(), R"({"accounts":[{"Description":"Checking","Type":"Bank","AccountID":"B-1",)"
                     R"("OpeningBalance":"1234.5","TotBalance":"1234.5"}],)"
                     R"("opening":"1234.5","current":"1234.5"})"
                     "\n");
    EXPECT_EQ(Run("networth" + Home()), 0);
    EXPECT_NE(Out().find("Total Net Worth:"), std::string::npos);
}

TEST_F(CommandsTest, ARegisterShowsTheGivenMonth)
{
    Run("new " + Books());
    Run("import " + Statement("12-34", "-45.50") + " --create Visa" + Home());

    EXPECT_EQ(Run("register Visa --month 2006-03" + Home()), 0);
    EXPECT_EQ(Out(),
              "Visa, March 2006\n"
              "Date        Description  Amount  Check #  Category  Notes\n"
              "----------  -----------  ------  -------  --------  -----\n"
              "2006-03-05  Shop         -45.50           (none)\n"
              "Balance: -45.50\n");
    EXPECT_EQ(Run("register 12-34 --month 2006-02 --json" + Home()), 0);
    const Json february = Json::parse(Out());
    EXPECT_EQ(february["account"]["Description"], "Visa");
    EXPECT_EQ(february["period"], 2);
    EXPECT_TRUE(february["rows"].empty());
    EXPECT_EQ(february["total"], "0");
    EXPECT_EQ(Run("register --month 2006-03" + Home()), 0);
    EXPECT_TRUE(Out().starts_with("Visa, March 2006\n"));
    EXPECT_EQ(Run("register Nobody" + Home()), 1);
    EXPECT_EQ(Err(), "clb: No such account: Nobody\n");
}

TEST_F(CommandsTest, ABudgetShowsItsGroupsAndWhatWasSpent)
{
    Run("new " + Books());
    Sql("INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES "
        "(2006, 3, 'Food', 'Household', 300)");

    EXPECT_EQ(Run("budget --month 2006-03" + Home()), 0);
    EXPECT_NE(Out().find("Household (1 items)\n"), std::string::npos) << Out();
    EXPECT_NE(Out().find("Month to date: 300.00 / 0.00\n"), std::string::npos) << Out();
    EXPECT_EQ(Run("budget --month 2006-03 --json" + Home()), 0);
    const Json budget = Json::parse(Out());
    EXPECT_EQ(budget["rows"][0]["Category"], "Food");
    EXPECT_EQ(budget["budgeted"], "300");
}

TEST_F(CommandsTest, TheDemoIsAHouseholdOfAllAccountTypes)
{
    EXPECT_EQ(Run("demo " + Books()), 0);

    for (const char* type : {"Bank", "Cash", "Credit Card", "Investment", "Loan"})
        EXPECT_NE(Sql(std::string("SELECT AccountID FROM Account WHERE Type = '") + type + "'"),
                  "[]")
            << type;
    EXPECT_EQ(Run("networth" + Home()), 0);
    EXPECT_EQ(Run("demo " + Books()), 1);
}

TEST_F(CommandsTest, TheUsersDataFolderIsFilledOnFirstUse)
{
    EXPECT_EQ(setenv("XDG_DATA_HOME", folder.Path("data").c_str(), 1), 0);

    EXPECT_EQ(Run("accounts --json"), 0);

    unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(Out(), "{\"accounts\":[]}\n");
    EXPECT_TRUE(folder.Holds("data/corvane-ledgerbook/db/clb.mdb"));
}

}  // namespace
}  // namespace clb
