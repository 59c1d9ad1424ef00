// The settings file, read and written from outside.

#include <filesystem>

#include "base/Text.h"
#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class SettingsTest : public Scenario {
protected:
    void File(const std::string& text) { folder.Write("cvlb.ini", text); }
    std::string File() { return folder.Read("cvlb.ini"); }
    void Write(const std::string& section, const std::string& key, const std::string& value)
    {
        Call("IniWriteString", {section, key, value});
    }
    std::string Text(const std::string& section, const std::string& key)
    {
        return Call("IniGetString", {section, key, "(missing)"});
    }
    std::int32_t Number(const std::string& key) { return Call("IniGetLong", {"S", key, -77}); }
};

TEST_F(SettingsTest, TheDefaultReplacesAMissingFileSectionOrKey)
{
    EXPECT_EQ(Call("IniGetString", {"S", "a"}), "");
    EXPECT_EQ(Call("IniGetString", {"S", "a", "d"}), "d");
    EXPECT_EQ(Call("IniGetLong", {"S", "a", 42}), 42);

    File("[S]\r\nb=1\r\n[T]\r\na=2\r\n");
    EXPECT_EQ(Call("IniGetString", {"S", "a"}), "");
    EXPECT_EQ(Call("IniGetString", {"S", "a", "d"}), "d");
    EXPECT_EQ(Call("IniGetLong", {"S", "a", -42}), -42);
    EXPECT_EQ(Call("IniGetString", {"U", "a", "d"}), "d");
    EXPECT_EQ(Call("IniGetString", {"S", "a", std::string(120, 'x')}), std::string(99, 'x'));
}

TEST_F(SettingsTest, ReadingMakesNoFile)
{
    Text("S", "a");
    Number("a");

    EXPECT_FALSE(folder.Holds("cvlb.ini"));
}

TEST_F(SettingsTest, NamesAreFoundIgnoringCaseAndOuterBlanks)
{
    File("  [ SeTTings ]  \r\n  bankURL \t=  x  \r\n");

    EXPECT_EQ(Text("settings", "BANKurl"), "x");
    EXPECT_EQ(Text("SETTINGS", "bankurl"), "x");
    EXPECT_EQ(Text("Setting", "bankurl"), "(missing)");
    EXPECT_EQ(Text("Settings", "bank"), "(missing)");
}

TEST_F(SettingsTest, EveryOtherLineKeepsItsPlace)
{
    File("\r\n; first\r\nloose=1\r\n[A]\r\n;k=9\r\nk = 1 \r\n\r\nno value\r\n[B]\r\nk=2\r\n");

    Write("B", "k", "3");
    Write("A", "k", "4");
    Write("A", "new", "5");
    Write("C", "k", "6");

    EXPECT_EQ(File(),
              "\r\n; first\r\nloose=1\r\n[A]\r\n;k=9\r\nk=4\r\n\r\nno value\r\nnew=5\r\n[B]\r\n"
              "k=3\r\n[C]\r\nk=6\r\n");
}

TEST_F(SettingsTest, AFileWithoutALastLineEndIsContinuedOnANewLine)
{
    File("[S]\r\na=1");
    Write("S", "b", "2");
    EXPECT_EQ(File(), "[S]\r\na=1\r\nb=2\r\n");

    File("[S]\r\na=1");
    Write("T", "b", "2");
    EXPECT_EQ(File(), "[S]\r\na=1\r\n[T]\r\nb=2\r\n");
}

TEST_F(SettingsTest, ACommentIsNotAKeyAndAKeyBeforeAllSectionsBelongsToNone)
{
    File("a=0\r\n[S]\r\n;a=1\r\n ; a=2\r\nb=3\r\n");

    EXPECT_EQ(Text("S", "a"), "(missing)");
    EXPECT_EQ(Text("S", ";a"), "(missing)");
    EXPECT_EQ(Text("S", "b"), "3");
}

TEST_F(SettingsTest, OfSectionsAndKeysThatOccurTwiceTheFirstCounts)
{
    File("[S]\r\na=1\r\nA=2\r\n[T]\r\nx=0\r\n[s]\r\na=3\r\nb=4\r\n");

    EXPECT_EQ(Text("S", "a"), "1");
    Write("S", "a", "9");

    EXPECT_EQ(File(), "[S]\r\na=9\r\nA=2\r\n[T]\r\nx=0\r\n[s]\r\na=3\r\nb=4\r\n");
}

TEST_F(SettingsTest, ValuesComeBackAsTheyWereWritten)
{
    for (const std::string value :
         {"a=b=c", "x;y", "; not a comment", "[S]", "it's", "say \"hi\" twice", "\"open", "a  b",
          "C:\\path\\n", "100%", "caf\u00e9 \u8d85 \U0001F600", "", "="}) {
        Write("S", "a", value);
        EXPECT_EQ(Text("S", "a"), value);
    }
    EXPECT_EQ(Text("S", "b"), "(missing)");
}

TEST_F(SettingsTest, NamesMayBeOfAnyScript)
{
    Write("R\u00e9glages", "cl\u00e9 \u8d85", "1");

    EXPECT_EQ(Text("R\u00e9glages", "cl\u00e9 \u8d85"), "1");
}

TEST_F(SettingsTest, BlanksAndOnePairOfQuotesAroundAValueAreRemoved)
{
    File(
        "[S]\r\na= \t x y \t\r\nb=\" x \"\r\nc='x'\r\nd=\"\"x\"\"\r\ne=\"\r\nf=\"x'\r\n"
        "g=\"\"\r\n");

    EXPECT_EQ(Text("S", "a"), "x y");
    EXPECT_EQ(Text("S", "b"), " x ");
    EXPECT_EQ(Text("S", "c"), "x");
    EXPECT_EQ(Text("S", "d"), "\"x\"");
    EXPECT_EQ(Text("S", "e"), "\"");
    EXPECT_EQ(Text("S", "f"), "\"x'");
    EXPECT_EQ(Text("S", "g"), "");
}

TEST_F(SettingsTest, AValueIsCutAtNinetyNineCharactersWhenReadAndKeptWholeInTheFile)
{
    std::string whole;
    for (int at = 0; at < 60; ++at)
        whole += "\u00e9\U0001F600";

    Write("S", "a", whole);

    EXPECT_EQ(Text("S", "a"), Left(whole, 99));
    EXPECT_EQ(File(), "[S]\r\na=" + whole + "\r\n");
    Write("S", "b", std::string(99, 'x'));
    EXPECT_EQ(Text("S", "b"), std::string(99, 'x'));
    Write("S", "b", std::string(100, 'x'));
    EXPECT_EQ(Text("S", "b"), std::string(99, 'x'));
}

TEST_F(SettingsTest, AValueIsOneLine)
{
    Write("S", "a", "one\r\n[T]\r\nb=two");

    EXPECT_EQ(Text("S", "a"), "one");
    EXPECT_EQ(Text("T", "b"), "(missing)");
}

TEST_F(SettingsTest, NumbersAreWrittenAsDecimalText)
{
    for (const std::int32_t number : {0, -1, 42, 2147483647, -2147483647 - 1}) {
        Call("IniWriteLong", {"S", "a", number});
        EXPECT_EQ(Text("S", "a"), std::to_string(number));
        EXPECT_EQ(Number("a"), number);
    }
}

TEST_F(SettingsTest, ANumberIsTheDigitsThatAValueBeginsWith)
{
    File(
        "[S]\r\na=12abc\r\nb=-7 days\r\nc=+5\r\nd=x9\r\ne=\r\nf= 8 \r\ng=\"16\"\r\nh=1.9\r\n"
        "i=-\r\nj=007\r\n");

    EXPECT_EQ(Number("a"), 12);
    EXPECT_EQ(Number("b"), -7);
    EXPECT_EQ(Number("c"), 5);
    EXPECT_EQ(Number("d"), 0);
    EXPECT_EQ(Number("e"), 0);
    EXPECT_EQ(Number("f"), 8);
    EXPECT_EQ(Number("g"), 16);
    EXPECT_EQ(Number("h"), 1);
    EXPECT_EQ(Number("i"), 0);
    EXPECT_EQ(Number("j"), 7);
    EXPECT_EQ(Number("k"), -77);
}

TEST_F(SettingsTest, ANumberThatIsTooLargeIsNotAnError)
{
    File("[S]\r\na=99999999999999999999999999\r\nb=4294967297\r\n");

    Number("a");
    EXPECT_EQ(Number("b"), 1);
}

TEST_F(SettingsTest, LinesMayEndAnyWay)
{
    File("[S]\na=1\nb=2\r\nc=3");

    EXPECT_EQ(Text("S", "a") + Text("S", "b") + Text("S", "c"), "123");
    Write("S", "b", "9");
    EXPECT_EQ(Text("S", "a") + Text("S", "b") + Text("S", "c"), "193");
}

TEST_F(SettingsTest, AByteOrderMarkIsNotPartOfTheFirstSection)
{
    File("\xEF\xBB\xBF[S]\r\na=1\r\n");

    EXPECT_EQ(Text("S", "a"), "1");
    Write("S", "a", "2");
    EXPECT_EQ(File(), "\xEF\xBB\xBF[S]\r\na=2\r\n");
}

TEST_F(SettingsTest, AnOldFileOfWindowsCharactersIsReadAsSuch)
{
    File("[S]\r\na=caf\xE9 \x80\r\n");

    EXPECT_EQ(Text("S", "a"), "caf\u00e9 \u20ac");
}

TEST_F(SettingsTest, AFileThatCannotBeWrittenIsNotAnErrorAndLeavesNoOtherFile)
{
    // A folder is in the place of the file.
    std::filesystem::create_directories(folder.Path("cvlb.ini/inside"));

    Write("S", "a", "1");
    Call("IniWriteLong", {"S", "a", 1});

    EXPECT_EQ(Text("S", "a"), "(missing)");
    std::string names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
        if (entry.path().filename().string().starts_with("cvlb"))
            names += entry.path().filename().string() + " ";
    EXPECT_EQ(names, "cvlb.ini ");
}

TEST_F(SettingsTest, AFileThatIsALinkStaysOne)
{
    folder.Write("elsewhere/real.ini", "[S]\r\na=1\r\n");
    std::filesystem::create_symlink("elsewhere/real.ini", folder.Path("cvlb.ini"));

    Write("S", "a", "2");

    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("cvlb.ini")));
    EXPECT_EQ(folder.Read("elsewhere/real.ini"), "[S]\r\na=2\r\n");
}

TEST_F(SettingsTest, AFileKeepsItsAccessRights)
{
    File("[S]\r\na=1\r\n");
    std::filesystem::permissions(folder.Path("cvlb.ini"), std::filesystem::perms(0600));

    Write("S", "a", "2");

    EXPECT_EQ(std::filesystem::status(folder.Path("cvlb.ini")).permissions(),
              std::filesystem::perms(0600));
}

}  // namespace
}  // namespace clb
