#include <gtest/gtest.h>

#include <algorithm>

#include "statements/messages/Mt940Reader.h"
#include "tests/statements/messages/KeptMessages.h"

namespace clb {
namespace {

using Reasons = std::vector<std::pair<std::size_t, LeftOutReason>>;

/// A message with these fields between its opening and its closing balance.
std::string Message(const std::string& fields, const std::string& opening = "C260301EUR100,00",
                    const std::string& closing = "C260331EUR90,00")
{
    return ":20:REF\r\n:25:12345678/9876543\r\n:28C:1/1\r\n:60F:" + opening + "\r\n" + fields +
           ":62F:" + closing + "\r\n-\r\n";
}
KeptMessages ReadText(const std::string& text)
{
    EXPECT_TRUE(IsMt940(text));
    return Kept(*ReadMt940(text));
}
StatementRow RowOf(const std::string& fields)
{
    const auto rows = ReadText(Message(fields)).Rows();
    EXPECT_EQ(rows.size(), 1U) << fields;
    return rows.empty() ? StatementRow() : rows[0];
}
/// The row of a line, without text.
StatementRow LineOf(const std::string& line)
{
    return RowOf(":61:" + line + "\r\n");
}
LeftOutReason ReasonOf(const std::string& line)
{
    const KeptMessages kept = ReadText(Message(":61:" + line + "\r\n"));
    EXPECT_TRUE(kept.Rows().empty()) << line;
    EXPECT_EQ(kept.leftOut.size(), 1U) << line;
    return kept.leftOut.empty() ? LeftOutReason::NotARow : kept.leftOut[0].reason;
}
/// Name and text of a row whose field 86 this is.
std::string Texts(const std::string& content)
{
    const StatementRow row = RowOf(":61:2603050305D10,NTRFNONREF\r\n:86:" + content + "\r\n");
    return row.name + " | " + row.text;
}
std::vector<std::string> Amounts(const KeptMessages& kept)
{
    std::vector<std::string> amounts;
    for (const StatementRow& row : kept.Rows())
        amounts.push_back(row.amount.ToText());
    return amounts;
}

TEST(Mt940ReaderTest, AStatementLineIsARowOfItsAccount)
{
    const KeptMessages kept = ReadText(
        Message(":61:2603070305D10,00NTRFCUSTOMER//BANK-12345\r\n:86:Bakery\r\nInvoice 7\r\n"));

    ASSERT_EQ(kept.accounts.size(), 1U);
    const auto& account = kept.accounts[0];
    EXPECT_EQ(account.account.bank, "12345678");
    EXPECT_EQ(account.account.number, "12345678/9876543");
    EXPECT_EQ(account.account.currency, "EUR");
    EXPECT_EQ(account.balances.opening, Money::FromUnits(100));
    EXPECT_EQ(account.balances.closing, Money::FromUnits(90));
    EXPECT_EQ(account.balances.closingDate, Date::Of(2026, 3, 31));
    ASSERT_EQ(account.rows.size(), 1U);
    const StatementRow& row = account.rows[0];
    EXPECT_EQ(row.line, 5U);
    EXPECT_EQ(row.date, Date::Of(2026, 3, 5));
    EXPECT_EQ(row.valueDate, Date::Of(2026, 3, 7));
    EXPECT_EQ(row.amount, Money::FromUnits(-10));
    EXPECT_EQ(row.name, "Bakery");
    EXPECT_EQ(row.text, "Invoice 7; Reference CUSTOMER; Bank reference BANK-12345");
    EXPECT_EQ(row.identifier, "BANK-12345");
}

TEST(Mt940ReaderTest, MarksSaySignsAndReversals)
{
    EXPECT_EQ(LineOf("260305C1,NTRF").amount, Money::FromUnits(1));
    EXPECT_EQ(LineOf("260305D1,NTRF").amount, Money::FromUnits(-1));
    EXPECT_EQ(LineOf("260305RC1,NTRF").amount, Money::FromUnits(-1));
    EXPECT_EQ(LineOf("260305RD1,NTRF").amount, Money::FromUnits(1));
    EXPECT_EQ(LineOf("260305CR1,NTRF").amount, Money::FromUnits(1));
    EXPECT_EQ(LineOf("260305DR1,NTRF").amount, Money::FromUnits(-1));
    EXPECT_EQ(LineOf("260305RCR1,NTRF").amount, Money::FromUnits(-1));
    EXPECT_EQ(LineOf("260305RDM1,NTRF").amount, Money::FromUnits(1));
    EXPECT_EQ(LineOf("2603050305 D 1,NTRF").amount, Money::FromUnits(-1));
}

TEST(Mt940ReaderTest, AmountsAreExactOrListed)
{
    EXPECT_EQ(LineOf("260305C,50NTRF").amount, Money::Parse("0.5"));
    EXPECT_EQ(LineOf("260305C000000001147,9500NTRF").amount, Money::Parse("1147.95"));
    EXPECT_EQ(LineOf("260305C52.58NTRF").amount, Money::Parse("52.58"));
    EXPECT_EQ(LineOf("260305C1.234,56NTRF").amount, Money::Parse("1234.56"));
    EXPECT_EQ(LineOf("260305C1,234NTRF").amount, Money::Parse("1.234"));
    EXPECT_EQ(LineOf("260305C100NTRF").amount, Money::FromUnits(100));
    for (const char* const amount : {"", ",", "1.234", "1,23456", "1,2,3", "999999999999999999,"})
        EXPECT_EQ(ReasonOf("260305C" + std::string(amount) + "NTRF"), LeftOutReason::NoAmount)
            << amount;
    EXPECT_EQ(ReasonOf("260305X1,NTRF"), LeftOutReason::NoAmount);
}

TEST(Mt940ReaderTest, EntryDatesAroundNewYearAreInTheNearestYear)
{
    EXPECT_EQ(LineOf("2512310102C1,NTRF").date, Date::Of(2026, 1, 2));
    EXPECT_EQ(LineOf("2601021231C1,NTRF").date, Date::Of(2025, 12, 31));
    EXPECT_EQ(LineOf("2402290229C1,NTRF").date, Date::Of(2024, 2, 29));
    EXPECT_EQ(LineOf("9912310101C1,NTRF").date, Date::Of(2000, 1, 1));
    EXPECT_EQ(LineOf("800101C1,NTRF").date, Date::Of(1980, 1, 1));
    EXPECT_EQ(LineOf("790101C1,NTRF").date, Date::Of(2079, 1, 1));
    EXPECT_EQ(LineOf("20260305C1,NTRF").date, Date::Of(2026, 3, 5));
}

// Interest of banks that count 30 days a month has such value dates.
TEST(Mt940ReaderTest, ThirtiethOfFebruaryIsItsLastDay)
{
    const StatementRow row = LineOf("2602300301C1,NTRF");

    EXPECT_EQ(row.date, Date::Of(2026, 3, 1));
    EXPECT_EQ(row.valueDate, Date::Of(2026, 2, 28));
    EXPECT_EQ(LineOf("240230C1,NTRF").date, Date::Of(2024, 2, 29));
}

TEST(Mt940ReaderTest, DaysThatDoNotExistAreListed)
{
    for (const char* const date : {"260231", "261301", "", "26030", "2603050230", "26030503"})
        EXPECT_EQ(ReasonOf(std::string(date) + "C1,NTRF"), LeftOutReason::NoDate) << date;
}

TEST(Mt940ReaderTest, ExpectedBookingsAreListed)
{
    EXPECT_EQ(ReasonOf("260305EC1,NTRF"), LeftOutReason::Pending);
    EXPECT_EQ(ReasonOf("260305ED1,NTRF"), LeftOutReason::Pending);
}

TEST(Mt940ReaderTest, LeftOutPartsSayTheirLine)
{
    EXPECT_EQ(ReadText(Message(":61:260305C1,NTRF\r\n:86:a\r\nb\r\n:61:garbage\r\n")).Reasons(),
              (Reasons{{8, LeftOutReason::NoDate}}));
}

TEST(Mt940ReaderTest, OnlyReferencesOfOneRowIdentifyIt)
{
    const auto rows = ReadText(Message(":61:260305C1,NTRFNONREF//SAME-12345\r\n"
                                       ":61:260305C2,NTRFNONREF//SAME-12345\r\n"
                                       ":61:260305C3,NTRFNONREF//OWN-123456\r\n"
                                       ":61:260305C4,NTRFNONREF//1234\r\n"
                                       ":61:260305C5,NTRFNONREF//to advice\r\n"))
                          .Rows();

    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[0].identifier, "");
    EXPECT_EQ(rows[1].identifier, "");
    EXPECT_EQ(rows[2].identifier, "OWN-123456");
    EXPECT_EQ(rows[3].identifier, "");
    EXPECT_EQ(rows[4].identifier, "");
}

TEST(Mt940ReaderTest, LineEndsOfAllKindsAreRead)
{
    std::string text = Message(":61:260305C1,NTRF\r\n:86:a\r\nb\r\n");
    const std::string crlf = text;
    const auto with = [&crlf](const std::string& end) {
        std::string out;
        for (const char c : crlf)
            if (c == '\n')
                out += end;
            else if (c != '\r')
                out += c;
        return out;
    };
    for (const char* const end : {"\n", "\r", "\r\n", "\r\r\n", " \r\n"}) {
        const auto rows = ReadText(with(end)).Rows();
        ASSERT_EQ(rows.size(), 1U);
        EXPECT_EQ(rows[0].name + rows[0].text, "ab");
    }
}

TEST(Mt940ReaderTest, EnvelopesDoNotMatter)
{
    const std::string plain = Message(":61:260305C1,NTRF\r\n:86:a\r\n");
    const std::string body = plain.substr(0, plain.rfind('-'));
    for (const std::string& text :
         {"{1:F01BANKNL2AXXXX0000000000}{2:O940BANKNL2AXXXXN}{3:}{4:\r\n" + body + "-}{5:}",
          "\x01{1:F01BANK}{2:I940BANKN}{4:\r\n" + body + "-}\x03",
          "{1:F01BANK}\r\n{2:I940BANKN}\r\n{4:\r\n" + body + "-}\r\n",
          "{1:F01BANK}{4:" + body + "-}", "BANKNL2A\r\n940\r\nBANKNL2A\r\n" + plain,
          ":940:\r\n" + plain, plain + "\r\n\r\n\x1A"}) {
        const KeptMessages kept = ReadText(text);
        ASSERT_EQ(kept.Rows().size(), 1U) << text;
        EXPECT_EQ(kept.Rows()[0].name, "a") << text;
        EXPECT_TRUE(ReadMt940(text)->Open({}).empty()) << text;
    }
}

TEST(Mt940ReaderTest, MessagesOfOneAccountAreJoined)
{
    const std::string first = Message(":61:260305D1,NTRF\r\n", "C260304EUR10,", "C260305EUR9,");
    const std::string second = Message(":61:260306D2,NTRF\r\n", "C260305EUR9,", "C260306EUR7,");
    for (const std::string& text : {first + second, second + first}) {
        const KeptMessages kept = ReadText(text);

        ASSERT_EQ(kept.accounts.size(), 1U);
        EXPECT_EQ(kept.accounts[0].rows.size(), 2U);
        EXPECT_EQ(kept.accounts[0].balances.opening, Money::FromUnits(10));
        EXPECT_EQ(kept.accounts[0].balances.closing, Money::FromUnits(7));
    }
}

TEST(Mt940ReaderTest, BalancesMayBeNegativeInterimOrWithoutCurrency)
{
    const KeptMessages kept =
        ReadText(":20:A\n:25:1\n:60M:D260301EUR5,\n:61:260301C1,NTRF\n:62M:D2603014,50\n-\n");

    EXPECT_EQ(kept.accounts[0].balances.opening, Money::FromUnits(-5));
    EXPECT_EQ(kept.accounts[0].balances.closing, Money::Parse("-4.5"));
}

TEST(Mt940ReaderTest, AccountsAreWrittenInManyWays)
{
    const auto account = [](const std::string& field) {
        return ReadText(":20:A\n" + field + "\n:60F:C260301EUR5,\n:62F:C260301EUR5,\n")
            .accounts.at(0)
            .account;
    };
    EXPECT_EQ(account(":25:NL91ABNA0417164300").number, "NL91ABNA0417164300");
    EXPECT_EQ(account(":25:NL91ABNA0417164300EUR").number, "NL91ABNA0417164300");
    EXPECT_EQ(account(":25:0123456789 EUR").number, "0123456789");
    EXPECT_EQ(account(":25:20041111/877321000EUR").number, "20041111/877321000");
    EXPECT_EQ(account(":25:20041111/877321000EUR").bank, "20041111");
    EXPECT_EQ(account(":25:BANKNL2A/NL91ABNA0417164300").number, "NL91ABNA0417164300");
    EXPECT_EQ(account(":25:BANKNL2A/NL91ABNA0417164300").bank, "BANKNL2A");
    EXPECT_EQ(account(":25P:877321000\nBANKDEFFXXX").bank, "BANKDEFFXXX");
}

// Symptom: the rows of both banks came into one account.
TEST(Mt940ReaderTest, EqualNumbersOfTwoBanksAreTwoAccounts)
{
    const KeptMessages kept = ReadText(
        ":20:A\n:25:37040044/1234567\n:60F:C260301EUR5,\n:61:260301C1,NTRF\n:62F:C260301EUR6,\n-\n"
        ":20:B\n:25:50050201/1234567\n:60F:C260301EUR9,\n:61:260301D2,NTRF\n:62F:C260301EUR7,\n"
        "-\n");

    ASSERT_EQ(kept.accounts.size(), 2U);
    EXPECT_EQ(kept.accounts[0].account.number, "37040044/1234567");
    EXPECT_EQ(kept.accounts[1].account.number, "50050201/1234567");
    EXPECT_EQ(kept.accounts[1].rows.size(), 1U);
}

TEST(Mt940ReaderTest, AnAccountInTwoCurrenciesIsTwo)
{
    const KeptMessages kept =
        ReadText(Message(":61:260305D1,NTRF\r\n") +
                 Message(":61:260305D2,NTRF\r\n", "C260301USD1,", "C260301USD2,"));

    ASSERT_EQ(kept.accounts.size(), 2U);
    EXPECT_EQ(kept.accounts[1].account.currency, "USD");
    EXPECT_EQ(kept.accounts[1].rows.size(), 1U);
}

TEST(Mt940ReaderTest, InterimReportsHaveBookedRows)
{
    const KeptMessages kept = ReadText(
        ":20:I\n:25:DE02120300000000202051\n:28C:1\n:34F:EURD5,\n:13D:2603051330+0200\n"
        ":61:2603050305C5,NTRFNONREF\n:86:in\n:61:2603050305ED6,NTRF\n:90D:1EUR6,\n:90C:1EUR5,");

    EXPECT_EQ(kept.accounts.at(0).account.currency, "EUR");
    EXPECT_EQ(Amounts(kept), std::vector<std::string>{"5"});
    EXPECT_EQ(kept.Reasons(), (Reasons{{8, LeftOutReason::Pending}}));
}

TEST(Mt940ReaderTest, TextsMayBeBeforeTheirLines)
{
    const auto rows = ReadText(Message(":86:first\r\n:61:260305D1,NTRF\r\n"
                                       ":86:second\r\n:61:260306D2,NTRF\r\n"))
                          .Rows();

    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].name, "first");
    EXPECT_EQ(rows[1].name, "second");
}

TEST(Mt940ReaderTest, InformationAboutTheStatementBelongsToNoRow)
{
    const auto rows =
        ReadText(Message(":86:about the account\r\n:61:260305D1,NTRF\r\n:86:text\r\n") +
                 ":86:advertisement\r\n" + Message(":61:260306D2,NTRF\r\n:86:more\r\n"))
            .Rows();

    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].name + rows[0].text, "text");
    EXPECT_EQ(rows[1].name + rows[1].text, "more");
}

TEST(Mt940ReaderTest, RepeatedTextsAreOne)
{
    EXPECT_EQ(Texts("/EREF/E2E-42/\r\n:86:/ORDP//NAME/ACME BV/\r\n:86:/REMI/USTD//INVOICE 42/"),
              "ACME BV | INVOICE 42; EREF E2E-42");
}

TEST(Mt940ReaderTest, DetailsOfTheLineAreText)
{
    const StatementRow row = RowOf(":61:260305D1,NCHK4711//X\r\nJ. Payee\r\n");

    EXPECT_EQ(row.name, "J. Payee");
    EXPECT_EQ(row.checkNumber, "4711");
}

TEST(Mt940ReaderTest, GermanSubfieldsAreNameAndPurpose)
{
    EXPECT_EQ(Texts("166?00TRANSFER?10931?20EREF+E2E-1?21SVWZ+Rent for the month of ?22March"
                    "?30BANKDEFF?31DE02120300000000202051?32Johanna Muster-Mustermann M?33eier"
                    "?34997"),
              "Johanna Muster-Mustermann Meier | Rent for the month of March; EREF E2E-1; "
              "TRANSFER; DE02120300000000202051; BANKDEFF");
}

TEST(Mt940ReaderTest, AFullSubfieldGoesOnInTheNext)
{
    EXPECT_EQ(Texts("166?20SVWZ+2019-02-15T20.10 Debit?21k.4?22next?32A"),
              "A | 2019-02-15T20.10 Debitk.4 next");
}

TEST(Mt940ReaderTest, SubfieldsHaveOtherSignsInPoland)
{
    for (const char sign : {'<', '~', '^', '@'}) {
        std::string text = "020?00TRANSFER?20Invoice 5?32Jan?33Kowalski";
        std::replace(text.begin(), text.end(), '?', sign);
        EXPECT_EQ(Texts(text), "Jan Kowalski | Invoice 5; TRANSFER") << sign;
    }
}

TEST(Mt940ReaderTest, AQuestionInATextIsNoSubfield)
{
    EXPECT_EQ(Texts("Where? 20 km away"), "Where? 20 km away | ");
    EXPECT_EQ(Texts("166?20Why? 5 or more?32A"), "A | Why? 5 or more");
}

TEST(Mt940ReaderTest, CodesBetweenSlashesAreNameAndPurpose)
{
    EXPECT_EQ(Texts("/TRTP/SEPA/IBAN/NL91ABNA0417164300/BIC/ABNANL2A/NAME/J. Doe/REMI/"
                    "Nr. 1/2 of/EREF/NOTPROVIDED"),
              "J. Doe | Nr. 1/2 of; TRTP SEPA; IBAN NL91ABNA0417164300; BIC ABNANL2A");
    EXPECT_EQ(Texts("/CNTP/NL91ABNA0417164300/ABNANL2A/J. Doe/Delft//REMI/USTD//rent/"),
              "J. Doe | rent; NL91ABNA0417164300; ABNANL2A; Delft");
}

TEST(Mt940ReaderTest, LabelsOfDutchBanksSayTheName)
{
    EXPECT_EQ(Texts("SEPA OVERBOEKING                 IBAN: NL91ABNA0417164300\r\n"
                    "BIC: ABNANL2A                    NAAM: J. DOE\r\nEN ZOON  OMSCHRIJVING: RENT"),
              "J. DOE EN ZOON | SEPA OVERBOEKING IBAN: NL91ABNA0417164300 BIC: ABNANL2A "
              "NAAM: J. DOE EN ZOON OMSCHRIJVING: RENT");
}

TEST(Mt940ReaderTest, FullLinesGoOnWithoutASpace)
{
    const std::string full = std::string(60, 'x') + " shoe";
    EXPECT_EQ(Texts(full + "\r\nmaker"), full + "maker | ");
    EXPECT_EQ(Texts("/REMI/" + std::string(53, 'x') +
                    " shoe\r\n"
                    "\r\nmaker/NAME/A"),
              "A | " + std::string(53, 'x') + " shoe maker");
}

TEST(Mt940ReaderTest, ABankMayCountTheTagInItsFirstLine)
{
    const std::string first = std::string(55, 'x') + " shoe ";
    const std::string next = std::string(60, 'y') + " shoe";
    EXPECT_EQ(Texts("166?20" + std::string(50, 'x') + " shoe\r\nmaker " + std::string(54, 'y') +
                    " shoe\r\nmaker?32A"),
              "A | " + std::string(50, 'x') + " shoemaker " + std::string(54, 'y') + " shoemaker");
}

TEST(Mt940ReaderTest, ATimeAtALinesStartIsNoField)
{
    const std::string full = std::string(60, 'x') + " 2026";
    EXPECT_EQ(Texts(full + "\r\n:20:15 at the till"), full + ":20:15 at the till | ");
}

TEST(Mt940ReaderTest, AHyphenOnALineOfItsOwnMayBeText)
{
    const auto rows =
        ReadText(Message(":61:260305D1,NTRF\r\n:86:a\r\n-\r\nb\r\n:61:260305D2,NTRF\r\n")).Rows();

    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].text, "- b");
}

TEST(Mt940ReaderTest, LinesAfterTheEndBelongToTheLastAccount)
{
    EXPECT_EQ(Amounts(ReadText(Message(":61:260305D1,NTRF\r\n") + ":61:260306C2,NMSC\r\n")),
              (std::vector<std::string>{"-1", "2"}));
}

TEST(Mt940ReaderTest, AFileThatBreaksOffIsAskedAbout)
{
    const std::string whole =
        Message(":61:260305D1,NTRF\r\n:86:a\r\n:61:260306D2345,67NTRFNONREF\r\n:86:b\r\n");
    const auto reader = ReadMt940(whole.substr(0, whole.find(",67")));

    const auto questions = reader->Open({});
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_EQ(questions[0].question, StatementQuestion::Truncated);
    EXPECT_TRUE(reader->Open({.takeWholeRows = true}).empty());
}

TEST(Mt940ReaderTest, AnInterimMessageThatBreaksOffInALineIsAskedAbout)
{
    const std::string begin =
        ":20:A\n:25:37040044/1\n:28C:1\n:34F:EURD0,00\n:13D:2604031200+0200\n"
        ":61:2604030403D23,45NTRFX\n:86:105?20Test\n";

    EXPECT_TRUE(ReadMt940(begin)->Open({}).empty());
    const auto questions = ReadMt940(begin + ":61:2604030403D125")->Open({});
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_EQ(questions[0].question, StatementQuestion::Truncated);
    EXPECT_EQ(Amounts(ReadText(begin + ":61:2604030403D125")), std::vector<std::string>{"-23.45"});
}

TEST(Mt940ReaderTest, ABankMayCloseNoMessage)
{
    const std::string message = ":20:A\n:25:1\n:60F:C260301EUR5,\n:61:260301C1,NTRF\n:86:a\n";
    const std::string text = message + message;

    EXPECT_TRUE(ReadMt940(text)->Open({}).empty());
    EXPECT_EQ(Amounts(ReadText(text)), (std::vector<std::string>{"1", "1"}));
}

TEST(Mt940ReaderTest, OnlyWholeRowsComeWhereverTheFileIsCut)
{
    const std::string whole =
        Message(":61:260305D1,NTRF\r\n:86:a\r\n:61:260306D2345,67NTRFNONREF\r\n:86:b\r\n");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string text = whole.substr(0, length);
        if (!IsMt940(text))
            continue;
        for (const std::string& amount : Amounts(Kept(*ReadMt940(text))))
            EXPECT_TRUE(amount == "-1" || amount == "-2345.67") << length << ' ' << amount;
    }
}

TEST(Mt940ReaderTest, TheLastLineOfAReportIsWholeOrListed)
{
    const std::string text = ":20:I\n:25:1\n:34F:EUR0,\n:61:260305C5,NTRF\n:61:260305C12,3";

    EXPECT_EQ(Amounts(ReadText(text)), std::vector<std::string>{"5"});
    EXPECT_EQ(ReadText(text).Reasons(), (Reasons{{5, LeftOutReason::Incomplete}}));
}

TEST(Mt940ReaderTest, OtherTextsAreNotMessages)
{
    for (const char* const text : {"", "1\n2\n3\n", "Date,Amount\n", ":20:only\n", "<a/>"}) {
        EXPECT_FALSE(IsMt940(text)) << text;
        EXPECT_THROW((void)ReadMt940(text), NotAStatement) << text;
    }
}

TEST(Mt940ReaderTest, ARowReadTwiceIsEqual)
{
    const std::string text = Message(":61:260305D1,NTRF\r\n:86:a\r\n");
    const auto reader = ReadMt940(text);

    EXPECT_EQ(Amounts(Kept(*reader)), Amounts(Kept(*reader)));
    EXPECT_EQ(reader->Kind(), "mt940");
}

}  // namespace
}  // namespace clb
