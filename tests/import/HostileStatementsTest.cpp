// Broken and malicious files. Each must lead to its message, add the rows before the fault, and
// change no other row of any table.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <random>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/CrowdedBooks.h"

namespace clb {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const std::string kHarm = "'; DROP TABLE Trans; --";
const std::string kOtherHarm = "x' OR '1'='1";

std::string Transaction(const std::string& fitid, const std::string& amount,
                        const std::string& more = "")
{
    return "<STMTTRN><TRNTYPE>CHECK<DTPOSTED>20060305<TRNAMT>" + amount + "<FITID>" + fitid + more +
           "</STMTTRN>\r\n";
}
const std::string kOpening =
    "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n\r\n<OFX><ACCTID>1\r\n";

/// Forty good transactions of account 1.
std::string GoodStatement()
{
    std::string text = kOpening;
    for (int n = 0; n < 40; ++n)
        text += Transaction("F" + std::to_string(n), "-" + std::to_string(n) + ".25",
                            "<NAME>Shop " + std::to_string(n) + "<MEMO>thanks");
    return text;
}
std::string GoodQif()
{
    std::string text = "!Type:Bank\r\n";
    for (int n = 1; n < 29; ++n)
        text += "D3/" + std::to_string(n) + "'06\r\nT-" + std::to_string(n) + ".25\r\nPShop\r\n" +
                "Mthanks\r\n^\r\n";
    return text;
}

char OtherByte(char byte, std::mt19937& random)
{
    return static_cast<char>(static_cast<unsigned char>(byte) + 1 + random() % 255);
}

class HostileStatementsTest : public ::testing::Test {
protected:
    HostileStatementsTest() : untouched_(books_.Everything()) {}

    /// The rows of all tables that were not there at the start. All other rows must still be there.
    std::vector<std::string> Added()
    {
        const std::vector<std::string> now = books_.Everything();
        EXPECT_THAT(OnlyIn(untouched_, now), IsEmpty());
        return OnlyIn(now, untouched_);
    }
    void ExpectBox(const std::string& text, std::int32_t style)
    {
        const FakeMessageBox::Box box = {text, style, "Corvane Ledgerbook"};
        // A gmock matcher would print files of a hundred lines.
        EXPECT_TRUE(books_.messages.boxes == std::vector{box})
            << (books_.messages.boxes.empty() ? "none"
                                              : books_.messages.boxes[0].text.substr(0, 200));
    }
    void ExpectInvalidFormat() { ExpectBox("Invalid file format.", 16); }
    void ExpectInvalidData(const std::string& working, const std::string& file)
    {
        ExpectBox("Invalid data was found while importing:\n" + working + "\n" + file, 48);
    }
    void ExpectSkipped(const std::string& lines)
    {
        ExpectBox(
            "Invalid data was found while importing. The following lines were skipped:" + lines,
            48);
    }
    std::int32_t ErrorOf(const std::string& path)
    {
        try {
            books_.ImportPath(path);
        } catch (const RuntimeError& error) {
            return error.Number();
        }
        return 0;
    }

    /// Imports a file that is damaged from one byte on. Checks that the transactions before that
    /// byte are as in the good file, and that there is at most one message, one of those for bad
    /// data.
    void ExpectRowsBefore(std::size_t spoilt, const std::string& name, const std::string& good,
                          const std::string& bad, const std::string& end)
    {
        books_.ForgetImported();
        books_.Import(name, good);
        const auto whole = WithoutRun(books_.Imported());
        books_.ForgetImported();

        books_.Import(name, bad);

        std::size_t before = 0;
        for (std::size_t at = good.find(end); at != std::string::npos; at = good.find(end, at + 1))
            before += at + end.size() <= spoilt ? 1U : 0U;
        const auto rows = WithoutRun(books_.Imported());
        ASSERT_GE(rows.size(), before);
        EXPECT_TRUE(
            std::equal(whole.begin(), whole.begin() + static_cast<long>(before), rows.begin()));
        for (const std::string& line : Added())
            EXPECT_TRUE(line.starts_with("Trans|") || line.starts_with("Budget|")) << line;
        ASSERT_LE(books_.messages.boxes.size(), 1U);
        for (const FakeMessageBox::Box& box : books_.messages.boxes)
            EXPECT_TRUE(box.text.starts_with("Invalid data was found while importing")) << box.text;
    }

    CrowdedBooks books_;
    std::vector<std::string> untouched_;

private:
    /// Rows without their second field, which differs with each QIF file.
    static std::vector<std::string> WithoutRun(std::vector<std::string> rows)
    {
        for (std::string& row : rows)
            row.erase(row.find('|') + 1, Split(row, '|')[1].size());
        return rows;
    }
};

TEST_F(HostileStatementsTest, FlippedBytesLeaveTheRowsBeforeThem)
{
    const std::string good = GoodStatement();
    std::mt19937 random(1);
    for (int round = 0; round < 150; ++round) {
        std::string bad = good;
        const std::size_t first = kOpening.size() + random() % (good.size() - kOpening.size());
        bad[first] = OtherByte(bad[first], random);
        for (int more = 0; more < 3; ++more) {
            char& byte = bad[first + random() % (good.size() - first)];
            byte = OtherByte(byte, random);
        }
        SCOPED_TRACE("round " + std::to_string(round));
        ExpectRowsBefore(first, "s.ofx", good, bad, "</STMTTRN>");
    }
}

TEST_F(HostileStatementsTest, FlippedBytesOfAQifFileLeaveTheRowsBeforeThem)
{
    const std::string good = GoodQif();
    const std::size_t opening = good.find('\n') + 1;
    std::mt19937 random(2);
    for (int round = 0; round < 150; ++round) {
        std::string bad = good;
        const std::size_t first = opening + random() % (good.size() - opening);
        bad[first] = OtherByte(bad[first], random);
        SCOPED_TRACE("round " + std::to_string(round));
        ExpectRowsBefore(first, "s.qif", good, bad, "\n^");
    }
}

TEST_F(HostileStatementsTest, BlocksOfZeroBytesLeaveTheRowsBeforeThem)
{
    std::mt19937 random(3);
    for (const auto& [name, good, end] :
         {std::tuple{"s.ofx", GoodStatement(), "</STMTTRN>"}, {"s.qif", GoodQif(), "\n^"}})
        for (int round = 0; round < 60; ++round) {
            const std::size_t opening = good.size() / 10;
            const std::size_t first = opening + random() % (good.size() - opening);
            std::string bad = good;
            std::fill_n(bad.begin() + static_cast<long>(first),
                        std::min<std::size_t>(64, bad.size() - first), '\0');
            SCOPED_TRACE(std::string(name) + ", round " + std::to_string(round));
            ExpectRowsBefore(first, name, good, bad, end);
        }
}

TEST_F(HostileStatementsTest, ATextWithAZeroByteIsOneTextAndADuplicateTheNextTime)
{
    using namespace std::string_literals;
    const std::string qif = "!Type:Bank\r\nD3/1/06\r\nT-1\r\nMa\0b\r\n^\r\nT-1\r\nMa\0c\r\n^\r\n"s;
    const std::string ofx = kOpening + Transaction("F\0001"s, "-2") + Transaction("F\0002"s, "-3");
    for (int time = 0; time < 2; ++time) {
        books_.Import("s.qif", qif);
        EXPECT_THAT(books_.messages.boxes, IsEmpty());
        books_.Import("s.ofx", ofx);
        EXPECT_THAT(books_.messages.boxes, IsEmpty());
    }

    EXPECT_THAT(books_.Rows("SELECT Amount, PayeeName FROM Trans WHERE Sequence > 2"),
                ElementsAre("-1|a\0b"s, "-1|a\0c"s, "-2|", "-3|"));
}

TEST_F(HostileStatementsTest, BinaryDataIsNotAStatement)
{
    std::mt19937 random(4);
    std::string noise(100'000, '\0');
    books_.Import("zeros.ofx", noise);
    ExpectInvalidFormat();
    for (char& byte : noise)
        byte = static_cast<char>(random());
    books_.Import("noise.ofx", noise);
    ExpectInvalidFormat();
    books_.Import("picture.qfx", "\x89PNG\r\n\x1A\n");
    ExpectInvalidFormat();

    EXPECT_THAT(Added(), IsEmpty());
}

TEST_F(HostileStatementsTest, NoiseInAQifFileAddsNothing)
{
    std::mt19937 random(5);
    std::string noise = "no header\r\n";
    while (noise.size() < 100'000)
        if (const char byte = static_cast<char>(random()); byte != '!')
            noise += byte;

    books_.Import("noise.qif", noise);

    EXPECT_THAT(Added(), IsEmpty());
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

TEST_F(HostileStatementsTest, AMillionEmptyTagsAddNothing)
{
    const auto times = [](const std::string& text) {
        std::string many;
        for (int n = 0; n < 1'000'000; ++n)
            many += text;
        return many;
    };
    books_.Import("s.ofx", kOpening + Transaction("F1", "-1") + times("<STMTTRN></STMTTRN>") +
                               Transaction("F2", "-2"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
    books_.Import("s.ofx", kOpening + times("<STMTTRN>"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
    books_.Import("s.ofx", kOpening + times("<ACCTID></ACCTID>") + Transaction("F3", "-3"));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
    books_.Import("s.ofx", kOpening + Transaction("F4", "-4", times("<NAME></NAME>")));
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
    const std::string inside = kOpening + "<STMTTRN>" + times("<A></A>") + "</STMTTRN>";
    books_.Import("s.ofx", inside);
    ExpectInvalidData("", inside);

    EXPECT_THAT(books_.Rows("SELECT FITID, Description FROM Trans WHERE Sequence > 2"),
                ElementsAre("F1|(blank)", "F3|(blank)", "F4|(blank)"));
    EXPECT_THAT(Added(), SizeIs(4));  // and the month's budget line
}

TEST_F(HostileStatementsTest, AFolderAPipeAndADeviceAreRefused)
{
    TempFolder place;
    const std::string pipe = place.Path("pipe.qif");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);

    EXPECT_EQ(ErrorOf(place.Path()), errors::PathAccess);
    EXPECT_EQ(ErrorOf(pipe), errors::PathAccess);
    EXPECT_EQ(ErrorOf("/dev/zero"), errors::PathAccess);
    EXPECT_EQ(ErrorOf(place.Path("none.ofx")), errors::FileNotFound);
    EXPECT_THAT(Added(), IsEmpty());
}

TEST_F(HostileStatementsTest, AFileThatMayNotBeReadIsAnError)
{
    TempFolder place;
    const std::string path = place.Write("s.ofx", GoodStatement());
    fs::permissions(path, fs::perms::none);

    {
        const AsOrdinaryUser nobody({place.Path()});
        EXPECT_EQ(ErrorOf(path), errors::PathAccess);
    }

    EXPECT_THAT(Added(), IsEmpty());
}

TEST_F(HostileStatementsTest, AnIdentifierThatIsSqlEndsTheImport)
{
    for (const std::string& harm : {kHarm, kOtherHarm, std::string("'")}) {
        books_.ForgetImported();
        const std::string text =
            kOpening + Transaction("F1", "-1") + Transaction(harm, "-2") + Transaction("F3", "-3");

        books_.Import("s.ofx", text);

        ExpectInvalidData("", text);
        EXPECT_THAT(books_.Imported(), ElementsAre("1|F1|2006-03-05|-1|(blank)|||(none)"));
        EXPECT_THAT(Added(), SizeIs(2));  // and the month's budget line
    }
}

TEST_F(HostileStatementsTest, SqlInTheTextsOfAStatementIsText)
{
    books_.Import("s.ofx", kOpening + Transaction("F1", "-1",
                                                  "<CHECKNUM>" + kHarm + "<NAME>" + kOtherHarm +
                                                      "<MEMO>" + kHarm));

    EXPECT_THAT(books_.messages.boxes, IsEmpty());
    EXPECT_THAT(books_.Imported(), ElementsAre("1|F1|2006-03-05|-1|" + kOtherHarm + "|" + kHarm +
                                               "|" + kHarm + "|(none)"));
    EXPECT_THAT(Added(), SizeIs(2));
}

TEST_F(HostileStatementsTest, SqlForADateOrAnAmountIsBadData)
{
    std::string text = kOpening + "<STMTTRN><FITID>F1<DTPOSTED>" + kHarm + "<TRNAMT>1</STMTTRN>";
    books_.Import("s.ofx", text);
    ExpectInvalidData("'; D", text);

    text = kOpening + "<STMTTRN><FITID>F1<DTPOSTED>200603" + kHarm + "<TRNAMT>1</STMTTRN>";
    books_.Import("s.ofx", text);
    ExpectInvalidData("2006/3/';", text);

    text = kOpening + "<STMTTRN><FITID>F1<DTPOSTED>20060305<TRNAMT>1" + kHarm + "</STMTTRN>";
    books_.Import("s.ofx", text);
    ExpectInvalidData("<TRNAMT>", text);

    EXPECT_THAT(Added(), IsEmpty());
}

TEST_F(HostileStatementsTest, AnAccountNumberThatIsSqlIsText)
{
    const std::string text = Replace(kOpening, "<ACCTID>1", "<ACCTID>" + kHarm);
    books_.AddAccount(kHarm, "Bank", "Harm");
    untouched_ = books_.Everything();

    for (int time = 0; time < 2; ++time)
        books_.Import("s.ofx", text + Transaction("F1", "-1"));

    EXPECT_THAT(books_.Imported(), ElementsAre(kHarm + "|F1|2006-03-05|-1|(blank)|||(none)"));
    EXPECT_THAT(Added(), SizeIs(2));
}

TEST_F(HostileStatementsTest, SqlInTheTextsOfAQifFileIsText)
{
    const std::string text = "!Type:Bank\r\nD3/5/06\r\nT-1\r\nT" + kHarm + "\r\nP" + kHarm +
                             "\r\nM" + kOtherHarm + "\r\nL" + kHarm + "\r\n^\r\n";
    for (int time = 0; time < 2; ++time) {
        books_.Import("s.qif", text);
        EXPECT_THAT(books_.messages.boxes, IsEmpty());
    }

    EXPECT_THAT(books_.Rows("SELECT Amount, Description, PayeeName, Category FROM Trans "
                            "WHERE Sequence > 2"),
                ElementsAre("-1|" + kHarm + "|" + kOtherHarm + "|" + kHarm));
    EXPECT_THAT(books_.Rows("SELECT Category FROM Budget WHERE Amount = 0"), ElementsAre(kHarm));
    EXPECT_THAT(Added(), SizeIs(2));
}

TEST_F(HostileStatementsTest, SqlForADateOfAQifFileIsListed)
{
    books_.Import("s.qif", "!Type:Bank\r\nD3/5/06\r\nD" + kHarm + "\r\nT-1\r\n^\r\n");

    ExpectSkipped("\nD" + kHarm);
    EXPECT_THAT(books_.Rows("SELECT PostDate FROM Trans WHERE Sequence > 2"),
                ElementsAre("2006-03-05"));
}

TEST_F(HostileStatementsTest, ACheckNumberThatIsSqlListsItsRecord)
{
    books_.Import(
        "s.qif", "!Type:Bank\r\nD3/5/06\r\nT-1\r\n^\r\nT-2\r\nN" + kHarm + "\r\n^\r\nT-3\r\n^\r\n");

    ExpectSkipped("\n^");
    EXPECT_THAT(books_.Rows("SELECT Amount FROM Trans WHERE Sequence > 2"),
                ElementsAre("-1", "-3"));
    EXPECT_THAT(Added(), SizeIs(3));
}

/// The check number is not quoted in the comparison, so any row with that memo is a duplicate, here
/// one of another account. The record is skipped, and nothing else happens.
TEST_F(HostileStatementsTest, ACheckNumberThatWidensTheComparisonSkipsOnlyItsOwnRecord)
{
    books_.Import("s.qif", "!Type:Bank\r\nD3/5/06\r\nT-2\r\nMfare\r\nN" + kOtherHarm +
                               "\r\n^\r\nT-3\r\n^\r\n");

    EXPECT_THAT(books_.messages.boxes, IsEmpty());
    EXPECT_THAT(books_.Rows("SELECT Amount FROM Trans WHERE Sequence > 2"), ElementsAre("-3"));
}

TEST_F(HostileStatementsTest, SqlInCategoriesIsText)
{
    for (int time = 0; time < 2; ++time)
        books_.Import("s.qif", "!Type:Cat\r\nN" + kOtherHarm + ":" + kHarm + "\r\nB" + kHarm +
                                   "\r\nB5\r\n^\r\n");

    EXPECT_THAT(books_.messages.boxes, IsEmpty());
    EXPECT_THAT(books_.Rows("SELECT CategoryGroup, Category, Amount FROM Budget WHERE Amount = 5"),
                ElementsAre(kOtherHarm + "|" + kHarm + "|5"));
    EXPECT_THAT(Added(), SizeIs(1));
}

}  // namespace
}  // namespace clb
