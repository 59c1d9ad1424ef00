// What is exported comes back: the same books get no new rows, other books get the same rows, and
// another program's OFX reader finds the same transactions.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <random>

#include "base/Numeric.h"
#include "base/Text.h"
#include "export/ExportLosses.h"
#include "tests/support/Books.h"

namespace clb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Values of a row by column. A column that is not given has the value of a new row.
struct Row {
    std::string fitid{};  ///< empty: entered by hand
    std::string date = "2006-03-05";
    std::string amount = "1";
    std::string description = "Shop";
    std::string notes{};
    std::string checkID{};
};

class ThereAndBackTest : public testing::Test {
protected:
    ThereAndBackTest()
    {
        for (Books* books : {&books_, &others_})
            books->AddAccount("10-1", "Bank", "Checking");
    }

    void Add(const Row& row)
    {
        const auto text = [](const std::string& value) {
            return value.empty() ? "NULL" : "'" + clsDatabase::ToSqlString(value) + "'";
        };
        books_.Execute(
            "INSERT INTO Trans (Sequence, AccountID, FITID, PostDate, Amount, "
            "Description, PayeeName, CheckID, Year, Period, Category) VALUES (" +
            std::to_string(++sequence_) + ", '10-1', " + text(row.fitid) + ", #" + row.date +
            "#, " + row.amount + ", " + text(row.description) + ", " + text(row.notes) + ", " +
            text(row.checkID) + ", " + row.date.substr(0, 4) + ", " +
            std::to_string(std::stoi(row.date.substr(5, 2))) + ", '(none)')");
    }
    /// Runs the export and then the import command.
    void Return(Books& books)
    {
        const std::string path = books_.folder.Path("out.ofx");
        books_.window.View().AccountID("10-1");
        books_.window.Export().WriteOFX(path);
        books.files.answers.push_back(path);
        books.window.menus.Find("mnuF_Import")->Press();
    }
    /// The losses that the export reports.
    std::vector<std::string> Losses()
    {
        ExportLosses losses("10-1");
        books_.window.View().AccountID("10-1");
        books_.window.Export().Watch(&losses);
        books_.window.Export().WriteOFX(books_.folder.Path("watched.ofx"));
        books_.window.Export().Watch(nullptr);
        return losses.Lines();
    }
    static std::vector<std::string> Identifiers(Books& books)
    {
        return books.Rows("SELECT FITID FROM Trans ORDER BY Sequence");
    }
    static std::vector<std::string> Contents(Books& books)
    {
        return books.Rows(
            "SELECT PostDate, Amount, Description, PayeeName, CheckID, Year, Period, "
            "Category FROM Trans ORDER BY Sequence");
    }
    static std::string Sum(Books& books)
    {
        return books.One("SELECT SUM(Amount) AS Total FROM Trans");
    }

    Books books_;
    Books others_;

private:
    int sequence_ = 0;
};

TEST_F(ThereAndBackTest, RowsWithAnIdentifierKeepItAndAddNothing)
{
    Add({.fitid = "2006.1"});
    Add({.fitid = "2006 2", .amount = "-45.5", .checkID = "17"});
    const auto before = Contents(books_);

    Return(books_);
    Return(books_);

    EXPECT_THAT(Identifiers(books_), ElementsAre("2006.1", "2006 2"));
    EXPECT_EQ(Contents(books_), before);
    EXPECT_THAT(books_.messages.boxes, IsEmpty());
}

/// In the books that wrote the file these rows have no identifier, so the numbered identifiers in
/// the file are new to the books once.
TEST_F(ThereAndBackTest, RowsEnteredByHandAreImportedOnceUnderTheirNumbers)
{
    Add({.amount = "-1"});
    Add({.fitid = "F2", .amount = "-2"});
    Add({.amount = "-3"});

    Return(books_);
    EXPECT_THAT(Identifiers(books_), ElementsAre("", "F2", "", "CVLB1", "CVLB3"));

    const std::string path = books_.folder.Path("out.ofx");
    for (int time = 0; time < 2; ++time) {
        books_.files.answers.push_back(path);
        books_.window.menus.Find("mnuF_Import")->Press();
    }
    EXPECT_THAT(Identifiers(books_), ElementsAre("", "F2", "", "CVLB1", "CVLB3"));
    EXPECT_EQ(Sum(books_), "-10");
}

TEST_F(ThereAndBackTest, OtherBooksGetTheSameDatesAmountsAndTexts)
{
    Add({.fitid = "F1", .date = "1999-12-31", .amount = "-0.0001", .notes = std::string(50, 'n')});
    Add({.amount = "461168601842738.7904", .description = "a & b > c; \"d\" it's"});
    Add({.fitid = "F3", .date = "2028-02-29", .amount = "-461168601842738", .checkID = "0017"});
    Add({.date = "2006-01-01", .description = "caf\xC3\xA9 \xE2\x82\xAC 5", .notes = "one\ntwo"});
    Add({.date = "0999-01-01", .description = "#1", .notes = "\ttab"});

    Return(others_);
    Return(others_);

    EXPECT_EQ(Contents(others_), Contents(books_));
    EXPECT_EQ(Sum(others_), Sum(books_));
    EXPECT_THAT(Identifiers(others_), ElementsAre("F1", "CVLB2", "F3", "CVLB4", "CVLB5"));
    EXPECT_THAT(others_.messages.boxes, IsEmpty());
    EXPECT_THAT(Losses(), IsEmpty());
}

TEST_F(ThereAndBackTest, LossesAreReported)
{
    Add({.fitid = "F1", .description = "a<b", .notes = std::string(51, 'n')});
    Add({.fitid = "F2", .description = " Shop", .notes = "\xCE\xA9", .checkID = "1\r2"});
    Add({.fitid = "F1", .description = ""});
    books_.Execute("UPDATE Trans SET Category = 'Food', Period = 4 WHERE FITID = 'F2'");
    books_.Execute("UPDATE Trans SET PostDate = #2006-03-05 12:30:00# WHERE FITID = 'F2'");

    EXPECT_THAT(
        Losses(),
        ElementsAre(
            "Transaction 1 (2006-03-05, a<b): \"a\" comes back for its description",
            "Transaction 1 (2006-03-05, a<b): \"" + std::string(50, 'n') +
                "\" comes back for its notes",
            "Transaction 2 (2006-03-05,  Shop): its date comes back without the time of day",
            "Transaction 2 (2006-03-05,  Shop): \"Shop\" comes back for its description",
            "Transaction 2 (2006-03-05,  Shop): \"?\" comes back for its notes",
            "Transaction 2 (2006-03-05,  Shop): \"1\" comes back for its check number",
            "Transaction 3 (2006-03-05, ): left out, its identifier is an earlier one's",
            "Transaction 3 (2006-03-05, ): \"(blank)\" comes back for its description",
            "The file holds no categories: 1 transaction",
            "Booked to another month than that of the date, which comes back: 1 "
            "transaction"));
}

TEST_F(ThereAndBackTest, RowsThatEndTheImportAreReported)
{
    Add({.fitid = "F1"});
    Add({.fitid = "it's"});
    Add({.fitid = "F3"});
    books_.Execute("UPDATE Trans SET PostDate = NULL, Amount = NULL WHERE FITID = 'F3'");

    EXPECT_THAT(
        Losses(),
        ElementsAre("Transaction 2 (2006-03-05, Shop): an apostrophe in its identifier ends the "
                    "reading there",
                    "Transaction 3 (Shop): it has no date, and the reading ends there",
                    "Transaction 3 (Shop): it has no amount, and the reading ends there"));
    Return(others_);
    EXPECT_THAT(Identifiers(others_), ElementsAre("F1"));
    EXPECT_THAT(others_.messages.boxes, SizeIs(1));
}

TEST_F(ThereAndBackTest, TheEffectOfAnApostropheInAnIdentifierIsReported)
{
    Add({.fitid = "it's", .amount = "7"});
    Add({.fitid = "a''b"});

    EXPECT_THAT(
        Losses(),
        ElementsAre("Transaction 1 (2006-03-05, Shop): an apostrophe in its identifier ends "
                    "the reading there, unless the account is empty",
                    "Transaction 2 (2006-03-05, Shop): an apostrophe in its identifier adds "
                    "it again with each import"));
    Return(others_);
    EXPECT_THAT(Identifiers(others_), ElementsAre("it's", "a''b"));
    others_.Execute("DELETE FROM Trans WHERE Amount = 7");
    books_.Execute("DELETE FROM Trans WHERE Amount = 7");
    Return(others_);
    EXPECT_THAT(Identifiers(others_), ElementsAre("a''b", "a''b"));
}

TEST_F(ThereAndBackTest, ATagWithinATextIsReported)
{
    Add({.description = "a<MEMO>b", .notes = "c"});

    EXPECT_THAT(Losses(),
                ElementsAre("Transaction 1 (2006-03-05, a<MEMO>b): \"a\" comes back for its "
                            "description",
                            "Transaction 1 (2006-03-05, a<MEMO>b): a tag within its texts "
                            "is read as the file's own"));
    Return(others_);
    EXPECT_THAT(others_.Rows("SELECT PayeeName FROM Trans"), ElementsAre("b"));
}

/// "CafÃ©" in Windows-1252 is "Café" in UTF-8. A reader cannot tell them apart unless the file has
/// other characters too.
TEST_F(ThereAndBackTest, TextsThatLookLikeUtf8AreReported)
{
    const std::string garbled = "Caf\xC3\x83\xC2\xA9";
    Add({.fitid = "F1", .description = garbled});
    Add({.fitid = "F2"});

    EXPECT_THAT(Losses(),
                ElementsAre("All characters of the file could be UTF-8 and are read as such, "
                            "which changes them: 1 transaction"));
    Return(others_);
    EXPECT_THAT(others_.Rows("SELECT Description FROM Trans ORDER BY Sequence"),
                ElementsAre("Caf\xC3\xA9", "Shop"));

    Add({.fitid = "F3", .description = "\xC3\xA9"});
    EXPECT_THAT(Losses(), IsEmpty());
    others_.Execute("DELETE FROM Trans");
    Return(others_);
    EXPECT_THAT(others_.Rows("SELECT Description FROM Trans ORDER BY Sequence"),
                ElementsAre(garbled, "Shop", "\xC3\xA9"));
}

/// With random texts, a row comes back unchanged if and only if no loss is reported for it.
TEST_F(ThereAndBackTest, ARowWithoutAReportedLossComesBackAsItWas)
{
    std::mt19937 random(6);
    const std::vector<std::string> pieces = {"a", "B",        " ",        "<",  "\r", "\n",
                                             "&", "\xC3\xA9", "\xCE\xA9", "\"", "0",  "  "};
    const auto text = [&](std::size_t most) {
        std::string result;
        for (std::size_t n = random() % (most + 1); n > 0; --n)
            result += random() % 4 == 0 ? pieces[random() % pieces.size()] : "x";
        return result;
    };
    ExportLosses losses("10-1");
    std::vector<Row> rows;
    for (int n = 1; n <= 400; ++n) {
        Row row;
        row.fitid = random() % 3 == 0 ? "" : "F" + std::to_string(random() % 600) + text(2);
        row.amount = std::to_string(n);
        row.description = text(6);
        row.notes = text(53);
        row.checkID = text(3);
        Add(row);
        rows.push_back(row);
        const std::string identifier = row.fitid.empty() ? "CVLB" + std::to_string(n) : row.fitid;
        losses.Add({identifier,
                    Date::FromIso(row.date),
                    true,
                    row.description,
                    row.notes,
                    row.checkID,
                    "(none)",
                    {2006, 3}});
    }

    Return(others_);

    const auto of = [](Books& books, std::int32_t amount) {
        return books.Rows(
            "SELECT PostDate, Description, PayeeName, CheckID, Year, Period FROM "
            "Trans WHERE Amount = " +
            std::to_string(amount));
    };
    int unchanged = 0;
    for (std::int32_t n = 1; n <= 400; ++n) {
        // A row entered by hand has the identifier that was made for the file.
        const bool same =
            of(others_, n) == of(books_, n) &&
            others_.Rows("SELECT FITID FROM Trans WHERE Amount = " + std::to_string(n)).at(0) ==
                (rows[static_cast<std::size_t>(n - 1)].fitid.empty()
                     ? "CVLB" + std::to_string(n)
                     : rows[static_cast<std::size_t>(n - 1)].fitid);
        EXPECT_EQ(same, !losses.Rows().contains(n)) << n;
        unchanged += same ? 1 : 0;
    }
    EXPECT_GT(unchanged, 20);
    EXPECT_LT(unchanged, 380);
}

/// The other reader is a library. It reads "&" and "<" as SGML does, so the texts have none.
TEST_F(ThereAndBackTest, AnotherReaderFindsTheSameCountAndSum)
{
    std::mt19937 random(7);
    Money sum;
    for (int n = 1; n <= 250; ++n) {
        const Money amount = Money::FromUnits(static_cast<std::int32_t>(random() % 2000) - 1000) +
                             Money::Parse("0.25");
        sum += amount;
        Add({.fitid = n % 3 == 0 ? "" : "2006." + std::to_string(n),
             .date = "2006-03-" + std::to_string(10 + n % 20),
             .amount = amount.ToText(),
             .description = "Shop #" + std::to_string(n),
             .notes = n % 2 == 0 ? "CARD 4417, caf\xC3\xA9" : "",
             .checkID = n % 10 == 0 ? std::to_string(100 + n) : ""});
    }
    const std::string path = books_.folder.Path("out.ofx");
    books_.window.View().AccountID("10-1");
    books_.window.Export().WriteOFX(path);

    const std::string command = "ofxdump '" + path + "' >'" + books_.folder.Path("dump") + "' 2>'" +
                                books_.folder.Path("messages") + "'";
    const int status = std::system(command.c_str());
    if (WIFEXITED(status) && WEXITSTATUS(status) == 127)
        GTEST_SKIP() << "the package ofx is not installed";

    EXPECT_EQ(status, 0);
    EXPECT_EQ(books_.folder.Read("messages").find("ERROR"), std::string::npos)
        << books_.folder.Read("messages");
    std::int32_t count = 0;
    Money found;
    for (const std::string& line : Split(books_.folder.Read("dump"), '\n')) {
        EXPECT_EQ(line.find("ERROR"), std::string::npos) << line;
        const std::string label = "Total money amount: ";
        if (const std::size_t at = line.find(label); at != std::string::npos) {
            ++count;
            found += Money::Parse(line.substr(at + label.size()));
        }
    }
    EXPECT_EQ(count, 250);
    EXPECT_EQ(found, sum);
}

}  // namespace
}  // namespace clb
