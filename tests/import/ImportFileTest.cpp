#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "import/modImport.h"
#include "tests/support/Books.h"
#include "tests/support/FakeImportHost.h"

namespace clb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kStatement =
    "<OFC>\r\n<ACCTID>1\r\n<STMTTRN>\r\n<FITID>F1\r\n<DTPOSTED>20060305\r\n<TRNAMT>-45.50\r\n"
    "</STMTTRN>\r\n";
const std::string kQuestion = "ask 4100 All Financial Files|*.ofx;*.qfx;*.ofc;*.qif|All Files|*.*";

class ImportFileTest : public ::testing::Test {
protected:
    ImportFileTest()
    {
        books_.AddAccount("1", "Bank", "Checking");
        host_.status = "Ready to go";
    }

    void Choose(const std::string& name, const std::string& text)
    {
        host_.file = books_.folder.Write(name, text);
    }

    Books books_;
    FakeImportHost host_;
    modImport import_{books_.window.Data(), books_.window.View(), host_, books_.messages,
                      books_.clock};
};

TEST_F(ImportFileTest, ACancelledDialogDoesNothing)
{
    import_.ImportFile();

    EXPECT_THAT(host_.events, ElementsAre(kQuestion));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportFileTest, TheWindowShowsThatItIsBusyAndReturnsToItsState)
{
    Choose("s.ofx", kStatement);

    import_.ImportFile();

    EXPECT_THAT(host_.events, ElementsAre(kQuestion, "status Importing " + host_.file + "...",
                                          "repaint", "disabled", "pointer 11", "account 1",
                                          "pointer 0", "status Ready to go", "enabled"));
}

TEST_F(ImportFileTest, AnUnknownFormatIsReportedAndTheWindowStaysAsItIs)
{
    books_.Execute("UPDATE Account SET CurrentBalance = 7");
    Choose("s.ofx", "!Type:Bank\r\n");

    import_.ImportFile();

    const FakeMessageBox::Box box = {"Invalid file format.", 16, "Corvane Ledgerbook"};
    EXPECT_THAT(books_.messages.boxes, ElementsAre(box));
    EXPECT_THAT(host_.events, ElementsAre(kQuestion, "status Importing " + host_.file + "...",
                                          "repaint", "disabled", "pointer 11"));
    EXPECT_EQ(books_.One("SELECT CurrentBalance FROM Account"), "7");
}

TEST_F(ImportFileTest, EveryAccountIsRebalanced)
{
    books_.AddAccount("2", "Cash", "Purse");
    books_.AddAccount("3", "Investment", "Shares");
    books_.AddAccount("4", "Loan", "House");
    books_.Execute("UPDATE Account SET CurrentBalance = 7");
    books_.Execute("INSERT INTO Trans (Sequence, AccountID, Amount) VALUES (1, '2', 10.25)");
    books_.Execute("INSERT INTO Investment (AccountID, Total) VALUES ('3', 300)");
    books_.Execute("INSERT INTO Loan (AccountID, OriginalAmount, PaidAmount) VALUES ('4', 9, 4)");
    Choose("s.ofx", kStatement);

    import_.ImportFile();

    EXPECT_THAT(books_.Rows("SELECT AccountID, CurrentBalance FROM Account ORDER BY AccountID"),
                ElementsAre("1|-45.5", "2|10.25", "3|300", "4|5"));
}

TEST_F(ImportFileTest, TheViewIsReloadedAfterTheRebalancing)
{
    std::vector<std::string> balances;
    books_.window.View().Refreshed().connect(
        [&] { balances.push_back(books_.One("SELECT CurrentBalance FROM Account")); });
    Choose("s.ofx", kStatement);

    import_.ImportFile();

    EXPECT_THAT(balances, ElementsAre("-45.5"));
}

TEST_F(ImportFileTest, ARefusedAccountStillRebalancesAndReloads)
{
    books_.Execute("UPDATE Account SET CurrentBalance = 7");
    host_.accepts = false;
    Choose("s.ofx", kStatement);

    import_.ImportFile();

    EXPECT_EQ(books_.One("SELECT CurrentBalance FROM Account"), "0");
    EXPECT_EQ(host_.events.back(), "enabled");
    EXPECT_EQ(host_.status, "Ready to go");
}

TEST_F(ImportFileTest, BadDataStillRebalancesAndReloads)
{
    Choose("s.ofx", kStatement + "<STMTTRN>\r\n<FITID>F2\r\n</STMTTRN>\r\n");

    import_.ImportFile();

    EXPECT_EQ(books_.messages.boxes.size(), 1U);
    EXPECT_EQ(books_.One("SELECT CurrentBalance FROM Account"), "-45.5");
    EXPECT_EQ(host_.events.back(), "enabled");
}

TEST_F(ImportFileTest, ImportingTwiceAddsOnce)
{
    Choose("s.ofx", kStatement);

    import_.ImportFile();
    import_.ImportFile();

    EXPECT_EQ(books_.One("SELECT COUNT(1) AS [Count] FROM Trans"), "1");
    EXPECT_EQ(books_.One("SELECT CurrentBalance FROM Account"), "-45.5");
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportFileTest, ARefusedFileCountsNothing)
{
    Choose("s.ofx", kStatement);
    import_.ImportFile();
    EXPECT_EQ(import_.Counts().added, 1);
    Choose("s.txt", "no statement\r\n");

    import_.ImportFile();

    EXPECT_EQ(import_.Counts().added, 0);
}

TEST_F(ImportFileTest, BareLineFeedsAreRepairedBeforeTheFormatIsDetected)
{
    const std::string bare =
        "<OFC>\n<ACCTID>1\n<STMTTRN>\n<FITID>F1\n<DTPOSTED>20060305\n"
        "<TRNAMT>-45.50\n</STMTTRN>\n";
    Choose("s.ofx", bare);

    import_.ImportFile();

    EXPECT_EQ(books_.folder.Read("s.ofx"), kStatement + "\r\n");
    EXPECT_EQ(books_.folder.Read("s.ofx.org"), bare);
    EXPECT_EQ(books_.One("SELECT Amount FROM Trans"), "-45.5");
}

TEST_F(ImportFileTest, AFailedRepairEndsTheCommandAtOnce)
{
    Choose("s.ofx", "<OFC>\n<ACCTID>1\n");
    books_.folder.Write("s.ofx.org", "precious");

    EXPECT_THROW(import_.ImportFile(), RuntimeError);

    EXPECT_EQ(host_.events.back(), "pointer 11");
    EXPECT_EQ(host_.status, "Importing " + host_.file + "...");
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(ImportFileTest, AMissingFileEndsTheCommandAtOnce)
{
    host_.file = books_.folder.Path("none.ofx");

    EXPECT_THROW(import_.ImportFile(), RuntimeError);

    EXPECT_EQ(host_.events.back(), "pointer 11");
}

TEST_F(ImportFileTest, AQifFileIsRecognisedByItsNameAlone)
{
    host_.fallback = "1";
    Choose("bank.QIF", "!Type:Bank\r\nD3/5'06\r\nT-45.00\r\n^\r\n");

    import_.ImportFile();

    EXPECT_EQ(books_.Rows("SELECT AccountID, PostDate, Amount FROM Trans"),
              std::vector<std::string>{"1|2006-03-05|-45"});
    EXPECT_EQ(host_.events.back(), "enabled");
}

}  // namespace
}  // namespace clb
