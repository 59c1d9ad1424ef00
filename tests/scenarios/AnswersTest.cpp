// What the program asks, how answers are matched to questions, and what the log records of it.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class AnswersTest : public Scenario {
protected:
    /// A statement with one transaction for the account.
    std::string Statement(const std::string& account)
    {
        return folder.Write("march.ofx",
                            "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n\r\n<OFX>\r\n"
                            "<ACCTID>" +
                                account +
                                "\r\n<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>20060305"
                                "<TRNAMT>-45.50<FITID>1<NAME>Shop</STMTTRN>\r\n</OFX>\r\n");
    }
    void AnswerForm(const Json& steps)
    {
        Do({{"do", "answer"}, {"form", "frmSelectAccount"}, {"steps", steps}});
    }
    void Import() { Do({{"do", "menu"}, {"item", "mnuF_Import"}}); }
    /// Kinds of the events that are not the grid's own.
    static std::string Kinds(const Json& events)
    {
        std::string kinds;
        for (const Json& event : events)
            if (event["event"] != "grid" && event["event"] != "redraw")
                kinds += (kinds.empty() ? "" : " ") + event["event"].get<std::string>();
        return kinds;
    }
};

TEST_F(AnswersTest, AnImportIntoAnUnknownAccountAsksForIt)
{
    const std::string path = Statement("12-34");
    AnswerFile(path);
    AnswerForm(Json::parse(R"([{"set":"txtDescription","to":"Visa"},)"
                           R"({"choose":"cmbAccountType","to":"Credit Card"},)"
                           R"({"read":true},{"press":"btnOK"}])"));
    Events();

    Import();

    const Json events = Events();
    EXPECT_EQ(Kinds(events),
              "file status enabled pointer status pointer form form tree form pointer status "
              "status refresh pointer enabled");
    EXPECT_EQ(Rows("SELECT AccountID, Description, Type, CurrentBalance FROM Account"),
              R"(["12-34","Visa","Credit Card","-45.5"])");
    EXPECT_EQ(Rows("SELECT AccountID, PostDate, Amount, Description FROM Trans"),
              R"(["12-34","2006-03-05","-45.5","Shop"])");
}

TEST_F(AnswersTest, TheFileQuestionIsLoggedWithItsAnswer)
{
    AddAccount("12-34", "Bank", "Checking");
    const std::string path = Statement("12-34");
    AnswerFile(path);
    Events();

    Import();

    const std::vector<Json> asked = EventsOf("file");
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0]["kind"], "open");
    EXPECT_EQ(asked[0]["flags"], 4100);
    EXPECT_EQ(asked[0]["filter"], "All Financial Files|*.ofx;*.qfx;*.ofc;*.qif|All Files|*.*|");
    EXPECT_EQ(asked[0]["answer"], path);
    EXPECT_FALSE(asked[0].contains("unanswered"));
}

TEST_F(AnswersTest, AnOpenedFormShowsItsControls)
{
    AnswerFile(Statement("12-34"));
    Events();

    Import();

    const std::vector<Json> forms = EventsOf("form");
    ASSERT_EQ(forms.size(), 2U);
    EXPECT_EQ(forms[0]["name"], "frmSelectAccount");
    EXPECT_EQ(forms[0]["moment"], "open");
    EXPECT_EQ(forms[0]["caption"], "Select Account");
    const Json& controls = forms[0]["controls"];
    EXPECT_EQ(ToLine(controls["optAccount(0)"]),
              R"json({"caption":"Create a new account","value":true,"enabled":true})json");
    EXPECT_EQ(controls["optAccount(1)"]["enabled"], false);
    EXPECT_EQ(ToLine(controls["cmbAccountType"]["items"]),
              R"(["Bank","Cash","Credit Card","Investment"])");
    EXPECT_EQ(controls["cmbAccountID"]["index"], -1);
    EXPECT_EQ(controls["btnCancel"]["caption"], "Cancel");
    EXPECT_EQ(forms[1]["moment"], "close");
    EXPECT_EQ(forms[1]["unanswered"], true);
    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), "");
}

TEST_F(AnswersTest, AFormLeftOpenByItsStepsIsCancelled)
{
    AnswerFile(Statement("12-34"));
    AnswerForm(Json::parse(R"([{"set":"txtDescription","to":"Visa"}])"));
    Events();

    Import();

    const std::vector<Json> forms = EventsOf("form");
    ASSERT_EQ(forms.size(), 2U);
    EXPECT_FALSE(forms[0].contains("unanswered"));
    EXPECT_EQ(forms[1]["unanswered"], true);
    EXPECT_EQ(forms[1]["controls"]["txtDescription"]["text"], "Visa");
    EXPECT_EQ(Rows("SELECT AccountID FROM Account"), "");
}

TEST_F(AnswersTest, ADisabledControlRefusesItsStep)
{
    AnswerFile(Statement("12-34"));
    AnswerForm(Json::parse(R"json([{"option":"optAccount(1)"},{"press":"btnCancel"}])json"));
    Events();

    Import();

    const std::vector<Json> steps = EventsOf("step");
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_EQ(ToLine(steps[0]), R"json({"event":"step","name":"frmSelectAccount",)json"
                                R"json("step":{"option":"optAccount(1)"},"refused":true})json");
}

TEST_F(AnswersTest, AQuestionDuringAFormTakesTheAnswerThatIsFirstThen)
{
    AnswerFile(Statement("12-34"));
    AnswerForm(Json::parse(R"([{"press":"btnOK"},{"set":"txtDescription","to":"Visa"},)"
                           R"({"press":"btnOK"}])"));
    AnswerBox("OK");
    Events();

    Import();

    const std::vector<Json> boxes = EventsOf("box");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(ToLine(boxes[0]),
              R"({"event":"box","text":"You must enter an account description.","style":16,)"
              R"("title":"Corvane Ledgerbook","answer":"OK"})");
    EXPECT_EQ(Rows("SELECT Description FROM Account"), R"(["Visa"])");
}

TEST_F(AnswersTest, AnAnswerOfAnotherKindStaysForAQuestionThatItFits)
{
    AnswerBox("OK");
    AnswerFile(folder.Write("notes.ofx", "no statement\r\n"));
    Events();

    Import();

    std::vector<Json> asked = EventsOf("file");
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0]["unanswered"], true);
    EXPECT_EQ(asked[0]["answer"], "");
}

TEST_F(AnswersTest, AFileOfUnknownKindLeavesTheWindowDisabled)
{
    const std::string path = folder.Write("notes.ofx", "no statement\r\n");
    AnswerFile(path);
    Events();

    Import();

    const std::vector<Json> boxes = EventsOf("box");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0]["text"], "Invalid file format.");
    EXPECT_EQ(boxes[0]["style"], 16);
    EXPECT_EQ(boxes[0]["unanswered"], true);
    const Json window = Window();
    EXPECT_EQ(window["enabled"], false);
    EXPECT_EQ(window["pointer"], 11);
    EXPECT_EQ(window["status"], "Importing " + path + "...");

    EXPECT_EQ(ErrorOf({{"do", "click"}, {"text", "Budget"}}), 0);
    EXPECT_EQ(ErrorOf({{"do", "menu"}, {"item", "mnuF_Exit"}}), 0);
    EXPECT_EQ(ErrorOf({{"do", "set"}, {"control", "cmbPeriod"}, {"to", 1}}), 0);
    EXPECT_EQ(ErrorOf({{"do", "move"}, {"row", 1}, {"col", 1}}), 0);
    EXPECT_EQ(Call("GetNextSequence"), 1);
    EXPECT_EQ(Window()["view"], 1);
}

TEST_F(AnswersTest, ADeletionAsksAndNoAnswerMeansNo)
{
    AddAccount("B-1", "Bank", "Checking");
    ShowAll();
    Do({{"do", "focus"}, {"control", "Grid"}});
    Events();

    EXPECT_EQ(Call("ViewDeleteRow"), false);
    AnswerBox("Yes");
    EXPECT_EQ(Call("ViewDeleteRow"), true);

    const std::vector<Json> boxes = EventsOf("box");
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(ToLine(boxes[0]),
              R"({"event":"box","text":"Are you sure you want to delete this record?",)"
              R"("style":36,"title":"Corvane Ledgerbook","answer":"No","unanswered":true})");
    EXPECT_EQ(boxes[1]["answer"], "Yes");
    EXPECT_FALSE(boxes[1].contains("unanswered"));
}

TEST_F(AnswersTest, TheImportedAccountIsShownIfARegisterWasShown)
{
    AddAccount("B-1", "Bank", "Checking");
    ShowAll();
    Click("Checking");
    AnswerFile(Statement("12-34"));
    AnswerForm(Json::parse(R"([{"set":"txtDescription","to":"Visa"},{"press":"btnOK"}])"));

    Import();

    EXPECT_EQ(Window()["accountID"], "12-34");
    EXPECT_EQ(Window()["caption"], "Visa - Corvane Ledgerbook");
}

}  // namespace
}  // namespace clb
