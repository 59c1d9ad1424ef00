// The dialogs of the menus, worked from outside.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class FormsTest : public Scenario {
protected:
    /// Shows a register with one transaction of 100 and stands on it.
    void ShowTransaction()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddTransaction("B-1", "2006-3", "100");
        ShowAll();
        Click("Checking");
        Do({{"do", "move"}, {"row", 1}, {"col", 3}});
    }
};

TEST_F(FormsTest, ASplitProposesHalvesAndTakesWhatIsTyped)
{
    ShowTransaction();
    AnswerForm("frmSplit", R"([{"read":true},{"set":"txtNew","to":"30"},{"read":true},)"
                           R"({"press":"btnOK"}])");
    Events();

    Menu("mnuE_Split");

    const std::vector<Json> forms = EventsOf("form");
    ASSERT_EQ(forms.size(), 4u);
    EXPECT_EQ(ToLine(forms[1]["controls"]["txtNew"]),
              R"({"text":"50","enabled":true,"selected":"50"})");
    EXPECT_EQ(forms[2]["controls"]["txtOriginal"]["text"], "70");
    EXPECT_EQ(forms[2]["controls"]["txtTotal"]["text"], "100");
    EXPECT_EQ(Rows("SELECT SubSequence, Amount, Description FROM Trans ORDER BY SubSequence"),
              R"json([0,"70","Shop"] [1,"30","Shop (split #1)"])json");
}

TEST_F(FormsTest, TheSpinnerStepsTheSecondAmount)
{
    ShowTransaction();
    AnswerForm("frmSplit",
               R"([{"step":"upDown","by":2},{"step":"upDown","by":-1},{"press":"btnOK"}])");

    Menu("mnuE_Split");

    EXPECT_EQ(Rows("SELECT Amount FROM Trans ORDER BY SubSequence"), R"(["49"] ["51"])");
}

TEST_F(FormsTest, ATextThatIsNoNumberCannotBeAccepted)
{
    ShowTransaction();
    AnswerForm("frmSplit", R"([{"set":"txtNew","to":"much"},{"press":"btnOK"}])");
    Events();

    Menu("mnuE_Split");

    EXPECT_EQ(EventsOf("step").size(), 1u);
    EXPECT_EQ(Rows("SELECT Amount FROM Trans"), R"(["100"])");
}

TEST_F(FormsTest, OptionsKeepTheBanksAddressAndTheAccountsOfTheBudget)
{
    AddAccount("B-1", "Bank", "Checking");
    AddAccount("L-1", "Loan", "House");
    AnswerForm("frmOptions", R"([{"read":true},{"check":{"row":1},"to":false},)"
                             R"({"check":{"row":2},"to":false},)"
                             R"({"set":"txtBankUrl","to":"https://bank.example/"},)"
                             R"({"press":"btnOK"}])");
    Events();

    Menu("mnuT_Options");

    const Json events = Events();
    std::size_t refused = 0;
    std::string list;
    for (const Json& event : events) {
        if (event["event"] == "step")
            ++refused;
        if (event["event"] == "form" && event["moment"] == "read")
            list = ToLine(event["controls"]["grdAccounts"]["rows"]);
    }
    EXPECT_EQ(refused, 1u);
    EXPECT_EQ(list, R"([[true,"Checking","B-1"]])");
    EXPECT_EQ(Rows("SELECT BudgetInclude FROM Account ORDER BY AccountID"), "[false] [true]");
    EXPECT_EQ(Call("IniGetString", {"Settings", "BankUrl"}), "https://bank.example/");

    Do({{"do", "toolbar"}, {"button", "Link"}});
    EXPECT_EQ(ToLine(EventsOf("open").at(0)),
              R"({"event":"open","target":"https://bank.example/"})");
}

TEST_F(FormsTest, WithoutAnAddressTheLinkSaysSo)
{
    Events();

    Do({{"do", "toolbar"}, {"button", "Link"}});

    const std::vector<Json> boxes = EventsOf("box");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0]["text"],
              "You have not yet set your bank's URL, please do so from Tools|Options...");
    EXPECT_EQ(boxes[0]["style"], 48);
}

TEST_F(FormsTest, SettingsAreWrittenAndRead)
{
    Call("IniWriteString", {"Settings", "BankUrl", "x"});
    Call("IniWriteLong", {"Window", "Width", 640});

    EXPECT_EQ(Call("IniGetString", {"Settings", "BankUrl"}), "x");
    EXPECT_EQ(Call("IniGetString", {"Settings", "None", "default"}), "default");
    EXPECT_EQ(Call("IniGetLong", {"Window", "Width", 1}), 640);
    EXPECT_EQ(Call("IniGetLong", {"Window", "Height", 1}), 1);
}

TEST_F(FormsTest, AFileDialogHandsItsPropertiesBack)
{
    Do({{"do", "answer"}, {"file", "/home/me/march.final.ofx"}});
    Events();

    const Json chosen = Call(
        "OpenSave", Json::array({"save", Json{{"FileName", "old.ofx"}, {"Filter", "OFX|*.ofx"}}}));
    const Json cancelled = Call("OpenSave", Json::array({"open", Json::object()}));

    EXPECT_EQ(chosen["chosen"], true);
    EXPECT_EQ(chosen["FileName"], "/home/me/march.final.ofx");
    EXPECT_EQ(chosen["FileTitle"], "march.final.ofx");
    EXPECT_EQ(chosen["FileExt"], "ofx");
    EXPECT_EQ(chosen["InitDir"], "/home/me");
    EXPECT_EQ(chosen["MaxFileSize"], 260);
    EXPECT_EQ(chosen.size(), 12u);
    EXPECT_EQ(cancelled["chosen"], false);
    EXPECT_EQ(cancelled["Filter"], "All Files (*.*)|*.*");
    const std::vector<Json> asked = EventsOf("file");
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_EQ(asked[0]["kind"], "save");
    EXPECT_EQ(asked[0]["name"], "old.ofx");
    EXPECT_EQ(Call("Filter", {"A|*.a"}), "A|*.a|");
    EXPECT_EQ(ErrorOf({{"do", "call"},
                       {"op", "OpenSave"},
                       {"args", Json::array({"open", Json{{"Colour", "red"}}})}}),
              0);
}

}  // namespace
}  // namespace clb
