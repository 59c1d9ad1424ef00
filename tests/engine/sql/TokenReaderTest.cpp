// The tokens that all parsers of the dialect read the same way.
#include <gtest/gtest.h>

#include "engine/sql/TokenReader.h"

namespace clb {
namespace {

TEST(TokenReaderTest, TakesEachComparison)
{
    const auto lexed = Lex("= <> < <= > >=");
    TokenReader in(lexed);

    for (const Operator expected : {Operator::Equal, Operator::NotEqual, Operator::Less,
                                    Operator::LessEqual, Operator::Greater, Operator::GreaterEqual})
        EXPECT_EQ(in.TakeComparison(), expected);
    EXPECT_EQ(in.Peek().kind, TokenKind::End);
}

TEST(TokenReaderTest, LeavesOtherTokensThanComparisonsInPlace)
{
    const auto lexed = Lex("LIKE");
    TokenReader in(lexed);

    EXPECT_EQ(in.TakeComparison(), std::nullopt);
    EXPECT_TRUE(in.AtWord("LIKE"));
}

TEST(TokenReaderTest, TakesTruthValuesInAnyCase)
{
    const auto lexed = Lex("TRUE yes False NO [Yes]");
    TokenReader in(lexed);

    EXPECT_EQ(in.TakeTruth(), true);
    EXPECT_EQ(in.TakeTruth(), true);
    EXPECT_EQ(in.TakeTruth(), false);
    EXPECT_EQ(in.TakeTruth(), false);
    EXPECT_EQ(in.TakeTruth(), std::nullopt);
    EXPECT_TRUE(in.AtName());
}

}  // namespace
}  // namespace clb
