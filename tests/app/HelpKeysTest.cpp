// The keys that the manual names are the commands' keys.

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <string>
#include <vector>

#include "app/WindowCommands.h"
#include "base/Text.h"
#include "platform/HelpFiles.h"

namespace clb {
namespace {

/// Keys by the caption of their command, without the ampersand of the access key.
using Keys = std::map<std::string, std::string>;

/// The keys of a command with several, the usual one first.
std::vector<std::string> Separated(const std::string& keys)
{
    std::vector<std::string> separated;
    for (const std::string& key : Split(keys, ';'))
        separated.emplace_back(Trim(key));
    return separated;
}

/// The usual key of each command.
Keys KeysOfCommands()
{
    Keys keys;
    for (const WindowMenu& menu : WindowMenus())
        for (const WindowCommand& command : menu.commands)
            if (*command.key != '\0')
                keys[Replace(CaptionOf(command), "&", "")] = Separated(command.key).front();
    for (const WindowButton& button : WindowButtons())
        if (*button.shortcut != '\0')
            keys[button.key] = button.shortcut;
    return keys;
}

std::string WithoutTags(const std::string& html)
{
    static const std::regex tag("<[^>]*>");
    return std::regex_replace(html, tag, "");
}

std::string PageOf(const std::string& name)
{
    for (const EmbeddedFile& page : HelpFiles().files)
        if (page.name == name)
            return std::string(page.bytes);
    return {};
}

/// The keys that the matches of the pattern name: the first group is a key, the second a caption.
Keys FirstKeys(const std::string& page, const std::regex& pattern, std::size_t key,
               std::size_t caption)
{
    Keys keys;
    for (std::sregex_iterator at(page.begin(), page.end(), pattern), end; at != end; ++at)
        keys[(*at)[caption]] = WithoutTags((*at)[key]);
    return keys;
}

TEST(HelpKeysTest, ThePageOfAllKeysHasThoseOfEachCommand)
{
    static const std::regex row("<tr><td>([^ \n]+)(?: or [^\n]+)?</td><td><b>([^<]+)</b>");
    EXPECT_EQ(FirstKeys(PageOf("keys.html"), row, 1, 2), KeysOfCommands());
}

TEST(HelpKeysTest, ThePageOfAllKeysHasEveryKeyOfACommandWithSeveral)
{
    const std::string page = WithoutTags(PageOf("keys.html"));
    for (const WindowMenu& menu : WindowMenus())
        for (const WindowCommand& command : menu.commands)
            if (const auto keys = Separated(command.key); keys.size() > 1) {
                std::string row = keys.front();
                for (std::size_t other = 1; other < keys.size(); ++other)
                    row += " or " + keys[other];
                row += Replace(CaptionOf(command), "&", "");
                EXPECT_NE(page.find(row), std::string::npos) << row;
            }
}

TEST(HelpKeysTest, NoPageNamesAnotherKeyForACommand)
{
    static const std::regex mention(
        "<b>([^<]+)</b>(?: \\(| or | or press |, or press )((?:<kbd>[^<]+</kbd>\\+?)+)");
    const Keys keys = KeysOfCommands();
    std::size_t mentions = 0;
    for (const EmbeddedFile& page : HelpFiles().files) {
        if (!page.name.ends_with(".html"))
            continue;
        for (const auto& [caption, key] : FirstKeys(std::string(page.bytes), mention, 2, 1)) {
            ++mentions;
            const auto command = keys.find(caption == "New" ? "New Record" : caption);
            ASSERT_NE(command, keys.end()) << page.name << ": " << caption;
            EXPECT_EQ(key, command->second) << page.name << ": " << caption;
        }
    }
    EXPECT_GE(mentions, 5U);
}

}  // namespace
}  // namespace clb
