// The settings file, read and written from outside.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class SettingsTest : public Scenario {};

TEST_F(SettingsTest, TheDefaultReplacesAMissingFileSectionOrKey)
{
    EXPECT_EQ(Call("IniGetString", {"S", "a"}), "");
    EXPECT_EQ(Call("IniGetString", {"S", "a", "d"}), "d");
    EXPECT_EQ(Call("IniGetLong", {"S", "a", 42}), 42);
    EXPECT_FALSE(folder.Holds("cvlb.ini"));

    folder.Write("cvlb.ini", "[S]\r\nb=1\r\n");
    EXPECT_EQ(Call("IniGetString", {"S", "a"}), "");
    EXPECT_EQ(Call("IniGetLong", {"S", "a", -42}), -42);
}

TEST_F(SettingsTest, TheFileInTheProgramsFolderIsWrittenAtOnce)
{
    folder.Write("cvlb.ini", "; mine\r\n[S]\r\nkept=x\r\n");

    Call("IniWriteString", {"S", "a", "caf\u00e9"});
    Call("IniWriteLong", {"S", "b", -7});

    EXPECT_EQ(folder.Read("cvlb.ini"), "; mine\r\n[S]\r\nkept=x\r\na=caf\u00e9\r\nb=-7\r\n");
    EXPECT_EQ(Call("IniGetString", {"s", "A"}), "caf\u00e9");
    EXPECT_EQ(Call("IniGetLong", {"S", "b", 0}), -7);
}

}  // namespace
}  // namespace clb
