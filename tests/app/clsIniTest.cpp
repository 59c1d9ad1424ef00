#include <gtest/gtest.h>

#include <filesystem>

#include "app/clsIni.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/SmallDisk.h"

namespace clb {
namespace {

class clsIniTest : public testing::Test {
protected:
    clsIniTest() { ini_.INIFile(folder_.Path("cvlb.ini")); }

    TempFolder folder_;
    clsIni ini_;
};

TEST_F(clsIniTest, AMissingFileReadsAsTheDefault)
{
    EXPECT_EQ(ini_.GetString("Settings", "BankUrl"), "");
    EXPECT_EQ(ini_.GetString("Settings", "BankUrl", "none"), "none");
    EXPECT_EQ(ini_.GetLong("Settings", "Port", 8271), 8271);
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

TEST_F(clsIniTest, AValueIsCutAtNinetyNineCharacters)
{
    ini_.WriteString("Settings", "BankUrl", std::string(120, 'x'));

    EXPECT_EQ(ini_.GetString("Settings", "BankUrl"), std::string(99, 'x'));
}

TEST_F(clsIniTest, AQuotedValueLosesItsQuotes)
{
    folder_.Write("cvlb.ini", "[Settings]\nBankUrl=\" x \"\n");

    EXPECT_EQ(ini_.GetString("Settings", "BankUrl"), " x ");
}

TEST_F(clsIniTest, ANumberIsReadAsFarAsItGoes)
{
    folder_.Write("cvlb.ini", "[Settings]\na=12abc\nb=abc\n");

    EXPECT_EQ(ini_.GetLong("Settings", "a", 7), 12);
    EXPECT_EQ(ini_.GetLong("Settings", "b", 7), 0);
}

}  // namespace
}  // namespace clb
