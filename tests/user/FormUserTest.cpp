#include <gtest/gtest.h>

#include "controls/CheckList.h"
#include "user/FormUser.h"

namespace clb {
namespace {

/// A form with one control of each kind.
class FormUserTest : public testing::Test {
protected:
    FormUserTest()
    {
        for (Control* control : std::initializer_list<Control*>{
                 &label_, &name_, &type_, &first_, &second_, &amount_, &upDown_, &list_, &ok_})
            form_.Add(*control);
        type_.Add("Bank");
        type_.Add("Cash");
        OptionButton::Group({&first_, &second_});
        first_.Choose();
        upDown_.Attach(amount_);
        list_.Add({false, std::string("Checking")});
    }

    Form form_{"frmTest", "Test"};
    Label label_{"lblHint", "Hint"};
    TextBox name_{"txtName"};
    ListBox type_{"cmbType"};
    OptionButton first_{"optAccount(0)", "First"};
    OptionButton second_{"optAccount(1)", "Second"};
    TextBox amount_{"txtAmount", "10"};
    Spinner upDown_{"upDown"};
    CheckList list_{"grdAccounts", {"Include", "Account"}};
    Button ok_{"btnOK", "OK"};
    FormUser user_{form_};
};

TEST_F(FormUserTest, WorksEachKindOfControlAndGivesItTheFocus)
{
    EXPECT_TRUE(user_.Set("txtName", "Visa"));
    EXPECT_EQ(form_.Focus(), &name_);
    EXPECT_TRUE(user_.Choose("cmbType", "Cash"));
    EXPECT_TRUE(user_.Option("optAccount(1)"));
    EXPECT_TRUE(user_.Step("upDown", -2));
    EXPECT_TRUE(user_.Check(1, true));
    EXPECT_EQ(form_.Focus(), &list_);

    EXPECT_EQ(name_.Text(), "Visa");
    EXPECT_EQ(type_.Text(), "Cash");
    EXPECT_TRUE(second_.Value());
    EXPECT_EQ(amount_.Text(), "8");
    EXPECT_EQ(list_.Rows()[0][0], Value{true});
}

TEST_F(FormUserTest, PressesButtonsAndLabels)
{
    int pressed = 0;
    ok_.Click().connect([&pressed] { pressed += 1; });
    label_.Click().connect([&pressed] { pressed += 10; });

    EXPECT_TRUE(user_.Press("btnOK"));
    EXPECT_TRUE(user_.Click("lblHint"));

    EXPECT_EQ(pressed, 11);
}

TEST_F(FormUserTest, CancelPressesTheCancelButtonIfThereIsOne)
{
    int pressed = 0;
    ok_.Click().connect([&pressed] { ++pressed; });

    user_.Cancel();
    form_.CancelButton(ok_);
    user_.Cancel();

    EXPECT_EQ(pressed, 1);
}

TEST_F(FormUserTest, ADisabledOrLockedControlRefusesAndStaysAsItIs)
{
    name_.Enabled(false);
    amount_.Locked(true);
    ok_.Enabled(false);
    upDown_.Enabled(false);
    list_.Enabled(false);

    EXPECT_FALSE(user_.Set("txtName", "Visa"));
    EXPECT_FALSE(user_.Set("txtAmount", "20"));
    EXPECT_FALSE(user_.Press("btnOK"));
    EXPECT_FALSE(user_.Step("upDown", 1));
    EXPECT_FALSE(user_.Check(1, true));

    EXPECT_EQ(name_.Text(), "");
    EXPECT_EQ(amount_.Text(), "10");
    EXPECT_EQ(list_.Rows()[0][0], Value{false});
    EXPECT_EQ(form_.Focus(), nullptr);
}

TEST_F(FormUserTest, AControlThatKeepsTheFocusLeavesTheOthersAlone)
{
    user_.Set("txtName", "Visa");
    name_.Validate().connect([](bool& keep) { keep = true; });

    EXPECT_FALSE(user_.Set("txtAmount", "20"));
    EXPECT_FALSE(user_.Choose("cmbType", "Cash"));

    EXPECT_EQ(amount_.Text(), "10");
    EXPECT_EQ(type_.Index(), -1);
}

TEST_F(FormUserTest, WhatTheFormDoesNotHaveRefuses)
{
    EXPECT_FALSE(user_.Set("cmbType", "Cash"));
    EXPECT_FALSE(user_.Choose("cmbType", "Loan"));
    EXPECT_FALSE(user_.Press("btnCancel"));
    EXPECT_FALSE(user_.Option("btnOK"));
    EXPECT_FALSE(user_.Click("txtName"));
    EXPECT_FALSE(user_.Step("txtAmount", 1));
    EXPECT_FALSE(user_.Check(0, true));
    EXPECT_FALSE(user_.Check(2, true));
}

}  // namespace
}  // namespace clb
