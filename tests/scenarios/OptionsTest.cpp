// The options: the bank's address, and which accounts count in the budget.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class OptionsTest : public Scenario {
protected:
    OptionsTest()
    {
        AddAccount("V-1", "Credit Card", "Visa");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("B'1", "Bank", "Checking");
        AddAccount("L-1", "Loan", "House");
        AddAccount("C-1", "Cash", "Wallet");
        AddAccount("X-1", "bank", "Odd");
        ShowAll();
    }

    /// Runs the command and works the dialog.
    void Options(const std::string& steps)
    {
        AnswerForm("frmOptions", steps);
        Menu("mnuT_Options");
    }
    /// The dialog's controls as it opens.
    Json Opened()
    {
        Events();
        Options("[]");
        return EventsOf("form").at(0)["controls"];
    }
    std::string Included()
    {
        return Rows("SELECT AccountID, BudgetInclude FROM Account ORDER BY AccountID");
    }
};

TEST_F(OptionsTest, TheDialogShowsTheAddressAndTheAccountsThatMayCountAsTheyWereAdded)
{
    Call("IniWriteString", {"Settings", "BankUrl", "https://bank.example/"});
    Sql("UPDATE Account SET BudgetInclude = FALSE WHERE AccountID = 'C-1'");

    const Json controls = Opened();

    EXPECT_EQ(controls["txtBankUrl"]["text"], "https://bank.example/");
    EXPECT_EQ(controls["txtBankUrl"]["enabled"], true);
    EXPECT_EQ(controls["btnOK"]["enabled"], true);
    EXPECT_EQ(controls["btnCancel"]["enabled"], true);
    std::string rows;
    for (const auto& control : controls.items())
        if (control.value().contains("rows")) {
            EXPECT_EQ(control.value()["columns"][0], "Include");
            rows = ToLine(control.value()["rows"]);
        }
    EXPECT_EQ(rows, R"([[true,"Visa","V-1"],[true,"Checking","B'1"],[false,"Wallet","C-1"]])");
}

TEST_F(OptionsTest, WithoutASettingsFileTheAddressIsEmpty)
{
    EXPECT_EQ(Opened()["txtBankUrl"]["text"], "");
    EXPECT_FALSE(folder.Holds("cvlb.ini"));
}

TEST_F(OptionsTest, OkStoresTheAddressAndEachTickOnce)
{
    Options(R"([{"set":"txtBankUrl","to":"https://bank.example/"},{"check":{"row":2},"to":false},
                {"check":{"row":3},"to":false},{"check":{"row":3},"to":true},{"press":"btnOK"}])");

    EXPECT_EQ(Included(), R"(["B'1",false] ["C-1",true] ["I-1",true] ["L-1",true] ["V-1",true] )"
                          R"(["X-1",true])");
    EXPECT_EQ(folder.Read("cvlb.ini"), "[Settings]\r\nBankUrl=https://bank.example/\r\n");
}

TEST_F(OptionsTest, OkRunsOneUpdateForEachAccountEvenIfNothingChanged)
{
    Sql("UPDATE Account SET BudgetInclude = FALSE WHERE AccountID = 'C-1'");
    const std::string before = Rows("SELECT * FROM Account");
    Trace();

    Options(R"([{"press":"btnOK"}])");

    const std::string sent = Statements();
    EXPECT_TRUE(sent.starts_with(
        "select BudgetInclude, Description, AccountID from Account where Type in "
        "('Bank','Cash','Credit Card')\n"
        "UPDATE Account SET BudgetInclude = TRUE WHERE AccountID = 'V-1' AND NOT BudgetInclude = "
        "TRUE\n"
        "UPDATE Account SET BudgetInclude = TRUE WHERE AccountID = 'B''1' AND NOT BudgetInclude = "
        "TRUE\n"
        "UPDATE Account SET BudgetInclude = FALSE WHERE AccountID = 'C-1' AND NOT BudgetInclude = "
        "FALSE\n"))
        << sent;
    EXPECT_EQ(Rows("SELECT * FROM Account"), before);
}

// Symptom: the tick of the second account was the one just stored for the first.
TEST_F(OptionsTest, OfTwoAccountsWithOneNumberTheLastTickCounts)
{
    Sql("UPDATE Account SET AccountID = 'V-1' WHERE AccountID = 'C-1'");

    Options(R"([{"check":{"row":1},"to":false},{"press":"btnOK"}])");

    EXPECT_EQ(Rows("SELECT BudgetInclude FROM Account WHERE AccountID = 'V-1'"), "[true] [true]");
}

TEST_F(OptionsTest, CancelWritesNothing)
{
    const std::string before = Included();

    Options(R"([{"set":"txtBankUrl","to":"https://bank.example/"},{"check":{"row":1},"to":false},
                {"press":"btnCancel"}])");

    EXPECT_EQ(Included(), before);
    EXPECT_FALSE(folder.Holds("cvlb.ini"));
}

TEST_F(OptionsTest, TheViewIsRefreshedOnceForEitherButton)
{
    for (const char* steps : {R"([{"press":"btnOK"}])", R"([{"press":"btnCancel"}])"}) {
        Events();
        Options(steps);
        EXPECT_EQ(EventsOf("refresh").size(), 1U) << steps;
    }
}

TEST_F(OptionsTest, AnUntickedAccountDisappearsFromActualsTipsFootersAndTotalsAtOnce)
{
    AddBudget("2006-3", "Food", "-100", "Household");
    AddTransaction("V-1", "2006-3", "-9", "Food");
    AddTransaction("B'1", "2006-3", "-30", "Food");
    Click("Budget");
    EXPECT_EQ(Column(7), "-39.0");

    Options(R"([{"check":{"row":2},"to":false},{"press":"btnOK"}])");

    EXPECT_EQ(Column(7), "-9.0");
    EXPECT_EQ(Column(8), "91.0");
    EXPECT_EQ(RowsOf("footer").at(0)["text"], "Total (budgeted/actual): -$100.00 / -$9.00");
    EXPECT_EQ(Window()["totals"]["second"], "-9.00");
    const std::string tip = Tip(RowsOf("data").at(0)["row"], 1);
    EXPECT_TRUE(tip.starts_with("Number of transactions: 1\r\n")) << tip;

    Options(R"([{"check":{"row":2},"to":true},{"press":"btnOK"}])");
    EXPECT_EQ(Column(7), "-39.0");
}

TEST_F(OptionsTest, AnEmptyAddressIsStoredAndTheLinkAsksForOne)
{
    Call("IniWriteString", {"Settings", "BankUrl", "https://bank.example/"});

    Options(R"([{"set":"txtBankUrl","to":""},{"press":"btnOK"}])");
    Events();
    Press("Link");

    EXPECT_EQ(folder.Read("cvlb.ini"), "[Settings]\r\nBankUrl=\r\n");
    EXPECT_EQ(EventsOf("box").size(), 1U);
}

TEST_F(OptionsTest, WithoutAccountsThereIsNothingToTick)
{
    Sql("DELETE FROM Account");
    Events();

    Options(R"([{"check":{"row":1},"to":false},{"press":"btnOK"}])");

    EXPECT_EQ(EventsOf("step").size(), 1U);
    EXPECT_TRUE(folder.Holds("cvlb.ini"));
}

TEST_F(OptionsTest, TheRefreshDiscardsAnUnsavedRow)
{
    Edit(1, 1, "Never saved");

    Options(R"([{"press":"btnCancel"}])");

    EXPECT_EQ(Grid()["dirty"], false);
    EXPECT_EQ(Rows("SELECT Sequence FROM Account WHERE Description = 'Never saved'"), "");
}

}  // namespace
}  // namespace clb
