#include <gtest/gtest.h>

#include "automation/AnswerQueue.h"

namespace clb {
namespace {

constexpr std::int32_t kYesNo = box_style::YesNo + box_style::Question;

TEST(AnswerQueueTest, AQuestionTakesTheFirstAnswerIfItFits)
{
    AnswerQueue answers;
    answers.Add(BoxReply{BoxAnswer::Yes});
    answers.Add(FileReply{"/home/me/march.ofx"});

    EXPECT_EQ(answers.TakeForBox(kYesNo).value().button, BoxAnswer::Yes);
    EXPECT_EQ(answers.TakeForFile().value().path, "/home/me/march.ofx");
    EXPECT_FALSE(answers.TakeForBox(kYesNo));
}

TEST(AnswerQueueTest, AnAnswerOfAnotherKindStaysFirstAndBlocksTheOthers)
{
    AnswerQueue answers;
    answers.Add(FileReply{"/home/me/march.ofx"});
    answers.Add(BoxReply{BoxAnswer::Yes});

    EXPECT_FALSE(answers.TakeForBox(kYesNo));
    EXPECT_TRUE(answers.TakeForFile());
    EXPECT_TRUE(answers.TakeForBox(kYesNo));
}

TEST(AnswerQueueTest, AButtonThatTheBoxLacksDoesNotFit)
{
    AnswerQueue answers;
    answers.Add(BoxReply{BoxAnswer::Yes});

    EXPECT_FALSE(answers.TakeForBox(box_style::Critical));
    EXPECT_TRUE(answers.TakeForBox(kYesNo));
}

TEST(AnswerQueueTest, AFormTakesOnlyAnAnswerWithItsName)
{
    AnswerQueue answers;
    answers.Add(FormReply{"frmSelectAccount", {}});

    EXPECT_FALSE(answers.TakeForForm("frmSplit"));
    EXPECT_EQ(answers.TakeForForm("frmSelectAccount").value().form, "frmSelectAccount");
}

TEST(AnswerQueueTest, ButtonsAreKnownByTheirNames)
{
    for (const char* name : {"OK", "Cancel", "Yes", "No"})
        EXPECT_STREQ(NameOf(ButtonOf(name).value()), name);
    EXPECT_FALSE(ButtonOf("yes"));
}

}  // namespace
}  // namespace clb
