// The OFX files of the folder named by CLB_STATEMENTS, against what its truth says of them.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "base/Text.h"
#include "statements/ofx/OfxReader.h"
#include "tests/corpus/Truth.h"
#include "tests/support/TestNames.h"

namespace clb {
namespace {

std::string Folder()
{
    const char* name = std::getenv("CLB_STATEMENTS");
    return name ? name : "";
}

const nlohmann::json& Truth()
{
    static const nlohmann::json truth = ReadTruth({Folder() + "/wide/truth-ofx.json"});
    return truth;
}

std::vector<std::string> Names()
{
    std::vector<std::string> names;
    for (const auto& [name, entry] : Truth().items())
        names.push_back(name);
    return names;
}

/// The file's text. The folder's other files lie in wide/files.
std::string TextOf(const std::string& name)
{
    const bool here = Truth().at(name).at("where") == "shared/statements";
    std::ifstream file(Folder() + (here ? "/" : "/wide/files/") + name, std::ios::binary);
    return DecodeFile({std::istreambuf_iterator<char>(file), {}});
}

/// The truth without the rows whose amounts have more decimals than money can hold: those must be
/// listed instead.
nlohmann::json WithoutInexact(nlohmann::json truth, std::size_t& inexact)
{
    for (auto& account : truth["accounts"]) {
        nlohmann::json rows = nlohmann::json::array();
        for (const auto& row : account["rows"]) {
            const std::string amount = row["amount"];
            const std::size_t point = amount.find('.');
            if (point != std::string::npos && amount.size() - point > 5)
                ++inexact;
            else
                rows.push_back(row);
        }
        account["rows"] = rows;
    }
    return truth;
}

class WideOfxTest : public ::testing::TestWithParam<std::string> {};

TEST_P(WideOfxTest, YieldsTheRowsOfItsTruth)
{
    const nlohmann::json& whole = Truth().at(GetParam());
    const std::string text = TextOf(GetParam());
    ASSERT_FALSE(text.empty());
    ASSERT_TRUE(IsOfx(text));
    if (whole["not_a_statement"] && whole["accounts"].empty()) {
        EXPECT_THROW((void)ReadOfx(text), NotAStatement);
        return;
    }
    std::size_t inexact = 0;
    const nlohmann::json truth = WithoutInexact(whole, inexact);

    const auto reader = ReadOfx(text);
    ReadStatement read;
    reader->Read({}, read);

    EXPECT_TRUE(reader->Open({}).empty());
    EXPECT_EQ(Differences(truth, read), std::vector<std::string>());
    const auto unread = std::count_if(
        read.leftOut.begin(), read.leftOut.end(),
        [](const LeftOutPart& part) { return part.reason == LeftOutReason::NoAmount; });
    EXPECT_EQ(static_cast<std::size_t>(unread), inexact);
}

TEST_P(WideOfxTest, YieldsTheAccountsOfItsTruth)
{
    const nlohmann::json& truth = Truth().at(GetParam());
    if (truth["accounts"].empty())
        return;
    const std::string text = TextOf(GetParam());

    ReadStatement read;
    ReadOfx(text)->Read({}, read);

    for (const auto& account : truth["accounts"]) {
        const std::string number = account["id"].is_null() ? "" : account["id"];
        const auto found =
            std::find_if(read.accounts.begin(), read.accounts.end(),
                         [&number](const auto& got) { return got.account.number == number; });
        ASSERT_NE(found, read.accounts.end()) << number;
        if (!account["currency"].is_null()) {
            EXPECT_EQ(found->account.currency, account["currency"]);
        }
        const std::string closing = account["closing"].is_null() ? "" : account["closing"];
        if (closing.empty() || closing.size() - std::min(closing.find('.'), closing.size()) > 5) {
            EXPECT_FALSE(found->balances.closing);
        } else {
            EXPECT_EQ(found->balances.closing, Money::Parse(closing));
        }
    }
}

TEST_P(WideOfxTest, ListsWhatItsTruthLeavesOut)
{
    const nlohmann::json& truth = Truth().at(GetParam());
    if (truth["accounts"].empty())
        return;
    const std::string text = TextOf(GetParam());

    ReadStatement read;
    ReadOfx(text)->Read({}, read);

    for (const auto& account : truth["accounts"])
        for (const auto& part : account["left_out"])
            EXPECT_TRUE(std::any_of(read.leftOut.begin(), read.leftOut.end(),
                                    [&part](const LeftOutPart& left) {
                                        return left.text.find(part["name"]) != std::string::npos;
                                    }))
                << part;
}

INSTANTIATE_TEST_SUITE_P(Files, WideOfxTest, ::testing::ValuesIn(Names()),
                         [](const auto& test) { return TestName(test.param); });

}  // namespace
}  // namespace clb
