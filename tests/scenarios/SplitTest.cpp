// Splitting a transaction, from the command through the dialog to the pieces.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class SplitTest : public Scenario {
protected:
    SplitTest() { AddAccount("B-1", "Bank", "Checking"); }

    /// A register with one transaction, which is current.
    void ShowTransaction(const std::string& amount, const std::string& description = "Shop")
    {
        AddTransaction("B-1", "2006-3", amount, "Food");
        Sql("UPDATE Trans SET Description = '" + description + "'");
        ShowAll();
        Click("Checking");
        Move(1, 3);
    }
    /// Runs the command and works the dialog.
    void Split(const std::string& steps)
    {
        AnswerForm("frmSplit", steps);
        Menu("mnuE_Split");
    }
    /// First, second and total at each reading of the dialog, with "!" after what cannot be
    /// accepted.
    std::vector<std::string> Readings()
    {
        std::vector<std::string> readings;
        for (const Json& form : EventsOf("form")) {
            const Json& controls = form["controls"];
            if (form["moment"] != "close")
                readings.push_back(controls["txtOriginal"]["text"].get<std::string>() + " + " +
                                   controls["txtNew"]["text"].get<std::string>() + " = " +
                                   controls["txtTotal"]["text"].get<std::string>() +
                                   (controls["btnOK"]["enabled"] == true ? "" : " !"));
        }
        return readings;
    }
    std::string Pieces()
    {
        return Rows(
            "SELECT SubSequence, Amount, Description FROM Trans ORDER BY Sequence, "
            "SubSequence");
    }
};

TEST_F(SplitTest, TheDialogShowsTheDescriptionAndItsThreeAmounts)
{
    ShowTransaction("100.00");
    Events();

    Split("[]");

    const Json form = EventsOf("form").at(0);
    EXPECT_EQ(form["name"], "frmSplit");
    EXPECT_EQ(form["moment"], "open");
    EXPECT_EQ(form["caption"], "Split Transaction");
    const Json& controls = form["controls"];
    EXPECT_EQ(controls["txtDescription"]["text"], "Shop");
    EXPECT_EQ(controls["Label2"]["caption"], "First amount:");
    EXPECT_EQ(controls["Label4"]["caption"], "Second amount:");
    EXPECT_EQ(controls["Label8"]["caption"], "Total:");
    EXPECT_EQ(controls["btnCancel"]["caption"], "Cancel");
    EXPECT_EQ(ToLine(controls["txtNew"]), R"({"text":"50","enabled":true,"selected":"50"})");
    EXPECT_EQ(controls["txtOriginal"]["text"], "50");
    EXPECT_EQ(controls["txtTotal"]["text"], "100");
    EXPECT_TRUE(controls.contains("upDown"));
}

TEST_F(SplitTest, ATextThatIsNotANumberCannotBeAcceptedAndTheOtherAmountsStay)
{
    ShowTransaction("100");
    Events();

    Split(R"([{"set":"txtNew","to":"30"},{"set":"txtNew","to":""},{"read":true},
              {"set":"txtNew","to":"much"},{"read":true},{"set":"txtNew","to":"3,0"},{"read":true},
              {"set":"txtNew","to":"-"},{"read":true},{"press":"btnOK"},
              {"set":"txtNew","to":"40"},{"read":true},{"press":"btnOK"}])");

    const Json events = Events();
    std::vector<std::string> readings;
    std::size_t refused = 0;
    for (const Json& event : events) {
        refused += event["event"] == "step" ? 1U : 0U;
        if (event["event"] == "form" && event["moment"] == "read")
            readings.push_back(event["controls"]["txtOriginal"]["text"].get<std::string>() + " " +
                               event["controls"]["txtTotal"]["text"].get<std::string>() + " " +
                               ToLine(event["controls"]["btnOK"]["enabled"]));
    }
    EXPECT_EQ(readings, (std::vector<std::string>{"70 100 false", "70 100 false", "70 100 false",
                                                  "70 100 false", "60 100 true"}));
    EXPECT_EQ(refused, 1U);
    EXPECT_EQ(Pieces(), R"json([0,"60","Shop"] [1,"40","Shop (split #1)"])json");
}

TEST_F(SplitTest, OnlyTheSecondAmountCanBeTyped)
{
    ShowTransaction("100");
    Events();

    Split(R"([{"set":"txtOriginal","to":"1"},{"set":"txtTotal","to":"1"},{"read":true}])");

    EXPECT_EQ(Readings().back(), "50 + 50 = 100");
}

TEST_F(SplitTest, CancelChangesNothing)
{
    ShowTransaction("100");
    Edit(1, 2, "Baker");
    Trace();

    Split(R"([{"set":"txtNew","to":"30"},{"press":"btnCancel"}])");

    const Json events = Events();
    ASSERT_EQ(events.size(), 2U) << ToLine(events);
    EXPECT_FALSE(events[1].contains("unanswered"));
    EXPECT_EQ(Pieces(), R"([0,"100","Shop"])");
    EXPECT_EQ(Current(), "1/2 dirty");
}

TEST_F(SplitTest, BothPiecesAreShownAndTheFirstStaysCurrent)
{
    ShowTransaction("-100");
    AddTransaction("B-1", "2006-3", "-1");
    Call("Refresh");
    // The later number is first.
    Move(2, 3);
    Events();

    Split(R"([{"set":"txtNew","to":"-30"},{"press":"btnOK"}])");

    EXPECT_TRUE(EventsOf("refresh").empty());
    EXPECT_EQ(RowsOf("data").size(), 3U);
    EXPECT_EQ(Call("ColumnValue", {3}), "-70");
    EXPECT_EQ(Call("ColumnValue", {12}), 0);
    EXPECT_EQ(Current(), "2/3");
    EXPECT_EQ(Column(12), "0 0 1");
    EXPECT_EQ(Window()["totals"]["first"], "-101.00");
    EXPECT_EQ(Window()["menus"]["mnuE_Split"]["enabled"], true);
}

TEST_F(SplitTest, APieceIsSplitAgainIntoTheNumberAfterTheLargest)
{
    ShowTransaction("-100");
    Split(R"([{"set":"txtNew","to":"-40"},{"press":"btnOK"}])");

    Split(R"([{"set":"txtNew","to":"-10"},{"press":"btnOK"}])");
    Move(2, 3);
    Split(R"([{"set":"txtNew","to":"-15"},{"press":"btnOK"}])");

    EXPECT_EQ(Pieces(), R"json([0,"-50","Shop"] [1,"-25","Shop (split #1)"] )json"
                        R"json([2,"-10","Shop (split #2)"] )json"
                        R"json([3,"-15","Shop (split #1) (split #3)"])json");
    EXPECT_EQ(Rows("SELECT SUM(Amount) AS Whole FROM Trans"), R"(["-100"])");
}

TEST_F(SplitTest, AChangedRowIsSavedBeforeTheSplit)
{
    ShowTransaction("-100");
    Edit(1, 3, "-80");
    Edit(1, 2, "Baker");
    Events();

    Split(R"([{"press":"btnOK"}])");

    EXPECT_EQ(Readings().at(0), "-40 + -40 = -80");
    EXPECT_EQ(Pieces(), R"json([0,"-40","Baker"] [1,"-40","Baker (split #1)"])json");
}

TEST_F(SplitTest, ARowThatCannotBeSavedIsNotSplit)
{
    ShowTransaction("-100");
    Edit(1, 2, "Baker");
    Sql("DROP TABLE Budget");
    past = Past::Ended;
    AnswerForm("frmSplit", R"([{"press":"btnOK"}])");

    EXPECT_EQ(ErrorOf({{"do", "menu"}, {"item", "mnuE_Split"}}),
              static_cast<std::int32_t>(0x80040E37));

    EXPECT_EQ(Pieces(), R"([0,"-100","Shop"])");
}

TEST_F(SplitTest, AnAmountThatLeavesMoneysRangeIsAnErrorAndNothingIsSplit)
{
    ShowTransaction("100");
    AnswerForm("frmSplit", R"([{"set":"txtNew","to":"-922337203685477.58"},{"press":"btnOK"}])");

    EXPECT_EQ(ErrorOf({{"do", "menu"}, {"item", "mnuE_Split"}}), 6);

    EXPECT_EQ(Pieces(), R"([0,"100","Shop"])");
    EXPECT_EQ(Window()["view"], 4);
}

TEST_F(SplitTest, TheRegisterShowsThePieceAtOnce)
{
    ShowTransaction("-100");

    Call("SplitTransaction", {1, 0, "-70", "-30"});

    EXPECT_EQ(Column(3), R"("-70" "-30")");
}

TEST_F(SplitTest, ItsStatementsCountThePiecesAndOpenTheTransaction)
{
    ShowTransaction("-100");
    Trace();

    Call("SplitTransaction", {1, 0, "-70", "-30"});

    const std::string sent = Statements();
    EXPECT_TRUE(sent.starts_with(
        "SELECT MAX( SubSequence ) + 1 AS NextSubSequence FROM Trans WHERE Trans.Sequence = 1\n"
        "SELECT * FROM Trans WHERE Trans.Sequence = 1 AND Trans.SubSequence = 0\n"
        "SELECT * FROM Trans WHERE false\n"))
        << sent;
}

}  // namespace
}  // namespace clb
