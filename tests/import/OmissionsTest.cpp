#include <gtest/gtest.h>

#include "base/Text.h"
#include "import/Omissions.h"

namespace clb {
namespace {

std::string Transaction(const std::string& fitid)
{
    return "<STMTTRN>\r\n<FITID>" + fitid + "\r\n<TRNAMT>1\r\n</STMTTRN>\r\n";
}

TEST(OmissionsTest, AnOrdinaryStatementLosesNothing)
{
    const std::string text =
        "<OFC>\r\n<ACCTID>1\r\n" + Transaction("F1") + Transaction("F2") + "</OFC>\r\n";

    EXPECT_TRUE(CountOmissions(text, true).None());
    EXPECT_TRUE(CountOmissions(Replace(text, "\r\n", "\n"), true).None());
    EXPECT_TRUE(CountOmissions(Replace(text, "\r\n", "\r"), true).None());
    EXPECT_TRUE(CountOmissions("", true).None());
    EXPECT_TRUE(CountOmissions("!Type:Bank\nD1/1/06\n^\n", false).None());
}

TEST(OmissionsTest, LinesAfterTheFirstCarriageReturnOfAFileToRepair)
{
    EXPECT_EQ(CountOmissions("!Type:Bank\nT1\n^\r\nT2\r\n^\r\n\r\n", false),
              Omissions{.linesAfterRepair = 2});
    EXPECT_EQ(CountOmissions("!Type:Bank\nT1\n^\r\n\r\n\n", false), Omissions());
    // No repair: the first line has its carriage return.
    EXPECT_EQ(CountOmissions("!Type:Bank\r\nT1\n^\nT2\r\n", false), Omissions());
}

TEST(OmissionsTest, WhatTheRepairDropsCountsAsLinesOnly)
{
    const std::string text = "<OFC>\n<ACCTID>1\n" + Replace(Transaction("F1"), "\r", "") + "\r\n" +
                             Transaction("") + Transaction("");

    EXPECT_EQ(CountOmissions(text, true), Omissions{.linesAfterRepair = 8});
}

TEST(OmissionsTest, TransactionsAfterAnEmptyOne)
{
    EXPECT_EQ(CountOmissions("<OFC>\r\n<ACCTID>1\r\n" + Transaction("F1") + "<STMTTRN></STMTTRN>" +
                                 Transaction("F2") + "<STMTTRN></STMTTRN>" + Transaction(""),
                             true),
              Omissions{.afterEmptyTransaction = 2});
    EXPECT_EQ(CountOmissions("<OFC>\r\n<ACCTID>1\r\n<STMTTRN></STMTTRN>", true), Omissions());
}

TEST(OmissionsTest, TransactionsBeforeTheFirstAccount)
{
    EXPECT_EQ(
        CountOmissions("<OFC>\r\n" + Transaction("F1") + "<ACCTID>1\r\n" + Transaction("F2"), true),
        Omissions{.beforeAccount = 1});
    EXPECT_EQ(CountOmissions("<OFC>\r\n" + Transaction("F1") + Transaction("F2"), true),
              Omissions{.beforeAccount = 2});
}

TEST(OmissionsTest, TransactionsThatAreNotClosed)
{
    const std::string open = "<STMTTRN>\r\n<FITID>F9\r\n";
    const std::string account = "<OFC>\r\n<ACCTID>1\r\n";
    EXPECT_EQ(CountOmissions(account + Transaction("F1") + open, true), Omissions{.notClosed = 1});
    // The open transaction ends where the next one ends and contains it.
    EXPECT_EQ(CountOmissions(account + open + Transaction("F1") + Transaction("F2"), true),
              Omissions{.notClosed = 1});
    EXPECT_EQ(CountOmissions(account + open + open, true), Omissions{.notClosed = 2});
}

TEST(OmissionsTest, FurtherAccountsThatHaveTransactions)
{
    const auto account = [](const std::string& id) { return "<ACCTID>" + id + "\r\n"; };
    EXPECT_EQ(CountOmissions("<OFC>" + account("1") + Transaction("F1") + account("2") +
                                 Transaction("F2") + Transaction("F3") + account("3") +
                                 Transaction("F4") + account("2") + Transaction("F5"),
                             true),
              Omissions{.furtherAccounts = 2});
    EXPECT_EQ(CountOmissions("<OFC>" + account("1") + Transaction("F1") + account("1") +
                                 Transaction("F2") + account("2"),
                             true),
              Omissions());
}

TEST(OmissionsTest, AnAccountWithinATransactionIsTheOtherSideOfATransfer)
{
    const std::string text =
        "<OFC>\n<ACCTID>1\n<STMTTRN><FITID>F1<ACCTID>2</STMTTRN>" + Transaction("F2");

    EXPECT_EQ(CountOmissions(Replace(text, "\r", ""), true), Omissions());
}

TEST(OmissionsTest, TransactionsWithoutAnIdentifier)
{
    EXPECT_EQ(CountOmissions("<OFC><ACCTID>1" + Transaction("") + Transaction("F1") +
                                 "<STMTTRN><TRNAMT>1</STMTTRN>" + Transaction("  "),
                             true),
              Omissions{.withoutIdentifier = 3});
    EXPECT_EQ(CountOmissions(Replace("<OFC><ACCTID>1" + Transaction(""), "\r\n", "\n"), true),
              Omissions{.withoutIdentifier = 1});
}

TEST(OmissionsTest, WhatIsBeforeTheAccountOrNotClosedIsNotRead)
{
    EXPECT_EQ(CountOmissions(Transaction("") + "<ACCTID>1" + "<STMTTRN><TRNAMT>1", true),
              (Omissions{.beforeAccount = 1, .notClosed = 1}));
    EXPECT_EQ(CountOmissions("<ACCTID>1" + Transaction(""), true), Omissions{.beforeAccount = 1});
}

}  // namespace
}  // namespace clb
