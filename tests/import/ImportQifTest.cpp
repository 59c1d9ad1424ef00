#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "import/modImport.h"
#include "tests/support/Books.h"
#include "tests/support/FakeImportHost.h"
#include "tests/support/TestNames.h"

namespace clb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Reads QIF files into account 1, which the user chooses.
class ImportQifTest : public ::testing::Test {
protected:
    ImportQifTest()
    {
        books_.AddAccount("1", "Bank", "Checking");
        host_.fallback = "1";
    }
    void Import(const std::string& lines)
    {
        ++books_.clock.ticks;
        ImportInTheSameTick(lines);
    }
    void ImportInTheSameTick(const std::string& lines)
    {
        import_.ImportQIF(books_.folder.Write("bank.qif", Replace(lines, "\n", "\r\n")));
    }
    std::vector<std::string> Column(const std::string& name)
    {
        return books_.Rows("SELECT " + name + " FROM Trans ORDER BY Sequence");
    }
    std::vector<std::string> BudgetLines()
    {
        return books_.Rows(
            "SELECT Year, Period, CategoryGroup, Category, Amount FROM Budget ORDER BY Sequence");
    }
    void ExpectSkipped(const std::string& lines)
    {
        const FakeMessageBox::Box box = {
            "Invalid data was found while importing. The following lines were skipped:" + lines, 48,
            "Corvane Ledgerbook"};
        EXPECT_THAT(books_.messages.boxes, ElementsAre(box));
    }

    Books books_;
    FakeImportHost host_;
    modImport import_{books_.window.Data(), books_.window.View(), host_, books_.messages,
                      books_.clock};
};

TEST_F(ImportQifTest, ARecordBecomesARowInTheMonthOfItsDate)
{
    Import("!Type:Bank\nD1/15'06\nT-45.00\nPGrocer\nMmilk\nN1042\nLFood\n^\n");

    EXPECT_THAT(books_.Rows("SELECT AccountID, PostDate, Amount, Description, PayeeName, CheckID, "
                            "Category, Year, Period, Sequence, SubSequence FROM Trans"),
                ElementsAre("1|2006-01-15|-45|Grocer|milk|1042|Food|2006|1|1|0"));
    EXPECT_THAT(BudgetLines(), ElementsAre("2006|1|(none)|Food|0"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportQifTest, TheReasonIsShownIfABookCannotTakeMoreRows)
{
    books_.Execute("INSERT INTO Trans (Sequence, AccountID) VALUES (2147483647, 'other')");

    Import("!Type:Bank\nD1/15/2006\nT1\n^\n");

    ASSERT_EQ(books_.messages.boxes.size(), 2U);
    EXPECT_EQ(books_.messages.boxes[0].text,
              "Invalid data was found while importing. The following lines were skipped:\n^");
    EXPECT_EQ(books_.messages.boxes[1].text,
              "No number is left for a new transaction: one has the largest already.");
}

TEST_F(ImportQifTest, WithoutPayeeTheDescriptionBecomesBlankWithACapital)
{
    Import("!Type:Cash\nD1/15/2006\nT1\n^\n");

    EXPECT_THAT(Column("Description"), ElementsAre("(Blank)"));
    EXPECT_THAT(Column("Category"), ElementsAre("(none)"));
    EXPECT_THAT(Column("PayeeName"), ElementsAre(""));
}

TEST_F(ImportQifTest, ACheckNumberOfZeroIsNone)
{
    Import(
        "!Type:Bank\nD1/1/06\nT1\nN0\n^\nT2\nN 0.4\n^\nT3\nNATM\n^\nT4\nN0017\n^\nT5\n"
        "N98765432109876\n^\n");

    EXPECT_THAT(Column("CheckID"), ElementsAre("", "", "ATM", "0017", "98765432109876"));
}

TEST_F(ImportQifTest, TextsAreCutAtFiftyCharactersWithoutOuterBlanks)
{
    const std::string wide(49, 'w');
    Import("!Type:Bank\nD1/1/06\nT1\nP  " + wide + "\xCE\xA9\xCE\xA9\nM " + wide + " x\n^\n");

    EXPECT_THAT(Column("Description"), ElementsAre(wide + "\xCE\xA9"));
    EXPECT_THAT(Column("PayeeName"), ElementsAre(wide));
}

TEST_F(ImportQifTest, AnAmountThatIsNotANumberIsIgnoredSilently)
{
    Import("!Type:Bank\nD1/1/06\nT-530,86\n^\nT1,234.50\nTcheap\n^\nT5\nT6\n^\n");

    EXPECT_THAT(Column("Amount"), ElementsAre("0", "1234.5", "6"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportQifTest, ARecordWithoutADateGetsTheDateBefore)
{
    Import("!Type:Bank\nT1\n^\nD2/3/06\nT2\n^\nT3\n^\n");

    EXPECT_THAT(Column("PostDate"), ElementsAre("1899-12-30", "2006-02-03", "2006-02-03"));
    EXPECT_THAT(Column("Year"), ElementsAre("1899", "2006", "2006"));
    EXPECT_THAT(Column("Period"), ElementsAre("12", "2", "2"));
}

TEST_F(ImportQifTest, AnInvalidDateIsListedAndTheRecordGetsTheDateBefore)
{
    Import("!Type:Bank\nD2/3/06\nT1\n^\nD23/10/2013\nT2\n^\nDsoon\nT3\n^\n");

    EXPECT_THAT(Column("PostDate"), ElementsAre("2006-02-03", "2006-02-03", "2006-02-03"));
    ExpectSkipped("\nD23/10/2013\nDsoon");
}

TEST_F(ImportQifTest, TheSameFileAddsItsRowsOnce)
{
    const std::string file = "!Type:Bank\nD1/1/06\nT-1\nMa'b\n^\nD1/2/06\nT-2\nN7\n^\n";
    Import(file);

    Import(file);

    EXPECT_THAT(Column("Amount"), ElementsAre("-1", "-2"));
}

TEST_F(ImportQifTest, TwoEqualRecordsOfOneFileAreBothAddedAndNeitherAgain)
{
    const std::string file = "!Type:Bank\nD1/1/06\nT-1\nMfare\n^\nT-1\nMfare\n^\n";
    Import(file);
    EXPECT_THAT(Column("Amount"), ElementsAre("-1", "-1"));

    Import(file);
    EXPECT_THAT(Column("Amount"), ElementsAre("-1", "-1"));
}

TEST_F(ImportQifTest, ARowDiffersByDayAmountMemoOrCheckNumber)
{
    Import("!Type:Bank\nD1/1/06\nT-1\nMfare\nN5\n^\n");

    Import("!Type:Bank\nD1/2/06\nT-1\nMfare\nN5\n^\nD1/1/06\nT-2\nMfare\nN5\n^\n");
    Import("!Type:Bank\nD1/1/06\nT-1\nMfares\nN5\n^\nT-1\nMfare\nN6\n^\n");
    // The payee does not matter. Without a check number any check number matches.
    Import("!Type:Bank\nD1/1/06\nT-1\nMfare\nN5\nPOther\n^\nT-1\nMfare\n^\n");

    EXPECT_THAT(Column("Amount"), ElementsAre("-1", "-1", "-2", "-1", "-1"));
}

/// A long file, most of which the account has already.
class RepeatedQifTest : public ImportQifTest {
protected:
    RepeatedQifTest() { Import(Known()); }

    /// 1,000 different records on 250 days of 2006, some with a memo, some with a check number.
    static std::string Known()
    {
        std::string file = "!Type:Bank\n";
        for (int n = 0; n < 1000; ++n) {
            const int day = n / 4;
            file += "D" + std::to_string(day / 25 + 1) + "/" + std::to_string(day % 25 + 1) +
                    "/2006\nT-" + std::to_string(n / 2) + ".25\n" +
                    (n % 2 == 0 ? "" : "Mmemo 'x'\n") +
                    (n % 3 == 0 ? "N" + std::to_string(n + 1) + "\n" : "") + "^\n";
        }
        return file;
    }
    std::size_t Rows() { return Column("Amount").size(); }
};

TEST_F(RepeatedQifTest, AddsNothing)
{
    const auto before = Column("AccountID, PostDate, Amount, PayeeName, CheckID, FITID");

    Import(Known());

    EXPECT_EQ(Column("AccountID, PostDate, Amount, PayeeName, CheckID, FITID"), before);
    EXPECT_EQ(before.size(), 1000U);
    EXPECT_EQ(import_.Counts().duplicates, 1000);
}

TEST_F(RepeatedQifTest, AddsWhatDiffersByDayAmountMemoOrCheckNumber)
{
    // The last record is of October 25, -499.25, with a memo and the check number 1000.
    Import(Known() +
           "D10/24/2006\nT-499.25\nMmemo 'x'\nN1000\n^\n"
           "D10/25/2006\nT-499.26\nMmemo 'x'\nN1000\n^\n"
           "T-499.25\nMmemo 'X'\nN1000\n^\n"
           "T-499.25\nMmemo 'x'\nN999\n^\n"
           "T-499.25\nMmemo 'x'\nN1000\n^\n"
           "T-499.25\nMmemo 'x'\n^\n"
           "T-499.25\n^\n"
           "T-499.25\nN1000\n^\n");

    EXPECT_EQ(Rows(), 1005U);
    EXPECT_EQ(import_.Counts().duplicates, 1003);
}

TEST_F(RepeatedQifTest, AddsBothOfTwoEqualRecords)
{
    Import(Known() + "D1/1/2006\nT-1000\n^\nT-1000\n^\n");
    EXPECT_EQ(Rows(), 1002U);

    Import(Known() + "D1/1/2006\nT-1000\n^\nT-1000\n^\n");
    EXPECT_EQ(Rows(), 1002U);
}

TEST_F(RepeatedQifTest, SeesRowsThatWereEnteredByHand)
{
    books_.Execute(
        "INSERT INTO Trans (AccountID, FITID, PostDate, Amount, PayeeName, [Year], Period, "
        "[Sequence]) VALUES ('1', '', #2006-01-01#, -2000, '', 2006, 1, 5000)");
    // A row without an identifier never equals a record.
    books_.Execute(
        "INSERT INTO Trans (AccountID, PostDate, Amount, PayeeName, [Year], Period, [Sequence]) "
        "VALUES ('1', #2006-01-01#, -3000, '', 2006, 1, 5001)");

    Import(Known() + "D1/1/2006\nT-2000\n^\nT-3000\n^\n");

    EXPECT_EQ(Rows(), 1003U);
}

TEST_F(RepeatedQifTest, ListsACheckNumberWithAQuote)
{
    Import(Known() + "D1/1/2006\nT-0.25\nN1'\n^\n");

    EXPECT_EQ(Rows(), 1000U);
    ExpectSkipped("\n^");
}

TEST_F(ImportQifTest, RowsOfOneImportShareAnIdentifier)
{
    Import("!Type:Bank\nD1/1/06\nT-1\n^\nT-2\n^\n");
    Import("!Type:Bank\nD1/1/06\nT-3\n^\n");

    const auto runs = Column("FITID");
    ASSERT_EQ(runs.size(), 3U);
    EXPECT_EQ(runs[0], runs[1]);
    EXPECT_NE(runs[0], runs[2]);
    EXPECT_NE(runs[0], "");
}

/// Symptom: the rows of two files that were read within one tick got the same identifier, so the
/// second file's records did not count as duplicates of the first one's.
TEST_F(ImportQifTest, ImportsWithinOneTickHaveDifferentIdentifiers)
{
    const std::string file = "!Type:Bank\nD1/1/06\nT-1\n^\n";
    for (int time = 0; time < 3; ++time)
        ImportInTheSameTick(file);
    EXPECT_THAT(Column("Amount"), ElementsAre("-1"));

    for (int time = 0; time < 2; ++time)
        ImportInTheSameTick("!Type:Bank\nD1/1/06\nT-2\n^\n");
    EXPECT_THAT(Column("Amount"), ElementsAre("-1", "-2"));
}

TEST_F(ImportQifTest, TheOrderOfItsDatesMayBeGiven)
{
    import_.QifDateOrder(DateText::Order::DayMonthYear);
    Import("!Type:Bank\nD23/10'06\nT1\n^\nD10/23/06\nT2\n^\n");
    ExpectSkipped("\nD10/23/06");
    import_.QifDateOrder(DateText::Order::YearMonthDay);
    Import("!Type:Bank\nD2006-10-24\nT3\n^\n");

    EXPECT_THAT(Column("PostDate"), ElementsAre("2006-10-23", "2006-10-23", "2006-10-24"));
}

TEST_F(ImportQifTest, CountsAddedAndSkippedRecords)
{
    Import("!Type:Bank\nD1/1/06\nT-1\n^\nT-2\n^\nT-3\nNit's\n^\n");
    EXPECT_EQ(import_.Counts().added, 2);
    EXPECT_EQ(import_.Counts().duplicates, 0);

    Import("!Type:Bank\nD1/1/06\nT-1\n^\nT-2\n^\nT-4\n^\n");
    EXPECT_EQ(import_.Counts().added, 1);
    EXPECT_EQ(import_.Counts().duplicates, 2);
}

struct Header {
    const char* line;
    bool transactions;
};

class HeaderTest : public ImportQifTest, public ::testing::WithParamInterface<Header> {};

TEST_P(HeaderTest, DecidesWhatItsRecordsAre)
{
    Import(std::string(GetParam().line) + "\nD1/1/06\nT-1\nNHome:Rent\nB5\n^\n");

    EXPECT_EQ(Column("Amount").size(), GetParam().transactions ? 1U : 0U);
    EXPECT_EQ(BudgetLines().back(),
              GetParam().transactions ? "2006|1|(none)|(none)|0" : "2006|3|Home|Rent|5");
}

INSTANTIATE_TEST_SUITE_P(Lines, HeaderTest,
                         ::testing::Values(Header{"!Type:Bank", true}, Header{"!Type:Cash", true},
                                           Header{"!Type:CCard", true}, Header{"!Type:Oth L", true},
                                           Header{"!Type:Oth A", true},
                                           Header{"!Type:Memorized", true},
                                           Header{"!Type:Invst", true}, Header{"!Type:Cat", false},
                                           Header{"!Type:Bank ", false},
                                           Header{"!type:bank", false}, Header{"!Account", false},
                                           Header{"!", false}),
                         [](const auto& test) { return "Line" + std::to_string(test.index); });

TEST_F(ImportQifTest, LinesBeforeAnyHeaderAreIgnored)
{
    Import("D1/1/06\nT-1\n^\n\n");

    EXPECT_THAT(Column("Amount"), IsEmpty());
    EXPECT_THAT(BudgetLines(), IsEmpty());
}

TEST_F(ImportQifTest, ACategoryBecomesALineOfTheMonthShown)
{
    Import("!Type:Cat\nNFood:Groceries\nD1/1/99\nB200\nB50\n^\n");

    EXPECT_THAT(BudgetLines(), ElementsAre("2006|3|Food|Groceries|250"));
}

/// Symptom: the second line was dropped, because the running sum had to fit after every line.
TEST_F(ImportQifTest, BudgetAmountsMayExceedTheRangeBeforeTheLastOne)
{
    const std::string most = "B922337203685477.5807\n";
    Import("!Type:Cat\nNFood:Groceries\n" + most + "B50\nB-50\n^\n");

    EXPECT_THAT(BudgetLines(), ElementsAre("2006|3|Food|Groceries|922337203685477.5807"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportQifTest, BudgetAmountsWhoseSumIsTooLargeMakeNoLine)
{
    const std::string most = "B922337203685477.5807\n";
    Import("!Type:Cat\nNFood:Groceries\n" + most + "B50\n^\nNFood:Bread\nB3\n^\n");

    EXPECT_THAT(BudgetLines(), ElementsAre("2006|3|Food|Bread|3"));
    ExpectSkipped("\n^");
}

TEST_F(ImportQifTest, ACategoryNeedsAGroupOrAnAmount)
{
    Import("!Type:Cat\nNSalary\n^\nNSalary\nB9\n^\nBmuch\n^\nNA:B:C\n^\n");

    EXPECT_THAT(BudgetLines(), ElementsAre("2006|3||(none)|9", "2006|3|A|B|0"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportQifTest, ALineThatTheStoreRefusesIsListedAndReadingContinues)
{
    const std::string tooLong(51, 'c');
    Import("!Type:Bank\nD1/1/06\nT-1\nL" + tooLong + "\n^\nT-2\nNit's\n^\nT-3\n^\n");

    EXPECT_THAT(Column("Amount"), ElementsAre("-3"));
    ExpectSkipped("\n^\n^");
}

TEST_F(ImportQifTest, ACancelledAccountDialogAddsNothingAndShowsNothing)
{
    host_.accepts = false;

    Import("!Type:Bank\nD1/1/06\nT-1\n^\n");

    EXPECT_THAT(Column("Amount"), IsEmpty());
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
    EXPECT_THAT(host_.events, ElementsAre("account "));
}

TEST_F(ImportQifTest, AFileWithoutItsLastEndAddsTheRecordsThatEnded)
{
    Import("!Type:Bank\nD1/1/06\nT-1\n^\nD1/2/06\nT-2");

    EXPECT_THAT(Column("Amount"), ElementsAre("-1"));
}

}  // namespace
}  // namespace clb
