#include <gtest/gtest.h>

#include "controls/CheckList.h"
#include "controls/ControlVisitor.h"
#include "controls/Inputs.h"
#include "controls/Tree.h"

namespace clb {
namespace {

TEST(ControlVisitorTest, AControlIsKnownAsItsOwnKindOnly)
{
    TextBox box("txtName");
    Control* const control = &box;

    EXPECT_EQ(As<TextBox>(control), &box);
    EXPECT_EQ(As<ListBox>(control), nullptr);
    EXPECT_EQ(As<TextBox>(nullptr), nullptr);
}

/// Names what it visits.
class Names : public ControlVisitor {
public:
    using ControlVisitor::Visit;
    void Visit(Button& button) override { names += "button " + button.Caption() + ";"; }
    void Other(Control& control) override { names += "other " + control.Name() + ";"; }

    std::string names;
};

TEST(ControlVisitorTest, KindsThatAVisitorDoesNotHandleArriveAsOthers)
{
    Button button("btnOK", "OK");
    CheckList list("grdAccounts", {});
    Label label("lblHint", "");
    OptionButton option("optFirst", "");
    Spinner spinner("upDown");
    Tree tree("TreeView");
    Names names;

    for (Control* control :
         std::initializer_list<Control*>{&button, &list, &label, &option, &spinner, &tree})
        control->Accept(names);

    EXPECT_EQ(names.names,
              "button OK;other grdAccounts;other lblHint;other optFirst;other upDown;"
              "other TreeView;");
}

TEST(ControlVisitorTest, LabelsBarsAndDisabledControlsTakeNoFocus)
{
    Label label("lblHint", "");
    StatusBar bar("StatusBar", 2);
    TextBox box("txtName");

    EXPECT_FALSE(label.TakesFocus());
    EXPECT_FALSE(bar.TakesFocus());
    EXPECT_TRUE(box.TakesFocus());
    box.Enabled(false);
    EXPECT_FALSE(box.TakesFocus());
}

}  // namespace
}  // namespace clb
