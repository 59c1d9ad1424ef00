// Texts of all scripts, from the typed cell to the database and back by every output.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

/// One text per difficulty: accents, Greek, Chinese, characters beyond the first 65536, a letter
/// with combining marks, right-to-left, and a family joined of four.
const char* const kTexts[] = {
    "Caf\u00e9 M\u00fcller",
    "\u039a\u03b1\u03c6\u03b5\u03bd\u03b5\u03af\u03bf",
    "\u8d85\u5e02\u8d2d\u7269",
    "\U0001F600\U0001F4B6",
    "e\u0301\u0328a\u0308",
    "\u05e7\u05e4\u05d4",
    "\U0001F468\u200d\U0001F469\u200d\U0001F467\u200d\U0001F466",
    "\u00a0\u3000'\"%_*?[#]&\\",
};

std::string Repeated(const std::string& text, int times)
{
    std::string result;
    for (int count = 0; count < times; ++count)
        result += text;
    return result;
}

class UnicodeTest : public Scenario, public testing::WithParamInterface<const char*> {
protected:
    UnicodeTest() { AddAccount("B-1", "Bank", "Checking"); }
};

TEST_P(UnicodeTest, ATransactionKeepsItsTexts)
{
    const std::string text = GetParam();
    ShowAll();
    Click("Checking");
    for (const int column : {2, 4, 5, 6})
        EXPECT_TRUE(Edit("new", column, text));
    EXPECT_TRUE(Save());

    const std::string quoted = ToLine(Json(text));
    EXPECT_EQ(Rows("SELECT Description, CheckID, Category, PayeeName FROM Trans"),
              "[" + quoted + "," + quoted + "," + quoted + "," + quoted + "]");
    EXPECT_EQ(Column(2), quoted);
    EXPECT_EQ(Column(6), quoted);
    EXPECT_EQ(ToLine(Columns()[4]["values"]), "[" + quoted + "]");
    EXPECT_EQ(Rows("SELECT Category FROM Budget"), "[" + quoted + "]");
}

TEST_P(UnicodeTest, AnAccountKeepsItsNameAndNumber)
{
    const std::string text = GetParam();
    Edit("new", 1, text);
    Edit("new", 2, "Cash");
    Edit("new", 3, text);
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT AccountID, Description FROM Account WHERE Type = 'Cash'"),
              ToLine(Json::array({text, text})));
    Click(text);
    EXPECT_EQ(Window()["caption"], text + " - Corvane Ledgerbook");
    EXPECT_EQ(Window()["accountID"], text);
    EXPECT_EQ(Tree().back()["tag"], "4\x01" + text);

    Edit("new", 3, "-5");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Rows("SELECT CurrentBalance FROM Account WHERE Type = 'Cash'"), R"(["-5"])");
}

TEST_P(UnicodeTest, ABudgetLineIsFoundByItsNamesAndShownInItsTip)
{
    const std::string text = GetParam();
    Click("Budget");
    Edit("new", 1, text);
    Edit("new", 2, "10");
    Edit("new", 6, text);
    EXPECT_TRUE(Save());
    AddTransaction("B-1", "2006-3", "-1", text);
    Sql("UPDATE Trans SET Description = Category");
    Call("Refresh");

    EXPECT_EQ(RowsOf("group").at(0)["text"], text + " (1 items)");
    EXPECT_EQ(RowsOf("data").at(0)["values"][6], -1);
    EXPECT_EQ(RowsOf("footer").at(0)["text"], "Total (budgeted/actual): $10.00 / -$1.00");
    EXPECT_EQ(Tip(2, 1), "Number of transactions: 1\r\n\r\nDate: 2006-03-15\r\nDescription: " +
                             text + "\r\nAmount: -$1.00");
}

INSTANTIATE_TEST_SUITE_P(EveryScript, UnicodeTest, testing::ValuesIn(kTexts),
                         [](const testing::TestParamInfo<const char*>& tested) {
                             return "Text" + std::to_string(tested.index);
                         });

struct Longest {
    const char* node;
    int column;
    const char* statement;  ///< reads the stored text
};

std::ostream& operator<<(std::ostream& out, const Longest& text)
{
    return out << text.node << text.column;
}

class LongestTextTest : public Scenario, public testing::WithParamInterface<Longest> {
protected:
    LongestTextTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        ShowAll();
        Click(GetParam().node);
        Edit("new", 1, GetParam().column == 1 ? "" : ToStart());
    }
    static std::string ToStart()
    {
        return std::string(GetParam().node) == "Budget" ? "Food" : "2006-03-01";
    }
};

TEST_P(LongestTextTest, FiftyCharactersAreAcceptedForAnyNumberOfBytes)
{
    for (const char* character : {"x", "\u00e9", "\u8d85", "\U0001F600"}) {
        const std::string text = Repeated(character, 50);
        EXPECT_TRUE(Edit("new", GetParam().column, text));
    }
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows(GetParam().statement), ToLine(Json::array({Repeated("\U0001F600", 50)})));
}

TEST_P(LongestTextTest, FiftyOneAreRefusedAndNothingIsStored)
{
    Escape();
    for (const char* character : {"x", "\u00e9", "\u8d85", "\U0001F600"}) {
        EXPECT_FALSE(Edit("new", GetParam().column, Repeated(character, 51)));
        const Json grid = Grid();
        EXPECT_EQ(grid["editing"], false);
        EXPECT_EQ(grid["dirty"], false);
    }
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT Sequence FROM Trans"), "");
    EXPECT_EQ(Rows("SELECT Sequence FROM Budget"), "");
}

INSTANTIATE_TEST_SUITE_P(EveryShortText, LongestTextTest,
                         testing::Values(Longest{"Budget", 1, "SELECT Category FROM Budget"},
                                         Longest{"Budget", 6, "SELECT CategoryGroup FROM Budget"},
                                         Longest{"Checking", 5, "SELECT Category FROM Trans"}),
                         [](const testing::TestParamInfo<Longest>& tested) {
                             return tested.param.node + std::to_string(tested.param.column);
                         });

class OtherTextsTest : public Scenario {};

TEST_F(OtherTextsTest, HaveNoLimit)
{
    const std::string text = Repeated("\U0001F600", 3000);
    AddAccount("B-1", "Bank", "Checking");
    ShowAll();
    Click("Checking");

    EXPECT_TRUE(Edit("new", 2, text));
    EXPECT_TRUE(Save());

    EXPECT_EQ(Rows("SELECT Description FROM Trans"), ToLine(Json::array({text})));
}

}  // namespace
}  // namespace clb
