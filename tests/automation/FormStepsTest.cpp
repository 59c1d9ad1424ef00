#include <gtest/gtest.h>

#include "automation/FormSteps.h"
#include "automation/Request.h"
#include "user/FormUser.h"

namespace clb {
namespace {

/// A form with one control of each kind.
class FormStepsTest : public testing::Test {
protected:
    FormStepsTest()
    {
        for (Control* control : std::initializer_list<Control*>{&label_, &name_, &type_, &first_,
                                                                &second_, &amount_, &upDown_, &ok_})
            form_.Add(*control);
        type_.Add("Bank");
        type_.Add("Cash");
        OptionButton::Group({&first_, &second_});
        first_.Choose();
        upDown_.Attach(amount_);
    }

    bool Do(const char* step)
    {
        FormUser user(form_);
        return ReadSteps(Json::array({Json::parse(step)}), false).at(0).work(user);
    }

    Form form_{"frmTest", "Test"};
    Label label_{"lblHint", "Hint"};
    TextBox name_{"txtName"};
    ListBox type_{"cmbType"};
    OptionButton first_{"optAccount(0)", "First"};
    OptionButton second_{"optAccount(1)", "Second"};
    TextBox amount_{"txtAmount", "10"};
    Spinner upDown_{"upDown"};
    Button ok_{"btnOK", "OK"};
};

TEST_F(FormStepsTest, AStepWorksItsControlAndGivesItTheFocus)
{
    EXPECT_TRUE(Do(R"({"set":"txtName","to":"Visa"})"));
    EXPECT_EQ(form_.Focus(), &name_);
    EXPECT_TRUE(Do(R"({"choose":"cmbType","to":"Cash"})"));
    EXPECT_TRUE(Do(R"json({"option":"optAccount(1)"})json"));
    EXPECT_TRUE(Do(R"({"step":"upDown","by":-2})"));

    EXPECT_EQ(name_.Text(), "Visa");
    EXPECT_EQ(type_.Text(), "Cash");
    EXPECT_TRUE(second_.Value());
    EXPECT_EQ(amount_.Text(), "8");
}

TEST_F(FormStepsTest, ButtonsAndLabelsArePressed)
{
    int pressed = 0;
    ok_.Click().connect([&pressed] { pressed += 1; });
    label_.Click().connect([&pressed] { pressed += 10; });

    EXPECT_TRUE(Do(R"({"press":"btnOK"})"));
    EXPECT_TRUE(Do(R"({"click":"lblHint"})"));

    EXPECT_EQ(pressed, 11);
}

TEST_F(FormStepsTest, ADisabledControlRefusesAndStaysAsItIs)
{
    name_.Enabled(false);
    ok_.Enabled(false);

    EXPECT_FALSE(Do(R"({"set":"txtName","to":"Visa"})"));
    EXPECT_FALSE(Do(R"({"press":"btnOK"})"));

    EXPECT_EQ(name_.Text(), "");
    EXPECT_EQ(form_.Focus(), nullptr);
}

TEST_F(FormStepsTest, AControlOfAnotherKindOrNameRefuses)
{
    EXPECT_FALSE(Do(R"({"set":"cmbType","to":"Cash"})"));
    EXPECT_FALSE(Do(R"({"choose":"cmbType","to":"Loan"})"));
    EXPECT_FALSE(Do(R"({"press":"btnCancel"})"));
}

TEST_F(FormStepsTest, WhatIsNotAStepIsAnError)
{
    const auto read = [](const char* steps) { return ReadSteps(Json::parse(steps), false); };

    EXPECT_THROW(read(R"([{"wave":"btnOK"}])"), RequestError);
    EXPECT_THROW(read(R"([{"set":"txtName"}])"), RequestError);
    EXPECT_THROW(read(R"([{"step":"upDown","by":"1"}])"), RequestError);
    EXPECT_THROW(read(R"(["press"])"), RequestError);
    EXPECT_THROW(read(R"([{"screenshot":"x.png"}])"), RequestError);
}

TEST_F(FormStepsTest, EachControlIsDescribedByItsKind)
{
    name_.Text("Visa");
    name_.SelectAll();

    const Json controls = DescribeControls(form_);

    EXPECT_EQ(ToLine(controls["txtName"]), R"({"text":"Visa","enabled":true,"selected":"Visa"})");
    EXPECT_EQ(ToLine(controls["cmbType"]),
              R"({"items":["Bank","Cash"],"index":-1,"text":"","enabled":true})");
    EXPECT_EQ(ToLine(controls["optAccount(0)"]),
              R"({"caption":"First","value":true,"enabled":true})");
    EXPECT_EQ(ToLine(controls["btnOK"]), R"({"caption":"OK","enabled":true})");
    EXPECT_EQ(ToLine(controls["lblHint"]), R"({"caption":"Hint","enabled":true})");
}

}  // namespace
}  // namespace clb
