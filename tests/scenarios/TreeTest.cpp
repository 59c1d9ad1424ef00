// The tree of views and accounts, and what a click on its nodes shows.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class TreeTest : public Scenario {
protected:
    static std::string Line(const Json& node)
    {
        return ToLine(Json::array({node["text"], node["key"], node["tag"], node["parent"]}));
    }
    std::size_t Refreshes() { return EventsOf("refresh").size(); }
};

TEST_F(TreeTest, WithoutAccountsThereAreTwoNodes)
{
    const Json nodes = Tree();

    ASSERT_EQ(nodes.size(), 2U);
    EXPECT_EQ(Line(nodes[0]), R"json(["Net Worth","","1",0])json");
    EXPECT_EQ(Line(nodes[1]), R"json(["Budget","","2",1])json");
    EXPECT_EQ(nodes[0]["expanded"], true);
    EXPECT_EQ(nodes[0]["selected"], true);
    EXPECT_EQ(nodes[0]["image"], 6);
    EXPECT_EQ(nodes[0]["selectedImage"], 7);
}

TEST_F(TreeTest, AccountsAreBelowTheirTypesInTheOrderOfTheTexts)
{
    AddAccount("L-1", "Loan", "House");
    AddAccount("B-2", "Bank", "Savings");
    AddAccount("B-1", "Bank", "Checking");
    AddAccount("C-1", "Cash", "Wallet");
    AddAccount("I-1", "Investment", "Broker");

    Call("BuildTree");

    const Json nodes = Tree();
    ASSERT_EQ(nodes.size(), 11U);
    EXPECT_EQ(Line(nodes[2]), R"json(["Bank","Bank","3",1])json");
    EXPECT_EQ(Line(nodes[3]), R"json(["Checking","","4\u0001B-1",3])json");
    EXPECT_EQ(Line(nodes[4]), R"json(["Savings","","4\u0001B-2",3])json");
    EXPECT_EQ(Line(nodes[5]), R"json(["Cash","Cash","3",1])json");
    EXPECT_EQ(Line(nodes[8]), R"json(["Broker","","5\u0001I-1",8])json");
    EXPECT_EQ(Line(nodes[10]), R"json(["House","","6\u0001L-1",10])json");
    EXPECT_EQ(nodes[2]["expanded"], true);
}

TEST_F(TreeTest, AClickShowsTheViewOfTheNode)
{
    AddAccount("B-1", "Bank", "Checking");
    AddAccount("L-1", "Loan", "House");
    ShowAll();
    Events();

    Click("Bank");
    EXPECT_EQ(Refreshes(), 1U);
    Json window = Window();
    EXPECT_EQ(window["caption"], "Bank - Corvane Ledgerbook");
    EXPECT_EQ(window["view"], 3);
    EXPECT_EQ(window["accountType"], "Bank");

    Click("Checking");
    EXPECT_EQ(Refreshes(), 1U);
    window = Window();
    EXPECT_EQ(window["view"], 4);
    EXPECT_EQ(window["accountID"], "B-1");
    EXPECT_EQ(window["totals"]["label"], "Balance:");

    Click("House");
    window = Window();
    EXPECT_EQ(window["view"], 6);
    EXPECT_EQ(window["accountID"], "L-1");
}

TEST_F(TreeTest, TheBudgetNodeChangesNeitherAccountNorType)
{
    AddAccount("B-1", "Bank", "Checking");
    ShowAll();
    Click("Bank");
    Click("Checking");

    Click("Budget");

    const Json window = Window();
    EXPECT_EQ(window["view"], 2);
    EXPECT_EQ(window["accountID"], "B-1");
    EXPECT_EQ(window["accountType"], "Bank");
}

TEST_F(TreeTest, AClickOnTheSelectedNodeShowsItsViewAgain)
{
    Click("Budget");
    Events();

    Click("Budget");
    EXPECT_EQ(Refreshes(), 1U);

    Do({{"do", "click"}, {"index", 2}});
    EXPECT_EQ(Refreshes(), 1U);
}

TEST_F(TreeTest, NodesAreFoundByTheirTag)
{
    AddAccount("B-1", "Bank", "Checking");
    Call("BuildTree");

    EXPECT_EQ(Call("FindTreeNodeByTag", {"1"}), 1);
    EXPECT_EQ(Call("FindTreeNodeByTag", {"2"}), 2);
    EXPECT_EQ(Call("FindTreeNodeByTag", {"4\x01"
                                         "B-1"}),
              4);
    EXPECT_EQ(Call("FindTreeNodeByTag", {"9"}), 0);
}

TEST_F(TreeTest, TheSelectedNodesTagIsReadInPieces)
{
    AddAccount("B-1", "Bank", "Checking");
    ShowAll();
    Click("Checking");

    EXPECT_EQ(Call("GetTreeNodeAccountInfo", {0}), "4");
    EXPECT_EQ(Call("GetTreeNodeAccountInfo", {1}), "B-1");

    Click("Budget");
    EXPECT_EQ(Call("GetTreeNodeAccountInfo", {0}), "2");
    EXPECT_EQ(ErrorOf({{"do", "call"}, {"op", "GetTreeNodeAccountInfo"}, {"args", {1}}}), 9);
}

TEST_F(TreeTest, AccountTypesAreComparedExactly)
{
    EXPECT_EQ(Call("ViewFromAccountType", {"Credit Card"}), 4);
    EXPECT_EQ(Call("ViewFromAccountType", {"Investment"}), 5);
    EXPECT_EQ(Call("ViewFromAccountType", {"Loan"}), 6);
    EXPECT_EQ(Call("ViewFromAccountType", {"bank"}), 0);
}

}  // namespace
}  // namespace clb
