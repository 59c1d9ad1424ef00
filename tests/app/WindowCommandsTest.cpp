// The table of commands.

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "app/WindowCommands.h"
#include "base/Text.h"
#include "tests/support/Books.h"
#include "views/MenuNames.h"

namespace clb {
namespace {

std::vector<const WindowCommand*> Lines()
{
    std::vector<const WindowCommand*> lines;
    for (const WindowMenu& menu : WindowMenus())
        for (const WindowCommand& command : menu.commands)
            lines.push_back(&command);
    return lines;
}

TEST(WindowCommandsTest, NoTwoLinesHaveTheSameName)
{
    std::set<std::string> names;
    for (const WindowCommand* line : Lines())
        EXPECT_TRUE(names.insert(line->name).second) << line->name;
}

TEST(WindowCommandsTest, NoTwoCommandsHaveTheSameKey)
{
    std::set<std::string> keys;
    std::size_t count = 0;
    // A command may have several, with "; " between them.
    const auto add = [&](const std::string& several) {
        for (const std::string& key : Split(several, ';'))
            if (!key.empty()) {
                ++count;
                keys.insert(std::string(Trim(key)));
            }
    };
    for (const WindowCommand* line : Lines())
        add(line->key);
    for (const WindowButton& button : WindowButtons())
        add(button.shortcut);

    EXPECT_EQ(keys.size(), count);
}

TEST(WindowCommandsTest, NoTwoLinesOfAMenuHaveTheSameAccessKey)
{
    for (const WindowMenu& menu : WindowMenus()) {
        std::set<char> letters;
        for (const WindowCommand& command : menu.commands) {
            const std::string caption = CaptionOf(command);
            const std::size_t ampersand = caption.find('&');
            const bool taken =
                ampersand != std::string::npos && !letters.insert(caption.at(ampersand + 1)).second;
            EXPECT_FALSE(taken) << caption;
        }
    }
}

TEST(WindowCommandsTest, EachLineIsACommandOrASeparator)
{
    for (const WindowCommand* line : Lines())
        EXPECT_EQ(CaptionOf(*line) == "-", line->run == nullptr) << line->name;
    for (const WindowButton& button : WindowButtons())
        EXPECT_NE(button.run, nullptr) << button.key;
}

TEST(WindowCommandsTest, CommandsWorkOnTheRowOnWhichTheyAreEnabled)
{
    const std::set<Enabled> onRow = {Enabled::OnStoredRow, Enabled::OnTransaction,
                                     Enabled::OnExportable};
    for (const WindowCommand* line : Lines())
        EXPECT_EQ(line->onRow, onRow.contains(line->enabled)) << line->name;
    for (const WindowButton& button : WindowButtons())
        EXPECT_EQ(button.onRow, onRow.contains(button.enabled)) << button.key;
}

TEST(WindowCommandsTest, TheButtonsNewAndDeleteAreTheCommandsOfTheMenu)
{
    EXPECT_EQ(FindButton("New")->run, FindCommand(command_name::kNew)->run);
    EXPECT_EQ(FindButton("Delete")->run, FindCommand(command_name::kDelete)->run);
}

TEST(WindowCommandsTest, TheWindowHasALineForEachRow)
{
    Books books;

    for (const WindowCommand* line : Lines()) {
        const MenuItem* item = books.window.menus.Find(line->name);
        ASSERT_NE(item, nullptr) << line->name;
        EXPECT_EQ(item->Caption(), CaptionOf(*line));
    }
    EXPECT_EQ(books.window.menus.Find("mnuH_About")->Caption(), "&About Corvane Ledgerbook");
    EXPECT_EQ(books.window.menus.Find("mnuH_OnTheWeb")->Caption(), "Corvane on the &Web");
}

}  // namespace
}  // namespace clb
