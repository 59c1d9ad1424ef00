#include <gtest/gtest.h>

#include <cstdio>
#include <random>

#include "base/Text.h"
#include "statements/messages/CamtReader.h"
#include "statements/messages/Mt940Reader.h"
#include "tests/statements/messages/KeptMessages.h"

// Random rows, written by the formats' definitions, are read back as they were.

namespace clb {
namespace {

struct Made {
    Date booked;
    Date value;
    Money amount;
    std::string name;
    std::string purpose;
    std::string reference;
};

class Maker {
public:
    explicit Maker(unsigned seed) : random_(seed) {}

    std::vector<Made> Rows()
    {
        std::vector<Made> rows(Up(40));
        for (Made& row : rows) {
            row.booked = Date::FromDays(33000 + static_cast<std::int32_t>(Up(15000)));
            row.value = Date::FromDays(row.booked.Days() - 40 + static_cast<std::int32_t>(Up(80)));
            row.amount = Money::FromScaled(static_cast<std::int64_t>(Up(2000000000)) - 1000000000);
            row.name = Words(Up(26));
            row.purpose = Words(1 + Up(100));
            row.reference = "REF" + std::to_string(100000 + next_++);
        }
        return rows;
    }
    std::size_t Up(std::size_t below) { return random_() % below; }

private:
    /// Words of letters that neither format gives a meaning, single spaces between.
    std::string Words(std::size_t length)
    {
        static const std::vector<std::string> letters = {"a", "b", "Z", "7", ".", ",", "-",
                                                         "(", "é", "ß", "ł", "x", " ", "o"};
        std::string words = "W";
        while (Length(words) < length)
            if (const std::string& letter = letters[Up(letters.size())];
                letter != " " || words.back() != ' ')
                words += letter;
        if (words.back() == ' ')
            words.back() = 'e';
        return words;
    }
    std::mt19937 random_;
    std::size_t next_ = 0;
};

std::string Day(const Date& date)
{
    return date.ToIso().substr(0, 10);
}
std::string Unsigned(const Money& amount)
{
    return (amount.IsNegative() ? -amount : amount).ToText();
}
Money SumOf(const std::vector<Made>& rows)
{
    Money sum;
    for (const Made& row : rows)
        sum += row.amount;
    return sum;
}

std::string CamtBalance(const std::string& code, const Money& amount)
{
    return "<Bal><Tp><CdOrPrtry><Cd>" + code + "</Cd></CdOrPrtry></Tp><Amt Ccy=\"EUR\">" +
           Unsigned(amount) + "</Amt><CdtDbtInd>" + (amount.IsNegative() ? "DBIT" : "CRDT") +
           "</CdtDbtInd><Dt><Dt>2026-01-01</Dt></Dt></Bal>";
}

std::string AsCamt(const std::vector<Made>& rows)
{
    std::string text =
        "<Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.053.001.08\">"
        "<BkToCstmrStmt><Stmt><Acct><Id><IBAN>DE02120300000000202051</IBAN></Id>"
        "<Ccy>EUR</Ccy></Acct>" +
        CamtBalance("OPBD", Money::FromUnits(-7)) +
        CamtBalance("CLBD", SumOf(rows) + Money::FromUnits(-7));
    for (const Made& row : rows) {
        const std::string side = row.amount.IsNegative() ? "Cdtr" : "Dbtr";
        text += "<Ntry><Amt Ccy=\"EUR\">" + Unsigned(row.amount) + "</Amt><CdtDbtInd>" +
                (row.amount.IsNegative() ? "DBIT" : "CRDT") +
                "</CdtDbtInd><Sts><Cd>BOOK</Cd></Sts><BookgDt><Dt>" + Day(row.booked) +
                "</Dt></BookgDt><ValDt><Dt>" + Day(row.value) + "</Dt></ValDt><AcctSvcrRef>" +
                row.reference + "</AcctSvcrRef><NtryDtls><TxDtls><RltdPties><" + side +
                "><Pty><Nm>" + row.name + "</Nm></Pty></" + side + "></RltdPties><RmtInf><Ustrd>" +
                row.purpose + "</Ustrd></RmtInf></TxDtls></NtryDtls></Ntry>\n";
    }
    return text + "</Stmt></BkToCstmrStmt></Document>";
}

std::string Digits(const Date& date, bool withYear)
{
    const std::string day = Day(date);
    return (withYear ? day.substr(2, 2) : "") + day.substr(5, 2) + day.substr(8, 2);
}
std::string WithComma(const Money& amount)
{
    std::string text = Replace(Unsigned(amount), ".", ",");
    return text.find(',') == std::string::npos ? text + "," : text;
}
std::string Mt940Balance(const std::string& tag, const Money& amount)
{
    return ":" + tag + ":" + (amount.IsNegative() ? "D" : "C") + "260101EUR" + WithComma(amount) +
           "\r\n";
}

/// Cuts a text into pieces of so many characters.
std::vector<std::string> Cut(std::string_view text, std::size_t length)
{
    std::vector<std::string> pieces;
    for (; !text.empty(); text.remove_prefix(pieces.back().size()))
        pieces.push_back(Left(text, length));
    return pieces;
}

/// Field 86 in lines of 65 characters, as SWIFT writes long texts.
std::string Wrapped(const std::string& content)
{
    std::string lines;
    for (const std::string& line : Cut(content, 65))
        lines += line + "\r\n";
    return lines;
}

std::string AsMt940(const std::vector<Made>& rows)
{
    std::string text = ":20:STATEMENT\r\n:25:DE02120300000000202051\r\n:28C:1/1\r\n" +
                       Mt940Balance("60F", Money::FromUnits(-7));
    for (const Made& row : rows) {
        std::string content = "166?00TRANSFER";
        int code = 20;
        for (const std::string& piece : Cut(row.purpose, 27))
            content += "?" + std::to_string(code++) + piece;
        content += "?32" + row.name;
        text += ":61:" + Digits(row.value, true) + Digits(row.booked, false) +
                (row.amount.IsNegative() ? "DR" : "CR") + WithComma(row.amount) + "NTRFNONREF//" +
                row.reference + "\r\n:86:" + Wrapped(content);
    }
    return text + Mt940Balance("62F", SumOf(rows) + Money::FromUnits(-7)) + "-\r\n";
}

void ExpectEqual(const std::vector<Made>& rows, const KeptMessages& kept)
{
    ASSERT_EQ(kept.accounts.size(), 1U);
    EXPECT_TRUE(kept.leftOut.empty());
    EXPECT_EQ(kept.accounts[0].balances.opening, Money::FromUnits(-7));
    EXPECT_EQ(kept.accounts[0].balances.closing, SumOf(rows) + Money::FromUnits(-7));
    const auto& read = kept.accounts[0].rows;
    ASSERT_EQ(read.size(), rows.size());
    for (std::size_t at = 0; at < rows.size(); ++at) {
        EXPECT_EQ(read[at].date, rows[at].booked);
        EXPECT_EQ(read[at].valueDate, rows[at].value);
        EXPECT_EQ(read[at].amount, rows[at].amount);
        EXPECT_EQ(read[at].name, rows[at].name);
        EXPECT_EQ(read[at].text.substr(0, rows[at].purpose.size()), rows[at].purpose);
        EXPECT_EQ(read[at].identifier, rows[at].reference);
    }
}

class WrittenMessagesTest : public ::testing::TestWithParam<unsigned> {};

TEST_P(WrittenMessagesTest, CamtIsReadBackAsItWas)
{
    const std::vector<Made> rows = Maker(GetParam()).Rows();
    const std::string text = AsCamt(rows);

    ExpectEqual(rows, Kept(*ReadCamt(text)));
}

TEST_P(WrittenMessagesTest, Mt940IsReadBackAsItWas)
{
    const std::vector<Made> rows = Maker(GetParam()).Rows();
    const std::string text = AsMt940(rows);

    ExpectEqual(rows, Kept(*ReadMt940(text)));
}

INSTANTIATE_TEST_SUITE_P(Seeds, WrittenMessagesTest, ::testing::Range(1U, 101U));

}  // namespace
}  // namespace clb
