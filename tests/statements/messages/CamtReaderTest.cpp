#include <gtest/gtest.h>

#include <algorithm>

#include "statements/messages/CamtReader.h"
#include "tests/statements/messages/CamtText.h"
#include "tests/statements/messages/KeptMessages.h"

namespace clb {
namespace {

using namespace camt;
using Reasons = std::vector<std::pair<std::size_t, LeftOutReason>>;

KeptMessages ReadText(const std::string& text)
{
    EXPECT_TRUE(IsCamt(text));
    return Kept(*ReadCamt(text));
}
KeptMessages ReadEntries(const std::string& entries)
{
    return ReadText(Statements(Statement(entries)));
}
StatementRow RowOf(const Entry& entry)
{
    const auto rows = ReadEntries(entry.Text()).Rows();
    EXPECT_EQ(rows.size(), 1U);
    return rows.empty() ? StatementRow() : rows[0];
}
std::vector<LeftOutReason> ReasonsOf(const std::string& text)
{
    std::vector<LeftOutReason> reasons;
    for (const auto& [line, reason] : ReadText(text).Reasons())
        reasons.push_back(reason);
    return reasons;
}
std::size_t LineOf(const std::string& text, const std::string& part)
{
    return 1 + static_cast<std::size_t>(
                   std::count(text.begin(), text.begin() + std::ptrdiff_t(text.find(part)), '\n'));
}
std::vector<std::string> Amounts(const KeptMessages& kept)
{
    std::vector<std::string> amounts;
    for (const StatementRow& row : kept.Rows())
        amounts.push_back(row.amount.ToText());
    return amounts;
}

TEST(CamtReaderTest, AnEntryIsARowOfItsAccount)
{
    const std::string text = Statements(Statement(
        Balance("OPBD", "100.00") + Balance("CLBD", "-12.50") +
        Entry{.amount = "-112.50",
              .more = Tag("ValDt", Tag("Dt", "2026-03-07")) + Tag("AcctSvcrRef", "20260305-17") +
                      Details(Tag("Refs", Tag("EndToEndId", "E2E-1")) +
                              Tag("RltdPties", Tag("Cdtr", Tag("Nm", "Bakery &amp; Sons"))) +
                              Tag("RmtInf", Tag("Ustrd", "Invoice 7")))}
            .Text()));
    const KeptMessages kept = ReadText(text);

    ASSERT_EQ(kept.accounts.size(), 1U);
    const auto& account = kept.accounts[0];
    EXPECT_EQ(account.account.number, "NL91ABNA0417164300");
    EXPECT_EQ(account.account.currency, "EUR");
    EXPECT_EQ(account.balances.opening, Money::FromUnits(100));
    EXPECT_EQ(account.balances.closing, Money::Parse("-12.5"));
    EXPECT_EQ(account.balances.closingDate, Date::Of(2026, 3, 31));
    ASSERT_EQ(account.rows.size(), 1U);
    const StatementRow& row = account.rows[0];
    EXPECT_EQ(row.line, LineOf(text, "<Ntry>"));
    EXPECT_EQ(row.date, Date::Of(2026, 3, 5));
    EXPECT_EQ(row.valueDate, Date::Of(2026, 3, 7));
    EXPECT_EQ(row.amount, Money::Parse("-112.5"));
    EXPECT_EQ(row.name, "Bakery & Sons");
    EXPECT_EQ(row.text, "Invoice 7; End-to-end E2E-1");
    EXPECT_EQ(row.identifier, "20260305-17");
}

TEST(CamtReaderTest, TheDayIsTheOneWritten)
{
    EXPECT_EQ(RowOf({.booked = "<Dt>2026-03-05+02:00</Dt>"}).date, Date::Of(2026, 3, 5));
    EXPECT_EQ(RowOf({.booked = "<DtTm>2026-03-05T23:59:59.000Z</DtTm>"}).date,
              Date::Of(2026, 3, 5));
    EXPECT_EQ(RowOf({.booked = "", .more = Tag("ValDt", Tag("Dt", "2026-03-06"))}).date,
              Date::Of(2026, 3, 6));
}

TEST(CamtReaderTest, EntriesWithoutADayAreListed)
{
    for (const char* const day : {"", "<Dt>2026-02-30</Dt>", "<Dt>05.03.2026</Dt>"})
        EXPECT_EQ(ReasonsOf(Statements(Statement(Entry{.booked = day}.Text()))),
                  std::vector{LeftOutReason::NoDate})
            << day;
}

TEST(CamtReaderTest, AmountsAreExactOrListed)
{
    EXPECT_EQ(RowOf({.amount = "8.85000"}).amount, Money::Parse("8.85"));
    EXPECT_EQ(RowOf({.amount = "-1.2345"}).amount, Money::Parse("-1.2345"));
    EXPECT_EQ(RowOf({.amount = "7"}).amount, Money::FromUnits(7));
    EXPECT_EQ(RowOf({.amount = " 1.234 "}).amount, Money::Parse("1.234"));
    EXPECT_EQ(RowOf({.amount = "0"}).amount, Money());
    for (const char* const amount :
         {"8.85001", "", "abc", "1e3", "1,234", "99999999999999999", "1.2.3", "--5"})
        EXPECT_EQ(ReasonsOf(Statements(Statement(Entry{.amount = amount}.Text()))),
                  std::vector{LeftOutReason::NoAmount})
            << amount;
}

TEST(CamtReaderTest, AnEntryWithoutADirectionIsListed)
{
    const std::string text =
        Statements(Statement(Tag("Ntry", Amount("5") + Tag("BookgDt", Tag("Dt", "2026-03-05")))));

    EXPECT_EQ(ReasonsOf(text), std::vector{LeftOutReason::NoAmount});
}

TEST(CamtReaderTest, AReversalKeepsTheSignOfItsDirection)
{
    EXPECT_EQ(RowOf({.amount = "-5", .more = Tag("RvslInd", "true")}).amount, Money::FromUnits(-5));
}

TEST(CamtReaderTest, OnlyBookedEntriesAreRows)
{
    const KeptMessages kept =
        ReadEntries(Entry{.state = Tag("Cd", "BOOK")}.Text() + Entry{.state = "PDNG"}.Text() +
                    Entry{.state = Tag("Cd", "PDNG")}.Text() + Entry{.state = "INFO"}.Text() +
                    Entry{.state = "FUTR"}.Text());

    EXPECT_EQ(kept.Rows().size(), 1U);
    ASSERT_EQ(kept.leftOut.size(), 4U);
    for (const LeftOutPart& part : kept.leftOut)
        EXPECT_EQ(part.reason, LeftOutReason::Pending);
}

TEST(CamtReaderTest, APendingEntryTakesNoIdentifierFromTheBookedOne)
{
    const std::string reference = Tag("AcctSvcrRef", "20260305-17");
    const auto rows = ReadEntries(Entry{.state = "PDNG", .more = reference}.Text() +
                                  Entry{.more = reference}.Text())
                          .Rows();

    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].identifier, "20260305-17");
}

TEST(CamtReaderTest, TheOtherPartyIsNamedInEveryVersion)
{
    const auto name = [](const std::string& amount, const std::string& parties) {
        return RowOf({.amount = amount, .more = Details(Tag("RltdPties", parties))}).name;
    };
    const std::string both = Tag("Dbtr", Tag("Nm", "Payer")) + Tag("Cdtr", Tag("Nm", "Payee"));

    EXPECT_EQ(name("5", both), "Payer");
    EXPECT_EQ(name("-5", both), "Payee");
    EXPECT_EQ(name("5", Tag("Dbtr", Tag("Pty", Tag("Nm", "Payer")))), "Payer");
    EXPECT_EQ(name("5", Tag("Dbtr", Tag("Agt", Tag("FinInstnId", Tag("Nm", "A Bank"))))), "A Bank");
    EXPECT_EQ(name("5", Tag("UltmtDbtr", Tag("Nm", "Behind"))), "Behind");
    EXPECT_EQ(
        name("5", Tag("Dbtr", Tag("Nm", "NOTPROVIDED")) + Tag("UltmtDbtr", Tag("Nm", "Behind"))),
        "Behind");
}

TEST(CamtReaderTest, TheOwnerIsNotTheOtherParty)
{
    const auto name = [](const std::string& amount, const std::string& parties) {
        return RowOf({.amount = amount, .more = Details(Tag("RltdPties", parties))}).name;
    };
    // A returned payment: the parties are those of the payment.
    EXPECT_EQ(name("5", Tag("Dbtr", Tag("Nm", "JANE OWNER")) + Tag("Cdtr", Tag("Nm", "Payee"))),
              "Payee");
    EXPECT_EQ(name("5", Tag("Cdtr", Tag("Nm", "Payee"))), "Payee");
    EXPECT_EQ(name("-5", Tag("Dbtr", Tag("Nm", "Payer")) +
                             Tag("DbtrAcct", Tag("Id", Tag("IBAN", "DE02120300000000202051"))) +
                             Tag("Cdtr", Tag("Nm", "J. Owner")) +
                             Tag("CdtrAcct", Tag("Id", Tag("IBAN", "NL91ABNA0417164300")))),
              "Payer");
}

TEST(CamtReaderTest, TheTextHoldsAllThatTheEntrySays)
{
    const StatementRow row = RowOf(
        {.amount = "-50",
         .more = Details(Tag("Refs", Tag("EndToEndId", "NOTPROVIDED") + Tag("MndtId", "M-1") +
                                         Tag("ChqNb", "4711")) +
                         Tag("AmtDtls", Tag("InstdAmt", Amount("55.10", "USD"))) +
                         Tag("Chrgs", "<TtlChrgsAndTaxAmt Ccy=\"EUR\">1.50</TtlChrgsAndTaxAmt>") +
                         Tag("RltdPties",
                             Tag("Cdtr", Tag("Nm", "Shop")) + Tag("UltmtCdtr", Tag("Nm", "Group")) +
                                 Tag("CdtrAcct", Tag("Id", Tag("Othr", Tag("Id", "99"))))) +
                         Tag("RmtInf",
                             Tag("Ustrd", "first  line") + Tag("Ustrd", "second") +
                                 Tag("Strd", Tag("CdtrRefInf", Tag("Ref", "RF18539007547034")) +
                                                 Tag("AddtlRmtInf", "remark"))) +
                         Tag("RtrInf", Tag("Rsn", Tag("Cd", "AC04"))) +
                         Tag("AddtlTxInf", "of the transaction")) +
                 Tag("AddtlNtryInf", "of the entry")});

    EXPECT_EQ(row.name, "Shop");
    EXPECT_EQ(row.checkNumber, "4711");
    EXPECT_EQ(row.text,
              "first line second; RF18539007547034; remark; of the transaction; Return AC04; "
              "For Group; 55.1 USD; Charges 1.5 EUR; Mandate M-1; Cheque 4711; 99; of the entry");
}

TEST(CamtReaderTest, ALineOf140CharactersGoesOnInTheNext)
{
    const std::string line(140, 'x');
    EXPECT_EQ(RowOf({.more = Details(Tag("RltdPties", Tag("Dbtr", Tag("Nm", "A"))) +
                                     Tag("RmtInf", Tag("Ustrd", line) + Tag("Ustrd", "y")))})
                  .text,
              line + "y");
}

TEST(CamtReaderTest, APartOfAWordIsNotTheSameText)
{
    EXPECT_EQ(
        RowOf({.more = Details(Tag("RltdPties", Tag("Dbtr", Tag("Nm", "A"))) +
                               Tag("RmtInf", Tag("Ustrd", "Invoice 17")) + Tag("AddtlTxInf", "7")) +
                       Tag("AddtlNtryInf", "invoice; 17")})
            .text,
        "Invoice 17; 7; invoice; 17");
}

TEST(CamtReaderTest, WithoutAPartyTheDescriptionIsTheName)
{
    EXPECT_EQ(RowOf({.more = Tag("AddtlNtryInf", "Account fee\n March")}).name,
              "Account fee March");
    EXPECT_EQ(RowOf({.more = Details(Tag("RmtInf", Tag("Ustrd", "Interest")))}).name, "Interest");
    EXPECT_EQ(
        RowOf({.more = Tag("AddtlNtryInf", "/TRTP/SEPA TRANSFER/NAME/J. Doe/REMI/Rent")}).name,
        "J. Doe; Rent; TRTP SEPA TRANSFER");
}

std::string Part(const std::string& amount, const std::string& more = {})
{
    return Tag("TxDtls",
               Amount(amount) + more + Tag("RltdPties", Tag("Dbtr", Tag("Nm", "N" + amount))));
}

TEST(CamtReaderTest, ABatchIsSplitIfItsPartsSumToIt)
{
    const StatementRow row =
        RowOf({.amount = "10", .more = Tag("NtryDtls", Part("4.5") + Part("5.5"))});

    ASSERT_EQ(row.pieces.size(), 2U);
    EXPECT_EQ(row.pieces[0].amount, Money::Parse("4.5"));
    EXPECT_EQ(row.pieces[1].amount, Money::Parse("5.5"));
    EXPECT_EQ(row.pieces[1].text, "N5.5");
    EXPECT_EQ(row.name, "2 transactions");
}

TEST(CamtReaderTest, PartsOfABatchHaveSignsOfTheirOwn)
{
    const StatementRow row = RowOf({.amount = "-10",
                                    .more = Tag("NtryDtls", Part("12")) +
                                            Tag("NtryDtls", Part("2", Tag("CdtDbtInd", "CRDT")))});

    ASSERT_EQ(row.pieces.size(), 2U);
    EXPECT_EQ(row.pieces[0].amount, Money::FromUnits(-12));
    EXPECT_EQ(row.pieces[1].amount, Money::FromUnits(2));
}

TEST(CamtReaderTest, ABatchWhosePartsDoNotSumToItStaysWhole)
{
    const StatementRow row =
        RowOf({.amount = "10", .more = Tag("NtryDtls", Part("4.5") + Part("5.51"))});

    EXPECT_TRUE(row.pieces.empty());
    EXPECT_EQ(row.name, "N4.5");
    EXPECT_EQ(row.text, "N5.51");
}

TEST(CamtReaderTest, PartsThatDoNotSumToTheBatchAreListed)
{
    const KeptMessages kept = ReadEntries(
        Entry{.amount = "10", .more = Tag("NtryDtls", Part("4.5") + Part("5.51"))}.Text());

    ASSERT_EQ(kept.leftOut.size(), 1U);
    EXPECT_EQ(kept.leftOut[0].text, "pieces that do not add up to 10: 4.5, 5.51");
}

TEST(CamtReaderTest, PartsInAnotherCurrencyAreNoPieces)
{
    const std::string foreign = Tag("TxDtls", Amount("5", "USD"));
    EXPECT_TRUE(RowOf({.amount = "10", .more = Tag("NtryDtls", foreign + foreign)}).pieces.empty());
}

TEST(CamtReaderTest, AReferenceOfSeveralRowsIdentifiesNone)
{
    const auto rows = ReadEntries(Entry{.more = Tag("AcctSvcrRef", "20260305-17")}.Text() +
                                  Entry{.more = Tag("AcctSvcrRef", "20260305-17")}.Text() +
                                  Entry{.more = Tag("NtryRef", "ENTRY-0001")}.Text())
                          .Rows();

    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].identifier, "");
    EXPECT_EQ(rows[1].identifier, "");
    EXPECT_EQ(rows[2].identifier, "ENTRY-0001");
}

// A running number or an account number comes again in the next file, for another row.
TEST(CamtReaderTest, WhatTheNextFileRepeatsIsNoIdentifier)
{
    for (const char* const reference :
         {"1", "00017", "0000000000", "NONREF", "NOTPROVIDED", "CH9300762011623852957"})
        EXPECT_EQ(RowOf({.more = Tag("NtryRef", reference)}).identifier, "") << reference;
}

TEST(CamtReaderTest, ReportsRepeatEntriesOfEarlierReports)
{
    const auto report = [](const std::string& entries) { return Tag("Rpt", Account() + entries); };
    const std::string first = Entry{.more = Tag("AcctSvcrRef", "20260305-17")}.Text();
    const std::string second =
        Entry{.amount = "3", .more = Tag("AcctSvcrRef", "20260305-18")}.Text();
    const KeptMessages kept = ReadText(
        Document("BkToCstmrAcctRpt", report(first) + report(first + second), "camt.052.001.08"));

    EXPECT_EQ(Amounts(kept), (std::vector<std::string>{"12.5", "3"}));
    EXPECT_EQ(kept.Rows()[0].identifier, "20260305-17");
    ASSERT_EQ(kept.leftOut.size(), 1U);
    EXPECT_EQ(kept.leftOut[0].reason, LeftOutReason::TwiceInFile);
}

TEST(CamtReaderTest, EqualEntriesOfOneReportAreTwoRows)
{
    const std::string entry = Entry{.more = Tag("AcctSvcrRef", "20260305-17")}.Text();
    const KeptMessages kept = ReadText(Document(
        "BkToCstmrDbtCdtNtfctn", Tag("Ntfctn", Account() + entry + entry), "camt.054.001.04"));

    EXPECT_EQ(kept.Rows().size(), 2U);
    EXPECT_TRUE(kept.leftOut.empty());
}

TEST(CamtReaderTest, StatementsOfOneAccountAreJoined)
{
    const auto day = [](const std::string& opening, const std::string& amount,
                        const std::string& closing) {
        return Statement(Balance("OPBD", opening) + Balance("CLBD", closing) +
                         Entry{.amount = amount}.Text());
    };
    for (const std::string& text : {Statements(day("10", "5", "15") + day("15", "1", "16")),
                                    Statements(day("15", "1", "16") + day("10", "5", "15"))}) {
        const KeptMessages kept = ReadText(text);

        ASSERT_EQ(kept.accounts.size(), 1U);
        EXPECT_EQ(kept.accounts[0].rows.size(), 2U);
        EXPECT_EQ(kept.accounts[0].balances.opening, Money::FromUnits(10));
        EXPECT_EQ(kept.accounts[0].balances.closing, Money::FromUnits(16));
    }
}

TEST(CamtReaderTest, EachAccountOfAFileIsReadByItself)
{
    const KeptMessages kept =
        ReadText(Statements(Statement(Entry{}.Text(), Account("DE02120300000000202051")) +
                            Statement("", Tag("Acct", Tag("Id", Tag("Othr", Tag("Id", "12345"))) +
                                                          Tag("Ccy", "SEK")))));

    ASSERT_EQ(kept.accounts.size(), 2U);
    EXPECT_EQ(kept.accounts[0].account.number, "DE02120300000000202051");
    EXPECT_EQ(kept.accounts[0].rows.size(), 1U);
    EXPECT_EQ(kept.accounts[1].account.number, "12345");
    EXPECT_EQ(kept.accounts[1].account.currency, "SEK");
    EXPECT_TRUE(kept.accounts[1].rows.empty());
    EXPECT_TRUE(kept.accounts[1].ended);
}

// Symptom: the entry was listed as left out.
TEST(CamtReaderTest, AnEntryInAnotherCurrencyThanItsAccountIsInOneOfItsOwn)
{
    const KeptMessages kept = ReadEntries(Entry{.currency = "USD"}.Text() + Entry{}.Text());

    EXPECT_TRUE(kept.leftOut.empty());
    ASSERT_EQ(kept.accounts.size(), 2U);
    EXPECT_EQ(kept.accounts[0].account.currency, "USD");
    EXPECT_EQ(kept.accounts[0].account.number, "NL91ABNA0417164300");
    EXPECT_EQ(kept.accounts[0].rows.size(), 1U);
    EXPECT_EQ(kept.accounts[1].account.currency, "EUR");
    EXPECT_EQ(kept.accounts[1].rows.size(), 1U);
}

TEST(CamtReaderTest, APendingEntryInAnotherCurrencyMakesNoAccount)
{
    const KeptMessages kept =
        ReadEntries(Entry{.state = "PDNG", .currency = "USD"}.Text() + Entry{}.Text());

    ASSERT_EQ(kept.accounts.size(), 1U);
    EXPECT_EQ(kept.accounts[0].account.currency, "EUR");
    ASSERT_EQ(kept.leftOut.size(), 1U);
    EXPECT_EQ(kept.leftOut[0].reason, LeftOutReason::Pending);
}

TEST(CamtReaderTest, AnAccountInSeveralCurrenciesIsOneEach)
{
    const KeptMessages kept = ReadText(Statements(
        Statement(Balance("OPBD", "1") + Balance("OPBD", "2", "USD") + Entry{}.Text() +
                      Entry{.amount = "7", .currency = "USD"}.Text() + Balance("CLBD", "9", "USD"),
                  Account("NL91ABNA0417164300", ""))));

    ASSERT_GE(kept.accounts.size(), 2U);
    EXPECT_EQ(kept.accounts[0].account.currency, "EUR");
    EXPECT_EQ(kept.accounts[1].account.currency, "USD");
    EXPECT_EQ(kept.accounts[1].rows.size(), 1U);
    EXPECT_EQ(kept.accounts[1].balances.opening, Money::FromUnits(2));
    EXPECT_EQ(kept.accounts[1].balances.closing, Money::FromUnits(9));
}

TEST(CamtReaderTest, WithoutACurrencyTheAccountHasThatOfItsEntries)
{
    const KeptMessages kept = ReadText(
        Statements(Statement(Entry{.currency = "CHF"}.Text(), Account("NL91ABNA0417164300", ""))));

    ASSERT_EQ(kept.accounts.size(), 1U);
    EXPECT_EQ(kept.accounts[0].account.currency, "CHF");
}

TEST(CamtReaderTest, InterimBalancesCloseAReport)
{
    const KeptMessages kept = ReadText(Document(
        "BkToCstmrAcctRpt", Tag("Rpt", Account() + Balance("PRCD", "5") + Balance("ITBD", "-3")),
        "camt.052.001.02"));

    ASSERT_EQ(kept.accounts.size(), 1U);
    EXPECT_EQ(kept.accounts[0].balances.opening, Money::FromUnits(5));
    EXPECT_EQ(kept.accounts[0].balances.closing, Money::FromUnits(-3));
}

TEST(CamtReaderTest, PagesOfAStatementHaveInterimBalances)
{
    const KeptMessages kept =
        ReadText(Statements(Statement(Balance("OPBD", "1") + Balance("ITBD", "2")) +
                            Statement(Balance("ITBD", "2") + Balance("CLBD", "3"))));

    EXPECT_EQ(kept.accounts[0].balances.opening, Money::FromUnits(1));
    EXPECT_EQ(kept.accounts[0].balances.closing, Money::FromUnits(3));
}

TEST(CamtReaderTest, ReadsTheFirstVersion)
{
    const std::string entry =
        Tag("Ntry", Amount("5") + Tag("CdtDbtInd", "CRDT") + Tag("Sts", "BOOK") +
                        Tag("BookgDt", Tag("Dt", "2009-01-02")) +
                        Tag("TxDtls", Tag("RmtInf", Tag("Ustrd", "old"))));
    const KeptMessages kept = ReadText(
        Document("BkToCstmrStmtV01",
                 Tag("Stmt", Tag("Acct", Tag("Id", Tag("PrtryAcct", Tag("Id", "77")))) + entry),
                 "camt.053.001.01"));

    ASSERT_EQ(kept.Rows().size(), 1U);
    EXPECT_EQ(kept.Rows()[0].name, "old");
    EXPECT_EQ(kept.accounts[0].account.number, "77");
}

/// The text with every element in a namespace prefix.
std::string Prefixed(std::string text)
{
    std::string out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        out += text[at];
        if (text[at] == '<' && text[at + 1] == '/') {
            out += "/ns2:";
            ++at;
        } else if (text[at] == '<' && text[at + 1] != '?') {
            out += "ns2:";
        }
    }
    return out;
}

TEST(CamtReaderTest, PrefixesAndEnvelopesDoNotMatter)
{
    const std::string plain = Statements(Statement(Entry{}.Text()));
    const std::string body = plain.substr(plain.find("<Document"));

    for (const std::string& text :
         {Prefixed(plain), "<s:Envelope><s:Header/><s:Body>" + body + "</s:Body></s:Envelope>",
          "<Answer><![CDATA[" + plain + "]]></Answer>", "  \n<!-- a <b> -->" + body,
          "<!DOCTYPE x [<!ENTITY a \"b\">]>" + body, plain + plain})
        EXPECT_FALSE(ReadText(text).Rows().empty()) << text;
}

TEST(CamtReaderTest, CharactersInAnyWritingAreRead)
{
    EXPECT_EQ(RowOf({.more = Tag("AddtlNtryInf", "<![CDATA[A & <b>]]> &#xE9;&lt;")}).name,
              "A & <b> é<");
}

TEST(CamtReaderTest, EntitiesAreNotExpanded)
{
    std::string text = "<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>";
    text += Statements(Statement(Entry{.more = Tag("AddtlNtryInf", "&b;")}.Text()));
    text.erase(text.find("<?xml"), text.find("?>") + 2 - text.find("<?xml"));

    EXPECT_EQ(ReadText(text).Rows()[0].name, "&b;");
}

TEST(CamtReaderTest, OtherMessagesAreRefusedByTheirNames)
{
    const std::string text = Document("CstmrCdtTrfInitn", "", "pain.001.001.03");
    EXPECT_TRUE(IsCamt(text));
    try {
        (void)ReadCamt(text);
        FAIL();
    } catch (const NotAStatement& refused) {
        EXPECT_STREQ(refused.what(),
                     "The file is a message of another kind (pain.001.001.03), not a statement.");
    }
    EXPECT_THROW((void)ReadCamt("<M><AppHdr xmlns=\"urn:iso:std:iso:20022:tech:xsd:head.001\"/>" +
                                text.substr(text.find("<Doc")) + "</M>"),
                 NotAStatement);
    EXPECT_THROW((void)ReadCamt(Document("AcctRptgReq", "", "camt.060.001.03")), NotAStatement);
}

TEST(CamtReaderTest, OtherTextsAreNotCamt)
{
    for (const char* const text : {"", " ", "<html><body/></html>", "<OFX></OFX>", "a,b\n", ":20:"})
        EXPECT_FALSE(IsCamt(text)) << text;
}

TEST(CamtReaderTest, AFileThatBreaksOffIsAskedAbout)
{
    const std::string whole = Statements(
        Statement(Entry{}.Text() + Entry{.amount = "3"}.Text() + Entry{.amount = "4"}.Text()));
    const std::string text = whole.substr(0, whole.rfind("<CdtDbtInd>"));
    const auto reader = ReadCamt(text);

    const auto questions = reader->Open({});
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_EQ(questions[0].question, StatementQuestion::Truncated);
    EXPECT_EQ(questions[0].options, (std::vector<std::string>{"rows", "nothing"}));
    EXPECT_TRUE(reader->Open({.takeWholeRows = true}).empty());
    const KeptMessages kept = Kept(*reader);
    EXPECT_EQ(Amounts(kept), (std::vector<std::string>{"12.5", "3"}));
    EXPECT_EQ(kept.Reasons(), (Reasons{{LineOf(text, ">4<"), LeftOutReason::Incomplete}}));
}

TEST(CamtReaderTest, AFileThatBreaksOffInItsSecondStatementHasTheWholeRowsOfBoth)
{
    const std::string whole = Statements(
        Statement(Entry{.amount = "8", .state = "PDNG"}.Text() + Entry{.amount = "2"}.Text() +
                  Entry{.booked = ""}.Text()) +
        Statement(Entry{.amount = "3"}.Text() + Entry{.amount = "4", .state = "PDNG"}.Text() +
                      Entry{.amount = "5"}.Text() + Entry{.amount = "6"}.Text(),
                  Account("DE02120300000000202051")));
    const std::string text = whole.substr(0, whole.rfind("<CdtDbtInd>"));
    const auto reader = ReadCamt(text);

    EXPECT_EQ(reader->Open({}).size(), 1U);
    const KeptMessages kept = Kept(*reader);
    ASSERT_EQ(kept.accounts.size(), 2U);
    EXPECT_EQ(kept.accounts[0].account.number, "NL91ABNA0417164300");
    ASSERT_EQ(kept.accounts[0].rows.size(), 1U);
    EXPECT_EQ(kept.accounts[0].rows[0].line, LineOf(text, ">2<"));
    EXPECT_EQ(kept.accounts[1].account.number, "DE02120300000000202051");
    ASSERT_EQ(kept.accounts[1].rows.size(), 2U);
    EXPECT_EQ(kept.accounts[1].rows[1].line, LineOf(text, ">5<"));
    EXPECT_EQ(Amounts(kept), (std::vector<std::string>{"2", "3", "5"}));
    EXPECT_EQ(kept.Reasons(), (Reasons{{LineOf(text, ">8<"), LeftOutReason::Pending},
                                       {LineOf(text, ">12.50<"), LeftOutReason::NoDate},
                                       {LineOf(text, ">4<"), LeftOutReason::Pending},
                                       {LineOf(text, ">6<"), LeftOutReason::Incomplete}}));
}

TEST(CamtReaderTest, AFileThatBreaksOffBetweenEntriesListsNoneAsIncomplete)
{
    const std::string whole =
        Statements(Statement(Entry{.amount = "2"}.Text()) +
                   Statement(Entry{.amount = "3"}.Text(), Account("DE02120300000000202051")));
    // After the last entry, in the second account, and between the statements.
    for (const auto& [cut, amounts] :
         {std::pair(whole.rfind("</Stmt>"), std::vector<std::string>{"2", "3"}),
          std::pair(whole.rfind("<Ccy>"), std::vector<std::string>{"2"}),
          std::pair(whole.find("</Stmt>") + 8, std::vector<std::string>{"2"})}) {
        const std::string text = whole.substr(0, cut);
        const auto reader = ReadCamt(text);
        EXPECT_EQ(reader->Open({}).size(), 1U) << cut;
        const KeptMessages kept = Kept(*reader);
        EXPECT_EQ(Amounts(kept), amounts) << cut;
        EXPECT_TRUE(kept.leftOut.empty()) << cut;
    }
}

TEST(CamtReaderTest, OnlyWholeRowsComeWhereverTheFileIsCut)
{
    const std::string whole = Statements(Statement(Entry{}.Text() + Entry{.amount = "3"}.Text()));
    for (std::size_t length = 0; length < whole.size() - 1; ++length) {
        const std::string text = whole.substr(0, length);
        if (!IsCamt(text) || text.find("BkToCstmrStmt>") == std::string::npos)
            continue;
        const auto reader = ReadCamt(text);
        EXPECT_EQ(reader->Open({}).size(), 1U) << length;
        for (const std::string& amount : Amounts(Kept(*reader)))
            EXPECT_TRUE(amount == "12.5" || amount == "3") << length;
    }
}

TEST(CamtReaderTest, TagsThatDoNotMatchEndTheFile)
{
    const std::string text = Statements(
        Statement(Entry{}.Text() + Entry{.more = "<a></b>"}.Text() + Entry{.amount = "3"}.Text()));

    EXPECT_EQ(ReadCamt(text)->Open({}).size(), 1U);
    EXPECT_EQ(Amounts(ReadText(text)), std::vector<std::string>{"12.5"});
}

TEST(CamtReaderTest, DeepNestingEndsTheFile)
{
    std::string deep;
    for (int depth = 0; depth < 100000; ++depth)
        deep += "<a>";
    const std::string text = Statements(Statement(Entry{}.Text() + deep));

    EXPECT_EQ(Amounts(ReadText(text)), std::vector<std::string>{"12.5"});
}

TEST(CamtReaderTest, ARowReadTwiceIsEqual)
{
    const std::string text = Statements(Statement(Entry{}.Text()));
    const auto reader = ReadCamt(text);

    EXPECT_EQ(Amounts(Kept(*reader)), Amounts(Kept(*reader)));
    EXPECT_EQ(reader->Kind(), "camt");
}

}  // namespace
}  // namespace clb
