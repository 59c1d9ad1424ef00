#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "import/modImport.h"
#include "tests/support/Books.h"
#include "tests/support/FakeImportHost.h"
#include "tests/support/TestNames.h"

namespace clb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Reads a statement for account 1 into books that have this account.
class ImportOfxTest : public ::testing::Test {
protected:
    ImportOfxTest() { books_.AddAccount("1", "Bank", "Checking"); }

    void Import(const std::string& text)
    {
        import_.ImportOFX(books_.folder.Write("statement.ofx", text));
    }
    /// A statement whose one transaction has these elements.
    static std::string Statement(const std::string& transactions)
    {
        return "<OFC>\r\n<ACCTID>1\r\n" + transactions + "</OFC>\r\n";
    }
    static std::string Transaction(const std::string& fitid, const std::string& date,
                                   const std::string& amount, const std::string& more = "")
    {
        return "<STMTTRN>\r\n<FITID>" + fitid + "\r\n<DTPOSTED>" + date + "\r\n<TRNAMT>" + amount +
               "\r\n" + more + "</STMTTRN>\r\n";
    }
    std::vector<std::string> Column(const std::string& name)
    {
        return books_.Rows("SELECT " + name + " FROM Trans ORDER BY Sequence");
    }
    void ExpectError(const std::string& workingText, const std::string& file)
    {
        const FakeMessageBox::Box box = {
            "Invalid data was found while importing:\n" + workingText + "\n" + file, 48,
            "Corvane Ledgerbook"};
        EXPECT_THAT(books_.messages.boxes, ElementsAre(box));
    }

    Books books_;
    FakeImportHost host_;
    modImport import_{books_.window.Data(), books_.window.View(), host_, books_.messages,
                      books_.clock};
};

TEST_F(ImportOfxTest, EveryFieldIsFilledFromTheStatement)
{
    Import(Statement(
        Transaction("F1", "20060305120000", "-45.50",
                    "<TRNTYPE>CHECK\r\n<CHECKNUM>1042\r\n<NAME>Corner Grocer\r\n<MEMO>milk\r\n")));

    EXPECT_THAT(books_.Rows("SELECT AccountID, PostDate, Amount, Description, FITID, CheckID, "
                            "Period, Year, Category, PayeeName, Sequence, SubSequence FROM Trans"),
                ElementsAre("1|2006-03-05|-45.5|Corner Grocer|F1|1042|3|2006|(none)|milk|1|0"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportOfxTest, SequencesContinueAfterTheLargest)
{
    books_.Execute("INSERT INTO Trans (Sequence, AccountID) VALUES (41, 'other')");

    Import(Statement(Transaction("F1", "20060301", "-1") + Transaction("F2", "20060302", "-2")));

    EXPECT_THAT(Column("Sequence"), ElementsAre("41", "42", "43"));
}

// Symptom: a message without a reason.
TEST_F(ImportOfxTest, TheReasonIsShownIfABookCannotTakeMoreRows)
{
    books_.Execute("INSERT INTO Trans (Sequence, AccountID) VALUES (2147483647, 'other')");
    const std::string file = Statement(Transaction("F1", "20060301", "-1"));

    Import(file);

    ExpectError("No number is left for a new transaction: one has the largest already.", file);
    EXPECT_THAT(Column("Sequence"), ElementsAre("2147483647"));
}

TEST_F(ImportOfxTest, OnlyACheckHasACheckNumber)
{
    Import(Statement(Transaction("F1", "20060301", "-1", "<TRNTYPE>DEBIT\r\n<CHECKNUM>77\r\n") +
                     Transaction("F2", "20060301", "-1", "<TRNTYPE>check\r\n<CHECKNUM>78\r\n") +
                     Transaction("F3", "20060301", "-1", "<TRNTYPE>CHECK\r\n") +
                     Transaction("F4", "20060301", "-1", "<CHECKNUM>0012\r\n<TRNTYPE>CHECK\r\n")));

    EXPECT_THAT(Column("CheckID"), ElementsAre("", "", "", "0012"));
}

TEST_F(ImportOfxTest, AMissingOrEmptyNameBecomesBlankInSmallLetters)
{
    Import(Statement(Transaction("F1", "20060301", "-1") +
                     Transaction("F2", "20060301", "-1", "<NAME>   \r\n") +
                     Transaction("F3", "20060301", "-1", "<NAME><MEMO>memo\r\n")));

    EXPECT_THAT(Column("Description"), ElementsAre("(blank)", "(blank)", "(blank)"));
}

TEST_F(ImportOfxTest, AMemoIsKeptToFiftyCharacters)
{
    const std::string fifty = "12345678901234567890123456789012345678901234567 é ";
    const std::string eighty = fifty + "and thirty more characters....";

    Import(Statement(Transaction("F1", "20060301", "-1", "<MEMO>" + eighty + "\r\n")));

    EXPECT_THAT(Column("PayeeName"), ElementsAre(fifty));
}

TEST_F(ImportOfxTest, TheRowsMonthIsTheMonthOfThePostingDate)
{
    Import(Statement(Transaction("F1", "20061231", "-1")));

    EXPECT_EQ(books_.One("SELECT PostDate, Year, Period FROM Trans"), "2006-12-31|2006|12");
}

TEST_F(ImportOfxTest, AmountsAreReadToTheFourthDecimalWithTheirSign)
{
    Import(Statement(
        Transaction("F1", "20060301", "+200.00") + Transaction("F2", "20060301", "-1,234.5678") +
        Transaction("F3", "20060301", "0.00005") + Transaction("F4", "20060301", " .5 ")));

    EXPECT_THAT(Column("Amount"), ElementsAre("200", "-1234.5678", "0", "0.5"));
}

TEST_F(ImportOfxTest, ATransactionThatTheAccountHasIsSkippedSilently)
{
    books_.Execute("INSERT INTO Trans (Sequence, AccountID, FITID) VALUES (1, '1', 'F1')");

    Import(Statement(Transaction("F1", "20060301", "-1") + Transaction("F2", "20060302", "-2")));

    EXPECT_THAT(Column("FITID"), ElementsAre("F1", "F2"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportOfxTest, CountsAddedAndSkippedTransactions)
{
    Import(Statement(Transaction("F1", "20060305", "1") + Transaction("F1", "20060305", "1") +
                     Transaction("F2", "20060305", "1") + Transaction("F3", "20061305", "1")));
    EXPECT_EQ(import_.Counts().added, 2);
    EXPECT_EQ(import_.Counts().duplicates, 1);

    Import(Statement(Transaction("F2", "20060305", "1")));
    EXPECT_EQ(import_.Counts().added, 0);
    EXPECT_EQ(import_.Counts().duplicates, 1);
}

TEST_F(ImportOfxTest, AnotherAccountsTransactionIsNotADuplicate)
{
    books_.Execute("INSERT INTO Trans (Sequence, AccountID, FITID) VALUES (1, '2', 'F1')");

    Import(Statement(Transaction("F1", "20060301", "-1")));

    EXPECT_THAT(Column("AccountID"), ElementsAre("2", "1"));
}

TEST_F(ImportOfxTest, IdentifiersAreComparedExactly)
{
    Import(Statement(Transaction("f1", "20060301", "-1") + Transaction("F1", "20060302", "-2") +
                     Transaction("f1", "20060303", "-3")));

    EXPECT_THAT(Column("FITID"), ElementsAre("f1", "F1"));
}

TEST_F(ImportOfxTest, OneTransactionWithoutIdentifierIsKept)
{
    Import(Statement(Transaction("", "20060301", "-1") +
                     "<STMTTRN><DTPOSTED>20060302\r\n<TRNAMT>-2\r\n</STMTTRN>"));

    EXPECT_THAT(Column("Amount"), ElementsAre("-1"));
}

TEST_F(ImportOfxTest, ADuplicateIsSkippedBeforeItsDataIsRead)
{
    Import(Statement(Transaction("F1", "20060301", "-1") + Transaction("F1", "no date", "none") +
                     Transaction("F2", "20060302", "-2")));

    EXPECT_THAT(Column("FITID"), ElementsAre("F1", "F2"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportOfxTest, EveryMonthGetsOneBudgetLineWithoutCategory)
{
    Import(Statement(Transaction("F1", "20060331", "-1") + Transaction("F2", "20060401", "-2") +
                     Transaction("F3", "20060330", "-3") + Transaction("F4", "20050330", "-4")));

    EXPECT_THAT(
        books_.Rows("SELECT Year, Period, Category, CategoryGroup, Amount FROM Budget "
                    "ORDER BY Year, Period"),
        ElementsAre("2005|3|(none)|(none)|0", "2006|3|(none)|(none)|0", "2006|4|(none)|(none)|0"));
}

TEST_F(ImportOfxTest, AnExistingBudgetLineStaysAsItIs)
{
    books_.Execute(
        "INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) "
        "VALUES (2006, 3, '(none)', 'Home', 12.5)");

    Import(Statement(Transaction("F1", "20060331", "-1")));

    EXPECT_THAT(books_.Rows("SELECT Category, CategoryGroup, Amount FROM Budget"),
                ElementsAre("(none)|Home|12.5"));
}

TEST_F(ImportOfxTest, BudgetLinesAreCreatedOnlyWhenTheMonthChanges)
{
    std::vector<std::string> asked;
    books_.window.Data().Database().Trace([&asked](std::string_view sql) {
        if (sql.find("FROM Budget") != std::string_view::npos)
            asked.emplace_back(sql);
    });

    Import(Statement(Transaction("F1", "20060331", "-1") + Transaction("F2", "20060301", "-2") +
                     Transaction("F3", "20060401", "-3") + Transaction("F4", "20060302", "-4")));

    EXPECT_EQ(asked.size(), 3U);
}

TEST_F(ImportOfxTest, TheAccountIsAskedForAsTheStatementWritesIt)
{
    Import("<OFC>\r\n<ACCTID>  1 \r\n<ACCTID>2\r\n" + Transaction("F1", "20060301", "-1"));

    EXPECT_THAT(host_.events, ElementsAre("account 1"));
    EXPECT_THAT(Column("AccountID"), ElementsAre("1"));
}

TEST_F(ImportOfxTest, NothingIsAddedWhenTheAccountIsRefused)
{
    host_.accepts = false;

    Import(Statement(Transaction("F1", "20060301", "-1")));

    EXPECT_THAT(Column("FITID"), IsEmpty());
    EXPECT_THAT(books_.Rows("SELECT Year FROM Budget"), IsEmpty());
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportOfxTest, AnAccountWithinTheFirstFiveCharactersIsNotFound)
{
    Import("<OFC><ACCTID>1<STMTTRN>");
    EXPECT_THAT(host_.events, ElementsAre("account 1"));

    Import("    <ACCTID>1\r\n" + Transaction("F1", "20060301", "-1"));
    EXPECT_THAT(host_.events, ElementsAre("account 1"));

    Import("é   <ACCTID>1\r\n" + Transaction("F1", "20060301", "-1"));
    EXPECT_THAT(host_.events, ElementsAre("account 1"));
}

TEST_F(ImportOfxTest, TransactionsBeforeTheAccountAreIgnored)
{
    Import("<OFC>\r\n" + Transaction("F0", "20060301", "-9") + "<ACCTID>1\r\n" +
           Transaction("F1", "20060301", "-1"));

    EXPECT_THAT(Column("FITID"), ElementsAre("F1"));
}

TEST_F(ImportOfxTest, ASecondAccountsTransactionsGoIntoTheFirst)
{
    Import(Statement(Transaction("F1", "20060301", "-1") + "<ACCTID>2\r\n" +
                     Transaction("F2", "20060302", "-2")));

    EXPECT_THAT(books_.Rows("SELECT AccountID, FITID FROM Trans"), ElementsAre("1|F1", "1|F2"));
}

TEST_F(ImportOfxTest, AnEmptyOrUnclosedTransactionEndsTheReading)
{
    Import(Statement(Transaction("F1", "20060301", "-1") + "<STMTTRN></STMTTRN>" +
                     Transaction("F2", "20060302", "-2")));
    EXPECT_THAT(Column("FITID"), ElementsAre("F1"));

    Import(Statement("<STMTTRN><FITID>F3\r\n<DTPOSTED>20060301\r\n<TRNAMT>-1\r\n"));
    EXPECT_THAT(Column("FITID"), ElementsAre("F1"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportOfxTest, AnAccountNumberWithAQuoteIsHandledAsText)
{
    books_.AddAccount("O'Neil", "Bank", "Quoted");

    Import("<OFC>\r\n<ACCTID>O'Neil\r\n" + Transaction("F1", "20060301", "-1"));

    EXPECT_THAT(Column("AccountID"), ElementsAre("O'Neil"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportOfxTest, AQuoteInAnIdentifierEndsTheImportWithoutWorkingText)
{
    const std::string file =
        Statement(Transaction("F1", "20060301", "-1") + Transaction("O'Neil", "20060302", "-2") +
                  Transaction("F3", "20060303", "-3"));

    Import(file);

    ExpectError("", file);
    EXPECT_THAT(Column("FITID"), ElementsAre("F1"));
}

struct BadPiece {
    std::string name;
    std::string date;
    std::string amount;
    std::string workingText;
};

class BadDataTest : public ImportOfxTest, public ::testing::WithParamInterface<BadPiece> {};

TEST_P(BadDataTest, EndsTheImportAndIsReported)
{
    const BadPiece& bad = GetParam();
    const std::string file =
        Statement(Transaction("F1", "20060301", "-1") + Transaction("F2", bad.date, bad.amount) +
                  Transaction("F3", "20060303", "-3"));

    Import(file);

    ExpectError(bad.workingText, file);
    EXPECT_THAT(Column("FITID"), ElementsAre("F1"));
}

INSTANTIATE_TEST_SUITE_P(
    Pieces, BadDataTest,
    ::testing::Values(BadPiece{"YearInLetters", "MMVI0302", "-2", "MMVI"},
                      BadPiece{"NoDateAtAll", "", "-2", ""}, BadPiece{"ShortYear", "200", "-2", ""},
                      BadPiece{"MonthInLetters", "2006MA02", "-2", "MA"},
                      BadPiece{"NoMonth", "2006", "-2", ""},
                      BadPiece{"Month13", "20061301", "-2", "2006/13/01"},
                      BadPiece{"Month0", "20060001", "-2", "2006/0/01"},
                      BadPiece{"NoDay", "200603", "-2", "2006/3/"},
                      BadPiece{"DayInLetters", "200603xx", "-2", "2006/3/xx"},
                      BadPiece{"February30", "20060230", "-2", "2006/2/30"},
                      BadPiece{"CharactersNotBytes", "2006€é02", "-2", "€é"},
                      BadPiece{"AmountInLetters", "20060302", "two", "<TRNAMT>"},
                      BadPiece{"NoAmount", "20060302", "", "<TRNAMT>"},
                      BadPiece{"DecimalComma", "20060302", "-530,86", "<TRNAMT>"},
                      BadPiece{"AmountTooLarge", "20060302", "999999999999999", "<TRNAMT>"},
                      BadPiece{"DateBeforeAmount", "20061301", "two", "2006/13/01"}),
    [](const auto& test) { return TestName(test.param.name); });

TEST_F(ImportOfxTest, ARowThatFailsHasNoBudgetLineBefore)
{
    Import(Statement(Transaction("F1", "20060301", "-1") + Transaction("F2", "20060401", "two")));

    EXPECT_THAT(books_.Rows("SELECT Year, Period FROM Budget"), ElementsAre("2006|3"));
}

TEST_F(ImportOfxTest, AnErrorOfTheDatabaseIsReportedWithTheWholeFile)
{
    const std::string file = Statement(Transaction("F1", "20060301", "-1"));
    books_.Execute("DROP TABLE Budget");

    Import(file);

    ExpectError("", file);
    EXPECT_THAT(Column("FITID"), IsEmpty());
}

TEST_F(ImportOfxTest, AMissingFileIsReportedWithoutText)
{
    import_.ImportOFX(books_.folder.Path("none.ofx"));

    ExpectError("", "");
}

TEST_F(ImportOfxTest, TheNextImportWorksAfterAFailedOne)
{
    Import(Statement(Transaction("F1", "20061301", "-1")));

    Import(Statement(Transaction("F1", "20061201", "-1")));

    EXPECT_THAT(Column("FITID"), ElementsAre("F1"));
    EXPECT_EQ(books_.messages.boxes.size(), 1U);
}

}  // namespace
}  // namespace clb
