#include <gtest/gtest.h>

#include "import/EarlierRecords.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

class HeldRecordsTest : public ::testing::Test {
protected:
    void Add(const std::string& date, const std::string& amount, const std::string& memo,
             const std::string& check, const std::string& run = "QIF1")
    {
        books_.window.Data().Execute(
            "INSERT INTO Trans (AccountID, PostDate, Amount, PayeeName, CheckID, FITID) VALUES "
            "('1', #" +
            date + "#, " + amount + ", '" + memo + "', '" + check + "', '" + run + "')");
    }
    bool Holds(const std::string& date, const std::string& amount, const std::string& memo,
               const std::string& check)
    {
        return held_.Hold({Date::FromIso(date).value(), Money::Parse(amount), memo, check});
    }

    Books books_;
    HeldRecords held_{books_.window.Data(), "1", "QIF2"};
};

TEST_F(HeldRecordsTest, ARecordIsHeldWithItsDayAmountMemoAndCheckNumber)
{
    Add("2006-03-05", "-45", "milk", "17");
    Add("2006-03-06", "-45", "milk", "");

    EXPECT_TRUE(Holds("2006-03-05", "-45", "milk", "17"));
    EXPECT_FALSE(Holds("2006-03-05", "-45", "milk", "18"));
    EXPECT_FALSE(Holds("2006-03-05", "-45", "bread", "17"));
    EXPECT_FALSE(Holds("2006-03-05", "-46", "milk", "17"));
    EXPECT_FALSE(Holds("2006-03-04", "-45", "milk", "17"));
    EXPECT_FALSE(Holds("2006-03-07", "-45", "milk", "17"));
    EXPECT_FALSE(Holds("2006-03-06", "-45", "milk", "17"));
}

TEST_F(HeldRecordsTest, WithoutACheckNumberAnyOneWill)
{
    Add("2006-03-05", "-45", "milk", "17");

    EXPECT_TRUE(Holds("2006-03-05", "-45", "milk", ""));
}

TEST_F(HeldRecordsTest, EachMonthIsReadWhenItIsAskedFor)
{
    Add("2006-12-31", "1", "last", "");
    Add("2007-01-01", "1", "first", "");
    EXPECT_TRUE(Holds("2006-12-31", "1", "last", ""));
    EXPECT_TRUE(Holds("2007-01-01", "1", "first", ""));
    EXPECT_FALSE(Holds("2007-02-01", "1", "first", ""));
}

TEST_F(HeldRecordsTest, RowsOfTheRunAndOfOtherAccountsDoNotCount)
{
    Add("2006-03-05", "1", "own", "", "QIF2");
    Add("2006-03-05", "1", "other", "");
    books_.window.Data().Execute("UPDATE Trans SET AccountID = '2' WHERE PayeeName = 'other'");

    EXPECT_FALSE(Holds("2006-03-05", "1", "own", ""));
    EXPECT_FALSE(Holds("2006-03-05", "1", "other", ""));
}

}  // namespace
}  // namespace clb
