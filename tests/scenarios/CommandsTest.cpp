// The menus and the toolbar: captions, disabled commands, help, the web and the about box.

#include "base/Text.h"
#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class CommandsTest : public Scenario {
protected:
    CommandsTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
        AddTransaction("B-1", "2006-3", "-9");
        AddBudget("2006-3", "Food", "1");
        AddHolding("I-1", "ACME", "10");
        AddLoan("L-1", "Mortgage", "100", "10");
        ShowAll();
    }

    /// Everything that the window shows and the data holds.
    std::string State()
    {
        std::string state = ToLine(Window()) + ToLine(Grid()) + ToLine(Tree());
        for (const char* table : {"Account", "Trans", "Budget", "Investment", "Loan"})
            state += Rows(std::string("SELECT * FROM ") + table);
        return state;
    }
    /// Targets of the addresses opened since the last call.
    std::string Opened()
    {
        std::string targets;
        for (const Json& event : EventsOf("open"))
            targets += event["target"].get<std::string>() + "\n";
        return targets;
    }
};

TEST_F(CommandsTest, EveryMenuItemHasItsCaptionAndAccessKey)
{
    const Json menus = Window()["menus"];

    std::string captions;
    for (const char* item :
         {"mnuF_Import", "mnuF_Export", "mnuF_Print", "mnuF_Exit", "mnuE_New", "mnuE_Delete",
          "mnuE_Copy", "mnuE_MovePrev", "mnuE_MoveNext", "mnuE_Split", "mnuT_UpdateQuotes",
          "mnuT_Options", "mnuH_HelpTopics", "mnuH_OnTheWeb", "mnuH_OnlineTutorial", "mnuH_About",
          "mnuY_Undo", "mnuY_Redo", "mnuY_Show"})
        captions += menus[item]["caption"].get<std::string>() + "\n";

    EXPECT_EQ(menus.size(), 19U);
    EXPECT_EQ(captions,
              "&Import...\n&Export...\n&Print...\nE&xit\n"
              "&New Record\n&Delete Record\n&Copy Budget From Previous Month\n"
              "Move To &Previous Month\nMove To N&ext Month\n&Split Transaction\n"
              "&Update Quotes\n&Options...\n"
              "&Help Topics\nCorvane on the &Web\n&Online Tutorial\n&About Corvane Ledgerbook\n"
              "&Undo SQL\n&Redo\n&Show History...\n");
}

TEST_F(CommandsTest, TheToolbarHasItsFiveButtons)
{
    const Json toolbar = Window()["toolbar"];

    std::string keys;
    for (const auto& button : toolbar.items())
        keys += button.key() + " ";

    EXPECT_EQ(keys, "New Delete Link Back Forward ");
}

TEST_F(CommandsTest, HelpTopicsOpenTheHelpFileOfTheProgramsFolder)
{
    Events();

    Menu("mnuH_HelpTopics");

    const Json events = Events();
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(ToLine(events[0]),
              ToLine({{"event", "help"}, {"file", folder.Path("Help/clb.chm")}}));
}

TEST_F(CommandsTest, TheWebItemsOpenTheMakersPages)
{
    Events();

    Menu("mnuH_OnTheWeb");
    const std::string home = Opened();
    Menu("mnuH_OnlineTutorial");
    const std::string tutorial = Opened();

    EXPECT_EQ(home, "https://corvane.example/\n");
    EXPECT_TRUE(tutorial.starts_with("https://corvane.example/")) << tutorial;
    EXPECT_NE(tutorial, home);
}

TEST_F(CommandsTest, TheAboutBoxNamesTheProgramItsVersionAndItsTerms)
{
    AnswerForm("frmAbout", R"([{"press":"cmdOK"}])");
    Events();

    Menu("mnuH_About");

    const std::vector<Json> forms = EventsOf("form");
    ASSERT_EQ(forms.size(), 2U);
    EXPECT_EQ(forms[0]["caption"], "About Corvane Ledgerbook");
    const Json& controls = forms[0]["controls"];
    EXPECT_EQ(controls["lblAppName"]["caption"], "Corvane Ledgerbook 1.0.0");
    EXPECT_EQ(controls["cmdOK"]["enabled"], true);
    EXPECT_NE(ToLine(controls).find("Copyright"), std::string::npos);
    EXPECT_TRUE(controls.contains("picAppIcon"));
    EXPECT_EQ(forms[1]["moment"], "close");
    EXPECT_FALSE(forms[1].contains("unanswered"));
}

TEST_F(CommandsTest, TheAboutBoxesWebSiteOpensTheHomePageAndTheBoxStays)
{
    AnswerForm("frmAbout", R"([{"click":"lblWebSite"},{"read":true},{"press":"cmdOK"}])");
    Events();

    Menu("mnuH_About");

    std::string story;
    for (const Json& event : Events())
        story += event.contains("moment")   ? event["moment"].get<std::string>() + " "
                 : event.contains("target") ? event["target"].get<std::string>() + " "
                                            : ToLine(event);
    EXPECT_EQ(story, "open https://corvane.example/ read close ");
}

TEST_F(CommandsTest, ExitDiscardsAnUnsavedRow)
{
    Click("Checking");
    Edit(1, 2, "Never saved");

    Menu("mnuF_Exit");
    EXPECT_EQ(Program().ExitCode(), 0);

    AutomationClient next({"--home", folder.Path()});
    EXPECT_EQ(ToLine(next.Ask({{"do", "sql"}, {"text", "SELECT Description FROM Trans"}})["rows"]),
              R"([["Shop"]])");
}

TEST_F(CommandsTest, TheLinkSavesAChangedRowBeforeOpeningTheBank)
{
    Call("IniWriteString", {"Settings", "BankUrl", "https://bank.example/"});
    Click("Checking");
    Edit(1, 2, "Baker");

    Press("Link");

    EXPECT_EQ(Opened(), "https://bank.example/\n");
    EXPECT_EQ(Rows("SELECT Description FROM Trans"), R"(["Baker"])");
    EXPECT_EQ(Current(), "1/2");
}

TEST_F(CommandsTest, TheLinkOpensNothingWhileARowIsRefused)
{
    Call("IniWriteString", {"Settings", "BankUrl", "https://bank.example/"});
    Edit(1, 1, "");

    Press("Link");

    EXPECT_EQ(Opened(), "");
}

TEST_F(CommandsTest, WithoutAnAddressTheLinkWarnsUnderTheProgramsNameAndOpensNothing)
{
    Call("IniWriteString", {"Settings", "BankUrl", ""});
    Events();

    Press("Link");

    const Json events = Events();
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(ToLine(events[0]),
              R"({"event":"box","text":"You have not yet set your bank's URL, please do so from )"
              R"(Tools|Options...","style":48,"title":"Corvane Ledgerbook","answer":"OK",)"
              R"("unanswered":true})");
}

TEST_F(CommandsTest, TheLinkOpensTheFirstNinetyNineCharactersOfALongAddress)
{
    std::string address = "https://bank.example/";
    while (Length(address) < 120)
        address += "\u00e9";
    Call("IniWriteString", {"Settings", "BankUrl", address});

    Press("Link");

    EXPECT_EQ(Opened(), Left(address, 99) + "\n");
}

/// Runs in each of the six views.
class CommandsInViewTest : public CommandsTest, public testing::WithParamInterface<const char*> {
protected:
    /// Presses every command that is disabled at this place. Returns how many there were.
    int PressDisabled()
    {
        const Json window = Window();
        const std::string before = State();
        Events();
        int count = 0;
        for (const auto& item : window["menus"].items())
            if (item.value()["enabled"] == false) {
                EXPECT_EQ(ErrorOf({{"do", "menu"}, {"item", item.key()}}), 0) << item.key();
                ++count;
            }
        for (const auto& button : window["toolbar"].items())
            if (button.value() == false) {
                EXPECT_EQ(ErrorOf({{"do", "toolbar"}, {"button", button.key()}}), 0);
                ++count;
            }
        EXPECT_TRUE(Events().empty());
        EXPECT_EQ(State(), before);
        return count;
    }
};

TEST_P(CommandsInViewTest, WhatIsDisabledIsAnErrorAndChangesNothing)
{
    Click(GetParam());
    // Delete, the two moves, Split and the button Delete need a row.
    EXPECT_GE(PressDisabled(), 5);

    Move("new", 1);
    EXPECT_GE(PressDisabled(), 7);

    Begin("new", 1);
    EXPECT_GE(PressDisabled(), 8);
}

TEST_P(CommandsInViewTest, HelpTheWebAndTheAboutBoxChangeNothing)
{
    Click(GetParam());
    Move(RowsOf("data").at(0)["row"], 1);
    const std::string before = State();
    Events();

    for (const char* item : {"mnuH_HelpTopics", "mnuH_OnTheWeb", "mnuH_OnlineTutorial"})
        Menu(item);
    AnswerForm("frmAbout", R"([{"press":"cmdOK"}])");
    Menu("mnuH_About");

    EXPECT_TRUE(EventsOf("refresh").empty());
    EXPECT_EQ(State(), before);
}

TEST_P(CommandsInViewTest, BackAndForwardShowTheOtherMonthOfTheSameViewOnce)
{
    Click(GetParam());
    const std::string before = State();
    Events();

    Press("Back");
    EXPECT_EQ(EventsOf("refresh").size(), 1U);
    EXPECT_EQ(Window()["period"], 2);
    Press("Forward");
    EXPECT_EQ(EventsOf("refresh").size(), 1U);

    EXPECT_EQ(State(), before);
}

INSTANTIATE_TEST_SUITE_P(EveryView, CommandsInViewTest,
                         testing::Values("Net Worth", "Budget", "Bank", "Checking", "Broker",
                                         "House"),
                         [](const testing::TestParamInfo<const char*>& tested) {
                             return "View" + std::to_string(tested.index + 1);
                         });

}  // namespace
}  // namespace clb
