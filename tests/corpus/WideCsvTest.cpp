// Tables of many banks, with what must come of each. The folder CLB_STATEMENTS/wide has them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "statements/csv/CsvReader.h"
#include "statements/source/SourceFile.h"
#include "tests/corpus/Truth.h"
#include "tests/support/TestNames.h"

namespace clb {
namespace {

std::string Folder()
{
    const char* folder = std::getenv("CLB_STATEMENTS");
    return std::string(folder ? folder : "") + "/wide/";
}

nlohmann::json Truth()
{
    return ReadTruth({Folder() + "truth-csv.json"});
}

std::vector<std::string> Files()
{
    std::vector<std::string> files;
    const nlohmann::json truth = Truth();
    for (const auto& [name, file] : truth.items())
        if (file.value("format", "csv") == "csv")
            files.push_back(name);
    return files;
}

class WideCsvTest : public testing::TestWithParam<std::string> {
protected:
    static std::string Text()
    {
        std::ifstream file(Folder() + "files/" + GetParam(), std::ios::binary);
        return DecodeStatement({std::istreambuf_iterator<char>(file), {}});
    }
};

std::string Asked(const std::vector<OpenQuestion>& questions)
{
    std::string asked;
    for (const OpenQuestion& question : questions)
        asked += std::string(KeyOf(question.question)) + " (" + question.why + ") ";
    return asked;
}

TEST_P(WideCsvTest, AllRowsAreReadRightOrAskedAbout)
{
    const nlohmann::json truth = Truth()[GetParam()];
    const std::string text = Text();
    const auto reader = ReadCsv(text);

    const auto questions = reader->Open({});
    if (!truth.value("ambiguous", nlohmann::json()).is_null()) {
        EXPECT_FALSE(questions.empty()) << truth["ambiguous"];
        return;
    }
    EXPECT_EQ(Asked(questions), "");
    ReadStatement read;
    reader->Read({}, read);

    if (truth.contains("accounts"))
        for (const std::string& difference : Differences(truth, read))
            ADD_FAILURE() << difference;
    if (truth.value("need_accounts", false)) {
        EXPECT_EQ(read.accounts.size(), truth["accounts"].size());
    }
}

INSTANTIATE_TEST_SUITE_P(Files, WideCsvTest, testing::ValuesIn(Files()),
                         [](const auto& test) { return TestName(test.param); });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(WideCsvTest);

}  // namespace
}  // namespace clb
