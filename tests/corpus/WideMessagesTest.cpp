#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "statements/messages/CamtReader.h"
#include "statements/messages/Mt940Reader.h"
#include "statements/source/SourceFile.h"
#include "tests/corpus/Truth.h"
#include "tests/support/TestNames.h"

// Reads every bank message of the folder "wide" of the one named by CLB_STATEMENTS and compares it
// with the truth of that folder.

namespace clb {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

fs::path Wide()
{
    const char* folder = std::getenv("CLB_STATEMENTS");
    return fs::path(folder ? folder : "") / "wide";
}

const json& Truth()
{
    static const json truth = fs::exists(Wide() / "truth-camt.json")
                                  ? ReadTruth({(Wide() / "truth-camt.json").string(),
                                               (Wide() / "truth-mt940.json").string()})
                                  : json::object();
    return truth;
}

std::vector<std::string> Names()
{
    std::vector<std::string> names;
    for (const auto& [name, entry] : Truth().items())
        names.push_back(name);
    return names;
}

class WideMessagesTest : public ::testing::TestWithParam<std::string> {
protected:
    WideMessagesTest()
    {
        std::ifstream file(Wide() / "files" / GetParam(), std::ios::binary);
        text_ = DecodeStatement({std::istreambuf_iterator<char>(file), {}});
    }
    [[nodiscard]] bool IsXml() const { return truth_.at("format") == "camt"; }
    [[nodiscard]] std::unique_ptr<IStatementReader> Open() const
    {
        return IsXml() ? ReadCamt(text_) : ReadMt940(text_);
    }

    const json& truth_ = Truth().at(GetParam());
    std::string text_;
};

TEST_P(WideMessagesTest, YieldsTheRowsOfItsTruth)
{
    EXPECT_EQ(IsCamt(text_), IsXml());
    if (truth_.value("not_a_statement", false)) {
        EXPECT_FALSE(IsMt940(text_));
        EXPECT_THROW((void)Open(), NotAStatement);
        return;
    }
    EXPECT_EQ(IsMt940(text_), !IsXml());
    const auto reader = Open();

    ReadStatement read;
    reader->Read({}, read);

    EXPECT_EQ(Differences(truth_, read), std::vector<std::string>());
    EXPECT_TRUE(reader->Open({}).empty());
}

TEST_P(WideMessagesTest, YieldsItsAccountsWithTheirBalances)
{
    if (truth_.value("not_a_statement", false))
        return;
    ReadStatement read;
    Open()->Read({}, read);

    const json& accounts = truth_.at("accounts");
    ASSERT_EQ(read.accounts.size(), accounts.size());
    for (std::size_t at = 0; at < accounts.size(); ++at) {
        const auto& [account, balances, rows] = read.accounts[at];
        const json& wanted = accounts[at];
        SCOPED_TRACE(wanted.at("id"));
        EXPECT_EQ(account.currency, wanted.at("currency"));
        EXPECT_NE(wanted.at("id").get<std::string>().find(account.number), std::string::npos);
        if (const json& opening = wanted.at("opening"); !opening.is_null()) {
            EXPECT_EQ(balances.opening, Money::Parse(opening.get<std::string>()));
        }
        if (const json& closing = wanted.at("closing"); !closing.is_null()) {
            EXPECT_EQ(balances.closing, Money::Parse(closing.get<std::string>()));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Files, WideMessagesTest, ::testing::ValuesIn(Names()),
                         [](const auto& test) { return TestName(test.param); });

}  // namespace
}  // namespace clb
