// The manual is complete, all its links work, and it needs no network.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <string>

#include "platform/HelpFiles.h"
#include "tests/support/HtmlPage.h"

namespace clb {
namespace {

using testing::IsEmpty;

class HelpPagesTest : public testing::Test {
protected:
    HelpPagesTest()
    {
        for (const EmbeddedFile& file : HelpFiles().files) {
            names_.insert(std::string(file.name));
            if (file.name.ends_with(".html"))
                pages_.emplace(std::string(file.name), HtmlPage(file.bytes));
        }
    }

    static std::string TextOf(const std::string& name)
    {
        for (const EmbeddedFile& file : HelpFiles().files)
            if (file.name == name)
                return std::string(file.bytes);
        return {};
    }
    /// The files that a page's elements link to; the page itself for a link to an anchor only.
    static std::string TargetOf(const std::string& page, const std::string& link)
    {
        const std::string file = link.substr(0, link.find('#'));
        return file.empty() ? page : file;
    }
    static std::string LinkOf(const HtmlPage::Element& element)
    {
        return element.Get(element.tag == "img" ? "src" : "href");
    }
    static bool IsLink(const HtmlPage::Element& element)
    {
        return element.tag == "a" || element.tag == "img" || element.tag == "link";
    }
    void Follow(const std::string& page, std::set<std::string>& seen) const
    {
        if (!seen.insert(page).second || !pages_.contains(page))
            return;
        for (const HtmlPage::Element& element : pages_.at(page).Elements())
            if (IsLink(element))
                Follow(TargetOf(page, LinkOf(element)), seen);
    }

    std::set<std::string> names_;
    std::map<std::string, HtmlPage> pages_;
};

TEST_F(HelpPagesTest, EveryPageIsWellFormed)
{
    ASSERT_TRUE(pages_.contains("index.html"));
    for (const auto& [name, page] : pages_)
        EXPECT_THAT(page.Faults(), IsEmpty()) << name;
}

TEST_F(HelpPagesTest, EveryLinkAndPictureLeadsSomewhere)
{
    for (const auto& [name, page] : pages_) {
        for (const HtmlPage::Element& element : page.Elements()) {
            if (!IsLink(element))
                continue;
            const std::string link = LinkOf(element);
            const std::string target = TargetOf(name, link);
            EXPECT_TRUE(names_.contains(target)) << name << " leads to " << link;
            const std::size_t anchor = link.find('#');
            if (anchor == std::string::npos || !pages_.contains(target))
                continue;
            EXPECT_TRUE(pages_.at(target).HasAnchor(link.substr(anchor + 1)))
                << name << " leads to " << link;
        }
    }
}

TEST_F(HelpPagesTest, EveryFileIsReachedFromTheFirstPage)
{
    std::set<std::string> seen;

    Follow("index.html", seen);

    for (const std::string& name : names_)
        EXPECT_TRUE(seen.contains(name)) << name;
}

TEST_F(HelpPagesTest, NoPageRunsScriptsOrAsksTheNetwork)
{
    const std::regex address(R"((src|href|url)\s*[=(]\s*["']?(\w+:|//))");
    for (const std::string& name : names_) {
        const std::string text = name.ends_with(".png") ? std::string() : TextOf(name);
        EXPECT_FALSE(std::regex_search(text, address)) << name;
        EXPECT_EQ(text.find("@import"), std::string::npos) << name;
    }
    for (const auto& [name, page] : pages_)
        for (const HtmlPage::Element& element : page.Elements()) {
            EXPECT_NE(element.tag, "script") << name;
            for (const auto& [attribute, value] : element.attributes)
                EXPECT_FALSE(attribute.starts_with("on")) << name << ": " << attribute;
        }
}

TEST_F(HelpPagesTest, EveryPageHasTheSameContentsWithItselfMarked)
{
    const std::string mark = " aria-current=\"page\"";
    const auto contents = [&](const std::string& name) {
        std::string text = TextOf(name);
        text = text.substr(0, text.find("</nav>"));
        text.erase(0, text.find("<nav"));
        const std::size_t marked = text.find("<a href=\"" + name + "\"" + mark);
        EXPECT_NE(marked, std::string::npos) << name << " is not marked";
        if (marked != std::string::npos)
            text.erase(text.find(mark), mark.size());
        return text;
    };
    for (const auto& [name, page] : pages_)
        EXPECT_EQ(contents(name), contents("index.html")) << name;
}

TEST_F(HelpPagesTest, EveryPictureIsDescribedAndOfTheSizeGiven)
{
    const auto number = [](const std::string& bytes, std::size_t at) {
        unsigned value = 0;
        for (std::size_t i = at; i < at + 4; ++i)
            value = value << 8 | static_cast<unsigned char>(bytes.at(i));
        return std::to_string(value);
    };
    std::size_t pictures = 0;
    for (const auto& [name, page] : pages_) {
        for (const HtmlPage::Element& element : page.Elements()) {
            if (element.tag != "img")
                continue;
            ++pictures;
            const std::string picture = TextOf(element.Get("src"));
            ASSERT_TRUE(picture.starts_with("\x89PNG")) << element.Get("src");
            // The header chunk begins with width and height.
            EXPECT_EQ(element.Get("width"), number(picture, 16)) << element.Get("src");
            EXPECT_EQ(element.Get("height"), number(picture, 20)) << element.Get("src");
            EXPECT_FALSE(element.Get("alt").empty()) << name;
        }
    }
    EXPECT_GE(pictures, 7U);
}

}  // namespace
}  // namespace clb
