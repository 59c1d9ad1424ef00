#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>
#include <string>

#include "data/EmptyDatabase.h"
#include "history/History.h"
#include "search/TransactionFinder.h"
#include "tests/support/TempFolder.h"

namespace clb {
namespace {

class TransactionFinderTest : public testing::Test {
protected:
    void SetUp() override
    {
        path_ = folder_.Write("clb.mdb", EmptyDatabase());
        connection_.Open("Data Source=" + path_);
        Do("INSERT INTO Account (AccountID, Description, Type) VALUES ('C1', 'Checking', 'Bank')");
        Add(1, "Corner Grocery", "-12.50", "2026-03-05");
        Add(2, "Station Café", "-4", "2026-03-07");
        Add(3, "Salary", "2000", "2026-02-28");
        connection_.Settle();
    }

    void Do(const std::string& sql) { connection_.Execute(sql); }
    void Add(int sequence, const std::string& description, const std::string& amount,
             const std::string& date)
    {
        Do("INSERT INTO Trans (Sequence, SubSequence, AccountID, PostDate, Description, Amount, "
           "Category, PayeeName, CheckID, Year, Period) VALUES (" +
           std::to_string(sequence) + ", 0, 'C1', #" + date + "#, '" + description + "', " +
           amount + ", 'Food', 'note', '77', 2026, 3)");
    }
    /// What another program does to the file.
    void Elsewhere(const std::string& sql) const
    {
        sqlite3* other = nullptr;
        ASSERT_EQ(sqlite3_open(path_.c_str(), &other), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(other, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(other);
        sqlite3_close(other);
    }
    /// Numbers of the found transactions in their order, and "= count, sum".
    std::string Found(const std::string& words)
    {
        const FoundTransactions found = finder_->Find(SearchQuery(words));
        std::string text;
        for (const SearchHit& hit : finder_->Read(found.rows))
            text += ToText(hit.sequence) + " ";
        return text + "= " + std::to_string(found.count) + ", " +
               (found.sum ? found.sum->ToText() : "no sum");
    }

    TempFolder folder_{TempFolder::Memory()};
    std::string path_;
    Connection connection_;
    std::unique_ptr<TransactionFinder> finder_ = std::make_unique<TransactionFinder>(connection_);
};

TEST_F(TransactionFinderTest, AllTermsMustHoldAndTheNewestComesFirst)
{
    EXPECT_EQ(Found("food"), "2 1 3 = 3, 1983.5");
    EXPECT_EQ(Found("food -cafe"), "1 3 = 2, 1987.5");
    EXPECT_EQ(Found("checking 2026-03 >10"), "1 = 1, -12.5");
    EXPECT_EQ(Found("nothing"), "= 0, 0");
    EXPECT_EQ(Found(""), "= 0, 0");
}

TEST_F(TransactionFinderTest, PrefixesLookIntoOneTextOnly)
{
    EXPECT_EQ(Found("payee:cafe"), "2 = 1, -4");
    EXPECT_EQ(Found("notes:cafe"), "= 0, 0");
    EXPECT_EQ(Found("notes:NOTE"), "2 1 3 = 3, 1983.5");
    EXPECT_EQ(Found("account:check category:food payee:salary"), "3 = 1, 2000");
    EXPECT_EQ(Found("payee:77"), "= 0, 0");
    EXPECT_EQ(Found("77"), "2 1 3 = 3, 1983.5");
}

TEST_F(TransactionFinderTest, RowsOfOneDayGoByNumberAndPiece)
{
    Add(12, "x", "1", "2026-03-05");
    Add(11, "x", "1", "2026-03-05");
    Do("UPDATE Trans SET SubSequence = 1 WHERE Sequence = 1");
    Add(1, "x", "1", "2026-03-05");

    const FoundTransactions found = finder_->Find(SearchQuery("2026-03-05"));

    std::string numbers;
    for (const SearchHit& hit : finder_->Read(found.rows))
        numbers += ToText(hit.sequence) + "." + ToText(hit.subSequence) + " ";
    EXPECT_EQ(numbers, "12.0 11.0 1.0 1.1 ");
}

TEST_F(TransactionFinderTest, OnlyAsManyRowsAsWantedAreReturned)
{
    const FoundTransactions found = finder_->Find(SearchQuery("food"), 1);

    EXPECT_EQ(found.count, 3U);
    EXPECT_EQ(found.rows.size(), 1U);
}

TEST_F(TransactionFinderTest, AHitHasWhatAListShows)
{
    const SearchHit hit = finder_->Read(finder_->Find(SearchQuery("cafe")).rows).at(0);

    EXPECT_EQ(ToText(hit.account), "Checking");
    EXPECT_EQ(ToText(hit.accountID), "C1");
    EXPECT_EQ(ToText(hit.date), "2026-03-07");
    EXPECT_EQ(ToText(hit.description), "Station Café");
    EXPECT_EQ(ToText(hit.amount), "-4");
    EXPECT_EQ(ToText(hit.category), "Food");
    EXPECT_EQ(ToText(hit.notes), "note");
    EXPECT_EQ(ToText(hit.checkID), "77");
    EXPECT_EQ(ToText(hit.year), "2026");
    EXPECT_EQ(ToText(hit.period), "3");
}

TEST_F(TransactionFinderTest, OwnChangesAreFoundInThePendingGroupAndAfterIt)
{
    EXPECT_EQ(Found("bakery"), "= 0, 0");

    Add(4, "Bakery", "-3", "2026-03-06");
    EXPECT_EQ(Found("bakery"), "4 = 1, -3");
    EXPECT_EQ(Found("food"), "2 4 1 3 = 4, 1980.5");
    connection_.Settle();
    EXPECT_EQ(Found("bakery"), "4 = 1, -3");

    Do("UPDATE Trans SET Description = 'Baker', Amount = -5, PostDate = #2026-03-08# WHERE "
       "Sequence = 4");
    EXPECT_EQ(Found("bakery"), "= 0, 0");
    EXPECT_EQ(Found("food"), "4 2 1 3 = 4, 1978.5");

    Do("DELETE FROM Trans WHERE Sequence = 2");
    EXPECT_EQ(Found("cafe"), "= 0, 0");
    EXPECT_EQ(Found("food"), "4 1 3 = 3, 1982.5");
    Do("DELETE FROM Trans");
    EXPECT_EQ(Found("food"), "= 0, 0");
}

TEST_F(TransactionFinderTest, WhatIsTakenBackIsAsItWas)
{
    EXPECT_EQ(Found("food"), "2 1 3 = 3, 1983.5");
    Do("UPDATE Trans SET Description = 'Other' WHERE Sequence = 2");
    Add(4, "Bakery", "-3", "2026-03-06");
    EXPECT_EQ(Found("other"), "2 = 1, -4");
    connection_.Abandon();

    EXPECT_EQ(Found("other"), "= 0, 0");
    EXPECT_EQ(Found("food"), "2 1 3 = 3, 1983.5");
    EXPECT_EQ(Found("cafe"), "2 = 1, -4");
}

/// The second change was not read when both were taken back.
TEST_F(TransactionFinderTest, WhatIsTakenBackBeforeAndAfterASearchIsAsItWas)
{
    EXPECT_EQ(Found("cafe"), "2 = 1, -4");
    Do("UPDATE Trans SET Description = 'Other' WHERE Sequence = 2");
    EXPECT_EQ(Found("cafe"), "= 0, 0");
    Do("UPDATE Trans SET Description = 'Third' WHERE Sequence = 1");
    connection_.Abandon();

    EXPECT_EQ(Found("cafe"), "2 = 1, -4");
    EXPECT_EQ(Found("grocery"), "1 = 1, -12.5");
}

TEST_F(TransactionFinderTest, AFailedQueryLeavesTheRowsAsTheyWere)
{
    EXPECT_EQ(Found("food"), "2 1 3 = 3, 1983.5");
    EXPECT_ANY_THROW(Do("UPDATE Trans SET Amount = Amount * 900000000000000"));

    EXPECT_EQ(Found("food"), "2 1 3 = 3, 1983.5");
}

TEST_F(TransactionFinderTest, UndoAndRedoAreFollowed)
{
    History history(
        connection_, [] { return *Date::Of(2026, 3, 4); }, "this one");
    EXPECT_EQ(Found("cafe"), "2 = 1, -4");
    history.Begin("Delete");
    Do("DELETE FROM Trans WHERE Sequence = 2");
    connection_.Settle();
    history.End();
    EXPECT_EQ(Found("cafe"), "= 0, 0");

    history.Undo(1);
    connection_.Settle();
    EXPECT_EQ(Found("cafe"), "2 = 1, -4");
    history.Redo(1);
    connection_.Settle();
    EXPECT_EQ(Found("cafe"), "= 0, 0");
}

TEST_F(TransactionFinderTest, OtherProgramsChangesAreFound)
{
    EXPECT_EQ(Found("food"), "2 1 3 = 3, 1983.5");
    Elsewhere("UPDATE Trans SET Description = 'Boulangerie', Amount = 10000 WHERE Sequence = 2");
    EXPECT_EQ(Found("cafe"), "= 0, 0");
    EXPECT_EQ(Found("boulangerie"), "2 = 1, 1");

    // One after the other, so that both ways meet.
    Add(4, "Bakery", "-3", "2026-03-06");
    connection_.Settle();
    Elsewhere("DELETE FROM Trans WHERE Sequence = 1");
    Add(5, "Butcher", "-9", "2026-03-01");
    EXPECT_EQ(Found("food"), "2 4 5 3 = 4, 1989");
    Elsewhere("SELECT 1");
    connection_.Settle();
    EXPECT_EQ(Found("food"), "2 4 5 3 = 4, 1989");
}

TEST_F(TransactionFinderTest, AWriterElsewhereDoesNotKeepTheSearchWaiting)
{
    EXPECT_EQ(Found("cafe"), "2 = 1, -4");
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path_.c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE; DELETE FROM Trans", nullptr, nullptr, nullptr),
              SQLITE_OK);

    EXPECT_EQ(finder_->Find(SearchQuery("cafe")).count, 1U);

    sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    EXPECT_EQ(Found("cafe"), "= 0, 0");
}

TEST_F(TransactionFinderTest, AccountsNamesAreFollowed)
{
    EXPECT_EQ(Found("checking"), "2 1 3 = 3, 1983.5");
    Do("UPDATE Account SET Description = 'Household'");
    EXPECT_EQ(Found("checking"), "= 0, 0");
    EXPECT_EQ(Found("account:house cafe"), "2 = 1, -4");

    Do("UPDATE Account SET AccountID = 'C2'");
    EXPECT_EQ(Found("account:house"), "2 1 3 = 3, 1983.5");
    Do("INSERT INTO Account (AccountID, Description, Type) VALUES ('N', 'New', 'Bank')");
    Do("UPDATE Trans SET AccountID = 'N' WHERE Sequence = 1");
    EXPECT_EQ(Found("account:new"), "1 = 1, -12.5");
    Do("DELETE FROM Account WHERE AccountID = 'N'");
    EXPECT_EQ(Found("account:n"), "= 0, 0");
}

TEST_F(TransactionFinderTest, ChangesOfTheTableAreFollowed)
{
    EXPECT_EQ(Found("cafe"), "2 = 1, -4");
    Do("ALTER TABLE Trans ADD COLUMN Extra LONG");
    EXPECT_EQ(Found("cafe"), "2 = 1, -4");
}

TEST_F(TransactionFinderTest, ManyChangesAreFollowed)
{
    EXPECT_EQ(Found("food"), "2 1 3 = 3, 1983.5");
    for (int i = 0; i < 3000; ++i)
        Add(10 + i, i % 2 == 0 ? "Even" : "Odd", "1", "2025-01-01");
    EXPECT_EQ(finder_->Find(SearchQuery("even")).count, 1500U);
    Do("UPDATE Trans SET Description = 'Changed' WHERE Description = 'Odd'");
    EXPECT_EQ(finder_->Find(SearchQuery("changed")).count, 1500U);
    for (int i = 0; i < 100; ++i) {
        Do("UPDATE Trans SET Description = 'Turn " + std::to_string(i) + "x' WHERE Sequence = 1");
        EXPECT_EQ(Found("\"turn " + std::to_string(i) + "x\""), "1 = 1, -12.5");
    }
}

TEST_F(TransactionFinderTest, AfterForgettingEverythingIsReadAgain)
{
    EXPECT_EQ(Found("cafe"), "2 = 1, -4");
    finder_->Forget();
    Do("UPDATE Trans SET Description = 'Other' WHERE Sequence = 2");

    EXPECT_EQ(Found("cafe"), "= 0, 0");
    EXPECT_EQ(Found("other"), "2 = 1, -4");
}

TEST_F(TransactionFinderTest, GrowingAndShrinkingWordsFindTheSameAsFreshOnes)
{
    for (int i = 0; i < 200; ++i)
        Add(10 + i, std::string("abcabdabc").substr(static_cast<std::size_t>(i % 7)), "1",
            "2025-01-01");
    const std::string typed = "payee:abc abd ab";
    for (const std::size_t size : {8U, 7U, 9U, 11U, 13U, 12U, 16U, 15U, 10U}) {
        const std::string words = typed.substr(0, size);
        TransactionFinder fresh(connection_);
        EXPECT_EQ(finder_->Find(SearchQuery(words)).rows, fresh.Find(SearchQuery(words)).rows)
            << words;
    }
}

TEST_F(TransactionFinderTest, CellsOfOtherKindsDoNotHideTheirRows)
{
    Elsewhere(
        "UPDATE Trans SET Amount = '12,50', PostDate = 'soon' WHERE Sequence = 1;"
        "UPDATE Trans SET Description = x'436166C3A9', CheckID = NULL WHERE Sequence = 2;"
        "UPDATE Trans SET Amount = NULL, PostDate = 5 WHERE Sequence = 3");

    EXPECT_EQ(Found("grocery"), "1 = 1, no sum");
    EXPECT_EQ(Found("cafe"), "2 = 1, -4");
    EXPECT_EQ(Found("salary"), "3 = 1, 0");
    EXPECT_EQ(Found(">=0"), "2 = 1, -4");
    EXPECT_EQ(Found("1900..2099"), "2 = 1, -4");
    EXPECT_EQ(Found("->=0 -1900..2099"), "3 1 = 2, no sum");
    const SearchHit hit = finder_->Read(finder_->Find(SearchQuery("grocery")).rows).at(0);
    EXPECT_TRUE(IsNull(hit.amount));
    EXPECT_TRUE(IsNull(hit.date));
}

TEST_F(TransactionFinderTest, ASumThatIsTooLargeIsNone)
{
    Elsewhere("UPDATE Trans SET Amount = 9223372036854775807");
    EXPECT_EQ(Found("food"), "2 1 3 = 3, no sum");
    Elsewhere("UPDATE Trans SET Amount = -9223372036854775807 - 1 WHERE Sequence = 1");
    EXPECT_EQ(Found("food -salary"), "2 1 = 2, -0.0001");
    EXPECT_EQ(Found(">922337203685477.5807"), "1 = 1, -922337203685477.5808");
}

}  // namespace
}  // namespace clb
