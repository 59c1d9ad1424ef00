#include <gtest/gtest.h>

#include "base/Text.h"
#include "import/Omissions.h"

namespace clb {
namespace {

std::string Transaction(const std::string& fitid)
{
    return "<STMTTRN>\r\n<FITID>" + fitid + "\r\n<TRNAMT>1\r\n</STMTTRN>\r\n";
}

TEST(LeftOutTest, AnOrdinaryStatementLosesNothing)
{
    const std::string text =
        "<OFC>\r\n<ACCTID>1\r\n" + Transaction("F1") + Transaction("F2") + "</OFC>\r\n";

    EXPECT_TRUE(CountLeftOut(text, true).Nothing());
    EXPECT_TRUE(CountLeftOut(Replace(text, "\r\n", "\n"), true).Nothing());
    EXPECT_TRUE(CountLeftOut(Replace(text, "\r\n", "\r"), true).Nothing());
    EXPECT_TRUE(CountLeftOut("", true).Nothing());
    EXPECT_TRUE(CountLeftOut("!Type:Bank\nD1/1/06\n^\n", false).Nothing());
}

TEST(LeftOutTest, LinesBehindTheFirstCarriageReturnOfAFileToRepair)
{
    EXPECT_EQ(CountLeftOut("!Type:Bank\nT1\n^\r\nT2\r\n^\r\n\r\n", false),
              LeftOut{.linesBehindRepair = 2});
    EXPECT_EQ(CountLeftOut("!Type:Bank\nT1\n^\r\n\r\n\n", false), LeftOut());
    // The first line says it: here it has its carriage return.
    EXPECT_EQ(CountLeftOut("!Type:Bank\r\nT1\n^\nT2\r\n", false), LeftOut());
}

TEST(LeftOutTest, WhatTheRepairDropsCountsAsLinesOnly)
{
    const std::string text = "<OFC>\n<ACCTID>1\n" + Replace(Transaction("F1"), "\r", "") + "\r\n" +
                             Transaction("") + Transaction("");

    EXPECT_EQ(CountLeftOut(text, true), LeftOut{.linesBehindRepair = 8});
}

TEST(LeftOutTest, LinesOfTheOriginalThatARepairedFileLacks)
{
    const std::string original = "!Type:Bank\nT1\n^\r\nT2\r\n^\r\n\r\n";
    EXPECT_EQ(LinesRepairedAway("!Type:Bank\r\nT1\r\n^\r\n", original), 2U);
    EXPECT_EQ(LinesRepairedAway("!Type:Bank\r\nT3\r\n^\r\n", original), 0U);
    EXPECT_EQ(LinesRepairedAway("!Type:Bank\r\nT1\r\n^\r\n", "!Type:Bank\nT1\n^"), 0U);
    EXPECT_EQ(LinesRepairedAway(original, original), 0U);
}

TEST(LeftOutTest, TransactionsBehindAnEmptyOne)
{
    EXPECT_EQ(CountLeftOut("<OFC>\r\n<ACCTID>1\r\n" + Transaction("F1") + "<STMTTRN></STMTTRN>" +
                               Transaction("F2") + "<STMTTRN></STMTTRN>" + Transaction(""),
                           true),
              LeftOut{.behindEmptyTransaction = 2});
    EXPECT_EQ(CountLeftOut("<OFC>\r\n<ACCTID>1\r\n<STMTTRN></STMTTRN>", true), LeftOut());
}

TEST(LeftOutTest, TransactionsInFrontOfTheFirstAccount)
{
    EXPECT_EQ(
        CountLeftOut("<OFC>\r\n" + Transaction("F1") + "<ACCTID>1\r\n" + Transaction("F2"), true),
        LeftOut{.beforeAccount = 1});
    EXPECT_EQ(CountLeftOut("<OFC>\r\n" + Transaction("F1") + Transaction("F2"), true),
              LeftOut{.beforeAccount = 2});
}

TEST(LeftOutTest, TransactionsThatAreNotClosed)
{
    const std::string open = "<STMTTRN>\r\n<FITID>F9\r\n";
    const std::string account = "<OFC>\r\n<ACCTID>1\r\n";
    EXPECT_EQ(CountLeftOut(account + Transaction("F1") + open, true), LeftOut{.notClosed = 1});
    // The open one takes the next one's end, and that one with it.
    EXPECT_EQ(CountLeftOut(account + open + Transaction("F1") + Transaction("F2"), true),
              LeftOut{.notClosed = 1});
    EXPECT_EQ(CountLeftOut(account + open + open, true), LeftOut{.notClosed = 2});
}

TEST(LeftOutTest, FurtherAccountsThatHaveTransactions)
{
    const auto account = [](const std::string& id) { return "<ACCTID>" + id + "\r\n"; };
    EXPECT_EQ(CountLeftOut("<OFC>" + account("1") + Transaction("F1") + account("2") +
                               Transaction("F2") + Transaction("F3") + account("3") +
                               Transaction("F4") + account("2") + Transaction("F5"),
                           true),
              LeftOut{.furtherAccounts = 2});
    EXPECT_EQ(CountLeftOut("<OFC>" + account("1") + Transaction("F1") + account("1") +
                               Transaction("F2") + account("2"),
                           true),
              LeftOut());
}

TEST(LeftOutTest, AnAccountWithinATransactionIsTheOtherSideOfATransfer)
{
    const std::string text =
        "<OFC>\n<ACCTID>1\n<STMTTRN><FITID>F1<ACCTID>2</STMTTRN>" + Transaction("F2");

    EXPECT_EQ(CountLeftOut(Replace(text, "\r", ""), true), LeftOut());
}

TEST(LeftOutTest, TransactionsWithoutAnIdentifier)
{
    EXPECT_EQ(CountLeftOut("<OFC><ACCTID>1" + Transaction("") + Transaction("F1") +
                               "<STMTTRN><TRNAMT>1</STMTTRN>" + Transaction("  "),
                           true),
              LeftOut{.withoutIdentifier = 3});
    EXPECT_EQ(CountLeftOut(Replace("<OFC><ACCTID>1" + Transaction(""), "\r\n", "\n"), true),
              LeftOut{.withoutIdentifier = 1});
}

TEST(LeftOutTest, WhatStandsBeforeTheAccountOrIsNotClosedIsNotRead)
{
    EXPECT_EQ(CountLeftOut(Transaction("") + "<ACCTID>1" + "<STMTTRN><TRNAMT>1", true),
              (LeftOut{.beforeAccount = 1, .notClosed = 1}));
    EXPECT_EQ(CountLeftOut("<ACCTID>1" + Transaction(""), true), LeftOut{.beforeAccount = 1});
}

}  // namespace
}  // namespace clb
