// The grid's rows: what they hold, which may be saved, and what remains after a deletion.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class RowsTest : public Scenario {
protected:
    /// Writes cells of the current row; `cells` has columns and values in turn.
    void Write(const Json& cells)
    {
        for (std::size_t at = 0; at + 1 < cells.size(); at += 2)
            Call("ColumnValueSet", Json::array({cells[at], cells[at + 1]}));
    }
    /// Result, column and message of the check.
    std::string Check()
    {
        const Json reply = CallReply("ValidRow", {0, ""});
        return ToLine(Json::array({reply["result"], reply["args"][0], reply["args"][1]}));
    }
    std::string Cell(int column) { return ToLine(Call("ColumnValue", {column})); }
    void OnNewRow() { Call("MoveToRowKey", {nullptr}); }
};

TEST_F(RowsTest, AnAccountNeedsDescriptionNumberAndType)
{
    OnNewRow();

    EXPECT_EQ(Check(), R"json([false,1,"Please enter an account description."])json");
    Write({1, "Checking"});
    EXPECT_EQ(Check(), R"json([false,3,"Please enter an account #."])json");
    Write({3, "B-1"});
    EXPECT_EQ(Check(), R"json([false,2,"Please enter an account type."])json");
    Write({2, "Bank"});
    EXPECT_EQ(ToLine(CallReply("ValidRow", Json::array())["result"]), "true");
}

TEST_F(RowsTest, ANewTransactionGetsTheAccountAndMonthShownNeverThatOfItsDate)
{
    AddAccount("B-1", "Bank", "Checking");
    AddTransaction("B-1", "2006-3", "-9");
    ShowAll();
    Click("Checking");
    OnNewRow();
    Write({1, "2006-05-20"});

    EXPECT_EQ(Call("ValidRow", {0, ""}), true);

    EXPECT_EQ(Cell(7), R"json("B-1")json");
    EXPECT_EQ(Cell(8), "2006");
    EXPECT_EQ(Cell(9), "3");
    EXPECT_EQ(Cell(11), "2");
    EXPECT_EQ(Cell(5), R"json("(none)")json");
    EXPECT_EQ(Cell(12), "null");
    EXPECT_EQ(Rows("SELECT Category, Year, Period FROM Budget"), R"json(["(none)",2006,3])json");
}

TEST_F(RowsTest, TextRoutinesKeepTheirRules)
{
    EXPECT_EQ(Call("ToSqlString", {"O'Neil's"}), "O''Neil''s");
    EXPECT_EQ(Call("ToSqlString", {""}), "");
    EXPECT_EQ(Call("TruncateString", {"  Groceries and more  ", 9}), "Groceries");
    EXPECT_EQ(Call("TruncateString", {"  Groceries and more  ", 10}), "Groceries");
    EXPECT_EQ(Call("Max", {-2, 5}), 5);
    EXPECT_EQ(Call("Min", {-2, 5}), -2);
}

TEST_F(RowsTest, RowsAreFoundByConditionAndByCriterion)
{
    AddAccount("B-1", "Bank", "Checking");

    EXPECT_EQ(Call("RowExists", {"Account", "AccountID = 'B-1'"}), true);
    EXPECT_EQ(Call("RowExists", {"Account", "AccountID = 'B-2'"}), false);
    EXPECT_EQ(Call("CanFind", {"SELECT * FROM Account", "Description = 'Checking'"}), true);
    EXPECT_EQ(Call("CanFind", {"SELECT * FROM Account", "Description = 'Wallet'"}), false);
    EXPECT_EQ(Call("CanFind", {"SELECT * FROM Trans", "Description = 'Wallet'"}), false);
}

TEST_F(RowsTest, AGridDescribesItsColumnsAndRows)
{
    AddAccount("B-1", "Bank", "Checking", "12.5");
    ShowAll();

    const Json grid = Grid();

    EXPECT_EQ(grid["columns"].size(), 6U);
    EXPECT_EQ(grid["columns"][1]["caption"], "Type");
    EXPECT_EQ(ToLine(grid["columns"][1]["values"]),
              R"json(["Bank","Cash","Credit Card","Investment","Loan"])json");
    EXPECT_EQ(grid["columns"][1]["popup"]["type"], 4);
    EXPECT_EQ(grid["columns"][4]["readOnly"], true);
    EXPECT_EQ(grid["columns"][4]["type"], "money");
    EXPECT_EQ(grid["columns"][5]["hidden"], true);
    EXPECT_EQ(ToLine(grid["columns"][0]["values"]), "null");
    EXPECT_EQ(ToLine(grid["rows"][0]),
              R"json({"row":1,"kind":"data","key":1,)json"
              R"json("values":["Checking","Bank","B-1","12.5","12.5",1]})json");
    EXPECT_EQ(ToLine(grid["rows"][1]),
              R"json({"row":2,"kind":"new","values":[null,null,null,null,null,null]})json");
    EXPECT_EQ(ToLine(grid["current"]), R"json({"row":1,"col":1})json");
    EXPECT_EQ(grid["editing"], false);
    EXPECT_EQ(grid["dirty"], false);
    EXPECT_EQ(grid["showToolTips"], true);
}

TEST_F(RowsTest, AValueOfAnotherTypeIsARuntimeError)
{
    AddAccount("B-1", "Bank", "Checking");
    ShowAll();

    EXPECT_EQ(ErrorOf({{"do", "call"}, {"op", "ColumnValueSet"}, {"args", {4, "many"}}}), 13);
    EXPECT_EQ(ErrorOf({{"do", "call"}, {"op", "ColumnValue"}, {"args", {99}}}), 9);
    EXPECT_EQ(ErrorOf({{"do", "call"}, {"op", "MoveToRowKey"}, {"args", {99}}}), 35601);
    EXPECT_EQ(Grid()["dirty"], false);
}

}  // namespace
}  // namespace clb
