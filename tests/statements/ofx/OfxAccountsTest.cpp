// The accounts, currencies and balances of OFX, and files that hold none.

#include <gtest/gtest.h>

#include "statements/ofx/OfxReader.h"
#include "tests/statements/ofx/OfxTexts.h"
#include "tests/support/CollectedStatement.h"

namespace clb {
namespace {

using Texts = std::vector<std::string>;

CollectedStatement ReadText(const std::string& text, const StatementAnswers& answers = {})
{
    return Collect(*ReadOfx(text), answers);
}

std::string WhyNot(const std::string& text)
{
    try {
        (void)ReadOfx(text);
    } catch (const NotAStatement& error) {
        return error.what();
    }
    return "";
}

TEST(OfxAccounts, EachAccountForItself)
{
    const std::string card =
        "<CREDITCARDMSGSRSV1><CCSTMTTRNRS><CCSTMTRS><CURDEF>USD<CCACCTFROM><ACCTID>5555"
        "</CCACCTFROM><BANKTRANLIST>" +
        OfxRow("20240105", "-7") +
        "</BANKTRANLIST><LEDGERBAL><BALAMT>-7.00<DTASOF>20240131120000</LEDGERBAL>"
        "</CCSTMTRS></CCSTMTTRNRS></CREDITCARDMSGSRSV1>";
    const std::string savings =
        "<BANKACCTFROM><BANKID>1<BRANCHID>22<ACCTID>4712<ACCTTYPE>SAVINGS</BANKACCTFROM>";
    const CollectedStatement read = ReadText(OfxFile(OfxStatement(OfxRow("20240103", "1")) +
                                                     OfxStatement("", "CHF", "", savings) + card));

    ASSERT_EQ(read.accounts.size(), 3U);
    EXPECT_EQ(read.accounts[0].account.number, "4711");
    EXPECT_EQ(read.accounts[0].account.bank, "10020030");
    EXPECT_EQ(read.accounts[0].account.type, "Bank");
    EXPECT_EQ(read.accounts[0].account.currency, "EUR");
    EXPECT_FALSE(read.accounts[0].balances.closing);
    EXPECT_EQ(read.accounts[1].account.number, "4712");
    EXPECT_EQ(read.accounts[1].account.bank, "1/22");
    EXPECT_EQ(read.accounts[1].account.currency, "CHF");
    EXPECT_EQ(read.accounts[1].rows.size(), 0U);
    EXPECT_EQ(read.accounts[2].account.type, "Credit Card");
    EXPECT_EQ(read.accounts[2].balances.closing, Money::FromUnits(-7));
    EXPECT_EQ(read.accounts[2].balances.closingDate, Date::Of(2024, 1, 31));
}

TEST(OfxAccounts, TypesOfAccount)
{
    const std::pair<const char*, const char*> types[] = {
        {"CHECKING", "Bank"}, {"SAVINGS", "Bank"},           {"MONEYMRKT", "Bank"},
        {"CD", "Bank"},       {"CREDITLINE", "Credit Card"}, {"", "Bank"}};
    for (const auto& [type, expected] : types) {
        const std::string account =
            std::string("<BANKACCTFROM><ACCTID>1<ACCTTYPE>") + type + "</BANKACCTFROM>";
        const CollectedStatement read = ReadText(OfxFile(OfxStatement("", "EUR", "", account)));
        EXPECT_EQ(read.accounts.at(0).account.type, expected) << type;
    }
}

TEST(OfxAccounts, AnAccountThatComesAgainContinues)
{
    const CollectedStatement read = ReadText(
        OfxFile(OfxStatement(OfxRow("20240103", "1")) + OfxStatement(OfxRow("20240104", "2"))));

    ASSERT_EQ(read.accounts.size(), 1U);
    EXPECT_EQ(read.accounts[0].rows.size(), 2U);
}

// Some banks number the accounts of a customer by their type only.
TEST(OfxAccounts, AccountsOfOneNumberAreToldApartByTheirType)
{
    const auto account = [](const std::string& type) {
        return "<BANKACCTFROM><BANKID>9<ACCTID>1<ACCTTYPE>" + type + "</BANKACCTFROM>";
    };
    const CollectedStatement read =
        ReadText(OfxFile(OfxStatement(OfxRow("20240103", "1"), "EUR", "", account("CHECKING")) +
                         OfxStatement(OfxRow("20240104", "2"), "EUR", "", account("SAVINGS"))));

    ASSERT_EQ(read.accounts.size(), 2U);
    EXPECT_EQ(read.accounts[0].account.number, "1-9-CHECKING");
    EXPECT_EQ(read.accounts[1].account.number, "1-9-SAVINGS");
}

TEST(OfxAccounts, ClosingBalanceIsTheLedgerBalance)
{
    const CollectedStatement read = ReadText(OfxFile(OfxStatement(
        OfxRow("20240103", "1"), "EUR",
        "<LEDGERBAL><BALAMT>1.234,50<DTASOF>20240131</LEDGERBAL><AVAILBAL><BALAMT>99,00"
        "<DTASOF>20240201</AVAILBAL>")));

    EXPECT_EQ(read.accounts.at(0).balances.closing, Money::Parse("1234.5"));
    EXPECT_EQ(read.accounts[0].balances.closingDate, Date::Of(2024, 1, 31));
}

TEST(OfxAccounts, ABalanceThatCannotBeReadIsNone)
{
    for (const char* const balance : {"", "<BALAMT/><DTASOF/>", "<BALAMT>2607.1664944585727"}) {
        const CollectedStatement read = ReadText(OfxFile(
            OfxStatement("", "EUR", std::string("<LEDGERBAL>") + balance + "</LEDGERBAL>")));
        EXPECT_FALSE(read.accounts.at(0).balances.closing) << balance;
    }
}

TEST(OfxAccounts, RowsInAnotherCurrencyHaveAnAccountOfTheirOwn)
{
    const CollectedStatement read = ReadText(OfxFile(OfxStatement(
        OfxRow("20240103", "1") +
            OfxRow("20240104", "2", "<NAME>x<CURRENCY><CURRATE>1.1<CURSYM>USD</CURRENCY>") +
            OfxRow("20240105", "3", "<NAME>y<CURRENCY><CURRATE>1<CURSYM>eur</CURRENCY>") +
            OfxRow("20240106", "4", "<NAME>z<ORIGCURRENCY><CURRATE>2<CURSYM>GBP</ORIGCURRENCY>"),
        "EUR", "<LEDGERBAL><BALAMT>8.00</LEDGERBAL>")));

    ASSERT_EQ(read.accounts.size(), 2U);
    EXPECT_EQ(read.accounts[0].account.currency, "EUR");
    EXPECT_EQ(read.accounts[0].rows.size(), 3U);
    EXPECT_EQ(read.accounts[0].balances.closing, Money::FromUnits(8));
    EXPECT_EQ(read.accounts[1].account.currency, "USD");
    EXPECT_EQ(read.accounts[1].account.number, "4711");
    EXPECT_EQ(read.accounts[1].rows.size(), 1U);
    EXPECT_FALSE(read.accounts[1].balances.closing);
}

TEST(OfxAccounts, TheRowsCurrencyIsTheStatementsIfThatNamesNone)
{
    const CollectedStatement read = ReadText(OfxFile(OfxStatement(
        OfxRow("20240103", "1") + OfxRow("20240104", "2", "<CURRENCY><CURSYM>AUD</CURRENCY>"),
        "")));

    ASSERT_EQ(read.accounts.size(), 1U);
    EXPECT_EQ(read.accounts[0].account.currency, "AUD");
    EXPECT_EQ(read.accounts[0].rows.size(), 2U);
}

TEST(OfxAccounts, ACurrencyIsACode)
{
    const std::pair<const char*, const char*> currencies[] = {
        {"brl", "BRL"}, {"EUR", "EUR"}, {"$$", ""}, {"", ""}};
    for (const auto& [written, code] : currencies) {
        const CollectedStatement read = ReadText(OfxFile(OfxStatement("", written)));
        EXPECT_EQ(read.accounts.at(0).account.currency, code) << written;
    }
}

TEST(OfxAccounts, InvestmentsGiveTheirCashRowsAndListTheRest)
{
    const CollectedStatement read = ReadText(
        "<OFX><INVSTMTMSGSRSV1><INVSTMTTRNRS><INVSTMTRS><CURDEF>USD<INVACCTFROM><BROKERID>b.com"
        "<ACCTID>77</INVACCTFROM><INVTRANLIST>\n"
        "<BUYSTOCK><INVBUY><INVTRAN><FITID>1<DTTRADE>20240102</INVTRAN><UNITS>1.234<UNITPRICE>5"
        "<TOTAL>-5.00</INVBUY><BUYTYPE>BUY</BUYSTOCK>\n"
        "<INVBANKTRAN>" +
        OfxRow("20240103", "0.2400", "<NAME>Interest") +
        "<SUBACCTFUND>CASH</INVBANKTRAN><BUYSTOCK></BUYSTOCK>"
        "<TRANSFER><INVACCTFROM><BROKERID>other<ACCTID>88</INVACCTFROM></TRANSFER>"
        "</INVTRANLIST><INVPOSLIST><POSSTOCK><INVPOS><UNITS>2</INVPOS></POSSTOCK></INVPOSLIST>"
        "<INVBAL><AVAILCASH>9.00</INVBAL></INVSTMTRS></INVSTMTTRNRS></INVSTMTMSGSRSV1>"
        "<SECLISTMSGSRSV1><SECLIST></SECLIST></SECLISTMSGSRSV1></OFX>");

    ASSERT_EQ(read.accounts.size(), 1U);
    EXPECT_EQ(read.accounts[0].account.number, "77");
    EXPECT_EQ(read.accounts[0].account.bank, "b.com");
    EXPECT_EQ(read.Rows(), Texts{"2024-01-03 0.24 Interest"});
    EXPECT_EQ(read.Omissions(),
              (Texts{"line 2: it is a trade or position of securities (BUYSTOCK) x2",
                     "line 3: it is a trade or position of securities (TRANSFER)",
                     "line 3: it is a trade or position of securities (POSSTOCK)"}));
}

TEST(OfxAccounts, Ofc)
{
    const CollectedStatement read = ReadText(
        "<OFC><DTD>2<CPAGE>1252<ACCTSTMT><ACCTFROM><BANKID>001<BRANCHID>12-3<ACCTID>543"
        "<ACCTTYPE>2</ACCTFROM><STMTRS><DTSTART>20160530<DTEND>20160627<LEDGER>-10.00"
        "<STMTTRN><TRNTYPE>1<DTPOSTED>20160601<TRNAMT>-10.00<FITID>A<CHKNUM>911<MEMO>Fee"
        "</STMTTRN><GENTRN><TRNTYPE>0<DTPOSTED>20160602<TRNAMT>880<FITID>B<NAME>Wages</GENTRN>"
        "</STMTRS></ACCTSTMT></OFC>");

    ASSERT_EQ(read.accounts.size(), 1U);
    EXPECT_EQ(read.accounts[0].account.number, "543");
    EXPECT_EQ(read.accounts[0].account.bank, "001/12-3");
    EXPECT_EQ(read.accounts[0].account.type, "Credit Card");
    EXPECT_EQ(read.accounts[0].balances.closing, Money::FromUnits(-10));
    EXPECT_EQ(read.accounts[0].balances.closingDate, Date::Of(2016, 6, 27));
    EXPECT_EQ(read.Rows(), (Texts{"2016-06-01 -10 Fee", "2016-06-02 880 Wages"}));
    EXPECT_EQ(read.accounts[0].rows[0].checkNumber, "911");
}

TEST(OfxAccounts, AStatementWithoutRowsIsAStatement)
{
    const CollectedStatement read = ReadText(OfxFile(OfxStatement("")));

    EXPECT_EQ(read.accounts.size(), 1U);
    EXPECT_EQ(read.Rows(), Texts());
}

TEST(OfxAccounts, TheErrorOfOneAccountIsListed)
{
    const CollectedStatement read = ReadText(
        OfxFile(OfxStatement(OfxRow("20240103", "1")) +
                "<STMTTRNRS><TRNUID>0<STATUS><CODE>2003<SEVERITY>ERROR<MESSAGE>No account</STATUS>"
                "</STMTTRNRS>"));

    EXPECT_EQ(read.Rows(), Texts{"2024-01-03 1 Shop"});
    EXPECT_EQ(read.Omissions(), Texts{"line 11: it is no transaction (error of the bank, code "
                                      "2003: No account)"});
}

TEST(OfxAccounts, FilesThatHoldNoStatementSaySo)
{
    const std::string signOn =
        "<OFX><SIGNONMSGSRSV1><SONRS><STATUS><CODE>0<SEVERITY>INFO</STATUS>"
        "</SONRS></SIGNONMSGSRSV1>";
    EXPECT_EQ(WhyNot("<OFX><SIGNONMSGSRSV1><SONRS><STATUS><CODE>2000<SEVERITY>ERROR<MESSAGE>"
                     "Try &amp; again</STATUS></SONRS></SIGNONMSGSRSV1></OFX>"),
              "The bank answered with an error instead of a statement (code 2000: Try & again).");
    EXPECT_EQ(WhyNot(signOn + "<BANKMSGSRSV1><STMTTRNRS><STATUS><CODE>15500</CODE></STATUS>"
                              "</STMTTRNRS></BANKMSGSRSV1></OFX>"),
              "The bank answered with an error instead of a statement (code 15500).");
    EXPECT_EQ(WhyNot(signOn + "<PROFRS></PROFRS></OFX>"),
              "The file holds a bank's profile, which lists its services, not a statement of an "
              "account.");
    EXPECT_EQ(WhyNot(signOn + "<ACCTINFORS><ACCTINFO></ACCTINFO></ACCTINFORS></OFX>"),
              "The file holds a list of accounts, not a statement of an account.");
    EXPECT_EQ(WhyNot(signOn + "<INTRATRNRS></INTRATRNRS></OFX>"),
              "The file holds a bank's confirmation of transfers, not a statement of an account.");
    EXPECT_EQ(WhyNot(signOn + "<SECLIST></SECLIST></OFX>"),
              "The file holds a list of securities, not a statement of an account.");
    EXPECT_EQ(WhyNot(signOn + "</OFX>"),
              "The file holds only a bank's answer to the sign-on, not a statement of an account.");
    EXPECT_EQ(WhyNot("<OFX></OFX>"),
              "The file is in the format OFX but holds no statement of an account.");
    EXPECT_EQ(WhyNot(signOn), "The file ends before the statement in it begins.");
}

TEST(OfxAccounts, AFileThatBreaksOffGivesItsWholeRowsOnly)
{
    const std::string whole = OfxOfRows(OfxRow("20240103", "-12.50", "<NAME>Shop") +
                                        OfxRow("20240104", "-13.75", "<NAME>Inn"));
    const std::size_t first = whole.find("</STMTTRN>") + 10;
    const std::size_t second = whole.rfind("</STMTTRN>") + 10;
    StatementAnswers take;
    take.takeWholeRows = true;

    for (std::size_t length = whole.find("<STMTRS>") + 8; length + 6 <= whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        const auto reader = ReadOfx(cut);

        EXPECT_EQ(Asked(*reader), Texts{"truncated"}) << length;
        EXPECT_EQ(Asked(*reader, take), Texts()) << length;
        Texts expected;
        if (length >= first)
            expected.emplace_back("2024-01-03 -12.5 Shop");
        if (length >= second)
            expected.emplace_back("2024-01-04 -13.75 Inn");
        EXPECT_EQ(Collect(*reader, take).Rows(), expected) << length;
    }
    EXPECT_EQ(Asked(*ReadOfx(whole)), Texts());
}

TEST(OfxAccounts, RowsWithoutAStatementBelongToTheNumberBeforeThemAndNeedNoEnd)
{
    const std::string text =
        "OFXHEADER:100\r\n<OFX>\r\n<ACCTID>B-1\r\n" + OfxRow("20240103", "1", "<NAME>a") +
        OfxRow("20240104", "2", "<NAME>b") + "<ACCTID>C-1\r\n" + OfxRow("20240105", "3", "<NAME>c");
    const auto reader = ReadOfx(text);

    EXPECT_EQ(Asked(*reader), Texts());
    const CollectedStatement read = Collect(*reader);
    ASSERT_EQ(read.accounts.size(), 2U);
    EXPECT_EQ(read.accounts[0].account.number, "B-1");
    EXPECT_EQ(read.accounts[0].rows.size(), 2U);
    EXPECT_EQ(read.accounts[1].account.number, "C-1");
    EXPECT_EQ(read.accounts[1].rows.size(), 1U);

    const std::string cut = text.substr(0, text.size() - 11);
    EXPECT_EQ(Asked(*ReadOfx(cut)), Texts{"truncated"});
}

}  // namespace
}  // namespace clb
