#include <gtest/gtest.h>

#include "import/EarlierRecords.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

class EarlierRecordsTest : public ::testing::Test {
protected:
    void Add(const std::string& date, const std::string& amount, const std::string& memo,
             const std::string& check, const std::string& run = "QIF1")
    {
        books_.window.Data().Execute(
            "INSERT INTO Trans (AccountID, PostDate, Amount, PayeeName, CheckID, FITID) VALUES "
            "('1', #" +
            date + "#, " + amount + ", '" + memo + "', '" + check + "', '" + run + "')");
    }
    bool Contains(const std::string& date, const std::string& amount, const std::string& memo,
                  const std::string& check)
    {
        return records_.Contains({Date::FromIso(date).value(), Money::Parse(amount), memo, check});
    }

    Books books_;
    EarlierRecords records_{books_.window.Data(), "1", "QIF2"};
};

TEST_F(EarlierRecordsTest, ARecordIsFoundByDateAmountMemoAndCheckNumber)
{
    Add("2006-03-05", "-45", "milk", "17");
    Add("2006-03-06", "-45", "milk", "");

    EXPECT_TRUE(Contains("2006-03-05", "-45", "milk", "17"));
    EXPECT_FALSE(Contains("2006-03-05", "-45", "milk", "18"));
    EXPECT_FALSE(Contains("2006-03-05", "-45", "bread", "17"));
    EXPECT_FALSE(Contains("2006-03-05", "-46", "milk", "17"));
    EXPECT_FALSE(Contains("2006-03-04", "-45", "milk", "17"));
    EXPECT_FALSE(Contains("2006-03-07", "-45", "milk", "17"));
    EXPECT_FALSE(Contains("2006-03-06", "-45", "milk", "17"));
}

TEST_F(EarlierRecordsTest, WithoutACheckNumberAnyCheckNumberMatches)
{
    Add("2006-03-05", "-45", "milk", "17");

    EXPECT_TRUE(Contains("2006-03-05", "-45", "milk", ""));
}

TEST_F(EarlierRecordsTest, EachMonthIsReadWhenItIsLookedUp)
{
    Add("2006-12-31", "1", "last", "");
    Add("2007-01-01", "1", "first", "");
    EXPECT_TRUE(Contains("2006-12-31", "1", "last", ""));
    EXPECT_TRUE(Contains("2007-01-01", "1", "first", ""));
    EXPECT_FALSE(Contains("2007-02-01", "1", "first", ""));
}

TEST_F(EarlierRecordsTest, RowsOfTheImportAndOfOtherAccountsDoNotCount)
{
    Add("2006-03-05", "1", "own", "", "QIF2");
    Add("2006-03-05", "1", "other", "");
    books_.window.Data().Execute("UPDATE Trans SET AccountID = '2' WHERE PayeeName = 'other'");

    EXPECT_FALSE(Contains("2006-03-05", "1", "own", ""));
    EXPECT_FALSE(Contains("2006-03-05", "1", "other", ""));
}

}  // namespace
}  // namespace clb
