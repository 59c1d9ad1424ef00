#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tests/support/Books.h"
#include "tests/support/FakeImportHost.h"
#include "tests/support/TestNames.h"

namespace clb {
namespace {

/// A statement cut off after each of its bytes, imported one after the other into the same account.
class TruncatedStatementsTest : public ::testing::TestWithParam<const char*> {
protected:
    static std::string Fixture(const std::string& name)
    {
        std::ifstream file(CLB_TEST_FIXTURES "/statements/" + name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Import(std::string_view text)
    {
        std::filesystem::remove(books_.folder.Path("s.ofx.org"));
        host_.file = books_.folder.Write("s.ofx", text);
        import_.ImportFile();
    }
    std::vector<std::string> Rows()
    {
        return books_.Rows(
            "SELECT AccountID, FITID, PostDate, Amount, Description, PayeeName "
            "FROM Trans ORDER BY Sequence");
    }

    Books books_;
    FakeImportHost host_;
    modImport import_{books_.window.Data(), books_.window.View(), host_, books_.messages, books_.clock};
};

TEST_P(TruncatedStatementsTest, AddOnlyWholeTransactionsWhereverTheyAreCut)
{
    const std::string statement = Fixture(GetParam());
    ASSERT_FALSE(statement.empty());

    for (std::size_t length = 0; length < statement.size(); ++length)
        Import(statement.substr(0, length));
    const std::vector<std::string> rowsOfPieces = Rows();
    Import(statement);

    EXPECT_FALSE(rowsOfPieces.empty());
    EXPECT_EQ(Rows(), rowsOfPieces);
    for (const FakeMessageBox::Box& box : books_.messages.boxes)
        EXPECT_EQ(box.text, "Invalid file format.");
}

INSTANTIATE_TEST_SUITE_P(Files, TruncatedStatementsTest,
                         ::testing::Values("bank-crlf.ofx", "end-tags.qfx"),
                         [](const auto& test) { return TestName(test.param); });

}  // namespace
}  // namespace clb
