// The verb "open": statements of every kind, with queued answers to what they leave open.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class OpenStatementTest : public Scenario {
protected:
    OpenStatementTest() { AddAccount("12-34", "Bank", "Checking"); }

    Json Open(const std::string& name, const std::string& text)
    {
        return Do({{"do", "open"}, {"file", folder.Write(name, text)}});
    }
    void Map()
    {
        AnswerForm("frmSelectAccount",
                   R"x([{"option":"optAccount(1)"},{"choose":"cmbAccountID","to":"Checking"},)x"
                   R"x({"press":"btnOK"}])x");
    }
    std::string Posted()
    {
        return Rows(
            "SELECT PostDate, Amount FROM Trans WHERE AccountID = '12-34' ORDER BY "
            "PostDate");
    }
};

TEST_F(OpenStatementTest, AQueuedAnswerSettlesWhatIsOpen)
{
    AnswerForm("frmStatement",
               R"([{"read":true},{"choose":"cmbDateOrder","to":"month, day, year"},{"read":true},)"
               R"({"press":"btnOK"}])");
    Map();
    Events();

    const Json reply =
        Open("a.csv", "Date,Text,Amount\n03/04/2006,Shop,-1.00\n05/04/2006,b,2.00\n");

    EXPECT_EQ(reply["imported"], 2);
    EXPECT_EQ(Posted(), R"(["2006-03-04","-1"] ["2006-05-04","2"])");
    const std::vector<Json> forms = EventsOf("form");
    ASSERT_GE(forms.size(), 3U);
    EXPECT_EQ(forms[1]["controls"]["lstRows"]["lines"][0][1], "3 Apr 2006");
    EXPECT_EQ(forms[2]["controls"]["lstRows"]["lines"][0][1], "4 Mar 2006");
    EXPECT_FALSE(forms[1]["controls"].contains("cmbSign"));
}

TEST_F(OpenStatementTest, WithoutAnAnswerNothingIsAdded)
{
    const Json reply =
        Open("a.csv", "Date,Text,Amount\n03/04/2006,Shop,-1.00\n05/04/2006,b,2.00\n");

    EXPECT_EQ(reply["asked"][0]["question"], "dateOrder");
    EXPECT_EQ(reply["imported"], 0);
    EXPECT_EQ(Posted(), "");
}

TEST_F(OpenStatementTest, ColumnsAreChosenInLists)
{
    AnswerForm("frmStatement", R"([{"choose":"cmbAmount","to":"amount=4,  –  5.00"},)"
                               R"({"choose":"cmbSign","to":"goes out"},{"press":"btnOK"}])");
    Map();

    const Json reply = Open("a.csv",
                            "\"When, exactly\",\"a=b+c\",\"1\",\"amount=4,\"\n"
                            "2006-02-13,a,1.00,5.00\n2006-02-14,b,2.00,9.00\n");

    EXPECT_EQ(reply["imported"], 2) << reply;
    EXPECT_EQ(Posted(), R"(["2006-02-13","-5"] ["2006-02-14","-9"])");
}

TEST_F(OpenStatementTest, TheAnswerIsRememberedInTheSameStep)
{
    for (const char* form :
         {R"([{"choose":"cmbDateOrder","to":"month, day, year"},{"press":"btnOK"}])",
          R"([{"read":true},{"press":"btnOK"}])"}) {
        AnswerForm("frmStatement", form);
        Map();
        Events();
        Open("a.csv", "Date,Text,Amount\n03/04/2006,Shop,-1.00\n05/04/2006,b,2.00\n");
    }

    EXPECT_EQ(EventsOf("form")[1]["controls"]["cmbDateOrder"]["text"], "month, day, year");
    EXPECT_EQ(Rows("SELECT DateOrder FROM CvFormat"), R"(["mdy"])");
}

TEST_F(OpenStatementTest, TheImportCommandStaysStrict)
{
    AnswerFile(folder.Write("a.csv", "Date,Text,Amount\n2006-03-04,Shop,-1.00\n"));
    Menu("mnuF_Import");

    const std::vector<Json> boxes = EventsOf("box");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0]["text"], "Invalid file format.");
}

}  // namespace
}  // namespace clb
