// Splitting a transaction into two pieces.
#include <gtest/gtest.h>

#include "base/Text.h"
#include "data/ViewColumns.h"
#include "tests/data/StoreFixture.h"

namespace clb {
namespace {

using Texts = std::vector<std::string>;

class SplitTest : public StoreTest {
protected:
    /// Shows the register with one transaction of -100, whose number is 1.
    SplitTest()
    {
        AddTransaction(1, "10", "-100", 2006, 3, "Food");
        Execute("UPDATE Trans SET Description = 'Shop'");
        shown_.view = vwAccount;
        shown_.account = "10";
        Store().GetRows();
        row_.cells[Register::Sequence] = std::int32_t{1};
    }
    void Split(std::int32_t piece, const std::string& first, const std::string& second)
    {
        Store().SplitTransaction(1, piece, Money::Parse(first), Money::Parse(second));
    }
    Texts Pieces()
    {
        return Rows("SELECT SubSequence, Amount, Description FROM Trans ORDER BY SubSequence");
    }
};

TEST_F(SplitTest, ANewPieceIsACopyExceptForAmountNumberAndDescription)
{
    Execute(
        "UPDATE Trans SET CheckID = '1001', PayeeName = 'a note', FITID = 'bank-7', Category = "
        "'Kids'' toys', PostDate = #2006-02-27 12:30:00#");

    Split(0, "-70", "-30");

    EXPECT_EQ(Rows("SELECT * FROM Trans ORDER BY SubSequence"),
              (Texts{"1|0|10|2006-02-27 12:30:00|Shop|-70|1001|Kids' toys|a note|2006|3|bank-7",
                     "1|1|10|2006-02-27 12:30:00|Shop (split #1)|-30|1001|Kids' toys|a note|2006|3|"
                     "bank-7"}));
}

TEST_F(SplitTest, APieceIsSplitAgainIntoTheNumberAfterTheLargest)
{
    Split(0, "-60", "-40");
    Split(0, "-50", "-10");
    Split(1, "-25", "-15");

    EXPECT_EQ(Pieces(), (Texts{"0|-50|Shop", "1|-25|Shop (split #1)", "2|-10|Shop (split #2)",
                               "3|-15|Shop (split #1) (split #3)"}));
}

TEST_F(SplitTest, AfterAPieceWasDeletedTheLargestThatIsLeftCounts)
{
    Execute("UPDATE Trans SET SubSequence = 7");

    Split(7, "-50", "-50");

    EXPECT_EQ(Pieces(), (Texts{"7|-50|Shop", "8|-50|Shop (split #8)"}));
}

TEST_F(SplitTest, APieceWithoutDescriptionHasItsNumberOnly)
{
    Execute("UPDATE Trans SET Description = NULL");

    Split(0, "-50", "-50");

    EXPECT_EQ(Pieces(), (Texts{"0|-50|", "1|-50| (split #1)"}));
    EXPECT_EQ(Rows("SELECT SubSequence FROM Trans WHERE Description IS NULL"), Texts{"0"});
}

/// A letter, an accented one, an ideograph, and one beyond the basic plane.
class PieceNameTest : public SplitTest, public testing::WithParamInterface<const char*> {
protected:
    static std::string Name(std::size_t length)
    {
        std::string name;
        for (std::size_t at = 0; at < length; ++at)
            name += GetParam();
        return name;
    }
    /// The description of the piece that is split off a transaction with a long description.
    std::string PieceOf(std::size_t length)
    {
        Execute("DELETE FROM Trans WHERE SubSequence > 0");
        Execute("UPDATE Trans SET Description = '" + Name(length) + "'");
        Split(0, "-70", "-30");
        EXPECT_EQ(Rows("SELECT Description FROM Trans WHERE SubSequence = 0"), Texts{Name(length)});
        return Rows("SELECT Description FROM Trans WHERE SubSequence = 1").at(0);
    }
};

TEST_P(PieceNameTest, IsCutAtFiftyCharactersAfterItsNumberIsAdded)
{
    EXPECT_EQ(PieceOf(39), Name(39) + " (split #1)");
    EXPECT_EQ(PieceOf(40), Name(40) + " (split #1");
    EXPECT_EQ(PieceOf(45), Name(45) + " (spl");
    EXPECT_EQ(PieceOf(50), Name(50));
    EXPECT_EQ(PieceOf(80), Name(50));
}

INSTANTIATE_TEST_SUITE_P(EveryWidth, PieceNameTest,
                         testing::Values("x", "\u00e9", "\u8d85", "\U0001F600"));

}  // namespace
}  // namespace clb
