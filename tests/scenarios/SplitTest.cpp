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

TEST_F(SplitTest, TheAmountsAddUpToTheWholeForAnyText)
{
    ShowTransaction("100");
    Events();

    Split(
        R"json([{"set":"txtNew","to":"30"},{"read":true},{"set":"txtNew","to":"250"},{"read":true},
              {"set":"txtNew","to":"-20"},{"read":true},{"set":"txtNew","to":"(5)"
},{"read":true},
              {"set":"txtNew","to":" $1,000.5 "},{"read":true},{"set":"txtNew","to":"0"},
              {"read":true},{"set":"txtNew","to":"33.33335"},{"read":true}])json");

    EXPECT_EQ(Readings(),
              (std::vector<std::string>{"50 + 50 = 100", "70 + 30 = 100", "-150 + 250 = 100",
                                        "120 + -20 = 100", "105 + (5) = 100",
                                        "-900.5 +  $1,000.5  = 100", "100 + 0 = 100",
                                        // The fifth decimal is rounded to the even neighbour.
                                        "66.6666 + 33.33335 = 100"}));
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

TEST_F(SplitTest, ANegativeOrTooLargeAmountReversesTheSignOfTheFirst)
{
    ShowTransaction("-100");

    Split(R"([{"set":"txtNew","to":"-130"},{"press":"btnOK"}])");

    EXPECT_EQ(Pieces(), R"json([0,"30","Shop"] [1,"-130","Shop (split #1)"])json");
}

TEST_F(SplitTest, HalvesAreProposedInWholeCents)
{
    ShowTransaction("-45.55");
    Events();
    const auto proposal = [this](const std::string& amount) {
        Sql("UPDATE Trans SET Amount = " + amount);
        Call("Refetch");
        Split("[]");
        return Readings().at(0);
    };

    EXPECT_EQ(proposal("(-45.55)"), "-22.77 + -22.78 = -45.55");
    EXPECT_EQ(proposal("0.01"), "0.01 + 0 = 0.01");
    EXPECT_EQ(proposal("0.03"), "0.01 + 0.02 = 0.03");
    EXPECT_EQ(proposal("0.05"), "0.03 + 0.02 = 0.05");
    EXPECT_EQ(proposal("10.0001"), "5.0001 + 5 = 10.0001");
    EXPECT_EQ(proposal("0"), "0 + 0 = 0");
}

TEST_F(SplitTest, TheSpinnerStepsByOneAndTheFirstAmountFollows)
{
    ShowTransaction("100");
    Events();

    Split(R"([{"step":"upDown","by":3},{"read":true},{"set":"txtNew","to":"0.25"},
              {"step":"upDown","by":-1},{"read":true}])");

    EXPECT_EQ(Readings(),
              (std::vector<std::string>{"50 + 50 = 100", "47 + 53 = 100", "100.75 + -0.75 = 100"}));
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

TEST_F(SplitTest, ANewPieceIsACopyExceptForAmountNumberAndDescription)
{
    ShowTransaction("-100");
    Sql("UPDATE Trans SET CheckID = '1001', PayeeName = 'a note', FITID = 'bank-7', Category = "
        "'Kids'' toys', PostDate = #2006-02-27 12:30:00#");
    Call("Refetch");

    Split(R"([{"set":"txtNew","to":"-30"},{"press":"btnOK"}])");

    const std::string first = Rows("SELECT * FROM Trans WHERE SubSequence = 0");
    const std::string piece = Rows("SELECT * FROM Trans WHERE SubSequence = 1");
    EXPECT_EQ(first,
              R"([1,0,"B-1","2006-02-27 12:30:00","Shop","-70","1001","Kids' toys","a note",)"
              R"(2006,3,"bank-7"])");
    EXPECT_EQ(piece, R"json([1,1,"B-1","2006-02-27 12:30:00","Shop (split #1)","-30","1001",)json"
                     R"json("Kids' toys","a note",2006,3,"bank-7"])json");
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

TEST_F(SplitTest, AfterAPieceWasDeletedTheLargestThatIsLeftCounts)
{
    ShowTransaction("-100");
    Sql("UPDATE Trans SET SubSequence = 7");
    Call("Refetch");

    Split(R"([{"press":"btnOK"}])");

    EXPECT_EQ(Pieces(), R"json([7,"-50","Shop"] [8,"-50","Shop (split #8)"])json");
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

TEST_F(SplitTest, APieceWithoutDescriptionHasItsNumberOnly)
{
    ShowTransaction("-100");
    Sql("UPDATE Trans SET Description = NULL");
    Call("Refetch");

    Split(R"([{"press":"btnOK"}])");

    EXPECT_EQ(Pieces(), R"json([0,"-50",null] [1,"-50"," (split #1)"])json");
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

struct Name {
    const char* kind;
    const char* character;
};

class PieceNameTest : public SplitTest, public testing::WithParamInterface<Name> {};

TEST_P(PieceNameTest, IsCutAtFiftyCharactersAfterItsNumberIsAdded)
{
    const auto name = [](std::size_t length) {
        std::string text;
        for (std::size_t at = 0; at < length; ++at)
            text += GetParam().character;
        return text;
    };
    ShowTransaction("-100");
    const auto pieceOf = [&](std::size_t length) {
        Sql("DELETE FROM Trans WHERE SubSequence > 0");
        Sql("UPDATE Trans SET Description = '" + name(length) + "'");
        Call("SplitTransaction", {1, 0, "-70", "-30"});
        EXPECT_EQ(Rows("SELECT Description FROM Trans WHERE SubSequence = 0"),
                  ToLine(Json::array({name(length)})));
        return Rows("SELECT Description FROM Trans WHERE SubSequence = 1");
    };

    EXPECT_EQ(pieceOf(39), ToLine(Json::array({name(39) + " (split #1)"})));
    EXPECT_EQ(pieceOf(40), ToLine(Json::array({name(40) + " (split #1"})));
    EXPECT_EQ(pieceOf(45), ToLine(Json::array({name(45) + " (spl"})));
    EXPECT_EQ(pieceOf(50), ToLine(Json::array({name(50)})));
    EXPECT_EQ(pieceOf(80), ToLine(Json::array({name(50)})));
}

INSTANTIATE_TEST_SUITE_P(EveryWidth, PieceNameTest,
                         testing::Values(Name{"Letter", "x"}, Name{"Accented", "\u00e9"},
                                         Name{"Ideograph", "\u8d85"},
                                         Name{"BeyondTheBasicPlane", "\U0001F600"}),
                         [](const testing::TestParamInfo<Name>& tested) {
                             return std::string(tested.param.kind);
                         });

}  // namespace
}  // namespace clb
