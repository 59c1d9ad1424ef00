// The QIF files of the folder named by CLB_STATEMENTS, against what the import makes of
// them that reads dates in one order, whatever the file says. So dates are not compared with it.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "base/Text.h"
#include "statements/qif/QifReader.h"
#include "tests/corpus/Truth.h"
#include "tests/support/TestNames.h"

namespace clb {
namespace {

std::string Folder()
{
    const char* name = std::getenv("CLB_STATEMENTS");
    return name ? name : "";
}

const nlohmann::json& Expected()
{
    static const nlohmann::json expected = [] {
        std::ifstream file(Folder() + "/expected.json");
        return nlohmann::json::parse(file, nullptr, false);
    }();
    return expected;
}

std::vector<std::string> Names()
{
    std::vector<std::string> names;
    if (Expected().is_object())
        for (const auto& [name, entry] : Expected().items())
            if (entry.at("kind") == "QIF" && entry.at("bytes") > 0)
                names.push_back(name);
    return names;
}

std::string TextOf(const std::string& name)
{
    std::ifstream file(Folder() + "/" + name, std::ios::binary);
    return DecodeFile({std::istreambuf_iterator<char>(file), {}});
}

class WideQifTest : public ::testing::TestWithParam<std::string> {};

TEST_P(WideQifTest, YieldsItsRowsWithoutAQuestion)
{
    const std::string text = TextOf(GetParam());
    ASSERT_TRUE(IsQifText(text));
    const auto reader = ReadQif(text);

    ReadStatement read;
    reader->Read({}, read);

    EXPECT_TRUE(reader->Open({}).empty());
    Money sum;
    std::size_t rows = 0;
    for (const auto& account : read.accounts)
        for (const StatementRow& row : account.rows) {
            sum += row.amount;
            ++rows;
        }
    const nlohmann::json& expected = Expected().at(GetParam());
    EXPECT_EQ(sum, Money::Parse(expected.at("sum").get<std::string>()));
    // A '^' without a record before it makes an empty row there, and so does a trade.
    std::size_t empty = GetParam() == "qifrb-strayend.qif" ? 1 : 0;
    for (const LeftOutPart& part : read.leftOut) {
        EXPECT_EQ(part.reason, LeftOutReason::Investment);
        empty += part.count;
    }
    EXPECT_EQ(rows + empty, expected.at("rows"));
}

INSTANTIATE_TEST_SUITE_P(Files, WideQifTest, ::testing::ValuesIn(Names()),
                         [](const auto& test) { return TestName(test.param); });

// The order of these dates follows from the days beyond 12.
TEST(WideQifDatesTest, TheSamplesOfThreeDaysAgree)
{
    for (const char* const name :
         {"qifrb-ddmmyy.qif", "qifrb-dmyy.qif", "qifrb-mmddyy.qif", "qifrb-mmddyyyy.qif",
          "qifrb-separator.qif", "qifrb-spaced.qif", "qifrb-strayend.qif"}) {
        const std::string text = TextOf(name);
        if (text.empty())
            GTEST_SKIP() << "the folder has no such file";
        ReadStatement read;
        ReadQif(text)->Read({}, read);

        ASSERT_EQ(read.accounts.at(0).rows.size(), 3U) << name;
        EXPECT_EQ(read.accounts[0].rows[0].date, Date::Of(2010, 1, 1)) << name;
        EXPECT_EQ(read.accounts[0].rows[1].date, Date::Of(2010, 6, 1)) << name;
        EXPECT_EQ(read.accounts[0].rows[2].date, Date::Of(2010, 12, 29)) << name;
    }
}

}  // namespace
}  // namespace clb
