// Start and end of the driven program, and what its window shows at first.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class StartTest : public Scenario {};

TEST_F(StartTest, TheFirstLineSaysReady)
{
    EXPECT_EQ(ToLine(Program().FirstLine()), R"json({"ok":true,"ready":true})json");
}

TEST_F(StartTest, TheWindowShowsTheNetWorthOfThePresentMonth)
{
    const Json window = Window();

    EXPECT_EQ(window["caption"], "Net Worth - Corvane Ledgerbook");
    EXPECT_EQ(window["view"], 1);
    EXPECT_EQ(window["period"], 3);
    EXPECT_EQ(window["year"], "2006");
    EXPECT_EQ(window["enabled"], true);
    EXPECT_EQ(window["pointer"], 0);
    EXPECT_EQ(window["focus"], "TreeView");
    EXPECT_EQ(window["status"], "Select an item to work with.");
    EXPECT_EQ(ToLine(window["totals"]),
              R"json({"label":"Total Net Worth:","first":"0.00","second":"0.00"})json");
    EXPECT_EQ(window["months"].size(), 12U);
    EXPECT_EQ(window["months"][0], "January");
    EXPECT_EQ(window["months"][11], "December");
}

TEST_F(StartTest, AYearThatTheBoxAlreadyShowsIsTheViewsToo)
{
    now = "1900-03-05T10:00:00";

    EXPECT_EQ(Window()["year"], "1900");
    EXPECT_EQ(Call("ViewGet", {"Year"}), 1900);
}

TEST_F(StartTest, LoadingReloadsTheGridOnceAndBuildsTheTreeOnce)
{
    int refreshes = 0;
    int trees = 0;
    for (const Json& event : Events()) {
        refreshes += event["event"] == "refresh" ? 1 : 0;
        trees += event["event"] == "tree" ? 1 : 0;
    }

    EXPECT_EQ(refreshes, 1);
    EXPECT_EQ(trees, 1);
}

TEST_F(StartTest, MenusAreInTheirOrderWithTheirCaptions)
{
    const Json window = Window();

    EXPECT_EQ(
        ToLine(window["menuOrder"]),
        R"json(["mnuF_Import","mnuF_Export","mnuF_Rule","mnuF_Print","mnuF_Rule2","mnuF_Exit",)json"
        R"json("mnuE_New","mnuE_Delete","mnuE_Separator1","mnuE_Copy","mnuE_Separator2",)json"
        R"json("mnuE_MovePrev","mnuE_MoveNext","mnuE_Split","mnuT_UpdateQuotes","mnuT_Rule",)json"
        R"json("mnuT_Options","mnuH_HelpTopics","mnuH_Rule","mnuH_OnTheWeb",)json"
        R"json("mnuH_OnlineTutorial","mnuH_Rule2","mnuH_About",)json"
        R"json("mnuY_Undo","mnuY_Redo","mnuY_Rule","mnuY_Show"])json");
    EXPECT_EQ(window["menus"]["mnuE_Copy"]["caption"], "&Copy Budget From Previous Month");
    EXPECT_EQ(window["menus"]["mnuF_Exit"]["caption"], "E&xit");
    EXPECT_FALSE(window["menus"].contains("mnuF_Rule"));
    EXPECT_FALSE(window["menus"].contains("mnuFile"));
}

TEST_F(StartTest, WithoutADatabaseLoadingFailsAndTheExitCodeIs1)
{
    AutomationClient client({"--home", folder.Path("nowhere")});

    EXPECT_EQ(client.FirstLine()["ok"], false);
    EXPECT_NE(client.FirstLine()["error"]["number"], 0);
    EXPECT_NE(client.FirstLine()["error"]["message"], "");
    EXPECT_EQ(client.ExitCode(), 1);
    EXPECT_FALSE(folder.Holds("nowhere/db/clb.mdb"));
}

TEST_F(StartTest, AFailureOfTheFirstReloadIsAFailureOfLoading)
{
    // Symptom: the first line reported the error, but the process stayed and waited for requests.
    past = Past::Ended;
    Sql("DROP TABLE Account");
    Sql("CREATE TABLE Account (AccountID TEXT, Description TEXT, Type TEXT, BudgetInclude YESNO)");

    AutomationClient client({"--home", folder.Path()});

    EXPECT_EQ(client.FirstLine()["ok"], false);
    EXPECT_EQ(client.ExitCode(), 1);
}

TEST_F(StartTest, QuitIsTheLastReply)
{
    EXPECT_EQ(ToLine(Do({{"do", "quit"}})), R"json({"ok":true})json");

    EXPECT_EQ(Program().ExitCode(), 0);
    EXPECT_EQ(Program().Rest(), "");
}

TEST_F(StartTest, TheEndOfTheInputEndsTheProgram)
{
    Sql("INSERT INTO Account (AccountID, Description, Type) VALUES ('1', 'Wallet', 'Cash')");

    EXPECT_EQ(Program().ExitCode(), 0);
    EXPECT_EQ(Program().Rest(), "");
}

TEST_F(StartTest, ExitUnloadsTheWindowAndEndsTheProgram)
{
    EXPECT_EQ(ToLine(Do({{"do", "menu"}, {"item", "mnuF_Exit"}})), R"json({"ok":true})json");

    EXPECT_EQ(Program().ExitCode(), 0);
}

TEST_F(StartTest, WrittenDataIsThereAtTheNextStart)
{
    AddAccount("1", "Cash", "Wallet");

    AutomationClient second({"--home", folder.Path()});
    const Json rows =
        second.Ask({{"do", "sql"}, {"text", "SELECT Description FROM Account"}})["rows"];

    EXPECT_EQ(ToLine(rows), R"json([["Wallet"]])json");
}

}  // namespace
}  // namespace clb
