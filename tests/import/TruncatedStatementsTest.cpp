#include <fstream>
#include <iterator>

#include "tests/support/CutStatement.h"
#include "tests/support/TestNames.h"

namespace clb {
namespace {

std::string Fixture(const std::string& name)
{
    std::ifstream file(CLB_TEST_FIXTURES "/statements/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class TruncatedStatementsTest : public ::testing::TestWithParam<const char*> {};

TEST_P(TruncatedStatementsTest, AddOnlyWholeTransactionsWhereverTheyAreCut)
{
    CutStatement statement(GetParam(), Fixture(GetParam()));

    for (std::size_t length = 0; length < statement.Size(); ++length)
        statement.ExpectWholeTransactionsOnly(length);
}

INSTANTIATE_TEST_SUITE_P(Files, TruncatedStatementsTest,
                         ::testing::Values("bank-crlf.ofx", "end-tags.qfx", "old-bank.ofc",
                                           "credit-card-lf.ofx", "windows-1252.ofx", "utf-8.ofx",
                                           "carriage-returns-only.ofx", "bank.QIF"),
                         [](const auto& test) { return TestName(test.param); });

TEST(TruncatedQifTest, AddsOnlyWholeRecordsWhereverItIsCut)
{
    CutStatement statement("two.qif",
                           "!Type:Bank\r\nD3/5'06\r\nT-45.00\r\nPGrocer\r\nMmilk\r\nN17\r\n^\r\n"
                           "D12/31/2006\r\nT1,200.50\r\nLSalary\r\n^\r\n");

    for (std::size_t length = 0; length < statement.Size(); ++length)
        statement.ExpectWholeTransactionsOnly(length);
}

}  // namespace
}  // namespace clb
