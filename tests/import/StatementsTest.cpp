#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/Books.h"
#include "tests/support/TestNames.h"

namespace clb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// Imports whole files by the menu command into a new account "Mine".
class StatementsTest : public ::testing::Test {
protected:
    void Import(const std::string& name)
    {
        const std::string copy = books_.folder.Path(name);
        if (!std::filesystem::exists(copy))
            std::filesystem::copy_file(CLB_TEST_FIXTURES "/statements/" + name, copy);
        books_.files.answers.push_back(copy);
        books_.modal.steps.push_back([](Form& form) {
            dynamic_cast<TextBox&>(*form.Find("txtDescription")).Text("Mine");
            form.DefaultButton()->Press();
        });
        books_.window.menus.Find("mnuF_Import")->Press();
    }
    std::vector<std::string> Rows()
    {
        return books_.Rows(
            "SELECT PostDate, Amount, FITID, CheckID, Description, PayeeName FROM Trans "
            "ORDER BY Sequence");
    }
    std::vector<std::string> Accounts()
    {
        return books_.Rows("SELECT AccountID, CurrentBalance FROM Account");
    }
    void ExpectRefused(const std::string& name)
    {
        Import(name);

        const FakeMessageBox::Box box = {"Invalid file format.", 16, "Corvane Ledgerbook"};
        EXPECT_THAT(books_.messages.boxes, ElementsAre(box)) << name;
        EXPECT_THAT(Rows(), IsEmpty()) << name;
        EXPECT_FALSE(books_.window.window.Enabled()) << name;
    }

    Books books_;
};

TEST_F(StatementsTest, ABankStatementAddsItsTransactions)
{
    Import("bank-crlf.ofx");

    EXPECT_THAT(Rows(),
                ElementsAre("2006-02-28|-45.5|H1||Corner Grocer|"
                            "Card purchase at the corner shop, terminal 00417, ",
                            "2006-03-01|-120|H2|1042|Landlord|", "2006-03-05|-9.99|H3||Kiosk|paper",
                            "2006-03-31|1500|H4||Harbour Works Payroll|Salary March",
                            "2006-02-27|-3.125|H5||Ferry|"));
    EXPECT_THAT(Accounts(), ElementsAre("100-200-3|1321.385"));
    EXPECT_THAT(books_.Rows("SELECT Year, Period, Category FROM Budget ORDER BY Period"),
                ElementsAre("2006|2|(none)", "2006|3|(none)"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
    EXPECT_FALSE(books_.folder.Holds("bank-crlf.ofx.org"));
}

TEST_F(StatementsTest, ASecondImportAsksAndAddsNothing)
{
    Import("bank-crlf.ofx");
    const std::vector<std::string> rows = Rows();
    const std::vector<std::string> accounts = Accounts();

    Import("bank-crlf.ofx");

    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(Accounts(), accounts);
    EXPECT_EQ(books_.modal.shown, 1);
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(StatementsTest, TheWindowIsAsBeforeAfterwards)
{
    const std::string status = books_.window.statusBar.Panel(1);

    Import("bank-crlf.ofx");

    EXPECT_EQ(books_.window.statusBar.Panel(1), status);
    EXPECT_EQ(books_.pointer.code, pointer::Default);
    EXPECT_TRUE(books_.window.window.Enabled());
}

TEST_F(StatementsTest, BlankLinesMayPrecedeTheHeader)
{
    Import("bank-blank-lines-first.ofx");

    EXPECT_THAT(Rows(), ElementsAre(StartsWith("2006-02-28|-45.5|H1|")));
}

TEST_F(StatementsTest, BareLineFeedsAreRepaired)
{
    Import("credit-card-lf.ofx");

    EXPECT_THAT(Rows(), ElementsAre("2005-12-31|-12|C1||Tea House|two teas",
                                    "2006-01-02|312|C2||Payment|thank you"));
    EXPECT_THAT(Accounts(), ElementsAre("4111222233334444|300"));
    EXPECT_TRUE(books_.folder.Holds("credit-card-lf.ofx.org"));
}

TEST_F(StatementsTest, ARepairedFileIsImportedAgainWithoutRepair)
{
    Import("credit-card-lf.ofx");
    const std::string repaired = books_.folder.Read("credit-card-lf.ofx");

    Import("credit-card-lf.ofx");

    EXPECT_EQ(books_.folder.Read("credit-card-lf.ofx"), repaired);
    EXPECT_EQ(Rows().size(), 2U);
}

TEST_F(StatementsTest, ClosingTagsAreNotPartOfTheirValues)
{
    Import("end-tags.qfx");

    EXPECT_THAT(Rows(), ElementsAre("2006-03-10|-7.8|Q-1||Bus &amp; Tram|day ticket",
                                    "2006-03-11|-60|Q-2|501|Plumber|"));
    EXPECT_THAT(Accounts(), ElementsAre("55-66|-67.8"));
}

TEST_F(StatementsTest, ABodyInOneLineIsRead)
{
    Import("body-in-one-line.ofx");

    EXPECT_THAT(Rows(),
                ElementsAre("2006-03-04|-1|O1||Stamps|post office", "2006-03-06|-40|O2||Cash|"));
}

TEST_F(StatementsTest, LinesMayEndInCarriageReturnsOnly)
{
    Import("carriage-returns-only.ofx");

    EXPECT_THAT(Rows(), ElementsAre("2006-03-01|-1|M1||Old machine|half"));
}

TEST_F(StatementsTest, OfcFilesAreReadTheSameWay)
{
    Import("old-bank.ofc");

    EXPECT_THAT(Rows(),
                ElementsAre("2006-01-09|-80|F1||Market|", "2006-01-20|200|F2||Refund|overpaid"));
    EXPECT_THAT(Accounts(), ElementsAre("7-314-15|120"));
}

TEST_F(StatementsTest, Windows1252TextIsRead)
{
    Import("windows-1252.ofx");

    EXPECT_THAT(Rows(), ElementsAre("2006-03-07|-15|W1||Café Münster|Preis 15 € – danke"));
}

TEST_F(StatementsTest, Utf8IsReadAndCountedInCharacters)
{
    Import("utf-8.ofx");

    std::string fifty;
    for (int i = 0; i < 50; ++i)
        fifty += "é";
    EXPECT_THAT(Rows(), ElementsAre("2006-03-07|-15|W1||Café Münster|" + fifty));
}

TEST_F(StatementsTest, AByteOrderMarkIsIgnored)
{
    Import("utf-8-with-mark.ofx");

    EXPECT_THAT(Rows(), ElementsAre("2006-03-07|-15|W1||Café Münster|"));
}

TEST_F(StatementsTest, MissingNamesBecomeBlank)
{
    Import("missing-names.ofx");

    EXPECT_THAT(Rows(), ElementsAre("2006-03-01|-1|N1||(blank)|", "2006-03-02|-2|N2||(blank)|",
                                    "2006-03-03|-3|N3||(blank)|only a memo"));
}

TEST_F(StatementsTest, OneTransactionWithoutIdentifierIsKept)
{
    Import("empty-fitid.ofx");

    EXPECT_THAT(Rows(), ElementsAre("2006-03-01|-1|||First|", "2006-03-03|-3|X3||Third|"));
}

TEST_F(StatementsTest, ARepeatedIdentifierIsKeptOnce)
{
    Import("repeated-fitid.ofx");

    EXPECT_THAT(Rows(), ElementsAre("2006-03-01|-1|R1||First|", "2006-03-03|-3|r1||Another case|"));
}

TEST_F(StatementsTest, TwoAccountsInAFileGoIntoTheFirst)
{
    Import("two-accounts.ofx");

    EXPECT_THAT(Rows(), ElementsAre("2006-03-01|-1|T1||Of A|", "2006-03-02|-2|T2||Of B|"));
    EXPECT_THAT(Accounts(), ElementsAre("400-A|-3"));
}

TEST_F(StatementsTest, ATruncatedTransactionIsOmitted)
{
    Import("truncated-block.ofx");

    EXPECT_THAT(Rows(), ElementsAre("2006-03-01|-1|B1||Whole|"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(StatementsTest, AnEmptyTransactionEndsTheImport)
{
    Import("empty-block.ofx");

    EXPECT_THAT(Rows(), ElementsAre("2006-03-01|-1|B1||Before|"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(StatementsTest, AFileWithoutAccountDoesNothing)
{
    Import("missing-acctid.ofx");

    EXPECT_THAT(Accounts(), IsEmpty());
    EXPECT_EQ(books_.modal.shown, 0);
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
    EXPECT_TRUE(books_.window.window.Enabled());
}

TEST_F(StatementsTest, TheRepairLosesWhatFollowsTheFirstCarriageReturn)
{
    Import("header-lf-body-cr.ofx");

    EXPECT_THAT(Rows(), ElementsAre("2006-03-01|-1|M1||Before the first carriage return|"));
}

TEST_F(StatementsTest, AnotherVersionIsRefused)
{
    ExpectRefused("version-103.ofx");
}

TEST_F(StatementsTest, AVersionInAnotherLineIsRefused)
{
    ExpectRefused("version-line-not-third.ofx");
}
TEST_F(StatementsTest, XmlIsRefused)
{
    ExpectRefused("xml.ofx");
}
TEST_F(StatementsTest, AHeaderInOneLineIsRefused)
{
    ExpectRefused("all-in-one-line.ofx");
}
TEST_F(StatementsTest, OfcInSmallLettersIsRefused)
{
    ExpectRefused("old-bank-lower-case.ofc");
}
TEST_F(StatementsTest, QifTextUnderAnotherNameIsRefused)
{
    ExpectRefused("qif-text.ofx");
}
TEST_F(StatementsTest, AnEmptyFileIsRefused)
{
    ExpectRefused("empty.ofx");
}

struct BadStatement {
    std::string file;
    std::string workingText;
};

class BadStatementsTest : public StatementsTest,
                          public ::testing::WithParamInterface<BadStatement> {};

TEST_P(BadStatementsTest, KeepTheRowsBeforeTheErrorAndShowTheFile)
{
    const auto& [name, workingText] = GetParam();

    Import(name);

    const FakeMessageBox::Box box = {
        "Invalid data was found while importing:\n" + workingText + "\n" + books_.folder.Read(name),
        48, "Corvane Ledgerbook"};
    EXPECT_THAT(books_.messages.boxes, ElementsAre(box));
    EXPECT_THAT(Rows(), ElementsAre("2006-03-01|-1|E1||Kept|"));
    EXPECT_THAT(Accounts(), ElementsAre("600|-1"));
    EXPECT_TRUE(books_.window.window.Enabled());
}

INSTANTIATE_TEST_SUITE_P(Files, BadStatementsTest,
                         ::testing::Values(BadStatement{"quote-in-fitid.ofx", ""},
                                           BadStatement{"decimal-comma.ofx", "<TRNAMT>"},
                                           BadStatement{"amount-too-large.ofx", "<TRNAMT>"},
                                           BadStatement{"missing-amount.ofx", "<TRNAMT>"},
                                           BadStatement{"month-13.ofx", "2006/13/01"},
                                           BadStatement{"year-in-letters.ofx", "MMVI"},
                                           BadStatement{"month-in-letters.ofx", "MA"},
                                           BadStatement{"short-date.ofx", "2006/3/"},
                                           BadStatement{"missing-date.ofx", ""}),
                         [](const auto& test) { return TestName(test.param.file); });

}  // namespace
}  // namespace clb
