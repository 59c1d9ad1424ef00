// Which texts a cell accepts, by the type of its column, and which values they become.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

struct Typed {
    const char* text;
    const char* stored;  ///< in JSON; "": the text is refused
};

class TypedTextsTest : public Scenario {
protected:
    TypedTextsTest()
    {
        AddAccount("B-1", "Bank", "Checking");
        AddAccount("I-1", "Investment", "Broker");
        AddAccount("L-1", "Loan", "House");
        ShowAll();
    }

    /// Types each text into the new row's cell; a refused text must leave what was there.
    void ExpectTyped(int column, const std::vector<Typed>& texts)
    {
        std::string before = "null";
        for (const Typed& typed : texts) {
            SCOPED_TRACE(typed.text);
            const bool taken = *typed.stored != 0;
            EXPECT_EQ(Edit("new", column, typed.text), taken);
            before = taken ? typed.stored : before;
            const Json line = RowsOf("new").at(0)["values"];
            EXPECT_EQ(ToLine(line[static_cast<std::size_t>(column - 1)]), before);
            EXPECT_EQ(Grid()["editing"], false);
        }
    }
};

TEST_F(TypedTextsTest, Amounts)
{
    Click("Checking");

    ExpectTyped(3, {{"1,234.50", R"("1234.5")"}, {"(5)", R"("-5")"}, {"much", ""}, {"", "null"}});
}

TEST_F(TypedTextsTest, Dates)
{
    Click("Checking");

    ExpectTyped(1, {{"2006-03-05", R"("2006-03-05")"},
                    {"2006-02-29", ""},
                    {"2004-02-29", R"("2004-02-29")"},
                    {"03/05/2006", ""},
                    {"2006-13-01", ""},
                    {"5 March", ""},
                    {"", "null"}});
}

TEST_F(TypedTextsTest, Rates)
{
    Click("House");

    ExpectTyped(4, {{"4.1", "4.1"}, {"0.1", "0.1"}, {"1e60", ""}, {"low", ""}, {"", "null"}});
    Edit("new", 4, "4.1");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Rows("SELECT InterestRate FROM Loan"), "[4.1]");
}

TEST_F(TypedTextsTest, ARefusedTextDoesNotChangeARowThatIsNotInEdit)
{
    AddTransaction("B-1", "2006-3", "-9");
    Click("Checking");
    Events();

    EXPECT_FALSE(Edit(1, 3, "much"));

    EXPECT_EQ(Current(), "1/3");
    EXPECT_EQ(Column(3), R"("-9")");
    EXPECT_EQ(EventsOf("box").size(), 0U);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Rows("SELECT Amount FROM Trans"), R"(["-9"])");
}

TEST_F(TypedTextsTest, AnEditOfACellThatIsNotThereIsAnError)
{
    EXPECT_EQ(ErrorOf({{"do", "edit"}, {"row", 99}, {"col", 1}, {"text", "x"}}), 0);
    EXPECT_EQ(ErrorOf({{"do", "edit"}, {"row", 1}, {"col", 99}, {"text", "x"}}), 0);
    EXPECT_EQ(ErrorOf({{"do", "edit"}, {"row", 1}, {"col", 0}, {"text", "x"}}), 0);
    EXPECT_EQ(ErrorOf({{"do", "edit"}, {"row", "last"}, {"col", 1}, {"text", "x"}}), 0);
    EXPECT_EQ(ErrorOf({{"do", "edit"}, {"row", 1}, {"col", 1}}), 0);
    EXPECT_EQ(Grid()["dirty"], false);
}

}  // namespace
}  // namespace clb
