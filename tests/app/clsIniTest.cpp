#include <gtest/gtest.h>

#include <filesystem>

#include "app/clsIni.h"
#include "base/Text.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/SmallDisk.h"

namespace clb {
namespace {

class clsIniTest : public testing::Test {
protected:
    clsIniTest() { ini_.INIFile(folder_.Path("cvlb.ini")); }

    void File(const std::string& text) { folder_.Write("cvlb.ini", text); }
    std::string File() { return folder_.Read("cvlb.ini"); }
    std::string Text(const std::string& key) { return ini_.GetString("S", key, "(missing)"); }
    std::int32_t Number(const std::string& key) { return ini_.GetLong("S", key, -77); }

    TempFolder folder_;
    clsIni ini_;
};

TEST_F(clsIniTest, AMissingFileReadsAsTheDefault)
{
    EXPECT_EQ(ini_.GetString("Settings", "BankUrl"), "");
    EXPECT_EQ(ini_.GetString("Settings", "BankUrl", "none"), "none");
    EXPECT_EQ(ini_.GetLong("Settings", "Port", 8271), 8271);
}

TEST_F(clsIniTest, TheDefaultReplacesAMissingSectionOrKey)
{
    File("[S]\r\nb=1\r\n[T]\r\na=2\r\n");

    EXPECT_EQ(ini_.GetString("S", "a"), "");
    EXPECT_EQ(ini_.GetString("S", "a", "d"), "d");
    EXPECT_EQ(ini_.GetString("U", "a", "d"), "d");
    EXPECT_EQ(ini_.GetLong("S", "a", -42), -42);
    EXPECT_EQ(ini_.GetString("S", "a", std::string(120, 'x')), std::string(99, 'x'));
}

TEST_F(clsIniTest, ReadingMakesNoFile)
{
    Text("a");
    Number("a");

    EXPECT_FALSE(folder_.Holds("cvlb.ini"));
}

TEST_F(clsIniTest, WithoutAFileSetNothingIsWritten)
{
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.Path());
    clsIni unset;

    unset.WriteString("Settings", "BankUrl", "x");
    EXPECT_EQ(unset.GetString("Settings", "BankUrl", "none"), "none");

    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
    std::filesystem::current_path(before);
}

TEST_F(clsIniTest, WhatIsWrittenIsReadBack)
{
    ini_.WriteString("Settings", "BankUrl", "https://bank.example/?a=b;c");
    ini_.WriteLong("Settings", "Port", -42);

    EXPECT_EQ(ini_.GetString("Settings", "BankUrl"), "https://bank.example/?a=b;c");
    EXPECT_EQ(ini_.GetLong("Settings", "Port", 0), -42);
    EXPECT_EQ(folder_.Read("cvlb.ini"),
              "[Settings]\r\nBankUrl=https://bank.example/?a=b;c\r\nPort=-42\r\n");
}

TEST_F(clsIniTest, NamesAreComparedWithoutRegardToCase)
{
    folder_.Write("cvlb.ini", "[SETTINGS]\nbankurl = x \n");

    EXPECT_EQ(ini_.GetString("Settings", "BankUrl"), "x");
    ini_.WriteString("settings", "BankURL", "y");
    EXPECT_EQ(folder_.Read("cvlb.ini"), "[SETTINGS]\r\nBankURL=y\r\n");
}

TEST_F(clsIniTest, NamesAreFoundIgnoringCaseAndOuterBlanks)
{
    File("  [ SeTTings ]  \r\n  bankURL \t=  x  \r\n");

    EXPECT_EQ(ini_.GetString("settings", "BANKurl"), "x");
    EXPECT_EQ(ini_.GetString("SETTINGS", "bankurl"), "x");
    EXPECT_EQ(ini_.GetString("Setting", "bankurl", "none"), "none");
    EXPECT_EQ(ini_.GetString("Settings", "bank", "none"), "none");
}

TEST_F(clsIniTest, NamesMayBeOfAnyScript)
{
    ini_.WriteString("R\u00e9glages", "cl\u00e9 \u8d85", "1");

    EXPECT_EQ(ini_.GetString("R\u00e9glages", "cl\u00e9 \u8d85"), "1");
}

TEST_F(clsIniTest, EveryOtherLineKeepsItsPlace)
{
    File("\r\n; first\r\nloose=1\r\n[A]\r\n;k=9\r\nk = 1 \r\n\r\nno value\r\n[B]\r\nk=2\r\n");

    ini_.WriteString("B", "k", "3");
    ini_.WriteString("A", "k", "4");
    ini_.WriteString("A", "new", "5");
    ini_.WriteString("C", "k", "6");

    EXPECT_EQ(File(),
              "\r\n; first\r\nloose=1\r\n[A]\r\n;k=9\r\nk=4\r\n\r\nno value\r\nnew=5\r\n[B]\r\n"
              "k=3\r\n[C]\r\nk=6\r\n");
}

TEST_F(clsIniTest, AFileWithoutALastLineEndIsContinuedOnANewLine)
{
    File("[S]\r\na=1");
    ini_.WriteString("S", "b", "2");
    EXPECT_EQ(File(), "[S]\r\na=1\r\nb=2\r\n");

    File("[S]\r\na=1");
    ini_.WriteString("T", "b", "2");
    EXPECT_EQ(File(), "[S]\r\na=1\r\n[T]\r\nb=2\r\n");
}

TEST_F(clsIniTest, ACommentIsNotAKeyAndAKeyBeforeAllSectionsBelongsToNone)
{
    File("a=0\r\n[S]\r\n;a=1\r\n ; a=2\r\nb=3\r\n");

    EXPECT_EQ(Text("a"), "(missing)");
    EXPECT_EQ(Text(";a"), "(missing)");
    EXPECT_EQ(Text("b"), "3");
}

TEST_F(clsIniTest, OfSectionsAndKeysThatOccurTwiceTheFirstCounts)
{
    File("[S]\r\na=1\r\nA=2\r\n[T]\r\nx=0\r\n[s]\r\na=3\r\nb=4\r\n");

    EXPECT_EQ(Text("a"), "1");
    ini_.WriteString("S", "a", "9");

    EXPECT_EQ(File(), "[S]\r\na=9\r\nA=2\r\n[T]\r\nx=0\r\n[s]\r\na=3\r\nb=4\r\n");
}

TEST_F(clsIniTest, OtherLinesKeepTheirPlace)
{
    folder_.Write("cvlb.ini",
                  "; mine\r\n[Other]\r\na=1\r\n\r\n[Settings]\r\n;x\r\n\r\n[Last]\r\nb=2\r\n");

    ini_.WriteString("Settings", "BankUrl", "u");

    EXPECT_EQ(
        folder_.Read("cvlb.ini"),
        "; mine\r\n[Other]\r\na=1\r\n\r\n[Settings]\r\n;x\r\nBankUrl=u\r\n\r\n[Last]\r\nb=2\r\n");
}

TEST_F(clsIniTest, OnAFullDiskTheOldFileStays)
{
    const SmallDisk disk;
    if (!disk.Mounted())
        GTEST_SKIP() << "no disk of its own";
    ini_.INIFile(disk.Path("cvlb.ini"));
    ini_.WriteString("Settings", "BankUrl", "https://bank.example/");
    disk.Fill();

    ini_.WriteString("Settings", "BankUrl", std::string(20000, 'x'));

    EXPECT_EQ(disk.Read("cvlb.ini"), "[Settings]\r\nBankUrl=https://bank.example/\r\n");
}

TEST_F(clsIniTest, AFileThatCannotBeReadIsNotReplaced)
{
    // Symptom: the file was replaced by one with only the new key.
    const std::string path = folder_.Write("cvlb.ini", "[S]\r\nkept=1\r\n");
    std::filesystem::permissions(path, std::filesystem::perms(0200));
    {
        const AsOrdinaryUser nobody({folder_.Path(), path});
        EXPECT_EQ(ini_.GetString("S", "kept", "none"), "none");
        ini_.WriteString("S", "new", "2");
    }

    EXPECT_EQ(folder_.Read("cvlb.ini"), "[S]\r\nkept=1\r\n");
}

TEST_F(clsIniTest, AnEmptyValueIsWrittenAndRead)
{
    ini_.WriteString("Settings", "BankUrl", "x");
    ini_.WriteString("Settings", "BankUrl", "");

    EXPECT_EQ(ini_.GetString("Settings", "BankUrl", "default"), "");
    EXPECT_EQ(folder_.Read("cvlb.ini"), "[Settings]\r\nBankUrl=\r\n");
}

TEST_F(clsIniTest, ValuesComeBackAsTheyWereWritten)
{
    for (const std::string value :
         {"a=b=c", "x;y", "; not a comment", "[S]", "it's", "say \"hi\" twice", "\"open", "a  b",
          "C:\\path\\n", "100%", "caf\u00e9 \u8d85 \U0001F600", "", "="}) {
        ini_.WriteString("S", "a", value);
        EXPECT_EQ(Text("a"), value);
    }
    EXPECT_EQ(Text("b"), "(missing)");
}

TEST_F(clsIniTest, AValueIsOneLine)
{
    ini_.WriteString("S", "a", "one\r\n[T]\r\nb=two");

    EXPECT_EQ(Text("a"), "one");
    EXPECT_EQ(ini_.GetString("T", "b", "none"), "none");
}

TEST_F(clsIniTest, ALongValueIsCutBetweenCharactersWhenReadAndKeptWholeInTheFile)
{
    std::string whole;
    for (int at = 0; at < 60; ++at)
        whole += "\u00e9\U0001F600";

    ini_.WriteString("S", "a", whole);

    EXPECT_EQ(Text("a"), Left(whole, 99));
    EXPECT_EQ(File(), "[S]\r\na=" + whole + "\r\n");
    ini_.WriteString("S", "b", std::string(99, 'x'));
    EXPECT_EQ(Text("b"), std::string(99, 'x'));
    ini_.WriteString("S", "b", std::string(100, 'x'));
    EXPECT_EQ(Text("b"), std::string(99, 'x'));
}

TEST_F(clsIniTest, BlanksAndOnePairOfQuotesAroundAValueAreRemoved)
{
    File(
        "[S]\r\na= \t x y \t\r\nb=\" x \"\r\nc='x'\r\nd=\"\"x\"\"\r\ne=\"\r\nf=\"x'\r\n"
        "g=\"\"\r\n");

    EXPECT_EQ(Text("a"), "x y");
    EXPECT_EQ(Text("b"), " x ");
    EXPECT_EQ(Text("c"), "x");
    EXPECT_EQ(Text("d"), "\"x\"");
    EXPECT_EQ(Text("e"), "\"");
    EXPECT_EQ(Text("f"), "\"x'");
    EXPECT_EQ(Text("g"), "");
}

TEST_F(clsIniTest, NumbersAreWrittenAsDecimalText)
{
    for (const std::int32_t number : {0, -1, 42, 2147483647, -2147483647 - 1}) {
        ini_.WriteLong("S", "a", number);
        EXPECT_EQ(Text("a"), std::to_string(number));
        EXPECT_EQ(Number("a"), number);
    }
}

TEST_F(clsIniTest, ANumberIsTheDigitsThatAValueBeginsWith)
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

TEST_F(clsIniTest, ANumberThatIsTooLargeIsNotAnError)
{
    File("[S]\r\na=99999999999999999999999999\r\nb=4294967297\r\n");

    Number("a");
    EXPECT_EQ(Number("b"), 1);
}

TEST_F(clsIniTest, LinesMayEndAnyWay)
{
    File("[S]\na=1\nb=2\r\nc=3");

    EXPECT_EQ(Text("a") + Text("b") + Text("c"), "123");
    ini_.WriteString("S", "b", "9");
    EXPECT_EQ(Text("a") + Text("b") + Text("c"), "193");
}

TEST_F(clsIniTest, AByteOrderMarkIsNotPartOfTheFirstSection)
{
    File("\xEF\xBB\xBF[S]\r\na=1\r\n");

    EXPECT_EQ(Text("a"), "1");
    ini_.WriteString("S", "a", "2");
    EXPECT_EQ(File(), "\xEF\xBB\xBF[S]\r\na=2\r\n");
}

TEST_F(clsIniTest, AnOldFileOfWindowsCharactersIsReadAsSuch)
{
    File("[S]\r\na=caf\xE9 \x80\r\n");

    EXPECT_EQ(Text("a"), "caf\u00e9 \u20ac");
}

TEST_F(clsIniTest, AFileThatCannotBeWrittenIsNotAnErrorAndLeavesNoOtherFile)
{
    // A folder is in the place of the file.
    std::filesystem::create_directories(folder_.Path("cvlb.ini/inside"));

    ini_.WriteString("S", "a", "1");
    ini_.WriteLong("S", "a", 1);

    EXPECT_EQ(Text("a"), "(missing)");
    std::string names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path()))
        names += entry.path().filename().string() + " ";
    EXPECT_EQ(names, "cvlb.ini ");
}

TEST_F(clsIniTest, AFileThatIsALinkStaysOne)
{
    folder_.Write("elsewhere/real.ini", "[S]\r\na=1\r\n");
    std::filesystem::create_symlink("elsewhere/real.ini", folder_.Path("cvlb.ini"));

    ini_.WriteString("S", "a", "2");

    EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("cvlb.ini")));
    EXPECT_EQ(folder_.Read("elsewhere/real.ini"), "[S]\r\na=2\r\n");
}

TEST_F(clsIniTest, AFileKeepsItsAccessRights)
{
    File("[S]\r\na=1\r\n");
    std::filesystem::permissions(folder_.Path("cvlb.ini"), std::filesystem::perms(0600));

    ini_.WriteString("S", "a", "2");

    EXPECT_EQ(std::filesystem::status(folder_.Path("cvlb.ini")).permissions(),
              std::filesystem::perms(0600));
}

}  // namespace
}  // namespace clb
