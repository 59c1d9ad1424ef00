#include <cstdlib>
#include <fstream>
#include <iterator>

#include "tests/support/CutStatement.h"
#include "tests/support/TestNames.h"

namespace clb {
namespace {

/// A file of the folder named by CLB_STATEMENTS.
std::string Bytes(const std::string& name)
{
    const char* folder = std::getenv("CLB_STATEMENTS");
    std::ifstream file(std::string(folder ? folder : "") + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class TruncatedFilesTest : public ::testing::TestWithParam<const char*> {};

TEST_P(TruncatedFilesTest, AddOnlyWholeTransactionsWhereverTheyAreCut)
{
    const std::string bytes = Bytes(GetParam());
    if (bytes.empty())
        GTEST_SKIP() << "the folder has no such file";
    CutStatement statement(GetParam(), bytes);

    // Tries every offset of a small file; in a large one, steps that reach every place within a
    // line.
    const std::size_t step = bytes.size() <= 4096 ? 1 : 13;
    for (std::size_t length = 0; length < statement.Size(); length += step)
        statement.ExpectWholeTransactionsOnly(length);
}

INSTANTIATE_TEST_SUITE_P(Files, TruncatedFilesTest,
                         ::testing::Values("banking-endtags.ofx", "fixofx-checking.ofx",
                                           "ofxparse-checking.ofx", "ofxparse-fidelity-savings.ofx",
                                           "qifrb-mmddyy.qif"),
                         [](const auto& test) { return TestName(test.param); });

}  // namespace
}  // namespace clb
