// QIF as banks and programs write it.

#include <gtest/gtest.h>

#include "statements/qif/QifReader.h"
#include "tests/support/CollectedStatement.h"

namespace clb {
namespace {

using Texts = std::vector<std::string>;

CollectedStatement ReadText(const std::string& text, const StatementAnswers& answers = {})
{
    return Collect(*ReadQif(text), answers);
}

/// A record that settles the order of dates and the decimal mark.
const std::string kMonthFirst = "D12/31/2023\nT1.00\nPz\n^\n";

StatementRow ReadRecord(const std::string& record)
{
    return ReadText("!Type:Bank\n" + kMonthFirst + record + "^\n").accounts.at(0).rows.at(1);
}

TEST(QifReader, RowsWithAllTheirFields)
{
    const CollectedStatement read = ReadText(
        "!Type:Bank\r\nD01/31/2024\r\nT-1,234.50\r\nCX\r\nN101\r\nPBaker\r\nMBread\r\n"
        "AStreet 1\r\nLFood:Bread/Home\r\n^\r\n");

    ASSERT_EQ(read.accounts.size(), 1U);
    EXPECT_EQ(read.accounts[0].account.type, "Bank");
    EXPECT_EQ(read.accounts[0].account.name, "");
    ASSERT_EQ(read.Rows(), Texts{"2024-01-31 -1234.5 Baker | Bread"});
    const StatementRow& row = read.accounts[0].rows[0];
    EXPECT_EQ(row.line, 2U);
    EXPECT_EQ(row.category, "Food:Bread/Home");
    EXPECT_EQ(row.checkNumber, "101");
    EXPECT_EQ(row.identifier, "");
    EXPECT_TRUE(row.pieces.empty());
}

TEST(QifReader, TheWholeFileSettlesTheOrderOfItsDates)
{
    const auto both = [](const std::string& other) {
        return ReadText("!Type:Bank\nD03/02/2024\nT1.00\nPa\n^\nD" + other + "\nT2.00\nPb\n^\n")
            .Rows()
            .at(0);
    };
    EXPECT_EQ(both("25/02/2024"), "2024-02-03 1 a");
    EXPECT_EQ(both("02/25/2024"), "2024-03-02 1 a");
}

TEST(QifReader, DatesOfEveryShape)
{
    for (const char* const date : {"2/29/2024", "2-29-2024", "2/29'24", "2/29' 24", "02/29/24",
                                   " 2/29/24", "2.29.2024", "2024-02-29"})
        EXPECT_EQ(ReadRecord("D" + std::string(date) + "\nT5.00\n").date, Date::Of(2024, 2, 29))
            << date;
    EXPECT_EQ(ReadText("!Type:Bank\nD20240229\nT5.00\n^\n").Rows(), Texts{"2024-02-29 5 "});
    EXPECT_EQ(ReadRecord("D1/ 5' 0\nT5.00\n").date, Date::Of(2000, 1, 5));
    EXPECT_EQ(ReadRecord("D1/ 5/98\nT5.00\n").date, Date::Of(1998, 1, 5));
}

TEST(QifReader, AnOrderThatTheFileLeavesOpenIsAsked)
{
    const std::string text = "!Type:Bank\nD03/02/2024\nT1.00\nPa\n^\n";
    const auto reader = ReadQif(text);
    StatementAnswers day;
    day.dateOrder = DateText::Order::DayMonthYear;

    ASSERT_EQ(Asked(*reader), Texts{"dateOrder"});
    EXPECT_EQ(reader->Open({}).at(0).proposed, "mdy");
    EXPECT_EQ(Collect(*reader).Rows(), Texts{"2024-03-02 1 a"});
    EXPECT_EQ(Asked(*reader, day), Texts());
    EXPECT_EQ(Collect(*reader, day).Rows(), Texts{"2024-02-03 1 a"});
}

TEST(QifReader, ProposesTheDayFirstToWhoWritesDecimalCommas)
{
    EXPECT_EQ(ReadQif("!Type:Bank\nD03/02/2024\nT1,00\n^\n")->Open({}).at(0).proposed, "dmy");
}

TEST(QifReader, AnAnswerAgainstTheFileLeavesOutWhatItDoesNotFit)
{
    StatementAnswers day;
    day.dateOrder = DateText::Order::DayMonthYear;

    const CollectedStatement read = ReadText("!Type:Bank\n" + kMonthFirst, day);

    EXPECT_EQ(read.Rows(), Texts());
    EXPECT_EQ(read.Omissions(),
              Texts{"line 2: it has no date that can be read (12/31/2023 1.00 z)"});
}

TEST(QifReader, DatesOfDifferentOrdersAreAsked)
{
    const auto reader = ReadQif("!Type:Bank\nD31/12/2023\nT1.00\n^\nD12/31/2023\nT1.00\n^\n");
    EXPECT_EQ(Asked(*reader), Texts{"dateOrder"});
}

TEST(QifReader, TheMarkOfDecimals)
{
    EXPECT_EQ(ReadText("!Type:Bank\nD31/12/2023\nT-1.234,50\n^\nD31/12/2023\nT1.234\n^\n").Rows(),
              (Texts{"2023-12-31 -1234.5 ", "2023-12-31 1234 "}));
    const std::string open = "!Type:Bank\nD31/12/2023\nT1,234\n^\n";
    EXPECT_EQ(Asked(*ReadQif(open)), Texts{"decimal"});
    EXPECT_EQ(ReadText(open).Rows(), Texts{"2023-12-31 1234 "});
}

TEST(QifReader, TheAmountMayBeWrittenTwice)
{
    EXPECT_EQ(ReadRecord("D1/2/2024\nU-5.00\nT-5.00\n").amount, Money::FromUnits(-5));
    EXPECT_EQ(ReadRecord("D1/2/2024\nU-5.00\n").amount, Money::FromUnits(-5));

    const CollectedStatement read =
        ReadText("!Type:Bank\n" + kMonthFirst + "D1/2/2024\nU-5.00\nT-6.00\nPx\n^\n");
    EXPECT_EQ(read.Omissions(),
              Texts{"line 6: it has no amount that can be read exactly (1/2/2024 -6.00 x)"});
}

TEST(QifReader, WhatHasNoDateOrAmountIsListed)
{
    const CollectedStatement read =
        ReadText("!Type:Bank\n" + kMonthFirst +
                 "T5.00\nPno date\n^\nD1/2/2024\nPno amount\n^\nD2/30/2024\nT1.00\nPno day\n^\n"
                 "D1/2/2024\nTfive\n^\nD1/2/2024\nT1.23456\n^\n^\n");

    EXPECT_EQ(read.Rows().size(), 1U);
    EXPECT_EQ(read.Omissions(),
              (Texts{"line 6: it has no date that can be read (5.00 no date)",
                     "line 9: it has no amount that can be read exactly (1/2/2024 no amount)",
                     "line 12: it has no date that can be read (2/30/2024 1.00 no day)",
                     "line 16: it has no amount that can be read exactly (1/2/2024 five)",
                     "line 19: it has no amount that can be read exactly (1/2/2024 1.23456)"}));
}

TEST(QifReader, NamesTextsAndNumbers)
{
    const std::string start = "D1/2/2024\nT5.00\n";
    EXPECT_EQ(ReadRecord(start + "MBread\n").name, "Bread");
    EXPECT_EQ(ReadRecord(start + "MBread\n").text, "");
    EXPECT_EQ(ReadRecord(start + "AStreet 1\nABonn\n").name, "Street 1 Bonn");
    EXPECT_EQ(ReadRecord(start + "Pa\nMb\nMc\n").text, "b c");
    EXPECT_EQ(ReadRecord(start + "N0\n").checkNumber, "");
    EXPECT_EQ(ReadRecord(start + "NATM\n").checkNumber, "ATM");
    EXPECT_EQ(ReadRecord(start + "L[Savings]\n").category, "[Savings]");
}

TEST(QifReader, SplitsBecomePieces)
{
    const StatementRow row =
        ReadRecord("D1/2/2024\nT-50.00\nPx\nLFood\nSFood\nEbread\n$-30.00\nSCar\n%40\n$-20.00\n");

    EXPECT_EQ(row.category, "Food");
    ASSERT_EQ(row.pieces.size(), 2U);
    EXPECT_EQ(row.pieces[0].category, "Food");
    EXPECT_EQ(row.pieces[0].text, "bread");
    EXPECT_EQ(row.pieces[0].amount, Money::FromUnits(-30));
    EXPECT_EQ(row.pieces[1].category, "Car");
    EXPECT_EQ(row.pieces[1].amount, Money::FromUnits(-20));
}

TEST(QifReader, ADateAmongThePiecesIsNotTheRows)
{
    const CollectedStatement read =
        ReadText("!Type:Bank\n" + kMonthFirst +
                 "D1/2/2024\nT-50.00\nPx\nSA\nD1/7/2024\n$-30.00\nSB\n$-20.00\n^\n");

    EXPECT_EQ(read.Rows(), (Texts{"2023-12-31 1 z", "2024-01-02 -50 x"}));
    EXPECT_EQ(read.accounts.at(0).rows.at(1).pieces.size(), 2U);
}

TEST(QifReader, PiecesAlwaysSumToTheAmount)
{
    const std::string start = "D1/2/2024\nT-50.00\nL--Split--\n";
    const auto pieces = [&start](const std::string& written) {
        std::string text;
        for (const StatementPiece& piece : ReadRecord(start + written).pieces)
            text += piece.category + " " + piece.amount.ToText() + ";";
        return text;
    };
    EXPECT_EQ(pieces("SA\n$-30.00\nSB\n$-10.00\n"), "A -30;B -10; -10;");
    EXPECT_EQ(pieces("SA\n$30.00\nSB\n$20.00\n"), "A -30;B -20;");
    EXPECT_EQ(pieces("SA\n$-30.00\nSB\n"), "A -30;B -20;");
    EXPECT_EQ(pieces("SA\n$-50.00\n"), "");
    EXPECT_EQ(ReadRecord(start + "SA\n$-50.00\n").category, "A");
    EXPECT_EQ(ReadRecord(start + "SA\n$1\nSB\n$2\n").category, "");
}

// Symptom: the first piece got the whole amount.
TEST(QifReader, PiecesInPercentAreExactOrNone)
{
    const auto read = ReadText(
        "!Type:Bank\nD1/13/2024\nT-100.00\nPA\nSFood\n%60\nSHome\n%40%\n^\n"
        "D1/14/2024\nT-0.01\nPB\nSFood\n%50\nSHome\n%50\n^\n");

    ASSERT_EQ(read.accounts.at(0).rows.size(), 2U);
    const auto& exact = read.accounts[0].rows[0].pieces;
    ASSERT_EQ(exact.size(), 2U);
    EXPECT_EQ(exact[0].amount, Money::FromUnits(-60));
    EXPECT_EQ(exact[1].amount, Money::FromUnits(-40));
    EXPECT_TRUE(read.accounts[0].rows[1].pieces.empty());
    ASSERT_EQ(read.leftOut.size(), 1U);
    EXPECT_EQ(read.leftOut[0].text, "pieces without an exact amount: Food 50%; Home 50%");
}

TEST(QifReader, AnAmountThatIsMissingIsTheSumOfThePieces)
{
    EXPECT_EQ(ReadRecord("D1/2/2024\nSA\n$-30.00\nSB\n$-20.00\n").amount, Money::FromUnits(-50));
}

TEST(QifReader, EachAccountForItself)
{
    const CollectedStatement read = ReadText(
        "!Option:AutoSwitch\n!Account\nNChecking\nD12/31/2023\nTBank\n^\nNCard\nTCCard\n^\n"
        "!Clear:AutoSwitch\n!Account\nNChecking\nTBank\n$12,50\n^\n!Type:Bank\n" +
        kMonthFirst + "!Account\nNCard\nTCCard\n^\n!Type:CCard\nD1/2/2024\nT-2.00\nPb\n^\n");

    ASSERT_EQ(read.accounts.size(), 2U);
    EXPECT_EQ(read.accounts[0].account.name, "Checking");
    EXPECT_EQ(read.accounts[0].rows.size(), 1U);
    EXPECT_EQ(read.accounts[1].account.name, "Card");
    EXPECT_EQ(read.accounts[1].account.type, "Credit Card");
    EXPECT_EQ(read.accounts[1].rows.size(), 1U);
    EXPECT_EQ(read.Omissions(), Texts());
}

TEST(QifReader, AListOfAllAccountsNamesNone)
{
    const CollectedStatement read = ReadText(
        "!Option:AutoSwitch\n!Account\nNChecking\n^\nNCard\n^\n!Clear:AutoSwitch\n"
        "!Type:Bank\n" +
        kMonthFirst);

    EXPECT_EQ(read.accounts.at(0).account.name, "");
}

TEST(QifReader, AnOpeningBalanceIsARowThatNamesItsAccount)
{
    const CollectedStatement read =
        ReadText("!Type:Cash\nD12/31/2023\nT10.00\nPOpening Balance\nL[Purse]\n^\n");

    EXPECT_EQ(read.accounts.at(0).account.name, "Purse");
    EXPECT_EQ(read.accounts[0].account.type, "Cash");
    EXPECT_EQ(read.Rows(), Texts{"2023-12-31 10 Opening Balance"});
    EXPECT_EQ(read.accounts.at(0).rows.at(0).category, "");
}

TEST(QifReader, ListsAreNoRows)
{
    const CollectedStatement read = ReadText(
        "!Type:Cat\nNFood\nD1/1/1\nT5,00\nE\nB1,5\n^\n!Type:Class\nNHome\n^\n!Type:Memorized\n"
        "KP\nT-5.00\nPx\n^\n!Type:Security\nNIBM\n^\n!Type:Prices\n\"IBM\",141 9/16,\" 1/28/98\"\n"
        "^\n!Type:Budget\nNa\n^\n!Type:Bank\n" +
        kMonthFirst + "!Type:Tag\nNa\n^\n");

    EXPECT_EQ(read.Rows(), Texts{"2023-12-31 1 z"});
    EXPECT_EQ(read.Omissions(), Texts());
}

TEST(QifReader, InvestmentsAreListedByTheirAction)
{
    const CollectedStatement read = ReadText(
        "!Account\nNBroker\nTInvst\n^\n!Type:Invst\nD1/2/2024\nNBuy\nYIBM\nQ5\nI10.00\nT50.00\n^\n"
        "D1/3/2024\nNDiv\nT1.00\n^\nD1/4/2024\nNBuy\nT2.00\n^\n");

    EXPECT_TRUE(read.accounts.empty());
    EXPECT_EQ(read.Omissions(), (Texts{"line 6: it is a trade or position of securities (Buy) x2",
                                       "line 13: it is a trade or position of securities (Div)"}));
}

TEST(QifReader, TypesInAnyCaseAndOfAnyName)
{
    const std::pair<const char*, const char*> types[] = {
        {"!Type:Bank ", "Bank"},        {"!type:BANK", "Bank"},  {"!Type: Cash", "Cash"},
        {"!Type:CCard", "Credit Card"}, {"!Type:Oth A", "Bank"}, {"!Type:Oth L", "Credit Card"},
        {"!Type:Banque", "Bank"}};
    for (const auto& [header, type] : types) {
        const CollectedStatement read = ReadText(header + ("\n" + kMonthFirst));
        EXPECT_EQ(read.accounts.at(0).account.type, type) << header;
        EXPECT_EQ(read.Rows().size(), 1U) << header;
    }
}

TEST(QifReader, LineEndsBlankLinesAndIndentation)
{
    for (const char* const end : {"\n", "\r", "\r\n", "\n\n", "\r\r\n", " \t\n  "}) {
        std::string text;
        for (const char* const line : {"!Type:Bank", "D12/31/2023", "T1.00", "Pz", "^"})
            text += line + std::string(end);
        EXPECT_EQ(ReadText(text).Rows(), Texts{"2023-12-31 1 z"}) << end;
    }
}

TEST(QifReader, ARecordAlsoEndsWhereTheNextBegins)
{
    EXPECT_EQ(ReadText("!Type:Bank\nD12/31/2023\nT1.00\nPa\nD12/30/2023\nT2.00\nPb\n"
                       "!Type:Bank\nPc\nD12/29/2023\nT3.00\nPd\nD12/28/2023\nT4.00\n^\n")
                  .Rows(),
              (Texts{"2023-12-31 1 a", "2023-12-30 2 b", "2023-12-29 3 c", "2023-12-28 4 d"}));
}

TEST(QifReader, TwoDatesInOneRecordAreNone)
{
    const CollectedStatement read =
        ReadText("!Type:Bank\n" + kMonthFirst + "Pa\nD1/2/2024\nD1/3/2024\nT1.00\n^\n");
    EXPECT_EQ(read.Rows().size(), 1U);
    EXPECT_EQ(read.leftOut.at(0).reason, LeftOutReason::NoDate);
}

TEST(QifReader, TheLastRecordMayLackItsEnd)
{
    const std::string text = "!Type:Bank\n" + kMonthFirst + "D1/2/2024\nT2.00\nPb\n";

    EXPECT_EQ(Asked(*ReadQif(text)), Texts());
    EXPECT_EQ(ReadText(text).Rows().size(), 2U);
}

TEST(QifReader, AFileThatBreaksOffGivesItsWholeRowsOnly)
{
    StatementAnswers take;
    take.takeWholeRows = true;
    for (const char* const rest :
         {"D1/2/2024\nT2.00\nPb", "D1/2/2024\nT2.0", "D1/2/2024\nT2.00\n", "D1/2", "D1/2/2024\n"}) {
        const std::string text = "!Type:Bank\n" + kMonthFirst + rest;
        const auto reader = ReadQif(text);

        EXPECT_EQ(Asked(*reader), Texts{"truncated"}) << rest;
        EXPECT_EQ(Asked(*reader, take), Texts()) << rest;
        const CollectedStatement read = Collect(*reader, take);
        EXPECT_EQ(read.Rows(), Texts{"2023-12-31 1 z"}) << rest;
        EXPECT_EQ(read.leftOut.at(0).reason, LeftOutReason::Incomplete) << rest;
    }
}

TEST(QifReader, FilesWithDatesOfOneShapeHaveTheSameShape)
{
    EXPECT_EQ(ReadQif("!Type:Bank\nD1/ 2'24\nT1\n^\n")->Shape(),
              ReadQif("!Type:Bank\nD12/31'23\nT1\n^\n")->Shape());
    EXPECT_NE(ReadQif("!Type:Bank\nD1.2.2024\nT1\n^\n")->Shape(),
              ReadQif("!Type:Bank\nD1/2/2024\nT1\n^\n")->Shape());
}

TEST(QifReader, AFileWithoutRowsHasNone)
{
    EXPECT_EQ(ReadText("!Type:Bank\n").accounts.size(), 1U);
    EXPECT_EQ(ReadText("!Type:Cat\nNFood\n^\n").accounts.size(), 0U);
    EXPECT_EQ(ReadText("!Option:AutoSwitch\n!Account\nNa\n^\n").Rows(), Texts());
}

TEST(QifReader, IsKnownByItsFirstLines)
{
    for (const char* const text :
         {"!Type:Bank\n", "\r\n!type:ccard", "### a comment\n\n!Type:Class\nNa\n^\n",
          "!Account\nNa\n^\n", "!Option:AutoSwitch\n!Account\n", "!Clear:AutoSwitch\n!Type:Cat",
          "D1/2/2024\nT5.00\nPx\n^\n", "D1/2/2024\r\nU5\r\nT5\r\n^"})
        EXPECT_TRUE(IsQifText(text)) << text;
    for (const char* const text :
         {"", "Date,Amount\n1/2/2024,5", "D1/2/2024\nT5.00\n", "Dear\nTom 5\n^\n", "!\n",
          "!Other\n", ":20:A\n:25:B\n", "D;T\n1;2\n^\n"})
        EXPECT_FALSE(IsQifText(text)) << text;
}

TEST(QifReader, ARecordWithoutEndIsReadInATimeThatGrowsWithIt)
{
    std::string text = "!Type:Bank\nD12/31/2023\nT1.00\n";
    for (int i = 0; i < 100000; ++i)
        text += "SFood\n$1.00\nMmore\n";

    EXPECT_EQ(ReadText(text + "^\n").Rows().size(), 1U);
}

}  // namespace
}  // namespace clb
