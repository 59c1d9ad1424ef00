// Which rows of a statement an account has already.

#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/intake/ImportedBooks.h"

namespace clb {
namespace {

using Rows = std::vector<std::string>;

/// An account "B-1" with rows as earlier imports or the user have left them.
class PairingTest : public testing::Test {
protected:
    PairingTest() { books_.AddAccount("B-1", "Bank", "Checking"); }

    void Has(const std::string& day, const std::string& amount, const std::string& description,
             const std::string& notes, const std::string& identifier)
    {
        const auto quoted = [](const std::string& text) {
            return "'" + clsDatabase::ToSqlString(text) + "'";
        };
        books_.Execute(
            "INSERT INTO Trans (AccountID, Sequence, SubSequence, PostDate, Year, Period, Amount, "
            "Description, PayeeName, FITID, CheckID, Category) VALUES ('B-1', " +
            std::to_string(++sequence_) + ", 0, #" + day + "#, 2024, 1, " + amount + ", " +
            quoted(description) + ", " + quoted(notes) + ", " + quoted(identifier) +
            ", '', '(none)')");
    }
    void HasFromQif(const std::string& day, const std::string& amount,
                    const std::string& description, const std::string& notes)
    {
        Has(day, amount, description, notes, "2024-02-01 10:00:00 4711");
    }
    static std::string Ofx(const std::string& rows)
    {
        return "<OFX><BANKMSGSRSV1><STMTTRNRS><STMTRS><CURDEF>EUR<BANKACCTFROM><ACCTID>B-1"
               "</BANKACCTFROM><BANKTRANLIST>" +
               rows + "</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>";
    }
    static std::string Row(const std::string& day, const std::string& amount,
                           const std::string& more)
    {
        return "<STMTTRN><DTPOSTED>" + day + "<TRNAMT>" + amount + more + "</STMTTRN>";
    }

    ImportedBooks books_;

private:
    int sequence_ = 0;
};

// Symptom: the import of QIF files stores "(Blank)" for a missing payee.
TEST_F(PairingTest, ARowNamedByItsMemoIsTheOneWhoseNotesHaveIt)
{
    HasFromQif("2024-01-15", "-5", "(Blank)", "Card 1234");
    Has("2024-01-16", "-6", "(blank)", "Fee", "");

    EXPECT_EQ(books_.Added("!Account\nNB-1\n^\n!Type:Bank\nD1/15/2024\nT-5.00\nMCard 1234\n^\n"
                           "D1/16/2024\nT-6.00\nMFee\n^\n"),
              0);
    EXPECT_EQ(books_.Added(Ofx(Row("20240116", "-6", "<MEMO>Fee"))), 0);
}

TEST_F(PairingTest, ARowWithoutAnyTextIsTheOneWithoutText)
{
    HasFromQif("2024-01-15", "-5", "(Blank)", "");

    EXPECT_EQ(books_.Added("!Account\nNB-1\n^\n!Type:Bank\nD1/15/2024\nT-5.00\n^\n"), 0);
}

TEST_F(PairingTest, TextsThatWereCutOrKeptEncodedAreEqual)
{
    const std::string memo = "Standing order of 2023 for the rent of the flat in Elm Street 12";
    HasFromQif("2024-01-15", "-5", "Miller & Sons", memo.substr(0, 50));
    Has("2024-01-16", "-6", "A&amp;B", "", "");

    EXPECT_EQ(books_.Added(Ofx(Row("20240115", "-5", "<NAME>MILLER  &amp; SONS<MEMO>" + memo) +
                               Row("20240116", "-6", "<NAME>A&amp;B"))),
              0);
}

/// Each row of the book counts for one of the statement, and the one that agrees most.
TEST_F(PairingTest, EqualRowsArePairedOneToOne)
{
    HasFromQif("2024-01-15", "-5", "Transfer", "Rent");

    EXPECT_EQ(books_.Added(Ofx(Row("20240115", "-5", "<NAME>Transfer<MEMO>Garage") +
                               Row("20240115", "-5", "<NAME>Transfer<MEMO>Rent"))),
              1);
    EXPECT_EQ(books_.RowsOf("B-1"),
              (Rows{"2024-01-15|-5|Transfer|Garage", "2024-01-15|-5|Transfer|Rent"}));
}

TEST_F(PairingTest, ARowTypedWithoutNotesIsTheStatements)
{
    Has("2024-01-15", "-5", "Shop", "", "");

    EXPECT_EQ(books_.Added(Ofx(Row("20240115", "-5", "<NAME>SHOP<MEMO>Card 1234"))), 0);
}

TEST_F(PairingTest, AReferenceThatALongerFileGivesTwiceAddsTheKnownRowOnce)
{
    const std::string one = Row("20240115", "-5", "<FITID>R1<NAME>Shop");
    const std::string other = Row("20240116", "-6", "<FITID>R1<NAME>Inn");

    EXPECT_EQ(books_.Added(Ofx(one)), 1);
    EXPECT_EQ(books_.Added(Ofx(other + one)), 1);
    EXPECT_EQ(books_.Added(Ofx(other)), 0);
    EXPECT_EQ(books_.Added(Ofx(one)), 0);
    EXPECT_EQ(books_.Added(Ofx(one + other)), 0);
}

TEST_F(PairingTest, AReferenceThatAShorterFileGivesOnceAddsNothing)
{
    const std::string one = Row("20240115", "-5", "<FITID>R1<NAME>Shop");
    const std::string other = Row("20240125", "-6", "<FITID>R1<NAME>Inn");

    EXPECT_EQ(books_.Added(Ofx(one + other)), 2);
    EXPECT_EQ(books_.Added(Ofx(other)), 0);
    EXPECT_EQ(books_.Added(Ofx(one)), 0);
}

// Symptom: of a file that the import of OFX files takes as it is, rows with an identifier that an
// earlier row has were lost, and rows stored under another one were added again.
TEST_F(PairingTest, AFileThatIsTakenAsItIsLosesAndDoublesNothing)
{
    const auto file = [](const std::string& rows) {
        return Replace("OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\n\n" + Ofx(rows), "\n", "\r\n");
    };
    const std::string one = Row("20240115", "-5", "<FITID>R1<NAME>Shop");
    const std::string other = Row("20240125", "-6", "<FITID>R1<NAME>Inn");

    EXPECT_EQ(books_.Added(file(one)), 1);
    EXPECT_EQ(books_.Added(file(other)), 1);
    EXPECT_EQ(books_.Added(file(one)), 0);
    EXPECT_EQ(books_.Added(file(other)), 0);
}

TEST_F(PairingTest, AReferenceUsedAgainInALaterFileIsKnownInOneOfBoth)
{
    const std::string one = Row("20240115", "-5", "<FITID>R1<NAME>Shop");
    const std::string other = Row("20240125", "-6", "<FITID>R1<NAME>Inn");

    EXPECT_EQ(books_.Added(Ofx(one)), 1);
    EXPECT_EQ(books_.Added(Ofx(other)), 1);
    EXPECT_EQ(books_.Added(Ofx(one + other)), 0);
}

}  // namespace
}  // namespace clb
