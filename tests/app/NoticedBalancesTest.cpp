// Balances that did not fit their rows when an import recomputed them: what the window shows, and
// what stays in the file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>

#include "app/BalanceWatch.h"
#include "app/OtherPrograms.h"
#include "data/NoticedBalances.h"
#include "engine/storage/Database.h"
#include "engine/storage/EngineError.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kList = "SELECT AccountID, Stored, Total, NoticedBy, TakenNoteOf FROM CvBalance";

class NoticedBalancesTest : public ::testing::Test {
protected:
    void Begin(bool keepsCopies)
    {
        books_.emplace(keepsCopies);
        books_->AddAccount("C1", "Bank", "Checking");
        books_->AddAccount("C2", "Bank", "Savings");
        books_->Execute("INSERT INTO Trans (AccountID, Amount, Sequence) VALUES ('C1', 5, 1)");
        books_->Execute("UPDATE Account SET CurrentBalance = 7 WHERE AccountID = 'C1'");
        books_->window.Settle();
    }
    void Import(const std::string& amount = "-2")
    {
        books_->files.answers = {books_->folder.Write(
            "march.ofx",
            "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n<OFX>\r\n<ACCTID>C1\r\n<STMTTRN>"
            "<DTPOSTED>20060305<TRNAMT>" +
                amount + "<FITID>1<NAME>Shop</STMTTRN>\r\n")};
        books_->window.Import().ImportFile();
        books_->window.Settle();
    }
    std::vector<std::string> Copies()
    {
        std::vector<std::string> names;
        std::error_code none;
        for (const auto& entry :
             std::filesystem::directory_iterator(books_->folder.Path("db/backup"), none))
            if (entry.path().extension() == ".mdb")
                names.push_back(entry.path().filename().string());
        return names;
    }

    std::optional<Books> books_;
};

TEST_F(NoticedBalancesTest, AnImportListsThemAndTheWindowSaysSo)
{
    Begin(true);

    Import();

    EXPECT_THAT(books_->Rows(kList), ElementsAre("C1|7|5|import|"));
    EXPECT_EQ(books_->window.BalanceNotice(), "A balance did not fit its rows: see clb check");
    EXPECT_THAT(Copies(), ElementsAre(HasSubstr("-before-import.mdb")));
    EXPECT_THAT(books_->messages.boxes, IsEmpty());
}

TEST_F(NoticedBalancesTest, TheWindowSaysSoUntilAPersonHasTakenNote)
{
    Begin(true);
    Import();
    const auto press = [this] { books_->window.menus.Find("mnuF_Import")->Press(); };
    press();
    EXPECT_THAT(books_->window.notices.Text(), HasSubstr("did not fit its rows"));

    noticed_balances::TakeNote(books_->window.Data().Database(), books_->clock.Now());
    press();

    EXPECT_EQ(books_->window.notices.Text(), "");
}

TEST_F(NoticedBalancesTest, WhenAllFitNothingIsListedOrShown)
{
    Begin(true);
    books_->Execute("UPDATE Account SET CurrentBalance = 5 WHERE AccountID = 'C1'");

    Import();

    EXPECT_EQ(books_->window.BalanceNotice(), "");
    EXPECT_THAT(Copies(), IsEmpty());
    EXPECT_THROW(books_->Rows(kList), EngineError);
}

/// Under automation the window and the traced statements stay the same. Only the list is written.
TEST_F(NoticedBalancesTest, UnderAutomationNothingIsShownTracedOrCopied)
{
    Begin(false);
    std::vector<std::string> traced;
    books_->window.Data().Database().Trace(
        [&traced](std::string_view sql) { traced.emplace_back(sql); });

    Import();

    books_->window.Data().Database().Trace({});
    EXPECT_THAT(traced, Not(::testing::Contains(HasSubstr("CvBalance"))));
    EXPECT_THAT(traced, Not(::testing::Contains(HasSubstr("GROUP BY AccountID"))));
    EXPECT_EQ(books_->window.BalanceNotice(), "");
    EXPECT_EQ(books_->window.statusBar.Panel(2), "");
    EXPECT_THAT(Copies(), IsEmpty());
    EXPECT_THAT(books_->Rows(kList), ElementsAre("C1|7|5|import|"));
}

TEST_F(NoticedBalancesTest, TheListFollowsANumberThatIsTypedIntoTheGrid)
{
    Begin(false);
    Import();
    books_->window.View().Refresh();

    books_->window.Grid.MoveToRowKey(std::int32_t{1});
    books_->window.Grid.ColumnValue(3, std::string("N9"));
    ASSERT_TRUE(books_->window.Grid.Update());

    EXPECT_EQ(books_->One("SELECT AccountID FROM Account WHERE Sequence = 1"), "N9");
    EXPECT_THAT(books_->Rows(kList), ElementsAre("N9|7|5|import|"));
}

class ChangedRowsTest : public NoticedBalancesTest {
protected:
    /// Shows the register of Checking, whose balance of 7 does not fit its one row of 5.
    void Show(bool keepsCopies)
    {
        Begin(keepsCopies);
        books_->Execute("UPDATE Trans SET Year = 2006, Period = 3, PostDate = #2006-03-01#");
        books_->window.View().BuildTree();
        books_->window.View().AccountID("C1");
        books_->window.View().View(vwAccount);
    }
    CVGrid& Grid() { return books_->window.Grid; }
    std::string Balance()
    {
        return books_->One("SELECT CurrentBalance FROM Account WHERE AccountID = 'C1'");
    }
};

/// Symptom: the balance was recomputed, which removed the only trace of the lost rows.
TEST_F(ChangedRowsTest, AChangedRowListsTheBalanceAndTheWindowSaysSo)
{
    Show(true);

    Grid().ColumnValue(4, std::string("12"));
    ASSERT_TRUE(Grid().Update());
    books_->window.Settle();

    EXPECT_EQ(Balance(), "5");
    EXPECT_THAT(books_->Rows(kList), ElementsAre("C1|7|5|window|"));
    EXPECT_EQ(books_->window.notices.Text(), "A balance did not fit its rows: see clb check");
}

TEST_F(ChangedRowsTest, ANewRowListsTheBalance)
{
    Show(false);

    Grid().MoveToRowKey(Null{});
    Grid().ColumnValue(3, Money::Parse("-2"));
    ASSERT_TRUE(Grid().Update());

    EXPECT_EQ(Balance(), "3");
    EXPECT_THAT(books_->Rows(kList), ElementsAre("C1|7|5|window|"));
    EXPECT_EQ(books_->window.notices.Text(), "");
}

TEST_F(ChangedRowsTest, ADeletedRowListsTheBalance)
{
    Show(true);
    books_->window.window.Focus(Grid());
    books_->messages.answers = {BoxAnswer::Yes};

    Grid().Delete();

    EXPECT_EQ(Balance(), "0");
    EXPECT_THAT(books_->Rows(kList), ElementsAre("C1|7|5|window|"));
}

TEST_F(ChangedRowsTest, ReadingTheBalancesIsNotTraced)
{
    Show(false);
    std::vector<std::string> traced;
    books_->window.Data().Database().Trace(
        [&traced](std::string_view sql) { traced.emplace_back(sql); });

    Grid().ColumnValue(4, std::string("12"));
    ASSERT_TRUE(Grid().Update());

    books_->window.Data().Database().Trace({});
    EXPECT_THAT(traced, Not(::testing::Contains(HasSubstr("CvBalance"))));
    EXPECT_EQ(std::count_if(traced.begin(), traced.end(),
                            [](const std::string& sql) {
                                return sql.find("AS TotAmount FROM Trans WHERE AccountID = 'C1'") !=
                                       std::string::npos;
                            }),
              2);  // the balance, and the total below the rows
}

/// A balance that the program has stored itself fits until another program writes.
TEST_F(ChangedRowsTest, WhatOthersDeleteMeanwhileIsNoticedAtTheNextChange)
{
    Show(false);
    books_->Execute("INSERT INTO Trans (AccountID, Amount, Sequence) VALUES ('C1', 2, 2)");
    Grid().ColumnValue(4, std::string("12"));
    ASSERT_TRUE(Grid().Update());
    books_->window.Settle();
    ASSERT_THROW(books_->Rows(kList), EngineError);
    {
        Database storage;
        storage.OpenExisting(books_->folder.Path("db/clb.mdb"));
        storage.Run("DELETE FROM Trans WHERE Sequence = 2");
    }

    Grid().ColumnValue(4, std::string("13"));
    ASSERT_TRUE(Grid().Update());

    EXPECT_THAT(books_->Rows(kList), ElementsAre("C1|7|5|window|"));
}

/// For example, another program changes a holding's total or a loan's payment.
TEST_F(ChangedRowsTest, HoldingsAndLoansCountAsWell)
{
    Begin(false);
    books_->AddAccount("H1", "Investment", "Fund");
    books_->Execute("INSERT INTO Investment (AccountID, Total) VALUES ('H1', 30)");
    books_->window.View().AccountID("H1");
    books_->window.View().View(vwInvestment);

    Grid().ColumnValue(7, Money::Parse("40"));
    ASSERT_TRUE(Grid().Update());

    EXPECT_THAT(books_->Rows(kList), ElementsAre("H1|0|30|window|"));
}

/// A notice that a person has settled with another program disappears from the panel.
TEST_F(ChangedRowsTest, ThePanelFollowsWhatOtherProgramsSettle)
{
    Show(true);
    Grid().ColumnValue(4, std::string("12"));
    ASSERT_TRUE(Grid().Update());
    books_->window.Settle();
    ASSERT_NE(books_->window.notices.Text(), "");
    {
        Database storage;
        storage.OpenExisting(books_->folder.Path("db/clb.mdb"));
        storage.Run("UPDATE CvBalance SET TakenNoteOf = '2006-03-05 10:00:00'");
    }

    books_->window.Others().Follow();

    EXPECT_EQ(books_->window.notices.Text(), "");
}

TEST_F(NoticedBalancesTest, AStartListsThemOnlyOnceUntilAPersonHasTakenNote)
{
    Begin(true);

    NoteOddBalances(books_->folder.Path(), books_->clock.Now());
    NoteOddBalances(books_->folder.Path(), books_->clock.Now());

    EXPECT_THAT(books_->Rows(kList), ElementsAre("C1|7|5|start|"));
    EXPECT_EQ(books_->One("SELECT CurrentBalance FROM Account WHERE AccountID = 'C1'"), "7");
    books_->window.Others().Follow();
    EXPECT_EQ(books_->window.notices.Text(), "A balance did not fit its rows: see clb check");
}

TEST_F(NoticedBalancesTest, AStartWritesNothingWhenAllFit)
{
    Begin(true);
    books_->Execute("UPDATE Account SET CurrentBalance = 5 WHERE AccountID = 'C1'");
    books_->window.Settle();

    NoteOddBalances(books_->folder.Path(), books_->clock.Now());

    EXPECT_THROW(books_->Rows(kList), EngineError);
}

/// There are so many that their sums are read together.
TEST_F(NoticedBalancesTest, AmongManyAccountsThoseThatDoNotFitAreFound)
{
    Begin(false);
    for (int number = 3; number < 80; ++number)
        books_->AddAccount("C" + std::to_string(number), number % 2 == 0 ? "Loan" : "Bank", "x");
    books_->Execute(
        "INSERT INTO Loan (AccountID, OriginalAmount, PaidAmount) VALUES ('C60', 9, 2)");
    books_->Execute("INSERT INTO Trans (AccountID, Amount, Sequence) VALUES ('C61', 4, 2)");

    Import();

    EXPECT_THAT(books_->Rows(kList),
                ElementsAre("C1|7|5|import|", "C60|0|7|import|", "C61|0|4|import|"));
}

/// Otherwise the rows would be stored without their balances.
TEST_F(NoticedBalancesTest, ACellThatIsNotAnAmountEndsTheImportBeforeItsFirstRow)
{
    Begin(false);
    {
        Database storage;
        storage.OpenExisting(books_->folder.Path("db/clb.mdb"));
        storage.Run("UPDATE Trans SET Amount = '12,50 EUR'");
    }

    try {
        Import();
        ADD_FAILURE() << "the import went through";
    } catch (const EngineError& error) {
        EXPECT_STREQ(error.what(),
                     "Trans.Amount of number 1, piece 0 (account 'C1') holds the text '12,50 EUR', "
                     "which is not an amount.");
    }

    EXPECT_EQ(books_->One("SELECT COUNT(*) AS N FROM Trans"), "1");
}

}  // namespace
}  // namespace clb
