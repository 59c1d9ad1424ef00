// The manual's page of keys names the window's own keys, those that are no command's.
#include <QAction>
#include <QShortcut>
#include <cctype>
#include <regex>

#include "base/Text.h"
#include "desktop/help/HelpWindow.h"
#include "platform/HelpFiles.h"
#include "tests/desktop/WindowFixture.h"

namespace clb {
namespace {

std::string PageOfKeys()
{
    static const std::regex tag("<[^>]*>");
    for (const EmbeddedFile& page : HelpFiles().files)
        if (page.name == "keys.html")
            return std::regex_replace(Replace(std::string(page.bytes), "\n", " "), tag, "");
    return {};
}

/// A key as the manual writes it.
std::string Written(const QKeySequence& key)
{
    std::string text = ToUtf8(key.toString(QKeySequence::PortableText));
    text = Replace(text, "PgUp", "Page Up");
    text = Replace(text, "PgDown", "Page Down");
    return Replace(text, "Return", "Enter");
}

/// Whether the page names the key and not only as a part of another one.
bool Names(const std::string& page, const std::string& key)
{
    for (std::size_t at = page.find(key); at != std::string::npos; at = page.find(key, at + 1)) {
        const char before = at == 0 ? ' ' : page[at - 1];
        const char after = at + key.size() < page.size() ? page[at + key.size()] : ' ';
        const bool longer = std::islower(static_cast<unsigned char>(after)) != 0 || after == '+';
        if (before != '+' && std::isalnum(static_cast<unsigned char>(before)) == 0 && !longer)
            return true;
    }
    return false;
}

TEST_F(WindowTest, ThePageOfAllKeysNamesTheKeysOfTheWindow)
{
    const std::string page = PageOfKeys();
    int keys = 0;
    for (const QShortcut* shortcut : window_.findChildren<QShortcut*>()) {
        ++keys;
        EXPECT_TRUE(Names(page, Written(shortcut->key()))) << Written(shortcut->key());
    }
    EXPECT_GE(keys, 11);
    for (const char* key : {"Ctrl+Enter", "Ctrl+L", "F6", "Shift+F6", "Ctrl+Shift+S", "Alt+Up",
                            "Ctrl+Shift+F", "Ctrl+F1", "Shift+Up", "F4"})
        EXPECT_TRUE(Names(page, key)) << key;
    EXPECT_FALSE(Names(page, "Ctrl+K"));
}

TEST(HelpKeysTest, ThePageOfAllKeysNamesTheKeysOfTheManualsWindow)
{
    const std::string page = PageOfKeys();
    HelpLook look;
    const HelpWindow window(look, [](QWidget&, const QString&) {});
    int keys = 0;
    for (const QAction* action : window.findChildren<QAction*>())
        for (const QKeySequence& key : action->shortcuts()) {
            if (key == QKeySequence(Qt::Key_Back) || key == QKeySequence(Qt::Key_Forward))
                continue;  // named after what they do
            ++keys;
            EXPECT_TRUE(Names(page, Written(key))) << Written(key);
        }
    for (const QShortcut* shortcut : window.findChildren<QShortcut*>())
        EXPECT_TRUE(Names(page, Written(shortcut->key()))) << Written(shortcut->key());
    EXPECT_GE(keys, 8);
}

}  // namespace
}  // namespace clb
