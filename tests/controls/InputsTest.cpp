#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/Menus.h"

namespace clb {
namespace {

TEST(TextBoxTest, OnlyAnotherTextRaisesTheChange)
{
    TextBox box("txtYear", "2006");
    int changes = 0;
    box.TextChanged().connect([&changes] { ++changes; });

    box.Text("2006");
    box.Text("2007");

    EXPECT_EQ(changes, 1);
}

TEST(TextBoxTest, TheSelectionCountsCharacters)
{
    TextBox box("txtNew", "5€0");

    box.SelectAll();

    EXPECT_EQ(box.SelectionLength(), 3U);
    EXPECT_EQ(box.SelectedText(), "5€0");
}

TEST(ListBoxTest, ChoosingRaisesTheClickEvenForTheSameItem)
{
    ListBox list("cmbPeriod");
    list.Add("January", 1);
    list.Add("February", 2);
    int clicks = 0;
    list.Click().connect([&clicks] { ++clicks; });

    list.Index(1);
    list.Index(1);

    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(list.ItemData(), 2);
    EXPECT_EQ(list.Text(), "February");
    EXPECT_THROW(list.Index(2), RuntimeError);
}

TEST(OptionButtonTest, ChoosingOneUnchoosesTheOthers)
{
    OptionButton create("optAccount(0)", "Create");
    OptionButton map("optAccount(1)", "Map");
    OptionButton::Group({&create, &map});

    create.Choose();
    map.Choose();

    EXPECT_FALSE(create.Value());
    EXPECT_TRUE(map.Value());
}

TEST(OptionButtonTest, ADisabledOptionCannotBeChosen)
{
    OptionButton create("optAccount(0)", "Create");
    OptionButton map("optAccount(1)", "Map");
    OptionButton::Group({&create, &map});
    create.Choose();
    map.Enabled(false);

    map.Choose();

    EXPECT_TRUE(create.Value());
    EXPECT_FALSE(map.Value());
}

TEST(SpinnerTest, StepsTheNumberInItsBox)
{
    TextBox year("txtYear", "1999");
    Spinner spinner("UpDown");
    spinner.Attach(year);

    spinner.Step(1);
    EXPECT_EQ(year.Text(), "2000");
    spinner.Step(-1);
    EXPECT_EQ(year.Text(), "1999");
}

TEST(SpinnerTest, LeavesTextThatIsNotANumber)
{
    TextBox year("txtYear", "soon");
    Spinner spinner("UpDown");
    spinner.Attach(year);

    spinner.Step(1);

    EXPECT_EQ(year.Text(), "soon");
}

TEST(StatusBarTest, ReportsOnlyATextThatChanged)
{
    StatusBar bar("StatusBar", 2);
    std::vector<std::string> texts;
    bar.PanelChanged().connect([&](std::size_t panel) { texts.push_back(bar.Panel(panel)); });

    bar.Panel(1, "Ready");
    bar.Panel(1, "Ready");
    bar.Panel(1, "Importing");

    EXPECT_EQ(texts, (std::vector<std::string>{"Ready", "Importing"}));
}

TEST(ToolbarTest, ADisabledButtonDoesNothing)
{
    Toolbar bar("Toolbar");
    bar.Add("New", "New record");
    std::vector<std::string> pressed;
    bar.ButtonClick().connect([&](const std::string& key) { pressed.push_back(key); });

    bar.ButtonEnabled("New", false);
    bar.Press("New");
    bar.ButtonEnabled("New", true);
    bar.Press("New");

    EXPECT_EQ(pressed, (std::vector<std::string>{"New"}));
    EXPECT_THROW(bar.ButtonEnabled("Old", true), RuntimeError);
}

TEST(MenuItemTest, SeparatorsAndDisabledItemsDoNothing)
{
    MenuBar bar("menus");
    Menu& file = bar.Add("mnuFile", "&File");
    MenuItem& import = file.Add("mnuF_Import", "&Import...");
    MenuItem& rule = file.Add("mnuF_Rule", "-");
    int clicks = 0;
    import.Click().connect([&clicks] { ++clicks;
});
rule.Click().connect([&clicks] { ++clicks; });

rule.Press();
import.Enabled(false);
import.Press();
EXPECT_EQ(clicks, 0);
import.Enabled(true);
bar.Find("mnuF_Import")->Press();

EXPECT_EQ(clicks, 1);
EXPECT_EQ(bar.Find("mnuX"), nullptr);
}  // namespace

TEST(FormTest, TheControlThatHasTheFocusIsAskedBeforeItLosesIt)
{
    Form form("frm", "Form");
    TextBox first("first");
    TextBox second("second");
    form.Add(first);
    form.Add(second);
    bool refuse = true;
    first.Validate().connect([&refuse](bool& cancel) { cancel = refuse; });
    form.Focus(first);

    EXPECT_FALSE(form.Focus(second));
    EXPECT_EQ(form.Focus(), &first);
    refuse = false;
    EXPECT_TRUE(form.Focus(second));
    EXPECT_EQ(form.Focus(), &second);
}

TEST(FormTest, HasItsControlsByName)
{
    Form form("frm", "Form");
    TextBox box("txtNew");
    form.Add(box);

    EXPECT_EQ(form.Find("txtNew"), &box);
    EXPECT_EQ(form.Find("txtOld"), nullptr);
}

}  // namespace clb
}  // namespace clb
